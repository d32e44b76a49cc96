#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundation/zk_error.h"
#include "hosting/headless_form.h"

namespace zk {
namespace {

using Names = std::vector<std::u16string>;

class TabOrderTest : public testing::Test {
 protected:
  TabOrderTest() : platform_(HeadlessOptions{u"en-US"}), scope_(platform_), form_(platform_) {}

  void Place(const Names& names) {
    for (const std::u16string& name : names)
      form_.AddControl(u"ZKColorButton", name);
  }
  void SetTabIndex(std::u16string_view name, int32_t index) {
    form_.FindExtender(name)->SetProperty(u"TabIndex", Variant(index));
  }
  int32_t TabIndex(std::u16string_view name) {
    return form_.FindExtender(name)->GetProperty(u"TabIndex").ToInt32();
  }
  // The controls by their TabIndex, checking that the numbers run 0, 1, 2 ... without a gap.
  Names ByTabIndex() {
    const std::vector<ZKControl*> controls = form_.Controls();
    Names order(controls.size());
    for (ZKControl* control : controls) {
      const int32_t index = TabIndex(control->Name());
      EXPECT_GE(index, 0) << "a negative index";
      if (index < 0 || index >= static_cast<int32_t>(order.size())) {
        ADD_FAILURE() << "an index beyond the last place: " << index;
        continue;
      }
      EXPECT_TRUE(order[static_cast<size_t>(index)].empty()) << "two controls with " << index;
      order[static_cast<size_t>(index)] = control->Name();
    }
    return order;
  }
  // The controls in the order the Tab key visits them, from the first.
  Names ByTabKey() {
    Names visited;
    form_.Focus(ByTabIndex().front());
    for (size_t i = 0; i < form_.Controls().size(); ++i) {
      visited.push_back(form_.FocusedControl()->Name());
      form_.TypeKeys(u"{TAB}");
    }
    return visited;
  }

  HeadlessPlatform platform_;
  PlatformScope scope_;
  HeadlessForm form_;
};

TEST_F(TabOrderTest, WritingATabIndexMovesTheControlThereAndRenumbersTheOthers) {
  struct Write {
    std::u16string_view name;
    int32_t index;
  };
  struct Row {
    const char* what;
    std::vector<Write> writes;
    Names order;
  };
  const Row rows[] = {
      {"placement order", {}, {u"A", u"B", u"C"}},
      {"the last goes first", {{u"C", 0}}, {u"C", u"A", u"B"}},
      {"the first goes last", {{u"A", 2}}, {u"B", u"C", u"A"}},
      {"one step down", {{u"A", 1}}, {u"B", u"A", u"C"}},
      {"one step up", {{u"C", 1}}, {u"A", u"C", u"B"}},
      {"its own place", {{u"B", 1}}, {u"A", u"B", u"C"}},
      {"beyond the last", {{u"A", 7}}, {u"B", u"C", u"A"}},
      {"far beyond", {{u"B", 32767}}, {u"A", u"C", u"B"}},
      {"a designer's sequence", {{u"C", 0}, {u"B", 0}, {u"A", 0}}, {u"A", u"B", u"C"}},
      {"reversed", {{u"C", 0}, {u"B", 1}}, {u"C", u"B", u"A"}},
      {"moved back", {{u"C", 0}, {u"C", 2}}, {u"A", u"B", u"C"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    form_.RemoveAll();
    Place({u"A", u"B", u"C"});
    for (const Write& write : row.writes)
      SetTabIndex(write.name, write.index);
    EXPECT_EQ(ByTabIndex(), row.order);
    EXPECT_EQ(ByTabKey(), row.order);
  }
}

TEST_F(TabOrderTest, RefusedWritesChangeNoPlace) {
  Place({u"A", u"B", u"C"});
  SetTabIndex(u"C", 0);
  for (const Variant& refused : {Variant(-1), Variant(u"first"), Variant(70000)}) {
    EXPECT_THROW(form_.FindExtender(u"A")->SetProperty(u"TabIndex", refused), ZKError);
    EXPECT_EQ(ByTabIndex(), (Names{u"C", u"A", u"B"}));
  }
}

TEST_F(TabOrderTest, RemovingAControlClosesItsGapAndNewOnesComeLast) {
  Place({u"A", u"B", u"C", u"D"});
  SetTabIndex(u"D", 0);
  ASSERT_TRUE(form_.RemoveControl(u"A"));
  EXPECT_EQ(ByTabIndex(), (Names{u"D", u"B", u"C"}));
  Place({u"E"});
  EXPECT_EQ(ByTabIndex(), (Names{u"D", u"B", u"C", u"E"}));
  EXPECT_EQ(TabIndex(u"E"), 3);
}

TEST_F(TabOrderTest, AClonedControlTakesThePlaceOfItsOriginal) {
  Place({u"A", u"B", u"C"});
  // The archive carries the tab order in its extender block, as a designer's copy does.
  ASSERT_TRUE(form_.FindControl(u"C")->ParseArchiveStr(form_.FindControl(u"A")->GetArchiveStr()));
  EXPECT_EQ(ByTabIndex(), (Names{u"C", u"A", u"B"}));
}

TEST_F(TabOrderTest, ASavedFormComesBackInItsTabOrder) {
  Place({u"A", u"B", u"C", u"D"});
  SetTabIndex(u"D", 0);
  SetTabIndex(u"A", 3);
  SetTabIndex(u"C", 1);
  const Names saved = ByTabIndex();
  ASSERT_EQ(saved, (Names{u"D", u"C", u"B", u"A"}));
  form_.LoadText(form_.SaveText());
  EXPECT_EQ(ByTabIndex(), saved);
  EXPECT_EQ(ByTabKey(), saved);
}

}  // namespace
}  // namespace zk
