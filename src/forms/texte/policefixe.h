// The font of what stands in columns.
#pragma once

#include <QFontDatabase>

namespace quelvar::forms {

// Points of a text in that font, until the user chooses another size.
inline constexpr int kTailleUsuelle = 10;

inline QFont PoliceFixe() { return QFontDatabase::systemFont(QFontDatabase::FixedFont); }

}  // namespace quelvar::forms
