#pragma once

#include <string_view>

namespace zk {

class Form;
class ZKControl;

// Adds a control of `kind` named `name` to the gallery's form, inside the container named
// `inside` when one is given, and places it at (left, top) with the given size, in twips of the
// form or of the container's inner area.
ZKControl& Place(Form& form, std::u16string_view kind, std::u16string_view name, double left,
                 double top, double width, double height, std::u16string_view inside = {});

}  // namespace zk
