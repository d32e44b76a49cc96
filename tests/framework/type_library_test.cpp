#include "framework/type_library.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <type_traits>

namespace zk {
namespace {

TEST(TypeLibraryTest, PublishesFifteenEnumerationsWithTheirExactNamesAndValues) {
  const auto enumerations = PublishedEnumerations();
  ASSERT_EQ(enumerations.size(), 15u);
  std::set<std::u16string_view> names;
  size_t enumerators = 0;
  for (const EnumerationInfo& enumeration : enumerations) {
    names.insert(enumeration.name);
    enumerators += enumeration.enumerators.size();
  }
  EXPECT_EQ(names.size(), 15u);
  EXPECT_EQ(enumerators, 48u);
  struct Row {
    std::u16string_view name;
    int32_t value;
  };
  const Row rows[] = {
      {u"zktToggleSelected", -1},       {u"zktToggleUnselected", 0},
      {u"zktSBBottomtoTop", 3},         {u"zktPBBottomToTop", 2},
      {u"zktSBTopToBottom", 1},         {u"zktPBTopToBottom", 3},
      {u"zktButTextAlignCenterTop", 4}, {u"zktTDDateHour", 5},
      {u"zktPAnchorBelowLevel", 4},     {u"zktMSYes", 1},
      {u"zktTForceLowerCase", 2},       {u"zktSortZtoA", 2},
  };
  for (const Row& row : rows)
    EXPECT_EQ(FindEnumerator(row.name), row.value) << row.value;
  // The odd spelling is the published one; the regular spelling does not exist.
  EXPECT_FALSE(FindEnumerator(u"zktSBBottomToTop").has_value());
  EXPECT_FALSE(FindEnumerator(u"zktsbbottomtotop").has_value());
  static_assert(std::is_same_v<std::underlying_type_t<zktSortOrder>, int32_t>);
  static_assert(!std::is_default_constructible_v<ZKCBaseCtrlsTypeLib>);
}

}  // namespace
}  // namespace zk
