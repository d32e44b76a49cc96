#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace zk {

// One key stroke: the key code and modifier keys of its key-down and key-up, and the character
// it types (0 for keys that type nothing, such as the arrows and Delete).
struct KeyStroke {
  int16_t key_code = 0;
  int16_t shift = 0;  // 1 Shift, 2 Ctrl, 4 Alt
  int16_t character = 0;
  bool operator==(const KeyStroke&) const = default;
};

// Parses the usual SendKeys notation: plain characters type themselves; "~" and {ENTER},
// {TAB}, {ESC}, {BACKSPACE} (or {BS}), {DEL} (or {DELETE}), {UP}, {DOWN}, {LEFT}, {RIGHT},
// {HOME}, {END}, {INSERT}, {PGUP}, {PGDN}, {F1} to {F12} name keys; {+}, {^}, {%}, {~}, {{},
// {}}, {(} and {)} type those characters; "+", "^" and "%" hold Shift, Ctrl and Alt for the next
// key, or for every key of a following group in parentheses ("^(ac)"); {KEY n} repeats a key n
// times. The characters typed with Ctrl are the classic keyboard's: a letter's control
// character, 127 for Backspace, Enter and the blank themselves, nothing for other keys.
// Throws ZKError 5 for notation it cannot read.
std::vector<KeyStroke> ParseSendKeys(std::u16string_view keys);

}  // namespace zk
