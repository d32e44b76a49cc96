#pragma once

#include <memory>

#include "platform/font_catalogue.h"
#include "platform/locale.h"
#include "platform/picture.h"
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

 private:
  bool non_modal_allowed_ = true;
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
