#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "foundation/text_encoding.h"
#include "hosting/headless_form.h"
#include "hosting/script_host.h"

namespace zk {
namespace {

class FocusAndInputTest : public testing::Test {
 protected:
  FocusAndInputTest() : platform_(HeadlessOptions{u"en-US"}), scope_(platform_), form_(platform_) {
    for (const char16_t* name : {u"First", u"Second", u"Third"}) {
      form_.AddControl(u"ZKColorButton", name);
      events_[name];
      connections_.push_back(form_.FindControl(name)->EventRaised().Connect(
          [this, name](std::u16string_view event, std::span<const Variant>) {
            events_[name].emplace_back(event);
          }));
    }
  }

  std::u16string Focused() {
    ZKControl* focused = form_.FocusedControl();
    return focused ? focused->Name() : u"(none)";
  }

  HeadlessPlatform platform_;
  PlatformScope scope_;
  HeadlessForm form_;
  std::map<std::u16string, std::vector<std::u16string>> events_;
  std::vector<ScopedConnection> connections_;
};

TEST_F(FocusAndInputTest, TheFocusLeavesOnlyAControlThatAgrees) {
  ASSERT_TRUE(form_.Focus(u"First"));
  bool refuse = true;
  auto validate = form_.FindSite(u"First")->Surface().Validate().Connect(
      [&](bool& cancel) { cancel = refuse; });
  form_.Focus(u"Second");
  EXPECT_EQ(Focused(), u"First");
  form_.TypeKeys(u"{TAB}");
  EXPECT_EQ(Focused(), u"First");
  // A press on another control does not reach it while the focus stays.
  form_.DeliverMouse(u"Second", MouseAction::kDown, 1, 0, 100, 100);
  form_.DeliverMouse(u"Second", MouseAction::kUp, 1, 0, 100, 100);
  EXPECT_TRUE(events_[u"Second"].empty());
  refuse = false;
  form_.TypeKeys(u"{TAB}");
  EXPECT_EQ(Focused(), u"Second");
  form_.TypeKeys(u"+{TAB}");
  EXPECT_EQ(Focused(), u"First");
  form_.FindExtender(u"Second")->SetProperty(u"TabStop", Variant(false));
  form_.TypeKeys(u"{TAB}");
  EXPECT_EQ(Focused(), u"Third");
}

TEST_F(FocusAndInputTest, EnterAndEscapeGoToTheDefaultAndCancelControls) {
  form_.FindExtender(u"Second")->SetProperty(u"Default", Variant(true));
  form_.FindExtender(u"Third")->SetProperty(u"Cancel", Variant(true));
  form_.Focus(u"First");
  form_.TypeKeys(u"{ENTER}{ESC}a");
  EXPECT_EQ(events_[u"Second"], (std::vector<std::u16string>{u"Click"}));
  EXPECT_EQ(events_[u"Third"], (std::vector<std::u16string>{u"Click"}));
  // Other keys reach the control that has the focus.
  EXPECT_EQ(events_[u"First"], (std::vector<std::u16string>{u"KeyDown", u"KeyPress", u"KeyUp"}));
}

TEST_F(FocusAndInputTest, AReleaseOutsideTheControlClicksNothing) {
  form_.DeliverMouse(u"First", MouseAction::kDown, 1, 0, 10, 10);
  form_.DeliverMouse(u"First", MouseAction::kUp, 1, 0, 5000, 10);
  EXPECT_EQ(events_[u"First"], (std::vector<std::u16string>{u"MouseDown", u"MouseUp"}));
}

TEST_F(FocusAndInputTest, ScriptsLoadPictures) {
  const auto path = std::filesystem::temp_directory_path() / "zk_script_picture.gif";
  std::ofstream(path, std::ios::binary) << std::string("GIF89a\x14\x00\x0a\x00\x00\x00", 12);
  std::vector<std::u16string> lines;
  ScriptHost host(form_, [&](std::u16string_view line) { lines.emplace_back(line); });
  const std::u16string file = Utf8ToUtf16(path.string());
  EXPECT_TRUE(host.Execute(u"? LoadPicture(\"" + file + u"\")"));
  EXPECT_FALSE(host.Execute(u"? LoadPicture(\"/nonexistent.png\")"));
  std::filesystem::remove(path);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], u"Picture(20x10)");
  EXPECT_EQ(lines[1], u"error 53: File not found: /nonexistent.png");
}

}  // namespace
}  // namespace zk
