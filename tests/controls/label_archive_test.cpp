#include <gtest/gtest.h>

#include "controls/display/label.h"
#include "form_fixture.h"

namespace zk {
namespace {

constexpr std::u16string_view kWorkedExample =
    u"\"ZKLabel1\"|120|240|1935|375|T|F|F|T|\"\"|3|F|,\"Label\",0,2,F,1,0,-2147483633,T,0,2,"
    u"-2147483630,\"MS Sans Serif\"#8.25#F#F#F#F,T,F,F,\"\"";

class LabelArchiveTest : public FormTest {};

TEST_F(LabelArchiveTest, TheWorkedExampleComesOutByteForByte) {
  for (const char16_t* name : {u"ZKLabel0", u"ZKLabel9", u"ZKLabel8"})
    Add<ZKLabel>(u"ZKLabel", name);
  auto& label = Add<ZKLabel>(u"ZKLabel", u"ZKLabel1");
  DispatchObject& extender = *form_.FindExtender(u"ZKLabel1");
  extender.SetProperty(u"Top", Variant(120.0));
  extender.SetProperty(u"Left", Variant(240.0));
  EXPECT_EQ(label.GetArchiveStr(), kWorkedExample);
}

}  // namespace
}  // namespace zk

namespace zk {
namespace {

TEST_F(LabelArchiveTest, TheWorkedExampleReadsBackIntoANewLabel) {
  // The form keeps tab places without gaps: place 3 needs three controls before it.
  for (const char16_t* name : {u"First", u"Second", u"Third"})
    Add<ZKLabel>(u"ZKLabel", name);
  auto& label = Add<ZKLabel>(u"ZKLabel", u"Copy");
  platform_.Recorder().Clear();
  EXPECT_TRUE(label.ParseArchiveStr(kWorkedExample));
  DispatchObject& extender = *form_.FindExtender(u"Copy");
  EXPECT_EQ(extender.GetProperty(u"Top"), Variant(120.0));
  EXPECT_EQ(extender.GetProperty(u"Left"), Variant(240.0));
  EXPECT_EQ(extender.GetProperty(u"TabIndex"), Variant(int32_t{3}));
  EXPECT_EQ(label.BackColor(), 0x8000000Fu);
  EXPECT_TRUE(label.AmbientBackColor());
  EXPECT_TRUE(platform_.Recorder().traces.empty());
  std::u16string again = label.GetArchiveStr();
  EXPECT_EQ(again.substr(again.find(u'|')), kWorkedExample.substr(kWorkedExample.find(u'|')));
}

TEST_F(LabelArchiveTest, EveryArchivedPropertySurvivesARoundTrip) {
  auto& source = Add<ZKLabel>(u"ZKLabel", u"Source");
  source.SetCaption(u"Total, \"net\"");
  source.SetAlignment(zktTextAlignRight);
  source.SetVerticalAlignment(zktTextVAlignBottom);
  source.SetAppearance(zktApFlat);
  source.SetBackColor(0x00FF00);
  source.SetBorderStyle(zktBSSolid);
  source.SetBorderMargin(7);
  source.SetForeColor(0x0000FF);
  source.Font()->SetName(u"Arial");
  source.Font()->SetItalic(true);
  source.SetUseMnemonic(false);
  source.SetWordWrap(true);
  source.SetDesignMode(true);
  source.SetControlGroup(u"totals");
  form_.FindExtender(u"Source")->SetProperty(u"Width", Variant(2500.0));
  auto& copy = Add<ZKLabel>(u"ZKLabel", u"Copy");
  ASSERT_TRUE(copy.ParseArchiveStr(source.GetArchiveStr()));
  EXPECT_EQ(copy.Caption(), u"Total, \"net\"");
  EXPECT_EQ(copy.Alignment(), zktTextAlignRight);
  EXPECT_EQ(copy.VerticalAlignment(), zktTextVAlignBottom);
  EXPECT_EQ(copy.Appearance(), zktApFlat);
  // BackColor (element 7) switches AmbientBackColor off, element 8 keeps it off.
  EXPECT_EQ(copy.BackColor(), 0x00FF00u);
  EXPECT_FALSE(copy.AmbientBackColor());
  EXPECT_EQ(copy.BorderStyle(), zktBSSolid);
  EXPECT_EQ(copy.BorderMargin(), 7);
  EXPECT_EQ(copy.ForeColor(), 0x0000FFu);
  EXPECT_EQ(copy.Font()->Name(), u"Arial");
  EXPECT_TRUE(copy.Font()->Italic());
  EXPECT_FALSE(copy.UseMnemonic());
  EXPECT_TRUE(copy.WordWrap());
  EXPECT_TRUE(copy.DesignMode());
  EXPECT_EQ(copy.ControlGroup(), u"totals");
  EXPECT_EQ(form_.FindExtender(u"Copy")->GetProperty(u"Width"), Variant(2500.0));

  // An automatic size comes back as the size of the text.
  source.SetWordWrap(false);
  source.SetAutoSize(true);
  ASSERT_TRUE(copy.ParseArchiveStr(source.GetArchiveStr()));
  EXPECT_TRUE(copy.AutoSize());
  EXPECT_EQ(form_.FindExtender(u"Copy")->GetProperty(u"Width"), Variant(12 * 90.0));
}

}  // namespace
}  // namespace zk
