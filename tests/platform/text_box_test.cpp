#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "headless_fixture.h"
#include "platform/common/form_ambient.h"
#include "platform/headless/headless_control_site.h"
#include "platform/headless/headless_text_box.h"
#include "platform/window_messages.h"

namespace zk {
namespace {

class TextBoxTest : public HeadlessTest {
 protected:
  std::unique_ptr<HeadlessTextBox> MakeBox(bool multi_line) {
    auto element = site_.Surface().CreateTextBox(multi_line);
    return std::unique_ptr<HeadlessTextBox>(static_cast<HeadlessTextBox*>(element.release()));
  }
  // Types keys: a character types itself; the other entries are key codes with Shift or Ctrl.
  struct Key {
    int16_t code;
    int16_t shift;
    int16_t character;
  };
  static Key Char(char16_t c) { return {0, 0, static_cast<int16_t>(c)}; }

  FormAmbient ambient_{platform_.NewFont()};
  WindowHandle form_ = platform_.Windows().CreateWindow(0, u"Form", {0, 0, 400, 300});
  HeadlessControlSite site_{platform_, ambient_, form_, u"Edit1"};
};

TEST_F(TextBoxTest, KeysEditTheTextAsAClassicEditBoxDoes) {
  struct Row {
    const char* what;
    bool multi_line;
    int32_t max_length;
    std::u16string start;
    std::vector<Key> keys;
    std::u16string text;
    int32_t sel_start;
    int32_t sel_length;
  };
  const Row rows[] = {
      {"typing appends", false, 0, u"", {Char(u'a'), Char(u'b')}, u"ab", 2, 0},
      {"backspace", false, 0, u"abc", {{35, 0, 0}, Char(8)}, u"ab", 2, 0},
      {"delete at home", false, 0, u"abc", {{36, 0, 0}, {46, 0, 0}}, u"bc", 0, 0},
      {"shift selects, typing replaces",
       false,
       0,
       u"abcd",
       {{36, 0, 0}, {39, 1, 0}, {39, 1, 0}, Char(u'X')},
       u"Xcd",
       1,
       0},
      {"ctrl+a selects all", false, 0, u"abc", {Char(1)}, u"abc", 0, 3},
      {"length limit",
       false,
       3,
       u"",
       {Char(u'1'), Char(u'2'), Char(u'3'), Char(u'4')},
       u"123",
       3,
       0},
      {"limit with a selection",
       false,
       3,
       u"123",
       {{35, 0, 0}, {37, 1, 0}, Char(u'9')},
       u"129",
       3,
       0},
      {"enter in one line", false, 0, u"ab", {Char(13)}, u"ab", 0, 0},
      {"enter in several", true, 0, u"", {Char(u'a'), Char(13), Char(u'b')}, u"a\r\nb", 4, 0},
      {"a line break is one step",
       true,
       0,
       u"a\r\nb",
       {{35, 2, 0}, {37, 0, 0}, {37, 0, 0}},
       u"a\r\nb",
       1,
       0},
      {"backspace over a break",
       true,
       0,
       u"a\r\nb",
       {{35, 2, 0}, {37, 0, 0}, Char(8)},
       u"ab",
       1,
       0},
      {"down keeps the column",
       true,
       0,
       u"abc\r\nde",
       {{39, 0, 0}, {39, 0, 0}, {40, 0, 0}},
       u"abc\r\nde",
       7,
       0},
      {"ctrl+z undoes the typing run",
       false,
       0,
       u"x",
       {Char(u'a'), Char(u'b'), Char(26)},
       u"x",
       0,
       0},
      {"ctrl+z undoes the undo",
       false,
       0,
       u"x",
       {{35, 0, 0}, Char(u'a'), Char(26), Char(26)},
       u"xa",
       2,
       0},
      {"backspaces are one run",
       false,
       0,
       u"abc",
       {{35, 0, 0}, Char(8), Char(8), Char(26)},
       u"abc",
       3,
       0},
      {"ctrl+backspace types nothing", false, 0, u"ab", {{35, 0, 0}, Char(127)}, u"ab", 2, 0},
      {"a line break beyond the limit is refused whole",
       true,
       3,
       u"ab",
       {{35, 0, 0}, Char(13)},
       u"ab",
       2,
       0},
      {"delete over a break",
       true,
       0,
       u"a\r\nb",
       {{36, 0, 0}, {39, 0, 0}, {46, 0, 0}},
       u"ab",
       1,
       0},
      {"ctrl+tab types a tab in several lines",
       true,
       0,
       u"ab",
       {{35, 0, 0}, {9, 2, 0}},
       u"ab\t",
       3,
       0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    auto box = MakeBox(row.multi_line);
    box->SetText(row.start);
    box->SetMaxLength(row.max_length);
    for (const Key& key : row.keys)
      box->DeliverKey(key.code, key.shift, key.character);
    EXPECT_EQ(box->Text(), row.text);
    EXPECT_EQ(box->SelStart(), row.sel_start);
    EXPECT_EQ(box->SelLength(), row.sel_length);
  }
}

TEST_F(TextBoxTest, HandlersSeeKeysFirstAndChangesAreReported) {
  auto box = MakeBox(false);
  std::vector<std::u16string> seen;
  auto down = box->KeyDown().Connect([&](int16_t& code, int16_t&) {
    seen.push_back(u"down");
    if (code == 46) code = 0;  // the host drops Delete
  });
  auto press = box->KeyPress().Connect([&](int16_t& character) {
    seen.push_back(u"press");
    if (character == u'a') character = u'A';
    if (character == u'x') character = 0;
  });
  auto change = box->Change().Connect([&] { seen.push_back(u"change"); });
  auto up = box->KeyUp().Connect([&](int16_t&, int16_t&) { seen.push_back(u"up"); });
  box->DeliverKey(65, 0, u'a');
  box->DeliverKey(88, 0, u'x');
  box->DeliverKey(36, 0, 0);
  box->DeliverKey(46, 0, 0);
  EXPECT_EQ(box->Text(), u"A");
  EXPECT_EQ(seen, (std::vector<std::u16string>{u"down", u"press", u"change", u"up", u"down",
                                               u"press", u"up", u"down", u"up", u"down", u"up"}));
}

TEST_F(TextBoxTest, LockedBoxesMoveButDoNotEditAndUndoComesByMessage) {
  auto box = MakeBox(false);
  box->SetText(u"fixed");
  box->SetLocked(true);
  box->DeliverKey(35, 0, 0);
  box->DeliverKey(0, 0, u'x');
  box->DeliverKey(0, 0, 8);
  EXPECT_EQ(box->Text(), u"fixed");
  EXPECT_EQ(box->SelStart(), 5);
  box->SetLocked(false);
  box->SetSelStart(1);
  box->SetSelLength(3);
  EXPECT_EQ(box->SelText(), u"ixe");
  box->SetSelText(u"--");
  EXPECT_EQ(box->Text(), u"f--d");
  box->SetLocked(true);
  box->DeliverKey(90, 2, 26);  // Ctrl+Z edits nothing in a read-only box
  EXPECT_EQ(box->Text(), u"f--d");
  platform_.Windows().SendMessage(box->hWnd(), window_message::kEditUndo, 0, 0);
  EXPECT_EQ(box->Text(), u"fixed");
  platform_.Windows().SendMessage(box->hWnd(), window_message::kEditUndo, 0, 0);
  EXPECT_EQ(box->Text(), u"f--d");  // an undo of the undo
  box->SetMaxLength(2);
  box->SetAlignment(2);
  EXPECT_EQ(box->MaxLength(), 0);  // the box's window started over
  box->SetPasswordChar(u"*");
  EXPECT_EQ(box->Shown(), u"****");
  box->SetSelStart(-4);
  EXPECT_EQ(box->SelStart(), 0);
  box->SetSelStart(99);
  EXPECT_EQ(box->SelStart(), 4);
}

TEST_F(TextBoxTest, TheSurfaceSendsKeysToItsTextBoxWhileItLives) {
  std::vector<int16_t> surface_keys;
  auto surface_down = site_.Surface().KeyDown().Connect(
      [&](int16_t& code, int16_t&) { surface_keys.push_back(code); });
  {
    auto box = MakeBox(false);
    site_.Surface().DeliverKey(65, 0, u'a');
    EXPECT_EQ(box->Text(), u"a");
    EXPECT_TRUE(surface_keys.empty());
  }
  site_.Surface().DeliverKey(66, 0, u'b');
  EXPECT_EQ(surface_keys, (std::vector<int16_t>{66}));
}

}  // namespace
}  // namespace zk
