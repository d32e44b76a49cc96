// Every control kind's property table against what the control does: a new control holds the
// table's new-control values, an empty bag gives the table's defaults (and writes nothing back),
// each archive place carries its own property and no other, and the bag keeps every value.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "controls/control_kinds.h"
#include "foundation/archive_utils.h"
#include "foundation/text_encoding.h"
#include "platform/common/memory_property_bag.h"
#include "tests/controls/form_fixture.h"

namespace zk {
namespace {

std::string Utf8(std::u16string_view text) {
  return Utf16ToUtf8(text);
}

// The published rows that a test can read back through the getter.
bool Readable(const PropertyRow& row) {
  return row.Published() && row.member.kind == MemberKind::kProperty && row.member.get &&
         !row.stored;
}

// Properties whose archive elements act together. Reading BackColor switches AmbientBackColor
// off, and its own element, read after it, takes the container's colour again unless it is F;
// DesignMode locks or unlocks a text edit, and it is read after Locked. A progress bar's caption
// shows its value while ShowProgress is on (an archived caption lasts only with it off), so
// Progress and Percentage change the caption's element too. A slider's Min brings its Value up
// with it, and switching its AmbientBackColor on takes the container's colour.
struct Companion {
  std::u16string_view kind;
  std::u16string_view property;
  std::u16string_view companion;
  // The companion's element while the property is tested; empty: as the control writes it.
  std::u16string_view element;
};

constexpr Companion kCompanions[] = {
    {u"ZKLabel", u"BackColor", u"AmbientBackColor", u"F"},
    {u"ZKFrame", u"BackColor", u"AmbientBackColor", u"F"},
    {u"ZKTextEdit", u"Locked", u"DesignMode", u"T"},
    {u"ZKTextEdit", u"DesignMode", u"Locked", u""},
    {u"ZKMultiLineTextEdit", u"Locked", u"DesignMode", u"T"},
    {u"ZKMultiLineTextEdit", u"DesignMode", u"Locked", u""},
    {u"ZKProgessBar", u"Caption", u"ShowProgress", u"F"},
    {u"ZKProgessBar", u"Progress", u"Caption", u""},
    {u"ZKProgessBar", u"Percentage", u"Caption", u""},
    {u"ZKSlider", u"Min", u"Value", u""},
    {u"ZKSlider", u"AmbientBackColor", u"BackColor", u""},
};

const Companion* CompanionOf(std::u16string_view kind, std::u16string_view property) {
  for (const Companion& companion : kCompanions) {
    if (companion.kind == kind && companion.property == property) return &companion;
  }
  return nullptr;
}

class PropertyTableTest : public FormTest {
 protected:
  ZKControl& NewControl(std::u16string_view kind) {
    const std::string digits = std::to_string(count_++);
    const std::u16string name = u"C" + std::u16string(digits.begin(), digits.end());
    return Add<ZKControl>(kind, name);
  }

  // A value the property's setter accepts and that differs from the current one, or nothing.
  std::optional<Variant> OtherAcceptedValue(std::u16string_view kind, const PropertyRow& row) {
    ZKControl& probe = NewControl(kind);
    const Variant current = probe.GetProperty(row.Name());
    std::vector<Variant> candidates;
    switch (row.kind) {
      case ArchiveKind::kBool:
        candidates.emplace_back(!current.ToBool());
        break;
      case ArchiveKind::kText:
        candidates.emplace_back(current.ToText() + u"x");
        candidates.emplace_back(u"x");
        break;
      case ArchiveKind::kNumber:
        candidates.emplace_back(current.ToDouble() + 1);
        candidates.emplace_back(current.ToDouble() - 1);
        break;
      case ArchiveKind::kFont:
        return std::nullopt;
    }
    for (const Variant& candidate : candidates) {
      try {
        probe.SetProperty(row.Name(), candidate);
      } catch (...) {
        continue;
      }
      const Variant now = probe.GetProperty(row.Name());
      if (MemoryPropertyBag::SameValue(now, candidate)) return now;
    }
    return std::nullopt;
  }

