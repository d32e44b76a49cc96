#include "hosting/form.h"

#include <algorithm>
#include <utility>

#include "foundation/debug_utils.h"
#include "foundation/dispatch_object.h"
#include "foundation/flag_scope.h"
#include "foundation/zk_error.h"
#include "platform/common/form_extender.h"
#include "platform/platform.h"

namespace zk {
namespace {

// Names compare without regard to ASCII case.
std::u16string LowerCase(std::u16string_view name) {
  std::u16string lower(name);
  for (char16_t& c : lower) {
    if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c + 32);
  }
  return lower;
}

bool IsName(std::u16string_view name) {
  if (name.empty() || name.size() > 40) return false;
  auto letter = [](char16_t c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); };
  if (!letter(name[0])) return false;
  for (char16_t c : name) {
    if (!letter(c) && !(c >= u'0' && c <= u'9') && c != u'_') return false;
  }
  return true;
}

[[noreturn]] void Refuse(std::u16string description) {
  throw ZKError(error_number::kInvalidProcedureCall, std::move(description));
}

}  // namespace

Form::Form(IPlatform& platform, PlatformRecorder& recorder)
    : platform_(platform), recorder_(recorder), ambient_(platform.NewFont()) {}

Form::~Form() = default;

Form::Placed* Form::FindPlaced(std::u16string_view name) {
  auto found = index_.find(LowerCase(name));
  return found == index_.end() ? nullptr : &placed_[found->second];
}

void Form::Reindex() {
  index_.clear();
  for (size_t i = 0; i < placed_.size(); ++i)
    index_.emplace(LowerCase(placed_[i].name), i);
}

ZKControl* Form::FindControl(std::u16string_view name) {
  Placed* placed = FindPlaced(name);
  return placed ? placed->control.get() : nullptr;
}

std::shared_ptr<ZKControl> Form::ControlRef(std::u16string_view name) {
  Placed* placed = FindPlaced(name);
  return placed ? placed->control : nullptr;
}

DispatchObject* Form::FindExtender(std::u16string_view name) {
  Placed* placed = FindPlaced(name);
  return placed ? &placed->site->Extender() : nullptr;
}

std::vector<ZKControl*> Form::Controls() {
  std::vector<ZKControl*> controls;
  for (Placed& placed : placed_)
    controls.push_back(placed.control.get());
  return controls;
}

bool Form::MoveControl(std::u16string_view name, double left, double top, double width,
                       double height) {
  Placed* placed = FindPlaced(name);
  if (placed == nullptr) return false;
  // As with the extender's own Width and Height: a negative size is refused, nothing moves.
  if (width < 0 || height < 0) throw ZKError::InvalidPropertyValue();
  DispatchObject& extender = placed->site->Extender();
  if (auto* form_extender = dynamic_cast<FormExtender*>(&extender)) {
    form_extender->Move(left, top, width, height);
  } else {
    extender.SetProperty(u"Left", Variant(left));
    extender.SetProperty(u"Top", Variant(top));
    extender.SetProperty(u"Width", Variant(width));
    extender.SetProperty(u"Height", Variant(height));
  }
  return true;
}

bool Form::RemoveControl(std::u16string_view name) {
  Placed* placed = FindPlaced(name);
  if (placed == nullptr) return false;
  // What lies inside goes first, the last placed first, so that no window outlives the
  // container's surface that holds it.
  std::vector<std::u16string> removed{placed->name};
  for (size_t i = 0; i < removed.size(); ++i) {
    for (const Placed& candidate : placed_) {
      if (!candidate.container.empty() && MemberNameEquals(candidate.container, removed[i])) {
        removed.push_back(candidate.name);
      }
    }
  }
  for (auto at = placed_.end(); at != placed_.begin();) {
    --at;
    const bool goes = std::any_of(removed.begin(), removed.end(), [&](const std::u16string& n) {
      return MemberNameEquals(n, at->name);
    });
    if (!goes) continue;
    at->control.reset();  // the control goes before its site
    at = placed_.erase(at);
  }
  Reindex();
  RenumberTabOrder();  // the controls after it move up
  return true;
}

