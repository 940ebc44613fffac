// The printer, asked for in the same way for texts and pictures.
#pragma once

#include <QPrinter>
#include <QWidget>
#include <string_view>

namespace quelvar::forms {

// What is told when nothing went to the printer.
inline constexpr std::string_view kPasDImprimante = "Pas d'imprimante disponible (ou annulation)";

enum class ChoixDePages { Aucun, Permis };

// Asks which printer takes the place of the one given, whose paper and title are those proposed; false when there is
// none or the user gave up.
bool DemanderImprimante(QWidget* parent, QPrinter& imprimante, ChoixDePages pages);

}  // namespace quelvar::forms
