// Random operations applied to the model and to the plain reference must leave both with the
// same rows, tags, NewIndex, ListIndex and TopIndex after every single operation. The model
// searches its sorted runs where the reference scans every row, so this is what shows that
// the search finds the very row the scan stops at, on sorted and unsorted lists alike.
//
// The normal suite runs ten thousand operations in code-unit order and five thousand in the
// locale's collation; ZK_LONG_PROPERTY_TESTS=1 runs a million of each, and ZK_PROPERTY_SEED=N
// another random sequence.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "models/edit_list_model.h"
#include "models/ordinal_caseless_collation.h"
#include "tests/models/edit_list_host.h"
#include "tests/models/icu_collation.h"
#include "tests/models/reference_edit_list.h"

namespace zk {
namespace {

using edit_list_test::IcuCollation;
using edit_list_test::Narrow;
using edit_list_test::RecordingHost;
using edit_list_test::ReferenceEditList;

// An order that the user can switch, as a locale can be switched: ignoring letter case (the
// usual one) or not. Both are consistent orders; switching bumps the generation.
class SwitchableCollation final : public TextCollation {
 public:
  int Compare(std::u16string_view a, std::u16string_view b) const override {
    if (!case_sensitive_) return caseless_.Compare(a, b);
    return a.compare(b);
  }
  uint64_t Generation() const override { return generation_; }
  void Switch() {
    case_sensitive_ = !case_sensitive_;
    ++generation_;
  }

 private:
  OrdinalCaselessCollation caseless_;
  bool case_sensitive_ = false;
  uint64_t generation_ = 7;
};

int64_t OperationCount(int64_t normal) {
  const char* value = std::getenv("ZK_LONG_PROPERTY_TESTS");
  return value != nullptr && std::string(value) == "1" ? 1000000 : normal;
}

uint32_t Seed() {
  const char* value = std::getenv("ZK_PROPERTY_SEED");
  return value != nullptr ? static_cast<uint32_t>(std::strtoul(value, nullptr, 10)) : 20240611u;
}

struct Counts {
  int64_t sorted_adds = 0;
  int64_t index_adds = 0;
  int64_t refused_adds = 0;
  int64_t plain_adds = 0;
  int64_t removals = 0;
  int64_t cell_writes = 0;
  int64_t other = 0;
  int64_t archive_rounds = 0;
  int32_t largest = 0;
};

class Runner {
 public:
  Runner(std::shared_ptr<TextCollation> collation, std::vector<std::u16string> alphabet,
         uint32_t seed)
      : collation_(collation),
        model_(collation, &host_),
        reference_([collation](std::u16string_view a, std::u16string_view b) {
          return collation->Compare(a, b);
        }),
        alphabet_(std::move(alphabet)),
        random_(seed) {}

  // Runs `operations` random operations, comparing after each; stops at the first difference.
  testing::AssertionResult Run(int64_t operations, SwitchableCollation* switchable) {
    // The list grows to a random size, then shrinks to a few rows by removals spread all over
    // it, so that it is stored in many blocks, then in many thinned-out ones.
    bool growing = true;
    int32_t target = 600;
    for (int64_t step = 0; step < operations; ++step) {
      if (growing && model_.ListCount() >= target) growing = false;
      if (!growing && model_.ListCount() <= 10) {
        growing = true;
        target = Between(50, 1500);
      }
      const std::string done = Step(growing, switchable);
      testing::AssertionResult same = Same();
      if (!same) return same << "\nafter operation " << step << ": " << done;
      counts_.largest = std::max(counts_.largest, model_.ListCount());
    }
    return testing::AssertionSuccess();
  }

  const Counts& counts() const { return counts_; }

 private:
  bool Chance(int percent) { return Below(100) < percent; }
  int32_t Below(int32_t bound) {
    return std::uniform_int_distribution<int32_t>(0, bound - 1)(random_);
  }
  int32_t Between(int32_t low, int32_t high) {
    return std::uniform_int_distribution<int32_t>(low, high)(random_);
  }

