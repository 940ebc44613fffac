// Counts as a French sentence has them.
#pragma once

#include <QLocale>
#include <QString>

namespace quelvar::forms {

inline QString NombreFr(std::int64_t n) { return QLocale(QLocale::French).toString(static_cast<qlonglong>(n)); }

inline QString Pluriel(std::int64_t n, const char* un, const char* plusieurs) {
  return NombreFr(n) + u' ' + QString::fromUtf8(n < 2 ? un : plusieurs);
}

}  // namespace quelvar::forms
