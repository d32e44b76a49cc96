#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include "controls/display/label.h"
#include "hosting/qt_form.h"

namespace zk {

// A Qt form on the offscreen platform (en-US), shown, installed as the current platform.
class QtFormTest : public testing::Test {
 protected:
  QtFormTest()
      : platform_(QtOptions{true, std::u16string(u"en-US")}), scope_(platform_), form_(platform_) {
    platform_.Recorder().keep_property_changes = true;
    form_.Widget()->show();
  }

  ZKLabel& AddLabel(std::u16string_view name, double width = 1935, double height = 375) {
    auto& label = static_cast<ZKLabel&>(form_.AddControl(u"ZKLabel", name));
    form_.FindExtender(name)->SetProperty(u"Width", Variant(width));
    form_.FindExtender(name)->SetProperty(u"Height", Variant(height));
    return label;
  }

  // What the control's widget shows now.
  QImage Render(std::u16string_view name) {
    QApplication::processEvents();
    return form_.FindSite(name)->Surface().Widget()->grab().toImage().convertToFormat(
        QImage::Format_RGB32);
  }

  QtPlatform platform_;
  PlatformScope scope_;
  QtForm form_;
};

}  // namespace zk
