#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/common/memory_property_bag.h"
#include "platform/font_catalogue.h"
#include "platform/picture.h"

namespace zk {

// One control of a saved form: its kind and name, the host-kept extender values (Left, Top,
// Width, Height, Visible, Default, Cancel, ToolTipText, TabIndex, TabStop), the properties it
// wrote to its property bag, and the controls placed inside it (a container's).
struct FormFileControl {
  std::u16string kind;
  std::u16string name;
  MemoryPropertyBag extender;
  MemoryPropertyBag properties;
  std::vector<FormFileControl> contained;
};

struct FormFile {
  std::vector<FormFileControl> controls;
};

// The text form of a saved form, readable and diffable:
//
//   ZKBaseGUIControls form 1
//   Begin ZKLabel ZKLabel1
//     Left = 240
//     Caption = "Total:\t\"net\""
//     Font = Font("Arial", 10, 700, False, False, False, 0)
//   End
//   Begin ZKFrame Frame1
//     Caption = "Totals"
//     Begin ZKLabel Inner
//       Left = 120
//     End
//   End
//
// The controls inside a container come in nested blocks after the container's own values,
// indented one step further.
// Values are True or False, numbers in plain decimal text ("3", "-0.5", "1E+20"), texts in
// double quotes with the escapes \" \\ \r \n \t and \uXXXX, fonts as above (name, size,
// weight, italic, underline, strikethrough, character set), and pictures as
// Picture(width, height, "pixels") with the pixels in Base64, four bytes each, blue first
// (empty from a platform that keeps no pixels). Blank lines and lines starting with "'" are
// ignored.
std::string WriteFormFile(const FormFile& form);

// Reads the text form, making its fonts and pictures with the platform's catalogue and loader.
// Throws ZKError 31037 ("Error loading from file") naming the line of the first fault; nothing
// is returned from a file with a fault.
FormFile ReadFormFile(std::string_view text, std::shared_ptr<const IFontCatalogue> fonts,
                      IPictureLoader& pictures);

// How deep a form file may nest controls in containers (the outermost block counts as one):
// deeper than any form a person designs, shallow enough that the recursive saving and placing
// of blocks stays far from the stack's end.
inline constexpr size_t kMaxContainerNesting = 64;

// The names of the extender values that a form file keeps, in their order.
std::span<const std::u16string_view> FormFileExtenderKeys();

}  // namespace zk
