#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "foundation/zk_error.h"
#include "platform/headless/headless_font_catalogue.h"
#include "platform/std_font.h"

namespace zk {
namespace {

class FontsTest : public testing::Test {
 protected:
  std::shared_ptr<HeadlessFontCatalogue> catalogue_ = std::make_shared<HeadlessFontCatalogue>();
  FontRef font_ = StdFont::Create(catalogue_);
};

TEST_F(FontsTest, NewFontsTakeTheDefaultFont) {
  EXPECT_EQ(font_->Name(), u"MS Sans Serif");
  EXPECT_EQ(font_->Size(), 8.25);
  EXPECT_FALSE(font_->Bold());
}

TEST_F(FontsTest, AFaceThatIsNotInstalledDoesNotReadBack) {
  font_->SetName(u"Wingdings 3");
  EXPECT_EQ(font_->Name(), u"MS Sans Serif");
  catalogue_->InstallFace(u"Wingdings 3");
  font_->SetName(u"wingdings 3");
  EXPECT_EQ(font_->Name(), u"Wingdings 3");  // the catalogue's spelling
  EXPECT_THROW(font_->SetName(u""), ZKError);
}

TEST_F(FontsTest, SizesKeepFourDecimalsAndRefuseImpossibleValues) {
  font_->SetSize(12.123456);
  EXPECT_EQ(font_->Size(), 12.1235);
  font_->SetSize(10.00005);  // halves go to the even neighbour
  EXPECT_EQ(font_->Size(), 10.0);
  for (double refused : {0.0, -3.0, 2160.5}) {
    try {
      font_->SetSize(refused);
      ADD_FAILURE() << refused;
    } catch (const ZKError& error) {
      EXPECT_EQ(error.Number(), error_number::kInvalidPropertyValue);
    }
  }
  EXPECT_EQ(font_->Size(), 10.0);
}

TEST_F(FontsTest, ClonesAreIndependentAndWritesNotifyByName) {
  std::vector<std::u16string> changes;
  auto connection = font_->FontChanged().Connect(
      [&](std::u16string_view property) { changes.emplace_back(property); });
  FontRef copy = font_->Clone();
  copy->SetBold(true);
  font_->SetProperty(u"size", Variant(int32_t{14}));
  font_->SetProperty(u"Italic", Variant(true));
  EXPECT_FALSE(font_->Bold());
  EXPECT_TRUE(copy->Bold());
  EXPECT_EQ(copy->Size(), 8.25);
  EXPECT_EQ(font_->GetProperty(u"SIZE"), Variant(14.0));
  EXPECT_EQ(changes, (std::vector<std::u16string>{u"Size", u"Italic"}));
  EXPECT_THROW(font_->GetProperty(u"Colour"), ZKError);
}

TEST(HeadlessTextMeasureTest, FollowsTheDocumentedRule) {
  HeadlessFontCatalogue catalogue;
  FontDescription font = catalogue.DefaultFont();  // 8.25 pt: 6 x 13 pixels per character
  FontDescription bold = font;
  bold.weight = 700;
  FontDescription large = font;
  large.size_e4 = 200000;  // 20 pt: 15 x 32
  struct Row {
    const FontDescription* font;
    std::u16string text;
    int32_t wrap;
    TextExtent expected;
  };
  const Row rows[] = {
      {&font, u"Label", 0, {30, 13}},
      {&font, u"", 0, {0, 13}},
      {&bold, u"Label", 0, {35, 13}},
      {&large, u"ab", 0, {30, 32}},
      {&font, u"one\r\ntwo three", 0, {54, 26}},
      {&font, u"aa bb cc", 30, {30, 26}},     // "aa bb" fits exactly, "cc" wraps
      {&font, u"aa bb cc", 29, {12, 39}},     // every word on its own line
      {&font, u"abcdefgh ij", 30, {48, 26}},  // a long word stands alone, measured whole
      {&font, u"aa    bb", 24, {12, 26}},     // blanks at a break take no room
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(std::u16string(row.text)));
    EXPECT_EQ(catalogue.MeasureText(*row.font, row.text, row.wrap), row.expected);
  }
}

}  // namespace
}  // namespace zk
