#include "platform/headless/headless_surface.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/headless/headless_image.h"
#include "platform/headless/headless_label.h"
#include "platform/headless/headless_line.h"
#include "platform/headless/headless_list_box.h"
#include "platform/headless/headless_picture_box.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_shape.h"
#include "platform/headless/headless_text_box.h"

namespace zk {

namespace {

// A windowless element that keeps itself in its surface's list while it lives.
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

  void BringToFront() override {
    if (auto list_alive = list_.lock()) list_alive->BringToFront(this);
  }

 private:
  std::weak_ptr<MouseDispatcher> list_;
};

int32_t ToPixels(double twips, double twips_per_pixel) {
  return static_cast<int32_t>(std::lround(twips / twips_per_pixel));
}

// A text box that tells its surface when it goes, so that keys stop going to it. It has a
// window of its own: it lies among the surface's windows and makes its own clicks.
class KeyTakingTextBox final : public HeadlessTextBox,
                               public IMouseWindow,
                               public HeadlessKeyWindow {
 public:
  KeyTakingTextBox(std::shared_ptr<HeadlessKeyFocus> keys, std::weak_ptr<MouseDispatcher> list,
                   HeadlessPlatform& platform, WindowHandle parent, bool multi_line)
      : HeadlessTextBox(platform, parent, multi_line),
        keys_(std::move(keys)),
        list_(std::move(list)),
        platform_(platform),
        own_clicks_({&Click(), &DblClick(), &MouseDown(), &MouseMove(), &MouseUp()},
                    [this] { return std::pair<double, double>(Width(), Height()); }) {
    keys_->target = this;
    if (auto list_alive = list_.lock()) list_alive->AddWindow(this);
  }
  ~KeyTakingTextBox() override {
    if (auto list_alive = list_.lock()) list_alive->RemoveWindow(this);
    if (keys_->target == this) keys_->target = nullptr;
    if (keys_->holder == this) keys_->holder = nullptr;
  }

  void DeliverKey(int16_t key_code, int16_t shift, int16_t character) override {
    HeadlessTextBox::DeliverKey(key_code, shift, character);
  }

  void BringToFront() override {
    if (auto list_alive = list_.lock()) list_alive->BringToFront(static_cast<IMouseWindow*>(this));
    platform_.Windows().BringToTop(hWnd());
  }

  bool TakesMouseAt(double x, double y) const override {
    return Visible() && Enabled() && Contains(x, y);
  }
  void DeliverMouse(MouseAction action, int16_t button, int16_t shift, float x, float y) override {
    own_clicks_.Deliver(action, button, shift, x - static_cast<float>(Left()),
                        y - static_cast<float>(Top()));
  }

 private:
  std::shared_ptr<HeadlessKeyFocus> keys_;
  std::weak_ptr<MouseDispatcher> list_;
  HeadlessPlatform& platform_;
  // The box's own events, raised as a surface raises its own.
  MouseDispatcher own_clicks_;
};

}  // namespace

HeadlessSurface::HeadlessSurface(HeadlessPlatform& platform, FormExtender& extender,
                                 WindowHandle form_window, HeadlessSurface* container)
    : HeadlessSurface(platform, extender, nullptr, container,
                      container != nullptr ? container->window_ : form_window) {
  if (container_ != nullptr) {
    container_->contained_.push_back(this);
    container_->elements_->AddWindow(this);
  }
}

HeadlessSurface::HeadlessSurface(HeadlessPlatform& platform, FormExtender& extender,
                                 HeadlessSurface& owner)
    : HeadlessSurface(platform, extender, &owner, nullptr, owner.window_) {
  owner.elements_->AddWindow(this);
}

HeadlessSurface::HeadlessSurface(HeadlessPlatform& platform, FormExtender& extender,
                                 HeadlessSurface* owner, HeadlessSurface* container,
                                 WindowHandle parent_window)
    : PersistentDrawing(owner),
      platform_(platform),
      extender_(extender),
      container_(container),
      back_color_(0x8000000F),
      elements_(std::make_shared<MouseDispatcher>(
          MouseDispatcher::SurfaceEvents{&click_, &dbl_click_, &mouse_down_, &mouse_move_,
                                         &mouse_up_},
          [this] { return std::pair<double, double>(ScaleWidth(), ScaleHeight()); })) {
  window_ =
      platform_.Windows().CreateWindow(parent_window, u"ZKControl", WindowBounds(), 0x50000000);
  keys_->surface = this;
  last_width_ = extender_.Width();
  last_height_ = extender_.Height();
  extender_connection_ = extender_.PropertyWritten().Connect(
      [this](std::u16string_view property) { FollowExtender(property); });
}

