#include <cstdint>
#include <string>
#include <vector>

#include "apps/gallery_place.h"
#include "apps/gallery_sections.h"
#include "controls/display/label.h"
#include "controls/display/progress_bar.h"
#include "hosting/form.h"
#include "platform/platform.h"

namespace zk {
namespace {

constexpr double kBarHeight = 375;
constexpr double kRowStep = 480;
constexpr double kVerticalWidth = 600;
constexpr double kVerticalHeight = 2300;

ZKProgessBar& PlaceBar(Form& form, std::u16string_view name, double left, double top, double width,
                       double height, zktPBDirection direction, int32_t progress, bool percentage,
                       OLE_COLOR bar_color) {
  auto& bar =
      static_cast<ZKProgessBar&>(Place(form, u"ZKProgessBar", name, left, top, width, height));
  bar.SetBorderStyle(zktBSSolid);
  bar.SetDirection(direction);
  bar.SetBarColor(bar_color);
  bar.SetPercentage(percentage);
  bar.SetProgress(progress);
  return bar;
}

ZKLabel& PlaceNote(Form& form, std::u16string_view name, double left, double top, double width,
                   std::u16string_view caption) {
  auto& note = static_cast<ZKLabel&>(Place(form, u"ZKLabel", name, left, top, width, kBarHeight));
  note.SetCaption(std::u16string(caption));
  note.SetBorderMargin(0);
  return note;
}

// Light diagonal stripes, a picture to show behind a bar.
PictureRef StripedPicture(int32_t width, int32_t height) {
  std::vector<uint32_t> pixels(static_cast<size_t>(width) * static_cast<size_t>(height));
  for (int32_t y = 0; y < height; ++y) {
    for (int32_t x = 0; x < width; ++x) {
      const bool stripe = (x + y) / 6 % 2 == 0;
      pixels[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)] =
          stripe ? 0xFFF4E8C8u : 0xFFFFFFFFu;
    }
  }
  return CurrentPlatform().Pictures().MakePicture(width, height, std::move(pixels));
}

}  // namespace

std::unique_ptr<GalleryTicker> BuildProgressGallery(Form& form, double left, double top,
                                                    double width, double /*height*/) {
  auto& title =
      static_cast<ZKLabel&>(Place(form, u"ZKLabel", u"ProgressTitle", left, top, width, 300));
  title.SetCaption(u"Progress bars: four directions, five caption anchors, values and percentages");
  title.SetVerticalAlignment(zktTextVAlignTop);
  title.SetBorderMargin(0);

  // The four directions: two bars along the width, two standing up.
  const double rows = top + 400;
  PlaceBar(form, u"ProgressLeftToRight", left, rows, 2700, kBarHeight, zktPBLeftToRight, 65, false,
           0xC07020);
  PlaceBar(form, u"ProgressRightToLeft", left, rows + kRowStep, 2700, kBarHeight, zktPBRightToLeft,
           40, true, 0x3080E0);
  PlaceBar(form, u"ProgressBottomToTop", left + 2900, rows, kVerticalWidth, kVerticalHeight,
           zktPBBottomToTop, 70, true, 0x40A040);
  PlaceBar(form, u"ProgressTopToBottom", left + 3650, rows, kVerticalWidth, kVerticalHeight,
           zktPBTopToBottom, 30, false, 0x9050A0);

  // A caption of the host's own, kept while ShowProgress is off, over a background picture.
  ZKProgessBar& saving = PlaceBar(form, u"ProgressSaving", left, rows + 2 * kRowStep, 2700,
                                  kBarHeight, zktPBLeftToRight, 45, false, 0x60C0F0);
  saving.SetPicture(StripedPicture(180, 25));
  saving.SetShowProgress(false);
  saving.SetCaption(u"Saving...");

  // One that a timer advances while the window is live.
  ZKProgessBar& live = PlaceBar(form, u"ProgressLive", left, rows + 3 * kRowStep, 2700, kBarHeight,
                                zktPBLeftToRight, 20, true, 0xFF0000);
  live.SetCaptionAnchor(zktPAnchorAboveLevel);
  PlaceNote(form, u"ProgressLiveNote", left, rows + 4 * kRowStep - 60, 2700,
            u"A timer advances it");

  // The five anchors, each at 60 %, with its name beside it.
  const struct {
    std::u16string_view name;
    std::u16string_view note;
    zktProgressBarAnchor anchor;
  } anchors[] = {
      {u"ProgressAnchorCenter", u"Centre", zktPAnchorCenter},
      {u"ProgressAnchorMax", u"At ScaleMax", zktPAnchorScaleMax},
      {u"ProgressAnchorMin", u"At ScaleMin", zktPAnchorScaleMin},
      {u"ProgressAnchorAbove", u"Above the level", zktPAnchorAboveLevel},
      {u"ProgressAnchorBelow", u"Below the level", zktPAnchorBelowLevel},
  };
  const double anchors_left = left + 4500;
  for (int i = 0; i < 5; ++i) {
    const double row = rows + i * kRowStep;
    PlaceNote(form, std::u16string(anchors[i].name) + u"Note", anchors_left, row, 1500,
              anchors[i].note);
    ZKProgessBar& bar = PlaceBar(form, anchors[i].name, anchors_left + 1550, row, 3300, kBarHeight,
                                 zktPBLeftToRight, 60, true, 0xD0A060);
    bar.SetCaptionAnchor(anchors[i].anchor);
  }

  // The same anchors on bars that grow from the bottom up.
  const double standing_left = anchors_left + 1550 + 3300 + 250;
  for (int i = 0; i < 5; ++i) {
    ZKProgessBar& bar =
        PlaceBar(form, std::u16string(anchors[i].name) + u"Up", standing_left + i * 700, rows,
                 kVerticalWidth, kVerticalHeight, zktPBBottomToTop, 60, true, 0xD0A060);
    bar.SetCaptionAnchor(anchors[i].anchor);
  }
  PlaceNote(form, u"ProgressAnchorsUpNote", standing_left, rows + kVerticalHeight + 60, 3600,
            u"The same anchors, bottom to top");

  auto ticker = std::make_unique<GalleryTicker>();
  ticker->tick = ticker->timer.Timer().Connect([&live] {
    live.SetProgress(live.Progress() >= live.ScaleMax() ? live.ScaleMin() : live.Progress() + 1);
  });
  ticker->timer.SetInterval(80);
  ticker->timer.SetEnabled(true);
  return ticker;
}

}  // namespace zk
