// The same keys give the same text, selection and events on the headless and the Qt platform.
#include <gtest/gtest.h>

#include <QWidget>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/text/text_edit.h"
#include "hosting/headless_form.h"
#include "hosting/qt_form.h"
#include "text_edit_events.h"

namespace zk {
namespace {

using Lines = std::vector<std::u16string>;

enum class Platform { kHeadless, kQt };

std::string PlatformName(const testing::TestParamInfo<Platform>& info) {
  return info.param == Platform::kHeadless ? "Headless" : "Qt";
}

// A form with two text edits, E and F (in that tab order), on the platform of the test.
class BothPlatformsTest : public testing::TestWithParam<Platform> {
 protected:
  BothPlatformsTest() {
    if (GetParam() == Platform::kHeadless) {
      auto& platform = headless_.emplace(HeadlessOptions{u"en-US"});
      scope_.emplace(platform);
      form_ = std::make_unique<HeadlessForm>(platform);
    } else {
      auto& platform = qt_.emplace(QtOptions{true, std::u16string(u"en-US")});
      scope_.emplace(platform);
      auto form = std::make_unique<QtForm>(platform);
      form->Widget()->show();
      form_ = std::move(form);
    }
    edit_ = &static_cast<ZKTextEdit&>(form_->AddControl(u"ZKTextEdit", u"E"));
    other_ = &static_cast<ZKTextEdit&>(form_->AddControl(u"ZKTextEdit", u"F"));
    events_.emplace(*edit_);
  }
  ~BothPlatformsTest() override {
    events_.reset();
    form_.reset();
    scope_.reset();
  }