void Form::RemoveAll() {
  // Controls go before their sites, in the reverse order of placement.
  while (!placed_.empty()) {
    placed_.back().control.reset();
    placed_.pop_back();
  }
  index_.clear();
}

Form::Placed& Form::Place(const ControlKind& kind, std::u16string_view name,
                          const MemoryPropertyBag* extender_values, std::u16string_view container) {
  Placed* holder = container.empty() ? nullptr : FindPlaced(container);
  Placed placed{std::u16string(name),
                &kind,
                holder != nullptr ? holder->name : std::u16string(),
                CreateSite(kind, name, holder != nullptr ? holder->site.get() : nullptr),
                nullptr,
                {}};
  DispatchObject& extender = placed.site->Extender();
  auto* form_extender = dynamic_cast<FormExtender*>(&extender);
  if (form_extender != nullptr) {
    // Only controls that act as buttons get Default and Cancel from the form.
    form_extender->OfferDefaultAndCancel(kind.default_and_cancel);
    form_extender->Move(0, 0, kind.width, kind.height);
  } else {
    extender.SetProperty(u"Width", Variant(kind.width));
    extender.SetProperty(u"Height", Variant(kind.height));
  }
  extender.SetProperty(u"TabIndex", Variant(static_cast<int32_t>(placed_.size())));
  try {
    extender.SetProperty(u"TabStop", Variant(kind.tab_stop));
  } catch (const ZKError&) {
    // This form gives the kind no TabStop.
  }
  if (extender_values != nullptr) {
    for (const auto& [key, value] : extender_values->Entries()) {
      try {
        extender.SetProperty(key, value);
      } catch (...) {
        MDebugUtils::TraceError(std::u16string(name), u"Load (" + key + u")");
      }
    }
  }
  placed.control = kind.create(*placed.site);
  if (form_extender != nullptr) {
    ZKControl& control = *placed.control;
    form_extender->BindEnabled([&control] { return control.Enabled(); },
                               [&control](bool enabled) { control.SetEnabled(enabled); });
    placed.tab_index_watch = form_extender->PropertyWritten().Connect(
        [this, form_extender](std::u16string_view property) {
          if (renumbering_ || !MemberNameEquals(property, u"TabIndex")) return;
          MoveInTabOrder(form_extender, form_extender->TabIndex());
        });
  }
  placed_.push_back(std::move(placed));
  index_.emplace(LowerCase(name), placed_.size() - 1);
  return placed_.back();
}

const ControlKind& Form::NewControlKind(std::u16string_view kind_name, std::u16string_view name) {
  const ControlKind* kind = FindControlKind(kind_name);
  if (kind == nullptr) Refuse(u"Unknown control kind: " + std::u16string(kind_name));
  if (!IsName(name)) Refuse(u"Not a control name: " + std::u16string(name));
  if (FindPlaced(name) != nullptr) Refuse(u"A control named " + std::u16string(name) + u" exists");
  return *kind;
}

ZKControl& Form::AddControl(std::u16string_view kind_name, std::u16string_view name) {
  Placed& placed = Place(NewControlKind(kind_name, name), name, nullptr, {});
  placed.control->InitProperties();
  // A running form shows what it places.
  placed.site->Surface().Shown().Emit(placed.site->Extender().GetProperty(u"Visible").ToBool());
  return *placed.control;
}

