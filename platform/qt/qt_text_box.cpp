#include "platform/qt/qt_text_box.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <cmath>
#include <memory>
#include <type_traits>

#include "foundation/flag_scope.h"
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

// The character that a key types, as the classic keyboard gives it: Ctrl with a letter types
// that letter's control character (Ctrl+H is 8), Ctrl+Backspace types 127, Ctrl+Space a blank,
// other Ctrl and Alt combinations and the Delete key (to which X reports 127) type nothing.
// Qt's own text says what the other keys type.
int16_t CharacterOf(const QKeyEvent& event) {
  const int key = event.key();
  const Qt::KeyboardModifiers modifiers = event.modifiers();
  const bool ctrl = modifiers & Qt::ControlModifier;
  const bool alt = modifiers & Qt::AltModifier;
  if (key == Qt::Key_Delete || (alt && !ctrl)) return 0;
  if (ctrl && !alt) {
    if (key >= Qt::Key_A && key <= Qt::Key_Z) return static_cast<int16_t>(key - Qt::Key_A + 1);
    if (key == Qt::Key_Backspace) return 127;
    if (key == Qt::Key_Space) return 32;
    if (key == Qt::Key_Return || key == Qt::Key_Enter) return 13;
    return 0;
  }
  const QString text = event.text();
  return text.isEmpty() ? int16_t{0} : static_cast<int16_t>(text.at(0).unicode());
}

// Whether a menu entry is the one for a standard key (its text ends with the key's shortcut).
bool IsEntryFor(const QAction& action, QKeySequence::StandardKey key) {
  const QString shortcut = QKeySequence(key).toString(QKeySequence::NativeText);
  return !shortcut.isEmpty() && action.text().endsWith(QLatin1Char('\t') + shortcut);
}

}  // namespace

// What both editors share: keys through the box's events first, mouse and focus reported.
class QtTextBox::Editor {
 public:
  explicit Editor(QtTextBox& box) : box_(box) {}
  virtual ~Editor() = default;
  virtual QWidget* Widget() = 0;
  virtual void BaseKeyPress(QKeyEvent* event) = 0;
  // The classic border, drawn by the editor itself in place of Qt's frame.
  virtual void SetBorder(int16_t style, int16_t appearance) = 0;

 protected:
  void KeyPress(QKeyEvent* event) {
    int16_t code = KeyCodeOf(event->key());
    int16_t shift = ShiftCode(event->modifiers());
    const int16_t character = CharacterOf(*event);
    box_.key_down_.Emit(code, shift);
    // Keys that type are the box's own; the others move the caret in Qt's way. Qt would
    // type the text of some keys that type nothing here (Alt with a letter): not those.
    const QString text = event->text();
    const bool qt_would_type = !text.isEmpty() && text.at(0).isPrint();
    if (code != 0 && !box_.ActOnKey(code, shift) && character == 0 && !qt_would_type) {
      BaseKeyPress(event);
    }
    if (character == 0) return;
    int16_t typed = character;
    box_.key_press_.Emit(typed);
    if (typed != 0 && !box_.Type(static_cast<char16_t>(typed))) BaseKeyPress(event);
  }
  // Qt's menu, with its Undo taking back what the box counts as the last edit.
  void ContextMenu(QContextMenuEvent* event, std::unique_ptr<QMenu> menu) {
    for (QAction* action : menu->actions()) {
      if (IsEntryFor(*action, QKeySequence::Redo)) {
        menu->removeAction(action);
      } else if (IsEntryFor(*action, QKeySequence::Undo)) {
        QObject::disconnect(action, &QAction::triggered, nullptr, nullptr);
        action->setEnabled(box_.editor_.CanUndo() && !box_.Locked());
        QObject::connect(action, &QAction::triggered, Widget(), [this] { box_.Undo(); });
      }
    }
    menu->exec(event->globalPos());
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
    if constexpr (std::is_same_v<QtEditor, QLineEdit>) {
      // A QLineEdit drops its selection, soon after its window becomes active, when it does
      // not have the focus then; a classic box keeps the selection of a box without focus.
      if (event->type() == QEvent::WindowActivate) return QWidget::event(event);
    }
    const bool handled = QtEditor::event(event);
    // The border goes over what the editor painted, in the margins left for it.
    if (event->type() == QEvent::Paint && border_style_ != 0) {
      QPainter painter(this);
      PaintBorder(painter, this->rect(), this->palette(), border_style_, appearance_);
    }
    return handled;
  }
  void keyPressEvent(QKeyEvent* event) override { KeyPress(event); }
  void contextMenuEvent(QContextMenuEvent* event) override {
    ContextMenu(event, std::unique_ptr<QMenu>(this->createStandardContextMenu()));
  }
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
    // A QLineEdit selects its whole text when the Tab key brings the focus; a classic box
    // leaves the selection as it was (selecting it all is the control's AutoSelect).
    int anchor = 0;
    int cursor = 0;
    box_.QtSelection(anchor, cursor);
    QtEditor::focusInEvent(event);
    box_.SetQtSelection(anchor, cursor);
    box_.ApplyColours();
    box_.surface_.ChildFocus(true);
  }
  void focusOutEvent(QFocusEvent* event) override {
    // A QLineEdit also drops its selection when the focus goes; a classic box keeps it (and
    // only hides it) until the focus comes back.
    int anchor = 0;
    int cursor = 0;
    box_.QtSelection(anchor, cursor);
    QtEditor::focusOutEvent(event);
    box_.SetQtSelection(anchor, cursor);
    box_.ApplyColours();
    box_.surface_.ChildFocus(false);
  }

 private:
  int16_t border_style_ = 0;
  int16_t appearance_ = 0;
};

