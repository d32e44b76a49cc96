#pragma once

#include <memory>
#include <utility>

#include "controls/buttons/color_button.h"
#include "platform/picture.h"

namespace zk {

// The colour button with a picture beside, above or below its caption: one picture while
// unselected and, optionally, another while selected. The archive string is the colour
// button's, so each kind reads the other's.
class ZKImgButton final : public ZKColorButton {
 public:
  explicit ZKImgButton(IControlSite& site);
  ~ZKImgButton() override;

  std::u16string_view Kind() const override { return u"ZKImgButton"; }
  const PropertyTable& Properties() const override;

  PictureRef Picture() const { return pic_main_->Picture(); }
  void SetPicture(PictureRef New_Picture);
  PictureRef PictureSelected() const { return pic_selected_->Picture(); }
  void SetPictureSelected(PictureRef New_PictureSelected);

  // The archive string of `p_obj`, then its pictures; a step that fails is skipped.
  void Clone(const ObjectRef& p_obj) override;

  const IImageElement& PictureElement() const { return *pic_main_; }
  const IImageElement& SelectedPictureElement() const { return *pic_selected_; }

 protected:
  void BeforeRedraw() override;
  void AfterResize(double width, double height) override;
  void AfterAlignmentChanged() override { Layout(); }
  std::pair<double, double> CaptionPlace(double width, double height, double label_width,
                                         double label_height) const override;
  void EnableInputElements(bool enabled) override;

 private:
  std::unique_ptr<IImageElement> pic_main_;
  std::unique_ptr<IImageElement> pic_selected_;
};

}  // namespace zk
