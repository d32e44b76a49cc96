#pragma once

#include <vector>

#include "foundation/signal.h"
#include "platform/surface.h"

namespace zk {

// What the surfaces of every platform share: their place in the tree of a control's parts and
// the focus inside a control. A control's own surface is the root of its tree; the surface of
// each part hangs below the surface it lies on. Each surface remembers the part that the focus
// goes to when it enters the surface (none: the surface's own window); following those from the
// root gives the focus path, and the keys go to its end. Which surfaces hold the focus is kept
// here, and GotFocus and LostFocus are raised only here, when that changes; a platform tells
// whether a surface should hold it now (the headless form's word, or where Qt's focus is) and
// how the focus really moves.
class SurfaceBase : public ISurface {
 public:
  ~SurfaceBase() override;
  SurfaceBase(const SurfaceBase&) = delete;
  SurfaceBase& operator=(const SurfaceBase&) = delete;

  bool SetFocus() override { return MoveFocusHere(true); }
  bool HasFocus() const override { return has_focus_; }
  bool TakesTab() const override { return takes_tab_; }
  void SetTakesTab(bool takes_tab) override { takes_tab_ = takes_tab; }
  Signal<>& GotFocus() override { return got_focus_; }
  Signal<>& LostFocus() override { return lost_focus_; }
  // The part that has the focus inside this surface is asked too, and a part refusing to let
  // the focus go keeps it for the whole control. The part is asked before the handlers that
  // were connected after the surface got its first part (a control's own handlers, as parts
  // are made with their control).
  Signal<bool&>& Validate() override { return validate_; }

  // The surface that this part lies on; null for a control placed on a form.
  SurfaceBase* Owner() const { return owner_; }
  SurfaceBase& Root();
  // The surfaces of this surface's parts, in creation order.
  const std::vector<SurfaceBase*>& Parts() const { return parts_; }
  // The part that the focus goes to inside this surface; null for the surface's own window.
  SurfaceBase* FocusPart() const { return focus_part_; }
  // Where the focus ends when it enters this surface: along the parts it remembers.
  SurfaceBase& FocusLeaf();

  // Moves the focus inside the control to this surface: with `here` to its own window (as
  // SetFocus does), else along the parts it remembers (as a press on a part's own area does).
  // Validation, events and the remembering while the control has no focus are SetFocus's.
  bool MoveFocusHere(bool here);

 protected:
  // `owner`: the surface of the control that this surface's control is a part of, or null.
  explicit SurfaceBase(SurfaceBase* owner);

  // Whether this surface can take the focus now: shown, enabled and able to.
  virtual bool CanTakeFocus() const = 0;
  // Whether this surface should hold the focus now, as the platform sees it.
  virtual bool ShouldHoldFocus() const = 0;
  // The focus path now ends at this surface while the control has the focus: the platform
  // moves its focus there.
  virtual void TakeFocusNow() = 0;
  // The part that the focus goes to inside this surface changed.
  virtual void FocusPartChanged() {}
  // HasFocus changed; runs before GotFocus or LostFocus is raised.
  virtual void HoldsFocusChanged() {}

  // Makes every surface of the tree hold the focus exactly when ShouldHoldFocus says so:
  // LostFocus first, innermost first, then GotFocus, outermost first. A handler may move the
  // focus again; the tree is checked anew after every event.
  void SyncFocus();
  // The same without raising anything, for a tree that is going away.
  void SyncFocusQuietly();
  // Points the focus path at this surface: every owner's focus part leads here, and with
  // `here` the path ends at this surface's own window.
  void PointFocusAt(bool here);
  // This part can no longer take the focus (hidden or disabled): its owner forgets it, and
  // takes the focus back from it if it had it.
  void FocusabilityLost();
  // Takes this surface out of its owner's tree (before its window goes).
  void DetachFromOwner();

 private:
  void SetFocusPart(SurfaceBase* part);
  bool IsOnPathTo(const SurfaceBase& surface) const;
  template <typename Visit>
  void VisitTree(Visit visit);

  SurfaceBase* owner_;
  std::vector<SurfaceBase*> parts_;
  SurfaceBase* focus_part_ = nullptr;
  bool has_focus_ = false;
  bool takes_tab_ = false;
  bool validates_parts_ = false;
  Signal<> got_focus_;
  Signal<> lost_focus_;
  Signal<bool&> validate_;
  ScopedConnection validate_parts_;
};

}  // namespace zk