  // Short texts from a small alphabet: many equal keys, many that differ in case only.
  std::u16string Text(int32_t min_length) {
    std::u16string text;
    const int32_t length = Between(min_length, 3);
    for (int32_t i = 0; i < length; ++i)
      text += alphabet_[static_cast<size_t>(Below(static_cast<int32_t>(alphabet_.size())))];
    return text;
  }

  std::string Step(bool growing, SwitchableCollation* switchable) {
    const int32_t count = model_.ListCount();
    const int32_t roll = !growing && Chance(50) ? 600 : Below(1000);
    // Half the operations add a row without an Index.
    if (roll < 480 || roll >= 897) {
      const std::u16string item = Text(0);
      const std::u16string tag = Chance(45) ? std::u16string() : Text(1);
      model_.AddItem(item, Variant(), tag);
      reference_.AddItem(item, std::nullopt, tag);
      ++(model_.SortOrder() == zktSortNone ? counts_.plain_adds : counts_.sorted_adds);
      return "AddItem \"" + Narrow(item) + "\", , \"" + Narrow(tag) + "\"";
    }
    if (roll < 560) {
      const std::u16string item = Text(0);
      const std::u16string tag = Chance(50) ? std::u16string() : Text(1);
      const int32_t index = Between(-2, count + 2);
      model_.AddItem(item, index, tag);
      const bool added = reference_.AddItem(item, index, tag);
      ++(added ? counts_.index_adds : counts_.refused_adds);
      if (host_.traces.size() != (added ? 0u : 1u)) return "AddItem traced wrongly";
      host_.traces.clear();
      return "AddItem \"" + Narrow(item) + "\", " + std::to_string(index);
    }
    if (roll < 680) {
      const int32_t index = Between(-1, count);
      const bool removed = model_.RemoveItem(index);
      if (removed != reference_.RemoveItem(index)) return "RemoveItem answered wrongly";
      ++counts_.removals;
      return "RemoveItem " + std::to_string(index);
    }
    if (roll < 760) {
      const int column = Below(2);
      const int32_t index = Between(-2, count + 1);
      const std::u16string text = Chance(20) ? std::u16string() : Text(1);
      const int32_t row = index == -1 ? model_.ListIndex() : index;
      host_.changes.clear();
      if (column == 0) {
        model_.SetItemList(index, text);
      } else {
        model_.SetTagList(index, text);
      }
      reference_.SetCell(column, index, text);
      const std::vector<RecordingHost::ChangeEvent> expected =
          row >= 0 ? std::vector<RecordingHost::ChangeEvent>{{row, column}}
                   : std::vector<RecordingHost::ChangeEvent>{};
      if (host_.changes != expected) return "Change raised wrongly";
      ++counts_.cell_writes;
      return (column == 0 ? "ItemList(" : "TagList(") + std::to_string(index) + ") = \"" +
             Narrow(text) + "\"";
    }
    ++counts_.other;
    if (roll < 800) {
      const int32_t index = Between(-2, count);
      if (model_.SetListIndex(index) != reference_.SetListIndex(index))
        return "ListIndex answered wrongly";
      return "ListIndex = " + std::to_string(index);
    }
    if (roll < 830) {
      const int32_t order = Between(0, 3);
      model_.SetSortOrder(order);
      if (order <= zktSortZtoA) reference_.SetSortOrder(static_cast<zktSortOrder>(order));
      return "SortOrder = " + std::to_string(order);
    }
    if (roll < 860) {
      const bool show = Chance(70);
      const auto position = Chance(70) ? zktTagPosLeft : zktTagPosRight;
      model_.SetSortKeyLayout(show, position);
      reference_.SetLayout(show, position);
      return "ShowTags " + std::to_string(show) + ", position " + std::to_string(position);
    }
    if (roll < 880) {
      const int32_t index = Between(0, count);
      model_.SetSelected(index, true);
      reference_.SetListIndex(index < count ? index : reference_.ListIndex());
      return "Selected(" + std::to_string(index) + ") = True";
    }
    if (roll < 890 && switchable != nullptr) {
      switchable->Switch();
      return "the collation switched";
    }
    if (roll < 895) {
      // The list archive read back goes through AddItem row by row, sorted again.
      ++counts_.archive_rounds;
      const std::vector<std::u16string> items = reference_.Items();
      const std::vector<std::u16string> tags = reference_.Tags();
      model_.ParseListArchive(model_.ItemsArchive(), model_.TagsArchive());
      reference_.Clear();
      for (size_t i = 0; i < items.size(); ++i)
        reference_.AddItem(items[i], std::nullopt, tags[i]);
      return "the list archive read back";
    }
    model_.Clear();
    reference_.Clear();
    return "Clear";
  }

