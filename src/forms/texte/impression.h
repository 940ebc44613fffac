// Fixed-width text on paper: the pages of a text, to the printer that the user chooses or to a PDF file.
#pragma once

#include <QPagedPaintDevice>
#include <QStringList>
#include <QWidget>
#include <string_view>

namespace quelvar::forms {

// Lines of the pages, in order. A line longer than `colonnes` goes on in the next one; a form feed begins a new page.
QList<QStringList> MettreEnPages(const QString& texte, int colonnes, int lignes);

// Prints the pages `premiere` to `derniere` (counted from 1; 0 and 0 for all) in Courier New 10, each under its title
// and its number. Returns the number of pages of the whole text.
int ImprimerTexte(QPagedPaintDevice& papier, const QString& texte, const QString& titre, int premiere = 0,
                  int derniere = 0);

// What is told when a text or a picture did not go to the printer.
inline constexpr std::string_view kPasDImprimante = "Pas d'imprimante disponible (ou annulation)";

// Asks for the printer; false when there is none or the user gave up.
bool ImprimerParDialogue(QWidget* parent, const QString& texte, const QString& titre);
// Writes an A4 PDF, landscape when lines are too long for a portrait page; false when the file can't be written, which
// then stays what it was.
bool EcrirePdf(const QString& fichier, const QString& texte, const QString& titre);

}  // namespace quelvar::forms
