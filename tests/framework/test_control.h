#pragma once

#include <array>
#include <string>

#include "enumerations/enumerations.h"
#include "framework/control.h"

namespace zk {

// The smallest control that carries the common contract, so that the contract is tested once:
// a text, a number that accepts only 0 to 10, a boolean, a colour that cannot be read when it
// is 13 (to make archive writing fail), and the common members.
class TestControl final : public ZKControl {
 public:
  explicit TestControl(IControlSite& site) : ZKControl(site) {}

  std::u16string_view Kind() const override { return u"TestControl"; }

  const PropertyTable& Properties() const override {
    using property_rows::Property;
    using T = TestControl;
    static const PropertyTable table(
        {
            Common<T>(u"Enabled"),
            Property(u"Caption", &T::Caption, &T::SetCaption, dispatch_id::kCaption).Archive(1),
            Property(u"Count", &T::Count, &T::SetCount).Archive(2),
            Property(u"Flag", &T::Flag, &T::SetFlag).Archive(3),
            Property(u"Colour", &T::Colour, &T::SetColour).Archive(4),
            Common<T>(u"Font").Archive(5),
            Common<T>(u"DesignMode").Archive(6),
            Common<T>(u"ControlGroup").Archive(7),
            Common<T>(u"Clone"),
            Common<T>(u"GetArchiveStr"),
            Common<T>(u"ParseArchiveStr"),
            Common<T>(u"ExtraProp"),
            Common<T>(u"ExtraAction"),
            Common<T>(u"hWnd"),
        },
        {u"Click", u"Change"});
    return table;
  }

  const std::u16string& Caption() const { return caption_; }
  void SetCaption(std::u16string value) {
    caption_ = std::move(value);
    NotifyChanged(u"Caption");
  }
  int32_t Count() const { return count_; }
  void SetCount(int32_t value) {
    if (value < 0 || value > 10) return;
    count_ = value;
    NotifyChanged(u"Count");
  }
  bool Flag() const { return flag_; }
  void SetFlag(bool value) {
    flag_ = value;
    NotifyChanged(u"Flag");
  }
  OLE_COLOR Colour() const {
    if (colour_ == 13) throw ZKError(error_number::kInternalError, u"unreadable colour");
    return colour_;
  }
  void SetColour(OLE_COLOR value) {
    colour_ = value;
    NotifyChanged(u"Colour");
  }

  int font_changes = 0;
  ControlEvent<int16_t&> Click{EventRaised(), u"Click"};

 protected:
  void OnFontChanged() override { ++font_changes; }

 private:
  std::u16string caption_ = u"Test";
  int32_t count_ = 1;
  bool flag_ = false;
  OLE_COLOR colour_ = 0;
};

}  // namespace zk
