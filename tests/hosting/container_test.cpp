// Controls that a form places inside a container control: windows, positions, visibility,
// removal, the form file, the script host, focus, input and the tab order.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/display/frame.h"
#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"
#include "hosting/headless_form.h"
#include "hosting/script_host.h"

namespace zk {
namespace {

using Names = std::vector<std::u16string>;

class ContainerTest : public testing::Test {
 protected:
  ContainerTest() : platform_(HeadlessOptions{u"en-US"}), scope_(platform_), form_(platform_) {}

  void Move(std::u16string_view name, double left, double top, double width, double height) {
    ASSERT_TRUE(form_.MoveControl(name, left, top, width, height));
  }
  // The control's window on the screen, in pixels.
  PixelRect ScreenRect(std::u16string_view name) {
    PixelRect rect;
    EXPECT_TRUE(platform_.Windows().GetWindowRect(form_.FindSite(name)->Surface().hWnd(), rect));
    return rect;
  }
  Names ContainedNames(std::u16string_view container) {
    Names names;
    for (const ObjectRef& object : form_.ContainedControls(container))
      names.push_back(object->GetProperty(u"ControlGroup").ToText());
    return names;
  }
  int ErrorNumber(auto&& call) {
    try {
      call();
    } catch (const ZKError& error) {
      return error.Number();
    }
    return 0;
  }

