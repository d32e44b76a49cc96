#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "foundation/archive_utils.h"
#include "foundation/debug_utils.h"
#include "tests/archive/fake_objects.h"

namespace zk {
namespace {

using namespace MArchiveUtils;
using archive_test::FakeExtender;
using archive_test::FakeFont;
using Texts = std::vector<std::u16string>;

FakeFont MakeFont(std::u16string name, double size, bool bold, bool italic, bool underline,
                  bool strikethrough) {
  FakeFont font;
  font.SetProperty(u"Name", std::move(name));
  font.SetProperty(u"Size", size);
  font.SetProperty(u"Bold", bold);
  font.SetProperty(u"Italic", italic);
  font.SetProperty(u"Underline", underline);
  font.SetProperty(u"Strikethrough", strikethrough);
  font.written.clear();
  return font;
}

TEST(ArchiveFontTest, WritesSixFieldsWithTheSizeRoundedToFourDecimals) {
  const std::vector<std::pair<double, std::u16string>> sizes = {
      {8.25, u"8.25"}, {12, u"12"}, {8.123456, u"8.1235"}, {9.00004, u"9"}, {0.00016, u"0.0002"}};
  for (const auto& [size, text] : sizes) {
    FakeFont font = MakeFont(u"MS Sans Serif", size, true, false, true, false);
    EXPECT_EQ(ArchiveEscapeFont(font), u"\"MS Sans Serif\"#" + text + u"#T#F#T#F");
  }
  FakeFont partial = MakeFont(u"A\"B", 10, false, true, false, true);
  partial.Remove(u"Underline");
  EXPECT_EQ(ArchiveEscapeFont(partial), u"\"A\"\"B\"#10#F#T##T");
}

struct FontCase {
  std::u16string element;
  std::u16string name;
  double size;
  bool bold, italic, underline, strikethrough;
  Texts written;
};

TEST(ArchiveFontTest, ReadsFieldsInOrderUntilTheFontRefusesOne) {
  const Texts all = {u"Name", u"Size", u"Bold", u"Italic", u"Underline", u"Strikethrough"};
  const std::vector<FontCase> cases = {
      {u"\"Arial\"#12.5#T#F#T#F", u"Arial", 12.5, true, false, true, false, all},
      {u"\"Arial\"#12#F#T#F#T#junk", u"Arial", 12, false, true, false, true, all},
      {u"\"Arial\"#9#t#T#x#", u"Arial", 9, false, true, false, false, all},
      // Too few fields: the default font, untouched.
      {u"\"Arial\"#12", u"Default", 10, false, false, false, false, {}},
      {u"\"Arial\"#12#T#T#T", u"Default", 10, false, false, false, false, {}},
      {u"", u"Default", 10, false, false, false, false, {}},
      // A refused size ends the reading after the name.
      {u"\"Arial\"#0#T#T#T#T", u"Arial", 10, false, false, false, false, {u"Name"}},
      {u"\"Arial\"#abc#T#T#T#T", u"Arial", 10, false, false, false, false, {u"Name"}},
      // Quotes do not protect "#": this name loses its second half and the size is refused.
      {u"\"A#B\"#9#T#F#F#F", u"", 10, false, false, false, false, {u"Name"}},
  };
  for (const FontCase& c : cases) {
    SCOPED_TRACE(std::string(c.element.begin(), c.element.end()));
    const auto font = std::make_shared<FakeFont>();
    EXPECT_EQ(ArchiveUnescapeFont(c.element, font), font);
    EXPECT_EQ(font->Value(u"Name"), Variant(c.name));
    EXPECT_EQ(font->Value(u"Size").ToDouble(), c.size);
    EXPECT_EQ(font->Value(u"Bold"), Variant(c.bold));
    EXPECT_EQ(font->Value(u"Italic"), Variant(c.italic));
    EXPECT_EQ(font->Value(u"Underline"), Variant(c.underline));
    EXPECT_EQ(font->Value(u"Strikethrough"), Variant(c.strikethrough));
    EXPECT_EQ(font->written, c.written);
  }
  EXPECT_EQ(ArchiveUnescapeFont(u"\"Arial\"#12#T#T#T#T", nullptr), nullptr);
}

TEST(ArchiveFontTest, RoundTripKeepsEveryField) {
  FakeFont original = MakeFont(u"Courier \"New\"", 8.25, true, true, false, true);
  const auto copy = std::make_shared<FakeFont>();
  ArchiveUnescapeFont(ArchiveEscapeFont(original), copy);
  for (const std::u16string_view name :
       {u"Name", u"Size", u"Bold", u"Italic", u"Underline", u"Strikethrough"}) {
    EXPECT_EQ(copy->Value(name).ToText(), original.Value(name).ToText())
        << std::string(name.begin(), name.end());
  }
}

FakeExtender MakeExtender() {
  FakeExtender extender;
  const std::vector<std::pair<std::u16string, Variant>> values = {
      {u"Name", u"Command1"}, {u"Top", 120.0},
      {u"Left", 240.0},       {u"Width", 1215.5},
      {u"Height", 495.0},     {u"Visible", true},
      {u"Default", false},    {u"Cancel", true},
      {u"Enabled", true},     {u"ToolTipText", u"Save|all, \"now\""},
      {u"TabIndex", 3.0},     {u"TabStop", true}};
  for (const auto& [name, value] : values)
    extender.SetProperty(name, value);
  extender.written.clear();
  return extender;
}

const std::u16string kBlock =
    u"\"Command1\"|120|240|1215.5|495|T|F|T|T|\"Save|all, \"\"now\"\"\"|3|T|";

class ArchiveExtenderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    previous_ = MDebugUtils::SetTraceSink(
        [this](const MDebugUtils::TraceRecord& record) { traces_.push_back(record); });
  }
  void TearDown() override { MDebugUtils::SetTraceSink(previous_); }

