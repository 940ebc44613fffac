// Fixed-width text on paper: the pages of a text, to the printer that the user chooses or to a PDF file.
#pragma once

#include <QPagedPaintDevice>
#include <QStringList>
#include <QWidget>
#include <string>

namespace quelvar::forms {

// Lines of the pages, in order. A line longer than `colonnes` goes on in the next one; a form feed begins a new page.
QList<QStringList> MettreEnPages(const QString& texte, int colonnes, int lignes);

// Prints the pages `premiere` to `derniere` (counted from 1; 0 and 0 for all), each under its title and its number.
// Returns the number of pages of the whole text.
int MettreSurPapier(QPagedPaintDevice& papier, const QString& texte, const QString& titre, int premiere = 0,
                    int derniere = 0);

// Asks for the printer and prints the pages that the user chose; false when there is none or he gave up.
bool DemanderImpressionDuTexte(QWidget* parent, const QString& texte, const QString& titre);

// The text as the bytes of a PDF file, on A4, landscape when lines are too long for a portrait page.
std::string PdfDuTexte(const QString& texte, const QString& titre);

}  // namespace quelvar::forms
