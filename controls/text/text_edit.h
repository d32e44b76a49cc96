#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "controls/text/platform_text_rules.h"
#include "enumerations/enumerations.h"
#include "framework/control.h"
#include "framework/element_mouse_relay.h"
#include "models/typed_text_model.h"
#include "platform/elements.h"

namespace zk {

// A one-line entry box for a typed value: free text, a whole or decimal number, a date, a time
// or both, with the host's separators, an optional pattern, a forced letter case and arrow-key
// stepping. The platform's text box fills the control and keeps the text, caret, selection and
// most display properties; the control filters what is typed into it, forces the case after
// each change and refuses to let the focus go while a non-empty text is invalid.
class ZKTextEdit : public ZKControl {
 public:
  explicit ZKTextEdit(IControlSite& site);
  ~ZKTextEdit() override;

  std::u16string_view Kind() const override { return u"ZKTextEdit"; }
  const PropertyTable& Properties() const override;

  // A write raises Change (and forces the case) as typing does.
  std::u16string Text() const;
  void SetText(std::u16string New_Text);
  // 0 to 2; other values are ignored. The length limit survives the change.
  zktTextAlignment Alignment() const;
  void SetAlignment(zktTextAlignment New_Alignment);
  // zktApFlat or zktAp3d; other values are ignored.
  zktAppearance Appearance() const;
  void SetAppearance(zktAppearance New_Appearance);
  // The face colour while enabled; a disabled box shows the inactive-border colour instead.
  OLE_COLOR BackColor() const { return back_color_; }
  void SetBackColor(OLE_COLOR New_BackColor);
  // zktBSNone or zktBSSolid; other values are ignored.
  zktCmdBorderStyle BorderStyle() const;
  void SetBorderStyle(zktCmdBorderStyle New_BorderStyle);
  OLE_COLOR ForeColor() const;
  void SetForeColor(OLE_COLOR New_ForeColor);
  // 0 to 5; other values are ignored.
  zktTextDataType DataType() const { return settings_.DataType; }
  void SetDataType(zktTextDataType New_DataType);
  // 0 (no limit) to 32767; other values are ignored.
  int32_t MaxLength() const;
  void SetMaxLength(int32_t New_MaxLength);
  const std::u16string& TextFormat() const { return settings_.TextFormat; }
  void SetTextFormat(std::u16string New_TextFormat);
  std::u16string PasswordChar() const;
  void SetPasswordChar(std::u16string New_PasswordChar);
  const std::u16string& DecimalSep() const { return settings_.DecimalSep; }
  void SetDecimalSep(std::u16string New_DecimalSep);
  const std::u16string& HourSep() const { return settings_.HourSep; }
  void SetHourSep(std::u16string New_HourSep);
  const std::u16string& DateSep() const { return settings_.DateSep; }
  void SetDateSep(std::u16string New_DateSep);
  const std::u16string& DateHourSep() const { return settings_.DateHourSep; }
  void SetDateHourSep(std::u16string New_DateHourSep);
  bool AutoSelect() const { return auto_select_; }
  void SetAutoSelect(bool New_AutoSelect);
  // 0 to 2; other values are ignored.
  zktTextForceCase ForceTextCase() const { return settings_.ForceTextCase; }
  void SetForceTextCase(zktTextForceCase New_ForceTextCase);
  double ArrowKeyIncrement() const { return arrow_key_increment_; }
  void SetArrowKeyIncrement(double New_ArrowKeyIncrement);
  bool Locked() const;
  void SetLocked(bool New_Locked);
  // Also makes the text box read-only (or writable) to match.
  void SetDesignMode(bool New_DesignMode) override;
  // Negative values are ignored.
  int32_t SelStart() const;
  void SetSelStart(int32_t New_SelStart);
  int32_t SelLength() const;
  void SetSelLength(int32_t New_SelLength);
  std::u16string SelText() const;
  void SetSelText(std::u16string New_SelText);
  bool HideSelection() const;
  // The text box's own window, which is where keys and edit messages go.
  int32_t hWnd() const override;

  // The current text fits the typed settings.
  bool IsTextValid() const;
  // Takes back the text box's last edit.
  void Undo();

  bool MultiLine() const { return multi_line_; }

  ControlEvent<> Change{EventRaised(), u"Change"};
  ControlEvent<> Click{EventRaised(), u"Click"};
  ControlEvent<> DblClick{EventRaised(), u"DblClick"};
  ControlEvent<int16_t&, int16_t&> KeyDown{EventRaised(), u"KeyDown"};
  ControlEvent<int16_t&> KeyPress{EventRaised(), u"KeyPress"};
  ControlEvent<int16_t&, int16_t&> KeyUp{EventRaised(), u"KeyUp"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseDown{EventRaised(), u"MouseDown"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseMove{EventRaised(), u"MouseMove"};
  ControlEvent<int16_t&, int16_t&, float&, float&> MouseUp{EventRaised(), u"MouseUp"};

  // The inner text box, for hosts and tests that look at what is shown.
  const ITextBoxElement& TextBox() const { return *ted_text_edit_; }

 protected:
  ZKTextEdit(IControlSite& site, bool multi_line);

  // The properties of both text edits; `font_dispid` 0 gives Font an identifier of its own.
  static std::vector<PropertyRow> TextEditRows(int32_t font_dispid);
  static std::vector<std::u16string_view> TextEditEvents();

  bool CtrlOnlyDown() const { return ctrl_only_down_; }
  // A variant's rule for a key-down, after CtrlOnlyDown is recorded and before the arrow step;
  // it may set the key code to 0 to drop the key.
  virtual void FilterKeyDown(int16_t& /*key_code*/) {}

  void OnFontChanged() override;
  void OnEnabledChanged(bool enabled) override;
  // The box's colours: the back colour, or the disabled face while disabled.
  void Redraw() override;
  // The box fills the control.
  void Layout() override;
  void AfterInitProperties() override;
  void AfterReadProperties() override;

 private:
  void ConnectInput();
  void TextChanged();
  void KeyDownInBox(int16_t& key_code, int16_t& shift);
  void KeyPressInBox(int16_t& key_ascii);
  void FocusReceived();
  void ValidateLeave(bool& cancel);

  bool multi_line_;
  std::unique_ptr<ITextBoxElement> ted_text_edit_;
  ElementMouseRelay box_mouse_;
  PlatformTextRules rules_;
  TypedTextSettings settings_;
  OLE_COLOR back_color_ = system_color::kWindowBackground;
  double arrow_key_increment_ = 0;
  bool auto_select_ = false;
  bool ctrl_only_down_ = false;
  bool forcing_case_ = false;
  std::vector<ScopedConnection> connections_;
};

}  // namespace zk
