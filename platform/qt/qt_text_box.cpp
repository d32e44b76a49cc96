#include "platform/qt/qt_text_box.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <cmath>
#include <type_traits>

#include "platform/qt/qt_border.h"
#include "platform/qt/qt_colors.h"
#include "platform/qt/qt_input.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_surface.h"
#include "platform/qt/qt_text.h"
#include "platform/window_messages.h"

namespace zk {
namespace {

QString ToQtLines(std::u16string_view text) {
  QString lines = ToQString(text);
  lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  return lines;
}

std::u16string FromQtLines(QString text) {
  text.replace(QChar(0x2029), QChar(u'\n'));
  text.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
  return FromQString(text);
}

}  // namespace

// What both editors share: keys through the box's events first, mouse and focus reported.
class QtTextBox::Editor {
 public:
  explicit Editor(QtTextBox& box) : box_(box) {}
  virtual ~Editor() = default;
  virtual QWidget* Widget() = 0;
  virtual void BaseKeyPress(QKeyEvent* event) = 0;
  virtual void InsertTyped(const QString& text) = 0;
  // The classic border, drawn by the editor itself in place of Qt's frame.
  virtual void SetBorder(int16_t style, int16_t appearance) = 0;

 protected:
  // True when the editor's own handling of the event should follow.
  void KeyPress(QKeyEvent* event) {
    int16_t code = KeyCodeOf(event->key());
    int16_t shift = ShiftCode(event->modifiers());
    box_.key_down_.Emit(code, shift);
    const QString text = event->text();
    if (text.isEmpty() || text.at(0).unicode() == 127) {
      // Ctrl+Tab types a tab in a box of several lines (Tab alone moves the focus).
      if (code == 9 && (shift & 2) && box_.multi_line_ && !box_.Locked()) {
        InsertTyped(QStringLiteral("\t"));
      } else if (code != 0) {
        BaseKeyPress(event);
      }
      return;
    }
    const auto original = static_cast<int16_t>(text.at(0).unicode());
    int16_t typed = original;
    box_.key_press_.Emit(typed);
    if (typed == 0) return;
    // The length limit applies to what is typed.
    if (typed >= 32 && box_.max_length_ > 0 &&
        static_cast<int32_t>(box_.Text().size()) - box_.SelLength() >= box_.max_length_) {
      return;
    }
    if (typed == original) {
      BaseKeyPress(event);
    } else if (typed >= 32) {
      InsertTyped(QString(QChar(static_cast<char16_t>(typed))));
    }
  }
  void KeyRelease(QKeyEvent* event) {
    int16_t code = KeyCodeOf(event->key());
    int16_t shift = ShiftCode(event->modifiers());
    box_.key_up_.Emit(code, shift);
  }
  std::pair<float, float> Twips(QPointF point) {
    return {static_cast<float>(box_.surface_.XToTwips(point.x())),
            static_cast<float>(box_.surface_.YToTwips(point.y()))};
  }
  void Mouse(QEvent::Type type, QMouseEvent* event) {
    const auto [x, y] = Twips(event->position());
    const int16_t shift = ShiftCode(event->modifiers());
    switch (type) {
      case QEvent::MouseButtonPress:
        click_pending_ = true;
        box_.mouse_down_.Emit(ButtonCode(event->button()), shift, x, y);
        break;
      case QEvent::MouseButtonDblClick:
        click_pending_ = false;
        box_.dbl_click_.Emit();
        break;
      case QEvent::MouseButtonRelease: {
        const bool click = click_pending_ && Widget()->rect().contains(event->position().toPoint());
        click_pending_ = false;
        box_.mouse_up_.Emit(ButtonCode(event->button()), shift, x, y);
        if (click) box_.click_.Emit();
        break;
      }
      default:
        box_.mouse_move_.Emit(ButtonCode(event->buttons()), shift, x, y);
    }
  }

