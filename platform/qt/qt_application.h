#pragma once

class QApplication;

namespace zk {

// True when a real display is reachable (X11 or Wayland).
bool QtDisplayAvailable();

// The process's QApplication, created on first use: on Qt's offscreen platform when
// `offscreen` is true or no display is available (unless QT_QPA_PLATFORM already names one).
QApplication& EnsureQtApplication(bool offscreen);

}  // namespace zk
