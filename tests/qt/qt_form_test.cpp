#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <string>
#include <vector>

#include "controls/text/text_edit.h"
#include "qt_fixture.h"

namespace zk {
namespace {

using Names = std::vector<std::u16string>;

class QtFormInputTest : public QtFormTest {
 protected:
  QtFormInputTest() {
    form_.FindExtender(u"Ok")->SetProperty(u"Left", Variant(3000.0));
    date_.SetDataType(zktTDDate);
    form_.Widget()->activateWindow();
  }

  // Where the middle of a control is, in the form window's pixels.
  QPoint MiddleOf(std::u16string_view name) {
    const QWidget* widget = form_.FindSite(name)->Surface().Widget();
    return widget->mapTo(form_.Widget(), widget->rect().center());
  }
  std::u16string Focused() {
    ZKControl* focused = form_.FocusedControl();
    return focused ? focused->Name() : u"(none)";
  }
  // What Ok raised since the last call, but mouse moves: the pointer may pass over it freely.
  Names OkEvents() {
    Names names = std::exchange(ok_events_, {});
    std::erase(names, u"MouseMove");
    return names;
  }

  ZKTextEdit& date_ = static_cast<ZKTextEdit&>(form_.AddControl(u"ZKTextEdit", u"Date"));
  ZKControl& ok_ = form_.AddControl(u"ZKColorButton", u"Ok");
  Names ok_events_;
  ScopedConnection ok_watch_ =
      ok_.EventRaised().Connect([this](std::u16string_view event, std::span<const Variant>) {
        ok_events_.emplace_back(event);
      });
};

// QTest's window events take the path of the window system's own: the form's window first,
// then the widget under the pointer, which Qt gives the focus on the way.
TEST_F(QtFormInputTest, APressFromTheWindowSystemAsksTheFocusedControlFirst) {
  QWindow* window = form_.Widget()->windowHandle();
  ASSERT_NE(window, nullptr);
  struct Row {
    const char* what;
    std::u16string text;
    bool double_click;
    std::u16string focused;
    Names ok_events;
    int beeps;
  };
  const Row rows[] = {
      {"an invalid date keeps the focus", u"45/13/2005", false, u"Date", {}, 1},
      {"and refuses both presses of a double click", u"45/13/2005", true, u"Date", {}, 2},
      {"a valid date lets it go",
       u"12/05/2005",
       false,
       u"Ok",
       {u"MouseDown", u"MouseUp", u"Click"},
       0},
      {"an empty text lets it go",
       u"",
       true,
       u"Ok",
       {u"MouseDown", u"MouseUp", u"Click", u"DblClick", u"MouseUp"},
       0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    date_.SetText(u"");
    ASSERT_TRUE(form_.Focus(u"Date"));
    date_.SetText(row.text);
    OkEvents();
    platform_.Recorder().beeps = 0;
    if (row.double_click) {
      QTest::mouseDClick(window, Qt::LeftButton, Qt::NoModifier, MiddleOf(u"Ok"));
    } else {
      QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, MiddleOf(u"Ok"));
    }
    QApplication::processEvents();
    EXPECT_EQ(Focused(), row.focused);
    EXPECT_EQ(OkEvents(), row.ok_events);
    EXPECT_EQ(platform_.Recorder().beeps, row.beeps);
  }
}

TEST_F(QtFormInputTest, TheFormsOwnInputAsksTheFocusedControlFirst) {
  ASSERT_TRUE(form_.Focus(u"Date"));
  date_.SetText(u"45/13/2005");
  OkEvents();
  form_.DeliverMouse(u"Ok", MouseAction::kDown, 1, 0, 100, 100);
  form_.DeliverMouse(u"Ok", MouseAction::kUp, 1, 0, 100, 100);
  form_.TypeKeys(u"{TAB}");
  EXPECT_EQ(Focused(), u"Date");
  EXPECT_TRUE(OkEvents().empty());
  date_.SetText(u"12/05/2005");
  form_.DeliverMouse(u"Ok", MouseAction::kDown, 1, 0, 100, 100);
  form_.DeliverMouse(u"Ok", MouseAction::kUp, 1, 0, 100, 100);
  EXPECT_EQ(Focused(), u"Ok");
  EXPECT_EQ(OkEvents(), (Names{u"MouseDown", u"MouseUp", u"Click"}));
}

TEST_F(QtFormTest, WidgetsAddedAfterTheFormIsShownAppear) {
  ASSERT_TRUE(form_.Widget()->isVisible());
  form_.SetAmbient(u"BackColor", Variant(int32_t{0xFF}));
  auto* save = new QPushButton(QStringLiteral("Save"), form_.Widget());
  auto* hidden = new QPushButton(QStringLiteral("Hidden"), form_.Widget());
  save->setGeometry(400, 300, 80, 30);
  hidden->setGeometry(400, 400, 80, 30);
  hidden->hide();
  auto* tool = new QWidget(form_.Widget(), Qt::Tool);
  AddLabel(u"Late");
  form_.AddControl(u"ZKTextEdit", u"LateEdit");
  form_.AddControl(u"ZKTextEdit", u"Unseen");
  form_.FindExtender(u"Unseen")->SetProperty(u"Visible", Variant(false));
  QApplication::processEvents();

  EXPECT_TRUE(save->isVisible());
  EXPECT_FALSE(hidden->isVisible());  // hidden on purpose
  EXPECT_FALSE(tool->isVisible());    // a window of its own is not part of the form
  EXPECT_TRUE(form_.FindSite(u"Late")->Surface().Widget()->isVisible());
  EXPECT_TRUE(form_.FindSite(u"LateEdit")->Surface().Widget()->isVisible());
  const auto& late_edit = static_cast<ZKTextEdit&>(*form_.FindControl(u"LateEdit"));
  EXPECT_TRUE(platform_.Windows().Widget(late_edit.TextBox().hWnd())->isVisible());
  EXPECT_FALSE(form_.FindSite(u"Unseen")->Surface().Widget()->isVisible());
  // What is shown is drawn: the button's face is in the form's picture.
  const QImage image = form_.Widget()->grab().toImage();
  EXPECT_NE(image.pixel(save->geometry().center()), qRgb(255, 0, 0));
  EXPECT_EQ(image.pixel(hidden->geometry().center()), qRgb(255, 0, 0));
  delete tool;
}

}  // namespace
}  // namespace zk
