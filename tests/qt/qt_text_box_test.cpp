#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <memory>
#include <string>

#include "platform/window_messages.h"
#include "qt_fixture.h"

namespace zk {
namespace {

class QtTextBoxTest : public QtFormTest {
 protected:
  std::unique_ptr<ITextBoxElement> MakeBox(bool multi_line) {
    AddLabel(u"Host", 3000, 1500);
    auto box = form_.FindSite(u"Host")->Surface().CreateTextBox(multi_line);
    box->Move(0, 0, 3000, 1500);
    return box;
  }
  // Sends a key to the box's widget as the keyboard does.
  void Type(ITextBoxElement& box, int key, const QString& text = {},
            Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* widget = platform_.Windows().Widget(box.hWnd());
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(widget, &release);
  }
};

TEST_F(QtTextBoxTest, TypingGoesThroughTheEventsAndTheLimit) {
  auto box = MakeBox(false);
  int changes = 0;
  auto change = box->Change().Connect([&] { ++changes; });
  auto press = box->KeyPress().Connect([](int16_t& character) {
    if (character == u'a') character = u'A';
    if (character == u'x') character = 0;
  });
  box->SetMaxLength(3);
  Type(*box, Qt::Key_A, QStringLiteral("a"));
  Type(*box, Qt::Key_X, QStringLiteral("x"));
  Type(*box, Qt::Key_B, QStringLiteral("b"));
  Type(*box, Qt::Key_C, QStringLiteral("c"));
  Type(*box, Qt::Key_D, QStringLiteral("d"));  // beyond the limit
  EXPECT_EQ(box->Text(), u"Abc");
  EXPECT_EQ(changes, 3);
  platform_.Windows().SendMessage(box->hWnd(), window_message::kEditUndo, 0, 0);
  EXPECT_EQ(box->Text(), u"");         // the typing run is taken back whole
  box->SetText(u"longer than three");  // the program may set more
  EXPECT_EQ(box->Text(), u"longer than three");
  box->SetAlignment(2);
  EXPECT_EQ(box->MaxLength(), 0);
}

TEST_F(QtTextBoxTest, KeysTypeWhatTheClassicKeyboardTypesHoweverXReportsTheirText) {
  auto box = MakeBox(false);
  int16_t pressed = -1;
  auto press = box->KeyPress().Connect([&](int16_t& character) { pressed = character; });
  struct Row {
    const char* what;
    int key;
    Qt::KeyboardModifiers modifiers;
    QString text;
    int32_t caret;
    int16_t character;  // -1: no KeyPress
    std::u16string result;
    int32_t sel_start;
    int32_t sel_length;
  };
  const Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
  const Row rows[] = {
      {"Ctrl+H with its control character", Qt::Key_H, ctrl, QStringLiteral("\x08"), 3, 8, u"ab", 2,
       0},
      {"Ctrl+H without text", Qt::Key_H, ctrl, {}, 3, 8, u"ab", 2, 0},
      {"Ctrl+Backspace reported as DEL", Qt::Key_Backspace, ctrl, QStringLiteral("\x7f"), 3, 127,
       u"abc", 3, 0},
      {"Ctrl+Backspace reported as BS", Qt::Key_Backspace, ctrl, QStringLiteral("\b"), 3, 127,
       u"abc", 3, 0},
      {"Backspace", Qt::Key_Backspace, Qt::NoModifier, QStringLiteral("\b"), 3, 8, u"ab", 2, 0},
      {"Delete, which X reports as DEL", Qt::Key_Delete, Qt::NoModifier, QStringLiteral("\x7f"), 0,
       -1, u"bc", 0, 0},
      {"Ctrl+Space without text", Qt::Key_Space, ctrl, {}, 3, 32, u"abc ", 4, 0},
      {"Ctrl+Space with its blank", Qt::Key_Space, ctrl, QStringLiteral(" "), 1, 32, u"a bc", 2, 0},
      {"Ctrl+A", Qt::Key_A, ctrl, QStringLiteral("\x01"), 1, 1, u"abc", 0, 3},
      {"Alt with a letter types nothing", Qt::Key_X, Qt::AltModifier, QStringLiteral("x"), 3, -1,
       u"abc", 3, 0},
      {"Ctrl with a digit types nothing", Qt::Key_1, ctrl, QStringLiteral("1"), 3, -1, u"abc", 3,
       0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    box->SetText(u"abc");
    box->SetSelStart(row.caret);
    pressed = -1;
    Type(*box, row.key, row.text, row.modifiers);
    EXPECT_EQ(pressed, row.character);
    EXPECT_EQ(box->Text(), row.result);
    EXPECT_EQ(box->SelStart(), row.sel_start);
    EXPECT_EQ(box->SelLength(), row.sel_length);
  }
}

TEST_F(QtTextBoxTest, SeveralLinesTypeAndUndoInRuns) {
  auto box = MakeBox(true);
  int changes = 0;
  auto change = box->Change().Connect([&] { ++changes; });
  box->SetText(u"");
  Type(*box, Qt::Key_A, QStringLiteral("a"));
  Type(*box, Qt::Key_Return, QStringLiteral("\r"));
  Type(*box, Qt::Key_B, QStringLiteral("b"));
  Type(*box, Qt::Key_Tab, {}, Qt::ControlModifier);
  EXPECT_EQ(box->Text(), u"a\r\nb\t");
  EXPECT_EQ(box->SelStart(), 5);
  Type(*box, Qt::Key_Left);
  Type(*box, Qt::Key_Left);
  Type(*box, Qt::Key_Backspace, QStringLiteral("\b"));  // the break is one unit
  EXPECT_EQ(box->Text(), u"ab\t");
  EXPECT_EQ(box->SelStart(), 1);
  platform_.Windows().SendMessage(box->hWnd(), window_message::kEditUndo, 0, 0);
  EXPECT_EQ(box->Text(), u"a\r\nb\t");
  EXPECT_EQ(box->SelStart(), 3);
  Type(*box, Qt::Key_Z, QStringLiteral("\x1a"), Qt::ControlModifier);  // the undo taken back
  EXPECT_EQ(box->Text(), u"ab\t");
  // The typing was one run (the tab came by its own key, but right where the typing left off).
  box->SetText(u"");
  changes = 0;
  for (const char* key : {"x", "y", "z"})
    Type(*box, Qt::Key_X + (key[0] - 'x'), QString::fromLatin1(key));
  EXPECT_EQ(changes, 3);
  EXPECT_EQ(platform_.Windows().SendMessage(box->hWnd(), window_message::kEditUndo, 0, 0), 1);
  EXPECT_EQ(box->Text(), u"");
  EXPECT_EQ(changes, 4);
  box->SetText(u"new");  // nothing to undo after a text set by the program
  EXPECT_EQ(platform_.Windows().SendMessage(box->hWnd(), window_message::kEditUndo, 0, 0), 0);
  EXPECT_EQ(box->Text(), u"new");
}

TEST_F(QtTextBoxTest, MultiLineTextsCountLineBreaksAsCrLf) {
  auto box = MakeBox(true);
  box->SetText(u"ab\r\ncd");
  EXPECT_EQ(box->Text(), u"ab\r\ncd");
  box->SetSelStart(4);
  box->SetSelLength(2);
  EXPECT_EQ(box->SelText(), u"cd");
  EXPECT_EQ(box->SelStart(), 4);
  box->SetSelStart(2);
  box->SetSelLength(4);
  EXPECT_EQ(box->SelText(), u"\r\ncd");
  box->SetSelText(u"!\r\n?");
  EXPECT_EQ(box->Text(), u"ab!\r\n?");
}

TEST_F(QtTextBoxTest, BothEditorsDrawTheClassicBorders) {
  for (const bool multi_line : {false, true}) {
    auto box = MakeBox(multi_line);
    box->SetBackColor(0xFFFFFF);
    QWidget* widget = platform_.Windows().Widget(box->hWnd());
    const QPalette& colors = widget->palette();
    const QRgb white = qRgb(255, 255, 255);
    struct Row {
      int16_t style;
      int16_t appearance;
      QRgb outer_top_left, inner_top_left, outer_bottom_right, inner_bottom_right;
    };
    const Row rows[] = {
        {0, 1, white, white, white, white},
        {1, 0, qRgb(0, 0, 0), white, qRgb(0, 0, 0), white},
        {1, 1, colors.color(QPalette::Dark).rgb(), colors.color(QPalette::Shadow).rgb(),
         colors.color(QPalette::Light).rgb(), colors.color(QPalette::Midlight).rgb()},
    };
    for (const Row& row : rows) {
      SCOPED_TRACE(testing::Message() << "multi-line " << multi_line << ", border " << row.style
                                      << ", appearance " << row.appearance);
      box->SetBorderStyle(row.style);
      box->SetAppearance(row.appearance);
      const QImage image = widget->grab().toImage();
      const int right = image.width() - 1;
      const int bottom = image.height() - 1;
      EXPECT_EQ(image.pixel(0, 0), row.outer_top_left);
      EXPECT_EQ(image.pixel(1, 1), row.inner_top_left);
      EXPECT_EQ(image.pixel(right, bottom), row.outer_bottom_right);
      EXPECT_EQ(image.pixel(right - 1, bottom - 1), row.inner_bottom_right);
      EXPECT_EQ(image.pixel(right / 2, bottom - 2), white);  // the editor's own background
    }
    box.reset();
    form_.RemoveAll();
  }
}

}  // namespace
}  // namespace zk
