#include "platform/qt/qt_list_box.h"

#include <QAbstractItemDelegate>
#include <QAbstractListModel>
#include <QApplication>
#include <QFocusEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_border.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_input.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_surface.h"
#include "platform/qt/qt_text.h"

namespace zk {
namespace {

// The current row is drawn in the system's selection colours.
constexpr OLE_COLOR kHighlight = 0x8000000D;
constexpr OLE_COLOR kHighlightText = 0x8000000E;
// The text starts this far right of the row's edge.
constexpr int kTextIndent = 2;

MouseAction ActionOf(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
      return MouseAction::kDown;
    case QEvent::MouseButtonDblClick:
      return MouseAction::kDoubleDown;
    case QEvent::MouseButtonRelease:
      return MouseAction::kUp;
    default:
      return MouseAction::kMove;
  }
}

bool IsMouseEvent(QEvent::Type type) {
  return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
         type == QEvent::MouseButtonRelease || type == QEvent::MouseMove;
}

}  // namespace

// The box's rows as Qt's views read them: the model keeps only how many rows the view knows
// of, so that it can tell the view of each change as it comes.
class QtListBox::RowModel final : public QAbstractListModel {
 public:
  RowModel(QtListBox& box, QObject* parent) : QAbstractListModel(parent), box_(box) {}

  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : shown_; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole || !index.isValid() || index.row() >= box_.ListCount()) return {};
    return ToQString(box_.Rows()[static_cast<size_t>(index.row())]);
  }

  void Inserted(int row) {
    beginInsertRows(QModelIndex(), row, row);
    ++shown_;
    endInsertRows();
  }
  void Removed(int row) {
    beginRemoveRows(QModelIndex(), row, row);
    --shown_;
    endRemoveRows();
  }
  void Changed(int row) { dataChanged(index(row), index(row), {Qt::DisplayRole}); }
  void Cleared() {
    beginResetModel();
    shown_ = 0;
    endResetModel();
  }

 private:
  QtListBox& box_;
  int shown_ = 0;
};

// Draws a row: the current one in the selection colours, the others in the box's colours over
// its background, which the viewport paints.
class QtListBox::RowPainter final : public QAbstractItemDelegate {
 public:
  RowPainter(QtListBox& box, QObject* parent) : QAbstractItemDelegate(parent), box_(box) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const QPalette standard = QApplication::palette();
    QColor text = box_.Enabled() ? ToQColor(box_.ForeColor(), standard)
                                 : standard.color(QPalette::Disabled, QPalette::Text);
    if (option.state & QStyle::State_Selected) {
      painter->fillRect(option.rect, ToQColor(kHighlight, standard));
      text = ToQColor(kHighlightText, standard);
    }
    painter->setFont(option.font);
    painter->setPen(text);
    painter->drawText(option.rect.adjusted(kTextIndent, 0, 0, 0),
                      Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      index.data(Qt::DisplayRole).toString());
  }
  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
    // The rows are as wide as the extent (the view, when narrower, widens them to its width).
    return QSize(box_.HorizontalExtent(), box_.RowHeight());
  }

 private:
  QtListBox& box_;
};

class QtListBox::View final : public QListView {
 public:
  View(QtListBox& box, QWidget* parent) : QListView(parent), box_(box) {
    setFrameShape(QFrame::NoFrame);
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    // The box decides which rows show; Qt scrolls only when told.
    setAutoScroll(false);
    setTabKeyNavigation(false);
    setFocusPolicy(Qt::StrongFocus);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    verticalScrollBar()->installEventFilter(this);
    horizontalScrollBar()->installEventFilter(this);
    // The user's moves of the scroll bar (arrows, page, drag) move the box's top row.
    QObject::connect(verticalScrollBar(), &QAbstractSlider::actionTriggered, this,
                     [this](int) { box_.UserScrollTo(verticalScrollBar()->sliderPosition()); });
  }
  ~View() override {
    box_.view_ = nullptr;
    box_.surface_.Platform().Windows().Destroyed(box_.hWnd());
  }

  // Puts the box's top row on top, once Qt has laid out the rows it was told of.
  void ShowTopRow() {
    executeDelayedItemsLayout();
    ShowScrollRange();
  }
  void LayOutRowsAgain() { doItemsLayout(); }

