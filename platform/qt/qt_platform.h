#pragma once

#include <memory>
#include <optional>
#include <string>

#include "foundation/debug_utils.h"
#include "platform/common/platform_recorder.h"
#include "platform/platform.h"
#include "platform/qt/qt_font_catalogue.h"
#include "platform/qt/qt_picture_loader.h"
#include "platform/qt/qt_screen.h"
#include "platform/qt/qt_timer_service.h"
#include "platform/qt/qt_window_system.h"

namespace zk {

struct QtOptions {
  // Qt's offscreen platform even where a display is available.
  bool offscreen = false;
  // The locale by name ("en-US"); the environment's locale when not given.
  std::optional<std::u16string> locale;
};

// The platform over Qt 6 Widgets: real widgets, painting, fonts and timers. It creates the
// QApplication when there is none. While it exists, trace lines also go to its recorder;
// property-changed notifications are kept only when a host asks for them.
class QtPlatform final : public IPlatform {
 public:
  explicit QtPlatform(QtOptions options = {});
  QtPlatform(const QtPlatform&) = delete;
  QtPlatform& operator=(const QtPlatform&) = delete;
  ~QtPlatform() override;

  QtScreen& Screen() override { return screen_; }
  QtWindowSystem& Windows() override { return windows_; }
  std::shared_ptr<const IFontCatalogue> FontCatalogue() override { return fonts_; }
  const QtFontCatalogue& Fonts() const { return *fonts_; }
  QtPictureLoader& Pictures() override { return pictures_; }
  ILocale& Locale() override { return *locale_; }
  QtTimerService& Timers() override { return timers_; }
  PlatformRecorder& Recorder() { return recorder_; }

  // Runs Qt's event loop for the given time.
  void RunEventLoop(int32_t milliseconds);

 private:
  // Creates the QApplication before any member that talks to Qt.
  struct ApplicationReady {
    explicit ApplicationReady(bool offscreen);
  };

  ApplicationReady application_;
  PlatformRecorder recorder_;
  QtScreen screen_;
  QtWindowSystem windows_;
  std::shared_ptr<QtFontCatalogue> fonts_;
  QtPictureLoader pictures_;
  std::unique_ptr<ILocale> locale_;
  QtTimerService timers_;
  MDebugUtils::TraceSink previous_sink_;
};

}  // namespace zk
