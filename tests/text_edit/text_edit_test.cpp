#include "controls/text/text_edit.h"

#include <gtest/gtest.h>

#include "controls/form_fixture.h"
#include "controls/text/multi_line_text_edit.h"
#include "foundation/archive_utils.h"
#include "platform/common/memory_property_bag.h"
#include "text_edit_events.h"

namespace zk {
namespace {

using Lines = std::vector<std::u16string>;

class TextEditTest : public FormTest {
 protected:
  ZKTextEdit& edit_ = Add<ZKTextEdit>(u"ZKTextEdit", u"E");
  ZKMultiLineTextEdit& multi_ = Add<ZKMultiLineTextEdit>(u"ZKMultiLineTextEdit", u"M");
  EventLog events_{edit_};

  // Empties the box, gives it the focus and types the keys (SendKeys notation).
  void TypeInto(std::u16string_view name, std::u16string_view keys) {
    static_cast<ZKTextEdit*>(form_.FindControl(name))->SetText(u"");
    ASSERT_TRUE(form_.Focus(name));
    events_.Take();
    form_.TypeKeys(keys);
  }
};

TEST_F(TextEditTest, TypingRaisesKeyEventsAroundChangeAndForcedCaseChangesTwice) {
  TypeInto(u"E", u"a");
  EXPECT_EQ(events_.Take(), (Lines{u"KeyDown 65 0", u"KeyPress 97", u"Change", u"KeyUp 65 0"}));

  edit_.SetForceTextCase(zktTForceUpperCase);
  TypeInto(u"E", u"ab");
  EXPECT_EQ(edit_.Text(), u"AB");
  EXPECT_EQ(edit_.SelStart(), 2);  // the caret stays after what was typed
  EXPECT_EQ(events_.Take(),
            (Lines{u"KeyDown 65 0", u"KeyPress 97", u"Change", u"Change", u"KeyUp 65 0",
                   u"KeyDown 66 0", u"KeyPress 98", u"Change", u"Change", u"KeyUp 66 0"}));

  // Forcing keeps a caret in the middle of the text, and a text already in case changes once.
  edit_.SetText(u"WXYZ");
  edit_.SetSelStart(2);
  events_.Take();
  form_.TypeKeys(u"q{BS}");
  EXPECT_EQ(edit_.Text(), u"WXYZ");
  EXPECT_EQ(edit_.SelStart(), 2);
  EXPECT_EQ(events_.Take(),
            (Lines{u"KeyDown 81 0", u"KeyPress 113", u"Change", u"Change", u"KeyUp 81 0",
                   u"KeyDown 8 0", u"KeyPress 8", u"Change", u"KeyUp 8 0"}));
}

TEST_F(TextEditTest, HandlersChangeKeysAndTheControlUsesTheirValues) {
  ScopedConnection press = edit_.KeyPress.Connect([](int16_t& key) {
    if (key == u'x') key = u'y';
  });
  ScopedConnection down = edit_.KeyDown.Connect([this](int16_t& key, int16_t&) {
    // The step is done before the host sees the key.
    if (key == 38) {
      EXPECT_EQ(edit_.Text(), u"10");
    }
  });
  TypeInto(u"E", u"x");
  EXPECT_EQ(edit_.Text(), u"y");

  edit_.SetText(u"9");
  edit_.SetArrowKeyIncrement(1);
  form_.TypeKeys(u"{UP}");
  EXPECT_EQ(edit_.Text(), u"10");
  form_.TypeKeys(u"{DOWN}{DOWN}");
  EXPECT_EQ(edit_.Text(), u"8");
}

TEST_F(TextEditTest, TypedCharactersAreFilteredByKindBeforeTheHostSeesThem) {
  struct Row {
    zktTextDataType type;
    std::u16string_view keys;
    std::u16string_view text;
  };
  const Row rows[] = {
      {zktTDText, u"a1,.", u"a1,."},      {zktTDInteger, u"a-5.,{+}", u"-5+"},
      {zktTDDecimal, u"3,5,.1", u"3,51"}, {zktTDDate, u"12/05/20/05", u"12/05/2005"},
      {zktTDHour, u"10:3a0", u"10:30"},   {zktTDDateHour, u"1:2/3 4:5", u"12/3 4:5"},
  };
  edit_.SetDecimalSep(u",");
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << "type " << row.type);
    edit_.SetDataType(row.type);
    TypeInto(u"E", row.keys);
    EXPECT_EQ(edit_.Text(), row.text);
  }
  // A refused character still reaches the host, as 0.
  edit_.SetDataType(zktTDInteger);
  TypeInto(u"E", u"a");
  EXPECT_EQ(events_.Take(), (Lines{u"KeyDown 65 0", u"KeyPress 0", u"KeyUp 65 0"}));
}

