#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/common/memory_property_bag.h"
#include "platform/font_catalogue.h"
#include "platform/picture.h"

namespace zk {

// One control of a saved form: its kind and name, the host-kept extender values (Left, Top,
// Width, Height, Visible, Default, Cancel, ToolTipText, TabIndex, TabStop) and the properties it
// wrote to its property bag.
struct FormFileControl {
  std::u16string kind;
  std::u16string name;
  MemoryPropertyBag extender;
  MemoryPropertyBag properties;
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
//
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

// The names of the extender values that a form file keeps, in their order.
std::span<const std::u16string_view> FormFileExtenderKeys();

}  // namespace zk
