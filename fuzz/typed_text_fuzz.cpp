// Drives the typed text rules with random settings, keystrokes and texts:
// - the keystroke filter agrees with the plain step-by-step filter in
//   tests/support/reference_typed_text and allocates nothing (operator new is counted around
//   the call);
// - a keystroke that the filter lets through is typed into the text the way a text box does, so
//   later keystrokes meet texts the rules built themselves;
// - IsTextValid never throws, and its pattern match agrees with the reference's exhaustive
//   match on short texts; on any text the match's counted steps stay within text length times
//   pattern length;
// - the arrow-key step agrees with the reference.
//
// Input: a header of settings bytes, then pairs of bytes: a keystroke (or a caret move, a
// selection, an arrow key) and its argument.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/string_utils.h"
#include "models/typed_text_model.h"
#include "tests/support/reference_typed_text.h"

namespace {

bool counting = false;
size_t allocations = 0;

void* Allocate(size_t size) {
  if (counting) ++allocations;
  void* block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void* AllocateAligned(size_t size, std::align_val_t align) {
  if (counting) ++allocations;
  const auto alignment = static_cast<size_t>(align);
  void* block = std::aligned_alloc(alignment, (size + alignment - 1) / alignment * alignment);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

}  // namespace

void* operator new(size_t size) {
  return Allocate(size);
}
void* operator new[](size_t size) {
  return Allocate(size);
}
void* operator new(size_t size, const std::nothrow_t&) noexcept {
  if (counting) ++allocations;
  return std::malloc(size == 0 ? 1 : size);
}
void* operator new[](size_t size, const std::nothrow_t&) noexcept {
  if (counting) ++allocations;
  return std::malloc(size == 0 ? 1 : size);
}
void* operator new(size_t size, std::align_val_t align) {
  return AllocateAligned(size, align);
}
void* operator new[](size_t size, std::align_val_t align) {
  return AllocateAligned(size, align);
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete[](void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, size_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, size_t) noexcept {
  std::free(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::align_val_t) noexcept {
  std::free(block);
}
void operator delete(void* block, size_t, std::align_val_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, size_t, std::align_val_t) noexcept {
  std::free(block);
}

namespace {

void Check(bool holds) {
  if (!holds) __builtin_trap();
}

// Numbers as the archive reader takes them; dates as digits with "/" or ":" between them. The
// rules' locale tests are not under test here, only what the model does with their answers.
class PlainRules final : public zk::TypedTextRules {
 public:
  bool IsNumeric(std::u16string_view text) const override {
    return zk::MStringUtils::IsNumberText(text);
  }
  bool IsDate(std::u16string_view text) const override {
    if (text.empty()) return false;
    for (char16_t c : text) {
      if (!(c >= u'0' && c <= u'9') && c != u'/' && c != u':' && c != u' ') return false;
    }
    return true;
  }
  std::u16string ToUpper(std::u16string_view text) const override {
    std::u16string out(text);
    for (char16_t& c : out)
      if (c >= u'a' && c <= u'z') c = static_cast<char16_t>(c - 32);
    return out;
  }
  std::u16string ToLower(std::u16string_view text) const override {
    std::u16string out(text);
    for (char16_t& c : out)
      if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c + 32);
    return out;
  }
  void Beep() override {}
};

constexpr std::u16string_view kSeparators[] = {u"/", u":",  u".", u",", u" ",
                                               u"",  u"--", u"-", u"1", u"ab"};
constexpr std::u16string_view kPatterns[] = {
    u"",       u"##/##/####", u"*",  u"##-??", u"[A-Z]*#",    u"*a*b*c*",      u"[!0-9]?",
    u"[a-]*[", u"**?*?*??",   u"[]", u"[!]*",  u"#*#*#*#*#*", u"*a*a*a*a*a*b", u"*?*?*?*?*?*#"};
// Units that the keystrokes pick from: digits, signs, every separator's unit, letters, the
// blank and the keys with a meaning of their own.
constexpr std::u16string_view kUnits = u"0123456789+-/:., aAzZ?#*[]!\b";

// Short enough for the reference's exhaustive match.
constexpr size_t kReferenceMatchLimit = 14;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 8) return 0;
  static PlainRules rules;
  zk::TypedTextSettings settings;
  zk::SetDataType(settings, data[0] % 7);
  settings.DateSep = kSeparators[data[1] % std::size(kSeparators)];
  settings.HourSep = kSeparators[(data[1] >> 4) % std::size(kSeparators)];
  settings.DecimalSep = kSeparators[data[2] % std::size(kSeparators)];
  settings.DateHourSep = kSeparators[(data[2] >> 4) % std::size(kSeparators)];
  settings.TextFormat = kPatterns[data[3] % std::size(kPatterns)];
  zk::SetMaxLength(settings, data[4] % 9);
  const double increment = static_cast<int8_t>(data[5]) / 4.0;
  const bool ctrl_only_down = (data[6] & 1) != 0;
  const bool design_mode = (data[6] & 6) == 6;

  std::u16string text;
  int32_t sel_start = 0;
  int32_t sel_length = 0;
  for (size_t i = 7; i + 1 < size; i += 2) {
    const uint8_t op = data[i];
    const uint8_t arg = data[i + 1];
    const auto length = static_cast<int32_t>(text.size());
    switch (op % 5) {
      case 0:
      case 1: {
        // A keystroke: a unit of interest, or any unit.
        const auto code = static_cast<int16_t>(op % 5 == 0 ? kUnits[arg % kUnits.size()]
                                                           : static_cast<char16_t>(arg * 257));
        counting = true;
        allocations = 0;
        const int16_t passed = zk::FilterTypedKey(code, text, sel_start, sel_length, settings,
                                                  ctrl_only_down, design_mode);
        counting = false;
        Check(allocations == 0);
        Check(passed == zk::reference::FilterTypedKey(code, text, sel_start, sel_length, settings,
                                                      ctrl_only_down, design_mode));
        if (passed == 0) break;
        if (passed == zk::kKeyBackspace) {
          if (sel_length == 0 && sel_start > 0) {
            --sel_start;
            sel_length = 1;
          }
          text.erase(static_cast<size_t>(sel_start), static_cast<size_t>(sel_length));
        } else {
          text.replace(static_cast<size_t>(sel_start), static_cast<size_t>(sel_length), 1,
                       static_cast<char16_t>(passed));
          ++sel_start;
        }
        sel_length = 0;
        break;
      }
      case 2:
        // The caret moves, or a selection is made.
        sel_start = length == 0 ? 0 : arg % (length + 1);
        sel_length = (op & 0x80) != 0 ? (arg >> 4) % (length - sel_start + 1) : 0;
        break;
      case 3: {
        const int16_t key = (arg & 1) != 0 ? zk::kKeyUp : zk::kKeyDown;
        const auto stepped = zk::StepNumericText(text, key, settings, increment, rules);
        Check(stepped == zk::reference::StepNumericText(text, key, settings, increment, rules));
        if (stepped) {
          text = *stepped;
          sel_start = 0;
          sel_length = 0;
        }
        break;
      }
      case 4: {
        // The finished text is judged; the host may also have set a long one.
        std::u16string judged = text;
        if ((arg & 1) != 0) {
          for (int copies = 0; copies < 6; ++copies)
            judged += judged + u"a1";
        }
        // The match's work stays within text length times pattern length, whatever the
        // pattern: counted, so that a backtracking match fails here and not only by time.
        size_t steps = 0;
        zk::MatchesTextFormat(judged, settings.TextFormat, steps);
        Check(steps <= (judged.size() + 2) * (settings.TextFormat.size() + 1));
        try {
          const bool valid = zk::IsTextValid(judged, settings, rules);
          if (judged.size() <= kReferenceMatchLimit && !settings.TextFormat.empty()) {
            const bool fits = zk::reference::MatchesTextFormat(judged, settings.TextFormat);
            Check(zk::MatchesTextFormat(judged, settings.TextFormat) == fits);
            if (!fits) Check(!valid);
          }
        } catch (...) {
          Check(false);
        }
        break;
      }
    }
  }
  return 0;
}