ZKControl& Form::AddControlInside(std::u16string_view kind_name, std::u16string_view name,
                                  std::u16string_view container) {
  const ControlKind& kind = NewControlKind(kind_name, name);
  Placed* holder = FindPlaced(container);
  if (holder == nullptr) {
    throw ZKError(error_number::kObjectRequired, u"Object required: " + std::u16string(container));
  }
  if (!holder->kind->container) {
    throw ZKError(
        error_number::kMemberNotFound,
        holder->name + u" (" + std::u16string(holder->kind->name) + u") cannot contain controls");
  }
  // As deep as a form file may nest its blocks, so that every form can be saved and loaded.
  size_t depth = 1;
  for (const Placed* around = holder; !around->container.empty();
       around = FindPlaced(around->container)) {
    ++depth;
  }
  if (depth >= kMaxContainerNesting) Refuse(u"Containers nested too deeply: " + holder->name);
  Placed& placed = Place(kind, name, nullptr, holder->name);
  placed.control->InitProperties();
  placed.site->Surface().Shown().Emit(placed.site->Extender().GetProperty(u"Visible").ToBool());
  return *placed.control;
}

std::u16string Form::ContainerOf(std::u16string_view name) {
  Placed* placed = FindPlaced(name);
  return placed != nullptr ? placed->container : std::u16string();
}

std::vector<ObjectRef> Form::ContainedControls(std::u16string_view name) {
  std::vector<ObjectRef> contained;
  for (const Placed& placed : placed_) {
    if (!placed.container.empty() && MemberNameEquals(placed.container, name)) {
      contained.push_back(placed.control);
    }
  }
  return contained;
}

bool Form::IsShown(std::u16string_view name) {
  for (Placed* placed = FindPlaced(name); placed != nullptr;
       placed = placed->container.empty() ? nullptr : FindPlaced(placed->container)) {
    if (!placed->site->Extender().GetProperty(u"Visible").ToBool()) return false;
  }
  return true;
}

bool Form::ContainersLetThrough(const Placed& placed) {
  for (Placed* around = placed.container.empty() ? nullptr : FindPlaced(placed.container);
       around != nullptr;
       around = around->container.empty() ? nullptr : FindPlaced(around->container)) {
    if (!around->site->Extender().GetProperty(u"Visible").ToBool() ||
        !around->site->Surface().Enabled()) {
      return false;
    }
  }
  return true;
}

Form::Placed* Form::PlacedWithSurface(const ISurface& surface) {
  for (Placed& placed : placed_) {
    if (&placed.site->Surface() == &surface) return &placed;
  }
  return nullptr;
}

std::string Form::SaveText() {
  // The placed controls by the container they lie in ("" for the form), in placement order.
  std::unordered_map<std::u16string, std::vector<size_t>> inside;
  for (size_t i = 0; i < placed_.size(); ++i)
    inside[LowerCase(placed_[i].container)].push_back(i);
  FormFile file;
  const auto blocks = [&](const auto& self, const std::u16string& container,
                          std::vector<FormFileControl>& out) -> void {
    auto found = inside.find(container);
    if (found == inside.end()) return;
    for (const size_t index : found->second) {
      Placed& placed = placed_[index];
      FormFileControl entry;
      entry.kind = placed.kind->name;
      DispatchObject& extender = placed.site->Extender();
      entry.name = extender.GetProperty(u"Name").ToText();
      for (std::u16string_view key : FormFileExtenderKeys()) {
        try {
          entry.extender.Store(key, extender.GetProperty(key));
        } catch (const ZKError&) {
          // A value the form does not offer for this control is not saved.
        }
      }
      placed.control->WriteProperties(entry.properties);
      self(self, LowerCase(placed.name), entry.contained);
      out.push_back(std::move(entry));
    }
  };
  blocks(blocks, std::u16string(), file.controls);
  return WriteFormFile(file);
}

namespace {

// Checks a file's blocks before anything is placed: known kinds, names that are names and
// appear once in the whole file, contents only inside container kinds.
void CheckBlocks(const std::vector<FormFileControl>& blocks,
                 std::vector<std::u16string_view>& names_seen) {
  for (const FormFileControl& entry : blocks) {
    const ControlKind* kind = FindControlKind(entry.kind);
    if (kind == nullptr) {
      throw ZKError(31037, u"Error loading from file: unknown control kind " + entry.kind);
    }
    if (!IsName(entry.name)) {
      throw ZKError(31037, u"Error loading from file: not a control name: " + entry.name);
    }
    for (std::u16string_view seen : names_seen) {
      if (MemberNameEquals(seen, entry.name)) {
        throw ZKError(31037, u"Error loading from file: two controls named " + entry.name);
      }
    }
    names_seen.push_back(entry.name);
    if (!entry.contained.empty() && !kind->container) {
      throw ZKError(31037, u"Error loading from file: " + entry.name + u" (" + entry.kind +
                               u") cannot contain controls");
    }
    CheckBlocks(entry.contained, names_seen);
  }
}

}  // namespace

