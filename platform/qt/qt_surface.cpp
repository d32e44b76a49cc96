#include "platform/qt/qt_surface.h"

#include <QApplication>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "platform/qt/qt_border.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_image.h"
#include "platform/qt/qt_input.h"
#include "platform/qt/qt_label.h"
#include "platform/qt/qt_line.h"
#include "platform/qt/qt_list_box.h"
#include "platform/qt/qt_picture_box.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_shape.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_text_box.h"

namespace zk {
namespace {

int Pixels(double twips, double twips_per_pixel) {
  return static_cast<int>(std::lround(twips / twips_per_pixel));
}

// A drawing coordinate in pixels, kept within what a painter can take: a rectangle that runs
// far beyond the widget is cut at its edge anyway.
int DrawingPixels(double twips, double twips_per_pixel) {
  constexpr double kFarAway = 1e8;
  return static_cast<int>(std::lround(std::clamp(twips / twips_per_pixel, -kFarAway, kFarAway)));
}

}  // namespace

class QtSurface::ControlWidget final : public QWidget {
 public:
  ControlWidget(QtSurface& surface, QWidget* parent) : QWidget(parent), surface_(surface) {
    setMouseTracking(true);
  }
  ~ControlWidget() override {
    surface_.widget_ = nullptr;
    surface_.platform_.Windows().Destroyed(surface_.window_);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const QPalette& colors = palette();
    painter.fillRect(rect(), ToQColor(surface_.back_color_, colors));
    surface_.PaintDrawing(painter);
    for (const auto& [element, painted] : surface_.painted_) {
      if (!element->Visible()) continue;
      const QRectF area = surface_.PixelArea(*element);
      painter.save();
      painted->Paint(painter, area);
      painter.restore();
    }
    PaintBorder(painter, rect(), colors, surface_.border_style_, surface_.appearance_);
  }
  void Mouse(MouseAction action, QMouseEvent* event) {
    const int border = surface_.BorderPixels();
    const Qt::MouseButtons buttons =
        action == MouseAction::kMove ? event->buttons() : Qt::MouseButtons(event->button());
    surface_.dispatcher_.Deliver(
        action, ButtonCode(buttons), ShiftCode(event->modifiers()),
        static_cast<float>(surface_.XToTwips(event->position().x() - border)),
        static_cast<float>(surface_.YToTwips(event->position().y() - border)));
  }
  void mousePressEvent(QMouseEvent* event) override { Mouse(MouseAction::kDown, event); }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    Mouse(MouseAction::kDoubleDown, event);
  }
  void mouseMoveEvent(QMouseEvent* event) override { Mouse(MouseAction::kMove, event); }
  void mouseReleaseEvent(QMouseEvent* event) override { Mouse(MouseAction::kUp, event); }
  bool event(QEvent* event) override {
    if (event->type() == QEvent::Wheel &&
        surface_.platform_.Windows().RouteWheel(surface_.window_,
                                                *static_cast<QWheelEvent*>(event))) {
      return true;
    }
    if (event->type() == QEvent::ToolTip) {
      // Windowless elements show their own tooltip over their area.
      auto* help = static_cast<QHelpEvent*>(event);
      const int border = surface_.BorderPixels();
      const IElement* element = surface_.dispatcher_.TopmostAt(
          surface_.XToTwips(help->pos().x() - border), surface_.YToTwips(help->pos().y() - border));
      const QString tip = element ? ToQString(element->ToolTipText()) : toolTip();
      if (tip.isEmpty()) {
        QToolTip::hideText();
      } else {
        QToolTip::showText(help->globalPos(), tip, this);
      }
      return true;
    }
    return QWidget::event(event);
  }
  void keyPressEvent(QKeyEvent* event) override {
    int16_t key_code = KeyCodeOf(event->key());
    int16_t shift = ShiftCode(event->modifiers());
    surface_.key_down_.Emit(key_code, shift);
    const QString text = event->text();
    if (!text.isEmpty()) {
      int16_t character = static_cast<int16_t>(text.at(0).unicode());
      surface_.key_press_.Emit(character);
    }
  }
  void keyReleaseEvent(QKeyEvent* event) override {
    int16_t key_code = KeyCodeOf(event->key());
    int16_t shift = ShiftCode(event->modifiers());
    surface_.key_up_.Emit(key_code, shift);
  }
  void focusInEvent(QFocusEvent*) override { surface_.RefreshFocus(); }
  void focusOutEvent(QFocusEvent*) override { surface_.RefreshFocus(); }

 public:
  QtSurface& surface_;
};

QtSurface::QtSurface(QtPlatform& platform, FormExtender& extender, QWidget* form, bool can_focus,
                     QtSurface* container)
    : QtSurface(platform, extender, nullptr, container,
                container != nullptr ? container->widget_ : form, can_focus) {
  if (container_ != nullptr) container_->contained_.push_back(this);
}

