#include "platform/qt/qt_platform.h"

#include <QEventLoop>
#include <QTimer>
#include <utility>

#include "platform/icu/icu_locale.h"
#include "platform/qt/qt_application.h"

namespace zk {
QtPlatform::ApplicationReady::ApplicationReady(bool offscreen) {
  EnsureQtApplication(offscreen);
}

QtPlatform::QtPlatform(QtOptions options)
    : application_(options.offscreen),
      screen_(recorder_),
      fonts_(std::make_shared<QtFontCatalogue>()) {
  auto locale = std::make_unique<IcuLocale>();
  if (options.locale) locale->SetName(*options.locale);
  locale_ = std::move(locale);
  // A running program has no use for them; a script host or a test asks for them.
  recorder_.keep_property_changes = false;
  previous_sink_ = MDebugUtils::SetTraceSink(
      [this](const MDebugUtils::TraceRecord& record) { recorder_.traces.push_back(record); });
}

QtPlatform::~QtPlatform() {
  MDebugUtils::SetTraceSink(std::move(previous_sink_));
}

void QtPlatform::RunEventLoop(int32_t milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(std::max(0, milliseconds), &loop, &QEventLoop::quit);
  loop.exec();
}

}  // namespace zk
