#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "controls/text/platform_text_rules.h"
#include "models/typed_text_model.h"
#include "platform/headless/headless_platform.h"
#include "platform/icu/icu_locale.h"

namespace zk {
namespace {

std::string Narrow(std::u16string_view text) {
  std::string out;
  for (char16_t unit : text)
    out += unit < 0x80 ? static_cast<char>(unit) : '?';
  return out;
}

// The locale-dependent rows go through the platform adapter over ICU, as the control's do.
PlatformTextRules& RulesOf(std::u16string_view locale_name) {
  struct Entry {
    IcuLocale locale;
    PlatformTextRules rules{locale};
    explicit Entry(std::u16string_view name) : locale(name) {}
  };
  static std::map<std::u16string, std::unique_ptr<Entry>, std::less<>> entries;
  auto found = entries.find(locale_name);
  if (found == entries.end()) {
    found = entries.emplace(locale_name, std::make_unique<Entry>(locale_name)).first;
  }
  return found->second->rules;
}

TypedTextSettings Kind(zktTextDataType type, std::u16string date = u"/", std::u16string hour = u":",
                       std::u16string decimal = u".", std::u16string date_hour = u" ") {
  TypedTextSettings settings;
  settings.DataType = type;
  settings.DateSep = std::move(date);
  settings.HourSep = std::move(hour);
  settings.DecimalSep = std::move(decimal);
  settings.DateHourSep = std::move(date_hour);
  return settings;
}
TypedTextSettings Dec(std::u16string sep) {
  return Kind(zktTDDecimal, u"/", u":", std::move(sep));
}
TypedTextSettings Formatted(zktTextDataType type, std::u16string format,
                            zktTextForceCase force = zktTForceNone) {
  TypedTextSettings settings = Kind(type);
  settings.TextFormat = std::move(format);
  settings.ForceTextCase = force;
  return settings;
}
TypedTextSettings Forced(zktTextDataType type, zktTextForceCase force) {
  return Formatted(type, u"", force);
}

TEST(TypedTextRulesTest, ValidityFollowsTheKindThePatternAndTheLocale) {
  const struct {
    std::u16string_view locale;
    TypedTextSettings settings;
    std::u16string_view text;
    bool valid;
  } cases[] = {
      {u"en-US", Kind(zktTDText), u"", true},
      {u"en-US", Kind(zktTDText), u"anything", true},
      {u"en-US", Kind(static_cast<zktTextDataType>(9)), u"abc", true},
      {u"en-US", Kind(zktTDInteger), u"12", true},
      {u"en-US", Kind(zktTDInteger), u"-12", true},
      {u"en-US", Kind(zktTDInteger), u"--5", false},
      {u"en-US", Kind(zktTDInteger), u"5-", false},
      {u"en-US", Kind(zktTDInteger), u"3.5", false},
      {u"en-US", Kind(zktTDInteger), u"abc", false},
      {u"en-US", Kind(zktTDInteger), u"", false},
      {u"en-US", Kind(zktTDInteger, u"/", u":", u""), u"12", true},
      {u"en-US", Dec(u"."), u"3.5", true},
      {u"en-US", Dec(u"."), u"1.2.3", true},
      {u"en-US", Dec(u","), u"3,5", true},
      {u"en-US", Dec(u"."), u"3a", false},
      {u"en-US", Kind(zktTDDate), u"12/05/2005", true},
      {u"en-US", Kind(zktTDDate), u"02/29/2004", true},
      {u"en-US", Kind(zktTDDate), u"29/02/2004", false},
      {u"en-US", Kind(zktTDDate), u"12/05", true},
      {u"en-US", Kind(zktTDDate), u"12/05/", false},
      {u"en-US", Kind(zktTDDate, u"--"), u"12--05--2005", true},
      {u"en-US", Kind(zktTDDate, u"."), u"12.05.2005", true},
      {u"en-US", Kind(zktTDHour), u"10:30", true},
      {u"en-US", Kind(zktTDHour), u"25:00", false},
      {u"en-US", Kind(zktTDHour, u"/", u"."), u"10.30", true},
      {u"en-US", Kind(zktTDHour), u"12/05/2005", true},
      {u"en-US", Kind(zktTDDateHour), u"12/05/2005 10:30", true},
      {u"en-US", Kind(zktTDDateHour), u"12/05/2005 25:30", false},
      {u"en-US", Kind(zktTDDateHour, u"-", u"h", u".", u"T"), u"12-05-2005T10h30", true},
      {u"en-US", Kind(zktTDDateHour, u"-", u"h", u".", u"T"), u"12/05/2005 10:30", true},
      {u"en-US", Formatted(zktTDText, u"##-??"), u"12-ab", true},
      {u"en-US", Formatted(zktTDText, u"##-??"), u"12-abc", false},
      {u"en-US", Formatted(zktTDInteger, u"##"), u"12", true},
      {u"en-US", Formatted(zktTDInteger, u"##"), u"123", false},
      {u"en-US", Formatted(zktTDInteger, u"??"), u"ab", false},
      {u"de-DE", Dec(u","), u"3,5", true},
      {u"de-DE", Dec(u","), u"1,2,3", true},
      {u"de-DE", Dec(u","), u"3,,", true},
      {u"de-DE", Dec(u","), u",", false},
      {u"de-DE", Kind(zktTDInteger), u"1.5", false},
      {u"de-DE", Kind(zktTDInteger, u"/", u":", u","), u"1.5", true},
      {u"de-DE", Kind(zktTDDate), u"31/02/2005", false},
      {u"de-DE", Kind(zktTDDate), u"29/02/2004", true},
      {u"de-DE", Kind(zktTDDate), u"29/02/2005", false},
      {u"de-DE", Kind(zktTDDate, u"."), u"12.05.2005", true},
      {u"de-DE", Kind(zktTDDateHour, u".", u":", u",", u" "), u"29.02.2004 23:59", true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(IsTextValid(c.text, c.settings, RulesOf(c.locale)), c.valid)
        << Narrow(c.locale) << " type " << c.settings.DataType << " [" << Narrow(c.text) << "]";
  }
}

TEST(TypedTextRulesTest, ArrowKeysStepNumericTexts) {
  const struct {
    std::u16string_view locale;
    TypedTextSettings settings;
    std::u16string_view text;
    int16_t key;
    double increment;
    std::optional<std::u16string> stepped;
  } cases[] = {
      {u"en-US", Kind(zktTDText), u"9", kKeyUp, 1, u"10"},
      {u"en-US", Kind(zktTDText), u"10", kKeyDown, 1, u"9"},
      {u"en-US", Kind(zktTDInteger), u"0.5", kKeyDown, 1, u"-0.5"},
      {u"en-US", Kind(zktTDText), u"2.5", kKeyUp, 0.25, u"2.75"},
      {u"en-US", Kind(zktTDText), u"9", kKeyUp, -1, u"8"},
      {u"en-US", Kind(zktTDText), u"abc", kKeyUp, 1, std::nullopt},
      {u"en-US", Kind(zktTDText), u"", kKeyUp, 1, std::nullopt},
      {u"en-US", Kind(zktTDText), u"9", kKeyUp, 0, std::nullopt},
      {u"en-US", Kind(zktTDText), u"9", 37, 1, std::nullopt},
      {u"en-US", Kind(zktTDDate), u"12/05/2005", kKeyUp, 1, std::nullopt},
      {u"en-US", Kind(zktTDText), u"1E308", kKeyUp, 1E308, std::nullopt},
      {u"en-US", Dec(u","), u"-0,5", kKeyUp, 1, u"0,5"},
      {u"de-DE", Dec(u","), u"-0,5", kKeyUp, 1, u"0,5"},
      {u"de-DE", Dec(u","), u"0,5", kKeyDown, 1, u"-0,5"},
      {u"de-DE", Dec(u","), u"9", kKeyUp, 1, u"10"},
      {u"de-DE", Dec(u"."), u"1.5", kKeyUp, 1, u"2.5"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(StepNumericText(c.text, c.key, c.settings, c.increment, RulesOf(c.locale)), c.stepped)
        << Narrow(c.locale) << " [" << Narrow(c.text) << "] key " << c.key;
  }
}

// Texts the locale calls numeric but whose value no float holds leave the text as it was.
TEST(TypedTextRulesTest, StepLeavesAnOverflowingTextAlone) {
  class EverythingNumeric final : public TypedTextRules {
   public:
    bool IsNumeric(std::u16string_view) const override { return true; }
    bool IsDate(std::u16string_view) const override { return false; }
    std::u16string ToUpper(std::u16string_view text) const override { return std::u16string(text); }
    std::u16string ToLower(std::u16string_view text) const override { return std::u16string(text); }
    void Beep() override {}
  } rules;
  const std::u16string_view texts[] = {u"1E400", u"&H1FFFFFFFF"};
  for (std::u16string_view text : texts) {
    EXPECT_EQ(StepNumericText(text, kKeyUp, TypedTextSettings{}, 1, rules), std::nullopt)
        << Narrow(text);
  }
}

TEST(TypedTextRulesTest, ForcedCaseFollowsTheLocale) {
  const struct {
    std::u16string_view locale;
    int32_t force;
    std::u16string_view text;
    std::u16string_view forced;
  } cases[] = {
      {u"en-US", zktTForceUpperCase, u"abc1", u"ABC1"},
      {u"en-US", zktTForceLowerCase, u"AbC", u"abc"},
      {u"en-US", zktTForceNone, u"AbC", u"AbC"},
      {u"en-US", 7, u"AbC", u"AbC"},
      {u"en-US", zktTForceUpperCase, u"i", u"I"},
      {u"de-DE", zktTForceUpperCase, u"stra\u00dfe", u"STRASSE"},
      {u"de-DE", zktTForceLowerCase, u"\u00c4RGER", u"\u00e4rger"},
      {u"tr-TR", zktTForceUpperCase, u"i", u"\u0130"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ApplyForceTextCase(c.text, static_cast<zktTextForceCase>(c.force), RulesOf(c.locale)),
              c.forced)
        << Narrow(c.locale) << " " << c.force << " [" << Narrow(c.text) << "]";
  }
}

TEST(TypedTextRulesTest, LeavingCancelsAndBeepsOnlyForAnInvalidNonEmptyText) {
  const struct {
    TypedTextSettings settings;
    std::u16string_view text;
    bool design;
    bool cancel;
    std::u16string_view text_after;
  } cases[] = {
      {Kind(zktTDInteger), u"", false, false, u""},
      {Formatted(zktTDDate, u"##"), u"", false, false, u""},
      {Kind(zktTDInteger), u"12", false, false, u"12"},
      {Kind(zktTDInteger), u"abc", false, true, u"abc"},
      {Kind(zktTDInteger), u"--5", false, true, u"--5"},
      {Kind(zktTDInteger), u"abc", true, false, u"abc"},
      {Kind(zktTDDate), u"12/05/2005", false, false, u"12/05/2005"},
      {Kind(zktTDDate), u"31/02/2005", false, true, u"31/02/2005"},
      {Forced(zktTDText, zktTForceUpperCase), u"abc", false, false, u"ABC"},
      {Forced(zktTDText, zktTForceUpperCase), u"abc", true, false, u"abc"},
      {Forced(zktTDText, zktTForceLowerCase), u"ABC", false, false, u"abc"},
      {Formatted(zktTDText, u"[A-Z][A-Z]", zktTForceUpperCase), u"ab", false, false, u"AB"},
      {Formatted(zktTDText, u"[A-Z][A-Z]", zktTForceLowerCase), u"AB", false, true, u"ab"},
  };
  HeadlessPlatform platform(HeadlessOptions{u"de-DE"});
  PlatformScope scope(platform);
  PlatformTextRules rules;
  for (const auto& c : cases) {
    SCOPED_TRACE("[" + Narrow(c.text) + "] design " + std::to_string(c.design));
    platform.Recorder().Clear();
    const LeaveCheck check = ValidateOnLeave(c.text, c.settings, c.design, rules);
    EXPECT_EQ(check.cancel, c.cancel);
    EXPECT_EQ(check.text, c.text_after);
    EXPECT_EQ(platform.Recorder().beeps, c.cancel ? 1 : 0);
  }
}

TEST(TypedTextRulesTest, AutoSelectTakesTheWholeText) {
  const struct {
    std::u16string_view text;
    bool auto_select;
    std::optional<TextSelection> selection;
  } cases[] = {
      {u"abc", true, TextSelection{0, 3}},
      {u"", true, TextSelection{0, 0}},
      {u"\U0001F600x", true, TextSelection{0, 3}},
      {u"abc", false, std::nullopt},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(AutoSelectOnFocus(c.text, c.auto_select), c.selection) << Narrow(c.text);
  }
}

}  // namespace
}  // namespace zk
