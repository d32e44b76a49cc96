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
  placed->control.reset();  // the control goes before its site
  placed_.erase(placed_.begin() + (placed - placed_.data()));
  Reindex();
  RenumberTabOrder();  // the controls after it move up one place
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
                          const MemoryPropertyBag* extender_values) {
  Placed placed{std::u16string(name), &kind, CreateSite(kind, name), nullptr, {}};
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
  Placed& placed = Place(NewControlKind(kind_name, name), name, nullptr);
  placed.control->InitProperties();
  // A running form shows what it places.
  placed.site->Surface().Shown().Emit(placed.site->Extender().GetProperty(u"Visible").ToBool());
  return *placed.control;
}

ZKControl& Form::AddControlInside(std::u16string_view kind_name, std::u16string_view name,
                                  std::u16string_view container) {
  NewControlKind(kind_name, name);
  Placed* holder = FindPlaced(container);
  if (holder == nullptr) {
    throw ZKError(error_number::kObjectRequired, u"Object required: " + std::u16string(container));
  }
  // A container gives what it holds a window inside its own, positions in its inner area and a
  // nested block in the form file; until a kind offers that, every control refuses.
  throw ZKError(
      error_number::kMemberNotFound,
      holder->name + u" (" + std::u16string(holder->kind->name) + u") cannot contain controls");
}

std::string Form::SaveText() {
  FormFile file;
  for (Placed& placed : placed_) {
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
    file.controls.push_back(std::move(entry));
  }
  return WriteFormFile(file);
}

void Form::LoadText(std::string_view text) {
  FormFile file = ReadFormFile(text, platform_.FontCatalogue(), platform_.Pictures());
  // Everything is checked before the current controls go, so a bad file loses nothing.
  for (size_t i = 0; i < file.controls.size(); ++i) {
    const FormFileControl& entry = file.controls[i];
    if (FindControlKind(entry.kind) == nullptr) {
      throw ZKError(31037, u"Error loading from file: unknown control kind " + entry.kind);
    }
    if (!IsName(entry.name)) {
      throw ZKError(31037, u"Error loading from file: not a control name: " + entry.name);
    }
    for (size_t j = 0; j < i; ++j) {
      if (MemberNameEquals(file.controls[j].name, entry.name)) {
        throw ZKError(31037, u"Error loading from file: two controls named " + entry.name);
      }
    }
  }
  RemoveAll();
  for (FormFileControl& entry : file.controls) {
    Placed& placed = Place(*FindControlKind(entry.kind), entry.name, &entry.extender);
    try {
      placed.control->ReadProperties(entry.properties);
      placed.site->Surface().Shown().Emit(placed.site->Extender().GetProperty(u"Visible").ToBool());
    } catch (...) {
      MDebugUtils::TraceError(entry.name, u"ReadProperties");
    }
  }
  // Each control came with its saved TabIndex; together they give the order.
  RenumberTabOrder();
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
  return placed.site->Extender().GetProperty(u"Visible").ToBool();
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
    if (!placed.kind->default_and_cancel || !placed.control->Enabled()) continue;
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
