#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "demo/RomBuilder.h"

namespace kartova {

// The demo ROM: a small world of this kind of game, built in code, for new users and tests.
inline constexpr std::string_view kDemoTitle = "KARTOVA DEMO";

// The builder with the whole demo declared, for tests that add to it or break it.
RomBuilder DemoRomBuilder();
std::vector<std::uint8_t> BuildDemoRom();

// The ROM definition for the demo's title, as INI text: the definition section (named by the
// title's 32 hex digits) and the four name lists it refers to.
std::string DemoDefinitionIni();
// The name of the definition section.
std::string DemoDefinitionSection();

}  // namespace kartova
