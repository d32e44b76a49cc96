#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace zk {

inline QString ToQString(std::u16string_view text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

inline std::u16string FromQString(const QString& text) {
  return text.toStdU16String();
}

}  // namespace zk
