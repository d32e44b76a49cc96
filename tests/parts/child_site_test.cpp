#include <memory>
#include <string>
#include <vector>

#include "foundation/archive_utils.h"
#include "foundation/zk_error.h"
#include "framework/constituent.h"
#include "parts_fixture.h"

namespace zk {
namespace {

template <typename Host>
using ChildSiteTest = PartsTest<Host>;
TYPED_TEST_SUITE(ChildSiteTest, Hosts, HostNames);

// The error number of reading (or writing) a member of the extender, 0 for none.
int ErrorOf(auto&& action) {
  try {
    action();
  } catch (const ZKError& error) {
    return error.Number();
  }
  return 0;
}

TYPED_TEST(ChildSiteTest, APartsExtenderOffersOnlyWhatTheOwnerPlaces) {
  DispatchObject& extender = *this->composite_->PartExtender(u"cmdLeft");
  struct Row {
    std::u16string_view member;
    int read_error;
    int write_error;
  };
  // What the owner places is there; what only a form gives its controls, and unknown names,
  // are not; the name is the owner's to choose once.
  const Row rows[] = {
      {u"Name", 0, 383},       {u"Left", 0, 0},        {u"Top", 0, 0},
      {u"Width", 0, 0},        {u"Height", 0, 0},      {u"Visible", 0, 0},
      {u"Enabled", 0, 0},      {u"ToolTipText", 0, 0}, {u"TabIndex", 438, 438},
      {u"TabStop", 438, 438},  {u"Default", 438, 438}, {u"Cancel", 438, 438},
      {u"SetFocus", 438, 438}, {u"Caption", 438, 438},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(std::string(row.member.begin(), row.member.end()));
    Variant value;
    EXPECT_EQ(ErrorOf([&] { value = extender.GetProperty(row.member); }), row.read_error);
    if (row.read_error == 0) {
      EXPECT_EQ(ErrorOf([&] { extender.SetProperty(row.member, value); }), row.write_error);
    } else {
      EXPECT_EQ(ErrorOf([&] { extender.SetProperty(row.member, Variant(1)); }), row.write_error);
    }
  }
  EXPECT_EQ(extender.GetProperty(u"Name").ToText(), u"cmdLeft");
  EXPECT_EQ(ErrorOf([&] { extender.SetProperty(u"Width", Variant(-1)); }), 380);

  // A part's archive string leaves what its extender withholds empty, and another part takes
  // the place it carries.
  ZKTestComposite& composite = *this->composite_;
  const std::u16string archive = composite.LeftButton()->GetArchiveStr();
  const std::vector<std::u16string> block = MArchiveUtils::ArchiveUnescapeExtender(
      MArchiveUtils::ArchiveSplitElements(archive).at(0), nullptr);
  ASSERT_EQ(block.size(), 12u);
  for (size_t slot : {0u, 1u, 2u, 3u, 4u, 5u, 8u})
    EXPECT_FALSE(block[slot].empty()) << slot;
  for (size_t slot : {6u, 7u, 10u, 11u})
    EXPECT_TRUE(block[slot].empty()) << slot;
  EXPECT_TRUE(composite.RightButton()->ParseArchiveStr(archive));
  EXPECT_EQ(composite.PartExtender(u"cmdRight")->GetProperty(u"Left").ToDouble(), 0.0);
  EXPECT_EQ(composite.PartExtender(u"cmdRight")->GetProperty(u"Name").ToText(), u"cmdRight");
}

TYPED_TEST(ChildSiteTest, APartsWindowLiesInsideTheOwnersInnerArea) {
  auto& host = this->host_;
  ISurface& owner = host.Site(u"C").Surface();
  ISurface& part = *this->composite_->PartSurface(u"tedValue");
  EXPECT_EQ(host.ParentWindow(part.hWnd()), owner.hWnd());
  EXPECT_EQ(host.ParentWindow(owner.hWnd()), host.FormWindow());
  auto offset = [&] {
    PixelRect owner_rect;
    PixelRect part_rect;
    EXPECT_TRUE(CurrentPlatform().Windows().GetWindowRect(owner.hWnd(), owner_rect));
    EXPECT_TRUE(CurrentPlatform().Windows().GetWindowRect(part.hWnd(), part_rect));
    return PixelRect{part_rect.left - owner_rect.left, part_rect.top - owner_rect.top,
                     part_rect.right - owner_rect.left, part_rect.bottom - owner_rect.top};
  };
  // 720 twips in, 1440 wide and 495 high at 15 twips a pixel.
  EXPECT_EQ(offset(), (PixelRect{48, 0, 48 + 96, 33}));
  // A border around the owner's inner area moves its parts with it (two pixels in 3-D).
  owner.SetBorderStyle(1);
  EXPECT_EQ(offset(), (PixelRect{50, 2, 50 + 96, 35}));
  this->composite_->PartExtender(u"tedValue")->SetProperty(u"Top", Variant(150.0));
  EXPECT_EQ(offset(), (PixelRect{50, 12, 50 + 96, 45}));
  // Moving the owner takes its parts along.
  host.form.MoveControl(u"C", 1500, 1500, 2880, 990);
  EXPECT_EQ(offset(), (PixelRect{50, 12, 50 + 96, 45}));
}

TYPED_TEST(ChildSiteTest, APartsPropertyChangesGoNowhere) {
  auto& form = this->host_.form;
  form.TakePropertyChanges();
  this->composite_->LeftButton()->SetCaption(u"Go");
  this->composite_->ValueEdit()->SetText(u"12");
  EXPECT_TRUE(form.TakePropertyChanges().empty());
  this->composite_->SetLeftCaption(u"Stop");
  using Change = std::pair<std::u16string, std::u16string>;
  EXPECT_EQ(form.TakePropertyChanges(), (std::vector<Change>{{u"C", u"LeftCaption"}}));
}

TYPED_TEST(ChildSiteTest, APartSharesItsOwnersAmbientProperties) {
  IControlSite& owner = this->host_.Site(u"C");
  std::unique_ptr<IControlSite> child = owner.CreateChildSite(u"Extra");
  EXPECT_EQ(&child->Ambient(), &owner.Ambient());
  std::vector<std::u16string> heard;
  auto connection = child->Ambient().AmbientChanged().Connect(
      [&heard](std::u16string_view name) { heard.emplace_back(name); });
  this->host_.form.SetAmbient(u"BackColor", Variant(int32_t{0xC0FFC0}));
  this->host_.form.SetAmbient(u"UserMode", Variant(false));
  EXPECT_EQ(heard, (std::vector<std::u16string>{u"BackColor", u"UserMode"}));
  EXPECT_EQ(child->Ambient().BackColor(), 0xC0FFC0u);
  EXPECT_FALSE(child->Ambient().UserMode());
}

TYPED_TEST(ChildSiteTest, AControlsWindowReportsAPartsWindowThroughItsVirtualHandle) {
  ZKTestComposite& composite = *this->composite_;
  const int32_t own = this->host_.Site(u"C").Surface().hWnd();
  const int32_t edit = composite.ValueEdit()->hWnd();
  ASSERT_NE(edit, 0);
  EXPECT_NE(edit, own);
  // The text edit reports its box's window, which lies inside the part's own window.
  EXPECT_EQ(this->host_.ParentWindow(edit), composite.PartSurface(u"tedValue")->hWnd());
  const ZKControl& as_control = composite;
  EXPECT_EQ(as_control.hWnd(), edit);
  EXPECT_EQ(composite.GetProperty(u"hWnd").ToInt32(), edit);
  composite.DropPart(u"tedValue");
  EXPECT_EQ(composite.GetProperty(u"hWnd").ToInt32(), own);
}

TYPED_TEST(ChildSiteTest, PartsAndElementsComeToTheFrontAmongTheirSiblings) {
  auto& host = this->host_;
  ZKTestComposite& composite = *this->composite_;
  const WindowHandle left = composite.PartSurface(u"cmdLeft")->hWnd();
  const WindowHandle value = composite.PartSurface(u"tedValue")->hWnd();
  const WindowHandle right = composite.PartSurface(u"cmdRight")->hWnd();
  const WindowHandle owner = host.Site(u"C").Surface().hWnd();
  EXPECT_EQ(host.Stack(owner), (std::vector<WindowHandle>{left, value, right}));
  composite.BringPartToFront(u"cmdLeft");
  EXPECT_EQ(host.Stack(owner), (std::vector<WindowHandle>{value, right, left}));
  // A control comes to the front among the form's controls.
  const WindowHandle before = host.Site(u"Before").Surface().hWnd();
  const WindowHandle after = host.Site(u"After").Surface().hWnd();
  host.Site(u"Before").Surface().BringToFront();
  EXPECT_EQ(host.Stack(host.FormWindow()), (std::vector<WindowHandle>{owner, after, before}));

  // Two windowless elements on a part of the control's own: the later one lies on top until
  // the other one is brought to the front; the part's window lies above the owner's label.
  std::unique_ptr<IControlSite> child = host.Site(u"C").CreateChildSite(u"Extra");
  dynamic_cast<FormExtender&>(child->Extender()).Move(0, 600, 1500, 300);
  std::unique_ptr<ILabelElement> first = child->Surface().CreateLabel();
  std::unique_ptr<ILabelElement> second = child->Surface().CreateLabel();
  for (ILabelElement* label : {first.get(), second.get()}) {
    label->SetAutoSize(false);
    label->Move(0, 0, 1500, 300);
  }
  std::vector<std::u16string> clicked;
  auto c1 = first->Click().Connect([&] { clicked.push_back(u"first"); });
  auto c2 = second->Click().Connect([&] { clicked.push_back(u"second"); });
  this->Click(u"C", 300, 700);
  first->BringToFront();
  this->Click(u"C", 300, 700);
  EXPECT_EQ(clicked, (std::vector<std::u16string>{u"second", u"first"}));
  // Beside the extra part, the owner's own label takes the press.
  EXPECT_EQ(this->Events(), (std::vector<std::u16string>{u"GotFocus"}));
  this->Click(u"C", 2000, 700);
  EXPECT_EQ(this->Events(), (std::vector<std::u16string>{u"Click"}));
}

TYPED_TEST(ChildSiteTest, ATextBoxIsAWindowAmongTheParts) {
  ZKTestComposite& composite = *this->composite_;
  // A text box of the control's own over its left part: made after the part, it lies above it.
  std::unique_ptr<ITextBoxElement> box = this->host_.Site(u"C").Surface().CreateTextBox(false);
  box->Move(0, 0, 600, 300);
  int box_clicks = 0;
  auto connection = box->Click().Connect([&] { ++box_clicks; });
  this->Click(u"C", 300, 150);
  EXPECT_EQ(box_clicks, 1);
  composite.BringPartToFront(u"cmdLeft");
  this->Events();
  this->Click(u"C", 300, 150);
  EXPECT_EQ(box_clicks, 1);
  EXPECT_EQ(this->Events(),
            (std::vector<std::u16string>{u"PartGotFocus(cmdLeft)", u"PartClick(cmdLeft)"}));
  box->BringToFront();
  this->Click(u"C", 300, 150);
  EXPECT_EQ(box_clicks, 2);
  // The press on the control's own text box took the focus back from the part.
  EXPECT_EQ(this->Events(), (std::vector<std::u16string>{u"PartLostFocus(cmdLeft)"}));
  EXPECT_EQ(composite.FocusedPart(), u"");
}

}  // namespace

// A part keeps its own Enabled while its owner is disabled: the surface reports the control's
// own flag, not the state it inherits (which only decides whether it takes input).
TYPED_TEST(ChildSiteTest, APartKeepsItsOwnEnabledUnderADisabledOwner) {
  ZKTestComposite& composite = *this->composite_;
  composite.SetEnabled(false);
  EXPECT_FALSE(composite.Enabled());
  EXPECT_TRUE(composite.LeftButton()->Enabled());
  composite.LeftButton()->SetEnabled(false);
  composite.SetEnabled(true);
  EXPECT_TRUE(composite.Enabled());
  EXPECT_FALSE(composite.LeftButton()->Enabled());
  EXPECT_TRUE(composite.RightButton()->Enabled());
}

}  // namespace zk
