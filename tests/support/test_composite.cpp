#include "support/test_composite.h"

#include <array>
#include <utility>

#include "foundation/zk_error.h"
#include "services/gui_utils.h"

namespace zk {
namespace {

using automation::Method;
using automation::RequiredArgument;

constexpr std::u16string_view kLeft = u"cmdLeft";
constexpr std::u16string_view kValue = u"tedValue";
constexpr std::u16string_view kRight = u"cmdRight";

[[noreturn]] void UnknownPart(std::u16string_view name) {
  throw ZKError(error_number::kInvalidProcedureCall, u"No part named " + std::u16string(name));
}

ZKTestComposite& Self(ZKControl& control) {
  return static_cast<ZKTestComposite&>(control);
}

}  // namespace

ZKTestComposite::ZKTestComposite(IControlSite& site)
    : ZKControl(site),
      cmd_left_(site, kLeft),
      ted_value_(site, kValue),
      cmd_right_(site, kRight),
      lbl_back_(Surface().CreateLabel()) {
  lbl_back_->SetAutoSize(false);
  lbl_back_->SetCaption(u"");
  ConnectPart(cmd_left_);
  ConnectPart(ted_value_);
  ConnectPart(cmd_right_);
  connections_.push_back(
      cmd_left_->Click.Connect([this] { PartClick.Raise(std::u16string(kLeft)); }));
  connections_.push_back(
      cmd_right_->Click.Connect([this] { PartClick.Raise(std::u16string(kRight)); }));
  connections_.push_back(
      ted_value_->Click.Connect([this] { PartClick.Raise(std::u16string(kValue)); }));
  connections_.push_back(ted_value_->Change.Connect([this] { Change.Raise(); }));
  ISurface& surface = Surface();
  // The control's own area: the label over it, and the surface where the label leaves room.
  connections_.push_back(lbl_back_->Click().Connect([this] { Click.Raise(); }));
  connections_.push_back(surface.Click().Connect([this] { Click.Raise(); }));
  connections_.push_back(surface.GotFocus().Connect([this] { GotFocus.Raise(); }));
  connections_.push_back(surface.LostFocus().Connect([this] { LostFocus.Raise(); }));
  connections_.push_back(surface.Resized().Connect([this] { Layout(); }));
  // The form offers Tab here, whichever part has the focus.
  surface.SetTakesTab(true);
  connections_.push_back(surface.KeyDown().Connect([this](int16_t& key_code, int16_t& shift) {
    KeyDown.Raise(key_code, shift);
    if (key_code == 9 && TabInside((shift & 1) != 0)) key_code = 0;
  }));
  Layout();
}

ZKTestComposite::~ZKTestComposite() = default;

template <typename T>
void ZKTestComposite::ConnectPart(Constituent<T>& part) {
  const std::u16string name = part->Name();
  ISurface& surface = part.Surface();
  connections_.push_back(surface.GotFocus().Connect([this, name] { PartGotFocus.Raise(name); }));
  connections_.push_back(surface.LostFocus().Connect([this, name] { PartLostFocus.Raise(name); }));
  connections_.push_back(part->KeyPress.Connect(
      [this, name](int16_t& key_ascii) { PartKeyPress.Raise(name, key_ascii); }));
}

template <typename Visit>
bool ZKTestComposite::WithPart(std::u16string_view name, Visit visit) {
  if (MemberNameEquals(name, kLeft)) {
    visit(cmd_left_);
  } else if (MemberNameEquals(name, kValue)) {
    visit(ted_value_);
  } else if (MemberNameEquals(name, kRight)) {
    visit(cmd_right_);
  } else {
    return false;
  }
  return true;
}

// ---- Layout and focus ----

void ZKTestComposite::Layout() {
  const double width = Surface().ScaleWidth();
  const double height = Surface().ScaleHeight();
  cmd_left_.Move(0, 0, width / 4, height / 2);
  ted_value_.Move(width / 4, 0, width / 2, height / 2);
  cmd_right_.Move(width * 3 / 4, 0, width / 4, height / 2);
  lbl_back_->Move(0, 0, width, height);
}

bool ZKTestComposite::TabInside(bool backwards) {
  std::vector<ISurface*> order;
  for (ISurface* surface : {PartSurface(kLeft), PartSurface(kValue), PartSurface(kRight)}) {
    if (surface != nullptr) order.push_back(surface);
  }
  const auto count = static_cast<int>(order.size());
  int current = -1;
  for (int i = 0; i < count; ++i) {
    if (order[static_cast<size_t>(i)]->HasFocus()) current = i;
  }
  // From the control's own window, Tab enters at the first part and Shift+Tab at the last.
  const int step = backwards ? -1 : 1;
  int next = current < 0 ? (backwards ? count - 1 : 0) : current + step;
  for (; next >= 0 && next < count; next += step) {
    if (order[static_cast<size_t>(next)]->SetFocus()) return true;
  }
  return false;
}

bool ZKTestComposite::FocusPart(std::u16string_view name) {
  if (name.empty()) return Surface().SetFocus();
  ISurface* surface = PartSurface(name);
  if (surface == nullptr) UnknownPart(name);
  return surface->SetFocus();
}

void ZKTestComposite::BringPartToFront(std::u16string_view name) {
  ISurface* surface = PartSurface(name);
  if (surface == nullptr) UnknownPart(name);
  surface->BringToFront();
}

void ZKTestComposite::DropPart(std::u16string_view name) {
  if (!WithPart(name, [](auto& part) { part.Reset(); })) UnknownPart(name);
}

DispatchObject* ZKTestComposite::PartExtender(std::u16string_view name) {
  DispatchObject* extender = nullptr;
  WithPart(name, [&extender](auto& part) {
    if (part) extender = &part.Extender();
  });
  return extender;
}

ISurface* ZKTestComposite::PartSurface(std::u16string_view name) {
  ISurface* surface = nullptr;
  WithPart(name, [&surface](auto& part) {
    if (part) surface = &part.Surface();
  });
  return surface;
}

std::u16string ZKTestComposite::FocusedPart() const {
  auto& self = const_cast<ZKTestComposite&>(*this);
  for (std::u16string_view name : {kLeft, kValue, kRight}) {
    if (ISurface* surface = self.PartSurface(name); surface != nullptr && surface->HasFocus()) {
      return std::u16string(name);
    }
  }
  return {};
}

int32_t ZKTestComposite::PartCount() const {
  return static_cast<int32_t>(static_cast<bool>(cmd_left_) + static_cast<bool>(ted_value_) +
                              static_cast<bool>(cmd_right_));
}

int32_t ZKTestComposite::hWnd() const {
  return ted_value_ ? ted_value_->hWnd() : ZKControl::hWnd();
}

// ---- Properties ----

std::u16string ZKTestComposite::Text() const {
  return ted_value_ ? ted_value_->Text() : std::u16string();
}

void ZKTestComposite::SetText(std::u16string New_Text) {
  if (ted_value_) ted_value_->SetText(std::move(New_Text));
  NotifyChanged(u"Text");
}

std::u16string ZKTestComposite::LeftCaption() const {
  return cmd_left_ ? cmd_left_->Caption() : std::u16string();
}

void ZKTestComposite::SetLeftCaption(std::u16string New_LeftCaption) {
  if (cmd_left_) cmd_left_->SetCaption(std::move(New_LeftCaption));
  NotifyChanged(u"LeftCaption");
}

std::u16string ZKTestComposite::RightCaption() const {
  return cmd_right_ ? cmd_right_->Caption() : std::u16string();
}

void ZKTestComposite::SetRightCaption(std::u16string New_RightCaption) {
  if (cmd_right_) cmd_right_->SetCaption(std::move(New_RightCaption));
  NotifyChanged(u"RightCaption");
}

zktTextDataType ZKTestComposite::ValueDataType() const {
  return ted_value_ ? ted_value_->DataType() : zktTDText;
}

void ZKTestComposite::SetValueDataType(zktTextDataType New_ValueDataType) {
  if (ted_value_) ted_value_->SetDataType(New_ValueDataType);
  NotifyChanged(u"ValueDataType");
}

void ZKTestComposite::OnFontChanged() {
  if (cmd_left_) cmd_left_->SetFont(Font());
  if (ted_value_) ted_value_->SetFont(Font());
  if (cmd_right_) cmd_right_->SetFont(Font());
}

// ---- Automation ----

const PropertyTable& ZKTestComposite::Properties() const {
  using C = ZKTestComposite;
  using property_rows::Member;
  using property_rows::Property;
  using property_rows::ReadOnly;
  auto name_of = [](std::span<Variant> args) { return RequiredArgument(args, 0).ToText(); };
  static const PropertyTable table(
      {
          Property(u"Text", &C::Text, &C::SetText, dispatch_id::kText)
              .Archive(1)
              .New(u"")
              .Bag(u"")
              .Store([](C& c, const std::u16string& v) {
                if (c.ted_value_) c.ted_value_->SetText(v);
              }),
          Property(u"LeftCaption", &C::LeftCaption, &C::SetLeftCaption)
              .Archive(2)
              .New(u"Left")
              .Bag(u"Left")
              .Store([](C& c, const std::u16string& v) {
                if (c.cmd_left_) c.cmd_left_->SetCaption(v);
              }),
          Property(u"RightCaption", &C::RightCaption, &C::SetRightCaption)
              .Archive(3)
              .New(u"Right")
              .Bag(u"Right")
              .Store([](C& c, const std::u16string& v) {
                if (c.cmd_right_) c.cmd_right_->SetCaption(v);
              }),
          Property(u"ValueDataType", &C::ValueDataType, &C::SetValueDataType),
          ReadOnly(u"FocusedPart", &C::FocusedPart),
          ReadOnly(u"PartCount", &C::PartCount),
          Member(Method(u"FocusPart",
                        [name_of](ZKControl& control, std::span<Variant> args) {
                          return Variant(Self(control).FocusPart(name_of(args)));
                        })),
          Member(Method(u"BringPartToFront",
                        [name_of](ZKControl& control, std::span<Variant> args) {
                          Self(control).BringPartToFront(name_of(args));
                          return Variant();
                        })),
          Member(Method(u"DropPart",
                        [name_of](ZKControl& control, std::span<Variant> args) {
                          Self(control).DropPart(name_of(args));
                          return Variant();
                        })),
          // A part's extender property: PartProperty(Part, Property).
          Member(Method(u"PartProperty",
                        [name_of](ZKControl& control, std::span<Variant> args) {
                          DispatchObject* extender = Self(control).PartExtender(name_of(args));
                          if (extender == nullptr) UnknownPart(name_of(args));
                          return extender->GetProperty(RequiredArgument(args, 1).ToText());
                        })),
          // SetPartProperty(Part, Property, Value).
          Member(Method(u"SetPartProperty",
                        [name_of](ZKControl& control, std::span<Variant> args) {
                          DispatchObject* extender = Self(control).PartExtender(name_of(args));
                          if (extender == nullptr) UnknownPart(name_of(args));
                          extender->SetProperty(RequiredArgument(args, 1).ToText(),
                                                RequiredArgument(args, 2));
                          return Variant();
                        })),
          CommonRow(u"Enabled"),
          CommonRow(u"hWnd"),
          CommonRow(u"Font"),
          CommonRow(u"DesignMode"),
          CommonRow(u"ControlGroup"),
          CommonRow(u"Refresh"),
          CommonRow(u"Clone"),
          CommonRow(u"GetArchiveStr"),
          CommonRow(u"ParseArchiveStr"),
          CommonRow(u"ExtraProp"),
          CommonRow(u"ExtraAction"),
      },
      {u"Click", u"PartClick", u"GotFocus", u"LostFocus", u"PartGotFocus", u"PartLostFocus",
       u"Change", u"KeyDown", u"PartKeyPress"});
  return table;
}

// ---- Persistence ----

void ZKTestComposite::AfterInitProperties() {
  OnFontChanged();
  Layout();
}

void ZKTestComposite::AfterReadProperties() {
  Layout();
}

}  // namespace zk
