#include "controls/display/progress_bar.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "foundation/archive_utils.h"
#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"
#include "platform/common/memory_property_bag.h"
#include "tests/controls/form_fixture.h"

namespace zk {
namespace {

// A bag that remembers the order in which keys are read and written.
class RecordingBag final : public IPropertyBag {
 public:
  Variant ReadProperty(std::u16string_view key, const Variant& default_value) override {
    reads.emplace_back(key);
    return inner.ReadProperty(key, default_value);
  }
  void WriteProperty(std::u16string_view key, const Variant& value,
                     const Variant& default_value) override {
    writes.emplace_back(key);
    inner.WriteProperty(key, value, default_value);
  }

  MemoryPropertyBag inner;
  std::vector<std::u16string> reads;
  std::vector<std::u16string> writes;
};

class ProgressBarTest : public FormTest {
 protected:
  ProgressBarTest() {
    bar_ = &Add<ZKProgessBar>(u"ZKProgessBar", u"Bar");
    Resize(u"Bar", 3000, 375);
    Notified();
  }

  void Resize(std::u16string_view name, double width, double height) {
    DispatchObject& extender = *form_.FindExtender(name);
    extender.SetProperty(u"Width", Variant(width));
    extender.SetProperty(u"Height", Variant(height));
  }
  const std::vector<DrawnRect>& Drawn(std::u16string_view name = u"Bar") {
    return form_.FindSite(name)->Surface().DrawnRects();
  }
  // The width of the bar drawn last, for left-to-right bars.
  double BarWidth(std::u16string_view name = u"Bar") {
    const std::vector<DrawnRect>& drawn = Drawn(name);
    EXPECT_EQ(drawn.size(), 1u);
    return drawn.empty() ? -1 : drawn.back().right - drawn.back().left;
  }

  ZKProgessBar* bar_ = nullptr;
};

// The archive string of a new control without its extender block.
constexpr std::u16string_view kNewElements =
    u"0,F,0,T,0,100,-2147483643,0,-2147483640,16711680,\"MS Sans Serif\"#8.25#F#F#F#F,\"0\","
    u"F,\"\",0";

std::u16string ElementsAfterExtender(const std::u16string& archive) {
  const std::vector<std::u16string> elements = MArchiveUtils::ArchiveSplitElements(archive);
  std::u16string rest;
  for (size_t i = 1; i < elements.size(); ++i) {
    if (i > 1) rest += u",";
    rest += elements[i];
  }
  return rest;
}

TEST_F(ProgressBarTest, ANewBarIsEmptyAndShowsItsValue) {
  EXPECT_EQ(ElementsAfterExtender(bar_->GetArchiveStr()), kNewElements);
  EXPECT_EQ(bar_->Caption(), u"0");
  EXPECT_EQ(BarWidth(), 0);
  EXPECT_EQ(bar_->BackColor(), system_color::kWindowBackground);
  EXPECT_EQ(bar_->ForeColor(), system_color::kWindowText);
  EXPECT_EQ(bar_->CaptionElement().ForeColor(), system_color::kWindowText);
  EXPECT_EQ(bar_->CaptionElement().BackStyle(), 0);  // the bar shows through the caption
  EXPECT_FALSE(bar_->Picture());
}

TEST_F(ProgressBarTest, TheWorkedExamples) {
  // Scale 0 to 200, progress 50, 3000 twips wide: a quarter of the width.
  bar_->SetScaleMax(200);
  bar_->SetProgress(50);
  EXPECT_EQ(BarWidth(), 750);
  EXPECT_EQ(bar_->Caption(), u"50");
  bar_->SetPercentage(true);
  EXPECT_EQ(bar_->Caption(), u"25%");

  // Equal limits: range 1, no bar.
  bar_->SetPercentage(false);
  bar_->SetScaleMin(10);
  bar_->SetScaleMax(10);
  bar_->SetProgress(10);
  EXPECT_EQ(bar_->Progress(), 10);
  EXPECT_EQ(BarWidth(), 0);
  EXPECT_EQ(bar_->Caption(), u"10");
}

TEST_F(ProgressBarTest, AProgressOutsideTheScaleIsRefusedAndLimitsNeverMoveIt) {
  bar_->SetProgress(80);
  Notified();
  bar_->SetProgress(101);
  bar_->SetProgress(-1);
  EXPECT_EQ(bar_->Progress(), 80);
  EXPECT_TRUE(Notified().empty());
  bar_->SetScaleMax(50);
  EXPECT_EQ(bar_->Progress(), 80);
  // f = 80 / 50: the bar runs past the right edge, where the surface cuts it.
  EXPECT_EQ(BarWidth(), 4800);
  EXPECT_EQ(bar_->Caption(), u"80");
  bar_->SetScaleMin(90);
  bar_->SetScaleMax(200);
  EXPECT_EQ(bar_->Progress(), 80);
  // Below the scale: the bar lies left of the control, out of sight.
  ASSERT_EQ(Drawn().size(), 1u);
  EXPECT_EQ(Drawn()[0].left, 3000 * -10.0 / 110);
  EXPECT_EQ(Drawn()[0].right, 0);
  bar_->SetProgress(80);  // still outside
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"ScaleMax", u"ScaleMin", u"ScaleMax"}));
}