TEST_F(TextEditTest, LeavingWithAnInvalidTextKeepsTheFocusAndBeepsOnce) {
  struct Row {
    zktTextDataType type;
    std::u16string_view format;
    std::u16string_view text;
    bool design_mode;
    bool stays;
  };
  const Row rows[] = {
      {zktTDInteger, u"", u"12a", false, true},      {zktTDInteger, u"", u"--5", false, true},
      {zktTDInteger, u"", u"", false, false},        {zktTDInteger, u"", u"-12", false, false},
      {zktTDDate, u"", u"31/02/2005", false, true},  {zktTDDate, u"", u"12/05/2005", false, false},
      {zktTDText, u"##-??", u"12-abc", false, true}, {zktTDText, u"##-??", u"12-ab", false, false},
      {zktTDInteger, u"", u"12a", true, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << "type " << row.type << " design " << row.design_mode);
    edit_.SetDataType(row.type);
    edit_.SetTextFormat(std::u16string(row.format));
    edit_.SetDesignMode(row.design_mode);
    edit_.SetText(std::u16string(row.text));
    ASSERT_TRUE(form_.Focus(u"E"));
    platform_.Recorder().beeps = 0;
    form_.Focus(u"M");
    EXPECT_EQ(form_.FocusedControl(), row.stays ? static_cast<ZKControl*>(&edit_) : &multi_);
    EXPECT_EQ(platform_.Recorder().beeps, row.stays ? 1 : 0);
    edit_.SetText(u"");
    form_.Focus(u"M");
  }
  // The case is forced once more on leaving: a case set after the text still applies.
  edit_.SetDataType(zktTDText);
  edit_.SetDesignMode(false);
  edit_.SetText(u"MiXed");
  edit_.SetForceTextCase(zktTForceLowerCase);
  form_.Focus(u"E");
  form_.Focus(u"M");
  EXPECT_EQ(edit_.Text(), u"mixed");
}

TEST_F(TextEditTest, AutoSelectTakesTheWholeTextOnFocus) {
  edit_.SetText(u"hello");
  edit_.SetSelStart(2);
  form_.Focus(u"E");
  EXPECT_EQ(edit_.SelLength(), 0);
  form_.Focus(u"M");
  edit_.SetAutoSelect(true);
  form_.Focus(u"E");
  EXPECT_EQ(edit_.SelStart(), 0);
  EXPECT_EQ(edit_.SelLength(), 5);
}

TEST_F(TextEditTest, ADisabledBoxShowsTheInactiveBorderColour) {
  edit_.SetBackColor(0xFF);
  EXPECT_EQ(edit_.TextBox().BackColor(), 0xFFu);
  edit_.SetEnabled(false);
  EXPECT_EQ(edit_.TextBox().BackColor(), system_color::kInactiveBorder);
  edit_.SetBackColor(0xFF00);
  EXPECT_EQ(edit_.TextBox().BackColor(), system_color::kInactiveBorder);
  EXPECT_EQ(edit_.BackColor(), 0xFF00u);
  edit_.SetEnabled(true);
  EXPECT_EQ(edit_.TextBox().BackColor(), 0xFF00u);
}

TEST_F(TextEditTest, WritesOutsideTheAcceptedValuesChangeAndNotifyNothing) {
  struct Row {
    std::u16string_view property;
    int32_t refused;
    int32_t accepted;
  };
  const Row rows[] = {
      {u"BorderStyle", 2, 0},       {u"Appearance", 5, 1},    {u"DataType", 6, 5},
      {u"DataType", -1, 0},         {u"ForceTextCase", 3, 2}, {u"Alignment", 3, 2},
      {u"MaxLength", 40000, 32767}, {u"MaxLength", -1, 0},    {u"SelStart", -1, 2},
      {u"SelLength", -1, 1},
  };
  edit_.SetText(u"Some text");
  Notified();
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << std::string(row.property.begin(), row.property.end()));
    const Variant before = edit_.GetProperty(row.property);
    edit_.SetProperty(row.property, Variant(row.refused));
    EXPECT_EQ(edit_.GetProperty(row.property).ToInt32(), before.ToInt32());
    EXPECT_TRUE(Notified().empty());
    edit_.SetProperty(row.property, Variant(row.accepted));
    EXPECT_EQ(edit_.GetProperty(row.property).ToInt32(), row.accepted);
    EXPECT_EQ(Notified(), (Lines{std::u16string(row.property)}));
  }
}