void Form::LoadText(std::string_view text) {
  FormFile file = ReadFormFile(text, platform_.FontCatalogue(), platform_.Pictures());
  // Everything is checked before the current controls go, so a bad file loses nothing.
  std::vector<std::u16string_view> names_seen;
  CheckBlocks(file.controls, names_seen);
  RemoveAll();
  for (FormFileControl& entry : file.controls)
    PlaceFromFile(entry, {});
  // Each control came with its saved TabIndex; together they give the order.
  RenumberTabOrder();
}

void Form::PlaceFromFile(FormFileControl& entry, std::u16string_view container) {
  Placed& placed = Place(*FindControlKind(entry.kind), entry.name, &entry.extender, container);
  try {
    placed.control->ReadProperties(entry.properties);
    placed.site->Surface().Shown().Emit(placed.site->Extender().GetProperty(u"Visible").ToBool());
  } catch (...) {
    MDebugUtils::TraceError(entry.name, u"ReadProperties");
  }
  const std::u16string name = entry.name;  // `placed` moves as the form places more
  for (FormFileControl& inner : entry.contained)
    PlaceFromFile(inner, name);
}

void Form::MoveInTabOrder(const DispatchObject* moved, int32_t place) {
  std::vector<Placed*> order;
  Placed* moving = nullptr;
  for (Placed& placed : placed_) {
    if (&placed.site->Extender() == moved) {
      moving = &placed;
    } else {
      order.push_back(&placed);
    }
  }
  std::stable_sort(order.begin(), order.end(), [](Placed* a, Placed* b) {
    return a->site->Extender().GetProperty(u"TabIndex").ToInt32() <
           b->site->Extender().GetProperty(u"TabIndex").ToInt32();
  });
  if (moving != nullptr) {
    const auto at =
        static_cast<size_t>(std::clamp<int32_t>(place, 0, static_cast<int32_t>(order.size())));
    order.insert(order.begin() + static_cast<std::ptrdiff_t>(at), moving);
  }
  const FlagScope renumbering(renumbering_);
  for (size_t i = 0; i < order.size(); ++i) {
    DispatchObject& extender = order[i]->site->Extender();
    const Variant number(static_cast<int32_t>(i));
    if (extender.GetProperty(u"TabIndex") != number) extender.SetProperty(u"TabIndex", number);
  }
}

}  // namespace zk

