// Tables of results as a page (HTML), and as texts separated by tabs (TSV) or for a French spreadsheet (CSV: semicolons
// and decimal commas). All of them are UTF-8; the CSV begins with its mark, by which spreadsheets know it.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/fichiers/jeu.h"
#include "core/programme/programme.h"
#include "core/resultats/tableau.h"

namespace quelvar {

// Whole documents. `titre` is in the code page, as all texts of the tables.
std::string PageHtml(std::string_view titre, std::span<const TableauEdite> tableaux);
std::string TexteSepare(std::span<const TableauEdite> tableaux, SortieDeTableaux sortie);

// Extension behind the name of the report: ".html", ".tsv" or ".csv".
std::string_view ExtensionDe(SortieDeTableaux sortie);

// Writes the tables beside the report, under its name and the extension, in place of a former file; nothing for
// Aucune. Raises a failure of writing.
void EcrireTableaux(const Contexte& contexte, std::string_view nomRapport, std::span<const TableauEdite> tableaux,
                    SortieDeTableaux sortie);
// The same as one of the files of a set.
void EcrireTableaux(JeuDeFichiers& sorties, std::string_view nomRapport, std::span<const TableauEdite> tableaux,
                    SortieDeTableaux sortie);

}  // namespace quelvar
