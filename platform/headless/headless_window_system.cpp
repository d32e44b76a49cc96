#include "platform/headless/headless_window_system.h"

#include <algorithm>
#include <utility>

#include "platform/window_messages.h"

namespace zk {

HeadlessWindowSystem::HeadlessWindowSystem() : ProcedureWindowSystem(0x00401000) {}

HeadlessWindowSystem::~HeadlessWindowSystem() = default;

WindowHandle HeadlessWindowSystem::CreateWindow(WindowHandle parent, std::u16string class_name,
                                                PixelRect bounds, int32_t style) {
  if (parent != 0 && !IsWindow(parent)) return 0;
  const WindowHandle handle = next_handle_;
  next_handle_ += 4;
  Window window;
  window.parent = parent;
  window.class_name = std::move(class_name);
  window.bounds = bounds;
  window.style = style;
  window.stack_order = next_stack_order_++;
  window.procedure = ClassProcedureAddress();
  windows_.emplace(handle, std::move(window));
  return handle;
}

ProcedureWindowSystem::WindowState* HeadlessWindowSystem::FindState(WindowHandle window, bool) {
  auto found = windows_.find(window);
  return found == windows_.end() ? nullptr : &found->second;
}

bool HeadlessWindowSystem::DestroyWindow(WindowHandle window) {
  if (!IsWindow(window)) return false;
  SendMessage(window, window_message::kDestroy, 0, 0);
  for (WindowHandle child : Children(window))
    DestroyWindow(child);
  SendMessage(window, window_message::kNcDestroy, 0, 0);
  windows_.erase(window);
  if (active_window_ == window) active_window_ = 0;
  if (capture_ == window) capture_ = 0;
  return true;
}

bool HeadlessWindowSystem::MoveWindow(WindowHandle window, PixelRect bounds) {
  auto found = windows_.find(window);
  if (found == windows_.end()) return false;
  found->second.bounds = bounds;
  return true;
}

WindowHandle HeadlessWindowSystem::Parent(WindowHandle window) const {
  auto found = windows_.find(window);
  return found == windows_.end() ? 0 : found->second.parent;
}

std::vector<WindowHandle> HeadlessWindowSystem::Children(WindowHandle window) const {
  std::vector<std::pair<uint64_t, WindowHandle>> children;
  for (const auto& [handle, record] : windows_) {
    if (record.parent == window) children.emplace_back(record.stack_order, handle);
  }
  std::sort(children.begin(), children.end());
  std::vector<WindowHandle> handles;
  for (const auto& [order, handle] : children)
    handles.push_back(handle);
  return handles;
}

bool HeadlessWindowSystem::BringToTop(WindowHandle window) {
  auto found = windows_.find(window);
  if (found == windows_.end()) return false;
  found->second.stack_order = next_stack_order_++;
  return true;
}

bool HeadlessWindowSystem::IsWindow(WindowHandle window) const {
  return window != 0 && windows_.contains(window);
}

PixelPoint HeadlessWindowSystem::ClientOrigin(WindowHandle window) const {
  PixelPoint origin;
  for (auto found = windows_.find(window); found != windows_.end();
       found = windows_.find(found->second.parent)) {
    origin.x += found->second.bounds.left;
    origin.y += found->second.bounds.top;
  }
  return origin;
}

bool HeadlessWindowSystem::GetWindowRect(WindowHandle window, PixelRect& rect) const {
  auto found = windows_.find(window);
  if (found == windows_.end()) return false;
  const PixelPoint origin = ClientOrigin(window);
  rect = {origin.x, origin.y, origin.x + found->second.bounds.Width(),
          origin.y + found->second.bounds.Height()};
  return true;
}

bool HeadlessWindowSystem::ScreenToClient(WindowHandle window, PixelPoint& point) const {
  if (!IsWindow(window)) return false;
  const PixelPoint origin = ClientOrigin(window);
  point.x -= origin.x;
  point.y -= origin.y;
  return true;
}

bool HeadlessWindowSystem::ReleaseCapture() {
  capture_ = 0;
  return true;
}

void HeadlessWindowSystem::OnClassProcedure(WindowHandle window, uint32_t message, int32_t wparam,
                                            int32_t lparam) {
  delivered_.push_back({window, message, wparam, lparam});
}

}  // namespace zk
