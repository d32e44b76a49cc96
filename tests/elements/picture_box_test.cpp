#include <memory>
#include <string>
#include <vector>

#include "list_box_fixture.h"
#include "platform/platform.h"

namespace zk {
namespace {

template <typename Host>
using PictureBoxTest = ListBoxTest<Host>;
TYPED_TEST_SUITE(PictureBoxTest, Hosts, HostNames);

using Lines = std::vector<std::u16string>;

TYPED_TEST(PictureBoxTest, ColoursBorderAndPlaceReadBack) {
  std::unique_ptr<IPictureBoxElement> box = this->surface_->CreatePictureBox();
  // A classic picture box: button face, a 3-D border.
  EXPECT_EQ(box->BackColor(), 0x8000000Fu);
  EXPECT_EQ(box->BorderStyle(), 1);
  EXPECT_EQ(box->Appearance(), 1);
  box->SetBackColor(0x00C0FFC0);
  box->SetBorderStyle(0);
  box->SetAppearance(0);
  box->Move(450, 150, 15, 1200);
  EXPECT_EQ(box->BackColor(), 0x00C0FFC0u);
  EXPECT_EQ(box->BorderStyle(), 0);
  EXPECT_EQ(box->Appearance(), 0);
  EXPECT_EQ(this->host_.ParentWindow(box->hWnd()), this->surface_->hWnd());
  PixelRect rect;
  ASSERT_TRUE(CurrentPlatform().Windows().GetWindowRect(box->hWnd(), rect));
  EXPECT_EQ(rect.Width(), 1);
  EXPECT_EQ(rect.Height(), 80);
}

TYPED_TEST(PictureBoxTest, TheBoxMakesItsOwnClicksAboveTheControlsLabel) {
  std::unique_ptr<IPictureBoxElement> box = this->surface_->CreatePictureBox();
  box->Move(3000, 2550, 1500, 900);
  Lines events;
  auto log = [&events](std::u16string line) { events.push_back(std::move(line)); };
  ScopedConnection down = box->MouseDown().Connect([&](int16_t button, int16_t, float x, float y) {
    const std::string line = "MouseDown(" + std::to_string(button) + "," +
                             std::to_string(static_cast<int>(x)) + "," +
                             std::to_string(static_cast<int>(y)) + ")";
    log(std::u16string(line.begin(), line.end()));
  });
  ScopedConnection click = box->Click().Connect([&] { log(u"Click"); });
  ScopedConnection dbl_click = box->DblClick().Connect([&] { log(u"DblClick"); });
  ScopedConnection label = this->composite_->Click.Connect([&] { log(u"C Click"); });
  this->ClickAt(3150, 2700);
  this->Mouse(MouseAction::kDoubleDown, 1, 3150, 2700);
  this->Mouse(MouseAction::kUp, 1, 3150, 2700);
  EXPECT_EQ(events, (Lines{u"MouseDown(1,150,150)", u"Click", u"DblClick"}));
  events.clear();
  // Hidden, it lets the press through to the control's own label.
  box->SetVisible(false);
  this->ClickAt(3150, 2700);
  EXPECT_EQ(events, (Lines{u"C Click"}));
}

}  // namespace
}  // namespace zk
