#pragma once

namespace zk {

class Form;

// The gallery's sections: each places its controls inside the given area (twips) of the form.
void BuildButtonGallery(Form& form, double left, double top, double width, double height);
void BuildLampGallery(Form& form, double left, double top, double width, double height);
void BuildTextGallery(Form& form, double left, double top, double width, double height);
void BuildSliderGallery(Form& form, double left, double top, double width, double height);

}  // namespace zk
