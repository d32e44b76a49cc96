#include "platform/icu/icu_locale.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zk {
namespace {

using namespace std::string_view_literals;

// Failure messages show the row in readable text.
std::string Utf8(std::u16string_view text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
        text[i + 1] < 0xE000) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
    }
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else if (c < 0x800) {
      out += static_cast<char>(0xC0 | (c >> 6));
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
      out += static_cast<char>(0xE0 | (c >> 12));
      out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
      out += static_cast<char>(0xF0 | (c >> 18));
      out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
      out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return out;
}

std::string Row(std::u16string_view locale, std::u16string_view text) {
  return Utf8(locale) + " [" + Utf8(text) + "]";
}

TEST(IcuLocaleTest, SetNameAcceptsTagsAndPosixNamesAndKeepsTheLocaleOnRefusal) {
  struct Case {
    std::u16string_view name;
    bool accepted;
    std::u16string_view name_after;
    std::u16string_view decimal_after;
  };
  const Case cases[] = {
      {u"de-DE", true, u"de-DE", u","},
      {u"de_DE.UTF-8", true, u"de-DE", u","},
      {u"de_DE@euro", true, u"de-DE", u","},
      {u"en_US", true, u"en-US", u"."},
      {u"C", true, u"en-US", u"."},
      {u"POSIX", true, u"en-US", u"."},
      {u"C.UTF-8", true, u"en-US", u"."},
      {u"zh-CN", true, u"zh-CN", u"."},
      {u"de-Latn-DE", true, u"de-Latn-DE", u","},
      {u"xx-YY", false, u"fr-FR", u","},
      {u"en-ZZ", false, u"fr-FR", u","},
      {u"de-Cyrl-DE", false, u"fr-FR", u","},
      {u"und", false, u"fr-FR", u","},
      {u"", false, u"fr-FR", u","},
      {u".UTF-8", false, u"fr-FR", u","},
      {u"de-DE-!!", false, u"fr-FR", u","},
      {u"de DE", false, u"fr-FR", u","},
      {u"d\u00E9-DE", false, u"fr-FR", u","},
      {u"de\0DE"sv, false, u"fr-FR", u","},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(Row(u"", c.name));
    IcuLocale locale(u"fr-FR");
    EXPECT_EQ(locale.SetName(c.name), c.accepted);
    EXPECT_EQ(locale.Name(), c.name_after);
    EXPECT_EQ(locale.DecimalSeparator(), c.decimal_after);
  }
}

