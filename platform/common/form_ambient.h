#pragma once

#include "platform/host.h"

namespace zk {

// The ambient properties of a form: those of a classic desktop form by default
// (button-face back colour, button-text fore colour, the catalogue's default font, run mode).
// Every setter raises AmbientChanged with the property's name.
class FormAmbient final : public IAmbientProperties {
 public:
  explicit FormAmbient(FontRef font);

  OLE_COLOR BackColor() const override { return back_color_; }
  OLE_COLOR ForeColor() const override { return fore_color_; }
  FontRef Font() const override { return font_; }
  bool UserMode() const override { return user_mode_; }
  Signal<std::u16string_view>& AmbientChanged() override { return ambient_changed_; }

  void SetBackColor(OLE_COLOR color);
  void SetForeColor(OLE_COLOR color);
  void SetFont(FontRef font);
  void SetUserMode(bool user_mode);

 private:
  OLE_COLOR back_color_ = system_color::kButtonFace;
  OLE_COLOR fore_color_ = system_color::kButtonText;
  FontRef font_;
  bool user_mode_ = true;
  Signal<std::u16string_view> ambient_changed_;
};

}  // namespace zk
