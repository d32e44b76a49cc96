#include "hosting/form.h"

#include <utility>

#include "foundation/debug_utils.h"
#include "foundation/dispatch_object.h"
#include "foundation/zk_error.h"
#include "platform/platform.h"

namespace zk {
namespace {

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

Form::Form(IPlatform& platform) : platform_(platform) {}

Form::~Form() = default;

Form::Placed* Form::FindPlaced(std::u16string_view name) {
  for (Placed& placed : placed_) {
    if (MemberNameEquals(placed.site->Extender().GetProperty(u"Name").ToText(), name)) {
      return &placed;
    }
  }
  return nullptr;
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

bool Form::RemoveControl(std::u16string_view name) {
  Placed* placed = FindPlaced(name);
  if (placed == nullptr) return false;
  placed->control.reset();  // the control goes before its site
  placed_.erase(placed_.begin() + (placed - placed_.data()));
  return true;
}

void Form::RemoveAll() {
  // Controls go before their sites, in the reverse order of placement.
  while (!placed_.empty()) {
    placed_.back().control.reset();
    placed_.pop_back();
  }
}

Form::Placed& Form::Place(const ControlKind& kind, std::u16string_view name,
                          const MemoryPropertyBag* extender_values) {
  Placed placed{&kind, CreateSite(kind, name), nullptr};
  DispatchObject& extender = placed.site->Extender();
  extender.SetProperty(u"Width", Variant(kind.width));
  extender.SetProperty(u"Height", Variant(kind.height));
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
  BindExtender(*placed.site, *placed.control);
  placed_.push_back(std::move(placed));
  return placed_.back();
}

ZKControl& Form::AddControl(std::u16string_view kind_name, std::u16string_view name) {
  const ControlKind* kind = FindControlKind(kind_name);
  if (kind == nullptr) Refuse(u"Unknown control kind: " + std::u16string(kind_name));
  if (!IsName(name)) Refuse(u"Not a control name: " + std::u16string(name));
  if (FindPlaced(name) != nullptr) Refuse(u"A control named " + std::u16string(name) + u" exists");
  Placed& placed = Place(*kind, name, nullptr);
  placed.control->InitProperties();
  return *placed.control;
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
  FormFile file = ReadFormFile(text, platform_.FontCatalogue());
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
    } catch (...) {
      MDebugUtils::TraceError(entry.name, u"ReadProperties");
    }
  }
}

}  // namespace zk
