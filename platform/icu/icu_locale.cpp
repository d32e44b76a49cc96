#include "platform/icu/icu_locale.h"

#include <unicode/coll.h>
#include <unicode/datefmt.h>
#include <unicode/dcfmtsym.h>
#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/unistr.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zk {
namespace {

enum class DateField { kDay, kMonth, kYear };

// What the numeric and date tests need to know of a locale, read once when the locale is set.
struct TextRules {
  std::u16string decimal_sep = u".";
  std::u16string grouping_sep = u",";
  // The grouping separator and the characters users type for it.
  std::vector<std::u16string> grouping_seps = {u","};
  std::array<DateField, 3> date_order = {DateField::kMonth, DateField::kDay, DateField::kYear};
  // The locale's own separators besides "/" and ":"; empty when the pattern has none usable.
  std::u16string date_sep = u"/";
  std::u16string time_sep = u":";
  std::vector<std::u16string> day_periods = {u"AM", u"PM"};
};

bool IsBlank(char16_t c) {
  return c == u' ' || c == u'\t' || c == u'\u00A0' || c == u'\u202F';
}

bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}

std::u16string_view TrimEnd(std::u16string_view text) {
  while (!text.empty() && IsBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

std::u16string_view Trim(std::u16string_view text) {
  while (!text.empty() && IsBlank(text.front()))
    text.remove_prefix(1);
  return TrimEnd(text);
}

bool StartsAt(std::u16string_view text, size_t pos, std::u16string_view part) {
  return !part.empty() && pos <= text.size() && text.substr(pos).starts_with(part);
}

// ICU counts in int32_t; texts beyond that are cut rather than overflowing the count.
int32_t IcuLength(size_t size) {
  return static_cast<int32_t>(std::min<size_t>(size, std::numeric_limits<int32_t>::max()));
}

const char16_t* IcuData(std::u16string_view text) {
  return text.empty() ? u"" : text.data();
}

std::u16string FromIcu(const icu::UnicodeString& text) {
  if (text.isBogus()) return {};
  return std::u16string(text.getBuffer(), static_cast<size_t>(text.length()));
}

std::u16string FromAscii(std::string_view text) {
  std::u16string result;
  for (char c : text)
    result += static_cast<char16_t>(static_cast<unsigned char>(c));
  return result;
}

// --- Locale names -------------------------------------------------------------------------

// ICU resolves any well-formed tag to some locale, falling back to root data; only a locale that
// ICU lists has data of its own. A tag may also name a listed locale with or without its likely
// script ("zh-CN" is listed as "zh-Hans-CN", "de-Latn-DE" as "de-DE"), but always with its own
// region: "en-ZZ" (unknown region) would otherwise pass for "en-US".
bool HasOwnData(const icu::Locale& locale) {
  static const std::set<std::string> kListed = [] {
    std::set<std::string> names;
    int32_t count = 0;
    const icu::Locale* locales = icu::Locale::getAvailableLocales(count);
    for (int32_t i = 0; i < count; ++i)
      names.insert(locales[i].getName());
    return names;
  }();
  auto with_likely_script = [](icu::Locale form) {
    UErrorCode status = U_ZERO_ERROR;
    form.addLikelySubtags(status);
    return U_SUCCESS(status) ? form : icu::Locale::getRoot();
  };
  if (kListed.contains(locale.getBaseName())) return true;
  const icu::Locale full = with_likely_script(locale);
  if (std::string_view(full.getCountry()) == locale.getCountry() &&
      kListed.contains(full.getBaseName())) {
    return true;
  }
  if (*locale.getScript() == '\0') return false;
  const icu::Locale without_script(locale.getLanguage(), locale.getCountry());
  return kListed.contains(without_script.getBaseName()) &&
         std::string_view(with_likely_script(without_script).getScript()) == locale.getScript();
}

// A BCP 47 tag or a POSIX locale name ("de_DE.UTF-8") as an ICU locale with data of its own.
std::optional<icu::Locale> ParseLocaleName(std::u16string_view name) {
  std::string tag;
  for (char16_t c : name) {
    if (c == u'.' || c == u'@') break;  // POSIX codeset and modifier name no other locale
    const bool alnum = (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || IsDigit(c);
    if (!alnum && c != u'-' && c != u'_') return std::nullopt;
    tag += c == u'_' ? '-' : static_cast<char>(c);
  }
  if (tag == "C" || tag == "POSIX") tag = "en-US";
  if (tag.empty()) return std::nullopt;
  UErrorCode status = U_ZERO_ERROR;
  icu::Locale locale = icu::Locale::forLanguageTag(tag, status);
  // An empty language is ICU's root ("und"), which is no user's locale.
  if (U_FAILURE(status) || locale.isBogus() || *locale.getLanguage() == '\0') return std::nullopt;
  if (!HasOwnData(locale)) return std::nullopt;
  return locale;
}

// POSIX precedence for the categories that matter here: LC_ALL overrides everything, and an
// empty variable counts as unset.
std::u16string EnvironmentLocaleName() {
  for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return FromAscii(value);
  }
  return u"en-US";
}

// --- Date and time patterns ---------------------------------------------------------------

struct PatternToken {
  char16_t field = 0;  // pattern letter, or 0 for literal text
  std::u16string literal;
};

// Splits an ICU date pattern into fields (runs of one letter) and literal text, with the quoting
// rules of the pattern syntax ('text' is literal, '' is one apostrophe).
std::vector<PatternToken> TokenizePattern(const std::u16string& pattern) {
  std::vector<PatternToken> tokens;
  auto add_literal = [&tokens](char16_t c) {
    if (tokens.empty() || tokens.back().field != 0) tokens.push_back({});
    tokens.back().literal += c;
  };
  bool quoted = false;
  for (size_t i = 0; i < pattern.size(); ++i) {
    const char16_t c = pattern[i];
    if (c == u'\'') {
      if (i + 1 < pattern.size() && pattern[i + 1] == u'\'') {
        add_literal(c);
        ++i;
      } else {
        quoted = !quoted;
      }
    } else if (!quoted && ((c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'))) {
      if (tokens.empty() || tokens.back().field != c) tokens.push_back({c, {}});
    } else {
      add_literal(c);
    }
  }
  return tokens;
}

// The literal text after the field at `index`, up to the next field, without blanks and bidi
// marks (ar-EG writes "d\u200F/M\u200F/y"); empty when nothing usable is left.
std::u16string SeparatorAfter(const std::vector<PatternToken>& tokens, size_t index) {
  std::u16string separator;
  for (size_t i = index + 1; i < tokens.size() && tokens[i].field == 0; ++i) {
    for (char16_t c : tokens[i].literal) {
      if (IsDigit(c)) return {};
      if (!IsBlank(c) && c != u'\u200E' && c != u'\u200F' && c != u'\u061C') separator += c;
    }
  }
  return separator;
}

std::optional<DateField> DateFieldOf(char16_t letter) {
  switch (letter) {
    case u'd':
      return DateField::kDay;
    case u'M':
    case u'L':
      return DateField::kMonth;
    case u'y':
    case u'Y':
    case u'u':
    case u'r':
    case u'U':
      return DateField::kYear;
    default:
      return std::nullopt;
  }
}

std::optional<std::u16string> ShortPattern(icu::DateFormat* format) {
  auto* simple = dynamic_cast<icu::SimpleDateFormat*>(format);
  if (simple == nullptr) return std::nullopt;
  icu::UnicodeString pattern;
  simple->toPattern(pattern);
  return FromIcu(pattern);
}

// Order of day, month and year and the locale's date separator, from its short date pattern.
void ReadDatePattern(const std::u16string& pattern, TextRules& rules) {
  const std::vector<PatternToken> tokens = TokenizePattern(pattern);
  std::array<DateField, 3> order{};
  size_t found = 0;
  std::optional<size_t> first_field;
  for (size_t i = 0; i < tokens.size() && found < order.size(); ++i) {
    const std::optional<DateField> field = DateFieldOf(tokens[i].field);
    if (!field || std::find(order.begin(), order.begin() + found, *field) != order.begin() + found)
      continue;
    if (!first_field) first_field = i;
    order[found++] = *field;
  }
  if (found != order.size()) return;  // an unusual pattern: keep month/day/year and "/"
  rules.date_order = order;
  rules.date_sep = SeparatorAfter(tokens, *first_field);
}

// The locale's separator between hours and minutes, from its short time pattern.
void ReadTimePattern(const std::u16string& pattern, TextRules& rules) {
  const std::vector<PatternToken> tokens = TokenizePattern(pattern);
  for (size_t i = 0; i < tokens.size(); ++i) {
    const char16_t f = tokens[i].field;
    if (f != u'h' && f != u'H' && f != u'k' && f != u'K') continue;
    size_t next = i + 1;
    while (next < tokens.size() && tokens[next].field == 0)
      ++next;
    const bool minutes_follow = next < tokens.size() && tokens[next].field == u'm';
    rules.time_sep = minutes_follow ? SeparatorAfter(tokens, i) : std::u16string();
    return;
  }
}

// Users type a plain blank for a grouping space and an apostrophe for a grouping quote mark.
std::vector<std::u16string> GroupingSpellings(const std::u16string& grouping) {
  if (grouping == u"\u00A0" || grouping == u"\u202F" || grouping == u"\u2009" || grouping == u" ")
    return {grouping, u" ", u"\u00A0", u"\u202F"};
  if (grouping == u"\u2019") return {grouping, u"'"};
  return {grouping};
}

std::optional<TextRules> ReadTextRules(const icu::Locale& locale) {
  TextRules rules;
  UErrorCode status = U_ZERO_ERROR;
  const icu::DecimalFormatSymbols symbols(locale, status);
  if (U_FAILURE(status)) return std::nullopt;
  rules.decimal_sep =
      FromIcu(symbols.getSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol));
  rules.grouping_sep =
      FromIcu(symbols.getSymbol(icu::DecimalFormatSymbols::kGroupingSeparatorSymbol));
  rules.grouping_seps = GroupingSpellings(rules.grouping_sep);

  std::unique_ptr<icu::DateFormat> date(
      icu::DateFormat::createDateInstance(icu::DateFormat::kShort, locale));
  std::unique_ptr<icu::DateFormat> time(
      icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, locale));
  const std::optional<std::u16string> date_pattern = ShortPattern(date.get());
  const std::optional<std::u16string> time_pattern = ShortPattern(time.get());
  if (!date_pattern || !time_pattern) return std::nullopt;
  ReadDatePattern(*date_pattern, rules);
  ReadTimePattern(*time_pattern, rules);

  const icu::DateFormatSymbols date_symbols(locale, status);
  if (U_FAILURE(status)) return std::nullopt;
  int32_t count = 0;
  const icu::UnicodeString* periods = date_symbols.getAmPmStrings(count);
  for (int32_t i = 0; periods != nullptr && i < count; ++i) {
    std::u16string period = FromIcu(periods[i]);
    if (!period.empty()) rules.day_periods.push_back(std::move(period));
  }
  return rules;
}

// --- Numeric text -------------------------------------------------------------------------

size_t GroupingLengthAt(std::u16string_view text, size_t pos, const TextRules& rules) {
  for (const std::u16string& separator : rules.grouping_seps) {
    if (StartsAt(text, pos, separator)) return separator.size();
  }
  return 0;
}

bool IsNumericText(std::u16string_view text, const TextRules& rules) {
  text = Trim(text);
  size_t pos = 0;
  if (pos < text.size() && (text[pos] == u'+' || text[pos] == u'-')) ++pos;
  size_t digits = 0;
  bool decimal_seen = false;
  while (pos < text.size()) {
    if (IsDigit(text[pos])) {
      ++digits;
      ++pos;
    } else if (!decimal_seen && StartsAt(text, pos, rules.decimal_sep)) {
      decimal_seen = true;
      pos += rules.decimal_sep.size();
    } else if (const size_t length = GroupingLengthAt(text, pos, rules);
               !decimal_seen && length > 0 && pos > 0 && IsDigit(text[pos - 1]) &&
               pos + length < text.size() && IsDigit(text[pos + length])) {
      pos += length;
    } else {
      break;
    }
  }
  if (digits == 0) return false;
  if (pos < text.size() && (text[pos] == u'E' || text[pos] == u'e')) {
    ++pos;
    if (pos < text.size() && (text[pos] == u'+' || text[pos] == u'-')) ++pos;
    const size_t exponent_start = pos;
    while (pos < text.size() && IsDigit(text[pos]))
      ++pos;
    if (pos == exponent_start) return false;
  }
  return pos == text.size();
}

// --- Date and time text -------------------------------------------------------------------

// The parts of `text` between occurrences of `separator`; nothing when there are more than N.
template <size_t N>
std::optional<std::vector<std::u16string_view>> Split(std::u16string_view text,
                                                      std::u16string_view separator) {
  std::vector<std::u16string_view> parts;
  while (true) {
    if (parts.size() == N) return std::nullopt;
    const size_t at = text.find(separator);
    parts.push_back(text.substr(0, at));
    if (at == std::u16string_view::npos) return parts;
    text.remove_prefix(at + separator.size());
  }
}

// The value of 1 to `max_digits` digits, or -1.
int SmallNumber(std::u16string_view text, size_t max_digits) {
  if (text.empty() || text.size() > max_digits) return -1;
  int value = 0;
  for (char16_t c : text) {
    if (!IsDigit(c)) return -1;
    value = value * 10 + (c - u'0');
  }
  return value;
}

// "/" always; otherwise the locale's own separator when the text uses it.
std::optional<std::u16string_view> SeparatorUsed(std::u16string_view text,
                                                 std::u16string_view always,
                                                 std::u16string_view own) {
  if (text.find(always) != std::u16string_view::npos) return always;
  if (!own.empty() && text.find(own) != std::u16string_view::npos) return own;
  return std::nullopt;
}

int CurrentYear() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  // A leap year, so that a 29 February is not refused for want of a clock.
  if (localtime_r(&now, &local) == nullptr) return 2000;
  return local.tm_year + 1900;
}

int DaysInMonth(int year, int month) {
  static constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : kDays[static_cast<size_t>(month - 1)];
}

// Four digits are the year itself; one or two digits fall in the hundred years 1930 to 2029.
int YearOf(std::u16string_view text) {
  if (text.size() == 4) {
    const int year = SmallNumber(text, 4);
    return year >= 1 ? year : -1;
  }
  const int year = SmallNumber(text, 2);
  if (year < 0) return -1;
  return year < 30 ? 2000 + year : 1900 + year;
}

bool IsDateOnly(std::u16string_view text, const TextRules& rules) {
  const std::optional<std::u16string_view> separator = SeparatorUsed(text, u"/", rules.date_sep);
  if (!separator) return false;
  const auto parts = Split<3>(text, *separator);
  if (!parts || parts->size() < 2) return false;
  int day = -1;
  int month = -1;
  int year = -1;
  size_t next = 0;
  for (DateField field : rules.date_order) {
    if (field == DateField::kYear && parts->size() == 2) continue;
    const std::u16string_view part = (*parts)[next++];
    switch (field) {
      case DateField::kDay:
        day = SmallNumber(part, 2);
        break;
      case DateField::kMonth:
        month = SmallNumber(part, 2);
        break;
      case DateField::kYear:
        year = YearOf(part);
        break;
    }
  }
  if (parts->size() == 2) year = CurrentYear();
  if (year < 1 || month < 1 || month > 12 || day < 1) return false;
  return day <= DaysInMonth(year, month);
}

bool EndsWithCaseless(std::u16string_view text, std::u16string_view suffix) {
  if (suffix.empty() || text.size() < suffix.size()) return false;
  const std::u16string_view tail = text.substr(text.size() - suffix.size());
  UErrorCode status = U_ZERO_ERROR;
  const int32_t order = u_strCaseCompare(tail.data(), IcuLength(tail.size()), suffix.data(),
                                         IcuLength(suffix.size()), U_FOLD_CASE_DEFAULT, &status);
  return U_SUCCESS(status) && order == 0;
}

bool IsTimeOnly(std::u16string_view text, const TextRules& rules) {
  bool twelve_hour = false;
  for (const std::u16string& period : rules.day_periods) {
    if (EndsWithCaseless(text, period)) {
      text = TrimEnd(text.substr(0, text.size() - period.size()));
      twelve_hour = true;
      break;
    }
  }
  const std::optional<std::u16string_view> separator = SeparatorUsed(text, u":", rules.time_sep);
  if (!separator) return false;
  const auto parts = Split<3>(text, *separator);
  if (!parts || parts->size() < 2) return false;
  const int hours = SmallNumber((*parts)[0], 2);
  const int minutes = SmallNumber((*parts)[1], 2);
  const int seconds = parts->size() == 3 ? SmallNumber((*parts)[2], 2) : 0;
  const bool hours_ok = twelve_hour ? hours >= 1 && hours <= 12 : hours >= 0 && hours <= 23;
  return hours_ok && minutes >= 0 && minutes <= 59 && seconds >= 0 && seconds <= 59;
}

bool IsDateText(std::u16string_view text, const TextRules& rules) {
  text = Trim(text);
  if (text.empty()) return false;
  if (IsTimeOnly(text, rules) || IsDateOnly(text, rules)) return true;
  // A date never holds a blank, so the first blank ends it.
  const auto blank =
      static_cast<size_t>(std::find_if(text.begin(), text.end(), IsBlank) - text.begin());
  if (blank == text.size()) return false;
  return IsDateOnly(text.substr(0, blank), rules) && IsTimeOnly(Trim(text.substr(blank)), rules);
}

std::unique_ptr<icu::Collator> MakeCollator(const icu::Locale& locale,
                                            icu::Collator::ECollationStrength strength) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(locale, status));
  if (U_FAILURE(status) || collator == nullptr) return nullptr;
  collator->setStrength(strength);
  return collator;
}

