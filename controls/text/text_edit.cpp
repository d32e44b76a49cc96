#include "controls/text/text_edit.h"

#include <array>
#include <utility>

#include "foundation/gui_utils.h"
#include "platform/platform.h"
#include "platform/window_messages.h"

namespace zk {
namespace {

using automation::Method;
using automation::Property;
using automation::ReadOnlyProperty;

constexpr int32_t kNoLimit = 0;

Variant Color(OLE_COLOR color) {
  return variant_conversion::ToVariant(color);
}

Variant Number(int32_t value) {
  return Variant(value);
}

// Clears a re-entry flag however the guarded work ends.
class FlagScope {
 public:
  explicit FlagScope(bool& flag) : flag_(flag) { flag_ = true; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;
  ~FlagScope() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace

ZKTextEdit::ZKTextEdit(IControlSite& site) : ZKTextEdit(site, false) {}

ZKTextEdit::ZKTextEdit(IControlSite& site, bool multi_line)
    : ZKControl(site),
      multi_line_(multi_line),
      ted_text_edit_(Surface().CreateTextBox(multi_line)) {
  ITextBoxElement& box = *ted_text_edit_;
  // The box starts as a new control shows it; nothing listens yet, so no Change is raised.
  box.SetText(u"Text");
  box.SetBorderStyle(zktBSSolid);
  box.SetAppearance(zktApFlat);
  box.SetForeColor(system_color::kWindowText);
  box.SetMaxLength(kNoLimit);
  box.SetFont(Font()->Description());
  ApplyColors();
  FitTextBox();
  ConnectInput();
}

ZKTextEdit::~ZKTextEdit() = default;

void ZKTextEdit::ConnectInput() {
  ISurface& surface = Surface();
  ITextBoxElement& box = *ted_text_edit_;
  connections_.push_back(surface.Resized().Connect([this] { FitTextBox(); }));
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
  // The box sits at the control's origin, so its coordinates are the control's.
  connections_.push_back(ForwardTo(box.MouseDown(), MouseDown));
  connections_.push_back(ForwardTo(box.MouseUp(), MouseUp));
  connections_.push_back(
      box.MouseMove().Connect([this](int16_t button, int16_t shift, float x, float y) {
        // The host's tooltip belongs to the control; the box covers it, so it carries a copy.
        try {
          ted_text_edit_->SetToolTipText(Site().Extender().GetProperty(u"ToolTipText").ToText());
        } catch (...) {
        }
        MouseMove.Raise(button, shift, x, y);
      }));
}

// ---- Automation ----

std::vector<MemberInfo> ZKTextEdit::TextEditMembers(int32_t font_dispid) {
  using C = ZKTextEdit;
  std::vector<MemberInfo> members = {
      Property(u"Text", &C::Text, &C::SetText, dispatch_id::kText),
      Property(u"Alignment", &C::Alignment, &C::SetAlignment),
      Property(u"Appearance", &C::Appearance, &C::SetAppearance),
      Property(u"BackColor", &C::BackColor, &C::SetBackColor),
      Property(u"BorderStyle", &C::BorderStyle, &C::SetBorderStyle),
      Property(u"ForeColor", &C::ForeColor, &C::SetForeColor),
      Property(u"DataType", &C::DataType, &C::SetDataType),
      Property(u"MaxLength", &C::MaxLength, &C::SetMaxLength),
      Property(u"TextFormat", &C::TextFormat, &C::SetTextFormat),
      Property(u"PasswordChar", &C::PasswordChar, &C::SetPasswordChar),
      Property(u"DecimalSep", &C::DecimalSep, &C::SetDecimalSep),
      Property(u"HourSep", &C::HourSep, &C::SetHourSep),
      Property(u"DateSep", &C::DateSep, &C::SetDateSep),
      Property(u"DateHourSep", &C::DateHourSep, &C::SetDateHourSep),
      Property(u"AutoSelect", &C::AutoSelect, &C::SetAutoSelect),
      Property(u"ForceTextCase", &C::ForceTextCase, &C::SetForceTextCase),
      Property(u"ArrowKeyIncrement", &C::ArrowKeyIncrement, &C::SetArrowKeyIncrement),
      Property(u"Locked", &C::Locked, &C::SetLocked),
      CommonMember(u"Font", font_dispid),
      CommonMember(u"DesignMode"),
      CommonMember(u"ControlGroup"),
      CommonMember(u"Enabled"),
      Property(u"SelStart", &C::SelStart, &C::SetSelStart),
      Property(u"SelLength", &C::SelLength, &C::SetSelLength),
      Property(u"SelText", &C::SelText, &C::SetSelText),
      ReadOnlyProperty(u"HideSelection", &C::HideSelection),
      ReadOnlyProperty(u"hWnd", &C::hWnd),
      Method(u"IsTextValid",
             [](ZKControl& control, std::span<Variant>) {
               return Variant(static_cast<C&>(control).IsTextValid());
             }),
      Method(u"Undo",
             [](ZKControl& control, std::span<Variant>) {
               static_cast<C&>(control).Undo();
               return Variant();
             }),
  };
  for (std::u16string_view common : {u"Refresh", u"PopupMenu", u"Clone", u"GetArchiveStr",
                                     u"ParseArchiveStr", u"ExtraProp", u"ExtraAction"}) {
    members.push_back(CommonMember(common));
  }
  return members;
}

std::vector<std::u16string_view> ZKTextEdit::TextEditEvents() {
  return {u"Change", u"Click",     u"DblClick",  u"KeyDown", u"KeyPress",
          u"KeyUp",  u"MouseDown", u"MouseMove", u"MouseUp"};
}

const AutomationTable& ZKTextEdit::Automation() const {
  static const AutomationTable table(TextEditMembers(dispatch_id::kFont), TextEditEvents());
  return table;
}

std::span<const ArchiveField> ZKTextEdit::ArchiveFields() const {
  static const std::array<ArchiveField, 23> fields = {{
      {ArchiveKind::kText, u"Text"},
      {ArchiveKind::kNumber, u"Alignment"},
      {ArchiveKind::kNumber, u"Appearance"},
      // The surface's pointer shape: carried by the archive, though no property offers it.
      {ArchiveKind::kNumber, u"",
       [](ZKControl& control) {
         return Variant(int32_t{static_cast<ZKTextEdit&>(control).Surface().MousePointer()});
       },
       [](ZKControl& control, const Variant& value) {
         static_cast<ZKTextEdit&>(control).Surface().SetMousePointer(value.ToInt16());
       },
       u"the surface's pointer shape"},
      {ArchiveKind::kNumber, u"BackColor"},
      {ArchiveKind::kNumber, u"BorderStyle"},
      {ArchiveKind::kNumber, u"ForeColor"},
      // Which variant wrote the string; either variant reads the other's, so it is skipped.
      {ArchiveKind::kBool, u"",
       [](ZKControl& control) { return Variant(static_cast<ZKTextEdit&>(control).MultiLine()); },
       [](ZKControl&, const Variant&) {}, u"multi-line (T) or one-line (F), not read back"},
      {ArchiveKind::kNumber, u"DataType"},
      {ArchiveKind::kNumber, u"MaxLength"},
      {ArchiveKind::kText, u"TextFormat"},
      {ArchiveKind::kText, u"PasswordChar"},
      {ArchiveKind::kText, u"DecimalSep"},
      {ArchiveKind::kText, u"HourSep"},
      {ArchiveKind::kText, u"DateSep"},
      {ArchiveKind::kText, u"DateHourSep"},
      {ArchiveKind::kBool, u"AutoSelect"},
      {ArchiveKind::kNumber, u"ForceTextCase"},
      {ArchiveKind::kNumber, u"ArrowKeyIncrement"},
      {ArchiveKind::kBool, u"Locked"},
      {ArchiveKind::kFont, u"Font"},
      {ArchiveKind::kBool, u"DesignMode"},
      {ArchiveKind::kText, u"ControlGroup"},
  }};
  return fields;
}

// ---- Properties ----

std::u16string ZKTextEdit::Text() const {
  return ted_text_edit_->Text();
}

void ZKTextEdit::SetText(std::u16string New_Text) {
  ted_text_edit_->SetText(New_Text);
  NotifyChanged(u"Text");
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
  NotifyChanged(u"Alignment");
}

zktAppearance ZKTextEdit::Appearance() const {
  return static_cast<zktAppearance>(ted_text_edit_->Appearance());
}

void ZKTextEdit::SetAppearance(zktAppearance New_Appearance) {
  if (New_Appearance != zktApFlat && New_Appearance != zktAp3d) return;
  ted_text_edit_->SetAppearance(static_cast<int16_t>(New_Appearance));
  NotifyChanged(u"Appearance");
}

void ZKTextEdit::SetBackColor(OLE_COLOR New_BackColor) {
  back_color_ = New_BackColor;
  ApplyColors();
  NotifyChanged(u"BackColor");
}

zktCmdBorderStyle ZKTextEdit::BorderStyle() const {
  return static_cast<zktCmdBorderStyle>(ted_text_edit_->BorderStyle());
}

void ZKTextEdit::SetBorderStyle(zktCmdBorderStyle New_BorderStyle) {
  if (New_BorderStyle != zktBSNone && New_BorderStyle != zktBSSolid) return;
  ted_text_edit_->SetBorderStyle(static_cast<int16_t>(New_BorderStyle));
  NotifyChanged(u"BorderStyle");
}

OLE_COLOR ZKTextEdit::ForeColor() const {
  return ted_text_edit_->ForeColor();
}

void ZKTextEdit::SetForeColor(OLE_COLOR New_ForeColor) {
  ted_text_edit_->SetForeColor(New_ForeColor);
  NotifyChanged(u"ForeColor");
}

void ZKTextEdit::SetDataType(zktTextDataType New_DataType) {
  if (!zk::SetDataType(settings_, static_cast<int32_t>(New_DataType))) return;
  NotifyChanged(u"DataType");
}

int32_t ZKTextEdit::MaxLength() const {
  return ted_text_edit_->MaxLength();
}

void ZKTextEdit::SetMaxLength(int32_t New_MaxLength) {
  // The model's check decides; the limit itself lives in the box.
  TypedTextSettings check;
  if (!zk::SetMaxLength(check, New_MaxLength)) return;
  ted_text_edit_->SetMaxLength(New_MaxLength);
  NotifyChanged(u"MaxLength");
}

void ZKTextEdit::SetTextFormat(std::u16string New_TextFormat) {
  settings_.TextFormat = std::move(New_TextFormat);
  NotifyChanged(u"TextFormat");
}

std::u16string ZKTextEdit::PasswordChar() const {
  return ted_text_edit_->PasswordChar();
}

void ZKTextEdit::SetPasswordChar(std::u16string New_PasswordChar) {
  ted_text_edit_->SetPasswordChar(New_PasswordChar);
  NotifyChanged(u"PasswordChar");
}

void ZKTextEdit::SetDecimalSep(std::u16string New_DecimalSep) {
  settings_.DecimalSep = std::move(New_DecimalSep);
  NotifyChanged(u"DecimalSep");
}

void ZKTextEdit::SetHourSep(std::u16string New_HourSep) {
  settings_.HourSep = std::move(New_HourSep);
  NotifyChanged(u"HourSep");
}

void ZKTextEdit::SetDateSep(std::u16string New_DateSep) {
  settings_.DateSep = std::move(New_DateSep);
  NotifyChanged(u"DateSep");
}

void ZKTextEdit::SetDateHourSep(std::u16string New_DateHourSep) {
  settings_.DateHourSep = std::move(New_DateHourSep);
  NotifyChanged(u"DateHourSep");
}

void ZKTextEdit::SetAutoSelect(bool New_AutoSelect) {
  auto_select_ = New_AutoSelect;
  NotifyChanged(u"AutoSelect");
}

void ZKTextEdit::SetForceTextCase(zktTextForceCase New_ForceTextCase) {
  if (!zk::SetForceTextCase(settings_, static_cast<int32_t>(New_ForceTextCase))) return;
  NotifyChanged(u"ForceTextCase");
}

void ZKTextEdit::SetArrowKeyIncrement(double New_ArrowKeyIncrement) {
  arrow_key_increment_ = New_ArrowKeyIncrement;
  NotifyChanged(u"ArrowKeyIncrement");
}

bool ZKTextEdit::Locked() const {
  return ted_text_edit_->Locked();
}

void ZKTextEdit::SetLocked(bool New_Locked) {
  ted_text_edit_->SetLocked(New_Locked);
  NotifyChanged(u"Locked");
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
  NotifyChanged(u"SelStart");
}

int32_t ZKTextEdit::SelLength() const {
  return ted_text_edit_->SelLength();
}

void ZKTextEdit::SetSelLength(int32_t New_SelLength) {
  if (New_SelLength < 0) return;
  ted_text_edit_->SetSelLength(New_SelLength);
  NotifyChanged(u"SelLength");
}

std::u16string ZKTextEdit::SelText() const {
  return ted_text_edit_->SelText();
}

void ZKTextEdit::SetSelText(std::u16string New_SelText) {
  ted_text_edit_->SetSelText(New_SelText);
  NotifyChanged(u"SelText");
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
  FitTextBox();
}

void ZKTextEdit::OnEnabledChanged(bool enabled) {
  ted_text_edit_->SetEnabled(enabled);
  ApplyColors();
}

// ---- Layout and colours ----

void ZKTextEdit::ApplyColors() {
  ted_text_edit_->SetBackColor(ted_text_edit_->Enabled() ? back_color_
                                                         : system_color::kInactiveBorder);
}

void ZKTextEdit::FitTextBox() {
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

void ZKTextEdit::InitProperties() {
  ITextBoxElement& box = *ted_text_edit_;
  back_color_ = system_color::kWindowBackground;
  settings_ = TypedTextSettings{};
  arrow_key_increment_ = 0;
  auto_select_ = false;
  StoreDesignMode(false);
  StoreControlGroup({});
  box.SetAppearance(zktApFlat);
  AdoptFont(MGuiUtils::CloneFont(Site().Ambient().Font()));
  box.SetFont(Font()->Description());
  ApplyColors();
  FitTextBox();
}

void ZKTextEdit::ReadProperties(IPropertyBag& bag) {
  auto read = [&bag](std::u16string_view key, const Variant& default_value) {
    return bag.ReadProperty(key, default_value);
  };
  ITextBoxElement& box = *ted_text_edit_;
  back_color_ = read(u"BackColor", Color(system_color::kWindowBackground)).ToColor();
  box.SetForeColor(read(u"ForeColor", Color(system_color::kWindowText)).ToColor());
  const bool enabled = read(u"Enabled", Variant(true)).ToBool();
  Surface().SetEnabled(enabled);
  box.SetEnabled(enabled);
  if (FontRef font = variant_conversion::FromVariant<FontRef>(
          read(u"Font", Variant(Site().Ambient().Font())))) {
    AdoptFont(font->Clone());
  }
  box.SetFont(Font()->Description());
  box.SetBorderStyle(read(u"BorderStyle", Number(zktBSSolid)).ToInt16());
  box.SetLocked(read(u"Locked", Variant(false)).ToBool());
  box.SetAlignment(read(u"Alignment", Number(zktTextAlignLeft)).ToInt16());
  // After the alignment, which starts the box over without a limit.
  box.SetMaxLength(read(u"MaxLength", Number(0)).ToInt32());
  box.SetPasswordChar(read(u"PasswordChar", Variant(u"")).ToText());
  box.SetSelLength(read(u"SelLength", Number(0)).ToInt32());
  box.SetSelStart(read(u"SelStart", Number(0)).ToInt32());
  const std::u16string sel_text = read(u"SelText", Variant(u"")).ToText();
  if (!sel_text.empty()) box.SetSelText(sel_text);
  box.SetText(read(u"Text", Variant(u"Text")).ToText());
  box.SetAppearance(read(u"Appearance", Number(zktApFlat)).ToInt16());
  StoreDesignMode(read(u"DesignMode", Variant(false)).ToBool());
  settings_.DataType = static_cast<zktTextDataType>(read(u"DataType", Number(zktTDText)).ToInt32());
  settings_.DateSep = read(u"DateSep", Variant(u"/")).ToText();
  settings_.HourSep = read(u"HourSep", Variant(u":")).ToText();
  settings_.DecimalSep = read(u"DecimalSep", Variant(u".")).ToText();
  settings_.DateHourSep = read(u"DateHourSep", Variant(u" ")).ToText();
  settings_.TextFormat = read(u"TextFormat", Variant(u"")).ToText();
  auto_select_ = read(u"AutoSelect", Variant(false)).ToBool();
  arrow_key_increment_ = read(u"ArrowKeyIncrement", Variant(0.0)).ToDouble();
  StoreControlGroup(read(u"ControlGroup", Variant(u"")).ToText());
  settings_.ForceTextCase =
      static_cast<zktTextForceCase>(read(u"ForceTextCase", Number(zktTForceNone)).ToInt32());
  ApplyColors();
  FitTextBox();
}

void ZKTextEdit::WriteProperties(IPropertyBag& bag) {
  using variant_conversion::ToVariant;
  bag.WriteProperty(u"BackColor", Color(back_color_), Color(system_color::kWindowBackground));
  bag.WriteProperty(u"ForeColor", Color(ForeColor()), Color(system_color::kWindowText));
  bag.WriteProperty(u"Enabled", Variant(Enabled()), Variant(true));
  bag.WriteProperty(u"Font", Variant(Font()), Variant(Site().Ambient().Font()));
  bag.WriteProperty(u"BorderStyle", ToVariant(BorderStyle()), Number(zktBSSolid));
  bag.WriteProperty(u"Locked", Variant(Locked()), Variant(false));
  bag.WriteProperty(u"MaxLength", Number(MaxLength()), Number(0));
  bag.WriteProperty(u"PasswordChar", Variant(PasswordChar()), Variant(u""));
  bag.WriteProperty(u"SelLength", Number(SelLength()), Number(0));
  bag.WriteProperty(u"SelStart", Number(SelStart()), Number(0));
  bag.WriteProperty(u"SelText", Variant(SelText()), Variant(u""));
  bag.WriteProperty(u"Text", Variant(Text()), Variant(u"Text"));
  bag.WriteProperty(u"Appearance", ToVariant(Appearance()), Number(zktApFlat));
  bag.WriteProperty(u"DesignMode", Variant(DesignMode()), Variant(false));
  bag.WriteProperty(u"Alignment", ToVariant(Alignment()), Number(zktTextAlignLeft));
  bag.WriteProperty(u"DataType", ToVariant(DataType()), Number(zktTDText));
  bag.WriteProperty(u"DateSep", Variant(DateSep()), Variant(u"/"));
  bag.WriteProperty(u"HourSep", Variant(HourSep()), Variant(u":"));
  bag.WriteProperty(u"DecimalSep", Variant(DecimalSep()), Variant(u"."));
  bag.WriteProperty(u"DateHourSep", Variant(DateHourSep()), Variant(u" "));
  bag.WriteProperty(u"TextFormat", Variant(TextFormat()), Variant(u""));
  bag.WriteProperty(u"AutoSelect", Variant(AutoSelect()), Variant(false));
  bag.WriteProperty(u"ArrowKeyIncrement", Variant(ArrowKeyIncrement()), Variant(0.0));
  bag.WriteProperty(u"ControlGroup", Variant(ControlGroup()), Variant(u""));
  bag.WriteProperty(u"ForceTextCase", ToVariant(ForceTextCase()), Number(zktTForceNone));
}

}  // namespace zk
