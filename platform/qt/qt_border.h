#pragma once

#include <QPainter>
#include <QPalette>
#include <QRect>
#include <cstdint>

namespace zk {

// The classic border of a control or a text box: none (style 0), a flat black line (appearance
// 0) or a sunken 3-D edge of two lines (appearance 1). BorderPixels gives its width.
int BorderPixels(int16_t border_style, int16_t appearance);
void PaintBorder(QPainter& painter, const QRect& area, const QPalette& colors, int16_t border_style,
                 int16_t appearance);

}  // namespace zk