  QtTextBox& box_;
  bool click_pending_ = false;
};

// The editor over one of Qt's text widgets: a QLineEdit or a QPlainTextEdit.
template <typename QtEditor>
class QtTextBox::EditorWidget final : public QtEditor, public QtTextBox::Editor {
 public:
  EditorWidget(QtTextBox& box, QWidget* parent) : QtEditor(parent), Editor(box) {
    if constexpr (std::is_same_v<QtEditor, QPlainTextEdit>) {
      this->viewport()->setMouseTracking(true);
    } else {
      this->setMouseTracking(true);
    }
  }
  QWidget* Widget() override { return this; }
  void BaseKeyPress(QKeyEvent* event) override { QtEditor::keyPressEvent(event); }
  void InsertTyped(const QString& text) override {
    if constexpr (std::is_same_v<QtEditor, QPlainTextEdit>) {
      this->insertPlainText(text);
    } else {
      this->insert(text);
    }
  }
  void SetBorder(int16_t style, int16_t appearance) override {
    border_style_ = style;
    appearance_ = appearance;
    const int pixels = BorderPixels(style, appearance);
    if constexpr (std::is_same_v<QtEditor, QPlainTextEdit>) {
      this->setFrameStyle(QFrame::NoFrame);
      this->setViewportMargins(pixels, pixels, pixels, pixels);
    } else {
      this->setFrame(false);
      this->setContentsMargins(pixels, pixels, pixels, pixels);
    }
    this->update();
  }

 protected:
  bool event(QEvent* event) override {
    const bool handled = QtEditor::event(event);
    // The border goes over what the editor painted, in the margins left for it.
    if (event->type() == QEvent::Paint && border_style_ != 0) {
      QPainter painter(this);
      PaintBorder(painter, this->rect(), this->palette(), border_style_, appearance_);
    }
    return handled;
  }
  void keyPressEvent(QKeyEvent* event) override { KeyPress(event); }
  void keyReleaseEvent(QKeyEvent* event) override {
    KeyRelease(event);
    QtEditor::keyReleaseEvent(event);
  }
  void mousePressEvent(QMouseEvent* event) override {
    Mouse(QEvent::MouseButtonPress, event);
    QtEditor::mousePressEvent(event);
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    Mouse(QEvent::MouseButtonDblClick, event);
    QtEditor::mouseDoubleClickEvent(event);
  }
  void mouseMoveEvent(QMouseEvent* event) override {
    Mouse(QEvent::MouseMove, event);
    QtEditor::mouseMoveEvent(event);
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    Mouse(QEvent::MouseButtonRelease, event);
    QtEditor::mouseReleaseEvent(event);
  }
  void focusInEvent(QFocusEvent* event) override {
    QtEditor::focusInEvent(event);
    box_.surface_.ChildFocus(true);
  }
  void focusOutEvent(QFocusEvent* event) override {
    QtEditor::focusOutEvent(event);
    box_.surface_.ChildFocus(false);
  }

