#include "platform/headless/headless_platform.h"

#include <utility>

#include "platform/icu/icu_locale.h"

namespace zk {

HeadlessPlatform::HeadlessPlatform(HeadlessOptions options)
    : screen_(recorder_), fonts_(std::make_shared<HeadlessFontCatalogue>()) {
  auto locale = std::make_unique<IcuLocale>();
  if (options.locale) locale->SetName(*options.locale);
  locale_ = std::move(locale);
  previous_sink_ = MDebugUtils::SetTraceSink(
      [this](const MDebugUtils::TraceRecord& record) { recorder_.traces.push_back(record); });
}

HeadlessPlatform::~HeadlessPlatform() {
  MDebugUtils::SetTraceSink(std::move(previous_sink_));
}

}  // namespace zk
