// Where a progress bar draws its bar and puts its caption, for every direction and anchor.
// The form has 20 twips to the pixel and the caption a font whose characters are 4 pixels wide
// and 9 high, so the five-character caption "ABCDE" is 400 by 180 twips.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/display/progress_bar.h"
#include "tests/controls/form_fixture.h"

namespace zk {
namespace {

class ProgressBarLayoutTest : public FormTest {
 protected:
  ProgressBarLayoutTest() {
    form_.SetAmbient(u"TwipsPerPixel", Variant(20.0));
    bar_ = &Add<ZKProgessBar>(u"ZKProgessBar", u"Bar");
    bar_->Font()->SetSize(5.5);
    bar_->SetShowProgress(false);
    bar_->SetCaption(u"ABCDE");
  }

  void Resize(double width, double height) {
    DispatchObject& extender = *form_.FindExtender(u"Bar");
    extender.SetProperty(u"Width", Variant(width));
    extender.SetProperty(u"Height", Variant(height));
  }
  const std::vector<DrawnRect>& Drawn() { return form_.FindSite(u"Bar")->Surface().DrawnRects(); }

  ZKProgessBar* bar_ = nullptr;
};

struct LayoutCase {
  zktPBDirection direction;
  zktProgressBarAnchor anchor;
  int32_t progress;
  DrawnRect bar;
  double caption_left;
  double caption_top;
};

constexpr OLE_COLOR kBlue = 0xFF0000;

// Horizontal bars are 3000 by 600 twips, vertical ones 600 by 3000; the scale is 0 to 100.
const LayoutCase kCases[] = {
    // Left to right: the level is f x W.
    {zktPBLeftToRight, zktPAnchorCenter, 50, {0, 0, 1500, 600, kBlue}, 1300, 210},
    {zktPBLeftToRight, zktPAnchorScaleMax, 50, {0, 0, 1500, 600, kBlue}, 2600, 210},
    {zktPBLeftToRight, zktPAnchorScaleMin, 50, {0, 0, 1500, 600, kBlue}, 0, 210},
    {zktPBLeftToRight, zktPAnchorAboveLevel, 50, {0, 0, 1500, 600, kBlue}, 1500, 210},
    {zktPBLeftToRight, zktPAnchorAboveLevel, 95, {0, 0, 2850, 600, kBlue}, 2600, 210},
    {zktPBLeftToRight, zktPAnchorBelowLevel, 50, {0, 0, 1500, 600, kBlue}, 1100, 210},
    {zktPBLeftToRight, zktPAnchorBelowLevel, 10, {0, 0, 300, 600, kBlue}, 0, 210},
    // Right to left: the level is W - f x W; ScaleMax lies at the left edge.
    {zktPBRightToLeft, zktPAnchorCenter, 25, {2250, 0, 3000, 600, kBlue}, 1300, 210},
    {zktPBRightToLeft, zktPAnchorScaleMax, 25, {2250, 0, 3000, 600, kBlue}, 0, 210},
    {zktPBRightToLeft, zktPAnchorScaleMin, 25, {2250, 0, 3000, 600, kBlue}, 2600, 210},
    {zktPBRightToLeft, zktPAnchorAboveLevel, 50, {1500, 0, 3000, 600, kBlue}, 1100, 210},
    {zktPBRightToLeft, zktPAnchorAboveLevel, 95, {150, 0, 3000, 600, kBlue}, 0, 210},
    {zktPBRightToLeft, zktPAnchorBelowLevel, 50, {1500, 0, 3000, 600, kBlue}, 1500, 210},
    {zktPBRightToLeft, zktPAnchorBelowLevel, 10, {2700, 0, 3000, 600, kBlue}, 2600, 210},
    // Bottom to top: the level is H - f x H; ScaleMax lies at the top.
    {zktPBBottomToTop, zktPAnchorCenter, 25, {0, 2250, 600, 3000, kBlue}, 100, 1410},
    {zktPBBottomToTop, zktPAnchorScaleMax, 25, {0, 2250, 600, 3000, kBlue}, 100, 0},
    {zktPBBottomToTop, zktPAnchorScaleMin, 25, {0, 2250, 600, 3000, kBlue}, 100, 2820},
    {zktPBBottomToTop, zktPAnchorAboveLevel, 50, {0, 1500, 600, 3000, kBlue}, 100, 1320},
    {zktPBBottomToTop, zktPAnchorAboveLevel, 97, {0, 90, 600, 3000, kBlue}, 100, 0},
    {zktPBBottomToTop, zktPAnchorBelowLevel, 50, {0, 1500, 600, 3000, kBlue}, 100, 1500},
    {zktPBBottomToTop, zktPAnchorBelowLevel, 5, {0, 2850, 600, 3000, kBlue}, 100, 2820},
    // Top to bottom: the level is f x H.
    {zktPBTopToBottom, zktPAnchorCenter, 25, {0, 0, 600, 750, kBlue}, 100, 1410},
    {zktPBTopToBottom, zktPAnchorScaleMax, 25, {0, 0, 600, 750, kBlue}, 100, 2820},
    {zktPBTopToBottom, zktPAnchorScaleMin, 25, {0, 0, 600, 750, kBlue}, 100, 0},
    {zktPBTopToBottom, zktPAnchorAboveLevel, 50, {0, 0, 600, 1500, kBlue}, 100, 1500},
    {zktPBTopToBottom, zktPAnchorAboveLevel, 95, {0, 0, 600, 2850, kBlue}, 100, 2820},
    {zktPBTopToBottom, zktPAnchorBelowLevel, 50, {0, 0, 600, 1500, kBlue}, 100, 1320},
    {zktPBTopToBottom, zktPAnchorBelowLevel, 3, {0, 0, 600, 90, kBlue}, 100, 0},
};

TEST_F(ProgressBarLayoutTest, BarAndCaptionForEveryDirectionAndAnchor) {
  ASSERT_EQ(bar_->CaptionElement().Width(), 400);
  ASSERT_EQ(bar_->CaptionElement().Height(), 180);
  for (const LayoutCase& c : kCases) {
    const bool vertical = c.direction == zktPBBottomToTop || c.direction == zktPBTopToBottom;
    Resize(vertical ? 600 : 3000, vertical ? 3000 : 600);
    bar_->SetDirection(c.direction);
    bar_->SetCaptionAnchor(c.anchor);
    bar_->SetProgress(c.progress);
    const std::string where = "direction " + std::to_string(c.direction) + ", anchor " +
                              std::to_string(c.anchor) + ", progress " + std::to_string(c.progress);
    ASSERT_EQ(Drawn().size(), 1u) << where;
    EXPECT_EQ(Drawn()[0], c.bar) << where << ": bar " << Drawn()[0].left << "," << Drawn()[0].top
                                 << " - " << Drawn()[0].right << "," << Drawn()[0].bottom;
    EXPECT_EQ(bar_->CaptionElement().Left(), c.caption_left) << where;
    EXPECT_EQ(bar_->CaptionElement().Top(), c.caption_top) << where;
    EXPECT_EQ(bar_->Caption(), u"ABCDE") << where;
  }
}

TEST_F(ProgressBarLayoutTest, ACentredCaptionRoundsTheFreeSpaceThenDropsTheOddHalf) {
  struct Case {
    double width;
    double left;
  };
  // Free space W - 400: 2601 halves to 1300; 2600.5 rounds to the even 2600; 2601.5 to 2602.
  const Case cases[] = {{3000, 1300}, {3001, 1300}, {3000.5, 1300}, {3001.5, 1301}, {3003, 1301}};
  for (const Case& c : cases) {
    Resize(c.width, 600);
    EXPECT_EQ(bar_->CaptionElement().Left(), c.left) << "width " << c.width;
  }
}

TEST_F(ProgressBarLayoutTest, AnchorWritesPlaceTheCaptionWithoutRedrawingTheBar) {
  Resize(3000, 600);
  bar_->SetProgress(40);
  form_.FindSite(u"Bar")->Surface().FillRect(0, 0, 20, 20, 0x00FF00);  // a mark a redraw clears
  bar_->SetCaptionAnchor(zktPAnchorAboveLevel);
  EXPECT_EQ(bar_->CaptionElement().Left(), 1200);
  ASSERT_EQ(Drawn().size(), 2u);
  EXPECT_EQ(Drawn()[1].color, 0x00FF00u);
  bar_->SetBarColor(0xFF);
  ASSERT_EQ(Drawn().size(), 1u);
  EXPECT_EQ(Drawn()[0], (DrawnRect{0, 0, 1200, 600, 0xFF}));
}

TEST_F(ProgressBarLayoutTest, TheBarAndCaptionKeepInsideTheBorder) {
  // A one-pixel border (20 twips) on each side leaves an inner area of 2960 by 560.
  Resize(3000, 600);
  bar_->SetProgress(50);
  bar_->SetCaptionAnchor(zktPAnchorScaleMax);
  bar_->SetBorderStyle(zktBSSolid);
  ASSERT_EQ(Drawn().size(), 1u);
  EXPECT_EQ(Drawn()[0], (DrawnRect{0, 0, 1480, 560, kBlue}));
  EXPECT_EQ(bar_->CaptionElement().Left(), 2560);
  EXPECT_EQ(bar_->CaptionElement().Top(), 190);
  bar_->SetBorderStyle(zktBSNone);
  EXPECT_EQ(Drawn()[0], (DrawnRect{0, 0, 1500, 600, kBlue}));
  EXPECT_EQ(bar_->CaptionElement().Left(), 2600);
}

TEST_F(ProgressBarLayoutTest, AControlSmallerThanItsCaptionGrowsToFitIt) {
  struct Case {
    double width, height;
    double grown_width, grown_height;
    zktCmdBorderStyle border;
  };
  const Case cases[] = {
      {100, 600, 400, 600, zktBSNone},
      {3000, 60, 3000, 180, zktBSNone},
      {20, 20, 400, 180, zktBSNone},
      {400, 180, 400, 180, zktBSNone},
      // With the border the inner area is what must hold the caption.
      {100, 100, 440, 220, zktBSSolid},
  };
  DispatchObject& extender = *form_.FindExtender(u"Bar");
  for (const Case& c : cases) {
    bar_->SetBorderStyle(c.border);
    Resize(c.width, c.height);
    EXPECT_EQ(extender.GetProperty(u"Width").ToDouble(), c.grown_width) << c.width;
    EXPECT_EQ(extender.GetProperty(u"Height").ToDouble(), c.grown_height) << c.height;
    bar_->SetBorderStyle(zktBSNone);
    Resize(3000, 600);
  }
}

}  // namespace
}  // namespace zk
