#pragma once

#include <memory>
#include <optional>
#include <string>

#include "foundation/debug_utils.h"
#include "platform/common/platform_recorder.h"
#include "platform/headless/headless_font_catalogue.h"
#include "platform/headless/headless_picture_loader.h"
#include "platform/headless/headless_screen.h"
#include "platform/headless/headless_timer_service.h"
#include "platform/headless/headless_window_system.h"
#include "platform/platform.h"

namespace zk {

struct HeadlessOptions {
  // The locale by name ("en-US"); the environment's locale when not given.
  std::optional<std::u16string> locale;
};

// The deterministic in-memory platform. While it exists, the library's trace lines go to its
// recorder (the previous trace sink comes back when it is destroyed); PlatformScope makes it
// the current platform.
class HeadlessPlatform final : public IPlatform {
 public:
  explicit HeadlessPlatform(HeadlessOptions options = {});
  HeadlessPlatform(const HeadlessPlatform&) = delete;
  HeadlessPlatform& operator=(const HeadlessPlatform&) = delete;
  ~HeadlessPlatform() override;

  HeadlessScreen& Screen() override { return screen_; }
  HeadlessWindowSystem& Windows() override { return windows_; }
  std::shared_ptr<const IFontCatalogue> FontCatalogue() override { return fonts_; }
  HeadlessFontCatalogue& Fonts() { return *fonts_; }
  HeadlessPictureLoader& Pictures() override { return pictures_; }
  ILocale& Locale() override { return *locale_; }
  HeadlessTimerService& Timers() override { return timers_; }

  PlatformRecorder& Recorder() { return recorder_; }

  // The virtual clock, in milliseconds since the platform was created. Time passes only when
  // a test or a script lets it pass; timers that fall due on the way tick.
  int64_t Now() const { return timers_.Now(); }
  void Advance(int32_t milliseconds) { timers_.Advance(milliseconds); }

 private:
  PlatformRecorder recorder_;
  HeadlessScreen screen_;
  HeadlessWindowSystem windows_;
  std::shared_ptr<HeadlessFontCatalogue> fonts_;
  HeadlessPictureLoader pictures_;
  std::unique_ptr<ILocale> locale_;
  HeadlessTimerService timers_;
  MDebugUtils::TraceSink previous_sink_;
};

}  // namespace zk
