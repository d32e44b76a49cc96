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
  EXPECT_NE(box->Text(), u"Abc");      // the last edit is taken back
  box->SetText(u"longer than three");  // the program may set more
  EXPECT_EQ(box->Text(), u"longer than three");
  box->SetAlignment(2);
  EXPECT_EQ(box->MaxLength(), 0);
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