 protected:
  void updateGeometries() override {
    QListView::updateGeometries();
    ShowScrollRange();
  }
  bool event(QEvent* event) override {
    // The border belongs to the box: the mouse over it is the box's, as over its rows.
    if (IsMouseEvent(event->type())) {
      Mouse(*static_cast<QMouseEvent*>(event), QPoint(0, 0));
      return true;
    }
    if (event->type() == QEvent::Wheel) {
      Wheel(*static_cast<QWheelEvent*>(event));
      return true;
    }
    const bool handled = QListView::event(event);
    // The border goes around the viewport and the scroll bars, in the margins left for it.
    if (event->type() == QEvent::Paint && box_.BorderStyle() != 0) {
      QPainter painter(this);
      PaintBorder(painter, rect(), QApplication::palette(), box_.BorderStyle(), box_.Appearance());
    }
    return handled;
  }
  bool viewportEvent(QEvent* event) override {
    if (event->type() == QEvent::Wheel) {
      Wheel(*static_cast<QWheelEvent*>(event));
      return true;
    }
    return QListView::viewportEvent(event);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    // The scroll bars are the box's window as much as its rows: the wheel over them too is the
    // box's message.
    if (event->type() == QEvent::Wheel &&
        (watched == verticalScrollBar() || watched == horizontalScrollBar())) {
      Wheel(*static_cast<QWheelEvent*>(event));
      return true;
    }
    return QListView::eventFilter(watched, event);
  }
  void mousePressEvent(QMouseEvent* event) override { Mouse(*event, viewport()->pos()); }
  void mouseDoubleClickEvent(QMouseEvent* event) override { Mouse(*event, viewport()->pos()); }
  void mouseMoveEvent(QMouseEvent* event) override { Mouse(*event, viewport()->pos()); }
  void mouseReleaseEvent(QMouseEvent* event) override { Mouse(*event, viewport()->pos()); }
  void keyPressEvent(QKeyEvent* event) override {
    const QString text = event->text();
    box_.UserKeyDown(KeyCodeOf(event->key()), ShiftCode(event->modifiers()),
                     text.isEmpty() ? int16_t{0} : static_cast<int16_t>(text.at(0).unicode()));
  }
  void keyReleaseEvent(QKeyEvent* event) override {
    box_.UserKeyUp(KeyCodeOf(event->key()), ShiftCode(event->modifiers()));
  }
  void focusInEvent(QFocusEvent* event) override {
    // Qt's view would make its first row current on the focus; the box keeps its own.
    QFrame::focusInEvent(event);
    // The control's focus comes back to the box that had it last.
    box_.surface_.SetOwnFocusWidget(this);
    box_.UserFocus(true);
    box_.surface_.ChildFocus(true);
  }
  void focusOutEvent(QFocusEvent* event) override {
    QFrame::focusOutEvent(event);
    box_.UserFocus(false);
    box_.surface_.ChildFocus(false);
  }

 private:
  void ShowScrollRange() {
    QScrollBar* bar = verticalScrollBar();
    bar->setRange(0, box_.MaxTopIndex());
    bar->setPageStep(std::max(1, box_.VisibleRows()));
    bar->setValue(box_.TopIndex());
  }
  // A mouse event at a point of the widget at `origin` (the viewport, or the view itself).
  void Mouse(const QMouseEvent& event, QPoint origin) {
    const MouseAction action = ActionOf(event.type());
    const Qt::MouseButtons buttons =
        action == MouseAction::kMove ? event.buttons() : Qt::MouseButtons(event.button());
    const QPointF at = event.position() + QPointF(origin);
    const IScreen& screen = box_.Screen();
    box_.UserMouse(action, ButtonCode(buttons), ShiftCode(event.modifiers()),
                   static_cast<float>(at.x() * screen.TwipsPerPixelX()),
                   static_cast<float>(at.y() * screen.TwipsPerPixelY()));
  }
  void Wheel(const QWheelEvent& wheel) {
    // Whether a window observer passed the message on or kept it, Qt's own scrolling stays out:
    // the box's window procedure scrolled already.
    box_.surface_.Platform().Windows().RouteWheel(box_.hWnd(), wheel);
  }

  QtListBox& box_;
};

QtListBox::QtListBox(QtSurface& surface)
    : ListBoxState(surface.Platform().Windows(), surface.Platform().Screen(),
                   surface.Platform().FontCatalogue()),
      surface_(surface) {
  QWidget* parent = surface_.Widget();
  view_ = new View(*this, parent);
  rows_ = new RowModel(*this, view_);
  view_->setModel(rows_);
  view_->setItemDelegate(new RowPainter(*this, view_));
  AttachWindow(surface_.Platform().Windows().Register(view_, u"ListBox", 0x50000001,
                                                      QtWindowSystem::Reporting::kSelf));
  // The control's focus is the box's (the last one made), as a text box's.
  surface_.SetOwnFocusWidget(view_);
  ShowLook();
  Changed();
  if (parent != nullptr && parent->isVisible()) view_->show();
}