  std::optional<HeadlessPlatform> headless_;
  std::optional<QtPlatform> qt_;
  std::optional<PlatformScope> scope_;
  std::unique_ptr<Form> form_;
  ZKTextEdit* edit_ = nullptr;
  ZKTextEdit* other_ = nullptr;
  std::optional<EventLog> events_;
};

TEST_P(BothPlatformsTest, KeysAndUndoEditAsTheClassicBoxDoes) {
  struct Row {
    const char* what;
    std::u16string text;
    int32_t max_length;
    int32_t sel_start;
    int32_t sel_length;
    std::u16string_view keys;
    int undos;  // calls of the Undo method after the keys
    std::u16string result;
    int32_t result_start;
    int32_t result_length;
  };
  const Row rows[] = {
      {"typing inserts at the caret", u"ab", 0, 2, 0, u"cde", 0, u"abcde", 5, 0},
      {"undo takes back the whole typing run", u"ab", 0, 2, 0, u"cde", 1, u"ab", 2, 0},
      {"a second undo takes back the undo", u"ab", 0, 2, 0, u"cde", 2, u"abcde", 5, 0},
      {"a third undo takes it back again", u"ab", 0, 2, 0, u"cde", 3, u"ab", 2, 0},
      {"Ctrl+Z is the same undo", u"ab", 0, 2, 0, u"cde^z", 0, u"ab", 2, 0},
      {"Ctrl+Z twice undoes the undo", u"ab", 0, 2, 0, u"cde^z^z", 0, u"abcde", 5, 0},
      {"typing over a selection is undone with it", u"abcd", 0, 1, 2, u"xy", 1, u"abcd", 1, 2},
      {"a caret move starts a new run", u"ab", 0, 2, 0, u"cd{LEFT}e", 1, u"abcd", 3, 0},
      {"a run of Backspaces is one edit", u"hello", 0, 5, 0, u"{BS}{BS}{BS}", 1, u"hello", 5, 0},
      {"typing after Backspaces is a run of its own", u"hello", 0, 5, 0, u"{BS}{BS}xy", 1, u"hel",
       3, 0},
      {"a run of Deletes is one edit", u"hello", 0, 0, 0, u"{DEL}{DEL}", 1, u"hello", 0, 0},
      {"Backspace and Delete are runs of their own", u"hello", 0, 2, 0, u"{BS}{DEL}", 1, u"hllo", 1,
       0},
      {"a text set by the program leaves nothing to undo", u"abc", 0, 3, 0, u"", 1, u"abc", 3, 0},
      {"Ctrl+H is a Backspace", u"abc", 0, 3, 0, u"^h", 0, u"ab", 2, 0},
      {"Ctrl+H removes the selection", u"abcd", 0, 1, 2, u"^h", 0, u"ad", 1, 0},
      {"Ctrl+Backspace changes nothing", u"ab cd", 0, 5, 0, u"^{BS}", 0, u"ab cd", 5, 0},
      {"Ctrl+Backspace keeps the selection", u"ab cd", 0, 1, 3, u"^{BS}", 0, u"ab cd", 1, 3},
      {"Ctrl+Space types a blank", u"ab", 0, 2, 0, u"^ c", 0, u"ab c", 4, 0},
      {"Ctrl+A selects everything", u"abc", 0, 1, 0, u"^a", 0, u"abc", 0, 3},
      {"typing stops at the limit", u"ab", 3, 2, 0, u"cde", 0, u"abc", 3, 0},
      {"a selection makes room within the limit", u"abc", 3, 1, 1, u"x", 0, u"axc", 2, 0},
      {"typing over a selection of a text beyond the limit is refused", u"abcdef", 3, 1, 1, u"x", 0,
       u"abcdef", 1, 1},
      {"Backspace shortens a text beyond the limit", u"abcdef", 3, 6, 0, u"{BS}", 0, u"abcde", 5,
       0},
      {"Enter types nothing in one line", u"ab", 0, 2, 0, u"{ENTER}", 0, u"ab", 2, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    edit_->SetMaxLength(0);
    edit_->SetText(row.text);
    edit_->SetMaxLength(row.max_length);
    ASSERT_TRUE(form_->Focus(u"E"));
    edit_->SetSelStart(row.sel_start);
    edit_->SetSelLength(row.sel_length);
    form_->TypeKeys(row.keys);
    for (int i = 0; i < row.undos; ++i)
      edit_->Undo();
    EXPECT_EQ(edit_->Text(), row.result);
    EXPECT_EQ(edit_->SelStart(), row.result_start);
    EXPECT_EQ(edit_->SelLength(), row.result_length);
    ASSERT_TRUE(form_->Focus(u"F"));
  }
}

TEST_P(BothPlatformsTest, KeysRaiseTheSameEvents) {
  struct Row {
    const char* what;
    std::u16string_view keys;
    Lines events;
  };
  const Row rows[] = {
      {"Ctrl+Space passes the filter and types",
       u"^ ",
       {u"KeyDown 32 2", u"KeyPress 32", u"Change", u"KeyUp 32 2"}},
      {"Ctrl+H types a Backspace",
       u"^h",
       {u"KeyDown 72 2", u"KeyPress 8", u"Change", u"KeyUp 72 2"}},
      {"Ctrl+Backspace types 127, which changes nothing",
       u"^{BS}",
       {u"KeyDown 8 2", u"KeyPress 127", u"KeyUp 8 2"}},
      {"Ctrl+Z undoes", u"^z", {u"KeyDown 90 2", u"KeyPress 26", u"Change", u"KeyUp 90 2"}},
      {"Delete types no character",
       u"{HOME}{DEL}",
       {u"KeyDown 36 0", u"KeyUp 36 0", u"KeyDown 46 0", u"Change", u"KeyUp 46 0"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    edit_->SetText(u"ab");
    ASSERT_TRUE(form_->Focus(u"E"));
    form_->TypeKeys(u"{END}x");  // something to undo
    events_->Take();
    form_->TypeKeys(row.keys);
    EXPECT_EQ(events_->Take(), row.events);
    ASSERT_TRUE(form_->Focus(u"F"));
  }
}

TEST_P(BothPlatformsTest, EveryWriteAndEveryStepRaisesChangeFirst) {
  edit_->SetText(u"same");
  events_->Take();
  edit_->SetText(u"same");
  EXPECT_EQ(events_->Take(), Lines{u"Change"});
  edit_->SetProperty(u"Text", Variant(u"same"));
  EXPECT_EQ(events_->Take(), Lines{u"Change"});

  // Forcing the case of a text already in that case changes it once.
  edit_->SetForceTextCase(zktTForceUpperCase);
  edit_->SetText(u"UP");
  EXPECT_EQ(events_->Take(), Lines{u"Change"});
  edit_->SetText(u"up");
  EXPECT_EQ(events_->Take(), (Lines{u"Change", u"Change"}));
  edit_->SetForceTextCase(zktTForceNone);

  // A step too small to show gives back the same text, and is still a change.
  struct Row {
    std::u16string text;
    double increment;
    std::u16string_view keys;
    std::u16string result;
  };
  const Row rows[] = {
      {u"1", 1e-20, u"{UP}", u"1"},
      {u"1", 1, u"{UP}", u"2"},
      {u"5", 0.5, u"{DOWN}", u"4.5"},
  };
  ASSERT_TRUE(form_->Focus(u"E"));
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << "increment " << row.increment);
    edit_->SetText(row.text);
    edit_->SetArrowKeyIncrement(row.increment);
    events_->Take();
    form_->TypeKeys(row.keys);
    EXPECT_EQ(edit_->Text(), row.result);
    const std::u16string key = row.keys == u"{UP}" ? u"38" : u"40";
    EXPECT_EQ(events_->Take(),
              (Lines{u"Change", u"KeyDown " + key + u" 0", u"KeyUp " + key + u" 0"}));
  }
}

TEST_P(BothPlatformsTest, TabbingInLeavesTheSelectionAsItWas) {
  struct Row {
    bool auto_select;
    std::u16string_view keys;  // from F
    int32_t sel_start;
    int32_t sel_length;
  };
  const Row rows[] = {
      {false, u"+{TAB}", 2, 1},
      {false, u"{TAB}", 2, 1},
      {true, u"+{TAB}", 0, 5},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << "AutoSelect " << row.auto_select << " " << row.keys.size());
    edit_->SetText(u"hello");
    edit_->SetAutoSelect(row.auto_select);
    edit_->SetSelStart(2);
    edit_->SetSelLength(1);
    ASSERT_TRUE(form_->Focus(u"F"));
    form_->TypeKeys(row.keys);
    EXPECT_EQ(edit_->SelStart(), row.sel_start);
    EXPECT_EQ(edit_->SelLength(), row.sel_length);
    // The focus is in E: typing replaces what is selected there.
    form_->TypeKeys(u"x");
    EXPECT_EQ(edit_->Text(), row.auto_select ? u"x" : u"hexlo");
  }
}

INSTANTIATE_TEST_SUITE_P(Platforms, BothPlatformsTest,
                         testing::Values(Platform::kHeadless, Platform::kQt), PlatformName);

}  // namespace
}  // namespace zk
