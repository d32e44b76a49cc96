#include "platform/qt/qt_input.h"

#include <array>
#include <utility>

namespace zk {
namespace {

constexpr std::array<std::pair<int, int16_t>, 39> kKeys = {{
    // Punctuation keys of a US keyboard, by both of their characters.
    {Qt::Key_Semicolon, 186},    {Qt::Key_Colon, 186},      {Qt::Key_Equal, 187},
    {Qt::Key_Plus, 187},         {Qt::Key_Comma, 188},      {Qt::Key_Less, 188},
    {Qt::Key_Minus, 189},        {Qt::Key_Underscore, 189}, {Qt::Key_Period, 190},
    {Qt::Key_Greater, 190},      {Qt::Key_Slash, 191},      {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, 192},    {Qt::Key_AsciiTilde, 192}, {Qt::Key_BracketLeft, 219},
    {Qt::Key_BraceLeft, 219},    {Qt::Key_Backslash, 220},  {Qt::Key_Bar, 220},
    {Qt::Key_BracketRight, 221}, {Qt::Key_Apostrophe, 222}, {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},         {Qt::Key_Tab, 9},          {Qt::Key_Backtab, 9},
    {Qt::Key_Escape, 27},        {Qt::Key_Backspace, 8},    {Qt::Key_Delete, 46},
    {Qt::Key_Insert, 45},        {Qt::Key_Up, 38},          {Qt::Key_Down, 40},
    {Qt::Key_Left, 37},          {Qt::Key_Right, 39},       {Qt::Key_Home, 36},
    {Qt::Key_End, 35},           {Qt::Key_PageUp, 33},      {Qt::Key_PageDown, 34},
    {Qt::Key_Space, 32},         {Qt::Key_Shift, 16},       {Qt::Key_Control, 17},
}};

}  // namespace

int16_t ButtonCode(Qt::MouseButtons buttons) {
  int16_t code = 0;
  if (buttons & Qt::LeftButton) code |= 1;
  if (buttons & Qt::RightButton) code |= 2;
  if (buttons & Qt::MiddleButton) code |= 4;
  return code;
}

int16_t ShiftCode(Qt::KeyboardModifiers modifiers) {
  int16_t code = 0;
  if (modifiers & Qt::ShiftModifier) code |= 1;
  if (modifiers & Qt::ControlModifier) code |= 2;
  if (modifiers & Qt::AltModifier) code |= 4;
  return code;
}

int16_t KeyCodeOf(int qt_key) {
  if ((qt_key >= Qt::Key_A && qt_key <= Qt::Key_Z) ||
      (qt_key >= Qt::Key_0 && qt_key <= Qt::Key_9)) {
    return static_cast<int16_t>(qt_key);
  }
  if (qt_key >= Qt::Key_F1 && qt_key <= Qt::Key_F12) {
    return static_cast<int16_t>(112 + (qt_key - Qt::Key_F1));
  }
  for (const auto& [key, code] : kKeys) {
    if (key == qt_key) return code;
  }
  return 0;
}

int QtKeyOf(int16_t key_code) {
  if ((key_code >= 'A' && key_code <= 'Z') || (key_code >= '0' && key_code <= '9')) return key_code;
  if (key_code >= 112 && key_code <= 123) return Qt::Key_F1 + (key_code - 112);
  for (const auto& [key, code] : kKeys) {
    if (code == key_code) return key;
  }
  return Qt::Key_unknown;
}

Qt::KeyboardModifiers ModifiersOf(int16_t shift) {
  Qt::KeyboardModifiers modifiers = Qt::NoModifier;
  if (shift & 1) modifiers |= Qt::ShiftModifier;
  if (shift & 2) modifiers |= Qt::ControlModifier;
  if (shift & 4) modifiers |= Qt::AltModifier;
  return modifiers;
}

Qt::MouseButton QtButtonOf(int16_t button) {
  if (button & 1) return Qt::LeftButton;
  if (button & 2) return Qt::RightButton;
  if (button & 4) return Qt::MiddleButton;
  return Qt::NoButton;
}

}  // namespace zk
