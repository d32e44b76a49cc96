#include "apps/gallery.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTextStream>
#include <cstdio>

#include "apps/gallery_sections.h"
#include "controls/display/label.h"
#include "foundation/text_encoding.h"
#include "hosting/qt_form.h"
#include "platform/qt/qt_application.h"
#include "platform/qt/qt_text.h"

namespace zk {
namespace {

// Places a label at (left, top) twips with a size and a caption, and returns it.
ZKLabel& PlaceLabel(Form& form, std::u16string_view name, double left, double top, double width,
                    double height, std::u16string_view caption) {
  auto& label = static_cast<ZKLabel&>(form.AddControl(u"ZKLabel", name));
  DispatchObject& extender = *form.FindExtender(name);
  extender.SetProperty(u"Left", Variant(left));
  extender.SetProperty(u"Top", Variant(top));
  extender.SetProperty(u"Width", Variant(width));
  extender.SetProperty(u"Height", Variant(height));
  label.SetCaption(std::u16string(caption));
  return label;
}

void BuildLabels(Form& form) {
  ZKLabel& title = PlaceLabel(form, u"Title", 240, 150, 6000, 450, u"ZK Base GUI Controls 2.01");
  title.Font()->SetSize(14);
  title.Font()->SetBold(true);
  title.SetAutoSize(true);

  const double column = 2400;
  const double top = 900;
  const std::u16string_view aligned[] = {u"Left aligned", u"Centred", u"Right aligned"};
  for (int i = 0; i < 3; ++i) {
    ZKLabel& label = PlaceLabel(form,
                                i == 0   ? u"AlignLeft"
                                : i == 1 ? u"AlignCenter"
                                         : u"AlignRight",
                                240 + i * (column + 150), top, column, 600, aligned[i]);
    label.SetAlignment(static_cast<zktTextAlignment>(i == 0 ? 0 : i == 1 ? 2 : 1));
    label.SetBorderStyle(zktBSSolid);
    label.SetBorderMargin(5);  // the margin counts from the outer edge, border included
    label.SetBackColor(0x80000005);
  }
  const std::u16string_view vertical[] = {u"Top", u"Bottom", u"Middle"};
  for (int i = 0; i < 3; ++i) {
    ZKLabel& label = PlaceLabel(form,
                                i == 0   ? u"VTop"
                                : i == 1 ? u"VBottom"
                                         : u"VCenter",
                                240 + i * (column + 150), top + 750, column, 900, vertical[i]);
    label.SetVerticalAlignment(static_cast<zktTextVerticalAlignment>(i));
    label.SetAlignment(zktTextAlignCenter);
    label.SetBorderStyle(zktBSSolid);
    label.SetAppearance(zktApFlat);
    label.SetBackColor(0xF0E0D0);
  }
  ZKLabel& wrap = PlaceLabel(form, u"WordWrap", 240, top + 1800, column, 1200,
                             u"Word wrap keeps the width and stacks the words of a long caption "
                             u"on as many lines as it needs.");
  wrap.SetWordWrap(true);
  wrap.SetBorderStyle(zktBSSolid);
  wrap.SetVerticalAlignment(zktTextVAlignTop);
  wrap.SetBorderMargin(6);

  ZKLabel& autosize = PlaceLabel(form, u"AutoSized", 240 + column + 150, top + 1800, 600, 300,
                                 u"Automatic size fits the text");
  autosize.SetAutoSize(true);
  autosize.SetBackColor(0xC0FFFF);
  autosize.SetBorderStyle(zktBSSolid);
  autosize.SetAppearance(zktApFlat);

  ZKLabel& colours = PlaceLabel(form, u"Colours", 240 + column + 150, top + 2250, column, 450,
                                u"Colours && &mnemonic");
  colours.SetBackColor(0x703010);
  colours.SetForeColor(0xFFFFFF);
  colours.SetAlignment(zktTextAlignCenter);
  colours.Font()->SetItalic(true);

  ZKLabel& disabled = PlaceLabel(form, u"Disabled", 240 + 2 * (column + 150), top + 1800, column,
                                 450, u"Disabled label");
  disabled.SetEnabled(false);
  disabled.SetBorderStyle(zktBSSolid);
  disabled.SetAlignment(zktTextAlignCenter);

  ZKLabel& large =
      PlaceLabel(form, u"Large", 240 + 2 * (column + 150), top + 2400, column, 600, u"Bold, right");
  large.Font()->SetSize(12);
  large.Font()->SetBold(true);
  large.SetAlignment(zktTextAlignRight);
  large.SetBorderStyle(zktBSSolid);
  large.SetBorderMargin(8);
}

QString DefaultArchiveFile() {
  return QDir::home().filePath(QStringLiteral(".zkcontrols-gallery.txt"));
}

// One line a control: its name, a tab and its archive string.
bool SaveArchives(Form& form, const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) return false;
  QTextStream out(&file);
  for (ZKControl* control : form.Controls()) {
    out << ToQString(control->Name()) << '\t' << ToQString(control->GetArchiveStr()) << '\n';
  }
  return true;
}

int RestoreArchives(Form& form, const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return -1;
  int restored = 0;
  QTextStream in(&file);
  while (!in.atEnd()) {
    const QString line = in.readLine();
    const qsizetype tab = line.indexOf('\t');
    if (tab <= 0) continue;
    ZKControl* control = form.FindControl(FromQString(line.left(tab)));
    if (control != nullptr && control->ParseArchiveStr(FromQString(line.mid(tab + 1)))) ++restored;
  }
  return restored;
}

}  // namespace

