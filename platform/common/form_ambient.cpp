#include "platform/common/form_ambient.h"

#include <utility>

namespace zk {

FormAmbient::FormAmbient(FontRef font) : font_(std::move(font)) {}

void FormAmbient::SetBackColor(OLE_COLOR color) {
  back_color_ = color;
  ambient_changed_.Emit(u"BackColor");
}

void FormAmbient::SetForeColor(OLE_COLOR color) {
  fore_color_ = color;
  ambient_changed_.Emit(u"ForeColor");
}

void FormAmbient::SetFont(FontRef font) {
  font_ = std::move(font);
  ambient_changed_.Emit(u"Font");
}

void FormAmbient::SetUserMode(bool user_mode) {
  user_mode_ = user_mode;
  ambient_changed_.Emit(u"UserMode");
}

}  // namespace zk