QtTextBox::QtTextBox(QtSurface& surface, bool multi_line)
    : surface_(surface), multi_line_(multi_line), editor_(multi_line) {
  font_ = surface_.Platform().Fonts().DefaultFont();
  QWidget* parent = surface_.Widget();
  if (multi_line) {
    auto* editor = new EditorWidget<QPlainTextEdit>(*this, parent);
    // The box keeps its own undo; Qt's would take back other steps.
    editor->document()->setUndoRedoEnabled(false);
    QObject::connect(editor, &QPlainTextEdit::textChanged, [this] { QtChangedText(); });
    QObject::connect(editor, &QPlainTextEdit::cursorPositionChanged,
                     [this] { QtMovedSelection(); });
    QObject::connect(editor, &QPlainTextEdit::selectionChanged, [this] { QtMovedSelection(); });
    editor_widget_ = editor;
    widget_ = editor;
  } else {
    auto* editor = new EditorWidget<QLineEdit>(*this, parent);
    QObject::connect(editor, &QLineEdit::textChanged, [this](const QString&) { QtChangedText(); });
    QObject::connect(editor, &QLineEdit::cursorPositionChanged,
                     [this](int, int) { QtMovedSelection(); });
    QObject::connect(editor, &QLineEdit::selectionChanged, [this] { QtMovedSelection(); });
    editor_widget_ = editor;
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
        return Undo() ? 1 : 0;
      });
  SetFont(font_);
  ApplyColours();
  editor_widget_->SetBorder(border_style_, appearance_);
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
  {
    const FlagScope writing(writing_);
    if (multi_line_) {
      static_cast<QPlainTextEdit*>(widget_.data())->setPlainText(ToQtLines(text));
    } else {
      auto* line = static_cast<QLineEdit*>(widget_.data());
      line->setText(ToQString(text));
      line->setCursorPosition(0);
    }
  }
  // A new text starts a new history, with the caret at its start; it is a change even when
  // it is the text already shown (Qt reports none then).
  editor_.Forget();
  last_seen_ = Current();
  change_.Emit();
}

TextBoxEditor::State QtTextBox::Current() const {
  if (!widget_) return {};
  int anchor = 0;
  int cursor = 0;
  QtSelection(anchor, cursor);
  return {Text(), FromQtPosition(cursor), FromQtPosition(anchor)};
}

void QtTextBox::Show(const TextBoxEditor::State& state) {
  {
    const FlagScope writing(writing_);
    if (multi_line_) {
      static_cast<QPlainTextEdit*>(widget_.data())->setPlainText(ToQtLines(state.text));
    } else {
      static_cast<QLineEdit*>(widget_.data())->setText(ToQString(state.text));
    }
    SetQtSelection(ToQtPosition(state.anchor), ToQtPosition(state.caret));
  }
  last_seen_ = Current();
  change_.Emit();
}

