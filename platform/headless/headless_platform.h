#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "foundation/debug_utils.h"
#include "platform/common/platform_recorder.h"
#include "platform/headless/headless_font_catalogue.h"
#include "platform/headless/headless_picture_loader.h"
#include "platform/headless/headless_screen.h"
#include "platform/headless/headless_timer_service.h"
#include "platform/headless/headless_window_system.h"
#include "platform/platform.h"
#include "platform/popup_window.h"

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

  // What a user does while a popup window is shown modal: the modal show runs it in place of a
  // message loop (and hides a window still shown when it returns). Without one, a modal show
  // returns at once.
  using ModalCallback = std::function<void(IPopupWindow& window)>;
  void SetModalCallback(ModalCallback callback) { modal_callback_ = std::move(callback); }
  const ModalCallback& GetModalCallback() const { return modal_callback_; }

 private:
  PlatformRecorder recorder_;
  HeadlessScreen screen_;
  HeadlessWindowSystem windows_;
  std::shared_ptr<HeadlessFontCatalogue> fonts_;
  HeadlessPictureLoader pictures_;
  std::unique_ptr<ILocale> locale_;
  HeadlessTimerService timers_;
  MDebugUtils::TraceSink previous_sink_;
  ModalCallback modal_callback_;
};

}  // namespace zk
