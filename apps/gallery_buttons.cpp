#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <string>

#include "apps/gallery_place.h"
#include "apps/gallery_sections.h"
#include "controls/buttons/color_button.h"
#include "controls/buttons/image_button.h"
#include "controls/display/label.h"
#include "hosting/form.h"
#include "platform/platform.h"
#include "platform/qt/qt_text.h"

namespace zk {
namespace {

constexpr double kPixel = 15;  // twips at the gallery's 96 dpi

// The pictures ship in assets/buttons: next to an installed program, or in the source tree
// that the program was built from.
QString PicturePath(const char* file) {
  const QString installed = QCoreApplication::applicationDirPath() + "/assets/buttons/" + file;
  if (QFileInfo::exists(installed)) return installed;
  return QStringLiteral(ZK_ASSETS_DIR "/buttons/") + file;
}

// A gallery without its picture files still shows the buttons, only without pictures.
PictureRef LoadPicture(const char* file) {
  try {
    return CurrentPlatform().Pictures().LoadPicture(FromQString(PicturePath(file)));
  } catch (...) {
    return nullptr;
  }
}

void BuildColorButtons(Form& form, double left, double top, double column) {
  auto& push = static_cast<ZKColorButton&>(
      Place(form, u"ZKColorButton", u"BtnPush", left, top, column - 6 * kPixel, 34 * kPixel));
  push.SetCaption(u"Push");

  auto& toggle = static_cast<ZKColorButton&>(Place(
      form, u"ZKColorButton", u"BtnToggle", left + column, top, column - 6 * kPixel, 34 * kPixel));
  toggle.SetBehavior(zktToggle);
  toggle.SetCaption(u"Toggle: off");
  toggle.SetCaptionSelected(u"Toggle: on");
  toggle.SetSelectedColor(0x40A040);
  toggle.SetSelectedForeColor(0xFFFFFF);
  toggle.SetValue(zktToggleSelected);

  auto& disabled =
      static_cast<ZKColorButton&>(Place(form, u"ZKColorButton", u"BtnDisabled", left + 2 * column,
                                        top, column - 6 * kPixel, 34 * kPixel));
  disabled.SetCaption(u"Disabled");
  disabled.SetEnabled(false);

  auto& disabled_toggle =
      static_cast<ZKColorButton&>(Place(form, u"ZKColorButton", u"BtnDisabledToggle",
                                        left + 3 * column, top, column - 6 * kPixel, 34 * kPixel));
  disabled_toggle.SetBehavior(zktToggle);
  disabled_toggle.SetCaption(u"Off, disabled");
  disabled_toggle.SetCaptionSelected(u"On, disabled");
  disabled_toggle.SetSelectedColor(0xC08040);
  disabled_toggle.SetValue(zktToggleSelected);
  disabled_toggle.SetEnabled(false);

  auto& focused =
      static_cast<ZKColorButton&>(Place(form, u"ZKColorButton", u"BtnFocused", left + 4 * column,
                                        top, column - 6 * kPixel, 34 * kPixel));
  focused.SetCaption(u"Focused");
  focused.SetBackColor(0xFFF0E0);
  focused.SetBorderColor(0xC06000);
  focused.SetShowFocus(2);

  auto& left_aligned =
      static_cast<ZKColorButton&>(Place(form, u"ZKColorButton", u"BtnLeft", left + 5 * column, top,
                                        column - 6 * kPixel, 34 * kPixel));
  left_aligned.SetCaption(u"Left");
  left_aligned.SetAlignment(zktButTextAlignLeft);
  left_aligned.SetBorderStyle(zktBSNone);
  left_aligned.SetBackColor(0xE0E0FF);
}

void BuildShapes(Form& form, double left, double top, double column) {
  const std::u16string_view names[] = {u"Rectangle", u"Square",  u"Oval",
                                       u"Circle",    u"Rounded", u"R. square"};
  const OLE_COLOR faces[] = {0xF0D0A0, 0xA0E0F0, 0xA0F0A0, 0x80C0FF, 0xF0A0E0, 0xD0D0D0};
  for (int16_t shape = 0; shape <= 5; ++shape) {
    const std::u16string name = std::u16string(u"BtnShape") + char16_t(u'0' + shape);
    auto& button =
        static_cast<ZKColorButton&>(Place(form, u"ZKColorButton", name, left + shape * column, top,
                                          column - 6 * kPixel, 46 * kPixel));
    button.SetShape(shape);
    button.SetCaption(std::u16string(names[shape]));
    button.SetBackColor(faces[shape]);
    button.SetBorderWidth(2);
    button.SetBorderColor(0x404040);
  }
}

void BuildImageButtons(Form& form, double left, double top, double column) {
  const PictureRef check = LoadPicture("check.png");
  const PictureRef cross = LoadPicture("cross.png");
  const PictureRef play = LoadPicture("play.png");
  const PictureRef lamp_off = LoadPicture("lamp_off.png");
  const PictureRef lamp_on = LoadPicture("lamp_on.png");
  const double height = 58 * kPixel;
  auto place = [&](std::u16string_view name, int index, std::u16string_view caption,
                   zktButTextAlignment alignment, const PictureRef& picture) -> ZKImgButton& {
    auto& button = static_cast<ZKImgButton&>(
        Place(form, u"ZKImgButton", name, left + index * column, top, column - 6 * kPixel, height));
    button.SetCaption(std::u16string(caption));
    button.SetAlignment(alignment);
    button.SetPicture(picture);
    return button;
  };
  place(u"ImgOk", 0, u"OK", zktButTextAlignLeft, check);
  place(u"ImgCancel", 1, u"Cancel", zktButTextAlignRight, cross);
  ZKImgButton& lamp = place(u"ImgLamp", 2, u"Lamp", zktButTextAlignCenter, lamp_off);
  lamp.SetBehavior(zktToggle);
  lamp.SetPictureSelected(lamp_on);
  lamp.SetCaptionSelected(u"Lamp on");
  lamp.SetSelectedColor(0x505050);
  lamp.SetSelectedForeColor(0x00E0FF);
  ZKImgButton& lit = place(u"ImgLampOn", 3, u"Lamp", zktButTextAlignCenter, lamp_off);
  lit.SetBehavior(zktToggle);
  lit.SetPictureSelected(lamp_on);
  lit.SetCaptionSelected(u"Lamp on");
  lit.SetSelectedColor(0x505050);
  lit.SetSelectedForeColor(0x00E0FF);
  lit.SetValue(zktToggleSelected);
  place(u"ImgPlay", 4, u"Play", zktButTextAlignCenterBottom, play).SetShape(shape_code::kOval);
  ZKImgButton& only = place(u"ImgOnly", 5, u"", zktButTextAlignCenter, check);
  only.SetShape(shape_code::kRoundedRectangle);
  only.SetBackColor(0xE0FFE0);
}

}  // namespace

void BuildButtonGallery(Form& form, double left, double top, double width, double /*height*/) {
  auto& title =
      static_cast<ZKLabel&>(Place(form, u"ZKLabel", u"ButtonTitle", left, top, width, 300));
  title.SetCaption(
      u"Buttons: push, toggle, disabled, focused; every shape; pictures beside, above, alone");
  title.SetVerticalAlignment(zktTextVAlignTop);
  title.SetBorderMargin(0);

  const double column = width / 6;
  BuildColorButtons(form, left, top + 20 * kPixel, column);
  BuildShapes(form, left, top + 60 * kPixel, column);
  BuildImageButtons(form, left, top + 112 * kPixel, column);
  form.Focus(u"BtnFocused");
}

}  // namespace zk
