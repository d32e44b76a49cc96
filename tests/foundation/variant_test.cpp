#include "foundation/variant.h"

#include <gtest/gtest.h>

#include <memory>

#include "foundation/dispatch_object.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

int32_t ErrorOf(const auto& action) {
  try {
    action();
  } catch (const ZKError& error) {
    return error.Number();
  }
  return 0;
}

TEST(VariantTest, ConvertsNumbersAndTextsByThePlatformRules) {
  struct Row {
    Variant value;
    double number;
    bool truth;
    std::u16string text;
  };
  const Row rows[] = {
      {Variant(), 0, false, u""},
      {Variant(true), -1, true, u"True"},
      {Variant(false), 0, false, u"False"},
      {Variant(int32_t{3}), 3, true, u"3"},
      {Variant(0.5), 0.5, true, u"0.5"},
      {Variant(-0.5), -0.5, true, u"-0.5"},
      {Variant(1e20), 1e20, true, u"1E+20"},
      {Variant(u" 2.5 "), 2.5, true, u" 2.5 "},
      {Variant(u"&H8000000F"), -2147483633.0, true, u"&H8000000F"},
      {Variant(u"true"), -1, true, u"true"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    EXPECT_EQ(row.value.ToDouble(), row.number);
    EXPECT_EQ(row.value.ToBool(), row.truth);
    EXPECT_EQ(row.value.ToText(), row.text);
  }
}

TEST(VariantTest, RoundsHalvesToEvenIntoIntegers) {
  EXPECT_EQ(Variant(2.5).ToInt32(), 2);
  EXPECT_EQ(Variant(3.5).ToInt32(), 4);
  EXPECT_EQ(Variant(-2.5).ToInt32(), -2);
  EXPECT_EQ(Variant(u"1.5").ToInt16(), 2);
  EXPECT_EQ(Variant(true).ToInt32(), -1);
}

TEST(VariantTest, ColoursAcceptSignedAndUnsignedSpellingsOfTheSameBits) {
  EXPECT_EQ(Variant(-2147483633.0).ToColor(), 0x8000000Fu);
  EXPECT_EQ(Variant(2147483663.0).ToColor(), 0x8000000Fu);
  EXPECT_EQ(Variant(int32_t{65280}).ToColor(), 65280u);
  EXPECT_EQ(Variant(u"-2147483630").ToColor(), 0x80000012u);
}

TEST(VariantTest, RefusedConversionsRaiseThePlatformErrors) {
  EXPECT_EQ(ErrorOf([] { Variant(u"abc").ToDouble(); }), error_number::kTypeMismatch);
  EXPECT_EQ(ErrorOf([] { Variant(u"").ToBool(); }), error_number::kTypeMismatch);
  EXPECT_EQ(ErrorOf([] { Variant(3e9).ToInt32(); }), error_number::kOverflow);
  EXPECT_EQ(ErrorOf([] { Variant(40000.0).ToInt16(); }), error_number::kOverflow);
  EXPECT_EQ(ErrorOf([] { Variant(5e9).ToColor(); }), error_number::kOverflow);
  EXPECT_EQ(ErrorOf([] { Variant(int32_t{1}).ToObject(); }), error_number::kObjectRequired);
  auto object = std::make_shared<DispatchObject>();
  EXPECT_EQ(ErrorOf([&] { Variant(object).ToText(); }), error_number::kTypeMismatch);
  EXPECT_EQ(Variant(object).ToObject(), object);
  EXPECT_EQ(Variant().ToObject(), nullptr);
}

TEST(DispatchObjectTest, UnknownMembersFailWithMemberNotFound) {
  DispatchObject object;
  EXPECT_EQ(ErrorOf([&] { object.GetProperty(u"Anything"); }), error_number::kMemberNotFound);
  EXPECT_EQ(ErrorOf([&] { object.SetProperty(u"Anything", Variant()); }),
            error_number::kMemberNotFound);
  EXPECT_EQ(ErrorOf([&] { object.CallMethod(u"Anything"); }), error_number::kMemberNotFound);
  EXPECT_TRUE(MemberNameEquals(u"ToolTipText", u"tooltiptext"));
  EXPECT_FALSE(MemberNameEquals(u"Top", u"Tops"));
}

}  // namespace
}  // namespace zk
