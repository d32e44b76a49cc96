#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hosting/headless_form.h"

namespace zk {

// A default headless form (en-US) installed as the current platform, with helpers to read what
// the platform recorded.
class FormTest : public testing::Test {
 protected:
  FormTest() : platform_(HeadlessOptions{u"en-US"}), scope_(platform_), form_(platform_) {}

  template <typename Control>
  Control& Add(std::u16string_view kind, std::u16string_view name) {
    auto& control = static_cast<Control&>(form_.AddControl(kind, name));
    platform_.Recorder().Clear();
    return control;
  }

  // The property names notified since the last call.
  std::vector<std::u16string> Notified() {
    std::vector<std::u16string> names;
    for (const auto& [control, property] : form_.TakePropertyChanges())
      names.push_back(property);
    return names;
  }

  std::vector<std::u16string> TraceProcedures() {
    std::vector<std::u16string> procedures;
    for (const auto& record : platform_.Recorder().traces)
      procedures.push_back(record.procedure);
    platform_.Recorder().traces.clear();
    return procedures;
  }

  HeadlessPlatform platform_;
  PlatformScope scope_;
  HeadlessForm form_;
};

}  // namespace zk
