#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/variant.h"

namespace zk {
class DispatchObject;
}

// The archive string codec shared by every control: values as elements, elements joined into
// records and split again, the font element and the extender block. It never raises an error;
// what cannot be read reads as the empty text, false, 0 or the default font.
namespace zk::MArchiveUtils {

inline constexpr std::u16string_view kElementSeparator = u",";
inline constexpr std::u16string_view kBlockSeparator = u"|";
inline constexpr std::u16string_view kFontSeparator = u"#";
// The extender block has twelve fields (it is written with a trailing separator).
inline constexpr int kExtenderFieldCount = 12;

// `ab"c` -> `"ab""c"`; the empty text -> `""`.
std::u16string ArchiveEscapeString(std::u16string_view text);
// Drops the first and last character of an element longer than two characters and turns every
// doubled quote into one; two characters or fewer give the empty text.
std::u16string ArchiveUnescapeString(std::u16string_view element);

std::u16string ArchiveEscapeBool(bool value);
// Exactly "T" is true; anything else is false.
bool ArchiveUnescapeBool(std::u16string_view element) noexcept;

// The plain decimal text of the number ("3", "-2147483633", "0.5", "1E+20").
std::u16string ArchiveEscapeNumber(double value);
// An element that is not a valid number (the empty one included) reads as 0.
double ArchiveUnescapeNumber(std::u16string_view element) noexcept;

// Name, size, bold, italic, underline, strikethrough of the font, read by name and joined with
// "#": `"MS Sans Serif"#8.25#F#F#F#F`. A property that cannot be read leaves its field empty.
std::u16string ArchiveEscapeFont(DispatchObject& font);
// Fills `new_font` (a font the caller created with the platform's defaults) from the element
// and returns it. Fewer than six fields leave it unchanged; a field the font refuses ends the
// reading with the fields set so far.
ObjectRef ArchiveUnescapeFont(std::u16string_view element, ObjectRef new_font);

// The twelve extender fields read by name and joined with "|", plus a trailing "|". A property
// that the extender does not offer (or a missing extender) leaves its field empty.
std::u16string ArchiveEscapeExtender(DispatchObject* extender);
// Applies Top, Left, Width, Height, Visible, Default, Cancel, Enabled, ToolTipText, TabIndex
// and TabStop (never the name) to the extender, skipping what it refuses, and returns the
// twelve field texts. A block without exactly twelve fields is traced and changes nothing
// (empty result); a missing extender changes nothing.
std::vector<std::u16string> ArchiveUnescapeExtender(std::u16string_view block,
                                                    DispatchObject* extender);

// The items joined with the separator; an empty item still contributes its separator.
std::u16string ArchiveJoin(std::span<const std::u16string> items, std::u16string_view separator);
// Splits at separators outside quoted text; with `trim`, blanks are removed from both ends of
// every element. The empty text gives no elements, and a trailing separator gives no empty
// last element. Runs in time linear in the length of the text.
std::vector<std::u16string> ArchiveSplit(std::u16string_view text, std::u16string_view separator,
                                         bool trim);

std::u16string ArchiveJoinElements(std::span<const std::u16string> elements);
std::vector<std::u16string> ArchiveSplitElements(std::u16string_view archive);
// Every text quoted, joined with "|"; an empty list gives the empty text.
std::u16string ArchiveJoinStrings(std::span<const std::u16string> texts);
std::vector<std::u16string> ArchiveSplitStrings(std::u16string_view list);

}  // namespace zk::MArchiveUtils
