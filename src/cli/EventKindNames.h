#pragma once

#include <array>
#include <utility>

#include "events/MapEventSet.h"

namespace kartova::cli {

// The event kinds by the names the tool's JSON uses (`map`'s events, patches, diffs), in the
// order the game keeps them: the script header (Enter, Time) before the event lists (warps,
// triggers, signposts, people).
inline constexpr std::array<std::pair<const char*, int>, kEventKindCount> kEventKindNames = {{
    {"enter", kEventEnter},
    {"time", kEventTime},
    {"warp", kEventWarp},
    {"trigger", kEventTrigger},
    {"sign", kEventSign},
    {"people", kEventPeople},
}};

}  // namespace kartova::cli