 private:
  int16_t border_style_ = 0;
  int16_t appearance_ = 0;
};

QtTextBox::QtTextBox(QtSurface& surface, bool multi_line)
    : surface_(surface), multi_line_(multi_line) {
  font_ = surface_.Platform().Fonts().DefaultFont();
  QWidget* parent = surface_.Widget();
  if (multi_line) {
    auto* editor = new EditorWidget<QPlainTextEdit>(*this, parent);
    QObject::connect(editor, &QPlainTextEdit::textChanged, [this] { change_.Emit(); });
    editor_ = editor;
    widget_ = editor;
  } else {
    auto* editor = new EditorWidget<QLineEdit>(*this, parent);
    QObject::connect(editor, &QLineEdit::textChanged, [this](const QString&) { change_.Emit(); });
    editor_ = editor;
    widget_ = editor;
  }
  // The control's focus is the box's.
  if (parent != nullptr) parent->setFocusProxy(widget_);
  widget_->setFocusPolicy(Qt::StrongFocus);
  window_ = surface_.Platform().Windows().Register(widget_, u"Edit",
                                                   multi_line ? 0x50200004 : 0x50000000);
  surface_.Platform().Windows().SetClassHandler(
      window_, [this](WindowHandle, uint32_t message, int32_t, int32_t) -> int32_t {
        if (message != window_message::kEditUndo) return 0;
        Undo();
        return 1;
      });
  SetFont(font_);
  ApplyColours();
  editor_->SetBorder(border_style_, appearance_);
  if (parent != nullptr && parent->isVisible()) widget_->show();
}

QtTextBox::~QtTextBox() {
  if (widget_ && widget_->parentWidget() && widget_->parentWidget()->focusProxy() == widget_) {
    widget_->parentWidget()->setFocusProxy(nullptr);
  }
  delete widget_.data();
}

void QtTextBox::Move(double left, double top, double width, double height) {
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
  if (!widget_) return;
  const QPointF origin = surface_.ToPixels(left, top);
  const QPointF end = surface_.ToPixels(left + width, top + height);
  widget_->setGeometry(static_cast<int>(std::lround(origin.x())),
                       static_cast<int>(std::lround(origin.y())),
                       static_cast<int>(std::lround(end.x() - origin.x())),
                       static_cast<int>(std::lround(end.y() - origin.y())));
}

void QtTextBox::SetVisible(bool visible) {
  visible_ = visible;
  if (widget_) widget_->setVisible(visible);
}

bool QtTextBox::Enabled() const {
  return widget_ ? widget_->isEnabled() : false;
}

void QtTextBox::SetEnabled(bool enabled) {
  if (widget_) widget_->setEnabled(enabled);
}

void QtTextBox::SetToolTipText(std::u16string_view text) {
  tool_tip_text_ = text;
  if (widget_) widget_->setToolTip(ToQString(text));
}

void QtTextBox::Refresh() {
  if (widget_) widget_->repaint();
}

void QtTextBox::BringToFront() {
  if (widget_) widget_->raise();
}

std::u16string QtTextBox::Text() const {
  if (!widget_) return {};
  if (multi_line_) return FromQtLines(static_cast<QPlainTextEdit*>(widget_.data())->toPlainText());
  return FromQString(static_cast<QLineEdit*>(widget_.data())->text());
}

void QtTextBox::SetText(std::u16string_view text) {
  if (!widget_) return;
  if (multi_line_) {
    static_cast<QPlainTextEdit*>(widget_.data())->setPlainText(ToQtLines(text));
  } else {
    auto* line = static_cast<QLineEdit*>(widget_.data());
    line->setText(ToQString(text));
    line->setCursorPosition(0);
  }
}

int32_t QtTextBox::FromQtPosition(int qt_position) const {
  if (!multi_line_) return qt_position;
  const QString text = static_cast<QPlainTextEdit*>(widget_.data())->toPlainText();
  int32_t breaks = 0;
  for (int i = 0; i < qt_position && i < text.size(); ++i)
    breaks += text.at(i) == QChar(u'\n');
  return qt_position + breaks;
}

int QtTextBox::ToQtPosition(int32_t position) const {
  if (!multi_line_) return position;
  const std::u16string text = Text();
  int qt_position = 0;
  for (int32_t i = 0; i < position && i < static_cast<int32_t>(text.size()); ++i) {
    if (text[static_cast<size_t>(i)] == u'\r' && i + 1 < static_cast<int32_t>(text.size()) &&
        text[static_cast<size_t>(i) + 1] == u'\n') {
      ++i;  // CR LF is one break in Qt
    }
    ++qt_position;
  }
  return qt_position;
}

void QtTextBox::QtSelection(int& anchor, int& cursor) const {
  if (multi_line_) {
    const QTextCursor text_cursor = static_cast<QPlainTextEdit*>(widget_.data())->textCursor();
    anchor = text_cursor.anchor();
    cursor = text_cursor.position();
    return;
  }
  const auto* line = static_cast<QLineEdit*>(widget_.data());
  cursor = line->cursorPosition();
  anchor = line->hasSelectedText()
               ? (line->selectionStart() == cursor ? line->selectionEnd() : line->selectionStart())
               : cursor;
}

void QtTextBox::SetQtSelection(int anchor, int cursor) {
  if (multi_line_) {
    auto* editor = static_cast<QPlainTextEdit*>(widget_.data());
    QTextCursor text_cursor = editor->textCursor();
    text_cursor.setPosition(anchor);
    text_cursor.setPosition(cursor, QTextCursor::KeepAnchor);
    editor->setTextCursor(text_cursor);
    return;
  }
  auto* line = static_cast<QLineEdit*>(widget_.data());
  if (anchor == cursor) {
    line->setCursorPosition(cursor);
  } else {
    line->setSelection(anchor, cursor - anchor);
  }
}

int32_t QtTextBox::SelStart() const {
  if (!widget_) return 0;
  int anchor = 0;
  int cursor = 0;
  QtSelection(anchor, cursor);
  return FromQtPosition(std::min(anchor, cursor));
}

int32_t QtTextBox::SelLength() const {
  if (!widget_) return 0;
  int anchor = 0;
  int cursor = 0;
  QtSelection(anchor, cursor);
  return FromQtPosition(std::max(anchor, cursor)) - FromQtPosition(std::min(anchor, cursor));
}

void QtTextBox::SetSelStart(int32_t start) {
  if (!widget_) return;
  const int position = ToQtPosition(std::clamp(start, 0, static_cast<int32_t>(Text().size())));
  SetQtSelection(position, position);
}

void QtTextBox::SetSelLength(int32_t length) {
  if (!widget_) return;
  const int32_t start = SelStart();
  const int32_t end =
      std::clamp(start + std::max(0, length), start, static_cast<int32_t>(Text().size()));
  SetQtSelection(ToQtPosition(start), ToQtPosition(end));
}

std::u16string QtTextBox::SelText() const {
  return Text().substr(static_cast<size_t>(SelStart()), static_cast<size_t>(SelLength()));
}

void QtTextBox::SetSelText(std::u16string_view text) {
  if (!widget_) return;
  if (multi_line_) {
    static_cast<QPlainTextEdit*>(widget_.data())->insertPlainText(ToQtLines(text));
  } else {
    static_cast<QLineEdit*>(widget_.data())->insert(ToQString(text));
  }
}

bool QtTextBox::Locked() const {
  if (!widget_) return false;
  return multi_line_ ? static_cast<QPlainTextEdit*>(widget_.data())->isReadOnly()
                     : static_cast<QLineEdit*>(widget_.data())->isReadOnly();
}

void QtTextBox::SetLocked(bool locked) {
  if (!widget_) return;
  if (multi_line_) {
    static_cast<QPlainTextEdit*>(widget_.data())->setReadOnly(locked);
  } else {
    static_cast<QLineEdit*>(widget_.data())->setReadOnly(locked);
  }
}

void QtTextBox::SetPasswordChar(std::u16string_view character) {
  password_char_ = character;
  if (widget_ && !multi_line_) {
    static_cast<QLineEdit*>(widget_.data())
        ->setEchoMode(character.empty() ? QLineEdit::Normal : QLineEdit::Password);
  }
}

void QtTextBox::SetAlignment(int16_t alignment) {
  alignment_ = alignment;
  max_length_ = 0;  // the box's window is made anew, without its length limit
  const Qt::Alignment horizontal = alignment == 1   ? Qt::AlignRight
                                   : alignment == 2 ? Qt::AlignHCenter
                                                    : Qt::AlignLeft;
  if (!widget_) return;
  if (multi_line_) {
    auto* editor = static_cast<QPlainTextEdit*>(widget_.data());
    QTextOption option = editor->document()->defaultTextOption();
    option.setAlignment(horizontal);
    editor->document()->setDefaultTextOption(option);
  } else {
    static_cast<QLineEdit*>(widget_.data())->setAlignment(horizontal | Qt::AlignVCenter);
  }
}

void QtTextBox::ApplyColours() {
  if (!widget_) return;
  QPalette colors = widget_->palette();
  colors.setColor(QPalette::Base, ToQColor(back_color_, colors));
  colors.setColor(QPalette::Text, ToQColor(fore_color_, colors));
  widget_->setPalette(colors);
}

void QtTextBox::SetForeColor(OLE_COLOR color) {
  fore_color_ = color;
  ApplyColours();
}

void QtTextBox::SetBackColor(OLE_COLOR color) {
  back_color_ = color;
  ApplyColours();
}

void QtTextBox::SetFont(const FontDescription& font) {
  font_ = font;
  if (widget_) widget_->setFont(surface_.Platform().Fonts().ToQFont(font));
}

void QtTextBox::SetBorderStyle(int16_t style) {
  border_style_ = style;
  if (widget_) editor_->SetBorder(border_style_, appearance_);
}

void QtTextBox::SetAppearance(int16_t appearance) {
  appearance_ = appearance;
  if (widget_) editor_->SetBorder(border_style_, appearance_);
}

void QtTextBox::Undo() {
  if (!widget_) return;
  if (multi_line_) {
    static_cast<QPlainTextEdit*>(widget_.data())->undo();
  } else {
    static_cast<QLineEdit*>(widget_.data())->undo();
  }
}

}  // namespace zk
