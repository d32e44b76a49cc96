#pragma once

#include <QKeyEvent>
#include <QMouseEvent>
#include <cstdint>

namespace zk {

// The mouse button of an event as the controls count it: 1 left, 2 right, 4 middle.
int16_t ButtonCode(Qt::MouseButtons buttons);
// The modifier keys: 1 Shift, 2 Ctrl, 4 Alt.
int16_t ShiftCode(Qt::KeyboardModifiers modifiers);
// The classic key code of a Qt key (letters and digits keep their codes, Enter 13, F2 113 ...);
// 0 for a key without one.
int16_t KeyCodeOf(int qt_key);
// The reverse, for synthesised input.
int QtKeyOf(int16_t key_code);
Qt::KeyboardModifiers ModifiersOf(int16_t shift);
Qt::MouseButton QtButtonOf(int16_t button);

}  // namespace zk
