#include "support/test_plain.h"

#include <utility>

namespace zk {

const PropertyTable& ZKTestPlain::Properties() const {
  using P = ZKTestPlain;
  using property_rows::Property;
  static const PropertyTable table(
      {
          Property(u"Note", &P::Note, &P::SetNote).Archive(1).New(u"").Bag(u"").Store(&P::note_),
          Common<P>(u"ControlGroup").Archive(2).Bag(u""),
          Common<P>(u"GetArchiveStr"),
          Common<P>(u"ParseArchiveStr"),
      },
      {});
  return table;
}

void ZKTestPlain::SetNote(std::u16string New_Note) {
  note_ = std::move(New_Note);
  Changed(u"Note");
}

}  // namespace zk
