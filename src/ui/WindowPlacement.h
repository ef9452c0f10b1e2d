#pragma once

#include <cstdint>
#include <string>

class QWidget;

namespace kartova {

class SettingsStore;

// The main window's geometry as the settings keep it: in twips (1440 to the inch), converted
// at the screen's logical resolution. Restores it at start-up, keeps the size limits, records
// the normal geometry and writes it back at close.
class WindowPlacement {
 public:
  static constexpr int kTwipsPerInch = 1440;
  static constexpr int kDefaultWidth = 9060;
  static constexpr int kDefaultHeight = 7920;
  static constexpr int kMinWidth = 6495;
  static constexpr int kMinHeight = 7920;
  // The width given when the saved height does not fit the screen.
  static constexpr int kShortScreenWidth = 7920;

  explicit WindowPlacement(QWidget& window);

  // Start-up: size, position and window state from the settings.
  void Restore(const SettingsStore& settings);
  // The resize handler's part: while the window is normal, remember its position and size.
  void RecordNormalGeometry();
  // Close: "WindowState", "WinSizeX", "WinSizeY", "WinPosX", "WinPosY".
  void Save(SettingsStore& settings) const;

  // The recorded normal geometry in twips.
  std::int32_t normal_left() const { return normal_left_; }
  std::int32_t normal_top() const { return normal_top_; }
  std::int32_t normal_width() const { return normal_width_; }
  std::int32_t normal_height() const { return normal_height_; }

  // Conversions at the resolution of the screen the window is on.
  int ToPixelsX(double twips) const;
  int ToPixelsY(double twips) const;
  std::int32_t ToTwipsX(int pixels) const;
  std::int32_t ToTwipsY(int pixels) const;
  std::int32_t ScreenWidthTwips() const;
  std::int32_t ScreenHeightTwips() const;

 private:
  double DpiX() const;
  double DpiY() const;
  int StateNumber() const;

  QWidget& window_;
  std::int32_t normal_left_ = 0;
  std::int32_t normal_top_ = 0;
  std::int32_t normal_width_ = 0;
  std::int32_t normal_height_ = 0;
};

}  // namespace kartova