int RunGallery(const GalleryOptions& options) {
  const bool offscreen = options.offscreen || !options.screenshot.empty() || !QtDisplayAvailable();
  QtPlatform platform(QtOptions{offscreen, std::nullopt});
  PlatformScope scope(platform);
  QtForm form(platform);
  QWidget* window = form.Widget();
  window->setWindowTitle(QStringLiteral("ZKBaseGUIControls gallery"));
  window->resize(900, 1130);
  BuildLabels(form);
  BuildButtonGallery(form, 240, 4350, 7800, 2700);
  BuildLampGallery(form, 8250, 900, 5000, 3300);
  BuildTextGallery(form, 8250, 4350, 5000, 2700);
  const std::unique_ptr<GalleryTicker> progress =
      BuildProgressGallery(form, 240, 7350, 13000, 3200);
  const ScopedConnection frame_toggle = BuildFrameGallery(form, 240, 10650, 13000, 2700);
  BuildSliderGallery(form, 240, 13500, 13000, 2700);

  const QString archive = options.archive_file.empty()
                              ? DefaultArchiveFile()
                              : QString::fromStdString(options.archive_file);
  auto* status =
      new QLabel(QStringLiteral("Save and Restore: every control's archive string"), window);
  auto* save = new QPushButton(QStringLiteral("Save"), window);
  auto* restore = new QPushButton(QStringLiteral("Restore"), window);
  status->setGeometry(16, 1092, 560, 24);
  save->setGeometry(726, 1090, 75, 26);
  restore->setGeometry(808, 1090, 75, 26);
  QObject::connect(save, &QPushButton::clicked, [&form, archive, status] {
    status->setText(SaveArchives(form, archive) ? QStringLiteral("Saved to ") + archive
                                                : QStringLiteral("Cannot write ") + archive);
  });
  QObject::connect(restore, &QPushButton::clicked, [&form, archive, status] {
    const int restored = RestoreArchives(form, archive);
    status->setText(restored < 0 ? QStringLiteral("Nothing saved yet in ") + archive
                                 : QStringLiteral("Restored %1 controls").arg(restored));
  });

  if (offscreen) {
    const std::string path = options.screenshot.empty() ? "gallery.png" : options.screenshot;
    window->show();
    QApplication::processEvents();
    if (!window->grab().save(QString::fromStdString(path))) {
      std::fprintf(stderr, "zkcontrols: cannot write %s\n", path.c_str());
      return 1;
    }
    std::printf("%s%s\n", QtDisplayAvailable() ? "" : "No display: rendered offscreen to ",
                path.c_str());
    return 0;
  }
  window->show();
  return QApplication::exec();
}

}  // namespace zk