QtSurface::QtSurface(QtPlatform& platform, FormExtender& extender, QtSurface& owner)
    : QtSurface(platform, extender, &owner, nullptr, owner.widget_, true) {}

QtSurface::QtSurface(QtPlatform& platform, FormExtender& extender, QtSurface* owner,
                     QtSurface* container, QWidget* parent, bool can_focus)
    : PersistentDrawing(owner),
      platform_(platform),
      extender_(extender),
      container_(container),
      dispatcher_({&click_, &dbl_click_, &mouse_down_, &mouse_move_, &mouse_up_},
                  [this] { return std::pair<double, double>(ScaleWidth(), ScaleHeight()); }) {
  auto* widget = new ControlWidget(*this, parent);
  widget->setFocusPolicy(can_focus ? Qt::StrongFocus : Qt::NoFocus);
  widget_ = widget;
  window_ = platform_.Windows().Register(widget, u"ZKControl", 0x50000000,
                                         QtWindowSystem::Reporting::kSelf);
  last_width_ = extender_.Width();
  last_height_ = extender_.Height();
  FollowExtender(u"Move");
  // Children of a form that is not shown yet appear with it; later ones must be shown.
  if (parent != nullptr && parent->isVisible()) widget->show();
  extender_connection_ = extender_.PropertyWritten().Connect(
      [this](std::u16string_view property) { FollowExtender(property); });
}

QtSurface::~QtSurface() {
  if (container_ != nullptr) std::erase(container_->contained_, this);
  // A form takes out what a container holds before the container; should one outlive it, it
  // no longer points at a surface that is gone.
  for (QtSurface* contained : contained_)
    contained->container_ = nullptr;
  // The owner stops pointing its focus at this part before the widget goes.
  SurfaceBase* owner = Owner();
  DetachFromOwner();
  delete widget_;
  // A part that had the focus took it with its widget; the control learns it without events,
  // since it may be going away itself.
  if (owner != nullptr) static_cast<QtSurface&>(owner->Root()).SyncFocusQuietly();
}

QtSurface* QtSurface::SurfaceOf(const QWidget* widget) {
  for (const QWidget* step = widget; step != nullptr; step = step->parentWidget()) {
    if (const auto* control = dynamic_cast<const ControlWidget*>(step)) return &control->surface_;
  }
  return nullptr;
}

int QtSurface::BorderPixels() const {
  return zk::BorderPixels(border_style_, appearance_);
}

QPointF QtSurface::ToPixels(double x, double y) const {
  return QPointF(x / platform_.Screen().TwipsPerPixelX() + BorderPixels(),
                 y / platform_.Screen().TwipsPerPixelY() + BorderPixels());
}

QRectF QtSurface::PixelArea(const IElement& element) const {
  const QPointF origin = ToPixels(element.Left(), element.Top());
  return QRectF(origin,
                QSizeF(std::max(0.0, element.Width() / platform_.Screen().TwipsPerPixelX()),
                       std::max(0.0, element.Height() / platform_.Screen().TwipsPerPixelY())));
}

void QtSurface::BringPaintedToFront(IElement* element) {
  dispatcher_.BringToFront(element);
  auto found = std::find_if(painted_.begin(), painted_.end(),
                            [element](const auto& entry) { return entry.first == element; });
  if (found != painted_.end()) std::rotate(found, found + 1, painted_.end());
  Update();
}

void QtSurface::AddPaintedElement(IElement* element, const QtPaintedElement* painted) {
  dispatcher_.Add(element);
  painted_.emplace_back(element, painted);
  Update();
}

void QtSurface::RemovePaintedElement(IElement* element) {
  dispatcher_.Remove(element);
  std::erase_if(painted_, [element](const auto& entry) { return entry.first == element; });
  Update();
}

void QtSurface::Update() {
  // A widget that is not shown yet paints everything when it appears.
  if (widget_ && widget_->isVisible()) widget_->update();
}

double QtSurface::XToTwips(double pixels) const {
  return pixels * platform_.Screen().TwipsPerPixelX();
}

double QtSurface::YToTwips(double pixels) const {
  return pixels * platform_.Screen().TwipsPerPixelY();
}

double QtSurface::ScaleWidth() const {
  return std::max(0.0, Width() - 2 * XToTwips(BorderPixels()));
}

double QtSurface::ScaleHeight() const {
  return std::max(0.0, Height() - 2 * YToTwips(BorderPixels()));
}

void QtSurface::SetSize(double width, double height) {
  extender_.Move(extender_.Left(), extender_.Top(), width, height);
}

