#include "platform/common/form_extender.h"

#include <utility>

#include "foundation/zk_error.h"

namespace zk {
namespace {

// Sizes and tab positions cannot be negative; a form refuses such a write.
template <typename T>
T NonNegative(T value) {
  if (value < 0) throw ZKError::InvalidPropertyValue();
  return value;
}

}  // namespace

FormExtender::FormExtender(std::u16string name) : name_(std::move(name)) {}

void FormExtender::Move(double left, double top, double width, double height) {
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
  property_written_.Emit(u"Move");
}

bool FormExtender::Enabled() const {
  return get_enabled_ ? get_enabled_() : enabled_;
}

void FormExtender::BindEnabled(std::function<bool()> get, std::function<void(bool)> set) {
  get_enabled_ = std::move(get);
  set_enabled_ = std::move(set);
}

void FormExtender::WithholdFormPlacement() {
  offers_default_and_cancel_ = false;
  offers_tab_stop_ = false;
  offers_tab_index_ = false;
}

void FormExtender::RequireOffered(bool offered) const {
  if (!offered) throw ZKError::MemberNotFound();
}

Variant FormExtender::GetProperty(std::u16string_view name, std::span<const Variant> index) {
  if (index.empty()) {
    if (MemberNameEquals(name, u"Name")) return Variant(name_);
    if (MemberNameEquals(name, u"Top")) return Variant(top_);
    if (MemberNameEquals(name, u"Left")) return Variant(left_);
    if (MemberNameEquals(name, u"Width")) return Variant(width_);
    if (MemberNameEquals(name, u"Height")) return Variant(height_);
    if (MemberNameEquals(name, u"Visible")) return Variant(visible_);
    if (MemberNameEquals(name, u"Enabled")) return Variant(Enabled());
    if (MemberNameEquals(name, u"ToolTipText")) return Variant(tool_tip_text_);
    if (MemberNameEquals(name, u"TabIndex")) {
      RequireOffered(offers_tab_index_);
      return Variant(int32_t{tab_index_});
    }
    if (MemberNameEquals(name, u"Default")) {
      RequireOffered(offers_default_and_cancel_);
      return Variant(default_);
    }
    if (MemberNameEquals(name, u"Cancel")) {
      RequireOffered(offers_default_and_cancel_);
      return Variant(cancel_);
    }
    if (MemberNameEquals(name, u"TabStop")) {
      RequireOffered(offers_tab_stop_);
      return Variant(tab_stop_);
    }
  }
  return DispatchObject::GetProperty(name, index);
}

void FormExtender::SetProperty(std::u16string_view name, const Variant& value,
                               std::span<const Variant> index) {
  if (!index.empty()) return DispatchObject::SetProperty(name, value, index);
  // Every branch converts first, so a value that does not convert changes nothing.
  if (MemberNameEquals(name, u"Name")) {
    throw ZKError(383, u"Property is read-only");
  } else if (MemberNameEquals(name, u"Top")) {
    top_ = value.ToDouble();
  } else if (MemberNameEquals(name, u"Left")) {
    left_ = value.ToDouble();
  } else if (MemberNameEquals(name, u"Width")) {
    width_ = NonNegative(value.ToDouble());
  } else if (MemberNameEquals(name, u"Height")) {
    height_ = NonNegative(value.ToDouble());
  } else if (MemberNameEquals(name, u"Visible")) {
    visible_ = value.ToBool();
  } else if (MemberNameEquals(name, u"Enabled")) {
    const bool enabled = value.ToBool();
    if (set_enabled_) {
      set_enabled_(enabled);
    } else {
      enabled_ = enabled;
    }
  } else if (MemberNameEquals(name, u"ToolTipText")) {
    tool_tip_text_ = value.ToText();
  } else if (MemberNameEquals(name, u"TabIndex")) {
    RequireOffered(offers_tab_index_);
    tab_index_ = static_cast<int16_t>(NonNegative(value.ToInt16()));
  } else if (MemberNameEquals(name, u"Default")) {
    RequireOffered(offers_default_and_cancel_);
    default_ = value.ToBool();
  } else if (MemberNameEquals(name, u"Cancel")) {
    RequireOffered(offers_default_and_cancel_);
    cancel_ = value.ToBool();
  } else if (MemberNameEquals(name, u"TabStop")) {
    RequireOffered(offers_tab_stop_);
    tab_stop_ = value.ToBool();
  } else {
    return DispatchObject::SetProperty(name, value, index);
  }
  property_written_.Emit(name);
}

}  // namespace zk