HeadlessSurface* HeadlessSurface::OwnerSurface() const {
  return static_cast<HeadlessSurface*>(Owner());
}

HeadlessSurface::~HeadlessSurface() {
  keys_->surface = nullptr;
  if (HeadlessSurface* owner = OwnerSurface()) owner->elements_->RemoveWindow(this);
  if (container_ != nullptr) {
    container_->elements_->RemoveWindow(this);
    std::erase(container_->contained_, this);
  }
  // A form takes out what a container holds before the container; should one outlive it,
  // it no longer points at a surface that is gone.
  for (HeadlessSurface* contained : contained_)
    contained->container_ = nullptr;
  DetachFromOwner();
  platform_.Windows().DestroyWindow(window_);
}

double HeadlessSurface::BorderTwips(double twips_per_pixel) const {
  if (border_style_ == 0) return 0;
  return (appearance_ == 1 ? 2 : 1) * twips_per_pixel;
}

int32_t HeadlessSurface::BorderPixels() const {
  if (border_style_ == 0) return 0;
  return appearance_ == 1 ? 2 : 1;
}

PixelRect HeadlessSurface::WindowBounds() const {
  const double tpp_x = platform_.Screen().TwipsPerPixelX();
  const double tpp_y = platform_.Screen().TwipsPerPixelY();
  // A part lies in its owner's inner area, inside the owner's border, and a contained control
  // in its container's.
  const HeadlessSurface* owner = OwnerSurface();
  const HeadlessSurface* around = owner != nullptr ? owner : container_;
  const int32_t origin = around != nullptr ? around->BorderPixels() : 0;
  return {origin + ToPixels(extender_.Left(), tpp_x), origin + ToPixels(extender_.Top(), tpp_y),
          origin + ToPixels(extender_.Left() + extender_.Width(), tpp_x),
          origin + ToPixels(extender_.Top() + extender_.Height(), tpp_y)};
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
  PlacePartWindows();
}

void HeadlessSurface::SetAppearance(int16_t appearance) {
  appearance_ = appearance;
  back_color_ = appearance == 1 ? 0x8000000F : 0x80000005;
  PlacePartWindows();
}

void HeadlessSurface::SetEnabled(bool enabled) {
  if (!enabled) FocusabilityLost();
  enabled_ = enabled;
}

void HeadlessSurface::PlacePartWindows() {
  for (SurfaceBase* part : Parts()) {
    auto* surface = static_cast<HeadlessSurface*>(part);
    platform_.Windows().MoveWindow(surface->window_, surface->WindowBounds());
  }
  for (HeadlessSurface* contained : contained_)
    platform_.Windows().MoveWindow(contained->window_, contained->WindowBounds());
}

void HeadlessSurface::BringToFront() {
  platform_.Windows().BringToTop(window_);
  HeadlessSurface* around = OwnerSurface() != nullptr ? OwnerSurface() : container_;
  if (around != nullptr) around->elements_->BringToFront(static_cast<IMouseWindow*>(this));
}

