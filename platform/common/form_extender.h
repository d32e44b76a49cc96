#pragma once

#include <functional>
#include <string>

#include "foundation/dispatch_object.h"
#include "foundation/signal.h"
#include "platform/bindable_extender.h"

namespace zk {

// The host-side properties of one placed control on a form, reached by name: Name
// (read-only by name), Top, Left, Width, Height (twips), Visible, Default, Cancel, Enabled,
// ToolTipText, TabIndex, TabStop. A form may withhold Default and Cancel (only some controls get
// them) and TabStop (controls that cannot take the focus); reading or writing a withheld
// property raises error 438, as on a real form. The extender of a part, private to the control
// that the part belongs to, withholds all four and TabIndex (WithholdFormPlacement).
class FormExtender final : public DispatchObject, public IBindableExtender {
 public:
  explicit FormExtender(std::u16string name);

  const std::u16string& Name() const { return name_; }
  void SetName(std::u16string name) { name_ = std::move(name); }
  double Top() const { return top_; }
  double Left() const { return left_; }
  double Width() const { return width_; }
  double Height() const { return height_; }
  void Move(double left, double top, double width, double height) override;
  bool Visible() const { return visible_; }
  bool Default() const { return default_; }
  bool Cancel() const { return cancel_; }
  bool Enabled() const;
  const std::u16string& ToolTipText() const { return tool_tip_text_; }
  int16_t TabIndex() const { return tab_index_; }
  bool TabStop() const { return tab_stop_; }

  void OfferDefaultAndCancel(bool offered) { offers_default_and_cancel_ = offered; }
  void OfferTabStop(bool offered) { offers_tab_stop_ = offered; }
  // Withholds what only a form gives its controls: Default, Cancel, TabIndex and TabStop.
  void WithholdFormPlacement();

  // Enabled belongs to the control when it has that property: the form then reads and writes
  // it through these functions instead of keeping its own flag.
  void BindEnabled(std::function<bool()> get, std::function<void(bool)> set) override;

  // Raised with the property's name after every write (sizes and positions move the control).
  Signal<std::u16string_view>& PropertyWritten() { return property_written_; }

  Variant GetProperty(std::u16string_view name, std::span<const Variant> index = {}) override;
  void SetProperty(std::u16string_view name, const Variant& value,
                   std::span<const Variant> index = {}) override;

 private:
  void RequireOffered(bool offered) const;

  std::u16string name_;
  double top_ = 0;
  double left_ = 0;
  double width_ = 0;
  double height_ = 0;
  bool visible_ = true;
  bool default_ = false;
  bool cancel_ = false;
  bool enabled_ = true;
  std::u16string tool_tip_text_;
  int16_t tab_index_ = 0;
  bool tab_stop_ = true;
  bool offers_default_and_cancel_ = true;
  bool offers_tab_stop_ = true;
  bool offers_tab_index_ = true;
  std::function<bool()> get_enabled_;
  std::function<void(bool)> set_enabled_;
  Signal<std::u16string_view> property_written_;
};

}  // namespace zk
