#include <gtest/gtest.h>

#include "controls/text/multi_line_text_edit.h"
#include "controls/text/text_edit.h"
#include "qt/qt_fixture.h"
#include "text_edit_events.h"

namespace zk {
namespace {

using Lines = std::vector<std::u16string>;

// The same rules on real Qt text boxes: keys arrive through Qt's own key events.
class QtTextEditTest : public QtFormTest {
 protected:
  ZKTextEdit& edit_ = static_cast<ZKTextEdit&>(form_.AddControl(u"ZKTextEdit", u"E"));
  ZKMultiLineTextEdit& multi_ =
      static_cast<ZKMultiLineTextEdit&>(form_.AddControl(u"ZKMultiLineTextEdit", u"M"));
};

TEST_F(QtTextEditTest, TypingForcesTheCaseAndUndoTakesItBack) {
  EventLog events(edit_);
  edit_.SetForceTextCase(zktTForceUpperCase);
  edit_.SetText(u"");
  ASSERT_TRUE(form_.Focus(u"E"));
  events.Take();
  form_.TypeKeys(u"a");
  EXPECT_EQ(edit_.Text(), u"A");
  EXPECT_EQ(edit_.SelStart(), 1);
  EXPECT_EQ(events.Take(),
            (Lines{u"KeyDown 65 0", u"KeyPress 97", u"Change", u"Change", u"KeyUp 65 0"}));

  edit_.SetForceTextCase(zktTForceNone);
  edit_.SetText(u"ab");
  form_.TypeKeys(u"{END}c");
  EXPECT_EQ(edit_.Text(), u"abc");
  edit_.Undo();
  EXPECT_EQ(edit_.Text(), u"ab");
}

TEST_F(QtTextEditTest, AnInvalidValueKeepsTheFocusWithOneBeep) {
  edit_.SetDataType(zktTDDate);
  edit_.SetText(u"");
  ASSERT_TRUE(form_.Focus(u"E"));
  form_.TypeKeys(u"31/x02/2005");
  EXPECT_EQ(edit_.Text(), u"31/02/2005");
  platform_.Recorder().beeps = 0;
  form_.Focus(u"M");
  EXPECT_EQ(form_.FocusedControl(), &edit_);
  EXPECT_EQ(platform_.Recorder().beeps, 1);
  edit_.SetText(u"");
  form_.Focus(u"M");
  EXPECT_EQ(form_.FocusedControl(), &multi_);
}

TEST_F(QtTextEditTest, TheSelectionIsKeptButHiddenWhileTheFocusIsElsewhere) {
  const QWidget* box = platform_.Windows().Widget(edit_.TextBox().hWnd());
  const auto selection_hidden = [box] {
    const QPalette& colors = box->palette();
    return colors.color(QPalette::Highlight) == colors.color(QPalette::Base) &&
           colors.color(QPalette::HighlightedText) == colors.color(QPalette::Text);
  };
  edit_.SetText(u"hello");
  ASSERT_TRUE(form_.Focus(u"E"));
  edit_.SetSelStart(1);
  edit_.SetSelLength(3);
  EXPECT_FALSE(selection_hidden());
  ASSERT_TRUE(form_.Focus(u"M"));
  EXPECT_EQ(edit_.SelText(), u"ell");
  EXPECT_TRUE(selection_hidden());
  ASSERT_TRUE(form_.Focus(u"E"));
  EXPECT_EQ(edit_.SelText(), u"ell");
  EXPECT_FALSE(selection_hidden());
}

TEST_F(QtTextEditTest, MultiLineTypedValuesStayOnOneLine) {
  multi_.SetDataType(zktTDInteger);
  multi_.SetText(u"");
  ASSERT_TRUE(form_.Focus(u"M"));
  form_.TypeKeys(u"1^{TAB}{ENTER}2");
  EXPECT_EQ(multi_.Text(), u"12");
  multi_.SetDataType(zktTDText);
  form_.TypeKeys(u"{ENTER}3");
  EXPECT_EQ(multi_.Text(), u"12\r\n3");
}

}  // namespace
}  // namespace zk
