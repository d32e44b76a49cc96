// Long random sessions of typing, caret moves, arrow keys and setting writes, applied to the
// typed text rules and to the plain step-by-step versions in tests/support. Each side keeps its
// own text and settings; after every operation both must hold the same text, caret and
// settings, and every keystroke, step and validity answer must agree. The texts are built by
// the rules themselves, so the filter meets the separator layouts that typing really makes.
//
// Ten thousand operations in the normal suite; ZK_LONG_PROPERTY_TESTS=1 runs a million, and
// ZK_PROPERTY_SEED=N another random sequence.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "controls/text/platform_text_rules.h"
#include "models/typed_text_model.h"
#include "platform/icu/icu_locale.h"
#include "tests/support/reference_typed_text.h"

namespace zk {
namespace {

int64_t OperationCount() {
  const char* value = std::getenv("ZK_LONG_PROPERTY_TESTS");
  return value != nullptr && std::string(value) == "1" ? 1000000 : 10000;
}

uint32_t Seed() {
  const char* value = std::getenv("ZK_PROPERTY_SEED");
  return value != nullptr ? static_cast<uint32_t>(std::strtoul(value, nullptr, 10)) : 5150;
}

std::string Narrow(std::u16string_view text) {
  std::string out;
  for (char16_t unit : text)
    out += unit < 0x80 ? static_cast<char>(unit) : '?';
  return out;
}

// One editor as a text box holds it: the text, the caret and the selection.
struct Editor {
  TypedTextSettings settings;
  std::u16string text;
  int32_t sel_start = 0;
  int32_t sel_length = 0;

