#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hosting/form.h"

namespace zk {

// Explains an archive string of a control kind element by element: its index, the property it
// carries and its decoded value, the fields of the extender block and the font, and the elements
// that are missing or extra; last, whether a control of that kind accepts the string and what
// it traced. A control of the kind is placed on `form` (and removed again) to learn its layout.
// Throws ZKError 5 for an unknown kind.
std::vector<std::u16string> ExplainArchive(Form& form, std::u16string_view kind,
                                           std::u16string_view archive);

}  // namespace zk