  int count_ = 0;
};

TEST_F(PropertyTableTest, NewControlsHoldTheTablesNewValues) {
  for (const ControlKind& kind : ControlKinds()) {
    ZKControl& control = NewControl(kind.name);
    int checked = 0;
    for (const PropertyRow& row : control.Properties().Rows()) {
      if (!row.new_value.Present() || !Readable(row)) continue;
      const Variant expected = row.new_value.Resolve(form_.AmbientProperties());
      EXPECT_TRUE(MemoryPropertyBag::SameValue(control.GetProperty(row.Name()), expected))
          << Utf8(kind.name) << "." << Utf8(row.Name());
      ++checked;
    }
    EXPECT_GE(checked, 3) << Utf8(kind.name);
  }
}

TEST_F(PropertyTableTest, AnEmptyBagGivesTheDefaultsAndWritesNothingBack) {
  for (const ControlKind& kind : ControlKinds()) {
    ZKControl& control = NewControl(kind.name);
    MemoryPropertyBag empty;
    control.ReadProperties(empty);
    EXPECT_TRUE(Notified().empty()) << Utf8(kind.name) << ": reading notified";
    for (const PropertyRow& row : control.Properties().Rows()) {
      if (!row.bag_default.Present() || !Readable(row)) continue;
      const Variant expected = row.bag_default.Resolve(form_.AmbientProperties());
      EXPECT_TRUE(MemoryPropertyBag::SameValue(control.GetProperty(row.Name()), expected))
          << Utf8(kind.name) << "." << Utf8(row.Name());
    }
    MemoryPropertyBag written;
    control.WriteProperties(written);
    for (const auto& [key, value] : written.Entries())
      ADD_FAILURE() << Utf8(kind.name) << " wrote " << Utf8(key) << " though it is the default";
  }
}

TEST_F(PropertyTableTest, EachArchivePlaceCarriesItsOwnPropertyOnly) {
  for (const ControlKind& kind : ControlKinds()) {
    ZKControl& original = NewControl(kind.name);
    const std::u16string archive = original.GetArchiveStr();
    const std::vector<std::u16string> elements = MArchiveUtils::ArchiveSplitElements(archive);
    ASSERT_EQ(elements.size(), original.ArchiveFields().size() + 1) << Utf8(kind.name);
    int checked = 0;
    for (const PropertyRow& row : original.Properties().Rows()) {
      if (row.archive_place == 0 || !Readable(row)) continue;
      const std::optional<Variant> other = OtherAcceptedValue(kind.name, row);
      if (!other) continue;
      std::vector<std::u16string> changed = elements;
      const auto place = static_cast<size_t>(row.archive_place);
      switch (row.kind) {
        case ArchiveKind::kBool:
          changed[place] = MArchiveUtils::ArchiveEscapeBool(other->ToBool());
          break;
        case ArchiveKind::kText:
          changed[place] = MArchiveUtils::ArchiveEscapeString(other->ToText());
          break;
        default:
          changed[place] = MArchiveUtils::ArchiveEscapeNumber(other->ToDouble());
          break;
      }
      size_t companion_place = 0;
      if (const Companion* companion = CompanionOf(kind.name, row.Name())) {
        companion_place =
            static_cast<size_t>(original.Properties().Find(companion->companion)->archive_place);
        if (!companion->element.empty()) {
          changed[companion_place] = std::u16string(companion->element);
        }
      }
      ZKControl& copy = NewControl(kind.name);
      ASSERT_TRUE(copy.ParseArchiveStr(MArchiveUtils::ArchiveJoinElements(changed)));
      EXPECT_TRUE(MemoryPropertyBag::SameValue(copy.GetProperty(row.Name()), *other))
          << Utf8(kind.name) << "." << Utf8(row.Name()) << " at " << place;
      // Only that element differs from the original's string.
      const std::vector<std::u16string> back =
          MArchiveUtils::ArchiveSplitElements(copy.GetArchiveStr());
      for (size_t i = 1; i < back.size(); ++i) {
        if (i == place || i == companion_place) continue;
        EXPECT_EQ(Utf8(back[i]), Utf8(elements[i]))
            << Utf8(kind.name) << ": writing " << Utf8(row.Name()) << " changed element " << i;
      }
      ++checked;
    }
    EXPECT_GE(checked, 5) << Utf8(kind.name);
  }
}

TEST_F(PropertyTableTest, TheBagKeepsEveryArchivedValue) {
  for (const ControlKind& kind : ControlKinds()) {
    ZKControl& source = NewControl(kind.name);
    // Every property that takes another value gets it, so that no default hides a lost value.
    for (const PropertyRow& row : source.Properties().Rows()) {
      if (row.archive_place == 0 || !Readable(row)) continue;
      if (std::optional<Variant> other = OtherAcceptedValue(kind.name, row)) {
        source.SetProperty(row.Name(), *other);
      }
    }
    MemoryPropertyBag bag;
    source.WriteProperties(bag);
    ZKControl& loaded = NewControl(kind.name);
    loaded.ReadProperties(bag);
    // Element 0 is the extender's: the two controls have their own names and places.
    const auto own = [](ZKControl& control) {
      std::vector<std::u16string> elements =
          MArchiveUtils::ArchiveSplitElements(control.GetArchiveStr());
      elements.erase(elements.begin());
      return MArchiveUtils::ArchiveJoinElements(elements);
    };
    EXPECT_EQ(Utf8(own(loaded)), Utf8(own(source))) << Utf8(kind.name);
  }
}

}  // namespace
}  // namespace zk