TEST_F(ProgressBarTest, ScaleMinAloneDoesNotRedrawButTheNextRedrawUsesIt) {
  bar_->SetProgress(50);
  ASSERT_EQ(BarWidth(), 1500);
  bar_->SetScaleMin(25);
  EXPECT_EQ(BarWidth(), 1500);
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"Progress", u"ScaleMin"}));
  bar_->SetBarColor(0xFF);
  EXPECT_EQ(BarWidth(), 1000);
}

TEST_F(ProgressBarTest, ARangeBeyond32BitsIsAnOverflowForTheWriter) {
  struct Case {
    int32_t scale_min;
    int32_t scale_max;
    bool overflows;
  };
  constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
  constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
  // The range is ScaleMax - ScaleMin; INT32_MIN still fits, INT32_MAX + 1 does not.
  const Case cases[] = {
      {0, kMax, false}, {-1, kMax, true},   {kMin, -1, false},
      {kMin, 0, true},  {kMin, kMax, true}, {kMax, -1, false},
      {kMax, -2, true}, {kMax, kMin, true}, {-1000000000, 1000000000, false},
  };
  for (const Case& c : cases) {
    auto& probe = Add<ZKProgessBar>(u"ZKProgessBar", u"Probe");
    bool raised = false;
    try {
      // From the scale 0 to 100, ScaleMax alone always fits; ScaleMin then decides.
      probe.SetScaleMax(c.scale_max);
      probe.SetScaleMin(c.scale_min);
    } catch (const ZKError& error) {
      raised = true;
      EXPECT_EQ(error.Number(), error_number::kOverflow);
      EXPECT_EQ(probe.ScaleMin(), c.scale_min);  // stored all the same
    }
    EXPECT_EQ(raised, c.overflows) << c.scale_min << " to " << c.scale_max;
    form_.RemoveControl(u"Probe");
  }
}

TEST_F(ProgressBarTest, AnOverflowingLimitIsStoredAndEveryRedrawRaisesUntilItIsFixed) {
  bar_->SetScaleMin(-2000000000);
  Notified();
  EXPECT_THROW(bar_->SetScaleMax(2000000000), ZKError);
  EXPECT_EQ(bar_->ScaleMax(), 2000000000);
  EXPECT_TRUE(Notified().empty());
  EXPECT_THROW(bar_->SetProgress(0), ZKError);
  EXPECT_EQ(bar_->Progress(), 0);
  // Through automation the host sees error 6.
  try {
    bar_->SetProperty(u"BarColor", Variant(int32_t{255}));
    ADD_FAILURE() << "no overflow";
  } catch (const ZKError& error) {
    EXPECT_EQ(error.Number(), error_number::kOverflow);
  }
  // A resize cannot raise to anybody: it is traced.
  Resize(u"Bar", 2000, 375);
  EXPECT_EQ(TraceProcedures(), (std::vector<std::u16string>{u"Resize"}));
  bar_->SetScaleMax(0);
  bar_->SetProgress(-500000000);
  EXPECT_EQ(BarWidth(), 1500);
}

