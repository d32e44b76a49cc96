#include "hosting/archive_explainer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"
#include "hosting/headless_form.h"

namespace zk {
namespace {

class ArchiveExplainerTest : public testing::Test {
 protected:
  ArchiveExplainerTest()
      : platform_(HeadlessOptions{u"en-US"}), scope_(platform_), form_(platform_) {}
  HeadlessPlatform platform_;
  PlatformScope scope_;
  HeadlessForm form_;
};

TEST_F(ArchiveExplainerTest, NamesEveryElementAndFlagsMissingAndExtraOnes) {
  const std::vector<std::u16string> lines = ExplainArchive(
      form_, u"zklabel",
      u"\"L\"|1|2|3|4|T|F|F|T|\"tip\"|5|F|,\"Caption text\",2,x,F,1,0,-2147483633,T,0,2,-1,"
      u"\"Arial\"#9#T#F#F#F,t,F,F,\"g\",surplus");
  ASSERT_GE(lines.size(), 30u);
  EXPECT_EQ(lines[0], u"ZKLabel: 17 elements expected, 18 found");
  auto contains = [&](std::u16string_view text) {
    for (const auto& line : lines) {
      if (line.find(text) != std::u16string::npos) return true;
    }
    return false;
  };
  EXPECT_TRUE(contains(u"  1  Caption               text \"Caption text\""));
  EXPECT_TRUE(contains(u"  3  VerticalAlignment     number 0 (not a number: reads as 0)"));
  EXPECT_TRUE(contains(u"  6  (the surface's pointer shape)"));
  EXPECT_TRUE(contains(u"       ToolTipText    text \"tip\""));
  EXPECT_TRUE(contains(u"       Size           number 9"));
  EXPECT_TRUE(contains(u" 13  UseMnemonic           False (only \"T\" is true)"));
  EXPECT_TRUE(contains(u" 17  (extra, ignored)      surplus"));
  EXPECT_EQ(lines.back(), u"ParseArchiveStr: True");
  EXPECT_EQ(form_.Controls().size(), 0u);  // the probe control is gone again

  const std::vector<std::u16string> short_lines =
      ExplainArchive(form_, u"ZKLabel", u"\"L\"|1|2,\"x\"");
  EXPECT_TRUE(std::find(short_lines.begin(), short_lines.end(),
                        u"       wrong number of fields: 3, expected 12 (the block is ignored)") !=
              short_lines.end());
  EXPECT_TRUE(std::find(short_lines.begin(), short_lines.end(),
                        u"  2  Alignment             MISSING") != short_lines.end());
  EXPECT_EQ(short_lines.back(),
            u"  trace: ZKLabel | ParseArchiveStr (el: 2) | 9 | Subscript out of range");
  EXPECT_THROW(ExplainArchive(form_, u"ZKNothing", u""), ZKError);
}

TEST_F(ArchiveExplainerTest, KnowsTheFramesTwentyElements) {
  const std::vector<std::u16string> lines = ExplainArchive(
      form_, u"ZKFrame",
      u"\"F\"|0|0|2895|1935|T|F|F|T|\"\"|0|F|,\"Totals\",0,2,0,3,-2147483633,T,1,0,5,0,F,"
      u"-2147483630,\"MS Sans Serif\"#8.25#F#F#F#F,T,F,F,\"\",4");
  EXPECT_EQ(lines[0], u"ZKFrame: 20 elements expected, 20 found");
  const std::u16string expected[] = {
      u"  4  Appearance            number 0", u"  5  (the surface's pointer shape) number 3",
      u"  9  BorderWidth           number 0", u" 12  BorderDisables        False",
      u" 19  BorderShape           number 4",
  };
  for (const std::u16string& line : expected) {
    EXPECT_TRUE(std::find(lines.begin(), lines.end(), line) != lines.end()) << Utf16ToUtf8(line);
  }
  // A width of 0 is refused by the frame's setter without failing the string.
  EXPECT_EQ(lines.back(), u"ParseArchiveStr: True");
}

TEST_F(ArchiveExplainerTest, KnowsTheProgressBarAndWhyItRefusesAString) {
  const std::vector<std::u16string> lines = ExplainArchive(
      form_, u"ZKProgessBar",
      u"\"P\"|0|0|2415|375|T|||T|\"\"|3|F|,30,T,1,T,-2000000000,2000000000,255,0,0,0,"
      u"\"Arial\"#9#F#F#F#F,\"x\",F,\"\",3");
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines[0], u"ZKProgessBar: 16 elements expected, 16 found");
  auto contains = [&](std::u16string_view text) {
    return std::find(lines.begin(), lines.end(), text) != lines.end();
  };
  EXPECT_TRUE(contains(u"  1  Progress              number 30"));
  EXPECT_TRUE(contains(u"  6  ScaleMax              number 2000000000"));
  EXPECT_TRUE(contains(u" 15  CaptionAnchor         number 3"));
  // The limits' range does not fit in 32 bits: the reading stops at ScaleMax.
  EXPECT_EQ(lines.back(), u"  trace: ZKProgessBar | ParseArchiveStr (el: 6) | 6 | Overflow");
}

}  // namespace
}  // namespace zk