void QtSurface::SetBackColor(OLE_COLOR color) {
  back_color_ = color;
  Update();
}

void QtSurface::PaintDrawing(QPainter& painter) const {
  const PictureRef& picture = Picture();
  if (!picture && DrawnRects().empty()) return;
  const int border = BorderPixels();
  painter.save();
  painter.setClipRect(
      QRect(border, border, widget_->width() - 2 * border, widget_->height() - 2 * border));
  if (picture && !picture_image_.isNull())
    painter.drawImage(QPoint(border, border), picture_image_);
  const double tpp_x = platform_.Screen().TwipsPerPixelX();
  const double tpp_y = platform_.Screen().TwipsPerPixelY();
  const QPalette& colors = widget_->palette();
  for (const DrawnRect& drawn : DrawnRects()) {
    // Edges in whole pixels, so that rectangles that meet in twips meet on screen.
    const int left = DrawingPixels(drawn.left, tpp_x);
    const int top = DrawingPixels(drawn.top, tpp_y);
    const int right = DrawingPixels(drawn.right, tpp_x);
    const int bottom = DrawingPixels(drawn.bottom, tpp_y);
    if (right <= left || bottom <= top) continue;
    painter.fillRect(QRect(border + left, border + top, right - left, bottom - top),
                     ToQColor(drawn.color, colors));
  }
  painter.restore();
}

void QtSurface::DrawingChanged() {
  const PictureRef& picture = Picture();
  if (picture.get() != picture_shown_) {
    picture_shown_ = picture.get();
    picture_image_ = picture ? ImageOfPicture(*picture) : QImage();
  }
  Update();
}

void QtSurface::SetBorderStyle(int16_t style) {
  border_style_ = style;
  PlacePartWidgets();
  Update();
}

void QtSurface::SetAppearance(int16_t appearance) {
  appearance_ = appearance;
  back_color_ = appearance == 1 ? 0x8000000F : 0x80000005;
  PlacePartWidgets();
  Update();
}

void QtSurface::PlacePartWidgets() {
  for (SurfaceBase* part : Parts())
    static_cast<QtSurface*>(part)->FollowExtender(u"Move");
  for (QtSurface* contained : contained_)
    contained->FollowExtender(u"Move");
}

bool QtSurface::ContainersShown() const {
  for (const QtSurface* around = container_; around != nullptr; around = around->container_) {
    if (!around->extender_.Visible()) return false;
  }
  return true;
}

bool QtSurface::HoldsFocusWidget(const QWidget* focus) const {
  if (focus == nullptr || widget_ == nullptr ||
      (focus != widget_ && !widget_->isAncestorOf(focus))) {
    return false;
  }
  // A control placed inside this one has a tree of its own.
  const QtSurface* holder = SurfaceOf(focus);
  return holder != nullptr &&
         &const_cast<QtSurface*>(holder)->Root() == &const_cast<QtSurface*>(this)->Root();
}

bool QtSurface::Enabled() const {
  // The control's own flag: a control inside a disabled owner or container keeps it, as on
  // every platform; the state it inherits only decides whether it takes input.
  return widget_ ? !widget_->testAttribute(Qt::WA_ForceDisabled) : false;
}

void QtSurface::SetEnabled(bool enabled) {
  // A disabled widget with the focus would pass it on to whatever follows in Qt's chain,
  // another control perhaps: the owner takes it back first.
  if (!enabled) FocusabilityLost();
  if (widget_) widget_->setEnabled(enabled);
}

void QtSurface::BringToFront() {
  if (widget_) widget_->raise();
}

void QtSurface::RefreshFocus() {
  auto& root = static_cast<QtSurface&>(Root());
  const QWidget* focus = QApplication::focusWidget();
  if (root.HoldsFocusWidget(focus)) {
    if (QtSurface* holder = SurfaceOf(focus)) holder->PointFocusAt(true);
  }
  SyncFocus();
}

QtSurface* QtSurface::PressFocusTarget(QWidget* widget, bool& here) {
  QtSurface* surface = SurfaceOf(widget);
  if (surface == nullptr || &surface->Root() != &Root()) return nullptr;
  here = surface->widget_ != widget;  // a window of that surface's own (a text box)
  // A press on a part that cannot take the focus is its owner's.
  while (surface != this && !surface->CanTakeFocus()) {
    surface = static_cast<QtSurface*>(surface->Owner());
    here = false;
  }
  if (surface == this && !here) return nullptr;
  if (here) {
    // The box pressed on (the child of the surface's widget that holds the widget) takes the
    // surface's focus, before the focus moves.
    QWidget* box = widget;
    while (box->parentWidget() != nullptr && box->parentWidget() != surface->widget_)
      box = box->parentWidget();
    if (box->parentWidget() == surface->widget_ && (box->focusPolicy() & Qt::ClickFocus)) {
      surface->SetOwnFocusWidget(box);
    }
  }
  return surface;
}