TEST_F(ProgressBarTest, CaptionTextFollowsShowProgressAndPercentage) {
  struct Case {
    int32_t scale_min, scale_max, progress;
    bool percentage;
    std::u16string_view caption;
  };
  const Case cases[] = {
      {0, 100, 37, false, u"37"},  {-10, 10, -5, false, u"-5"},  {0, 100, 0, true, u"0%"},
      {0, 100, 37, true, u"37%"},  {0, 100, 100, true, u"100%"}, {0, 200, 50, true, u"25%"},
      {0, 3, 1, true, u"33%"},     {0, 3, 2, true, u"67%"},      {0, 8, 1, true, u"13%"},
      {-50, 50, -50, true, u"0%"}, {-50, 50, 0, true, u"50%"},   {10, 10, 10, true, u"0%"},
      {0, 1000, 5, true, u"1%"},   {0, 1000, 4, true, u"0%"},
  };
  for (const Case& c : cases) {
    bar_->SetScaleMin(-100);
    bar_->SetScaleMax(1000);
    bar_->SetProgress(c.progress);
    bar_->SetScaleMin(c.scale_min);
    bar_->SetScaleMax(c.scale_max);
    bar_->SetPercentage(c.percentage);
    EXPECT_EQ(bar_->Caption(), c.caption)
        << c.progress << " of " << c.scale_min << " to " << c.scale_max;
  }
}

TEST_F(ProgressBarTest, AHostCaptionLastsUntilTheNextRedrawWhileShowProgressIsOn) {
  bar_->SetProgress(10);
  bar_->SetCaption(u"Saving");
  EXPECT_EQ(bar_->Caption(), u"Saving");
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"Progress", u"Caption"}));
  bar_->SetBorderStyle(zktBSSolid);  // fitting to the border is no redraw of the value
  EXPECT_EQ(bar_->Caption(), u"Saving");
  bar_->SetProgress(20);
  EXPECT_EQ(bar_->Caption(), u"20");

  bar_->SetCaption(u"Saving");
  bar_->SetCaptionAnchor(zktPAnchorScaleMin);  // the caption is updated, though not the bar
  EXPECT_EQ(bar_->Caption(), u"20");

  bar_->SetShowProgress(false);
  bar_->SetCaption(u"Saving");
  for (int32_t progress : {30, 40, 50}) {
    bar_->SetProgress(progress);
    EXPECT_EQ(bar_->Caption(), u"Saving");
  }
  bar_->SetPercentage(true);
  bar_->SetCaptionAnchor(zktPAnchorCenter);
  EXPECT_EQ(bar_->Caption(), u"Saving");
  bar_->SetShowProgress(true);
  EXPECT_EQ(bar_->Caption(), u"50%");
}

TEST_F(ProgressBarTest, RefusedValuesChangeNothingAndNotifyNothing) {
  struct Case {
    std::u16string_view property;
    int32_t refused;
    int32_t accepted_low;
    int32_t accepted_high;
  };
  const Case cases[] = {
      {u"Direction", 4, 0, 3},
      {u"CaptionAnchor", 5, 0, 4},
      {u"BorderStyle", 2, 0, 1},
      {u"Progress", 101, 0, 100},
  };
  for (const Case& c : cases) {
    const Variant before = bar_->GetProperty(c.property);
    Notified();
    bar_->SetProperty(c.property, Variant(c.refused));
    bar_->SetProperty(c.property, Variant(c.accepted_low - 1));
    EXPECT_TRUE(Notified().empty()) << Utf16ToUtf8(c.property);
    EXPECT_EQ(bar_->GetProperty(c.property).ToInt32(), before.ToInt32());
    for (int32_t value : {c.accepted_high, c.accepted_low}) {
      bar_->SetProperty(c.property, Variant(value));
      EXPECT_EQ(bar_->GetProperty(c.property).ToInt32(), value) << Utf16ToUtf8(c.property);
    }
    EXPECT_EQ(Notified().size(), 2u) << Utf16ToUtf8(c.property);
  }
}

