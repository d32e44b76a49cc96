#pragma once

#include <QWidget>
#include <string_view>

#include "platform/common/element_state.h"
#include "platform/common/list_box_state.h"
#include "platform/elements.h"

namespace zk {

class QtSurface;

// A list box of the Qt platform: the shared list box rules shown by a QListView inside the
// control's widget. The view reads the box's rows through a list model (nothing is copied per
// row, every row is as high as the next), so that a hundred thousand rows open and scroll at
// once; the current row is the view's selection (single selection) and the top row is its
// scroll bar's value (one step a row). The view leaves its keys, mouse and wheel to the shared
// rules: the wheel that reaches its viewport or its scroll bars goes through the box's window as
// the wheel message, where window observers see it.
class QtListBox final : public ListBoxState<ElementState<IListBoxElement>> {
 public:
  explicit QtListBox(QtSurface& surface);
  ~QtListBox() override;

  void Refresh() override;
  void BringToFront() override;
  void SetToolTipText(std::u16string_view text) override;
  bool SetFocus() override;
  bool HasFocus() const override;

  // The view (null once Qt destroyed it with the control's widget).
  QWidget* Widget() const;

 protected:
  void Changed() override;
  void Show(unsigned what) override;
  void RowInserted(int32_t index) override;
  void RowRemoved(int32_t index) override;
  void RowChanged(int32_t index) override;
  void RowsCleared() override;

 private:
  class View;
  class RowModel;
  class RowPainter;

  void ShowLook();
  void ShowCurrentRow();

  QtSurface& surface_;
  // Cleared by the view's destructor: a closing form may delete it before the box.
  View* view_ = nullptr;
  RowModel* rows_ = nullptr;
  // What the view was last laid out for.
  int32_t laid_out_row_height_ = 0;
  int32_t laid_out_extent_ = 0;
};

}  // namespace zk
