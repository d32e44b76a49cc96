#pragma once

#include "platform/elements.h"
#include "platform/headless/headless_element.h"
#include "platform/screen.h"

namespace zk {

// An image element of the headless platform. Without Stretch it takes the size of its picture
// (pixels times the screen's twips per pixel); no picture leaves the size as it is.
class HeadlessImage : public HeadlessElement<IImageElement> {
 public:
  explicit HeadlessImage(const IScreen& screen) : screen_(screen) {}

  PictureRef Picture() const override { return picture_; }
  void SetPicture(PictureRef picture) override {
    picture_ = std::move(picture);
    Fit();
  }
  bool Stretch() const override { return stretch_; }
  void SetStretch(bool stretch) override {
    stretch_ = stretch;
    Fit();
  }
  void Move(double left, double top, double width, double height) override {
    HeadlessElement::Move(left, top, width, height);
    Fit();
  }
  void Refresh() override {}

 private:
  void Fit() {
    if (stretch_ || !picture_ || picture_->Handle() == 0) return;
    HeadlessElement::Move(Left(), Top(), picture_->WidthPixels() * screen_.TwipsPerPixelX(),
                          picture_->HeightPixels() * screen_.TwipsPerPixelY());
  }

  const IScreen& screen_;
  PictureRef picture_;
  bool stretch_ = false;
};

}  // namespace zk
