#pragma once

#include <QWidget>
#include <string_view>

#include "platform/common/element_state.h"
#include "platform/common/mouse_dispatcher.h"
#include "platform/common/picture_box_state.h"
#include "platform/elements.h"

namespace zk {

class QtSurface;

// A picture box of the Qt platform: a child widget of the control's widget that paints its back
// colour and border and makes its own clicks.
class QtPictureBox final : public PictureBoxState<ElementState<IPictureBoxElement>> {
 public:
  explicit QtPictureBox(QtSurface& surface);
  ~QtPictureBox() override;

  void Refresh() override;
  void BringToFront() override;
  void SetToolTipText(std::u16string_view text) override;

  // The box's widget (null once Qt destroyed it with the control's widget).
  QWidget* Widget() const;

 protected:
  void Changed() override;

 private:
  class Box;
  friend class Box;

  QtSurface& surface_;
  // Cleared by the widget's destructor.
  Box* widget_ = nullptr;
  // The box's own events, raised as a surface raises its own.
  MouseDispatcher own_clicks_;
};

}  // namespace zk
