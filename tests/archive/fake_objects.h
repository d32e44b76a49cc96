#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/dispatch_object.h"
#include "foundation/variant.h"
#include "foundation/zk_error.h"

namespace zk::archive_test {

// Matches a property entry by member name.
inline auto Named(std::u16string_view name) {
  return [name](const auto& property) { return MemberNameEquals(property.first, name); };
}

// An object with a fixed set of named properties that keeps what is written to it and logs the
// names written, in order. Removing a property makes reads and writes of it raise 438, as a
// host does for a property that it does not give a control.
class FakeObject : public DispatchObject {
 public:
  using Properties = std::vector<std::pair<std::u16string, Variant>>;

  explicit FakeObject(Properties properties) : properties_(std::move(properties)) {}

  Variant GetProperty(std::u16string_view name, std::span<const Variant> = {}) override {
    return Slot(name);
  }
  void SetProperty(std::u16string_view name, const Variant& value,
                   std::span<const Variant> = {}) override {
    Variant& slot = Slot(name);
    Check(name, value);
    slot = value;
    written.emplace_back(name);
  }

  void Remove(std::u16string_view name) { std::erase_if(properties_, Named(name)); }
  const Variant& Value(std::u16string_view name) { return Slot(name); }

  std::vector<std::u16string> written;

 protected:
  // Raises for a value that the object refuses.
  virtual void Check(std::u16string_view /*name*/, const Variant& /*value*/) {}

 private:
  Variant& Slot(std::u16string_view name) {
    const auto found = std::find_if(properties_.begin(), properties_.end(), Named(name));
    if (found == properties_.end()) throw ZKError::MemberNotFound();
    return found->second;
  }

  Properties properties_;
};

// A font whose defaults are recognisable, refusing sizes of zero and below as real fonts do.
class FakeFont : public FakeObject {
 public:
  FakeFont()
      : FakeObject({{u"Name", u"Default"},
                    {u"Size", 10.0},
                    {u"Bold", false},
                    {u"Italic", false},
                    {u"Underline", false},
                    {u"Strikethrough", false}}) {}

 protected:
  void Check(std::u16string_view name, const Variant& value) override {
    if (MemberNameEquals(name, u"Size") && value.ToDouble() <= 0) {
      throw ZKError::InvalidPropertyValue();
    }
  }
};

// The host's extender of one control, with every property a host can offer.
class FakeExtender : public FakeObject {
 public:
  FakeExtender()
      : FakeObject({{u"Name", u"Ctl1"},
                    {u"Top", 0.0},
                    {u"Left", 0.0},
                    {u"Width", 0.0},
                    {u"Height", 0.0},
                    {u"Visible", false},
                    {u"Default", false},
                    {u"Cancel", false},
                    {u"Enabled", false},
                    {u"ToolTipText", u""},
                    {u"TabIndex", 0.0},
                    {u"TabStop", false}}) {}
};

}  // namespace zk::archive_test