bool HeadlessSurface::ContainersLetThrough() const {
  for (const HeadlessSurface* around = container_; around != nullptr; around = around->container_) {
    if (!around->extender_.Visible() || !around->enabled_) return false;
  }
  return true;
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

std::unique_ptr<ITextBoxElement> HeadlessSurface::CreateTextBox(bool multi_line) {
  return std::make_unique<KeyTakingTextBox>(keys_, elements_, platform_, window_, multi_line);
}

std::unique_ptr<IListBoxElement> HeadlessSurface::CreateListBox() {
  return std::make_unique<HeadlessListBox>(platform_, window_, elements_, keys_);
}

std::unique_ptr<IPictureBoxElement> HeadlessSurface::CreatePictureBox() {
  return std::make_unique<HeadlessPictureBox>(platform_, window_, elements_);
}

void HeadlessSurface::DeliverKey(int16_t key_code, int16_t shift, int16_t character) {
  auto& leaf = static_cast<HeadlessSurface&>(FocusLeaf());
  if (&leaf != this) return leaf.DeliverKey(key_code, shift, character);
  if (HeadlessKeyWindow* window = keys_->target) {
    return window->DeliverKey(key_code, shift, character);
  }
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
  if (property == u"Visible") {
    if (!extender_.Visible()) FocusabilityLost();
    shown_.Emit(extender_.Visible());
    return;
  }
  if (property != u"Move" && property != u"Top" && property != u"Left" && property != u"Width" &&
      property != u"Height") {
    return;
  }
  platform_.Windows().MoveWindow(window_, WindowBounds());
  if (extender_.Width() != last_width_ || extender_.Height() != last_height_) {
    last_width_ = extender_.Width();
    last_height_ = extender_.Height();
    resized_.Emit();
  }
}

void HeadlessSurface::Deliver(MouseAction action, int16_t button, int16_t shift, float x, float y) {
  // A disabled container takes the input of everything inside it, as a disabled window does.
  if (enabled_ && ContainersLetThrough()) elements_->Deliver(action, button, shift, x, y);
}

bool HeadlessSurface::TakesMouseAt(double x, double y) const {
  return extender_.Visible() && enabled_ && x >= extender_.Left() && y >= extender_.Top() &&
         x < extender_.Left() + extender_.Width() && y < extender_.Top() + extender_.Height();
}

void HeadlessSurface::DeliverMouse(MouseAction action, int16_t button, int16_t shift, float x,
                                   float y) {
  const auto border_x = static_cast<float>(BorderTwips(platform_.Screen().TwipsPerPixelX()));
  const auto border_y = static_cast<float>(BorderTwips(platform_.Screen().TwipsPerPixelY()));
  Deliver(action, button, shift, x - static_cast<float>(extender_.Left()) - border_x,
          y - static_cast<float>(extender_.Top()) - border_y);
}

HeadlessSurface* HeadlessSurface::PressFocusTarget(double x, double y, bool& here) {
  if (!enabled_) return nullptr;
  IMouseWindow* window = elements_->WindowAt(x, y);
  if (window == nullptr) return nullptr;
  auto* part = dynamic_cast<HeadlessSurface*>(window);
  if (part == nullptr) {
    here = true;  // a box of this surface, which takes the keys from now on
    if (auto* key_window = dynamic_cast<HeadlessKeyWindow*>(window)) keys_->target = key_window;
    return this;
  }
  const double inner_x =
      x - part->extender_.Left() - part->BorderTwips(platform_.Screen().TwipsPerPixelX());
  const double inner_y =
      y - part->extender_.Top() - part->BorderTwips(platform_.Screen().TwipsPerPixelY());
  if (HeadlessSurface* inner = part->PressFocusTarget(inner_x, inner_y, here)) return inner;
  here = false;
  return part;
}

WindowHandle HeadlessSurface::WindowAt(double x, double y) const {
  IMouseWindow* window = elements_->WindowAt(x, y);
  if (window == nullptr) return hWnd();
  if (const auto* part = dynamic_cast<const HeadlessSurface*>(window)) {
    const double twips_x = platform_.Screen().TwipsPerPixelX();
    const double twips_y = platform_.Screen().TwipsPerPixelY();
    return part->WindowAt(x - part->extender_.Left() - part->BorderTwips(twips_x),
                          y - part->extender_.Top() - part->BorderTwips(twips_y));
  }
  if (const auto* box = dynamic_cast<const IListBoxElement*>(window)) return box->hWnd();
  if (const auto* box = dynamic_cast<const ITextBoxElement*>(window)) return box->hWnd();
  if (const auto* box = dynamic_cast<const IPictureBoxElement*>(window)) return box->hWnd();
  return hWnd();
}

void HeadlessSurface::SetFormFocus(bool focused) {
  form_focus_ = focused;
  SyncFocus();
}

bool HeadlessSurface::CanTakeFocus() const {
  return extender_.Visible() && enabled_ && ContainersLetThrough();
}

bool HeadlessSurface::ShouldHoldFocus() const {
  auto& root = static_cast<HeadlessSurface&>(const_cast<HeadlessSurface*>(this)->Root());
  if (!root.form_focus_) return false;
  for (const SurfaceBase* step = &root; step != nullptr; step = step->FocusPart()) {
    if (step == this) return true;
  }
  return false;
}

void HeadlessSurface::TakeFocusNow() {
  SyncFocus();
  UpdateKeyHolder();
}

void HeadlessSurface::UpdateKeyHolder() {
  HeadlessKeyWindow* holder = HasFocus() && FocusPart() == nullptr ? keys_->target : nullptr;
  if (holder == keys_->holder) return;
  HeadlessKeyWindow* previous = std::exchange(keys_->holder, holder);
  const uint32_t change = ++keys_->holder_changes;
  // The box that had the keys hears of it first. Its handler may move the focus again, and
  // that move tells the boxes itself.
  const std::shared_ptr<HeadlessKeyFocus> keys = keys_;
  if (previous != nullptr) previous->KeysChanged(false);
  if (holder != nullptr && keys->holder_changes == change) holder->KeysChanged(true);
}

}  // namespace zk