int Sign(int value) {
  return (value > 0) - (value < 0);
}

}  // namespace

struct IcuLocale::Impl {
  icu::Locale locale{"en", "US"};
  std::u16string name = u"en-US";
  TextRules rules;
  // Sorting compares often: both collators are made once per locale.
  std::unique_ptr<icu::Collator> collator;
  std::unique_ptr<icu::Collator> caseless_collator;

  // Everything of `locale`, or nothing when some ICU service is missing for it.
  static std::unique_ptr<Impl> Make(const icu::Locale& locale) {
    auto impl = std::make_unique<Impl>();
    impl->locale = locale;
    UErrorCode status = U_ZERO_ERROR;
    const std::string tag = locale.toLanguageTag<std::string>(status);
    if (U_FAILURE(status)) return nullptr;
    impl->name = FromAscii(tag);
    std::optional<TextRules> rules = ReadTextRules(locale);
    if (!rules) return nullptr;
    impl->rules = std::move(*rules);
    impl->collator = MakeCollator(locale, icu::Collator::TERTIARY);
    impl->caseless_collator = MakeCollator(locale, icu::Collator::SECONDARY);
    if (impl->collator == nullptr || impl->caseless_collator == nullptr) return nullptr;
    return impl;
  }
};

IcuLocale::IcuLocale() : IcuLocale(EnvironmentLocaleName()) {}