  std::vector<MDebugUtils::TraceRecord> traces_;

 private:
  MDebugUtils::TraceSink previous_;
};

TEST_F(ArchiveExtenderTest, WritesTwelveFieldsAndATrailingSeparator) {
  FakeExtender extender = MakeExtender();
  EXPECT_EQ(ArchiveEscapeExtender(&extender), kBlock);
  extender.Remove(u"Default");
  extender.Remove(u"Cancel");
  EXPECT_EQ(ArchiveEscapeExtender(&extender),
            u"\"Command1\"|120|240|1215.5|495|T|||T|\"Save|all, \"\"now\"\"\"|3|T|");
  EXPECT_EQ(ArchiveEscapeExtender(nullptr), u"||||||||||||");
  EXPECT_EQ(ArchiveSplit(ArchiveEscapeExtender(nullptr), kBlockSeparator, true).size(), 12u);
}

TEST_F(ArchiveExtenderTest, AppliesEveryFieldButTheNameAndSkipsRefusedOnes) {
  const Texts fields = {u"\"Command1\"",
                        u"120",
                        u"240",
                        u"1215.5",
                        u"495",
                        u"T",
                        u"F",
                        u"T",
                        u"T",
                        u"\"Save|all, \"\"now\"\"\"",
                        u"3",
                        u"T"};
  FakeExtender full;
  EXPECT_EQ(ArchiveUnescapeExtender(kBlock, &full), fields);
  EXPECT_EQ(full.written, (Texts{u"Top", u"Left", u"Width", u"Height", u"Visible", u"Default",
                                 u"Cancel", u"Enabled", u"ToolTipText", u"TabIndex", u"TabStop"}));
  for (const std::u16string& name : full.written) {
    EXPECT_EQ(full.Value(name), MakeExtender().Value(name))
        << std::string(name.begin(), name.end());
  }
  EXPECT_EQ(full.Value(u"Name"), Variant(u"Ctl1"));

  FakeExtender limited;
  limited.Remove(u"Default");
  limited.Remove(u"Cancel");
  limited.Remove(u"TabStop");
  EXPECT_EQ(ArchiveUnescapeExtender(kBlock, &limited), fields);
  EXPECT_EQ(limited.written, (Texts{u"Top", u"Left", u"Width", u"Height", u"Visible", u"Enabled",
                                    u"ToolTipText", u"TabIndex"}));
  EXPECT_EQ(ArchiveUnescapeExtender(kBlock, nullptr), fields);
  EXPECT_TRUE(traces_.empty());
}

TEST_F(ArchiveExtenderTest, AWrongFieldCountIsTracedAndChangesNothing) {
  const std::vector<std::pair<std::u16string, std::u16string>> cases = {
      {u"", u"0"},
      {u"\"a|b\"|1", u"2"},
      {u"|||||||||||", u"11"},
      {u"\"N\"|1|2|3|4|T|F|F|T|\"\"|0|T|x", u"13"},
  };
  for (const auto& [block, count] : cases) {
    traces_.clear();
    FakeExtender extender;
    EXPECT_TRUE(ArchiveUnescapeExtender(block, &extender).empty());
    EXPECT_TRUE(extender.written.empty());
    EXPECT_EQ(traces_, (std::vector<MDebugUtils::TraceRecord>{
                           {u"MArchiveUtils", u"ArchiveUnescapeExtender", 1,
                            u"Wrong number of elements. Received " + count + u", Expected 12"}}));
  }
}

}  // namespace
}  // namespace zk
