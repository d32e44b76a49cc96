#include "platform/headless/headless_surface.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/headless/headless_image.h"
#include "platform/headless/headless_label.h"
#include "platform/headless/headless_line.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_shape.h"
#include "platform/headless/headless_text_box.h"

namespace zk {

namespace {

// An element that keeps itself in its surface's list while it lives.
template <typename Element>
class Registered final : public Element {
 public:
  template <typename... Args>
  explicit Registered(std::weak_ptr<MouseDispatcher> list, Args&&... args)
      : Element(std::forward<Args>(args)...), list_(std::move(list)) {
    if (auto list_alive = list_.lock()) list_alive->Add(this);
  }
  ~Registered() override {
    if (auto list_alive = list_.lock()) list_alive->Remove(this);
  }

 private:
  std::weak_ptr<MouseDispatcher> list_;
};

int32_t ToPixels(double twips, double twips_per_pixel) {
  return static_cast<int32_t>(std::lround(twips / twips_per_pixel));
}

}  // namespace

HeadlessSurface::HeadlessSurface(HeadlessPlatform& platform, FormExtender& extender,
                                 WindowHandle parent_window)
    : platform_(platform),
      extender_(extender),
      back_color_(0x8000000F),
      elements_(std::make_shared<MouseDispatcher>(
          MouseDispatcher::SurfaceEvents{&click_, &dbl_click_, &mouse_down_, &mouse_move_,
                                         &mouse_up_},
          [this] { return std::pair<double, double>(ScaleWidth(), ScaleHeight()); })) {
  const double tpp_x = platform_.Screen().TwipsPerPixelX();
  const double tpp_y = platform_.Screen().TwipsPerPixelY();
  window_ = platform_.Windows().CreateWindow(
      parent_window, u"ZKControl",
      {ToPixels(extender_.Left(), tpp_x), ToPixels(extender_.Top(), tpp_y),
       ToPixels(extender_.Left() + extender_.Width(), tpp_x),
       ToPixels(extender_.Top() + extender_.Height(), tpp_y)},
      0x50000000);
  last_width_ = extender_.Width();
  last_height_ = extender_.Height();
  extender_connection_ = extender_.PropertyWritten().Connect(
      [this](std::u16string_view property) { FollowExtender(property); });
}

HeadlessSurface::~HeadlessSurface() {
  platform_.Windows().DestroyWindow(window_);
}

double HeadlessSurface::BorderTwips(double twips_per_pixel) const {
  if (border_style_ == 0) return 0;
  return (appearance_ == 1 ? 2 : 1) * twips_per_pixel;
}

double HeadlessSurface::ScaleWidth() const {
  return std::max(0.0, Width() - 2 * BorderTwips(platform_.Screen().TwipsPerPixelX()));
}

double HeadlessSurface::ScaleHeight() const {
  return std::max(0.0, Height() - 2 * BorderTwips(platform_.Screen().TwipsPerPixelY()));
}

void HeadlessSurface::SetSize(double width, double height) {
  extender_.Move(extender_.Left(), extender_.Top(), width, height);
}

void HeadlessSurface::SetBorderStyle(int16_t style) {
  border_style_ = style;
}

void HeadlessSurface::SetAppearance(int16_t appearance) {
  appearance_ = appearance;
  back_color_ = appearance == 1 ? 0x8000000F : 0x80000005;
}

void HeadlessSurface::PopupMenu(const Variant&, const Variant&, const Variant&, const Variant&,
                                const Variant&) {
  ++popup_menu_count_;
}

std::unique_ptr<ILabelElement> HeadlessSurface::CreateLabel() {
  auto& catalogue = *platform_.FontCatalogue();
  return std::make_unique<Registered<HeadlessLabel>>(elements_, catalogue, platform_.Screen(),
                                                     catalogue.DefaultFont());
}

std::unique_ptr<IShapeElement> HeadlessSurface::CreateShape() {
  return std::make_unique<Registered<HeadlessShape>>(elements_);
}

std::unique_ptr<ILineElement> HeadlessSurface::CreateLine() {
  return std::make_unique<Registered<HeadlessLine>>(elements_);
}

std::unique_ptr<IImageElement> HeadlessSurface::CreateImage() {
  return std::make_unique<Registered<HeadlessImage>>(elements_, platform_.Screen());
}

namespace {

// A text box that tells its surface when it goes, so that keys stop going to it.
class KeyTakingTextBox : public HeadlessTextBox {
 public:
  KeyTakingTextBox(std::shared_ptr<HeadlessTextBox*> target, HeadlessPlatform& platform,
                   WindowHandle parent, bool multi_line)
      : HeadlessTextBox(platform, parent, multi_line), target_(std::move(target)) {
    *target_ = this;
  }
  ~KeyTakingTextBox() override {
    if (*target_ == this) *target_ = nullptr;
  }

 private:
  std::shared_ptr<HeadlessTextBox*> target_;
};

}  // namespace

std::unique_ptr<ITextBoxElement> HeadlessSurface::CreateTextBox(bool multi_line) {
  return std::make_unique<Registered<KeyTakingTextBox>>(elements_, key_target_, platform_, window_,
                                                        multi_line);
}

void HeadlessSurface::DeliverKey(int16_t key_code, int16_t shift, int16_t character) {
  if (HeadlessTextBox* box = *key_target_) return box->DeliverKey(key_code, shift, character);
  int16_t code = key_code;
  int16_t modifiers = shift;
  key_down_.Emit(code, modifiers);
  if (character != 0) {
    int16_t typed = character;
    key_press_.Emit(typed);
  }
  code = key_code;
  modifiers = shift;
  key_up_.Emit(code, modifiers);
}

void HeadlessSurface::FollowExtender(std::u16string_view property) {
  if (property != u"Move" && property != u"Top" && property != u"Left" && property != u"Width" &&
      property != u"Height") {
    return;
  }
  const double tpp_x = platform_.Screen().TwipsPerPixelX();
  const double tpp_y = platform_.Screen().TwipsPerPixelY();
  platform_.Windows().MoveWindow(
      window_, {ToPixels(extender_.Left(), tpp_x), ToPixels(extender_.Top(), tpp_y),
                ToPixels(extender_.Left() + extender_.Width(), tpp_x),
                ToPixels(extender_.Top() + extender_.Height(), tpp_y)});
  if (extender_.Width() != last_width_ || extender_.Height() != last_height_) {
    last_width_ = extender_.Width();
    last_height_ = extender_.Height();
    resized_.Emit();
  }
}

void HeadlessSurface::Deliver(MouseAction action, int16_t button, int16_t shift, float x, float y) {
  if (enabled_) elements_->Deliver(action, button, shift, x, y);
}

}  // namespace zk
