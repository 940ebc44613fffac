// The edge between the texts of the code page and those of the screen.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"

namespace quelvar::forms {

inline QString VersQt(std::string_view texte) { return QString::fromStdString(VersUtf8(texte)); }
// A character outside the code page becomes "?".
inline std::string DepuisQt(const QString& texte) { return DepuisUtf8(texte.toStdString()); }

inline QString CheminVersQt(const Chemin& chemin) { return QString::fromStdString(chemin.native()); }
inline Chemin CheminDepuisQt(const QString& texte) { return {texte.toStdString()}; }

}  // namespace quelvar::forms
