#include "controls/buttons/image_button.h"

#include <gtest/gtest.h>

#include "button_events.h"
#include "controls/form_fixture.h"
#include "foundation/zk_error.h"
#include "platform/common/memory_property_bag.h"

namespace zk {
namespace {

using Lines = std::vector<std::u16string>;

// 1215 x 495 twips with margins of 6 pixels (90 twips); the caption "Button" is 540 x 195
// twips and a 20-pixel picture 300 twips square.
class ImageButtonTest : public FormTest {
 protected:
  ZKImgButton& button_ = Add<ZKImgButton>(u"ZKImgButton", u"I");
  PictureRef small_ = std::make_shared<Picture>(7, 20, 20);
  PictureRef tall_ = std::make_shared<Picture>(8, 20, 32);
  PictureRef unloaded_ = std::make_shared<Picture>(0, 20, 20);

  std::pair<double, double> PicturePlace() const {
    return {button_.PictureElement().Left(), button_.PictureElement().Top()};
  }
  std::pair<double, double> CaptionPlace() const {
    return {button_.CaptionElement().Left(), button_.CaptionElement().Top()};
  }
};

TEST_F(ImageButtonTest, ThePictureInViewFollowsTheStateAndFallsBackToTheUnselectedOne) {
  struct Row {
    PictureRef selected_picture;
    zktToggleValue value;
    bool main_shown;
    bool selected_shown;
  };
  const Row rows[] = {
      {tall_, zktToggleUnselected, true, false},   {tall_, zktToggleSelected, false, true},
      {nullptr, zktToggleSelected, false, true},  // no selected picture: nothing switches
      {nullptr, zktToggleUnselected, true, false}, {nullptr, zktToggleSelected, true, false},
      {unloaded_, zktToggleSelected, true, false},  // a picture without a handle is none
  };
  button_.SetPicture(small_);
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << "selected picture " << (row.selected_picture != nullptr)
                                    << " value " << row.value);
    button_.SetPictureSelected(row.selected_picture);
    button_.SetValue(row.value);
    EXPECT_EQ(button_.PictureElement().Visible(), row.main_shown);
    EXPECT_EQ(button_.SelectedPictureElement().Visible(), row.selected_shown);
  }
}

TEST_F(ImageButtonTest, PicturesAndCaptionArePlacedByAlignment) {
  struct Row {
    zktButTextAlignment alignment;
    std::u16string caption;
    std::pair<double, double> picture;
    std::pair<double, double> caption_place;
  };
  const Row rows[] = {
      {zktButTextAlignLeft, u"Button", {825, 97.5}, {90, 150}},
      {zktButTextAlignRight, u"Button", {90, 97.5}, {585, 150}},
      {zktButTextAlignCenter, u"Button", {457.5, 52.5}, {337.5, 352.5}},
      {zktButTextAlignCenterBottom, u"Button", {457.5, 90}, {337.5, 210}},
      {zktButTextAlignCenterTop, u"Button", {457.5, 105}, {337.5, 90}},
      // No caption: the picture alone is centred and the empty label keeps its last place.
      {zktButTextAlignCenter, u"", {457.5, 97.5}, {337.5, 90}},
  };
  button_.SetPicture(small_);
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << "alignment " << row.alignment);
    button_.SetCaption(row.caption);
    button_.SetAlignment(row.alignment);
    EXPECT_EQ(PicturePlace(), row.picture);
    EXPECT_EQ(CaptionPlace(), row.caption_place);
  }
  // Centred, the caption starts at the lower edge of the picture; the taller one counts.
  button_.SetCaption(u"Button");
  button_.SetPictureSelected(tall_);
  const IImageElement& selected = button_.SelectedPictureElement();
  EXPECT_EQ(selected.Top() + selected.Height(), button_.CaptionElement().Top());
  EXPECT_EQ(button_.CaptionElement().Top(), (495 + 480 - 90) / 2.0);
  // Without pictures the centre is that of the colour button.
  button_.SetPicture(nullptr);
  button_.SetPictureSelected(nullptr);
  EXPECT_EQ(CaptionPlace(), std::make_pair(337.5, 150.0));
}

TEST_F(ImageButtonTest, PressOnThePictureIsThePressOfTheButton) {
  button_.SetPicture(small_);
  button_.SetAlignment(zktButTextAlignRight);  // the picture at (90, 97.5)
  ButtonEventLog log(button_);
  form_.DeliverMouse(u"I", MouseAction::kDown, 1, 0, 100, 100);
  EXPECT_EQ(button_.Value(), zktToggleSelected);
  form_.DeliverMouse(u"I", MouseAction::kUp, 1, 0, 100, 100);
  form_.DeliverMouse(u"I", MouseAction::kDoubleDown, 1, 0, 100, 100);
  EXPECT_EQ(log.Take(), (Lines{u"MouseDown 1 0 100 100 [-1]", u"MouseUp 1 0 100 100 [0]",
                               u"Click [0]", u"DblClick [0]"}));
  form_.DeliverMouse(u"I", MouseAction::kUp, 1, 0, 100, 100);
  button_.SetEnabled(false);
  EXPECT_FALSE(button_.PictureElement().Enabled());
  EXPECT_FALSE(button_.SelectedPictureElement().Enabled());
}