TEST_F(TextEditTest, AlignmentKeepsTheLengthLimit) {
  edit_.SetMaxLength(5);
  edit_.SetAlignment(zktTextAlignCenter);
  EXPECT_EQ(edit_.MaxLength(), 5);
  TypeInto(u"E", u"abcdef");
  EXPECT_EQ(edit_.Text(), u"abcde");
}

TEST_F(TextEditTest, DesignModeLocksTheBoxAndDiscardsEveryKey) {
  edit_.SetText(u"abc");
  edit_.SetDesignMode(true);
  EXPECT_TRUE(edit_.Locked());
  form_.Focus(u"E");
  form_.TypeKeys(u"{END}x{BS}");
  EXPECT_EQ(edit_.Text(), u"abc");
  edit_.SetLocked(false);
  form_.TypeKeys(u"{END}x{BS}");
  EXPECT_EQ(edit_.Text(), u"abc");  // the filter discards them even in a writable box
  edit_.SetDesignMode(false);
  EXPECT_FALSE(edit_.Locked());
  form_.TypeKeys(u"{END}x");
  EXPECT_EQ(edit_.Text(), u"abcx");

  // The archive's DesignMode comes after Locked and decides it.
  edit_.SetLocked(true);
  ASSERT_TRUE(multi_.ParseArchiveStr(edit_.GetArchiveStr()));
  EXPECT_FALSE(multi_.Locked());
}

TEST_F(TextEditTest, ArchiveStringsHaveTwentyFourElementsAndEachVariantReadsTheOther) {
  const auto elements = [](ZKControl& control) {
    return MArchiveUtils::ArchiveSplitElements(control.GetArchiveStr());
  };
  ASSERT_EQ(elements(edit_).size(), 24u);
  EXPECT_EQ(elements(edit_)[8], u"F");
  EXPECT_EQ(elements(multi_)[8], u"T");

  edit_.SetText(u"12,5");
  edit_.SetAlignment(zktTextAlignRight);
  edit_.SetAppearance(zktAp3d);
  edit_.SetBackColor(0xC0FFC0);
  edit_.SetBorderStyle(zktBSNone);
  edit_.SetForeColor(0x800000);
  edit_.SetDataType(zktTDDecimal);
  edit_.SetMaxLength(8);
  edit_.SetTextFormat(u"##,#");
  edit_.SetPasswordChar(u"*");
  edit_.SetDecimalSep(u",");
  edit_.SetHourSep(u".");
  edit_.SetDateSep(u"-");
  edit_.SetDateHourSep(u"T");
  edit_.SetAutoSelect(true);
  edit_.SetForceTextCase(zktTForceLowerCase);
  edit_.SetArrowKeyIncrement(0.25);
  edit_.SetControlGroup(u"amounts");
  edit_.Font()->SetBold(true);
  form_.FindSite(u"E")->Surface().SetMousePointer(mouse_pointer::kIbeam);

  // Everything after the extender block comes back, but the multi-line flag.
  const auto expect_same = [&](ZKControl& copy, std::u16string_view flag) {
    const auto written = elements(edit_);
    const auto read = elements(copy);
    ASSERT_EQ(read.size(), written.size());
    EXPECT_EQ(read[8], flag);
    for (size_t i = 1; i < written.size(); ++i) {
      if (i != 8) {
        EXPECT_EQ(read[i], written[i]) << "element " << i;
      }
    }
  };
  ASSERT_TRUE(multi_.ParseArchiveStr(edit_.GetArchiveStr()));
  expect_same(multi_, u"T");
  auto& other = Add<ZKTextEdit>(u"ZKTextEdit", u"F");
  other.Clone(form_.ControlRef(u"M"));
  expect_same(other, u"F");
}

