#include "apps/gallery_sections.h"

#include "hosting/form.h"

namespace zk {

void BuildButtonGallery(Form& /*form*/, double /*left*/, double /*top*/, double /*width*/,
                        double /*height*/) {}

}  // namespace zk
