#pragma once

#include <memory>

#include "foundation/signal.h"
#include "services/timer.h"

namespace zk {

class Form;

// The gallery's sections: each places its controls inside the given area (twips) of the form.
void BuildButtonGallery(Form& form, double left, double top, double width, double height);
void BuildLampGallery(Form& form, double left, double top, double width, double height);
void BuildTextGallery(Form& form, double left, double top, double width, double height);
// Returns the connection of the toggle that enables and disables a frame's contents, which
// must live as long as the gallery.
ScopedConnection BuildFrameGallery(Form& form, double left, double top, double width,
                                   double height);
void BuildSliderGallery(Form& form, double left, double top, double width, double height);

// A timer that moves a section's controls while the gallery is live; it goes before the form.
struct GalleryTicker {
  ZKCTimer timer;
  ScopedConnection tick;
};
std::unique_ptr<GalleryTicker> BuildProgressGallery(Form& form, double left, double top,
                                                    double width, double height);

}  // namespace zk
