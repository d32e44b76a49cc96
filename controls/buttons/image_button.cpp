#include "controls/buttons/image_button.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "foundation/zk_error.h"

namespace zk {
namespace {

bool Loaded(const PictureRef& picture) {
  return picture && picture->Handle() != 0;
}

// A picture-typed value: Nothing is no picture, another kind of object a type mismatch.
PictureRef PictureFrom(const Variant& value) {
  const ObjectRef object = value.ToObject();
  PictureRef picture = std::dynamic_pointer_cast<zk::Picture>(object);
  if (object && !picture) throw ZKError::TypeMismatch();
  return picture;
}

Variant PictureValue(const PictureRef& picture) {
  return Variant(ObjectRef(picture));
}

template <void (ZKImgButton::*Set)(PictureRef), PictureRef (ZKImgButton::*Get)() const>
MemberInfo PictureMember(std::u16string_view name) {
  MemberInfo info;
  info.name = name;
  info.get = [](ZKControl& control, std::span<const Variant>) {
    return PictureValue((static_cast<ZKImgButton&>(control).*Get)());
  };
  info.set = [](ZKControl& control, const Variant& value, std::span<const Variant>) {
    (static_cast<ZKImgButton&>(control).*Set)(PictureFrom(value));
  };
  return info;
}

}  // namespace

ZKImgButton::ZKImgButton(IControlSite& site)
    : ZKColorButton(site),
      pic_main_(Surface().CreateImage()),
      pic_selected_(Surface().CreateImage()) {
  pic_selected_->SetVisible(false);
  HandleMouseOf(*pic_main_);
  HandleMouseOf(*pic_selected_);
  Layout();
}

ZKImgButton::~ZKImgButton() = default;

const PropertyTable& ZKImgButton::Properties() const {
  using Row = property_rows::Row<ZKImgButton, Variant>;
  using property_rows::Member;
  // Persisted right after Value; the archive does not carry pictures.
  static const PropertyTable table(
      ButtonRows({
          Row(Member(PictureMember<&ZKImgButton::SetPicture, &ZKImgButton::Picture>(u"Picture")))
              .Bag(PictureValue(nullptr), 101)
              .Store([](ZKImgButton& c, const Variant& v) {
                c.pic_main_->SetPicture(PictureFrom(v));
              }),
          Row(Member(PictureMember<&ZKImgButton::SetPictureSelected, &ZKImgButton::PictureSelected>(
                  u"PictureSelected")))
              .Bag(PictureValue(nullptr), 102)
              .Store([](ZKImgButton& c, const Variant& v) {
                c.pic_selected_->SetPicture(PictureFrom(v));
              }),
      }),
      ButtonEvents());
  return table;
}

void ZKImgButton::SetPicture(PictureRef New_Picture) {
  pic_main_->SetPicture(std::move(New_Picture));
  Changed(u"Picture", Effect::kLayout);
}

void ZKImgButton::SetPictureSelected(PictureRef New_PictureSelected) {
  pic_selected_->SetPicture(std::move(New_PictureSelected));
  Changed(u"PictureSelected", Effect::kLayout);
}

void ZKImgButton::Clone(const ObjectRef& p_obj) {
  try {
    ZKColorButton::Clone(p_obj);
  } catch (...) {
  }
  auto copy = [&](std::u16string_view name, void (ZKImgButton::*set)(PictureRef)) {
    try {
      if (!p_obj) return;
      (this->*set)(PictureFrom(p_obj->GetProperty(name)));
    } catch (...) {
    }
  };
  copy(u"Picture", &ZKImgButton::SetPicture);
  copy(u"PictureSelected", &ZKImgButton::SetPictureSelected);
  try {
    Redraw();
  } catch (...) {
  }
}

void ZKImgButton::BeforeRedraw() {
  if (!Selected()) {
    pic_main_->SetVisible(true);
    pic_selected_->SetVisible(false);
  } else if (Loaded(pic_selected_->Picture())) {
    pic_main_->SetVisible(false);
    pic_selected_->SetVisible(true);
  }
  // Selected without a picture of its own: the unselected picture stays in view.
}

std::pair<double, double> ZKImgButton::CaptionPlace(double width, double height, double label_width,
                                                    double label_height) const {
  const bool main_loaded = Loaded(pic_main_->Picture());
  const bool selected_loaded = Loaded(pic_selected_->Picture());
  if (Alignment() != zktButTextAlignCenter || (!main_loaded && !selected_loaded)) {
    return ZKColorButton::CaptionPlace(width, height, label_width, label_height);
  }
  // Centred under the picture: the caption starts where a centred picture ends.
  double picture_height = 0;
  if (main_loaded) picture_height = pic_main_->Height();
  if (selected_loaded) picture_height = std::max(picture_height, pic_selected_->Height());
  return {(width - label_width) / 2, (height + picture_height - MarginY()) / 2};
}

void ZKImgButton::AfterResize(double width, double height) {
  const double mx = MarginX();
  const double my = MarginY();
  const bool captioned = !Caption().empty() || !CaptionSelected().empty();
  for (IImageElement* picture : {pic_main_.get(), pic_selected_.get()}) {
    const double pw = picture->Width();
    const double ph = picture->Height();
    double left = (width - pw) / 2;
    double top = (height - ph) / 2;
    switch (Alignment()) {
      case zktButTextAlignLeft:  // the caption at the left, the picture at the right
        left = width - mx - pw;
        break;
      case zktButTextAlignRight:
        left = mx;
        break;
      case zktButTextAlignCenter:
        if (captioned) top = (height - ph - my) / 2;
        break;
      case zktButTextAlignCenterBottom:  // the caption below, the picture at the top
        top = my;
        break;
      case zktButTextAlignCenterTop:
        top = height - ph - my;
        break;
    }
    picture->Move(left, top, pw, ph);
  }
}

void ZKImgButton::EnableInputElements(bool enabled) {
  ZKColorButton::EnableInputElements(enabled);
  pic_main_->SetEnabled(enabled);
  pic_selected_->SetEnabled(enabled);
}

}  // namespace zk
