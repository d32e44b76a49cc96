#include "platform/common/surface_base.h"

#include <algorithm>
#include <climits>

namespace zk {
namespace {

// Focus events that one change may cause at most: a handler that keeps moving the focus back
// and forth is stopped there instead of hanging the program.
constexpr int kMaxFocusEvents = 64;

}  // namespace

SurfaceBase::SurfaceBase(SurfaceBase* owner) : owner_(owner) {
  if (owner_ == nullptr) return;
  owner_->parts_.push_back(this);
  // From its first part on, the owner asks the part that has the focus inside it when it is
  // asked itself, and the part's refusal stands for the whole control. (A surface without
  // parts spends no connection on it.)
  if (!owner_->validates_parts_) {
    owner_->validates_parts_ = true;
    SurfaceBase* validating = owner_;
    owner_->validate_parts_ = owner_->validate_.Connect([validating](bool& cancel) {
      SurfaceBase* part = validating->focus_part_;
      if (part != nullptr && part->has_focus_) part->validate_.Emit(cancel);
    });
  }
}

SurfaceBase::~SurfaceBase() {
  DetachFromOwner();
  for (SurfaceBase* part : parts_)
    part->owner_ = nullptr;
}

SurfaceBase& SurfaceBase::Root() {
  SurfaceBase* surface = this;
  while (surface->owner_ != nullptr)
    surface = surface->owner_;
  return *surface;
}

SurfaceBase& SurfaceBase::FocusLeaf() {
  SurfaceBase* surface = this;
  while (surface->focus_part_ != nullptr)
    surface = surface->focus_part_;
  return *surface;
}

bool SurfaceBase::IsOnPathTo(const SurfaceBase& surface) const {
  for (const SurfaceBase* step = &surface; step != nullptr; step = step->owner_) {
    if (step == this) return true;
  }
  return false;
}

void SurfaceBase::SetFocusPart(SurfaceBase* part) {
  if (focus_part_ == part) return;
  focus_part_ = part;
  FocusPartChanged();
}

void SurfaceBase::PointFocusAt(bool here) {
  if (here) SetFocusPart(nullptr);
  for (SurfaceBase* surface = this; surface->owner_ != nullptr; surface = surface->owner_)
    surface->owner_->SetFocusPart(surface);
}

bool SurfaceBase::MoveFocusHere(bool here) {
  for (SurfaceBase* surface = this; surface->owner_ != nullptr; surface = surface->owner_) {
    if (!surface->CanTakeFocus()) return false;
  }
  SurfaceBase& root = Root();
  SurfaceBase& end = here ? *this : FocusLeaf();
  if (root.has_focus_) {
    // The outermost surface that loses the focus asks itself and its parts on the way.
    for (SurfaceBase* surface = &root; surface != nullptr; surface = surface->focus_part_) {
      if (surface->IsOnPathTo(end)) continue;
      bool cancel = false;
      surface->validate_.Emit(cancel);
      if (cancel) return false;
      break;
    }
  }
  PointFocusAt(here);
  if (root.has_focus_) end.TakeFocusNow();
  return true;
}

void SurfaceBase::FocusabilityLost() {
  if (owner_ == nullptr || owner_->focus_part_ != this) return;
  const bool had_focus = has_focus_;
  owner_->SetFocusPart(nullptr);
  if (had_focus) owner_->TakeFocusNow();
}

void SurfaceBase::DetachFromOwner() {
  if (owner_ == nullptr) return;
  std::erase(owner_->parts_, this);
  if (owner_->focus_part_ == this) owner_->SetFocusPart(nullptr);
  owner_ = nullptr;
}

template <typename Visit>
void SurfaceBase::VisitTree(Visit visit) {
  struct Walker {
    Visit& visit;
    void Walk(SurfaceBase& surface, int depth) {
      visit(surface, depth);
      for (SurfaceBase* part : surface.parts_)
        Walk(*part, depth + 1);
    }
  };
  Walker{visit}.Walk(*this, 0);
}

void SurfaceBase::SyncFocus() {
  for (int event = 0; event < kMaxFocusEvents; ++event) {
    SurfaceBase* loser = nullptr;
    int loser_depth = -1;
    SurfaceBase* gainer = nullptr;
    int gainer_depth = INT_MAX;
    Root().VisitTree([&](SurfaceBase& surface, int depth) {
      const bool should = surface.ShouldHoldFocus();
      if (surface.has_focus_ && !should && depth > loser_depth) {
        loser = &surface;
        loser_depth = depth;
      } else if (!surface.has_focus_ && should && depth < gainer_depth) {
        gainer = &surface;
        gainer_depth = depth;
      }
    });
    if (loser != nullptr) {
      loser->has_focus_ = false;
      loser->HoldsFocusChanged();
      loser->lost_focus_.Emit();
    } else if (gainer != nullptr) {
      gainer->has_focus_ = true;
      gainer->HoldsFocusChanged();
      gainer->got_focus_.Emit();
    } else {
      return;
    }
  }
}

void SurfaceBase::SyncFocusQuietly() {
  Root().VisitTree(
      [](SurfaceBase& surface, int) { surface.has_focus_ = surface.ShouldHoldFocus(); });
}

}  // namespace zk
