#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string_view>

#include "framework/control.h"

namespace zk {

// A kind of control as a form designer knows it: how to create one and how it is placed.
struct ControlKind {
  std::u16string_view name;
  std::function<std::shared_ptr<ZKControl>(IControlSite&)> create;
  // The size a newly placed control gets, in twips.
  double width;
  double height;
  // Whether the host's extender offers Default and Cancel, and the TabStop a new one gets.
  bool default_and_cancel;
  bool tab_stop;
  // Whether the control can take the focus.
  bool can_focus;
  // Whether a form can place other controls inside it (their windows in its surface, their
  // positions in its inner area, its enabled state passed on to them by the control itself).
  bool container = false;
};

// Every kind of control the library has, in the order the gallery shows them.
std::span<const ControlKind> ControlKinds();
// The kind of that name (compared without regard to case), or null. Registered kinds are
// found too.
const ControlKind* FindControlKind(std::u16string_view name);
// Adds a kind that forms place like the library's own but that ControlKinds() does not list,
// so that no gallery or listing shows it (kinds that only tests build). The name must outlive
// the program (a literal). False, and nothing added, when a kind of that name exists.
bool RegisterControlKind(const ControlKind& kind);

}  // namespace zk