  testing::AssertionResult Same() {
    if (model_.ListIndex() != reference_.ListIndex() ||
        model_.NewIndex() != reference_.NewIndex() || model_.TopIndex() != reference_.TopIndex()) {
      return testing::AssertionFailure()
             << "ListIndex " << model_.ListIndex() << " / " << reference_.ListIndex()
             << ", NewIndex " << model_.NewIndex() << " / " << reference_.NewIndex()
             << ", TopIndex " << model_.TopIndex() << " / " << reference_.TopIndex();
    }
    if (model_.ListCount() != static_cast<int32_t>(reference_.Items().size())) {
      return testing::AssertionFailure()
             << "ListCount " << model_.ListCount() << " / " << reference_.Items().size();
    }
    size_t row = 0;
    bool same = true;
    model_.Rows().ForEachRow([&](std::u16string_view item, std::u16string_view tag) {
      same = same && item == reference_.Items()[row] && tag == reference_.Tags()[row];
      ++row;
    });
    if (!same) {
      return testing::AssertionFailure()
             << "items " << Narrow(edit_list_test::ItemsOf(model_)) << "\n  expected "
             << Narrow(reference_.Items()) << "\ntags " << Narrow(edit_list_test::TagsOf(model_))
             << "\n  expected " << Narrow(reference_.Tags());
    }
    // Reading by index goes through the block index rather than in order.
    if (row > 0) {
      const auto probe = static_cast<int32_t>(random_() % row);
      if (model_.ItemList(probe) != reference_.Items()[static_cast<size_t>(probe)] ||
          model_.TagList(probe) != reference_.Tags()[static_cast<size_t>(probe)]) {
        return testing::AssertionFailure() << "row " << probe << " read by index differs";
      }
    }
    return testing::AssertionSuccess();
  }

  std::shared_ptr<TextCollation> collation_;
  RecordingHost host_;
  CEditListModel model_;
  ReferenceEditList reference_;
  std::vector<std::u16string> alphabet_;
  std::mt19937 random_;
  Counts counts_;
};

void Report(const char* name, int64_t operations, const Counts& counts) {
  std::cout << name << ": " << operations << " operations: " << counts.sorted_adds
            << " sorted adds, " << counts.plain_adds << " unsorted appends, " << counts.index_adds
            << " adds at an index, " << counts.refused_adds << " refused, " << counts.removals
            << " removals, " << counts.cell_writes << " cell writes, " << counts.archive_rounds
            << " archive round trips, " << counts.other << " others; up to " << counts.largest
            << " rows\n";
}

TEST(EditListProperty, SearchAndScanPlaceEveryRowAlike) {
  auto collation = std::make_shared<SwitchableCollation>();
  Runner runner(collation, {u"a", u"A", u"b", u"B", u"c"}, Seed());
  const int64_t operations = OperationCount(10000);
  EXPECT_TRUE(runner.Run(operations, collation.get())) << "seed " << Seed();
  Report("ordinal", operations, runner.counts());
  EXPECT_GT(runner.counts().sorted_adds, operations / 10);
  EXPECT_GT(runner.counts().largest, 200);
}

// The locale's collation is the order the control hands over: accents, case and punctuation
// weigh differently in it than in code-unit order.
TEST(EditListProperty, SearchAndScanAgreeUnderTheLocaleCollation) {
  Runner runner(std::make_shared<IcuCollation>(),
                {u"a", u"A", u"\u00e1", u"\u00c1", u"b", u"-", u" ", u"1"}, Seed() + 1);
  const int64_t operations = OperationCount(5000);
  EXPECT_TRUE(runner.Run(operations, nullptr)) << "seed " << Seed() + 1;
  Report("en-US collation", operations, runner.counts());
}

}  // namespace
}  // namespace zk