QWidget* QtSurface::OwnFocusWidget() const {
  if (widget_ == nullptr) return nullptr;
  return proxy_is_part_ ? own_focus_proxy_.data() : widget_->focusProxy();
}

void QtSurface::SetOwnFocusWidget(QWidget* widget) {
  if (widget_ == nullptr) return;
  // While a part has the focus inside the control, the box is where it goes when it comes back.
  if (proxy_is_part_) {
    own_focus_proxy_ = widget;
  } else {
    widget_->setFocusProxy(widget);
  }
}

bool QtSurface::CanTakeFocus() const {
  // A widget inside a disabled container is disabled with it; a hidden container hides it.
  return widget_ != nullptr && extender_.Visible() && widget_->isEnabled() && ContainersShown();
}

bool QtSurface::ShouldHoldFocus() const {
  return HoldsFocusWidget(QApplication::focusWidget());
}

void QtSurface::TakeFocusNow() {
  if (widget_) widget_->setFocus(Qt::OtherFocusReason);
  RefreshFocus();
}

void QtSurface::FocusPartChanged() {
  if (widget_ == nullptr) return;
  const auto* part = static_cast<QtSurface*>(FocusPart());
  if (part != nullptr && part->widget_ != nullptr) {
    if (!proxy_is_part_) own_focus_proxy_ = widget_->focusProxy();
    proxy_is_part_ = true;
    widget_->setFocusProxy(part->widget_);
  } else if (proxy_is_part_) {
    proxy_is_part_ = false;
    widget_->setFocusProxy(own_focus_proxy_.data());
  }
}

void QtSurface::SetMousePointer(int16_t shape) {
  mouse_pointer_ = shape;
  if (widget_) widget_->setCursor(shape == 0 ? Qt::ArrowCursor : Qt::CursorShape(Qt::ArrowCursor));
}

void QtSurface::Refresh() {
  if (widget_) widget_->repaint();
}

void QtSurface::PopupMenu(const Variant&, const Variant&, const Variant&, const Variant&,
                          const Variant&) {
  // Menus belong to the host application; a form without menus has nothing to show.
}

std::unique_ptr<ILabelElement> QtSurface::CreateLabel() {
  return std::make_unique<QtLabel>(*this, platform_.Fonts().DefaultFont());
}

std::unique_ptr<IShapeElement> QtSurface::CreateShape() {
  return std::make_unique<QtShape>(*this);
}

std::unique_ptr<ILineElement> QtSurface::CreateLine() {
  return std::make_unique<QtLine>(*this);
}

std::unique_ptr<IImageElement> QtSurface::CreateImage() {
  return std::make_unique<QtImage>(*this);
}

void QtSurface::FollowExtender(std::u16string_view property) {
  if (widget_ == nullptr) return;
  if (property == u"Visible") {
    // Hiding a widget with the focus would pass it on along Qt's chain: the owner takes it.
    if (!extender_.Visible()) FocusabilityLost();
    widget_->setVisible(extender_.Visible());
    shown_.Emit(extender_.Visible());
    return;
  }
  if (property != u"Move" && property != u"Top" && property != u"Left" && property != u"Width" &&
      property != u"Height") {
    return;
  }
  const double tpp_x = platform_.Screen().TwipsPerPixelX();
  const double tpp_y = platform_.Screen().TwipsPerPixelY();
  // A part lies in its owner's inner area, inside the owner's border, and a contained control
  // in its container's.
  const auto* owner = static_cast<const QtSurface*>(Owner());
  const QtSurface* around = owner != nullptr ? owner : container_;
  const int origin = around != nullptr ? around->BorderPixels() : 0;
  widget_->setGeometry(origin + Pixels(extender_.Left(), tpp_x),
                       origin + Pixels(extender_.Top(), tpp_y), Pixels(extender_.Width(), tpp_x),
                       Pixels(extender_.Height(), tpp_y));
  if (extender_.Width() != last_width_ || extender_.Height() != last_height_) {
    last_width_ = extender_.Width();
    last_height_ = extender_.Height();
    resized_.Emit();
  }
}

}  // namespace zk

namespace zk {

std::unique_ptr<ITextBoxElement> QtSurface::CreateTextBox(bool multi_line) {
  return std::make_unique<QtTextBox>(*this, multi_line);
}

std::unique_ptr<IListBoxElement> QtSurface::CreateListBox() {
  return std::make_unique<QtListBox>(*this);
}

std::unique_ptr<IPictureBoxElement> QtSurface::CreatePictureBox() {
  return std::make_unique<QtPictureBox>(*this);
}

}  // namespace zk
