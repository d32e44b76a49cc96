#include "platform/qt/qt_application.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>

namespace zk {

bool QtDisplayAvailable() {
  const char* x11 = std::getenv("DISPLAY");
  const char* wayland = std::getenv("WAYLAND_DISPLAY");
  return (x11 != nullptr && *x11 != '\0') || (wayland != nullptr && *wayland != '\0');
}

QApplication& EnsureQtApplication(bool offscreen) {
  if (auto* existing = qobject_cast<QApplication*>(QCoreApplication::instance())) return *existing;
  if ((offscreen || !QtDisplayAvailable()) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  // Qt wants a private runtime directory; a session without one gets a fresh one.
  if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
    static QTemporaryDir runtime_dir;
    if (runtime_dir.isValid()) {
      QFile::setPermissions(runtime_dir.path(),
                            QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
      qputenv("XDG_RUNTIME_DIR", runtime_dir.path().toLocal8Bit());
    }
  }
  // Text sizes are given in points and laid out in twips: a fixed 96 dpi keeps offscreen and
  // on-screen rendering alike.
  QApplication::setHighDpiScaleFactorRoundingPolicy(
      Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
  static int argc = 1;
  static char name[] = "zkcontrols";
  static char* argv[] = {name, nullptr};
  static QApplication* application = new QApplication(argc, argv);
  return *application;
}

}  // namespace zk
