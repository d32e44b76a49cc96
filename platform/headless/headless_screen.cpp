#include "platform/headless/headless_screen.h"

#include <algorithm>

#include "platform/window_messages.h"

namespace zk {

HeadlessScreen::HeadlessScreen(PlatformRecorder& recorder) : recorder_(recorder) {
  metrics_[system_metric::kScreenWidth] = 1920;
  metrics_[system_metric::kScreenHeight] = 1080;
  metrics_[system_metric::kVerticalScrollWidth] = 17;
  metrics_[system_metric::kHorizontalScrollHeight] = 17;
}

void HeadlessScreen::SetTwipsPerPixel(double x, double y) {
  twips_per_pixel_x_ = x;
  twips_per_pixel_y_ = y;
}

bool HeadlessScreen::SetCursorPos(int32_t x, int32_t y) {
  cursor_.x = std::clamp(x, 0, SystemMetric(system_metric::kScreenWidth) - 1);
  cursor_.y = std::clamp(y, 0, SystemMetric(system_metric::kScreenHeight) - 1);
  cursor_moved_.Emit();
  return true;
}

int32_t HeadlessScreen::SystemMetric(int32_t index) const {
  auto found = metrics_.find(index);
  return found == metrics_.end() ? 0 : found->second;
}

}  // namespace zk
