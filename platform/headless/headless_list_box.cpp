#include "platform/headless/headless_list_box.h"

#include <cmath>
#include <utility>

#include "platform/headless/headless_platform.h"
#include "platform/headless/headless_surface.h"

namespace zk {
namespace {

// A child window that shows itself and notifies its parent.
constexpr int32_t kListBoxStyle = 0x50000001;

int32_t Pixels(double twips, double twips_per_pixel) {
  return static_cast<int32_t>(std::lround(twips / twips_per_pixel));
}

}  // namespace

HeadlessListBox::HeadlessListBox(HeadlessPlatform& platform, WindowHandle parent,
                                 std::weak_ptr<MouseDispatcher> windows,
                                 std::weak_ptr<HeadlessKeyFocus> keys)
    : ListBoxState(platform.Windows(), platform.Screen(), platform.FontCatalogue()),
      platform_(platform),
      windows_(std::move(windows)),
      keys_(std::move(keys)) {
  AttachWindow(platform_.Windows().CreateWindow(parent, u"ListBox", {}, kListBoxStyle));
  if (auto windows_alive = windows_.lock()) windows_alive->AddWindow(this);
  if (auto keys_alive = keys_.lock()) keys_alive->target = this;
}

HeadlessListBox::~HeadlessListBox() {
  if (auto windows_alive = windows_.lock()) windows_alive->RemoveWindow(this);
  if (auto keys_alive = keys_.lock()) {
    if (keys_alive->target == this) keys_alive->target = nullptr;
    if (keys_alive->holder == this) keys_alive->holder = nullptr;
  }
  platform_.Windows().DestroyWindow(hWnd());
}

void HeadlessListBox::Move(double left, double top, double width, double height) {
  const double tpp_x = platform_.Screen().TwipsPerPixelX();
  const double tpp_y = platform_.Screen().TwipsPerPixelY();
  platform_.Windows().MoveWindow(
      hWnd(), {Pixels(left, tpp_x), Pixels(top, tpp_y), Pixels(left + width, tpp_x),
               Pixels(top + height, tpp_y)});
  ListBoxState::Move(left, top, width, height);
}

void HeadlessListBox::BringToFront() {
  if (auto windows_alive = windows_.lock()) {
    windows_alive->BringToFront(static_cast<IMouseWindow*>(this));
  }
  platform_.Windows().BringToTop(hWnd());
}

bool HeadlessListBox::SetFocus() {
  const std::shared_ptr<HeadlessKeyFocus> keys = keys_.lock();
  if (keys == nullptr || keys->surface == nullptr || !Visible() || !Enabled()) return false;
  HeadlessSurface& surface = *keys->surface;
  // The keys are this box's from now on, unless the focus cannot come.
  HeadlessKeyWindow* previous = std::exchange(keys->target, this);
  if (!surface.MoveFocusHere(true)) {
    keys->target = previous;
    return false;
  }
  surface.UpdateKeyHolder();
  return true;
}

bool HeadlessListBox::HasFocus() const {
  const std::shared_ptr<HeadlessKeyFocus> keys = keys_.lock();
  return keys != nullptr && keys->holder == this;
}

void HeadlessListBox::Changed() {
  if (Visible() && Enabled()) return;
  const std::shared_ptr<HeadlessKeyFocus> keys = keys_.lock();
  if (keys == nullptr || keys->target != this) return;
  keys->target = nullptr;
  if (keys->surface != nullptr) keys->surface->UpdateKeyHolder();
}

bool HeadlessListBox::TakesMouseAt(double x, double y) const {
  return Visible() && Enabled() && Contains(x, y);
}

void HeadlessListBox::DeliverMouse(MouseAction action, int16_t button, int16_t shift, float x,
                                   float y) {
  UserMouse(action, button, shift, x - static_cast<float>(Left()), y - static_cast<float>(Top()));
}

void HeadlessListBox::DeliverKey(int16_t key_code, int16_t shift, int16_t character) {
  if (!Enabled()) return;
  const std::shared_ptr<bool> alive = Alive();
  UserKeyDown(key_code, shift, character);
  if (*alive) UserKeyUp(key_code, shift);
}

}  // namespace zk
