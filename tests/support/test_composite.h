#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/buttons/color_button.h"
#include "controls/text/text_edit.h"
#include "framework/constituent.h"
#include "framework/control.h"
#include "platform/elements.h"

namespace zk {

// A control built of parts, for the tests of parts and the focus inside a control: two colour
// buttons ("cmdLeft", "cmdRight") with a text edit ("tedValue") between them across the upper
// half, over a windowless label of its own that fills the whole control (made after the parts,
// so that it would lie above them if windowless elements could). It re-raises what its parts
// do as its own events, naming the part, and takes the Tab key: Tab and Shift+Tab move the
// focus from part to part in that order, and leave the control after the last one (before the
// first one).
class ZKTestComposite final : public ZKControl {
 public:
  explicit ZKTestComposite(IControlSite& site);
  ~ZKTestComposite() override;

  std::u16string_view Kind() const override { return u"ZKTestComposite"; }
  const PropertyTable& Properties() const override;

  // The text edit's text ("" once it was dropped).
  std::u16string Text() const;
  void SetText(std::u16string New_Text);
  std::u16string LeftCaption() const;
  void SetLeftCaption(std::u16string New_LeftCaption);
  std::u16string RightCaption() const;
  void SetRightCaption(std::u16string New_RightCaption);
  // The text edit's data type (zktTDText once it was dropped).
  zktTextDataType ValueDataType() const;
  void SetValueDataType(zktTextDataType New_ValueDataType);
  // The name of the part that has the focus inside the control, "" for none.
  std::u16string FocusedPart() const;
  // How many parts still exist.
  int32_t PartCount() const;
  // The text edit's window while it exists, else the control's own.
  int32_t hWnd() const override;

  // Gives the focus inside the control to the part of that name ("" for the control's own
  // window); false when it cannot take it. An unknown name raises error 5.
  bool FocusPart(std::u16string_view name);
  void BringPartToFront(std::u16string_view name);
  // Destroys the part now (its holder is reset early).
  void DropPart(std::u16string_view name);
  // A part's extender and surface by name; null for an unknown or dropped part.
  DispatchObject* PartExtender(std::u16string_view name);
  ISurface* PartSurface(std::u16string_view name);
  ZKColorButton* LeftButton() const { return cmd_left_.get(); }
  ZKTextEdit* ValueEdit() const { return ted_value_.get(); }
  ZKColorButton* RightButton() const { return cmd_right_.get(); }
  const ILabelElement& BackLabel() const { return *lbl_back_; }

  ControlEvent<> Click{EventRaised(), u"Click"};
  ControlEvent<std::u16string> PartClick{EventRaised(), u"PartClick"};
  ControlEvent<> GotFocus{EventRaised(), u"GotFocus"};
  ControlEvent<> LostFocus{EventRaised(), u"LostFocus"};
  ControlEvent<std::u16string> PartGotFocus{EventRaised(), u"PartGotFocus"};
  ControlEvent<std::u16string> PartLostFocus{EventRaised(), u"PartLostFocus"};
  ControlEvent<> Change{EventRaised(), u"Change"};
  ControlEvent<int16_t&, int16_t&> KeyDown{EventRaised(), u"KeyDown"};
  ControlEvent<std::u16string, int16_t&> PartKeyPress{EventRaised(), u"PartKeyPress"};

 protected:
  void OnFontChanged() override;
  void Layout() override;
  void AfterInitProperties() override;
  void AfterReadProperties() override;

 private:
  template <typename Visit>
  bool WithPart(std::u16string_view name, Visit visit);
  template <typename T>
  void ConnectPart(Constituent<T>& part);
  // Moves the focus to the next part (or the previous one); false when there is none.
  bool TabInside(bool backwards);

  Constituent<ZKColorButton> cmd_left_;
  Constituent<ZKTextEdit> ted_value_;
  Constituent<ZKColorButton> cmd_right_;
  std::unique_ptr<ILabelElement> lbl_back_;
  std::vector<ScopedConnection> connections_;
};

}  // namespace zk