QtListBox::~QtListBox() {
  if (view_ != nullptr && surface_.OwnFocusWidget() == view_) surface_.SetOwnFocusWidget(nullptr);
  delete view_;
}

QWidget* QtListBox::Widget() const {
  return view_;
}

void QtListBox::Changed() {
  if (view_ == nullptr) return;
  const QPointF origin = surface_.ToPixels(Left(), Top());
  const QPointF end = surface_.ToPixels(Left() + Width(), Top() + Height());
  const auto left = static_cast<int>(std::lround(origin.x()));
  const auto top = static_cast<int>(std::lround(origin.y()));
  view_->setGeometry(left, top, static_cast<int>(std::lround(end.x())) - left,
                     static_cast<int>(std::lround(end.y())) - top);
  // A box that is hidden or disabled gives up the focus: the control's own window keeps it
  // (Qt would pass it on to whatever widget comes next).
  if ((!Visible() || !Enabled()) && surface_.OwnFocusWidget() == view_) {
    const bool had_focus = view_->hasFocus();
    surface_.SetOwnFocusWidget(nullptr);
    if (had_focus && surface_.Widget() != nullptr) surface_.Widget()->setFocus();
  }
  if (view_->isHidden() == Visible()) view_->setVisible(Visible());
  if (view_->isEnabled() != Enabled()) view_->setEnabled(Enabled());
}

void QtListBox::Show(unsigned what) {
  if (view_ == nullptr) return;
  if (what & list_box_view::kLook) ShowLook();
  if (what & list_box_view::kScrollBars) {
    view_->setVerticalScrollBarPolicy(VerticalBarShown() ? Qt::ScrollBarAlwaysOn
                                                         : Qt::ScrollBarAlwaysOff);
    view_->setHorizontalScrollBarPolicy(HorizontalBarShown() ? Qt::ScrollBarAlwaysOn
                                                             : Qt::ScrollBarAlwaysOff);
  }
  if (what & list_box_view::kCurrentRow) ShowCurrentRow();
  if (what & (list_box_view::kTopRow | list_box_view::kScrollBars | list_box_view::kLook)) {
    view_->ShowTopRow();
  }
  view_->viewport()->update();
}

void QtListBox::ShowLook() {
  QPalette colors = QApplication::palette();
  const QColor back = ToQColor(BackColor(), colors);
  colors.setColor(QPalette::Base, back);
  view_->setPalette(colors);
  view_->setFont(surface_.Platform().Fonts().ToQFont(Font()));
  const int border = BorderPixels();
  view_->setContentsMargins(border, border, border, border);
  if (RowHeight() != laid_out_row_height_ || HorizontalExtent() != laid_out_extent_) {
    laid_out_row_height_ = RowHeight();
    laid_out_extent_ = HorizontalExtent();
    view_->LayOutRowsAgain();
  }
  view_->update();
}

void QtListBox::ShowCurrentRow() {
  QItemSelectionModel* selection = view_->selectionModel();
  if (ListIndex() < 0) {
    selection->clear();
  } else {
    selection->setCurrentIndex(rows_->index(ListIndex()), QItemSelectionModel::ClearAndSelect);
  }
}

void QtListBox::RowInserted(int32_t index) {
  if (view_ != nullptr) rows_->Inserted(index);
}

void QtListBox::RowRemoved(int32_t index) {
  if (view_ != nullptr) rows_->Removed(index);
}

void QtListBox::RowChanged(int32_t index) {
  if (view_ != nullptr) rows_->Changed(index);
}

void QtListBox::RowsCleared() {
  if (view_ != nullptr) rows_->Cleared();
}

void QtListBox::Refresh() {
  if (view_ != nullptr) view_->viewport()->repaint();
}

void QtListBox::BringToFront() {
  if (view_ != nullptr) view_->raise();
}

void QtListBox::SetToolTipText(std::u16string_view text) {
  ElementState::SetToolTipText(text);
  if (view_ != nullptr) view_->setToolTip(ToQString(text));
}

bool QtListBox::SetFocus() {
  if (view_ == nullptr || !Visible() || !Enabled()) return false;
  // The control's focus is this box's from now on, unless the focus cannot come.
  QWidget* previous = surface_.OwnFocusWidget();
  surface_.SetOwnFocusWidget(view_);
  if (!surface_.MoveFocusHere(true)) {
    surface_.SetOwnFocusWidget(previous);
    return false;
  }
  return true;
}

bool QtListBox::HasFocus() const {
  return view_ != nullptr && view_->hasFocus();
}

}  // namespace zk
