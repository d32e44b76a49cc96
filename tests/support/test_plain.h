#pragma once

#include <string>
#include <string_view>

#include "framework/control.h"

namespace zk {

// A control that publishes no Enabled property, for the tests of what a container does with
// an object that lacks it: only a Note text, ControlGroup and the archive members.
class ZKTestPlain final : public ZKControl {
 public:
  explicit ZKTestPlain(IControlSite& site) : ZKControl(site) {}

  std::u16string_view Kind() const override { return u"ZKTestPlain"; }
  const PropertyTable& Properties() const override;

  const std::u16string& Note() const { return note_; }
  void SetNote(std::u16string New_Note);

 private:
  std::u16string note_;
};

}  // namespace zk
