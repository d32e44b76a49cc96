// A host's property bag that fails on one key, for every key that every control kind reads:
// the failure reaches the host that asked, and the control stays whole: it still writes an
// archive string and its properties, a control that reads those properties back is the same
// control, and it leaves the form cleanly.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/control_kinds.h"
#include "foundation/archive_utils.h"
#include "foundation/zk_error.h"
#include "framework/control.h"
#include "platform/common/memory_property_bag.h"
#include "tests/controls/form_fixture.h"

namespace zk {
namespace {

// Lists the keys read and answers each with its default, or fails at the key numbered
// `fail_at`.
class FailingBag final : public IPropertyBag {
 public:
  explicit FailingBag(size_t fail_at) : fail_at_(fail_at) {}
  Variant ReadProperty(std::u16string_view key, const Variant& default_value) override {
    if (keys.size() == fail_at_) throw ZKError(kFailureNumber, u"The bag cannot read this key");
    keys.emplace_back(key);
    return default_value;
  }
  void WriteProperty(std::u16string_view, const Variant&, const Variant&) override {}

  static constexpr int32_t kFailureNumber = 321;
  std::vector<std::u16string> keys;

 private:
  size_t fail_at_;
};

// The archive string's elements after the extender block: what the control itself keeps (the
// host keeps the block, and the property bag does not carry it).
std::vector<std::u16string> OwnElements(std::u16string_view archive) {
  std::vector<std::u16string> elements = MArchiveUtils::ArchiveSplitElements(archive);
  if (!elements.empty()) elements.erase(elements.begin());
  return elements;
}

using PropertyBagFaultTest = FormTest;

TEST_F(PropertyBagFaultTest, EveryKindStaysWholeWhenTheBagFailsAtAnyKey) {
  for (const ControlKind& kind : ControlKinds()) {
    SCOPED_TRACE(std::string(kind.name.begin(), kind.name.end()));
    FailingBag listing(static_cast<size_t>(-1));
    form_.AddControl(kind.name, u"Listed").ReadProperties(listing);
    ASSERT_FALSE(listing.keys.empty());
    form_.RemoveControl(u"Listed");

    for (size_t fail_at = 0; fail_at < listing.keys.size(); ++fail_at) {
      ZKControl& control = form_.AddControl(kind.name, u"Failing");
      FailingBag failing(fail_at);
      try {
        control.ReadProperties(failing);
        ADD_FAILURE() << "no failure at key " << fail_at;
      } catch (const ZKError& error) {
        EXPECT_EQ(error.Number(), FailingBag::kFailureNumber);
      }
      EXPECT_EQ(failing.keys.size(), fail_at);

      // Whatever was read before the failure, the control's state is one that its property
      // bag form captures whole: a control that reads what it writes ends up with the same
      // archive string and writes the same bag again.
      const std::u16string written = control.GetArchiveStr();
      ASSERT_FALSE(written.empty()) << "after a failure at key " << fail_at;
      MemoryPropertyBag saved;
      EXPECT_NO_THROW(control.WriteProperties(saved));
      ZKControl& fresh = form_.AddControl(kind.name, u"Fresh");
      fresh.ReadProperties(saved);
      EXPECT_EQ(OwnElements(fresh.GetArchiveStr()), OwnElements(written));
      MemoryPropertyBag again;
      fresh.WriteProperties(again);
      ASSERT_EQ(again.Entries().size(), saved.Entries().size());
      for (size_t i = 0; i < saved.Entries().size(); ++i) {
        EXPECT_EQ(again.Entries()[i].first, saved.Entries()[i].first);
        EXPECT_TRUE(
            MemoryPropertyBag::SameValue(again.Entries()[i].second, saved.Entries()[i].second));
      }
      // Its archive string is taken by a control of the kind.
      EXPECT_TRUE(fresh.ParseArchiveStr(written));
      EXPECT_TRUE(form_.RemoveControl(u"Failing"));
      EXPECT_TRUE(form_.RemoveControl(u"Fresh"));
    }
  }
  EXPECT_TRUE(form_.Controls().empty());
}

}  // namespace
}  // namespace zk
