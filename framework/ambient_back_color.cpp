#include "framework/ambient_back_color.h"

#include <utility>

namespace zk {

AmbientBackColorBinding::AmbientBackColorBinding(IAmbientProperties& ambient,
                                                 std::function<void(OLE_COLOR)> set_back_color,
                                                 std::function<void(std::u16string_view)> notify)
    : ambient_(ambient), set_back_color_(std::move(set_back_color)), notify_(std::move(notify)) {}

void AmbientBackColorBinding::ApplyAmbientColor() {
  updating_ = true;
  try {
    set_back_color_(ambient_.BackColor());
  } catch (...) {
    updating_ = false;
    throw;
  }
  updating_ = false;
}

void AmbientBackColorBinding::Set(bool New_AmbientBackColor) {
  value_ = New_AmbientBackColor;
  if (value_) ApplyAmbientColor();
  notify_(u"AmbientBackColor");
}

void AmbientBackColorBinding::BeforeBackColorWrite() {
  if (!updating_) Set(false);
}

void AmbientBackColorBinding::OnAmbientChanged(std::u16string_view property) {
  if (value_ && property == u"BackColor") ApplyAmbientColor();
}

void AmbientBackColorBinding::Reapply() {
  if (value_) ApplyAmbientColor();
}

}  // namespace zk
