#include "platform/headless/headless_picture_box.h"

#include <cmath>
#include <utility>

#include "platform/headless/headless_platform.h"

namespace zk {
namespace {

constexpr int32_t kPictureBoxStyle = 0x50000000;

int32_t Pixels(double twips, double twips_per_pixel) {
  return static_cast<int32_t>(std::lround(twips / twips_per_pixel));
}

}  // namespace

HeadlessPictureBox::HeadlessPictureBox(HeadlessPlatform& platform, WindowHandle parent,
                                       std::weak_ptr<MouseDispatcher> windows)
    : platform_(platform),
      windows_(std::move(windows)),
      own_clicks_({&Click(), &DblClick(), &MouseDown(), &MouseMove(), &MouseUp()},
                  [this] { return std::pair<double, double>(Width(), Height()); }) {
  SetWindow(platform_.Windows().CreateWindow(parent, u"PictureBox", {}, kPictureBoxStyle));
  if (auto windows_alive = windows_.lock()) windows_alive->AddWindow(this);
}

HeadlessPictureBox::~HeadlessPictureBox() {
  if (auto windows_alive = windows_.lock()) windows_alive->RemoveWindow(this);
  platform_.Windows().DestroyWindow(hWnd());
}

void HeadlessPictureBox::Move(double left, double top, double width, double height) {
  HeadlessElement::Move(left, top, width, height);
  const double tpp_x = platform_.Screen().TwipsPerPixelX();
  const double tpp_y = platform_.Screen().TwipsPerPixelY();
  platform_.Windows().MoveWindow(
      hWnd(), {Pixels(left, tpp_x), Pixels(top, tpp_y), Pixels(left + width, tpp_x),
               Pixels(top + height, tpp_y)});
}

void HeadlessPictureBox::BringToFront() {
  if (auto windows_alive = windows_.lock()) {
    windows_alive->BringToFront(static_cast<IMouseWindow*>(this));
  }
  platform_.Windows().BringToTop(hWnd());
}

bool HeadlessPictureBox::TakesMouseAt(double x, double y) const {
  return Visible() && Enabled() && Contains(x, y);
}

void HeadlessPictureBox::DeliverMouse(MouseAction action, int16_t button, int16_t shift, float x,
                                      float y) {
  own_clicks_.Deliver(action, button, shift, x - static_cast<float>(Left()),
                      y - static_cast<float>(Top()));
}

}  // namespace zk
