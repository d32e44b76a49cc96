#pragma once

#include <QColor>
#include <QPalette>

#include "platform/types.h"

namespace zk {

// The colour to paint for an OLE_COLOR: 0x00BBGGRR, or a system colour (high bit set) taken
// from the palette's role that plays the same part.
QColor ToQColor(OLE_COLOR color, const QPalette& palette);

}  // namespace zk
