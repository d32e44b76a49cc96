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
