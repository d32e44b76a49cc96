#include "controls/text/multi_line_text_edit.h"

namespace zk {
namespace {

constexpr int16_t kKeyTab = 9;
// The next of the library's own identifiers goes to Font.
constexpr int32_t kOwnIdentifier = 0;

}  // namespace

ZKMultiLineTextEdit::ZKMultiLineTextEdit(IControlSite& site) : ZKTextEdit(site, true) {}

const PropertyTable& ZKMultiLineTextEdit::Properties() const {
  static const PropertyTable table(TextEditRows(kOwnIdentifier), TextEditEvents());
  return table;
}

void ZKMultiLineTextEdit::FilterKeyDown(int16_t& key_code) {
  if (key_code == kKeyTab && CtrlOnlyDown() && DataType() != zktTDText) key_code = 0;
}

}  // namespace zk