TEST_F(TextEditTest, PropertyBagKeepsEveryPersistedProperty) {
  edit_.SetText(u"abc");
  edit_.SetDataType(zktTDHour);
  edit_.SetHourSep(u"h");
  edit_.SetMaxLength(7);
  edit_.SetAlignment(zktTextAlignRight);
  edit_.SetBackColor(0xFF);
  edit_.SetEnabled(false);
  edit_.SetDesignMode(true);
  edit_.SetLocked(false);
  MemoryPropertyBag bag;
  edit_.WriteProperties(bag);
  EXPECT_FALSE(bag.Contains(u"PasswordChar"));  // defaults are not stored
  auto& loaded = Add<ZKTextEdit>(u"ZKTextEdit", u"F");
  Notified();
  loaded.ReadProperties(bag);
  const auto properties = [](ZKControl& control) {
    auto elements = MArchiveUtils::ArchiveSplitElements(control.GetArchiveStr());
    elements.erase(elements.begin());  // the extender block names the control
    return elements;
  };
  EXPECT_EQ(properties(loaded), properties(edit_));
  EXPECT_TRUE(Notified().empty());
  // Read from the bag, the design flag does not lock the box, and the colour rule holds.
  EXPECT_FALSE(loaded.Locked());
  EXPECT_FALSE(loaded.Enabled());
  EXPECT_EQ(loaded.TextBox().BackColor(), system_color::kInactiveBorder);
}

TEST_F(TextEditTest, MultiLineDropsCtrlTabAndEnterOnlyInTypedValues) {
  EventLog events{multi_};
  const auto key_downs = [&events] {
    Lines downs;
    for (const std::u16string& line : events.Take()) {
      if (line.starts_with(u"KeyDown")) downs.push_back(line);
    }
    return downs;
  };
  multi_.SetDataType(zktTDInteger);
  TypeInto(u"M", u"1^{TAB}{ENTER}2");
  EXPECT_EQ(multi_.Text(), u"12");
  EXPECT_EQ(key_downs(),
            (Lines{u"KeyDown 49 0", u"KeyDown 0 2", u"KeyDown 13 0", u"KeyDown 50 0"}));

  multi_.SetDataType(zktTDText);
  TypeInto(u"M", u"1^{TAB}{ENTER}2");
  EXPECT_EQ(multi_.Text(), u"1\t\r\n2");  // a box of several lines types a tab on Ctrl+Tab
  EXPECT_EQ(key_downs(),
            (Lines{u"KeyDown 49 0", u"KeyDown 9 2", u"KeyDown 13 0", u"KeyDown 50 0"}));
  // The one-line box takes no line breaks whatever the kind.
  TypeInto(u"E", u"1{ENTER}2");
  EXPECT_EQ(edit_.Text(), u"12");
}

TEST_F(TextEditTest, UndoTakesBackTheLastEdit) {
  edit_.SetText(u"ab");
  form_.Focus(u"E");
  form_.TypeKeys(u"{END}c");
  edit_.Undo();
  EXPECT_EQ(edit_.Text(), u"ab");
  edit_.CallMethod(u"Undo");
  EXPECT_EQ(edit_.Text(), u"abc");
}

TEST_F(TextEditTest, AutomationPublishesTheTextAndFontIdentifiers) {
  EXPECT_EQ(edit_.Automation().Find(u"Text")->dispid, dispatch_id::kText);
  EXPECT_EQ(multi_.Automation().Find(u"Text")->dispid, dispatch_id::kText);
  EXPECT_EQ(edit_.Automation().Find(u"Font")->dispid, dispatch_id::kFont);
  EXPECT_GE(multi_.Automation().Find(u"Font")->dispid, dispatch_id::kFirstOwn);
  ASSERT_EQ(multi_.Automation().Events().size(), 9u);
  EXPECT_EQ(multi_.Automation().Events()[0].name, u"Change");
  EXPECT_EQ(multi_.Automation().Events()[8].name, u"MouseUp");
  // hWnd is the box's own window, which is where the undo message goes.
  EXPECT_EQ(edit_.GetProperty(u"hWnd").ToInt32(), edit_.TextBox().hWnd());
  EXPECT_NE(edit_.TextBox().hWnd(), form_.FindSite(u"E")->Surface().hWnd());
}

TEST_F(TextEditTest, MouseMovesCarryTheHostsToolTipIntoTheBox) {
  form_.FindExtender(u"E")->SetProperty(u"ToolTipText", Variant(u"Amount"));
  form_.DeliverMouse(u"E", MouseAction::kMove, 0, 1, 30, 45);
  EXPECT_EQ(edit_.TextBox().ToolTipText(), u"Amount");
  EXPECT_EQ(events_.Take(), (Lines{u"MouseMove 0 1 30 45"}));
}

}  // namespace
}  // namespace zk
