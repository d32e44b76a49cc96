#pragma once

#include <memory>
#include <string_view>

#include "foundation/variant.h"
#include "framework/control.h"
#include "platform/bindable_extender.h"
#include "platform/host.h"

namespace zk {

// One part of a control: another control of the library that the control is built from. The
// holder owns the part's site (a child site of the owner's) and the part, site first, so that
// the part is always destroyed before its site. It creates the part as a designer creates a new
// control (InitProperties), binds the part's Enabled to its extender as a form does, and shows
// it. The owner talks to the part through the part's public members and events (-> and *), and
// places, shows, focuses and raises it through the part's extender and surface, which are the
// owner's own.
template <typename T>
class Constituent {
 public:
  // A new part named `name` (the part's Name, and the source of its traces) on the control
  // whose site is `owner_site`. The owner's site must outlive the holder.
  Constituent(IControlSite& owner_site, std::u16string_view name)
      : owner_surface_(owner_site.Surface()),
        site_(owner_site.CreateChildSite(name)),
        part_(std::make_unique<T>(*site_)) {
    if (auto* extender = dynamic_cast<IBindableExtender*>(&site_->Extender())) {
      T& part = *part_;
      extender->BindEnabled([&part] { return part.Enabled(); },
                            [&part](bool enabled) { part.SetEnabled(enabled); });
    }
    part_->InitProperties();
    site_->Surface().Shown().Emit(site_->Extender().GetProperty(u"Visible").ToBool());
  }
  Constituent(const Constituent&) = delete;
  Constituent& operator=(const Constituent&) = delete;
  // The part goes first, then its site (the members' order says so).
  ~Constituent() = default;

  // The part; null (and false) after Reset.
  T* get() const { return part_.get(); }
  T* operator->() const { return part_.get(); }
  T& operator*() const { return *part_; }
  explicit operator bool() const { return part_ != nullptr; }

  // The part's private extender: Name, Left, Top, Width, Height (twips of the owner's inner
  // area), Visible, Enabled, ToolTipText. Only while the part exists.
  DispatchObject& Extender() const { return site_->Extender(); }
  // The part's surface: its window, its focus inside the owner and its place among the parts.
  // Only while the part exists.
  ISurface& Surface() const { return site_->Surface(); }

  // Places the part in one step (twips of the owner's inner area); nothing after Reset.
  void Move(double left, double top, double width, double height) {
    if (!site_) return;
    if (auto* extender = dynamic_cast<IBindableExtender*>(&site_->Extender())) {
      extender->Move(left, top, width, height);
      return;
    }
    DispatchObject& extender = site_->Extender();
    extender.SetProperty(u"Left", Variant(left));
    extender.SetProperty(u"Top", Variant(top));
    extender.SetProperty(u"Width", Variant(width));
    extender.SetProperty(u"Height", Variant(height));
  }

  // Destroys the part and its site now, while the owner lives on. A part that has the focus
  // first gives it to the owner's own window, so that it hears LostFocus while it still exists.
  void Reset() {
    if (!site_) return;
    if (site_->Surface().HasFocus()) owner_surface_.SetFocus();
    part_.reset();
    site_.reset();
  }

 private:
  ISurface& owner_surface_;
  std::unique_ptr<IControlSite> site_;
  std::unique_ptr<T> part_;
};

}  // namespace zk
