#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "platform/font_catalogue.h"
#include "platform/locale.h"
#include "platform/picture.h"
#include "platform/popup_window.h"
#include "platform/screen.h"
#include "platform/std_font.h"
#include "platform/timer_service.h"
#include "platform/window_system.h"

namespace zk {

// The services of the platform that runs the controls. Controls and helpers reach them only
// through these interfaces and never know which implementation runs them.
class IPlatform {
 public:
  virtual ~IPlatform() = default;

  virtual IScreen& Screen() = 0;
  virtual IWindowSystem& Windows() = 0;
  virtual std::shared_ptr<const IFontCatalogue> FontCatalogue() = 0;
  virtual IPictureLoader& Pictures() = 0;
  virtual ILocale& Locale() = 0;
  virtual ITimerService& Timers() = 0;

  // A new font object with the platform's default values.
  FontRef NewFont() { return StdFont::Create(FontCatalogue()); }

  // Whether the application allows modeless windows; when it does not, a popup window's
  // modeless show is refused. Allowed by default.
  bool NonModalAllowed() const { return non_modal_allowed_; }
  void SetNonModalAllowed(bool allowed) { non_modal_allowed_ = allowed; }

  // What acts as the user while a popup window is shown modal (a test, or a script host with
  // the statements that follow): the modal show runs it inside its loop, and hides the window
  // when it is still shown once the callback returns, so that nothing waits for a user who is
  // not there. Without one, a headless modal show returns at once (hiding the window) and a
  // real one waits for the window to hide.
  using ModalCallback = std::function<void(IPopupWindow& window)>;
  void SetModalCallback(ModalCallback callback) { modal_callback_ = std::move(callback); }
  const ModalCallback& GetModalCallback() const { return modal_callback_; }

 private:
  bool non_modal_allowed_ = true;
  ModalCallback modal_callback_;
};

// The platform of this process (all controls run on one user-interface thread). Throws ZKError
// 91 when no platform is installed.
IPlatform& CurrentPlatform();
bool HasCurrentPlatform() noexcept;
// Installs a platform (or none) and returns the previous one.
IPlatform* SetCurrentPlatform(IPlatform* platform) noexcept;

// Installs a platform for the lifetime of the scope and restores the previous one after it.
class PlatformScope {
 public:
  explicit PlatformScope(IPlatform& platform) : previous_(SetCurrentPlatform(&platform)) {}
  PlatformScope(const PlatformScope&) = delete;
  PlatformScope& operator=(const PlatformScope&) = delete;
  ~PlatformScope() { SetCurrentPlatform(previous_); }

 private:
  IPlatform* previous_;
};

}  // namespace zk
