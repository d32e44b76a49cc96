#include <string>

#include "apps/gallery_place.h"
#include "apps/gallery_sections.h"
#include "controls/display/label.h"
#include "controls/display/led.h"
#include "hosting/form.h"

namespace zk {
namespace {}  // namespace

void BuildLampGallery(Form& form, double left, double top, double width, double /*height*/) {
  auto& title = static_cast<ZKLabel&>(Place(form, u"ZKLabel", u"LampTitle", left, top, width, 300));
  title.SetCaption(u"Lamps: every shape, lit and off, and one flashing");
  title.SetVerticalAlignment(zktTextVAlignTop);
  title.SetBorderMargin(0);

  // The six shapes, lit, in a row; below them the same shapes off.
  const OLE_COLOR lit_colours[] = {65280, 0x0000FF, 0x00C0FF, 0xFF8000, 0x00FFFF, 0xFF00FF};
  for (int16_t shape = 0; shape <= 5; ++shape) {
    for (int row = 0; row < 2; ++row) {
      const std::u16string name =
          std::u16string(row == 0 ? u"LampLit" : u"LampOff") + char16_t(u'0' + shape);
      auto& lamp = static_cast<ZKLed&>(
          Place(form, u"ZKLed", name, left + shape * 780, top + 450 + row * 750, 600, 450));
      lamp.SetLedShape(shape);
      lamp.SetColorOn(lit_colours[shape]);
      lamp.SetBorderWidth(static_cast<int16_t>(1 + shape % 3));
      lamp.SetLit(row == 0);
    }
  }

  auto& flashing =
      static_cast<ZKLed&>(Place(form, u"ZKLed", u"LampFlashing", left, top + 2100, 600, 600));
  flashing.SetColorOn(0x0000FF);
  flashing.SetFlashInterval(500);
  flashing.SetFlashEnabled(true);
  auto& note = static_cast<ZKLabel&>(
      Place(form, u"ZKLabel", u"LampNote", left + 780, top + 2100, width - 780, 600));
  note.SetCaption(u"Flashing every 500 ms (run mode only)");
  note.SetBorderMargin(0);
}

}  // namespace zk
