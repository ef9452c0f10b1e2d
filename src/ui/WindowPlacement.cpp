#include "ui/WindowPlacement.h"

#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <charconv>
#include <cmath>

#include "settings/SettingsStore.h"
#include "rom/HexText.h"

namespace kartova {
namespace {

constexpr const char* kSettings = "Settings";
constexpr double kMaxPixels = QWIDGETSIZE_MAX;

// Settings hold any text; what does not parse is 0, what is out of range saturates.
double TwipsSetting(const SettingsStore& settings, const char* key, const std::string& def) {
  const double value = ParseDecimal(settings.ReadSetting(kSettings, key, def));
  if (std::isnan(value)) return 0;
  return std::clamp(value, -2147483648.0, 2147483647.0);
}

int ToPixels(double twips, double dpi) {
  const double pixels = twips * dpi / WindowPlacement::kTwipsPerInch;
  return static_cast<int>(std::lround(std::clamp(pixels, -kMaxPixels, kMaxPixels)));
}

std::int32_t ToTwips(int pixels, double dpi) {
  const double twips = pixels * double{WindowPlacement::kTwipsPerInch} / dpi;
  return static_cast<std::int32_t>(std::lround(std::clamp(twips, -2147483648.0, 2147483647.0)));
}

// The centred default is handed to the settings read as text, halves included.
std::string DecimalText(double value) {
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

}  // namespace

WindowPlacement::WindowPlacement(QWidget& window) : window_(window) {}

double WindowPlacement::DpiX() const {
  const QScreen* screen = window_.screen();
  const double dpi = screen ? screen->logicalDotsPerInchX() : 96.0;
  return dpi > 0 ? dpi : 96.0;
}

double WindowPlacement::DpiY() const {
  const QScreen* screen = window_.screen();
  const double dpi = screen ? screen->logicalDotsPerInchY() : 96.0;
  return dpi > 0 ? dpi : 96.0;
}

int WindowPlacement::ToPixelsX(double twips) const { return ToPixels(twips, DpiX()); }
int WindowPlacement::ToPixelsY(double twips) const { return ToPixels(twips, DpiY()); }
std::int32_t WindowPlacement::ToTwipsX(int pixels) const { return ToTwips(pixels, DpiX()); }
std::int32_t WindowPlacement::ToTwipsY(int pixels) const { return ToTwips(pixels, DpiY()); }

std::int32_t WindowPlacement::ScreenWidthTwips() const {
  const QScreen* screen = window_.screen();
  return screen ? ToTwipsX(screen->geometry().width()) : 0;
}

std::int32_t WindowPlacement::ScreenHeightTwips() const {
  const QScreen* screen = window_.screen();
  return screen ? ToTwipsY(screen->geometry().height()) : 0;
}

void WindowPlacement::Restore(const SettingsStore& settings) {
  // The limits are those the resize handler keeps; a width of 0 from unreadable text ends up
  // at the minimum.
  window_.setMinimumSize(static_cast<int>(std::ceil(kMinWidth * DpiX() / kTwipsPerInch)),
                         static_cast<int>(std::ceil(kMinHeight * DpiY() / kTwipsPerInch)));

  const double screen_width = ScreenWidthTwips();
  const double screen_height = ScreenHeightTwips();
  double width = TwipsSetting(settings, "WinSizeX", Dec(kDefaultWidth));
  const double height = TwipsSetting(settings, "WinSizeY", Dec(kDefaultHeight));
  if (screen_width < width) width = kDefaultWidth;
  // A height that does not fit changes the width, not the height: the editor has always done
  // so and users' saved layouts rely on it.
  if (screen_height < height) width = kShortScreenWidth;
  window_.resize(ToPixelsX(width), ToPixelsY(height));

  const double centre_x = (screen_width - ToTwipsX(window_.width())) / 2;
  const double centre_y = (screen_height - ToTwipsY(window_.height())) / 2;
  double x = TwipsSetting(settings, "WinPosX", DecimalText(centre_x));
  double y = TwipsSetting(settings, "WinPosY", DecimalText(centre_y));
  if (screen_width < x) x = centre_x;
  if (screen_height < y) y = centre_y;
  window_.move(ToPixelsX(x), ToPixelsY(y));
  RecordNormalGeometry();

  switch (static_cast<int>(TwipsSetting(settings, "WindowState", "0"))) {
    case 1:
      window_.setWindowState(Qt::WindowMinimized);
      break;
    case 2:
      window_.setWindowState(Qt::WindowMaximized);
      break;
    default:
      window_.setWindowState(Qt::WindowNoState);
      break;
  }
}

void WindowPlacement::RecordNormalGeometry() {
  if (window_.windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen))
    return;
  normal_left_ = ToTwipsX(window_.x());
  normal_top_ = ToTwipsY(window_.y());
  normal_width_ = ToTwipsX(window_.width());
  normal_height_ = ToTwipsY(window_.height());
}

int WindowPlacement::StateNumber() const {
  if (window_.isMinimized()) return 1;
  if (window_.isMaximized() || window_.isFullScreen()) return 2;
  return 0;
}

void WindowPlacement::Save(SettingsStore& settings) const {
  settings.WriteSetting(kSettings, "WindowState", Dec(StateNumber()));
  settings.WriteSetting(kSettings, "WinSizeX", Dec(normal_width_));
  settings.WriteSetting(kSettings, "WinSizeY", Dec(normal_height_));
  // The position is the window's own, also when it is maximised or minimised.
  settings.WriteSetting(kSettings, "WinPosX", Dec(ToTwipsX(window_.x())));
  settings.WriteSetting(kSettings, "WinPosY", Dec(ToTwipsY(window_.y())));
}

}  // namespace kartova
