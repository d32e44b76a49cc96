#include "hosting/send_keys.h"

#include <array>
#include <string>

#include "foundation/dispatch_object.h"
#include "foundation/text_encoding.h"
#include "foundation/zk_error.h"

namespace zk {
namespace {

constexpr int16_t kShift = 1;
constexpr int16_t kCtrl = 2;
constexpr int16_t kAlt = 4;

struct NamedKey {
  std::u16string_view name;
  int16_t key_code;
  int16_t character;
};

constexpr std::array<NamedKey, 29> kNamedKeys = {{
    {u"ENTER", 13, 13},   {u"TAB", 9, 9},   {u"ESC", 27, 27}, {u"ESCAPE", 27, 27},
    {u"BACKSPACE", 8, 8}, {u"BS", 8, 8},    {u"BKSP", 8, 8},  {u"DEL", 46, 0},
    {u"DELETE", 46, 0},   {u"UP", 38, 0},   {u"DOWN", 40, 0}, {u"LEFT", 37, 0},
    {u"RIGHT", 39, 0},    {u"HOME", 36, 0}, {u"END", 35, 0},  {u"INSERT", 45, 0},
    {u"INS", 45, 0},      {u"PGUP", 33, 0}, {u"PGDN", 34, 0}, {u"F1", 112, 0},
    {u"F2", 113, 0},      {u"F3", 114, 0},  {u"F4", 115, 0},  {u"F5", 116, 0},
    {u"F6", 117, 0},      {u"F7", 118, 0},  {u"F8", 119, 0},  {u"F9", 120, 0},
    {u"F10", 121, 0},
}};

[[noreturn]] void Invalid(std::u16string_view keys) {
  throw ZKError(error_number::kInvalidProcedureCall,
                u"Invalid procedure call or argument: SendKeys \"" + std::u16string(keys) + u"\"");
}

// The key of a character on a US keyboard: its key code and whether Shift is needed.
KeyStroke StrokeOf(char16_t c) {
  static constexpr std::u16string_view kShifted = u")!@#$%^&*(";
  KeyStroke stroke;
  stroke.character = static_cast<int16_t>(c);
  if (c >= u'a' && c <= u'z') {
    stroke.key_code = static_cast<int16_t>(c - 32);
  } else if ((c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') || c == u' ') {
    stroke.key_code = static_cast<int16_t>(c);
    if (c >= u'A' && c <= u'Z') stroke.shift = kShift;
  } else if (size_t digit = kShifted.find(c); digit != std::u16string_view::npos) {
    stroke.key_code = static_cast<int16_t>(u'0' + digit);
    stroke.shift = kShift;
  } else {
    struct Punctuation {
      char16_t plain;
      char16_t shifted;
      int16_t key_code;
    };
    static constexpr std::array<Punctuation, 11> kPunctuation = {{{u';', u':', 186},
                                                                  {u'=', u'+', 187},
                                                                  {u',', u'<', 188},
                                                                  {u'-', u'_', 189},
                                                                  {u'.', u'>', 190},
                                                                  {u'/', u'?', 191},
                                                                  {u'`', u'~', 192},
                                                                  {u'[', u'{', 219},
                                                                  {u'\\', u'|', 220},
                                                                  {u']', u'}', 221},
                                                                  {u'\'', u'"', 222}}};
    for (const Punctuation& p : kPunctuation) {
      if (c == p.plain || c == p.shifted) {
        stroke.key_code = p.key_code;
        stroke.shift = c == p.shifted ? kShift : 0;
      }
    }
  }
  return stroke;
}

// Applies held modifiers as the classic keyboard does: Ctrl turns a letter into its control
// character and Backspace into 127 (DEL), keeps Enter and the blank, and makes other keys type
// nothing; Alt types nothing.
KeyStroke WithModifiers(KeyStroke stroke, int16_t held) {
  stroke.shift = static_cast<int16_t>(stroke.shift | held);
  if ((held & kAlt) != 0) {
    stroke.character = 0;
  } else if ((held & kCtrl) != 0) {
    const int16_t letter = stroke.key_code;
    if (letter >= u'A' && letter <= u'Z') {
      stroke.character = static_cast<int16_t>(letter - u'A' + 1);
    } else if (stroke.key_code == 8) {
      stroke.character = 127;
    } else if (stroke.character != 13 && stroke.character != 32) {
      stroke.character = 0;
    }
  } else if ((held & kShift) != 0 && stroke.character >= u'a' && stroke.character <= u'z') {
    stroke.character = static_cast<int16_t>(stroke.character - 32);
  }
  return stroke;
}

}  // namespace

std::vector<KeyStroke> ParseSendKeys(std::u16string_view keys) {
  std::vector<KeyStroke> strokes;
  int16_t held = 0;
  bool in_group = false;
  size_t i = 0;
  auto emit = [&](KeyStroke stroke, size_t count) {
    for (size_t n = 0; n < count; ++n)
      strokes.push_back(WithModifiers(stroke, held));
    if (!in_group) held = 0;
  };
  while (i < keys.size()) {
    const char16_t c = keys[i];
    if (c == u'+' || c == u'^' || c == u'%') {
      held = static_cast<int16_t>(held | (c == u'+' ? kShift : c == u'^' ? kCtrl : kAlt));
      ++i;
      if (i >= keys.size()) Invalid(keys);
      continue;
    }
    if (c == u'(') {
      if (in_group) Invalid(keys);
      in_group = true;
      ++i;
      continue;
    }
    if (c == u')') {
      if (!in_group) Invalid(keys);
      in_group = false;
      held = 0;
      ++i;
      continue;
    }
    if (c == u'~') {
      emit({13, 0, 13}, 1);
      ++i;
      continue;
    }
    if (c == u'{') {
      // "{}}" and "{{}" name the braces themselves.
      size_t close = keys.find(u'}', i + 2);
      if (i + 2 < keys.size() && keys[i + 1] == u'}' && keys[i + 2] == u'}') close = i + 2;
      if (close == std::u16string_view::npos) Invalid(keys);
      std::u16string_view inside = keys.substr(i + 1, close - i - 1);
      size_t count = 1;
      if (const size_t blank = inside.find(u' '); blank != std::u16string_view::npos) {
        const std::u16string digits(inside.substr(blank + 1));
        if (digits.empty() || digits.size() > 4 ||
            digits.find_first_not_of(u"0123456789") != std::u16string::npos) {
          Invalid(keys);
        }
        count = std::stoul(Utf16ToUtf8(digits));
        inside = inside.substr(0, blank);
      }
      i = close + 1;
      if (inside.size() == 1) {
        emit(StrokeOf(inside[0]), count);
        continue;
      }
      bool known = false;
      for (const NamedKey& named : kNamedKeys) {
        if (MemberNameEquals(named.name, inside)) {
          emit({named.key_code, 0, named.character}, count);
          known = true;
          break;
        }
      }
      if (!known && (MemberNameEquals(inside, u"F11") || MemberNameEquals(inside, u"F12"))) {
        emit({static_cast<int16_t>(inside.back() == u'1' ? 122 : 123), 0, 0}, count);
        known = true;
      }
      if (!known) Invalid(keys);
      continue;
    }
    if (c == u'}') Invalid(keys);
    emit(StrokeOf(c), 1);
    ++i;
  }
  if (in_group) Invalid(keys);
  return strokes;
}

}  // namespace zk