TEST_F(ProgressBarTest, ArchiveRoundTripCarriesEveryElementButThePicture) {
  bar_->SetScaleMin(-20);
  bar_->SetScaleMax(300);
  bar_->SetProgress(250);
  bar_->SetPercentage(true);
  bar_->SetDirection(zktPBTopToBottom);
  bar_->SetBackColor(0x123456);
  bar_->SetBorderStyle(zktBSSolid);
  bar_->SetForeColor(0xFFFFFF);
  bar_->SetBarColor(0x00FF00);
  bar_->Font()->SetBold(true);
  bar_->SetDesignMode(true);
  bar_->SetControlGroup(u"Jobs, \"nightly\"");
  bar_->SetCaptionAnchor(zktPAnchorBelowLevel);
  bar_->SetShowProgress(false);
  bar_->SetCaption(u"Half, \"done\"");
  bar_->SetPicture(platform_.Pictures().MakePicture(2, 2, {}));
  const std::u16string archive = bar_->GetArchiveStr();
  EXPECT_EQ(MArchiveUtils::ArchiveSplitElements(archive).size(), 16u);

  auto& copy = Add<ZKProgessBar>(u"ZKProgessBar", u"Copy");
  copy.SetScaleMax(1000);  // so that the archived Progress fits when it is applied
  ASSERT_TRUE(copy.ParseArchiveStr(archive));
  EXPECT_EQ(ElementsAfterExtender(copy.GetArchiveStr()), ElementsAfterExtender(archive));
  EXPECT_EQ(copy.Progress(), 250);
  EXPECT_EQ(copy.ScaleMin(), -20);
  EXPECT_EQ(copy.Caption(), u"Half, \"done\"");
  EXPECT_EQ(copy.BorderStyle(), zktBSSolid);
  EXPECT_TRUE(copy.Font()->Bold());
  EXPECT_FALSE(copy.Picture());
  // The extender's size and place come along.
  EXPECT_EQ(form_.FindExtender(u"Copy")->GetProperty(u"Width").ToDouble(), 3000);

  // Clone copies what the archive carries, and so not the picture either.
  auto& clone = Add<ZKProgessBar>(u"ZKProgessBar", u"Clone");
  clone.SetScaleMax(1000);
  clone.Clone(form_.ControlRef(u"Bar"));
  EXPECT_EQ(clone.Progress(), 250);
  EXPECT_FALSE(clone.Picture());
}

TEST_F(ProgressBarTest, ProgressIsAppliedBeforeTheLimitsOfTheSameString) {
  bar_->SetScaleMax(500);
  bar_->SetProgress(300);
  const std::u16string archive = bar_->GetArchiveStr();
  auto& copy = Add<ZKProgessBar>(u"ZKProgessBar", u"Copy");
  // 300 lies outside the copy's scale (0 to 100) when it is applied: refused, not an error.
  EXPECT_TRUE(copy.ParseArchiveStr(archive));
  EXPECT_EQ(copy.Progress(), 0);
  EXPECT_EQ(copy.ScaleMax(), 500);
  EXPECT_TRUE(TraceProcedures().empty());
  // A second reading finds the scale in place.
  EXPECT_TRUE(copy.ParseArchiveStr(archive));
  EXPECT_EQ(copy.Progress(), 300);
  EXPECT_EQ(copy.Caption(), u"300");
}

TEST_F(ProgressBarTest, ArchiveFailuresStopAtTheFailingElementAndKeepWhatCameBefore) {
  struct Case {
    std::u16string_view elements;  // after the extender block
    bool accepted;
    std::u16string_view trace;
    int32_t progress;
    int32_t scale_max;
    OLE_COLOR back_color;
  };
  const Case cases[] = {
      // Limits whose range overflows: the elements after ScaleMax are not applied.
      {u"7,F,0,T,-2000000000,2000000000,255,0,0,0", false, u"ParseArchiveStr (el: 6)", 7,
       2000000000, system_color::kWindowBackground},
      // A string that ends early fails at the first missing element.
      {u"7,T", false, u"ParseArchiveStr (el: 3)", 7, 100, system_color::kWindowBackground},
      // A number that does not fit the property is an overflow of its own element.
      {u"7,F,0,T,0,5E+10", false, u"ParseArchiveStr (el: 6)", 7, 100,
       system_color::kWindowBackground},
      // A refused Direction is no failure.
      {u"7,F,9,T,0,100,255,0,0,0,\"Arial\"#9#F#F#F#F,\"x\",F,\"\",0", true, u"", 7, 100, 255},
      // Elements beyond the sixteenth are ignored.
      {u"7,F,0,T,0,100,255,0,0,0,\"Arial\"#9#F#F#F#F,\"x\",F,\"\",0,extra,more", true, u"", 7, 100,
       255},
  };
  const std::u16string extender =
      MArchiveUtils::ArchiveSplitElements(bar_->GetArchiveStr()).front();
  for (const Case& c : cases) {
    auto& target = Add<ZKProgessBar>(u"ZKProgessBar", u"Target");
    EXPECT_EQ(target.ParseArchiveStr(extender + u"," + std::u16string(c.elements)), c.accepted)
        << Utf16ToUtf8(c.elements);
    const std::vector<std::u16string> traces = TraceProcedures();
    if (c.trace.empty()) {
      EXPECT_TRUE(traces.empty());
    } else {
      EXPECT_EQ(traces, (std::vector<std::u16string>{std::u16string(c.trace)}));
    }
    EXPECT_EQ(target.Progress(), c.progress);
    EXPECT_EQ(target.ScaleMax(), c.scale_max);
    EXPECT_EQ(target.BackColor(), c.back_color);
    EXPECT_EQ(target.Direction(), zktPBLeftToRight);
    form_.RemoveControl(u"Target");
  }
}