void QtTextBox::ApplyEdit(const TextBoxEditor::Edit& edit) {
  if (!widget_) return;
  const TextBoxEditor::State before = Current();
  const TextBoxEditor::State after = TextBoxEditor::Applied(before, edit);
  editor_.Record(before, after, edit.kind);
  {
    const FlagScope writing(writing_);
    if (multi_line_) {
      // The document is edited in place, so that it keeps its scroll position.
      auto* editor = static_cast<QPlainTextEdit*>(widget_.data());
      QTextCursor cursor(editor->document());
      cursor.setPosition(ToQtPosition(edit.start));
      cursor.setPosition(ToQtPosition(edit.start + edit.length), QTextCursor::KeepAnchor);
      cursor.insertText(ToQtLines(edit.text));
      editor->setTextCursor(cursor);
    } else {
      auto* line = static_cast<QLineEdit*>(widget_.data());
      line->setText(ToQString(after.text));
      line->setCursorPosition(after.caret);
    }
  }
  last_seen_ = Current();
  change_.Emit();
}

bool QtTextBox::ActOnKey(int16_t key_code, int16_t shift) {
  TextBoxEditor::Edit edit;
  if (key_code == 46) {  // Delete
    if (editor_.ForDeleteKey(Current(), Locked(), edit)) ApplyEdit(edit);
    return true;
  }
  if (key_code == 9 && (shift & 2)) {  // Ctrl+Tab (Tab alone moves the focus)
    if (editor_.ForCtrlTab(Current(), Locked(), max_length_, edit)) ApplyEdit(edit);
    return true;
  }
  return false;
}

bool QtTextBox::Type(char16_t character) {
  TextBoxEditor::Edit edit;
  switch (editor_.ForCharacter(Current(), character, Locked(), max_length_, edit)) {
    case TextBoxEditor::Action::kEdit:
      ApplyEdit(edit);
      return true;
    case TextBoxEditor::Action::kSelectAll:
      SetQtSelection(0, ToQtPosition(static_cast<int32_t>(Text().size())));
      return true;
    case TextBoxEditor::Action::kUndo:
      Undo();
      return true;
    case TextBoxEditor::Action::kNothing:
      break;
  }
  // Copy, cut and paste are Qt's (the clipboard is the desktop's).
  return character != 3 && character != 24 && character != 22;
}

bool QtTextBox::Undo() {
  if (!widget_) return false;
  const std::optional<TextBoxEditor::State> shown = editor_.Undo(Current());
  if (!shown) return false;
  Show(*shown);
  return true;
}

void QtTextBox::QtChangedText() {
  if (writing_) return;
  const TextBoxEditor::State now = Current();
  if (now.text == last_seen_.text) return;
  editor_.Record(last_seen_, now, TextBoxEditor::EditKind::kOther);
  last_seen_ = now;
  change_.Emit();
}

void QtTextBox::QtMovedSelection() {
  if (writing_) return;
  // Qt may report the new caret before the new text; the text's own report takes it then.
  TextBoxEditor::State now = Current();
  if (now.text == last_seen_.text) last_seen_ = std::move(now);
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
  if (!widget_ || (text.empty() && SelLength() == 0)) return;
  ApplyEdit({SelStart(), SelLength(), std::u16string(text), TextBoxEditor::EditKind::kOther});
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
  const QColor back = ToQColor(back_color_, colors);
  const QColor fore = ToQColor(fore_color_, colors);
  colors.setColor(QPalette::Base, back);
  colors.setColor(QPalette::Text, fore);
  // The selection shows only while the box has the focus; elsewhere it is kept, unseen.
  const QPalette standard = QApplication::palette(widget_);
  const bool focused = widget_->hasFocus();
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    colors.setColor(group, QPalette::Highlight,
                    focused ? standard.color(group, QPalette::Highlight) : back);
    colors.setColor(group, QPalette::HighlightedText,
                    focused ? standard.color(group, QPalette::HighlightedText) : fore);
  }
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
  if (widget_) editor_widget_->SetBorder(border_style_, appearance_);
}

void QtTextBox::SetAppearance(int16_t appearance) {
  appearance_ = appearance;
  if (widget_) editor_widget_->SetBorder(border_style_, appearance_);
}

}  // namespace zk
