#pragma once

#include <QPointer>
#include <QWidget>
#include <memory>

#include "hosting/form.h"
#include "platform/qt/qt_control_site.h"
#include "platform/qt/qt_platform.h"

namespace zk {

// A form on the Qt platform: a top-level widget that paints the ambient back colour and holds
// the controls' widgets. Input is delivered as Qt events to the widgets under the point, so it
// takes the same path as a user's; while a button is held the pressed widget keeps the mouse.
class QtForm final : public Form {
 public:
  explicit QtForm(QtPlatform& platform);
  ~QtForm() override;

  QWidget* Widget() const { return widget_.data(); }
  QtControlSite* FindSite(std::u16string_view name);
  ZKControl* FocusedControl();

  void DeliverMouse(std::u16string_view name, MouseAction action, int16_t button, int16_t shift,
                    float x, float y) override;
  bool Focus(std::u16string_view name) override;
  void TypeKeys(std::u16string_view keys) override;
  void Wheel(std::u16string_view name, int32_t delta,
             std::optional<std::pair<float, float>> at = std::nullopt) override;
  void Wait(int32_t milliseconds) override;
  void DeliverPopupMouse(IPopupWindow& popup, MouseAction action, int16_t button, int16_t shift,
                         float x, float y) override;
  void TypePopupKeys(IPopupWindow& popup, std::u16string_view keys) override;
  void Activate() override;

 protected:
  std::unique_ptr<IControlSite> CreateSite(const ControlKind& kind, std::u16string_view name,
                                           IControlSite* container) override;
  void SetTwipsPerPixel(double twips_per_pixel) override;

 private:
  class FormWidget;
  class InputGuard;
  // The placed control whose widget is `widget` or holds it (the innermost one, when controls
  // lie inside a container), or null.
  Placed* PlacedOf(const QWidget* widget);
  // Gives the focus to the control after the one that has it agreed. The focus inside the
  // control goes to `inner` when given (see QtSurface::MoveFocusHere).
  bool MoveFocusTo(Placed& placed, Qt::FocusReason reason, QtSurface* inner = nullptr,
                   bool here = false);
  // Sends the mouse action to `target` at `local` (its pixels), keeping the pressed widget.
  void SendMouse(QWidget* target, const QPointF& local, MouseAction action, int16_t button,
                 int16_t shift);

  QtPlatform& platform_;
  QPointer<QWidget> widget_;
  QPointer<QWidget> pressed_;
  std::unique_ptr<InputGuard> input_guard_;
  bool swallow_release_ = false;
  ScopedConnection ambient_connection_;
};

}  // namespace zk
