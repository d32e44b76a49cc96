#include "platform/headless/headless_ambient.h"

#include <utility>

namespace zk {

HeadlessAmbient::HeadlessAmbient(FontRef font) : font_(std::move(font)) {}

void HeadlessAmbient::SetBackColor(OLE_COLOR color) {
  back_color_ = color;
  ambient_changed_.Emit(u"BackColor");
}

void HeadlessAmbient::SetForeColor(OLE_COLOR color) {
  fore_color_ = color;
  ambient_changed_.Emit(u"ForeColor");
}

void HeadlessAmbient::SetFont(FontRef font) {
  font_ = std::move(font);
  ambient_changed_.Emit(u"Font");
}

void HeadlessAmbient::SetUserMode(bool user_mode) {
  user_mode_ = user_mode;
  ambient_changed_.Emit(u"UserMode");
}

}  // namespace zk
