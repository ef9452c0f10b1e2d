#include "ui/ViewOptions.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

#include "settings/SettingsStore.h"
#include "rom/HexText.h"
#include "ui/MainMenu.h"

namespace kartova {
namespace {

constexpr const char* kSettings = "Settings";

struct ZoomItem {
  const char* item;
  const char* key;
  const char* default_value;
};

constexpr ZoomItem kZoomItems[] = {
    {"mnuMapZoom", "ZoomMap", "0"},
    {"mnuEventZoom", "ZoomEvent", "1"},
    {"mnuTilesetZoom", "ZoomTileset", "0"},
};

const ZoomItem& ZoomItemOf(ViewOptions::View view) { return kZoomItems[static_cast<int>(view)]; }

// The settings hold any number; a single-precision variable saturates instead of failing.
float ToSingle(double value) {
  constexpr double kMax = std::numeric_limits<float>::max();
  if (std::isnan(value)) return 0.0f;
  if (value > kMax) return std::numeric_limits<float>::max();
  if (value < -kMax) return -std::numeric_limits<float>::max();
  return static_cast<float>(value);
}

constexpr const char* kSpeedItems[] = {"mnuScrSpeedFast", "mnuScrSpeedNormal", "mnuScrSpeedSlow"};
constexpr float kSpeedFactors[] = {2.0f, 1.0f, 0.5f};

float SpeedFactor(const char* item) {
  for (int i = 0; i < 3; ++i)
    if (std::string_view(item) == kSpeedItems[i]) return kSpeedFactors[i];
  return 1.0f;
}

float Sign(float value) { return value > 0 ? 1.0f : (value < 0 ? -1.0f : 0.0f); }

}  // namespace

ViewOptions::ViewOptions(SettingsStore& settings, MainMenu& menu, QObject* parent)
    : QObject(parent), settings_(settings), menu_(menu) {}

void ViewOptions::ReadZoomOptions() {
  for (const View view : {View::kMap, View::kEvent, View::kTileset}) {
    const ZoomItem& item = ZoomItemOf(view);
    const bool on = settings_.ReadSetting(kSettings, item.key, item.default_value) == "1";
    menu_.SetChecked(item.item, on);
    zoom_[static_cast<int>(view)] = on ? 2 : 1;
  }
}

void ViewOptions::ReadScrollOptions() {
  const bool dynamic = settings_.ReadSetting(kSettings, "ScrollMode", "1") == "1";
  menu_.SetChecked("mnuScrModeDyn", dynamic);
  menu_.SetChecked("mnuScrModeStatic", !dynamic);
  menu_.SetChecked("mnuShowDirLine", settings_.ReadSetting(kSettings, "ShowDirLine", "1") == "1");
  scroll_speed_ = ToSingle(ParseDecimal(settings_.ReadSetting(kSettings, "ScrollSpeed", "1")));
  CheckSpeedItems();
  menu_.SetChecked("mnuScrSpeedSign", scroll_speed_ < 0);
}

int ViewOptions::zoom(View view) const { return zoom_[static_cast<int>(view)]; }

bool ViewOptions::dynamic_scrolling() const { return menu_.Checked("mnuScrModeDyn"); }

bool ViewOptions::show_dir_line() const { return menu_.Checked("mnuShowDirLine"); }

void ViewOptions::ClickZoom(View view) {
  const ZoomItem& item = ZoomItemOf(view);
  const bool on = !menu_.Checked(item.item);
  menu_.SetChecked(item.item, on);
  settings_.WriteSetting(kSettings, item.key, FlagText(on));
  zoom_[static_cast<int>(view)] = on ? 2 : 1;
  emit ZoomChanged(view, zoom(view));
}

void ViewOptions::ClickScrollModeDynamic() { ClickScrollMode("mnuScrModeDyn", "mnuScrModeStatic"); }

void ViewOptions::ClickScrollModeStatic() { ClickScrollMode("mnuScrModeStatic", "mnuScrModeDyn"); }

void ViewOptions::ClickScrollMode(const char* item, const char* other) {
  if (!menu_.Checked(item)) {
    menu_.SetChecked(item, true);
    menu_.SetChecked(other, false);
  }
  settings_.WriteSetting(kSettings, "ScrollMode", FlagText(menu_.Checked("mnuScrModeDyn")));
}

void ViewOptions::ClickScrollSpeed(const char* item) {
  if (!menu_.Checked(item)) {
    for (const char* speed_item : kSpeedItems) menu_.SetChecked(speed_item, false);
    menu_.SetChecked(item, true);
  }
  // A speed of 0 has no sign to keep and stays 0, whatever is chosen.
  scroll_speed_ = Sign(scroll_speed_) * SpeedFactor(item);
  WriteScrollSpeed();
}

void ViewOptions::ClickScrollSpeedSign() {
  menu_.SetChecked("mnuScrSpeedSign", !menu_.Checked("mnuScrSpeedSign"));
  scroll_speed_ = -scroll_speed_;
  WriteScrollSpeed();
}

void ViewOptions::ClickShowDirLine() {
  const bool visible = !menu_.Checked("mnuShowDirLine");
  menu_.SetChecked("mnuShowDirLine", visible);
  settings_.WriteSetting(kSettings, "ShowDirLine", FlagText(visible));
  emit DirLineVisibilityChanged(visible);
}

void ViewOptions::CheckSpeedItems() {
  const float magnitude = std::fabs(scroll_speed_);
  for (int i = 0; i < 3; ++i) menu_.SetChecked(kSpeedItems[i], magnitude == kSpeedFactors[i]);
}

void ViewOptions::WriteScrollSpeed() {
  settings_.WriteSetting(kSettings, "ScrollSpeed", ScrollSpeedText(scroll_speed_));
}

std::string ViewOptions::ScrollSpeedText(float speed) {
  if (speed == 0.0f) speed = 0.0f;  // no "-0"
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, speed);
  return std::string(buffer, result.ptr);
}

}  // namespace kartova
