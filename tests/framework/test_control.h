#pragma once

#include <array>
#include <string>

#include "framework/control.h"
#include "framework/enumerations.h"

namespace zk {

// The smallest control that carries the common contract, so that the contract is tested once:
// a text, a number that accepts only 0 to 10, a boolean, a colour that cannot be read when it
// is 13 (to make archive writing fail), and the common members.
class TestControl final : public ZKControl {
 public:
  explicit TestControl(IControlSite& site) : ZKControl(site) {}

  std::u16string_view Kind() const override { return u"TestControl"; }

  const AutomationTable& Automation() const override {
    using automation::Property;
    static const AutomationTable table(
        {
            CommonMember(u"Enabled"),
            Property(u"Caption", &TestControl::Caption, &TestControl::SetCaption,
                     dispatch_id::kCaption),
            Property(u"Count", &TestControl::Count, &TestControl::SetCount),
            Property(u"Flag", &TestControl::Flag, &TestControl::SetFlag),
            Property(u"Colour", &TestControl::Colour, &TestControl::SetColour),
            CommonMember(u"Font"),
            CommonMember(u"DesignMode"),
            CommonMember(u"ControlGroup"),
            CommonMember(u"Clone"),
            CommonMember(u"GetArchiveStr"),
            CommonMember(u"ParseArchiveStr"),
            CommonMember(u"ExtraProp"),
            CommonMember(u"ExtraAction"),
            CommonMember(u"hWnd"),
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

  void InitProperties() override {}
  void ReadProperties(IPropertyBag&) override {}
  void WriteProperties(IPropertyBag&) override {}

  int font_changes = 0;
  ControlEvent<int16_t&> Click{EventRaised(), u"Click"};

 protected:
  std::span<const ArchiveField> ArchiveFields() const override {
    static const std::array<ArchiveField, 7> fields = {{
        {ArchiveKind::kText, u"Caption"},
        {ArchiveKind::kNumber, u"Count"},
        {ArchiveKind::kBool, u"Flag"},
        {ArchiveKind::kNumber, u"Colour"},
        {ArchiveKind::kFont, u"Font"},
        {ArchiveKind::kBool, u"DesignMode"},
        {ArchiveKind::kText, u"ControlGroup"},
    }};
    return fields;
  }
  void OnFontChanged() override { ++font_changes; }

 private:
  std::u16string caption_ = u"Test";
  int32_t count_ = 1;
  bool flag_ = false;
  OLE_COLOR colour_ = 0;
};

}  // namespace zk