  // What the text box does with a code that came through the filter.
  void Type(int16_t code) {
    if (code == 0) return;
    if (code == kKeyBackspace) {
      if (sel_length == 0 && sel_start > 0) {
        --sel_start;
        sel_length = 1;
      }
      text.erase(static_cast<size_t>(sel_start), static_cast<size_t>(sel_length));
    } else {
      text.replace(static_cast<size_t>(sel_start), static_cast<size_t>(sel_length), 1,
                   static_cast<char16_t>(code));
      ++sel_start;
    }
    sel_length = 0;
  }
};

// The writes of the reference: a value outside the accepted range leaves the setting.
void ReferenceWrite(TypedTextSettings& settings, int which, int32_t value) {
  switch (which) {
    case 0:
      if (value >= 0 && value <= 5) settings.DataType = static_cast<zktTextDataType>(value);
      break;
    case 1:
      if (value >= 0 && value <= 2) settings.ForceTextCase = static_cast<zktTextForceCase>(value);
      break;
    default:
      if (value >= 0 && value <= 32767) settings.MaxLength = value;
      break;
  }
}

void LibraryWrite(TypedTextSettings& settings, int which, int32_t value) {
  switch (which) {
    case 0:
      SetDataType(settings, value);
      break;
    case 1:
      SetForceTextCase(settings, value);
      break;
    default:
      SetMaxLength(settings, value);
      break;
  }
}

bool SameSettings(const TypedTextSettings& a, const TypedTextSettings& b) {
  return a.DataType == b.DataType && a.DateSep == b.DateSep && a.HourSep == b.HourSep &&
         a.DecimalSep == b.DecimalSep && a.DateHourSep == b.DateHourSep &&
         a.TextFormat == b.TextFormat && a.ForceTextCase == b.ForceTextCase &&
         a.MaxLength == b.MaxLength;
}

TEST(TypedTextProperty, RulesAndPlainStepsAgreeAfterEveryOperation) {
  IcuLocale locale(u"en-US");
  PlatformTextRules rules(locale);
  std::mt19937 random(Seed());
  const std::u16string_view separators[] = {u"/", u":", u".", u",", u" ", u"-", u"", u"--"};
  const std::u16string_view patterns[] = {u"", u"##/##/####", u"*#", u"[0-9]*", u"?*[!a]"};
  constexpr std::u16string_view kUnits = u"0123456789+-/:., a?";
  const double increments[] = {0, 1, -1, 0.5, 0.25, 1000, 1E-3};

  Editor library;
  Editor plain;
  int64_t typed = 0;
  int64_t stepped = 0;
  for (int64_t op = 0; op < OperationCount(); ++op) {
    const auto pick = static_cast<uint32_t>(random() % 100);
    const auto length = static_cast<int32_t>(library.text.size());
    if (pick < 55) {
      // A keystroke, with or without Ctrl alone, now and then in design mode.
      int16_t code = static_cast<int16_t>(kUnits[random() % kUnits.size()]);
      if (random() % 12 == 0) code = kKeyBackspace;
      if (random() % 40 == 0) code = static_cast<int16_t>(random() % 65536 - 32768);
      const bool ctrl = random() % 15 == 0;
      const bool design = random() % 50 == 0;
      const int16_t mine = FilterTypedKey(code, library.text, library.sel_start, library.sel_length,
                                          library.settings, ctrl, design);
      const int16_t theirs = reference::FilterTypedKey(
          code, plain.text, plain.sel_start, plain.sel_length, plain.settings, ctrl, design);
      ASSERT_EQ(mine, theirs) << "operation " << op << " code " << code << " text "
                              << Narrow(library.text) << " caret " << library.sel_start << "+"
                              << library.sel_length << " kind " << library.settings.DataType;
      if (mine != 0) ++typed;
      library.Type(mine);
      plain.Type(theirs);
    } else if (pick < 70) {
      const int32_t start = static_cast<int32_t>(random() % (length + 1));
      const int32_t selected =
          random() % 3 == 0 ? static_cast<int32_t>(random() % (length - start + 1)) : 0;
      library.sel_start = plain.sel_start = start;
      library.sel_length = plain.sel_length = selected;
    } else if (pick < 80) {
      const int16_t key = random() % 2 == 0 ? kKeyUp : kKeyDown;
      const double increment = increments[random() % std::size(increments)];
      const auto mine = StepNumericText(library.text, key, library.settings, increment, rules);
      const auto theirs =
          reference::StepNumericText(plain.text, key, plain.settings, increment, rules);
      ASSERT_EQ(mine, theirs) << "operation " << op << " text " << Narrow(library.text);
      if (mine) {
        ++stepped;
        library.text = plain.text = *mine;
        library.sel_start = plain.sel_start = 0;
        library.sel_length = plain.sel_length = 0;
      }
    } else if (pick < 90) {
      // A checked write with a value in or out of range.
      const int which = static_cast<int>(random() % 3);
      const auto value = static_cast<int32_t>(random() % 12) - 2;
      LibraryWrite(library.settings, which, which == 2 ? value * 4000 : value);
      ReferenceWrite(plain.settings, which, which == 2 ? value * 4000 : value);
    } else if (pick < 96) {
      // A separator or pattern assigned as a property bag read does.
      const std::u16string_view sep = separators[random() % std::size(separators)];
      switch (random() % 5) {
        case 0:
          library.settings.DateSep = plain.settings.DateSep = sep;
          break;
        case 1:
          library.settings.HourSep = plain.settings.HourSep = sep;
          break;
        case 2:
          library.settings.DecimalSep = plain.settings.DecimalSep = sep;
          break;
        case 3:
          library.settings.DateHourSep = plain.settings.DateHourSep = sep;
          break;
        default:
          library.settings.TextFormat = plain.settings.TextFormat =
              patterns[random() % std::size(patterns)];
          break;
      }
    } else {
      // The pattern is judged alike; a long text starts afresh.
      ASSERT_EQ(MatchesTextFormat(library.text, library.settings.TextFormat),
                reference::MatchesTextFormat(plain.text, plain.settings.TextFormat))
          << "operation " << op << " text " << Narrow(library.text);
      if (library.text.size() > 24) {
        library.text.clear();
        plain.text.clear();
        library.sel_start = plain.sel_start = 0;
        library.sel_length = plain.sel_length = 0;
      }
    }
    ASSERT_EQ(library.text, plain.text) << "operation " << op;
    ASSERT_EQ(library.sel_start, plain.sel_start);
    ASSERT_EQ(library.sel_length, plain.sel_length);
    ASSERT_TRUE(SameSettings(library.settings, plain.settings)) << "operation " << op;
  }
  // A run in which nothing was typed or stepped would compare nothing of interest.
  EXPECT_GT(typed, OperationCount() / 10);
  EXPECT_GT(stepped, 0);
}

// Patterns whose "*" a backtracking match would try in every combination, against texts that
// almost fit: the steps of the match grow with the text, never with a power of it.
TEST(TypedTextProperty, PatternMatchStepsStayWithinTextTimesPattern) {
  const struct {
    std::u16string_view pattern;
    char16_t fill;
    std::u16string_view tail;
  } cases[] = {{u"*a*a*a*a*a*b", u'a', u"c"},
               {u"*?*?*?*?*?*#", u'x', u"y"},
               {u"*[a-c]*[!0-9]*a#", u'a', u"b"},
               {u"**********z", u'z', u"y"}};
  for (const auto& test : cases) {
    size_t previous = 0;
    for (size_t length : {100u, 200u, 400u, 800u}) {
      const std::u16string text = std::u16string(length, test.fill) + std::u16string(test.tail);
      size_t steps = 0;
      EXPECT_FALSE(MatchesTextFormat(text, test.pattern, steps));
      EXPECT_EQ(MatchesTextFormat(text, test.pattern), false);
      EXPECT_LE(steps, (text.size() + 2) * (test.pattern.size() + 1)) << Narrow(test.pattern);
      // Doubling the text at most doubles the work (and a little for the pattern's ends).
      if (previous != 0) {
        EXPECT_LE(steps, 2 * previous + 2 * test.pattern.size() + 2);
      }
      previous = steps;
    }
  }
}

}  // namespace
}  // namespace zk