IcuLocale::IcuLocale(std::u16string_view name) {
  if (SetName(name) || SetName(u"en-US")) return;
  // Without ICU data the object still answers, with en-US rules and code-unit ordering.
  impl_ = std::make_unique<Impl>();
}

IcuLocale::~IcuLocale() = default;

std::u16string IcuLocale::Name() const {
  return impl_->name;
}

bool IcuLocale::SetName(std::u16string_view name) {
  const std::optional<icu::Locale> locale = ParseLocaleName(name);
  if (!locale) return false;
  std::unique_ptr<Impl> impl = Impl::Make(*locale);
  if (impl == nullptr) return false;
  impl_ = std::move(impl);
  return true;
}

std::u16string IcuLocale::DecimalSeparator() const {
  return impl_->rules.decimal_sep;
}

std::u16string IcuLocale::GroupingSeparator() const {
  return impl_->rules.grouping_sep;
}

bool IcuLocale::IsNumeric(std::u16string_view text) const {
  return IsNumericText(text, impl_->rules);
}

bool IcuLocale::IsDate(std::u16string_view text) const {
  return IsDateText(text, impl_->rules);
}

std::u16string IcuLocale::ToUpper(std::u16string_view text) const {
  icu::UnicodeString mapped(IcuData(text), IcuLength(text.size()));
  mapped.toUpper(impl_->locale);
  return mapped.isBogus() ? std::u16string(text) : FromIcu(mapped);
}

std::u16string IcuLocale::ToLower(std::u16string_view text) const {
  icu::UnicodeString mapped(IcuData(text), IcuLength(text.size()));
  mapped.toLower(impl_->locale);
  return mapped.isBogus() ? std::u16string(text) : FromIcu(mapped);
}

int IcuLocale::Compare(std::u16string_view a, std::u16string_view b, bool ignore_case) const {
  const icu::Collator* collator =
      ignore_case ? impl_->caseless_collator.get() : impl_->collator.get();
  if (collator != nullptr) {
    UErrorCode status = U_ZERO_ERROR;
    const UCollationResult order =
        collator->compare(IcuData(a), IcuLength(a.size()), IcuData(b), IcuLength(b.size()), status);
    if (U_SUCCESS(status)) return Sign(static_cast<int>(order));
  }
  return Sign(a.compare(b));
}

}  // namespace zk