TEST_F(ProgressBarTest, TheBagIsReadAndWrittenInItsOwnOrderWithoutChecks) {
  const std::vector<std::u16string> order = {
      u"BackColor", u"ForeColor", u"Font",         u"BorderStyle", u"Enabled",      u"DesignMode",
      u"Caption",   u"Progress",  u"ScaleMax",     u"Direction",   u"Percentage",   u"ShowProgress",
      u"BarColor",  u"ScaleMin",  u"ControlGroup", u"Picture",     u"CaptionAnchor"};
  const PictureRef picture = platform_.Pictures().MakePicture(3, 3, {});
  bar_->SetScaleMax(500);
  bar_->SetProgress(400);
  bar_->SetScaleMax(200);  // Progress now lies beyond the scale, and is saved so
  bar_->SetEnabled(false);
  bar_->SetPicture(picture);
  bar_->SetDirection(zktPBRightToLeft);
  RecordingBag bag;
  bar_->WriteProperties(bag);
  EXPECT_EQ(bag.writes, order);
  EXPECT_FALSE(bag.inner.Contains(u"ScaleMin"));  // equal to its default

  auto& loaded = Add<ZKProgessBar>(u"ZKProgessBar", u"Loaded");
  Resize(u"Loaded", 3000, 375);
  Notified();
  loaded.ReadProperties(bag);
  EXPECT_EQ(bag.reads, order);
  EXPECT_TRUE(Notified().empty());
  EXPECT_EQ(loaded.Progress(), 400);
  EXPECT_FALSE(loaded.Enabled());
  EXPECT_FALSE(loaded.CaptionElement().Enabled());
  EXPECT_EQ(loaded.Picture(), picture);
  // The loaded bar is drawn: twice the width, from the right edge leftward.
  ASSERT_EQ(Drawn(u"Loaded").size(), 1u);
  EXPECT_EQ(Drawn(u"Loaded")[0], (DrawnRect{-3000, 0, 3000, 375, 0xFF0000}));
  EXPECT_EQ(loaded.Caption(), u"400");
}

TEST_F(ProgressBarTest, APictureIsTheSurfacesBackgroundAndRedrawsTheBar) {
  bar_->SetProgress(30);
  const PictureRef picture = platform_.Pictures().MakePicture(4, 4, {});
  bar_->SetCaption(u"Busy");
  bar_->SetPicture(picture);
  EXPECT_EQ(form_.FindSite(u"Bar")->Surface().Picture(), picture);
  EXPECT_EQ(bar_->GetProperty(u"Picture").ToObject(), picture);
  EXPECT_EQ(bar_->Caption(), u"30");  // redrawn
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"Progress", u"Caption", u"Picture"}));
  bar_->SetProperty(u"Picture", Variant(ObjectRef()));
  EXPECT_FALSE(bar_->Picture());
  EXPECT_THROW(bar_->SetProperty(u"Picture", Variant(ObjectRef(bar_->Font()))), ZKError);
}

