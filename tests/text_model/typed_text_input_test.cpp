#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "models/typed_text_model.h"

namespace zk {
namespace {

// Failure messages name the row by its text; other units show as "?".
std::string Narrow(std::u16string_view text) {
  std::string out;
  for (char16_t unit : text)
    out += unit < 0x80 ? static_cast<char>(unit) : '?';
  return out;
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
TypedTextSettings Date(std::u16string sep) {
  return Kind(zktTDDate, std::move(sep));
}
TypedTextSettings Hour(std::u16string sep) {
  return Kind(zktTDHour, u"/", std::move(sep));
}
TypedTextSettings DateHour(std::u16string date_hour = u" ") {
  return Kind(zktTDDateHour, u"/", u":", u".", std::move(date_hour));
}
TypedTextSettings Limited(zktTextDataType type, int32_t max_length) {
  TypedTextSettings settings = Kind(type);
  settings.MaxLength = max_length;
  return settings;
}

constexpr int32_t kEnd = -1;  // the caret after the last unit
constexpr int16_t kCtrlV = 22;

struct KeyCase {
  TypedTextSettings settings;
  std::u16string_view text;
  int16_t code;
  bool passes;
  int32_t sel_start = kEnd;
  int32_t sel_length = 0;
  bool ctrl = false;
  bool design = false;
};

TEST(TypedKeyFilterTest, LetsThroughOrDiscardsEachKeystroke) {
  const std::u16string hundred_digits(100, u'1');
  const KeyCase cases[] = {
      // Length limit, editing keys, Ctrl and design mode.
      {Kind(zktTDText), u"abc", u'x', true},
      {Limited(zktTDText, 3), u"ab", u'x', true},
      {Limited(zktTDText, 3), u"abc", u'x', false},
      {Limited(zktTDText, 3), u"abcd", u'x', false},
      {Limited(zktTDText, 3), u"abc", u'x', true, 1, 1},
      {Limited(zktTDText, 3), u"abc", kKeyBackspace, true},
      {Limited(zktTDText, 3), u"abc", kCtrlV, true, kEnd, 0, true},
      {Limited(zktTDText, 3), u"abc", u' ', false, kEnd, 0, true},
      {Limited(zktTDText, 3), u"ab", u' ', true, kEnd, 0, true},
      {Kind(zktTDText), u"abc", u'x', false, kEnd, 0, false, true},
      {Kind(zktTDText), u"abc", kKeyBackspace, false, kEnd, 0, false, true},
      {Kind(zktTDText), u"abc", kCtrlV, false, kEnd, 0, true, true},
      // Integer: digits and signs anywhere, in any number.
      {Kind(zktTDInteger), u"12", u'5', true},
      {Kind(zktTDInteger), u"12", u'a', false},
      {Kind(zktTDInteger), u"12", u'.', false},
      {Kind(zktTDInteger), u"12", u',', false},
      {Kind(zktTDInteger), u"--", u'-', true},
      {Kind(zktTDInteger), u"12", u'+', true, 1},
      {Kind(zktTDInteger), u"", kCtrlV, false},
      {Kind(zktTDInteger), u"", kCtrlV, true, kEnd, 0, true},
      {Kind(zktTDInteger), u"1", u' ', false, kEnd, 0, true},
      {Limited(zktTDInteger, 2), u"12", kKeyBackspace, true},
      // Decimal: one separator, selected or not.
      {Dec(u","), u"3", u',', true},
      {Dec(u","), u"3,5", u',', false},
      {Dec(u","), u"3,5", u',', false, 1, 1},
      {Dec(u","), u"3,5", u'.', false},
      {Dec(u","), u"3,5", u'-', true, 0},
      {Dec(u"."), u"3", u'.', true},
      {Dec(u",,"), u"3", u',', false},
      {Dec(u""), u"3", u',', false},
      // Date and hour: digits and at most two separators.
      {Date(u"/"), u"12/05", u'/', true},
      {Date(u"/"), u"12/05/", u'/', false},
      {Date(u"/"), u"12/05/2005", u'/', false, 2, 1},
      {Date(u"/"), u"12", u'3', true},
      {Date(u"/"), u"12", u'a', false},
      {Date(u"/"), u"12", u'.', false},
      {Date(u"."), u"12.05", u'.', true},
      {Date(u"--"), u"12", u'-', false},
      {Date(u"--"), u"12", u'/', false},
      {Hour(u":"), u"10:30", u':', true},
      {Hour(u":"), u"10:30:", u':', false},
      {Hour(u"."), u"10.30", u'.', true},
      {Hour(u"."), u"10", u':', false},
      // Date-hour, hour separator: only after the date and the blank.
      {DateHour(), u"12/05/2005", u':', false},
      {DateHour(), u"12/05/2005 10", u':', true},
      {DateHour(), u"12/05/2005 10", u':', false, 10},
      {DateHour(), u"12/05/2005 10", u':', true, 11},
      {DateHour(), u"12/05/2005 10", u':', false, 3},
      {DateHour(), u"12/05/2005 10:30", u':', true},
      {DateHour(), u"12/05/2005 10:30:00", u':', false},
      {DateHour(), u" 10", u':', true},
      {DateHour(), u" 1/2", u':', true, 3},
      {DateHour(), u" 1/2", u':', false, 2},
      {DateHour(u""), u"12/05/2005", u':', false},
      // Date-hour, date separator: not after the blank or the time.
      {DateHour(), u"12/05", u'/', true},
      {DateHour(), u"12/05/2005 10", u'/', false, 2},
      {DateHour(), u"12/05 10", u'/', false},
      {DateHour(), u"12/05 10", u'/', true, 5},
      {DateHour(), u"12/05 10", u'/', true, 6},
      {DateHour(), u"12/05 10", u'/', false, 7},
      {DateHour(), u"12 10:30", u'/', true, 2},
      {DateHour(), u"12 10:30", u'/', false, 4},
      {DateHour(), u"12:30", u'/', true, 0},
      {DateHour(), u"12:30", u'/', false, 4},
      {DateHour(), hundred_digits, u'/', true, 99},
      {DateHour(), hundred_digits, u'/', false, 100},
      // Date-hour, date-hour separator once; otherwise digits.
      {DateHour(), u"12/05/2005", u' ', true},
      {DateHour(), u"12/05/2005 10", u' ', false, 2},
      {DateHour(), u"12/05/2005", u' ', true, kEnd, 0, true},
      {DateHour(u"T"), u"12/05/2005", u'T', true},
      {DateHour(), u"12/05/2005 1", u'5', true},
      {DateHour(), u"12/05/2005 1", u'a', false},
      {DateHour(), u"12/05/2005 1", u'-', false},
  };
  for (const KeyCase& c : cases) {
    SCOPED_TRACE(Narrow(c.text) + " key " + std::to_string(c.code) + " at " +
                 std::to_string(c.sel_start));
    const int32_t sel_start =
        c.sel_start == kEnd ? static_cast<int32_t>(c.text.size()) : c.sel_start;
    EXPECT_EQ(FilterTypedKey(c.code, c.text, sel_start, c.sel_length, c.settings, c.ctrl, c.design),
              c.passes ? c.code : 0);
  }
}

TEST(TypedKeyFilterTest, CtrlOnlyDownIsExactlyTheCtrlMask) {
  const struct {
    int16_t mask;
    bool ctrl_only;
  } cases[] = {{0, false}, {1, false}, {2, true}, {3, false}, {4, false}, {6, false}, {7, false}};
  for (const auto& c : cases)
    EXPECT_EQ(IsCtrlOnlyDown(c.mask), c.ctrl_only) << c.mask;
}

// Settings start as DataType 3, ForceTextCase 1, MaxLength 10; each row shows all three after.
TEST(TypedKeyFilterTest, SettingWritesOutsideTheirRangeKeepTheOldValue) {
  using Setter = bool (*)(TypedTextSettings&, int32_t) noexcept;
  const struct {
    Setter set;
    int32_t value;
    bool taken;
    int32_t data_type, force, max_length;
  } cases[] = {
      {SetDataType, 5, true, 5, 1, 10},         {SetDataType, 0, true, 0, 1, 10},
      {SetDataType, 6, false, 3, 1, 10},        {SetDataType, -1, false, 3, 1, 10},
      {SetForceTextCase, 2, true, 3, 2, 10},    {SetForceTextCase, 0, true, 3, 0, 10},
      {SetForceTextCase, 3, false, 3, 1, 10},   {SetForceTextCase, -1, false, 3, 1, 10},
      {SetMaxLength, 32767, true, 3, 1, 32767}, {SetMaxLength, 0, true, 3, 1, 0},
      {SetMaxLength, 32768, false, 3, 1, 10},   {SetMaxLength, -1, false, 3, 1, 10},
  };
  TypedTextSettings start;
  start.DataType = zktTDDate;
  start.ForceTextCase = zktTForceUpperCase;
  start.MaxLength = 10;
  for (const auto& c : cases) {
    TypedTextSettings settings = start;
    EXPECT_EQ(c.set(settings, c.value), c.taken) << c.value;
    EXPECT_EQ(settings.DataType, c.data_type) << c.value;
    EXPECT_EQ(settings.ForceTextCase, c.force) << c.value;
    EXPECT_EQ(settings.MaxLength, c.max_length) << c.value;
  }
}

TEST(TextFormatTest, MatchesTheWholeTextCaseSensitively) {
  const struct {
    std::u16string_view pattern;
    std::u16string_view text;
    bool matches;
  } cases[] = {
      {u"##-??", u"12-ab", true},
      {u"##-??", u"12-abc", false},
      {u"##-??", u"1a-ab", false},
      {u"##-??", u"12-a", false},
      {u"##/##/####", u"12/05/2005", true},
      {u"##/##/####", u"1/5/2005", false},
      {u"#", u"\u0663", false},
      {u"?", u"", false},
      {u"", u"", true},
      {u"", u"a", false},
      {u"abc", u"ABC", false},
      // Runs.
      {u"*", u"", true},
      {u"*", u"anything", true},
      {u"**", u"x", true},
      {u"a*", u"a", true},
      {u"a*a", u"a", false},
      {u"a*b", u"axxb", true},
      {u"a*b", u"axxbc", false},
      {u"*b", u"abab", true},
      {u"*ab*cd", u"xxabyyabcd", true},
      {u"*a*b", u"ba", false},
      {u"*#*", u"abc", false},
      {u"*#*", u"ab5c", true},
      // Lists.
      {u"[A-Z]#", u"B7", true},
      {u"[A-Z]#", u"b7", false},
      {u"[!0-9]", u"a", true},
      {u"[!0-9]", u"5", false},
      {u"[!a]", u"!", true},
      {u"[a-cx]", u"x", true},
      {u"[a-cx]", u"d", false},
      {u"[-a]", u"-", true},
      {u"[a-]", u"-", true},
      {u"[Z-A]", u"M", false},
      {u"[]", u"a", false},
      {u"[!]", u"a", true},
      {u"[*]", u"*", true},
      {u"[*]", u"a", false},
      {u"[#?]", u"?", true},
      {u"[[]", u"[", true},
      {u"]", u"]", true},
      {u"[a-z]*[0-9]", u"abc9", true},
      // A "[" that no "]" closes is a literal.
      {u"a[b", u"a[b", true},
      {u"a[b", u"ab", false},
      {u"#[", u"1[", true},
      {u"[!]x[", u"yx[", true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(MatchesTextFormat(c.text, c.pattern), c.matches)
        << Narrow(c.pattern) << " ~ " << Narrow(c.text);
  }
}

// A backtracking matcher takes exponential time here; these finish in microseconds.
TEST(TextFormatTest, ManyRunsOverLongTextsStayFast) {
  const std::u16string as(20000, u'a');
  std::u16string stars;
  for (int i = 0; i < 40; ++i)
    stars += u"*a";
  const struct {
    std::u16string pattern;
    std::u16string text;
    bool matches;
  } cases[] = {
      {stars + u"*b", as, false},
      {stars + u"*b", as + u"b", true},
      {stars + u"[!a]", as, false},
      {std::u16string(5000, u'*') + u"?", as, true},
      {u"*" + std::u16string(30, u'?') + u"[", as + u"[", true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(MatchesTextFormat(c.text, c.pattern), c.matches) << Narrow(c.pattern);
  }
}

}  // namespace
}  // namespace zk
