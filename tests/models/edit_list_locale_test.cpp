#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "models/edit_list_model.h"
#include "tests/models/edit_list_host.h"
#include "tests/models/icu_collation.h"

namespace zk {
namespace {

using edit_list_test::IcuCollation;
using edit_list_test::ItemsOf;
using edit_list_test::Narrow;
using edit_list_test::TagsOf;
using Texts = std::vector<std::u16string>;

// Sorted placement over the user's locale: letter case never separates two keys, so a key
// equal to rows but for its case goes after them, while accents still order.
TEST(EditListLocale, KeysEqualButForCaseGoAfterTheirEquals) {
  struct Case {
    const char* name;
    zktSortOrder order;
    Texts adds;
    Texts items;
  };
  const Case cases[] = {
      {"a to z", zktSortAtoZ, {u"b", u"A", u"c"}, {u"A", u"b", u"c"}},
      {"equal but for case", zktSortAtoZ, {u"x", u"x", u"X"}, {u"x", u"x", u"X"}},
      {"case variants keep their order of arrival",
       zktSortAtoZ,
       {u"Apple", u"pear", u"APPLE", u"apple"},
       {u"Apple", u"APPLE", u"apple", u"pear"}},
      {"accents order after the plain letter",
       zktSortAtoZ,
       {u"f", u"\u00e9", u"e", u"E"},
       {u"e", u"E", u"\u00e9", u"f"}},
      {"z to a", zktSortZtoA, {u"a", u"C", u"b", u"c"}, {u"C", u"c", u"b", u"a"}},
      // Code-unit order would put every capital first.
      {"capitals among small letters",
       zktSortAtoZ,
       {u"b", u"C", u"a", u"B"},
       {u"a", u"b", u"B", u"C"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    CEditListModel model(std::make_shared<IcuCollation>());
    model.SetSortOrder(c.order);
    for (const std::u16string& add : c.adds)
      model.AddItem(add);
    EXPECT_EQ(ItemsOf(model), c.items) << Narrow(ItemsOf(model));
  }
}

TEST(EditListLocale, ANewCollationOrdersOnlyLaterInsertions) {
  CEditListModel model;
  model.SetSortOrder(zktSortAtoZ);
  for (const char16_t* item : {u"\u00e9", u"f", u"z"})
    model.AddItem(item);
  // In code-unit order the accented letter sorts after every ASCII one.
  EXPECT_EQ(ItemsOf(model), (Texts{u"f", u"z", u"\u00e9"}));
  model.SetCollation(std::make_shared<IcuCollation>());
  model.AddItem(u"e");
  EXPECT_EQ(ItemsOf(model), (Texts{u"e", u"f", u"z", u"\u00e9"}));
  EXPECT_EQ(TagsOf(model), (Texts{u"0", u"0", u"1", u"0"}));
}

}  // namespace
}  // namespace zk
