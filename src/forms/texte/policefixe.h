// The font of what stands in columns.
#pragma once

#include <QFontDatabase>

namespace quelvar::forms {

inline QFont PoliceFixe() { return QFontDatabase::systemFont(QFontDatabase::FixedFont); }

}  // namespace quelvar::forms