TEST_F(ImageButtonTest, ArchiveStringsCrossBetweenTheKindsAndCloneCopiesThePictures) {
  button_.SetCaption(u"Open");
  button_.SetShape(shape_code::kOval);
  button_.SetPicture(small_);
  button_.SetPictureSelected(tall_);
  auto& colour = Add<ZKColorButton>(u"ZKColorButton", u"C");
  ASSERT_TRUE(colour.ParseArchiveStr(button_.GetArchiveStr()));
  EXPECT_EQ(colour.Caption(), u"Open");
  EXPECT_EQ(colour.Shape(), shape_code::kOval);
  colour.SetAlignment(zktButTextAlignCenterTop);
  auto& back = Add<ZKImgButton>(u"ZKImgButton", u"Back");
  ASSERT_TRUE(back.ParseArchiveStr(colour.GetArchiveStr()));
  EXPECT_EQ(back.Alignment(), zktButTextAlignCenterTop);
  EXPECT_EQ(back.Picture(), nullptr);  // pictures never travel in the string

  back.Clone(form_.ControlRef(u"I"));
  EXPECT_EQ(back.Picture(), small_);
  EXPECT_EQ(back.PictureSelected(), tall_);
  EXPECT_EQ(back.Alignment(), zktButTextAlignCenter);
  // A colour button has no pictures to give: those steps are skipped, the rest is copied.
  back.Clone(form_.ControlRef(u"C"));
  EXPECT_EQ(back.Alignment(), zktButTextAlignCenterTop);
  EXPECT_EQ(back.Picture(), small_);
  EXPECT_NO_THROW(back.Clone(nullptr));
}

TEST_F(ImageButtonTest, PicturesByNameArePicturesOrNothing) {
  button_.SetProperty(u"Picture", Variant(ObjectRef(small_)));
  EXPECT_EQ(button_.GetProperty(u"Picture"), Variant(ObjectRef(small_)));
  EXPECT_THROW(button_.SetProperty(u"Picture", Variant(ObjectRef(button_.Font()))), ZKError);
  button_.SetProperty(u"Picture", Variant(ObjectRef()));
  EXPECT_EQ(button_.Picture(), nullptr);
}

TEST_F(ImageButtonTest, PropertyBagKeepsThePicturesRightAfterValue) {
  button_.SetValue(zktToggleSelected);
  button_.SetPicture(small_);
  button_.SetPictureSelected(tall_);
  button_.SetMaskColor(0xFF);
  MemoryPropertyBag bag;
  button_.WriteProperties(bag);
  Lines keys;
  for (const auto& [key, value] : bag.Entries())
    keys.push_back(key);
  EXPECT_EQ(keys, (Lines{u"Caption", u"Value", u"Picture", u"PictureSelected", u"MaskColor",
                         u"BorderColor"}));
  auto& copy = Add<ZKImgButton>(u"ZKImgButton", u"Copy");
  copy.ReadProperties(bag);
  EXPECT_EQ(copy.Picture(), small_);
  EXPECT_EQ(copy.PictureSelected(), tall_);
  EXPECT_TRUE(copy.SelectedPictureElement().Visible());
  EXPECT_EQ(copy.PictureElement().Top(), (495 - 300 - 90) / 2.0);
}

TEST_F(ImageButtonTest, AFormFileKeepsThePicturesAndTheirPixels) {
  std::vector<uint32_t> pixels(20 * 20, 0xFF00FF00);
  pixels[21] = 0x80123456;
  button_.SetPicture(platform_.Pictures().MakePicture(20, 20, pixels));
  button_.SetPictureSelected(tall_);  // a picture of a platform that keeps no pixels
  form_.LoadText(form_.SaveText());
  auto* loaded = dynamic_cast<ZKImgButton*>(form_.FindControl(u"I"));
  ASSERT_NE(loaded, nullptr);
  ASSERT_TRUE(loaded->Picture());
  EXPECT_EQ(loaded->Picture()->Pixels(), pixels);
  ASSERT_TRUE(loaded->PictureSelected());
  EXPECT_EQ(loaded->PictureSelected()->HeightPixels(), 32);
  EXPECT_NE(loaded->PictureSelected()->Handle(), 0);  // a picture, placed like the first one
  EXPECT_EQ(loaded->PictureElement().Top(), (495 - 300 - 90) / 2.0);
}

}  // namespace
}  // namespace zk