// Sets or clears an environment variable for the lifetime of the object.
class EnvironmentVariable {
 public:
  EnvironmentVariable(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    if (value != nullptr) {
      setenv(name, value, 1);
    } else {
      unsetenv(name);
    }
  }
  ~EnvironmentVariable() {
    if (old_) {
      setenv(name_, old_->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> old_;
};

TEST(IcuLocaleTest, DefaultConstructorReadsTheEnvironment) {
  struct Case {
    const char* lc_all;
    const char* lc_numeric;
    const char* lang;
    std::u16string_view expected;
  };
  const Case cases[] = {
      {nullptr, nullptr, nullptr, u"en-US"},
      {nullptr, nullptr, "C", u"en-US"},
      {nullptr, nullptr, "de_DE.UTF-8", u"de-DE"},
      {nullptr, "sv_SE.UTF-8", "de_DE.UTF-8", u"sv-SE"},
      {"fr_FR.UTF-8", "sv_SE.UTF-8", "de_DE.UTF-8", u"fr-FR"},
      {"", "", "de_DE.UTF-8", u"de-DE"},
      {"POSIX", nullptr, "de_DE.UTF-8", u"en-US"},
      {nullptr, nullptr, "xx_YY.UTF-8", u"en-US"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.lc_all ? c.lc_all : "-") + " " +
                 (c.lc_numeric ? c.lc_numeric : "-") + " " + (c.lang ? c.lang : "-"));
    EnvironmentVariable lc_all("LC_ALL", c.lc_all);
    EnvironmentVariable lc_numeric("LC_NUMERIC", c.lc_numeric);
    EnvironmentVariable lang("LANG", c.lang);
    EXPECT_EQ(IcuLocale().Name(), c.expected);
  }
}

TEST(IcuLocaleTest, ExplicitConstructorFallsBackToEnglishForUnknownNames) {
  EXPECT_EQ(IcuLocale(u"ja_JP.UTF-8").Name(), u"ja-JP");
  EXPECT_EQ(IcuLocale(u"xx-YY").Name(), u"en-US");
}

TEST(IcuLocaleTest, SeparatorsComeFromTheLocale) {
  struct Case {
    std::u16string_view locale, decimal, grouping;
  };
  const Case cases[] = {
      {u"en-US", u".", u","},
      {u"de-DE", u",", u"."},
      {u"sv-SE", u",", u"\u00A0"},
      {u"de-CH", u".", u"\u2019"},
  };
  IcuLocale locale;
  for (const Case& c : cases) {
    SCOPED_TRACE(Row(c.locale, u""));
    ASSERT_TRUE(locale.SetName(c.locale));
    EXPECT_EQ(locale.DecimalSeparator(), c.decimal);
    EXPECT_EQ(locale.GroupingSeparator(), c.grouping);
  }
}

struct TextCase {
  std::u16string_view locale;
  std::u16string_view text;
  bool expected;
};

TEST(IcuLocaleTest, IsNumeric) {
  const TextCase cases[] = {
      {u"en-US", u"3.5", true},
      {u"en-US", u"3,5", true},  // grouping anywhere between digits: thirty-five
      {u"en-US", u"1,234.5", true},
      {u"en-US", u"1,2,3", true},
      {u"en-US", u"1.2.3", false},
      {u"en-US", u"1.5,3", false},  // no grouping after the decimal separator
      {u"en-US", u"1,,2", false},
      {u"en-US", u",5", false},
      {u"en-US", u"5,", false},
      {u"en-US", u"+5", true},
      {u"en-US", u"-5", true},
      {u"en-US", u" 12 ", true},
      {u"en-US", u"\t7\u00A0", true},
      {u"en-US", u".5", true},
      {u"en-US", u"5.", true},
      {u"en-US", u"1e5", true},
      {u"en-US", u"1.5E-3", true},
      {u"en-US", u"-1e+5", true},
      {u"en-US", u"", false},
      {u"en-US", u"   ", false},
      {u"en-US", u"-", false},
      {u"en-US", u"+", false},
      {u"en-US", u".", false},
      {u"en-US", u"--5", false},
      {u"en-US", u"+-5", false},
      {u"en-US", u"5-", false},
      {u"en-US", u"- 5", false},
      {u"en-US", u"abc", false},
      {u"en-US", u"12a", false},
      {u"en-US", u"1e", false},
      {u"en-US", u"e5", false},
      {u"en-US", u"1e5.5", false},
      {u"en-US", u"1 2", false},
      {u"en-US", u"$5", false},
      {u"en-US", u"0x1A", false},
      {u"en-US", u"\xD800", false},
      {u"en-US", u"1\0"sv, false},
      {u"de-DE", u"3,5", true},
      {u"de-DE", u"1.5", true},  // "." groups in de-DE: fifteen
      {u"de-DE", u"1.234,5", true},
      {u"de-DE", u"1,2,3", false},
      {u"de-DE", u"1,5.3", false},
      {u"de-DE", u",5", true},
      {u"de-DE", u"-3,5e2", true},
      {u"fr-FR", u"1 234,5", true},
      {u"fr-FR", u"1\u202F234,5", true},
      {u"fr-FR", u"1.5", false},
      {u"de-CH", u"1'234.5", true},
      {u"de-CH", u"1\u2019234.5", true},
  };
  IcuLocale locale;
  for (const TextCase& c : cases) {
    SCOPED_TRACE(Row(c.locale, c.text));
    ASSERT_TRUE(locale.SetName(c.locale));
    EXPECT_EQ(locale.IsNumeric(c.text), c.expected);
  }
}

TEST(IcuLocaleTest, IsDate) {
  const TextCase cases[] = {
      // Dates in the month/day/year order of en-US.
      {u"en-US", u"12/31/2005", true},
      {u"en-US", u"31/12/2005", false},
      {u"en-US", u"12/05/2005", true},
      {u"en-US", u"2/29/2004", true},
      {u"en-US", u"2/29/2005", false},
      {u"en-US", u"2/29/1900", false},
      {u"en-US", u"2/29/2000", true},
      {u"en-US", u"2/29/00", true},  // 00 is 2000, a leap year
      {u"en-US", u"4/31/2005", false},
      {u"en-US", u"12/05/05", true},
      {u"en-US", u"1/2/3", true},
      {u"en-US", u"12/05/9999", true},
      {u"en-US", u"12/05/0000", false},
      {u"en-US", u"12/05/205", false},
      {u"en-US", u"12/05/20050", false},
      {u"en-US", u"0/5/2005", false},
      {u"en-US", u"12/0/2005", false},
      {u"en-US", u"13/5/2005", false},
      {u"en-US", u"012/5/2005", false},
      {u"en-US", u"12/5", true},
      {u"en-US", u"5/31", true},
      {u"en-US", u"31/5", false},
      {u"en-US", u" 12/05/2005 ", true},
      {u"en-US", u"12-05-2005", false},
      {u"en-US", u"12/05.2005", false},
      {u"en-US", u"12//2005", false},
      {u"en-US", u"1/2/3/4", false},
      {u"en-US", u"-12/05/2005", false},
      {u"en-US", u"", false},
      {u"en-US", u"  ", false},
      {u"en-US", u"10", false},
      {u"en-US", u"abc", false},
      {u"en-US", u"/", false},
      {u"en-US", u"\xDC00/\xD800", false},
      // Times.
      {u"en-US", u"10:30", true},
      {u"en-US", u"10:30:15", true},
      {u"en-US", u"0:00", true},
      {u"en-US", u"23:59:59", true},
      {u"en-US", u"24:00", false},
      {u"en-US", u"10:60", false},
      {u"en-US", u"10:30:60", false},
      {u"en-US", u"100:30", false},
      {u"en-US", u"10:", false},
      {u"en-US", u":30", false},
      {u"en-US", u"10:30:15:00", false},
      {u"en-US", u"10.30", false},
      {u"en-US", u"7:05 PM", true},
      {u"en-US", u"7:05pm", true},
      {u"en-US", u"7:05:30 am", true},
      {u"en-US", u"7:05\u202FPM", true},
      {u"en-US", u"12:00 AM", true},
      {u"en-US", u"13:05 PM", false},
      {u"en-US", u"0:05 AM", false},
      {u"en-US", u"7:05 XM", false},
      {u"en-US", u"PM", false},
      // A date, blanks, a time.
      {u"en-US", u"12/05/2005 10:30", true},
      {u"en-US", u"12/05/2005   7:05 PM", true},
      {u"en-US", u"12/05/2005 25:00", false},
      {u"en-US", u"12/05/2005 10", false},
      {u"en-US", u"12/05/2005 AM", false},
      {u"en-US", u"2/30/2005 10:30", false},
      {u"en-US", u"10:30 12/05/2005", false},
      {u"en-US", u"12/05/2005 10:30 x", false},
      // de-DE: day.month.year, "/" still accepted.
      {u"de-DE", u"12.05.2005", true},
      {u"de-DE", u"31.12.2005", true},
      {u"de-DE", u"31/02/2005", false},
      {u"de-DE", u"29/02/2004", true},
      {u"de-DE", u"29/02/2005", false},
      {u"de-DE", u"12/31/2005", false},
      {u"de-DE", u"12.05/2005", false},
      {u"de-DE", u"31.5", true},
      {u"de-DE", u"5.31", false},
      {u"de-DE", u"12.05.2005 10:30", true},
      {u"de-DE", u"10:30", true},
      // ja-JP: year/month/day; two numbers are month/day.
      {u"ja-JP", u"2005/12/31", true},
      {u"ja-JP", u"31/12/2005", false},
      {u"ja-JP", u"04/2/29", true},
      {u"ja-JP", u"05/2/29", false},
      {u"ja-JP", u"12/31", true},
      {u"ja-JP", u"2005/12", false},
      // sv-SE writes "-" between year, month and day.
      {u"sv-SE", u"2005-12-31", true},
      {u"sv-SE", u"2005/12/31", true},
      {u"sv-SE", u"31-12-2005", false},
      {u"sv-SE", u"2005-12/31", false},
      // fi-FI writes "." between hours and minutes.
      {u"fi-FI", u"10.30", true},
      {u"fi-FI", u"24.30", false},
      {u"fi-FI", u"31.12.2005 10.30", true},
  };
  IcuLocale locale;
  for (const TextCase& c : cases) {
    SCOPED_TRACE(Row(c.locale, c.text));
    ASSERT_TRUE(locale.SetName(c.locale));
    EXPECT_EQ(locale.IsDate(c.text), c.expected);
  }
}

TEST(IcuLocaleTest, CaseMappingFollowsTheLocale) {
  struct Case {
    std::u16string_view locale, text, upper, lower;
  };
  const Case cases[] = {
      {u"en-US", u"Abc", u"ABC", u"abc"},
      {u"en-US", u"", u"", u""},
      {u"en-US", u"iI", u"II", u"ii"},
      {u"tr-TR", u"iI", u"\u0130I", u"i\u0131"},
      {u"de-DE", u"Stra\u00DFe", u"STRASSE", u"stra\u00DFe"},
      {u"fr-FR", u"\u00C9t\u00E9", u"\u00C9T\u00C9", u"\u00E9t\u00E9"},
      {u"el-GR", u"\u039F\u0394\u039F\u03A3", u"\u039F\u0394\u039F\u03A3",
       u"\u03BF\u03B4\u03BF\u03C2"},
  };
  IcuLocale locale;
  for (const Case& c : cases) {
    SCOPED_TRACE(Row(c.locale, c.text));
    ASSERT_TRUE(locale.SetName(c.locale));
    EXPECT_EQ(locale.ToUpper(c.text), c.upper);
    EXPECT_EQ(locale.ToLower(c.text), c.lower);
  }
}

TEST(IcuLocaleTest, CompareCollatesInTheLocale) {
  struct Case {
    std::u16string_view locale, a, b;
    bool ignore_case;
    int expected;
  };
  const Case cases[] = {
      {u"en-US", u"a", u"B", false, -1},      {u"en-US", u"B", u"a", false, 1},
      {u"en-US", u"abc", u"abc", false, 0},   {u"en-US", u"abc", u"ABC", false, -1},
      {u"en-US", u"abc", u"ABC", true, 0},    {u"en-US", u"\u00E9", u"e", true, 1},
      {u"en-US", u"e", u"\u00C9", true, -1},  {u"en-US", u"\u00E9", u"\u00C9", true, 0},
      {u"en-US", u"", u"a", true, -1},        {u"en-US", u"", u"", false, 0},
      {u"de-DE", u"\u00F6", u"z", false, -1}, {u"sv-SE", u"\u00F6", u"z", false, 1},
  };
  IcuLocale locale;
  for (const Case& c : cases) {
    SCOPED_TRACE(Row(c.locale, std::u16string(c.a) + u" | " + std::u16string(c.b)));
    ASSERT_TRUE(locale.SetName(c.locale));
    EXPECT_EQ(locale.Compare(c.a, c.b, c.ignore_case), c.expected);
  }
}

}  // namespace
}  // namespace zk
