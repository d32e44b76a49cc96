#include "apps/gallery_sections.h"

#include "hosting/form.h"

namespace zk {

void BuildLampGallery(Form& /*form*/, double /*left*/, double /*top*/, double /*width*/,
                      double /*height*/) {}

}  // namespace zk