  HeadlessPlatform platform_;
  PlatformScope scope_;
  HeadlessForm form_;
};

TEST_F(ContainerTest, AContainedControlsWindowLiesInTheContainersAtItsInnerPosition) {
  form_.AddControl(u"ZKFrame", u"F");
  Move(u"F", 600, 300, 3000, 1500);
  form_.AddControlInside(u"ZKLabel", u"L", u"F");
  Move(u"L", 150, 450, 900, 300);
  const WindowHandle frame_window = form_.FindSite(u"F")->Surface().hWnd();
  EXPECT_EQ(platform_.Windows().Parent(form_.FindSite(u"L")->Surface().hWnd()), frame_window);
  EXPECT_EQ(form_.ContainerOf(u"L"), u"F");
  EXPECT_EQ(form_.ContainerOf(u"F"), u"");
  // Left and Top count from the frame's inner area; the window follows the frame.
  EXPECT_EQ(ScreenRect(u"L"), (PixelRect{40 + 10, 20 + 30, 40 + 10 + 60, 20 + 30 + 20}));
  Move(u"F", 1200, 600, 3000, 1500);
  EXPECT_EQ(form_.FindExtender(u"L")->GetProperty(u"Left"), Variant(150.0));
  EXPECT_EQ(ScreenRect(u"L"), (PixelRect{80 + 10, 40 + 30, 80 + 10 + 60, 40 + 30 + 20}));
  // Another frame inside: positions add up.
  form_.AddControlInside(u"ZKFrame", u"G", u"F");
  Move(u"G", 300, 300, 1500, 900);
  form_.AddControlInside(u"ZKLabel", u"Deep", u"G");
  Move(u"Deep", 15, 30, 300, 150);
  EXPECT_EQ(ScreenRect(u"Deep"),
            (PixelRect{80 + 20 + 1, 40 + 20 + 2, 80 + 20 + 1 + 20, 40 + 20 + 2 + 10}));
}

TEST_F(ContainerTest, TheContainerGetsWhatItHoldsInTheOrderOfPlacement) {
  form_.AddControl(u"ZKFrame", u"F");
  form_.AddControl(u"ZKFrame", u"G");
  for (const char16_t* name : {u"B", u"A", u"C"}) {
    form_.AddControlInside(u"ZKLabel", name, u"F").SetControlGroup(name);
  }
  form_.AddControlInside(u"ZKLabel", u"InG", u"G").SetControlGroup(u"InG");
  form_.AddControlInside(u"ZKLabel", u"D", u"F").SetControlGroup(u"D");
  EXPECT_EQ(ContainedNames(u"F"), (Names{u"B", u"A", u"C", u"D"}));
  EXPECT_EQ(ContainedNames(u"g"), (Names{u"InG"}));
  // The site reports the same objects the form holds.
  const std::vector<ObjectRef> objects = form_.FindSite(u"F")->ContainedControls();
  ASSERT_EQ(objects.size(), 4u);
  EXPECT_EQ(objects[1].get(), form_.FindControl(u"A"));
  EXPECT_TRUE(form_.FindSite(u"B")->ContainedControls().empty());
  ASSERT_TRUE(form_.RemoveControl(u"A"));
  EXPECT_EQ(ContainedNames(u"F"), (Names{u"B", u"C", u"D"}));
}

TEST_F(ContainerTest, OnlyAContainerKindTakesControlsAndARefusalPlacesNothing) {
  form_.AddControl(u"ZKFrame", u"F");
  form_.AddControl(u"ZKLabel", u"L");
  struct Row {
    const char16_t* kind;
    const char16_t* name;
    const char16_t* container;
    int error;
  };
  const Row rows[] = {
      {u"ZKLabel", u"X", u"L", error_number::kMemberNotFound},
      {u"ZKLabel", u"X", u"Nobody", error_number::kObjectRequired},
      {u"ZKNothing", u"X", u"F", error_number::kInvalidProcedureCall},
      {u"ZKLabel", u"L", u"F", error_number::kInvalidProcedureCall},
      {u"ZKLabel", u"9X", u"F", error_number::kInvalidProcedureCall},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(Utf16ToUtf8(row.name) + " in " + Utf16ToUtf8(row.container));
    EXPECT_EQ(ErrorNumber([&] { form_.AddControlInside(row.kind, row.name, row.container); }),
              row.error);
    EXPECT_EQ(form_.Controls().size(), 2u);
  }
}

TEST_F(ContainerTest, HidingOrDisablingTheContainerTakesItsControlsOutOfReach) {
  form_.AddControl(u"ZKTextEdit", u"Before");
  form_.AddControl(u"ZKFrame", u"F");
  form_.AddControlInside(u"ZKTextEdit", u"T", u"F");
  form_.AddControlInside(u"ZKFrame", u"G", u"F");
  form_.AddControlInside(u"ZKTextEdit", u"Deep", u"G");
  DispatchObject& frame = *form_.FindExtender(u"F");
  EXPECT_TRUE(form_.IsShown(u"Deep"));
  frame.SetProperty(u"Visible", Variant(false));
  for (const char16_t* name : {u"T", u"G", u"Deep"}) {
    EXPECT_FALSE(form_.IsShown(name)) << Utf16ToUtf8(name);
    // The contained controls keep their own Visible.
    EXPECT_TRUE(form_.FindExtender(name)->GetProperty(u"Visible").ToBool());
  }
  EXPECT_TRUE(form_.IsShown(u"Before"));
  EXPECT_FALSE(form_.Focus(u"Deep"));
  EXPECT_FALSE(form_.Focus(u"T"));
  frame.SetProperty(u"Visible", Variant(true));
  EXPECT_TRUE(form_.Focus(u"Deep"));
  EXPECT_EQ(form_.FocusedControl(), form_.FindControl(u"Deep"));
  // A disabled container: its surface takes no focus and no input for what it holds, even for
  // a control whose own Enabled is still true.
  form_.Focus(u"Before");
  form_.FindSite(u"G")->Surface().SetEnabled(false);
  EXPECT_TRUE(form_.FindControl(u"Deep")->Enabled());
  EXPECT_FALSE(form_.Focus(u"Deep"));
  std::vector<std::u16string> events;
  auto observer = form_.FindControl(u"Deep")->EventRaised().Connect(
      [&](std::u16string_view name, std::span<const Variant>) { events.emplace_back(name); });
  form_.DeliverMouse(u"Deep", MouseAction::kDown, 1, 0, 30, 30);
  form_.DeliverMouse(u"Deep", MouseAction::kUp, 1, 0, 30, 30);
  EXPECT_TRUE(events.empty());
  EXPECT_EQ(form_.FocusedControl(), form_.FindControl(u"Before"));
}

TEST_F(ContainerTest, RemovingAContainerRemovesWhatItHoldsAndItsWindows) {
  form_.AddControl(u"ZKLabel", u"Keep");
  const size_t windows = platform_.Windows().WindowCount();
  form_.AddControl(u"ZKFrame", u"F");
  form_.AddControlInside(u"ZKLabel", u"L", u"F");
  form_.AddControlInside(u"ZKFrame", u"G", u"F");
  form_.AddControlInside(u"ZKTextEdit", u"T", u"G");
  form_.AddControl(u"ZKLabel", u"After");
  ASSERT_TRUE(form_.RemoveControl(u"F"));
  for (const char16_t* name : {u"F", u"L", u"G", u"T"})
    EXPECT_EQ(form_.FindControl(name), nullptr) << Utf16ToUtf8(name);
  ASSERT_EQ(form_.Controls().size(), 2u);
  EXPECT_EQ(form_.FindExtender(u"After")->GetProperty(u"TabIndex"), Variant(int32_t{1}));
  ASSERT_TRUE(form_.RemoveControl(u"After"));
  EXPECT_EQ(platform_.Windows().WindowCount(), windows);
}

TEST_F(ContainerTest, AFormFileNestsTheContainedControlsAndLoadsThemBackInPlace) {
  form_.AddControl(u"ZKLabel", u"Title");
  auto& frame = static_cast<ZKFrame&>(form_.AddControl(u"ZKFrame", u"F"));
  frame.SetCaption(u"Totals");
  form_.AddControlInside(u"ZKLabel", u"L", u"F");
  Move(u"L", 150, 450, 900, 300);
  form_.AddControlInside(u"ZKFrame", u"G", u"F");
  form_.AddControlInside(u"ZKTextEdit", u"T", u"G");
  form_.AddControl(u"ZKLabel", u"Last");
  const std::string saved = form_.SaveText();
  // Nested blocks, indented one step per level, after the container's own values.
  const size_t f = saved.find("Begin ZKFrame F\n");
  const size_t l = saved.find("  Begin ZKLabel L\n");
  const size_t g = saved.find("  Begin ZKFrame G\n");
  const size_t t = saved.find("    Begin ZKTextEdit T\n");
  const size_t last = saved.find("\nBegin ZKLabel Last\n");
  ASSERT_NE(f, std::string::npos);
  ASSERT_NE(t, std::string::npos);
  EXPECT_LT(saved.find("  Caption = \"Totals\"\n"), l);
  EXPECT_TRUE(f < l && l < g && g < t && t < last) << saved;

  form_.RemoveAll();
  form_.LoadText(saved);
  EXPECT_EQ(form_.SaveText(), saved);
  EXPECT_EQ(form_.ContainerOf(u"L"), u"F");
  EXPECT_EQ(form_.ContainerOf(u"T"), u"G");
  EXPECT_EQ(form_.ContainerOf(u"Last"), u"");
  EXPECT_EQ(platform_.Windows().Parent(form_.FindSite(u"T")->Surface().hWnd()),
            form_.FindSite(u"G")->Surface().hWnd());
  EXPECT_EQ(form_.FindExtender(u"L")->GetProperty(u"Left"), Variant(150.0));
  EXPECT_EQ(static_cast<ZKFrame*>(form_.FindControl(u"F"))->Caption(), u"Totals");
}

TEST_F(ContainerTest, AFileThatNestsWhereNoContainerIsChangesNothing) {
  form_.AddControl(u"ZKLabel", u"Kept");
  const std::string before = form_.SaveText();
  const char* files[] = {
      "ZKBaseGUIControls form 1\nBegin ZKLabel L\n  Begin ZKLabel M\n  End\nEnd\n",
      "ZKBaseGUIControls form 1\nBegin ZKFrame F\n  Begin ZKLabel F\n  End\nEnd\n",
      "ZKBaseGUIControls form 1\nBegin ZKFrame F\n  Begin ZKNothing M\n  End\nEnd\n",
      "ZKBaseGUIControls form 1\nBegin ZKFrame F\n  Begin ZKLabel M\n  End\n",
      "ZKBaseGUIControls form 1\nBegin ZKFrame F\nEnd\nEnd\n",
  };
  for (const char* file : files) {
    SCOPED_TRACE(file);
    EXPECT_EQ(ErrorNumber([&] { form_.LoadText(file); }), 31037);
    EXPECT_EQ(form_.SaveText(), before);
  }
  // Nesting deeper than a form file keeps is refused when read, and when placed.
  std::string deep = "ZKBaseGUIControls form 1\n";
  for (size_t i = 0; i <= kMaxContainerNesting; ++i)
    deep += "Begin ZKFrame F" + std::to_string(i) + "\n";
  for (size_t i = 0; i <= kMaxContainerNesting; ++i)
    deep += "End\n";
  EXPECT_EQ(ErrorNumber([&] { form_.LoadText(deep); }), 31037);
  EXPECT_EQ(form_.SaveText(), before);
  form_.AddControl(u"ZKFrame", u"F0");
  for (size_t i = 1; i < kMaxContainerNesting; ++i) {
    const std::u16string name = u"F" + Utf8ToUtf16(std::to_string(i));
    const std::u16string outer = u"F" + Utf8ToUtf16(std::to_string(i - 1));
    form_.AddControlInside(u"ZKFrame", name, outer);
  }
  const std::u16string innermost = u"F" + Utf8ToUtf16(std::to_string(kMaxContainerNesting - 1));
  EXPECT_EQ(ErrorNumber([&] { form_.AddControlInside(u"ZKFrame", u"TooDeep", innermost); }),
            error_number::kInvalidProcedureCall);
  const std::string deepest = form_.SaveText();
  form_.LoadText(deepest);  // as deep as a file may go, and back
  EXPECT_EQ(form_.ContainerOf(innermost),
            u"F" + Utf8ToUtf16(std::to_string(kMaxContainerNesting - 2)));
}

TEST_F(ContainerTest, TheTabKeyVisitsEveryControlOfTheFormInItsTabOrder) {
  form_.AddControl(u"ZKTextEdit", u"A");
  form_.AddControl(u"ZKFrame", u"F");
  form_.AddControlInside(u"ZKTextEdit", u"B", u"F");
  form_.AddControl(u"ZKTextEdit", u"C");
  form_.AddControlInside(u"ZKColorButton", u"D", u"F");
  // The tab places run over the whole form, the contained controls included.
  form_.FindExtender(u"D")->SetProperty(u"TabIndex", Variant(int32_t{0}));
  const auto visit = [&] {
    Names visited;
    form_.Focus(u"D");
    for (int i = 0; i < 5; ++i) {
      visited.emplace_back(form_.FocusedControl() != nullptr ? form_.FocusedControl()->Name()
                                                             : u"(none)");
      form_.TypeKeys(u"{TAB}");
    }
    return visited;
  };
  EXPECT_EQ(visit(), (Names{u"D", u"A", u"B", u"C", u"D"}));
  // A disabled frame (the frame disables its contents) and a hidden one are passed over.
  form_.FindControl(u"F")->SetEnabled(false);
  form_.Focus(u"A");
  form_.TypeKeys(u"{TAB}");
  EXPECT_EQ(form_.FocusedControl()->Name(), u"C");
  form_.FindControl(u"F")->SetEnabled(true);
  form_.FindExtender(u"F")->SetProperty(u"Visible", Variant(false));
  form_.TypeKeys(u"{TAB}");
  EXPECT_EQ(form_.FocusedControl()->Name(), u"A");
  form_.TypeKeys(u"+{TAB}");
  EXPECT_EQ(form_.FocusedControl()->Name(), u"C");
}

TEST_F(ContainerTest, APressOverAContainedControlIsThatControlsAndGivesItTheFocus) {
  form_.AddControl(u"ZKTextEdit", u"Outside");
  form_.AddControl(u"ZKFrame", u"F");
  Move(u"F", 0, 0, 3000, 1500);
  form_.AddControlInside(u"ZKColorButton", u"B", u"F");
  Move(u"B", 300, 450, 1200, 450);
  std::vector<std::u16string> frame_events;
  std::vector<std::u16string> button_events;
  auto record = [](std::vector<std::u16string>& into) {
    return [&into](std::u16string_view name, std::span<const Variant> args) {
      std::u16string line(name);
      for (const Variant& arg : args)
        line += u" " + arg.ToText();
      into.push_back(line);
    };
  };
  auto frame_observer = form_.FindControl(u"F")->EventRaised().Connect(record(frame_events));
  auto button_observer = form_.FindControl(u"B")->EventRaised().Connect(record(button_events));
  form_.Focus(u"Outside");
  // The frame's point (450, 600) is the button's (150, 150).
  form_.DeliverMouse(u"F", MouseAction::kDown, 1, 0, 450, 600);
  form_.DeliverMouse(u"F", MouseAction::kUp, 1, 0, 450, 600);
  EXPECT_EQ(form_.FocusedControl(), form_.FindControl(u"B"));
  EXPECT_TRUE(frame_events.empty());
  ASSERT_GE(button_events.size(), 3u);
  EXPECT_EQ(button_events[0], u"MouseDown 1 0 150 150");
  EXPECT_EQ(button_events.back(), u"Click");
  // Beside the button the frame has the press, and the focus stays where it was.
  button_events.clear();
  form_.DeliverMouse(u"F", MouseAction::kDown, 1, 0, 2500, 1200);
  form_.DeliverMouse(u"F", MouseAction::kUp, 1, 0, 2500, 1200);
  EXPECT_EQ(frame_events, (Names{u"MouseDown 1 0 2500 1200", u"MouseUp 1 0 2500 1200", u"Click"}));
  EXPECT_TRUE(button_events.empty());
  EXPECT_EQ(form_.FocusedControl(), form_.FindControl(u"B"));
}

TEST_F(ContainerTest, TheScriptHostPlacesControlsInsideAContainer) {
  std::vector<std::string> lines;
  ScriptHost host(form_, [&](std::u16string_view line) { lines.push_back(Utf16ToUtf8(line)); });
  const int status = host.Run(
      u"new ZKFrame F\nnew ZKLabel L in F\nL.Left = 150\n? L.Left\nF.Enabled = False\n"
      u"? L.Enabled\nnew ZKLabel M in L\nnew ZKLabel L in F\n");
  EXPECT_EQ(status, 1);
  EXPECT_EQ(lines, (std::vector<std::string>{"150", "False",
                                             "error 438: L (ZKLabel) cannot contain controls",
                                             "error 5: A control named L exists"}));
  EXPECT_EQ(form_.ContainerOf(u"L"), u"F");
}

}  // namespace
}  // namespace zk
