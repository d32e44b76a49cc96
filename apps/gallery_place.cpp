#include "apps/gallery_place.h"

#include "hosting/form.h"

namespace zk {

ZKControl& Place(Form& form, std::u16string_view kind, std::u16string_view name, double left,
                 double top, double width, double height, std::u16string_view inside) {
  ZKControl& control =
      inside.empty() ? form.AddControl(kind, name) : form.AddControlInside(kind, name, inside);
  form.MoveControl(name, left, top, width, height);
  return control;
}

}  // namespace zk
