#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "models/typed_text_model.h"

// Plain, step-by-step versions of the typed text editor's keystroke filter, pattern match and
// arrow-key step, written for checking the library's own. Positions count from 1; a separator
// that is empty is taken as standing nowhere (position 0).
namespace zk::reference {

int16_t FilterTypedKey(int16_t code, std::u16string_view text, int32_t sel_start,
                       int32_t sel_length, const TypedTextSettings& settings, bool ctrl_only_down,
                       bool design_mode);

// Whole-text match by trying every way a "*" can take its run: exponential in the worst case,
// so only for short texts and patterns.
bool MatchesTextFormat(std::u16string_view text, std::u16string_view pattern);

// Up or Down on a numeric text; no change when the result does not fit into a 64-bit float
// (an arrow key never fails).
std::optional<std::u16string> StepNumericText(std::u16string_view text, int16_t key_code,
                                              const TypedTextSettings& settings,
                                              double arrow_key_increment,
                                              const TypedTextRules& rules);

}  // namespace zk::reference
