#include <algorithm>
#include <string>

#include "apps/gallery_sections.h"
#include "controls/buttons/color_button.h"
#include "controls/display/frame.h"
#include "controls/display/label.h"
#include "controls/text/text_edit.h"
#include "hosting/form.h"

namespace zk {
namespace {

// Places a control on the form, or inside the container `inside` when it is given, at (left,
// top) twips of the form or of the container's inner area.
ZKControl& Place(Form& form, std::u16string_view kind, std::u16string_view name, double left,
                 double top, double width, double height, std::u16string_view inside = {}) {
  ZKControl& control =
      inside.empty() ? form.AddControl(kind, name) : form.AddControlInside(kind, name, inside);
  form.MoveControl(name, left, top, width, height);
  return control;
}

ZKFrame& PlaceFrame(Form& form, std::u16string_view name, double left, double top, double width,
                    double height, std::u16string_view caption) {
  auto& frame = static_cast<ZKFrame&>(Place(form, u"ZKFrame", name, left, top, width, height));
  frame.SetCaption(std::u16string(caption));
  return frame;
}

// A line of text inside a frame, below the inside of its border and below a caption that sits
// inside the border.
void PlaceNote(Form& form, ZKFrame& frame, std::u16string_view name, std::u16string_view text) {
  const ILabelElement& caption = frame.CaptionElement();
  const double top =
      std::max<double>(frame.TopBorderOffset(), caption.Top() + caption.Height()) + 60;
  auto& note = static_cast<ZKLabel&>(
      Place(form, u"ZKLabel", name, 150, top, 2100, 255, std::u16string(frame.Name())));
  note.SetCaption(std::u16string(text));
  note.SetBackColor(frame.BackColor());  // the frame's face, not the form's
  note.SetBorderMargin(0);
  note.SetVerticalAlignment(zktTextVAlignTop);
}

}  // namespace

ScopedConnection BuildFrameGallery(Form& form, double left, double top, double width,
                                   double /*height*/) {
  auto& title =
      static_cast<ZKLabel&>(Place(form, u"ZKLabel", u"FrameTitle", left, top, width, 300));
  title.SetCaption(
      u"Frames: the caption on the line, inside (on a face of its own), above; BorderDisables; "
      u"a rounded border; contents that a toggle disables");
  title.SetVerticalAlignment(zktTextVAlignTop);
  title.SetBorderMargin(0);

  const double row = top + 360;
  const double column = width / 5;
  const double frame_width = column - 150;
  const double frame_height = 1200;
  const std::u16string_view captions[] = {u"On the line", u"Inside the border",
                                          u"Above the border"};
  const zktTextVerticalAlignment placements[] = {zktTextVAlignCenter, zktTextVAlignBottom,
                                                 zktTextVAlignTop};
  for (int i = 0; i < 3; ++i) {
    const std::u16string name = std::u16string(u"FramePlace") + char16_t(u'0' + i);
    ZKFrame& frame =
        PlaceFrame(form, name, left + i * column, row, frame_width, frame_height, captions[i]);
    frame.SetVerticalAlignment(placements[i]);
    if (placements[i] == zktTextVAlignBottom) frame.SetBackColor(0xD8F4FF);  // a flat face
    PlaceNote(form, frame, name + u"Note", u"A label inside");
  }

  ZKFrame& disabled = PlaceFrame(form, u"FrameDisabled", left + 3 * column, row, frame_width,
                                 frame_height, u"Disabled");
  disabled.SetBorderColor(0xC06000);
  disabled.SetBorderWidth(2);
  disabled.SetBorderDisables(true);
  PlaceNote(form, disabled, u"FrameDisabledNote", u"Disabled with it");
  disabled.SetEnabled(false);

  ZKFrame& rounded = PlaceFrame(form, u"FrameRounded", left + 4 * column, row, frame_width,
                                frame_height, u"Rounded, centred");
  rounded.SetBorderShape(shape_code::kRoundedRectangle);
  rounded.SetBorderWidth(3);
  rounded.SetBorderColor(0x307030);
  rounded.SetAlignment(zktTextAlignCenter);
  rounded.Font()->SetBold(true);
  PlaceNote(form, rounded, u"FrameRoundedNote", u"Three pixels wide");

  // A frame holding a few controls, and a toggle outside it that enables and disables them.
  const double second_row = row + frame_height + 180;
  ZKFrame& settings = PlaceFrame(form, u"FrameSettings", left, second_row, 2 * column + frame_width,
                                 900, u"Settings");
  settings.SetBorderDisables(true);
  const double inside = settings.TopBorderOffset() + 90;
  auto& prompt = static_cast<ZKLabel&>(
      Place(form, u"ZKLabel", u"FrameSettingsPrompt", 150, inside, 900, 315, u"FrameSettings"));
  prompt.SetCaption(u"Name:");
  prompt.SetBorderMargin(0);
  auto& name = static_cast<ZKTextEdit&>(
      Place(form, u"ZKTextEdit", u"FrameSettingsName", 1050, inside, 2400, 315, u"FrameSettings"));
  name.SetText(u"Frame");
  auto& apply = static_cast<ZKColorButton&>(Place(form, u"ZKColorButton", u"FrameSettingsApply",
                                                  3600, inside - 45, 1200, 405, u"FrameSettings"));
  apply.SetCaption(u"Apply");

  auto& toggle =
      static_cast<ZKColorButton&>(Place(form, u"ZKColorButton", u"FrameToggle", left + 3 * column,
                                        second_row + 300, frame_width, 495));
  toggle.SetBehavior(zktToggle);
  toggle.SetCaption(u"Disable the settings");
  toggle.SetCaptionSelected(u"Enable the settings");
  toggle.SetSelectedColor(0x8080C0);
  return toggle.Click.Connect(
      [&settings, &toggle] { settings.SetEnabled(toggle.Value() == zktToggleUnselected); });
}

}  // namespace zk
