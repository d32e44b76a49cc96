#include "hosting/form_file.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "foundation/zk_error.h"
#include "platform/headless/headless_font_catalogue.h"
#include "platform/headless/headless_picture_loader.h"
#include "platform/std_font.h"

namespace zk {
namespace {

class FormFileTest : public testing::Test {
 protected:
  std::shared_ptr<HeadlessFontCatalogue> fonts_ = std::make_shared<HeadlessFontCatalogue>();
  HeadlessPictureLoader pictures_;

  std::u16string ErrorOf(std::string_view text) {
    try {
      ReadFormFile(text, fonts_, pictures_);
    } catch (const ZKError& error) {
      EXPECT_EQ(error.Number(), 31037);
      return error.Description();
    }
    return u"(read)";
  }
};

TEST_F(FormFileTest, ValuesOfEveryKindSurviveWritingAndReading) {
  FormFile form;
  FormFileControl control;
  control.kind = u"ZKLabel";
  control.name = u"Total";
  control.extender.Store(u"Left", Variant(240.0));
  control.extender.Store(u"ToolTipText", Variant(u"tab\there, \"quotes\" and \\ and \x01"));
  control.properties.Store(u"Caption", Variant(u"two\r\nlines"));
  control.properties.Store(u"Alignment", Variant(int32_t{2}));
  control.properties.Store(u"Ratio", Variant(-0.5));
  control.properties.Store(u"Huge", Variant(1e20));
  control.properties.Store(u"Enabled", Variant(false));
  FontRef font = StdFont::Create(fonts_);
  font->SetName(u"Arial");
  font->SetSize(10.5);
  font->SetBold(true);
  font->SetStrikethrough(true);
  control.properties.Store(u"Font", Variant(font));
  // Pixels whose bytes cover every Base64 padding case, and a picture without pixels.
  control.properties.Store(
      u"Picture", Variant(pictures_.MakePicture(3, 1, {0xFF112233, 0x80FEDCBA, 0x00000001})));
  control.properties.Store(u"DownPicture", Variant(pictures_.MakePicture(4, 2, {})));
  form.controls.push_back(std::move(control));

  const std::string text = WriteFormFile(form);
  const FormFile read = ReadFormFile(text, fonts_, pictures_);
  ASSERT_EQ(read.controls.size(), 1u);
  const FormFileControl& back = read.controls[0];
  EXPECT_EQ(back.kind, u"ZKLabel");
  EXPECT_EQ(back.name, u"Total");
  EXPECT_EQ(back.extender.Entries(), form.controls[0].extender.Entries());
  const auto& entries = back.properties.Entries();
  ASSERT_EQ(entries.size(), 8u);
  EXPECT_EQ(entries[0].second, Variant(u"two\r\nlines"));
  EXPECT_EQ(entries[1].second.ToInt32(), 2);
  EXPECT_EQ(entries[2].second.ToDouble(), -0.5);
  EXPECT_EQ(entries[3].second.ToDouble(), 1e20);
  EXPECT_EQ(entries[4].second, Variant(false));
  auto read_font = std::dynamic_pointer_cast<StdFont>(entries[5].second.ToObject());
  ASSERT_TRUE(read_font);
  EXPECT_EQ(read_font->Description(), font->Description());
  auto picture = std::dynamic_pointer_cast<Picture>(entries[6].second.ToObject());
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->WidthPixels(), 3);
  EXPECT_EQ(picture->Pixels(), (std::vector<uint32_t>{0xFF112233, 0x80FEDCBA, 0x00000001}));
  auto empty = std::dynamic_pointer_cast<Picture>(entries[7].second.ToObject());
  ASSERT_TRUE(empty);
  EXPECT_EQ(empty->HeightPixels(), 2);
  EXPECT_TRUE(empty->Pixels().empty());
  EXPECT_EQ(WriteFormFile(read), text);
}

TEST_F(FormFileTest, FaultsNameTheirLine) {
  const std::string header = "ZKBaseGUIControls form 1\n";
  struct Row {
    std::string text;
    std::u16string starts;
  };
  const Row rows[] = {
      {"", u"Error loading from file (line 1): empty file"},
      {"something else\n", u"Error loading from file (line 1): not a form file"},
      {header + "Caption = 1\n", u"Error loading from file (line 2): a property outside"},
      {header + "Begin ZKLabel\n", u"Error loading from file (line 2): Begin needs"},
      {header + "Begin ZKLabel A\n  Caption \"x\"\nEnd\n", u"Error loading from file (line 3)"},
      {header + "Begin ZKLabel A\n  Caption = \"open\nEnd\n", u"Error loading from file (line 3)"},
      {header + "Begin ZKLabel A\n  Width = 12abc\nEnd\n", u"Error loading from file (line 3)"},
      {header + "Begin ZKLabel A\n  Font = Font(\"Arial\", 0, 400, False, False, False, 0)\nEnd\n",
       u"Error loading from file (line 3): Invalid property value"},
      {header + "Begin ZKLabel A\n  X = 1\n",
       u"Error loading from file (line 4): the last control"},
      {header + "End\n", u"Error loading from file (line 2): End without Begin"},
      {header + "Begin ZKImgButton A\n  Picture = Picture(1, 1, \"AAAA*A==\")\nEnd\n",
       u"Error loading from file (line 3): picture pixels"},  // not Base64
      {header + "Begin ZKImgButton A\n  Picture = Picture(2, 1, \"AAAAAAA=\")\nEnd\n",
       u"Error loading from file (line 3): picture pixels"},  // five bytes
      {header + "Begin ZKImgButton A\n  Picture = Picture(2, 1, \"AAAAAA==\")\nEnd\n",
       u"Error loading from file (line 3): pixels that do not fill"},  // one pixel of two
      {header + "Begin ZKImgButton A\n  Picture = Picture(0, 1, \"\")\nEnd\n",
       u"Error loading from file (line 3): picture size"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    const std::u16string description = ErrorOf(row.text);
    EXPECT_EQ(description.substr(0, row.starts.size()), row.starts)
        << std::string(description.begin(), description.end());
  }
  EXPECT_EQ(ReadFormFile(header + "' a comment\n\n", fonts_, pictures_).controls.size(), 0u);
}

}  // namespace
}  // namespace zk
