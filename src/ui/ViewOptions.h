#pragma once

#include <QObject>
#include <string>

namespace kartova {

class MainMenu;
class SettingsStore;

// The options menu's view preferences: the three zooms, scroll mode, scroll speed with its
// display, and the direction line. The state lives in the check marks and in ScrollSpeed;
// every change is written to the settings store at once.
class ViewOptions : public QObject {
  Q_OBJECT

 public:
  enum class View { kMap, kEvent, kTileset };

  ViewOptions(SettingsStore& settings, MainMenu& menu, QObject* parent = nullptr);

  // Start-up: the zoom items and factors from "ZoomMap", "ZoomEvent", "ZoomTileset".
  void ReadZoomOptions();
  // Start-up: scroll mode, direction line, scroll speed and its items.
  void ReadScrollOptions();

  // 1 or 2.
  int zoom(View view) const;
  // Magnitude 2, 1 or 0.5 for fast, normal, slow (anything when read from the settings);
  // negative while the speed display is on.
  float scroll_speed() const { return scroll_speed_; }
  bool dynamic_scrolling() const;
  bool show_dir_line() const;

  // Click handlers of the menu items.
  void ClickZoom(View view);
  void ClickScrollModeDynamic();
  void ClickScrollModeStatic();
  // item: mnuScrSpeedFast, mnuScrSpeedNormal or mnuScrSpeedSlow.
  void ClickScrollSpeed(const char* item);
  void ClickScrollSpeedSign();
  void ClickShowDirLine();

  // ScrollSpeed as it is stored: shortest decimal text, "." as separator, no blanks.
  static std::string ScrollSpeedText(float speed);

 signals:
  // The views resize themselves and redraw at the new zoom.
  void ZoomChanged(kartova::ViewOptions::View view, int zoom);
  // The event view shows or hides its direction line.
  void DirLineVisibilityChanged(bool visible);

 private:
  void ClickScrollMode(const char* item, const char* other);
  void WriteScrollSpeed();
  void CheckSpeedItems();

  SettingsStore& settings_;
  MainMenu& menu_;
  int zoom_[3] = {1, 2, 1};
  float scroll_speed_ = 1.0f;
};

}  // namespace kartova
