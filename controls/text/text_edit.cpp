#include "controls/text/text_edit.h"

#include <array>
#include <utility>

#include "framework/layout_steps.h"
#include "platform/platform.h"
#include "platform/window_messages.h"
#include "services/gui_utils.h"

namespace zk {
namespace {

using automation::Method;

constexpr int32_t kNoLimit = 0;

}  // namespace

ZKTextEdit::ZKTextEdit(IControlSite& site) : ZKTextEdit(site, false) {}

ZKTextEdit::ZKTextEdit(IControlSite& site, bool multi_line)
    : ZKControl(site),
      multi_line_(multi_line),
      ted_text_edit_(Surface().CreateTextBox(multi_line)),
      box_mouse_(site, *ted_text_edit_, MouseDown, MouseMove, MouseUp) {
  ITextBoxElement& box = *ted_text_edit_;
  // The box starts as a new control shows it; nothing listens yet, so no Change is raised.
  box.SetText(u"Text");
  box.SetBorderStyle(zktBSSolid);
  box.SetAppearance(zktApFlat);
  box.SetForeColor(system_color::kWindowText);
  box.SetMaxLength(kNoLimit);
  box.SetFont(Font()->Description());
  Redraw();
  Layout();
  ConnectInput();
}

ZKTextEdit::~ZKTextEdit() = default;

void ZKTextEdit::ConnectInput() {
  ISurface& surface = Surface();
  ITextBoxElement& box = *ted_text_edit_;
  connections_.push_back(surface.Resized().Connect([this] { Layout(); }));
  connections_.push_back(surface.GotFocus().Connect([this] { FocusReceived(); }));
  connections_.push_back(
      surface.Validate().Connect([this](bool& cancel) { ValidateLeave(cancel); }));
  connections_.push_back(box.Change().Connect([this] { TextChanged(); }));
  connections_.push_back(box.KeyDown().Connect(
      [this](int16_t& key_code, int16_t& shift) { KeyDownInBox(key_code, shift); }));
  connections_.push_back(
      box.KeyPress().Connect([this](int16_t& key_ascii) { KeyPressInBox(key_ascii); }));
  connections_.push_back(ForwardTo(box.KeyUp(), KeyUp));
  connections_.push_back(ForwardTo(box.Click(), Click));
  connections_.push_back(ForwardTo(box.DblClick(), DblClick));
  box_mouse_.Connect(connections_);
}

// ---- Automation ----

std::vector<PropertyRow> ZKTextEdit::TextEditRows(int32_t font_dispid) {
  using property_rows::Internal;
  using property_rows::Member;
  using property_rows::Property;
  using property_rows::ReadOnly;
  using C = ZKTextEdit;
  // The bag's places are tens, so that Alignment can be written between DesignMode and
  // DataType though it is read after Locked.
  std::vector<PropertyRow> rows = {
      Property(u"Text", &C::Text, &C::SetText, dispatch_id::kText)
          .Archive(1)
          .Bag(u"Text", 130)
          .Store([](C& c, const std::u16string& v) { c.ted_text_edit_->SetText(v); }),
      // The box starts over for a new alignment: MaxLength is read after it.
      Property(u"Alignment", &C::Alignment, &C::SetAlignment)
          .Archive(2)
          .Bag(Variant(int32_t{zktTextAlignLeft}), 70, 155)
          .Store([](C& c, zktTextAlignment v) {
            c.ted_text_edit_->SetAlignment(static_cast<int16_t>(v));
          }),
      Property(u"Appearance", &C::Appearance, &C::SetAppearance)
          .Archive(3)
          .New(Variant(int32_t{zktApFlat}))
          .Bag(Variant(int32_t{zktApFlat}), 140)
          .Store([](C& c, zktAppearance v) {
            c.ted_text_edit_->SetAppearance(static_cast<int16_t>(v));
          }),
      Property(u"BackColor", &C::BackColor, &C::SetBackColor)
          .Archive(5)
          .New(ColorValue(system_color::kWindowBackground))
          .Bag(ColorValue(system_color::kWindowBackground), 10)
          .Store(&C::back_color_),
      Property(u"BorderStyle", &C::BorderStyle, &C::SetBorderStyle)
          .Archive(6)
          .Bag(Variant(int32_t{zktBSSolid}), 50)
          .Store([](C& c, zktCmdBorderStyle v) {
            c.ted_text_edit_->SetBorderStyle(static_cast<int16_t>(v));
          }),
      Property(u"ForeColor", &C::ForeColor, &C::SetForeColor)
          .Archive(7)
          .Bag(ColorValue(system_color::kWindowText), 20)
          .Store([](C& c, OLE_COLOR v) { c.ted_text_edit_->SetForeColor(v); }),
      Property(u"DataType", &C::DataType, &C::SetDataType)
          .Archive(9)
          .New(Variant(int32_t{zktTDText}))
          .Bag(Variant(int32_t{zktTDText}), 160)
          .Store([](C& c, zktTextDataType v) { c.settings_.DataType = v; }),
      Property(u"MaxLength", &C::MaxLength, &C::SetMaxLength)
          .Archive(10)
          .Bag(Variant(int32_t{0}), 80)
          .Store([](C& c, int32_t v) { c.ted_text_edit_->SetMaxLength(v); }),
      Property(u"TextFormat", &C::TextFormat, &C::SetTextFormat)
          .Archive(11)
          .New(u"")
          .Bag(u"", 210)
          .Store([](C& c, const std::u16string& v) { c.settings_.TextFormat = v; }),
      Property(u"PasswordChar", &C::PasswordChar, &C::SetPasswordChar)
          .Archive(12)
          .Bag(u"", 90)
          .Store([](C& c, const std::u16string& v) { c.ted_text_edit_->SetPasswordChar(v); }),
      Property(u"DecimalSep", &C::DecimalSep, &C::SetDecimalSep)
          .Archive(13)
          .New(u".")
          .Bag(u".", 190)
          .Store([](C& c, const std::u16string& v) { c.settings_.DecimalSep = v; }),
      Property(u"HourSep", &C::HourSep, &C::SetHourSep)
          .Archive(14)
          .New(u":")
          .Bag(u":", 180)
          .Store([](C& c, const std::u16string& v) { c.settings_.HourSep = v; }),
      Property(u"DateSep", &C::DateSep, &C::SetDateSep)
          .Archive(15)
          .New(u"/")
          .Bag(u"/", 170)
          .Store([](C& c, const std::u16string& v) { c.settings_.DateSep = v; }),
      Property(u"DateHourSep", &C::DateHourSep, &C::SetDateHourSep)
          .Archive(16)
          .New(u" ")
          .Bag(u" ", 200)
          .Store([](C& c, const std::u16string& v) { c.settings_.DateHourSep = v; }),
      Property(u"AutoSelect", &C::AutoSelect, &C::SetAutoSelect)
          .Archive(17)
          .New(Variant(false))
          .Bag(Variant(false), 220)
          .Store(&C::auto_select_),
      Property(u"ForceTextCase", &C::ForceTextCase, &C::SetForceTextCase)
          .Archive(18)
          .New(Variant(int32_t{zktTForceNone}))
          .Bag(Variant(int32_t{zktTForceNone}), 250)
          .Store([](C& c, zktTextForceCase v) { c.settings_.ForceTextCase = v; }),
      Property(u"ArrowKeyIncrement", &C::ArrowKeyIncrement, &C::SetArrowKeyIncrement)
          .Archive(19)
          .New(Variant(0.0))
          .Bag(Variant(0.0), 230)
          .Store(&C::arrow_key_increment_),
      Property(u"Locked", &C::Locked, &C::SetLocked)
          .Archive(20)
          .Bag(Variant(false), 60)
          .Store([](C& c, bool v) { c.ted_text_edit_->SetLocked(v); }),
      Common<C>(u"Font", font_dispid).Archive(21).Bag(Ambient::kFont, 40),
      Common<C>(u"DesignMode").Archive(22).Bag(Variant(false), 150),
      Common<C>(u"ControlGroup").Archive(23).Bag(u"", 240),
      Common<C>(u"Enabled").Bag(Variant(true), 30),
      Property(u"SelStart", &C::SelStart, &C::SetSelStart)
          .Bag(Variant(int32_t{0}), 110)
          .Store([](C& c, int32_t v) { c.ted_text_edit_->SetSelStart(v); }),
      Property(u"SelLength", &C::SelLength, &C::SetSelLength)
          .Bag(Variant(int32_t{0}), 100)
          .Store([](C& c, int32_t v) { c.ted_text_edit_->SetSelLength(v); }),
      Property(u"SelText", &C::SelText, &C::SetSelText)
          .Bag(u"", 120)
          .Store([](C& c, const std::u16string& v) {
            if (!v.empty()) c.ted_text_edit_->SetSelText(v);
          }),
      ReadOnly(u"HideSelection", &C::HideSelection),
      ReadOnly(u"hWnd", &C::hWnd),
      Member(Method(u"IsTextValid",
                    [](ZKControl& control, std::span<Variant>) {
                      return Variant(static_cast<C&>(control).IsTextValid());
                    })),
      Member(Method(u"Undo",
                    [](ZKControl& control, std::span<Variant>) {
                      static_cast<C&>(control).Undo();
                      return Variant();
                    })),
      // The surface's pointer shape: carried by the archive, though no property offers it.
      Internal<C, int16_t>(ArchiveKind::kNumber)
          .Archive(4)
          .Describe(u"the surface's pointer shape")
          .Stored([](C& c) { return int32_t{c.Surface().MousePointer()}; })
          .Store([](C& c, int16_t v) { c.Surface().SetMousePointer(v); }),
      // Which variant wrote the string; either variant reads the other's, so it is skipped.
      Internal<C, bool>(ArchiveKind::kBool)
          .Archive(8)
          .Describe(u"multi-line (T) or one-line (F), not read back")
          .Stored([](C& c) { return c.MultiLine(); })
          .Store([](C&, bool) {}),
  };
  for (std::u16string_view common : {u"Refresh", u"PopupMenu", u"Clone", u"GetArchiveStr",
                                     u"ParseArchiveStr", u"ExtraProp", u"ExtraAction"}) {
    rows.push_back(CommonRow(common));
  }
  return rows;
}

std::vector<std::u16string_view> ZKTextEdit::TextEditEvents() {
  return {u"Change", u"Click",     u"DblClick",  u"KeyDown", u"KeyPress",
          u"KeyUp",  u"MouseDown", u"MouseMove", u"MouseUp"};
}

const PropertyTable& ZKTextEdit::Properties() const {
  static const PropertyTable table(TextEditRows(dispatch_id::kFont), TextEditEvents());
  return table;
}

// ---- Properties ----

std::u16string ZKTextEdit::Text() const {
  return ted_text_edit_->Text();
}

void ZKTextEdit::SetText(std::u16string New_Text) {
  ted_text_edit_->SetText(New_Text);
  Changed(u"Text");
}

zktTextAlignment ZKTextEdit::Alignment() const {
  return static_cast<zktTextAlignment>(ted_text_edit_->Alignment());
}

void ZKTextEdit::SetAlignment(zktTextAlignment New_Alignment) {
  if (New_Alignment < zktTextAlignLeft || New_Alignment > zktTextAlignCenter) return;
  // The box is rebuilt for a new alignment and forgets its length limit; give it back.
  const int32_t max_length = ted_text_edit_->MaxLength();
  ted_text_edit_->SetAlignment(static_cast<int16_t>(New_Alignment));
  ted_text_edit_->SetMaxLength(max_length);
  Changed(u"Alignment");
}

zktAppearance ZKTextEdit::Appearance() const {
  return static_cast<zktAppearance>(ted_text_edit_->Appearance());
}

void ZKTextEdit::SetAppearance(zktAppearance New_Appearance) {
  if (New_Appearance != zktApFlat && New_Appearance != zktAp3d) return;
  ted_text_edit_->SetAppearance(static_cast<int16_t>(New_Appearance));
  Changed(u"Appearance");
}

void ZKTextEdit::SetBackColor(OLE_COLOR New_BackColor) {
  back_color_ = New_BackColor;
  Changed(u"BackColor", Effect::kRedraw);
}

zktCmdBorderStyle ZKTextEdit::BorderStyle() const {
  return static_cast<zktCmdBorderStyle>(ted_text_edit_->BorderStyle());
}

void ZKTextEdit::SetBorderStyle(zktCmdBorderStyle New_BorderStyle) {
  if (New_BorderStyle != zktBSNone && New_BorderStyle != zktBSSolid) return;
  ted_text_edit_->SetBorderStyle(static_cast<int16_t>(New_BorderStyle));
  Changed(u"BorderStyle");
}

OLE_COLOR ZKTextEdit::ForeColor() const {
  return ted_text_edit_->ForeColor();
}

void ZKTextEdit::SetForeColor(OLE_COLOR New_ForeColor) {
  ted_text_edit_->SetForeColor(New_ForeColor);
  Changed(u"ForeColor");
}

void ZKTextEdit::SetDataType(zktTextDataType New_DataType) {
  if (!zk::SetDataType(settings_, static_cast<int32_t>(New_DataType))) return;
  Changed(u"DataType");
}

int32_t ZKTextEdit::MaxLength() const {
  return ted_text_edit_->MaxLength();
}

void ZKTextEdit::SetMaxLength(int32_t New_MaxLength) {
  // The model's check decides; the limit itself lives in the box.
  TypedTextSettings check;
  if (!zk::SetMaxLength(check, New_MaxLength)) return;
  ted_text_edit_->SetMaxLength(New_MaxLength);
  Changed(u"MaxLength");
}

void ZKTextEdit::SetTextFormat(std::u16string New_TextFormat) {
  settings_.TextFormat = std::move(New_TextFormat);
  Changed(u"TextFormat");
}

std::u16string ZKTextEdit::PasswordChar() const {
  return ted_text_edit_->PasswordChar();
}

void ZKTextEdit::SetPasswordChar(std::u16string New_PasswordChar) {
  ted_text_edit_->SetPasswordChar(New_PasswordChar);
  Changed(u"PasswordChar");
}

void ZKTextEdit::SetDecimalSep(std::u16string New_DecimalSep) {
  settings_.DecimalSep = std::move(New_DecimalSep);
  Changed(u"DecimalSep");
}

void ZKTextEdit::SetHourSep(std::u16string New_HourSep) {
  settings_.HourSep = std::move(New_HourSep);
  Changed(u"HourSep");
}

void ZKTextEdit::SetDateSep(std::u16string New_DateSep) {
  settings_.DateSep = std::move(New_DateSep);
  Changed(u"DateSep");
}

void ZKTextEdit::SetDateHourSep(std::u16string New_DateHourSep) {
  settings_.DateHourSep = std::move(New_DateHourSep);
  Changed(u"DateHourSep");
}

void ZKTextEdit::SetAutoSelect(bool New_AutoSelect) {
  auto_select_ = New_AutoSelect;
  Changed(u"AutoSelect");
}

void ZKTextEdit::SetForceTextCase(zktTextForceCase New_ForceTextCase) {
  if (!zk::SetForceTextCase(settings_, static_cast<int32_t>(New_ForceTextCase))) return;
  Changed(u"ForceTextCase");
}

void ZKTextEdit::SetArrowKeyIncrement(double New_ArrowKeyIncrement) {
  arrow_key_increment_ = New_ArrowKeyIncrement;
  Changed(u"ArrowKeyIncrement");
}

bool ZKTextEdit::Locked() const {
  return ted_text_edit_->Locked();
}

void ZKTextEdit::SetLocked(bool New_Locked) {
  ted_text_edit_->SetLocked(New_Locked);
  Changed(u"Locked");
}

void ZKTextEdit::SetDesignMode(bool New_DesignMode) {
  // While designing, the text is not the user's to edit.
  ted_text_edit_->SetLocked(New_DesignMode);
  ZKControl::SetDesignMode(New_DesignMode);
}

int32_t ZKTextEdit::SelStart() const {
  return ted_text_edit_->SelStart();
}

void ZKTextEdit::SetSelStart(int32_t New_SelStart) {
  if (New_SelStart < 0) return;
  ted_text_edit_->SetSelStart(New_SelStart);
  Changed(u"SelStart");
}

int32_t ZKTextEdit::SelLength() const {
  return ted_text_edit_->SelLength();
}

void ZKTextEdit::SetSelLength(int32_t New_SelLength) {
  if (New_SelLength < 0) return;
  ted_text_edit_->SetSelLength(New_SelLength);
  Changed(u"SelLength");
}

std::u16string ZKTextEdit::SelText() const {
  return ted_text_edit_->SelText();
}

void ZKTextEdit::SetSelText(std::u16string New_SelText) {
  ted_text_edit_->SetSelText(New_SelText);
  Changed(u"SelText");
}

bool ZKTextEdit::HideSelection() const {
  return ted_text_edit_->HideSelection();
}

int32_t ZKTextEdit::hWnd() const {
  return ted_text_edit_->hWnd();
}

bool ZKTextEdit::IsTextValid() const {
  return zk::IsTextValid(ted_text_edit_->Text(), settings_, rules_);
}

void ZKTextEdit::Undo() {
  CurrentPlatform().Windows().SendMessage(ted_text_edit_->hWnd(), window_message::kEditUndo, 0, 0);
}

void ZKTextEdit::OnFontChanged() {
  ted_text_edit_->SetFont(Font()->Description());
  Layout();
}

void ZKTextEdit::OnEnabledChanged(bool enabled) {
  ted_text_edit_->SetEnabled(enabled);
  Redraw();
}

// ---- Layout and colours ----

void ZKTextEdit::Redraw() {
  ted_text_edit_->SetBackColor(ted_text_edit_->Enabled() ? back_color_
                                                         : system_color::kInactiveBorder);
}

void ZKTextEdit::Layout() {
  try {
    ted_text_edit_->Move(0, 0, Surface().ScaleWidth(), Surface().ScaleHeight());
  } catch (...) {
    // A box that cannot be placed keeps its last place; the control stays usable.
  }
}

// ---- Input ----

void ZKTextEdit::TextChanged() {
  Change.Raise();
  if (forcing_case_) return;
  const FlagScope guard(forcing_case_);
  ITextBoxElement& box = *ted_text_edit_;
  const int32_t sel_start = box.SelStart();
  const int32_t sel_length = box.SelLength();
  if (settings_.ForceTextCase == zktTForceUpperCase ||
      settings_.ForceTextCase == zktTForceLowerCase) {
    const std::u16string text = box.Text();
    std::u16string forced = ApplyForceTextCase(text, settings_.ForceTextCase, rules_);
    // Only a real rewrite is a change; an unchanged text raises nothing more.
    if (forced != text) box.SetText(forced);
  }
  box.SetSelStart(sel_start);
  box.SetSelLength(sel_length);
}

void ZKTextEdit::KeyDownInBox(int16_t& key_code, int16_t& shift) {
  ctrl_only_down_ = IsCtrlOnlyDown(shift);
  FilterKeyDown(key_code);
  if (auto stepped = StepNumericText(ted_text_edit_->Text(), key_code, settings_,
                                     arrow_key_increment_, rules_)) {
    ted_text_edit_->SetText(*stepped);
  }
  KeyDown.Raise(key_code, shift);
}

void ZKTextEdit::KeyPressInBox(int16_t& key_ascii) {
  const ITextBoxElement& box = *ted_text_edit_;
  settings_.MaxLength = box.MaxLength();
  key_ascii = FilterTypedKey(key_ascii, box.Text(), box.SelStart(), box.SelLength(), settings_,
                             ctrl_only_down_, DesignMode());
  KeyPress.Raise(key_ascii);
}

void ZKTextEdit::FocusReceived() {
  const ITextBoxElement& box = *ted_text_edit_;
  if (auto selection = AutoSelectOnFocus(box.Text(), auto_select_)) {
    ted_text_edit_->SetSelStart(selection->SelStart);
    ted_text_edit_->SetSelLength(selection->SelLength);
  }
}

void ZKTextEdit::ValidateLeave(bool& cancel) {
  const std::u16string text = ted_text_edit_->Text();
  LeaveCheck check = ValidateOnLeave(text, settings_, DesignMode(), rules_);
  if (check.text != text) ted_text_edit_->SetText(check.text);
  if (check.cancel) cancel = true;
}

// ---- Persistence ----

void ZKTextEdit::AfterInitProperties() {
  ted_text_edit_->SetFont(Font()->Description());
  Redraw();
  Layout();
}

void ZKTextEdit::AfterReadProperties() {
  ted_text_edit_->SetFont(Font()->Description());
  ted_text_edit_->SetEnabled(Enabled());
  Redraw();
  Layout();
}

}  // namespace zk
