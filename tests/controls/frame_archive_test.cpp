// The frame's archive string (twenty elements) and its property bag, with the bag's own read
// and write orders.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/display/frame.h"
#include "form_fixture.h"
#include "foundation/archive_utils.h"
#include "foundation/text_encoding.h"
#include "platform/common/memory_property_bag.h"

namespace zk {
namespace {

constexpr std::u16string_view kNewFrame =
    u"\"F\"|0|0|2895|1935|T|F|F|T|\"\"|0|F|,\"Label\",0,2,0,0,-2147483633,T,1,1,5,0,F,"
    u"-2147483630,\"MS Sans Serif\"#8.25#F#F#F#F,T,F,F,\"\",0";

// Every element with a value that differs from a new frame's.
constexpr std::u16string_view kEveryElement =
    u"\"Other\"|60|120|3000|1500|T|F|F|T|\"tip\"|0|F|,\"Tot\"\"als\",1,0,0,2,255,F,0,3,7,"
    u"16711680,T,65280,\"Arial\"#10#T#F#F#F,F,T,T,\"grp\",4";

// A bag that remembers the keys in the order they were read or written.
class RecordingBag final : public IPropertyBag {
 public:
  Variant ReadProperty(std::u16string_view key, const Variant& default_value) override {
    read.emplace_back(key);
    return bag.ReadProperty(key, default_value);
  }
  void WriteProperty(std::u16string_view key, const Variant& value,
                     const Variant& default_value) override {
    written.emplace_back(key);
    bag.WriteProperty(key, value, default_value);
  }
  MemoryPropertyBag bag;
  std::vector<std::u16string> read;
  std::vector<std::u16string> written;
};

class FrameArchiveTest : public FormTest {
 protected:
  ZKFrame& frame_ = Add<ZKFrame>(u"ZKFrame", u"F");
};

TEST_F(FrameArchiveTest, ANewFrameWritesTwentyElements) {
  EXPECT_EQ(Utf16ToUtf8(frame_.GetArchiveStr()), Utf16ToUtf8(kNewFrame));
  EXPECT_EQ(MArchiveUtils::ArchiveSplitElements(frame_.GetArchiveStr()).size(), 20u);
}

TEST_F(FrameArchiveTest, EachElementReachesItsProperty) {
  auto& copy = Add<ZKFrame>(u"ZKFrame", u"Copy");
  ASSERT_TRUE(copy.ParseArchiveStr(kEveryElement));
  EXPECT_EQ(copy.Caption(), u"Tot\"als");
  EXPECT_EQ(copy.Alignment(), zktTextAlignRight);
  EXPECT_EQ(copy.VerticalAlignment(), zktTextVAlignTop);
  EXPECT_EQ(copy.Appearance(), zktApFlat);
  EXPECT_EQ(form_.FindSite(u"Copy")->Surface().MousePointer(), 2);
  EXPECT_EQ(copy.BackColor(), 255u);  // flat: the colour is shown
  EXPECT_EQ(copy.CaptionElement().BackColor(), 255u);
  EXPECT_FALSE(copy.AmbientBackColor());
  EXPECT_EQ(copy.BorderStyle(), zktBSNone);
  EXPECT_EQ(copy.BorderWidth(), 3);
  EXPECT_EQ(copy.BorderMargin(), 7);
  EXPECT_EQ(copy.BorderColor(), 0xFF0000u);
  EXPECT_TRUE(copy.BorderDisables());
  EXPECT_EQ(copy.ForeColor(), 0x00FF00u);
  EXPECT_EQ(copy.Font()->Name(), u"Arial");
  EXPECT_EQ(copy.Font()->Size(), 10);
  EXPECT_TRUE(copy.Font()->Bold());
  EXPECT_FALSE(copy.UseMnemonic());
  EXPECT_TRUE(copy.WordWrap());
  EXPECT_TRUE(copy.DesignMode());
  EXPECT_EQ(copy.ControlGroup(), u"grp");
  EXPECT_EQ(copy.BorderShape(), shape_code::kRoundedRectangle);
  DispatchObject& extender = *form_.FindExtender(u"Copy");
  EXPECT_EQ(extender.GetProperty(u"Top"), Variant(60.0));
  EXPECT_EQ(extender.GetProperty(u"Width"), Variant(3000.0));
  EXPECT_EQ(extender.GetProperty(u"ToolTipText"), Variant(u"tip"));
  // Written again, it is the same string under the copy's own name and tab place.
  std::u16string again = copy.GetArchiveStr();
  EXPECT_EQ(Utf16ToUtf8(again.substr(again.find(u',') - 1)),
            Utf16ToUtf8(kEveryElement.substr(kEveryElement.find(u',') - 1)));
}

TEST_F(FrameArchiveTest, ThreeDimensionalFramesKeepTheirColoursWhenTheArchiveGivesOne) {
  std::vector<std::u16string> elements = MArchiveUtils::ArchiveSplitElements(kEveryElement);
  elements[4] = u"1";  // 3-D: BackColor (element 6) changes no colour, only the flag
  ASSERT_TRUE(frame_.ParseArchiveStr(MArchiveUtils::ArchiveJoinElements(elements)));
  EXPECT_EQ(frame_.BackColor(), 0x8000000Fu);
  EXPECT_EQ(frame_.CaptionElement().BackColor(), 0x8000000Fu);
  EXPECT_FALSE(frame_.AmbientBackColor());
}

TEST_F(FrameArchiveTest, RefusedElementsAreSkippedAndTheRestApplies) {
  struct Row {
    size_t element;
    const char16_t* text;
    const char16_t* property;
    Variant kept;
  };
  const Row rows[] = {
      {2, u"5", u"Alignment", Variant(int32_t{0})},
      {3, u"3", u"VerticalAlignment", Variant(int32_t{2})},
      {4, u"2", u"Appearance", Variant(int32_t{0})},
      {8, u"2", u"BorderStyle", Variant(int32_t{1})},
      {9, u"0", u"BorderWidth", Variant(int32_t{1})},
      {9, u"8193", u"BorderWidth", Variant(int32_t{1})},
      {10, u"-3", u"BorderMargin", Variant(int32_t{5})},
      {19, u"6", u"BorderShape", Variant(int32_t{0})},
  };
  int count = 0;
  for (const Row& row : rows) {
    SCOPED_TRACE(Utf16ToUtf8(row.property) + " = " + Utf16ToUtf8(row.text));
    auto& copy = Add<ZKFrame>(u"ZKFrame", u"Refused" + Utf8ToUtf16(std::to_string(++count)));
    std::vector<std::u16string> elements = MArchiveUtils::ArchiveSplitElements(kNewFrame);
    elements[row.element] = row.text;
    elements[1] = u"\"After\"";  // an element before it, and one after it, still apply
    elements[18] = u"\"grp\"";
    EXPECT_TRUE(copy.ParseArchiveStr(MArchiveUtils::ArchiveJoinElements(elements)));
    EXPECT_EQ(copy.GetProperty(row.property), row.kept);
    EXPECT_EQ(copy.Caption(), u"After");
    EXPECT_EQ(copy.ControlGroup(), u"grp");
    EXPECT_TRUE(TraceProcedures().empty());
  }
  // A width beyond a 16-bit integer fails the element, and the parse stops there.
  std::vector<std::u16string> elements = MArchiveUtils::ArchiveSplitElements(kNewFrame);
  elements[9] = u"70000";
  elements[18] = u"\"never\"";
  EXPECT_FALSE(frame_.ParseArchiveStr(MArchiveUtils::ArchiveJoinElements(elements)));
  EXPECT_EQ(TraceProcedures(), (std::vector<std::u16string>{u"ParseArchiveStr (el: 9)"}));
  EXPECT_EQ(frame_.ControlGroup(), u"");
}

TEST_F(FrameArchiveTest, AShortStringAppliesWhatItHasAndFails) {
  const std::vector<std::u16string> all = MArchiveUtils::ArchiveSplitElements(kEveryElement);
  const std::vector<std::u16string> first(all.begin(), all.begin() + 12);
  EXPECT_FALSE(frame_.ParseArchiveStr(MArchiveUtils::ArchiveJoinElements(first)));
  EXPECT_EQ(TraceProcedures(), (std::vector<std::u16string>{u"ParseArchiveStr (el: 12)"}));
  EXPECT_EQ(frame_.BorderColor(), 0xFF0000u);  // element 11 applied
  EXPECT_FALSE(frame_.BorderDisables());       // element 12 missing
  // Extra elements are ignored.
  EXPECT_TRUE(frame_.ParseArchiveStr(std::u16string(kEveryElement) + u",1,2,3"));
}

TEST_F(FrameArchiveTest, TheBagReadsAndWritesInItsOwnOrders) {
  RecordingBag bag;
  frame_.WriteProperties(bag);
  EXPECT_EQ(bag.written,
            (std::vector<std::u16string>{
                u"ForeColor", u"Enabled", u"Font", u"BorderStyle", u"Alignment", u"Appearance",
                u"Caption", u"UseMnemonic", u"DesignMode", u"BackColor", u"ControlGroup",
                u"AmbientBackColor", u"WordWrap", u"BorderMargin", u"VerticalAlignment",
                u"BorderColor", u"BorderDisables", u"BorderWidth", u"BorderShape"}));
  frame_.ReadProperties(bag);
  EXPECT_EQ(bag.read,
            (std::vector<std::u16string>{
                u"Appearance", u"ForeColor", u"Enabled", u"Font", u"BorderStyle", u"Alignment",
                u"Caption", u"UseMnemonic", u"BackColor", u"DesignMode", u"AmbientBackColor",
                u"ControlGroup", u"WordWrap", u"BorderMargin", u"VerticalAlignment", u"BorderColor",
                u"BorderWidth", u"BorderDisables", u"BorderShape"}));
}

TEST_F(FrameArchiveTest, ReadingTheBagStoresWithoutChecksThenEnablesAndLaysOut) {
  MemoryPropertyBag bag;
  bag.Store(u"Appearance", Variant(int32_t{0}));
  bag.Store(u"BackColor", Variant(int32_t{0x00FFFF}));
  bag.Store(u"Enabled", Variant(false));
  bag.Store(u"BorderDisables", Variant(true));
  bag.Store(u"BorderColor", Variant(int32_t{0x0000FF}));
  bag.Store(u"BorderWidth", Variant(int32_t{0}));  // below what a write accepts
  bag.Store(u"VerticalAlignment", Variant(int32_t{1}));
  bag.Store(u"Caption", Variant(u"Read"));
  auto& inside = form_.AddControlInside(u"ZKLabel", u"Inside", u"F");
  Notified();
  frame_.ReadProperties(bag);
  EXPECT_EQ(Notified(), (std::vector<std::u16string>{u"Enabled"}));  // only the contents'
  EXPECT_EQ(frame_.BorderWidth(), 0);
  EXPECT_EQ(frame_.BackColor(), 0x00FFFFu);
  EXPECT_EQ(frame_.CaptionElement().BackColor(), 0x00FFFFu);  // a flat frame's caption
  EXPECT_FALSE(frame_.Enabled());
  EXPECT_FALSE(form_.FindSite(u"F")->Surface().Enabled());
  EXPECT_FALSE(inside.Enabled());
  EXPECT_EQ(frame_.BorderElement().BorderColor(), 0x8000000Bu);
  EXPECT_EQ(frame_.CaptionElement().Top(), 75);  // inside the border, laid out
  EXPECT_FLOAT_EQ(frame_.TopBorderOffset(), 0);

  // A 3-D frame keeps its caption in the appearance's colour.
  bag.Store(u"Appearance", Variant(int32_t{1}));
  auto& other = Add<ZKFrame>(u"ZKFrame", u"Other");
  other.ReadProperties(bag);
  EXPECT_EQ(other.BackColor(), 0x00FFFFu);
  EXPECT_EQ(other.CaptionElement().BackColor(), 0x8000000Fu);
}

TEST_F(FrameArchiveTest, TheBagKeepsOnlyWhatDiffersFromItsDefaults) {
  MemoryPropertyBag bag;
  frame_.WriteProperties(bag);
  // A new frame is flat while the bag's default is 3-D; its colour is the bag's default.
  std::vector<std::u16string> keys;
  for (const auto& [key, value] : bag.Entries())
    keys.push_back(key);
  EXPECT_EQ(keys, (std::vector<std::u16string>{u"Appearance"}));
  frame_.SetCaption(u"Saved");
  frame_.SetBorderWidth(4);
  frame_.SetBorderShape(shape_code::kOval);
  frame_.SetEnabled(false);
  bag.Clear();
  frame_.WriteProperties(bag);
  auto& copy = Add<ZKFrame>(u"ZKFrame", u"Copy");
  copy.ReadProperties(bag);
  EXPECT_TRUE(Notified().empty());
  EXPECT_EQ(copy.Caption(), u"Saved");
  EXPECT_EQ(copy.BorderWidth(), 4);
  EXPECT_EQ(copy.BorderShape(), shape_code::kOval);
  EXPECT_EQ(copy.Appearance(), zktApFlat);
  EXPECT_FALSE(copy.Enabled());
}

}  // namespace
}  // namespace zk