namespace zk {

Variant Form::Ambient(std::u16string_view name) {
  if (MemberNameEquals(name, u"BackColor"))
    return variant_conversion::ToVariant(ambient_.BackColor());
  if (MemberNameEquals(name, u"ForeColor"))
    return variant_conversion::ToVariant(ambient_.ForeColor());
  if (MemberNameEquals(name, u"Font")) return Variant(ambient_.Font());
  if (MemberNameEquals(name, u"UserMode")) return Variant(ambient_.UserMode());
  if (MemberNameEquals(name, u"TwipsPerPixel")) return Variant(platform_.Screen().TwipsPerPixelX());
  throw ZKError::MemberNotFound();
}

void Form::SetAmbient(std::u16string_view name, const Variant& value) {
  if (MemberNameEquals(name, u"BackColor")) return ambient_.SetBackColor(value.ToColor());
  if (MemberNameEquals(name, u"ForeColor")) return ambient_.SetForeColor(value.ToColor());
  if (MemberNameEquals(name, u"UserMode")) return ambient_.SetUserMode(value.ToBool());
  if (MemberNameEquals(name, u"Font")) {
    FontRef font = variant_conversion::FromVariant<FontRef>(value);
    if (!font) throw ZKError(error_number::kObjectRequired, u"Object required");
    return ambient_.SetFont(font->Clone());
  }
  if (MemberNameEquals(name, u"TwipsPerPixel")) {
    const double twips = value.ToDouble();
    if (!(twips >= 1 && twips <= 1440)) throw ZKError::InvalidPropertyValue();
    return SetTwipsPerPixel(twips);
  }
  throw ZKError::MemberNotFound();
}

std::vector<std::pair<std::u16string, std::u16string>> Form::TakePropertyChanges() {
  std::vector<std::pair<std::u16string, std::u16string>> changes;
  for (PropertyChangeRecord& record : recorder_.property_changes) {
    changes.emplace_back(std::move(record.control), std::move(record.property));
  }
  recorder_.property_changes.clear();
  return changes;
}

bool Form::CanFocus(Placed& placed) {
  if (!placed.kind->can_focus || !placed.control->Enabled()) return false;
  return placed.site->Extender().GetProperty(u"Visible").ToBool() && ContainersLetThrough(placed);
}

std::vector<Form::Placed*> Form::TabOrder() {
  std::vector<Placed*> order;
  for (Placed& placed : placed_) {
    bool tab_stop = false;
    try {
      tab_stop = placed.site->Extender().GetProperty(u"TabStop").ToBool();
    } catch (const ZKError&) {
      // A control without TabStop is not visited.
    }
    if (tab_stop && CanFocus(placed)) order.push_back(&placed);
  }
  std::stable_sort(order.begin(), order.end(), [](Placed* a, Placed* b) {
    return a->site->Extender().GetProperty(u"TabIndex").ToInt32() <
           b->site->Extender().GetProperty(u"TabIndex").ToInt32();
  });
  return order;
}

bool Form::MayLeave(ZKControl* focused) {
  if (focused == nullptr) return true;
  for (Placed& placed : placed_) {
    if (placed.control.get() != focused) continue;
    bool cancel = false;
    placed.site->Surface().Validate().Emit(cancel);
    return !cancel;
  }
  return true;
}

bool Form::DeliverAccessKey(const KeyStroke& stroke) {
  if ((stroke.key_code != 13 && stroke.key_code != 27) || stroke.shift != 0) return false;
  const std::u16string_view flag = stroke.key_code == 13 ? u"Default" : u"Cancel";
  for (Placed& placed : placed_) {
    if (!placed.kind->default_and_cancel || !placed.control->Enabled() ||
        !ContainersLetThrough(placed)) {
      continue;
    }
    bool flagged = false;
    try {
      flagged = placed.site->Extender().GetProperty(flag).ToBool();
    } catch (const ZKError&) {
      continue;
    }
    if (flagged) {
      placed.site->Surface().AccessKeyPress().Emit(stroke.key_code);
      return true;
    }
  }
  return false;
}

bool Form::OfferTab(const ZKControl* focused, int16_t shift) {
  if (focused == nullptr) return false;
  for (Placed& placed : placed_) {
    if (placed.control.get() != focused) continue;
    ISurface& surface = placed.site->Surface();
    if (!surface.TakesTab()) return false;
    int16_t key_code = 9;
    int16_t modifiers = shift;
    surface.KeyDown().Emit(key_code, modifiers);
    return key_code == 0;
  }
  return false;
}

Form::Placed* Form::NextInTabOrder(const ZKControl* current, bool backwards) {
  std::vector<Placed*> order = TabOrder();
  if (order.empty()) return nullptr;
  auto at = std::find_if(order.begin(), order.end(),
                         [current](Placed* p) { return p->control.get() == current; });
  if (at == order.end()) return backwards ? order.back() : order.front();
  const size_t index = static_cast<size_t>(at - order.begin());
  return order[backwards ? (index + order.size() - 1) % order.size() : (index + 1) % order.size()];
}

}  // namespace zk