TEST_F(ProgressBarTest, ACaptionThatCannotBePlacedIsTracedAndStaysWhereItWas) {
  bar_->SetCaptionAnchor(zktPAnchorScaleMax);
  const double left = bar_->CaptionElement().Left();
  // So wide that centring the caption overflows 32 bits.
  bar_->SetCaptionAnchor(zktPAnchorCenter);
  Resize(u"Bar", 3000, 375);
  const double centred = bar_->CaptionElement().Left();
  EXPECT_NE(centred, left);
  Resize(u"Bar", 4e9, 375);
  EXPECT_EQ(TraceProcedures(), (std::vector<std::u16string>{u"UpdateCaption"}));
  EXPECT_EQ(bar_->CaptionElement().Left(), centred);
  // The bar itself was drawn.
  EXPECT_EQ(Drawn().back().bottom, 375);
  // Anchored at an end the caption needs no centring along the bar.
  bar_->SetCaptionAnchor(zktPAnchorScaleMax);
  EXPECT_TRUE(TraceProcedures().empty());
  EXPECT_EQ(bar_->CaptionElement().Left(), 4e9 - bar_->CaptionElement().Width());
}

TEST_F(ProgressBarTest, MouseOnTheCaptionIsReportedInControlCoordinatesWithTheTooltip) {
  std::vector<std::u16string> events;
  auto observer =
      bar_->EventRaised().Connect([&](std::u16string_view name, std::span<const Variant> args) {
        std::u16string line(name);
        for (const Variant& arg : args)
          line += u" " + arg.ToText();
        events.push_back(line);
      });
  form_.FindExtender(u"Bar")->SetProperty(u"ToolTipText", Variant(u"Copying"));
  const ILabelElement& caption = bar_->CaptionElement();
  const auto x = static_cast<float>(caption.Left() + 10);
  const auto y = static_cast<float>(caption.Top() + 10);
  ASSERT_GT(caption.Left(), 10);
  form_.DeliverMouse(u"Bar", MouseAction::kMove, 0, 0, x, y);
  form_.DeliverMouse(u"Bar", MouseAction::kDown, 1, 1, x, y);
  form_.DeliverMouse(u"Bar", MouseAction::kUp, 1, 1, x, y);
  form_.DeliverMouse(u"Bar", MouseAction::kDown, 2, 0, 5, 5);  // the bar's own area
  form_.DeliverMouse(u"Bar", MouseAction::kUp, 2, 0, 5, 5);
  form_.DeliverMouse(u"Bar", MouseAction::kDoubleDown, 1, 0, x, y);
  const std::u16string at =
      Utf8ToUtf16(std::to_string(static_cast<int>(x)) + " " + std::to_string(static_cast<int>(y)));
  EXPECT_EQ(events,
            (std::vector<std::u16string>{u"MouseMove 0 0 " + at, u"MouseDown 1 1 " + at,
                                         u"MouseUp 1 1 " + at, u"Click", u"MouseDown 2 0 5 5",
                                         u"MouseUp 2 0 5 5", u"Click", u"DblClick"}));
  EXPECT_EQ(caption.ToolTipText(), u"Copying");
}

TEST_F(ProgressBarTest, AutomationNamesTheStandardMembersAndNumbersTheEvents) {
  const AutomationTable& automation = bar_->Automation();
  struct Case {
    std::u16string_view name;
    int32_t dispid;
  };
  for (const Case& c : {Case{u"Enabled", -514}, Case{u"Caption", -518}, Case{u"Font", -512}}) {
    const MemberInfo* member = automation.Find(c.name);
    ASSERT_NE(member, nullptr) << Utf16ToUtf8(c.name);
    EXPECT_EQ(member->dispid, c.dispid) << Utf16ToUtf8(c.name);
  }
  const std::vector<std::u16string_view> events = {u"Click", u"MouseDown", u"MouseMove", u"MouseUp",
                                                   u"DblClick"};
  ASSERT_EQ(automation.Events().size(), events.size());
  for (size_t i = 0; i < events.size(); ++i) {
    EXPECT_EQ(automation.Events()[i].name, events[i]);
    EXPECT_EQ(automation.Events()[i].dispid, static_cast<int32_t>(i + 1));
  }
  EXPECT_THROW(bar_->GetProperty(u"Value"), ZKError);
  EXPECT_EQ(bar_->GetProperty(u"hWnd").ToInt32(), form_.FindSite(u"Bar")->Surface().hWnd());
}

}  // namespace
}  // namespace zk
