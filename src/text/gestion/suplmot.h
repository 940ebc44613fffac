// SuplMot: which columns and rows of a table are supplementary, and their labels.
#pragma once

#include <string>
#include <vector>

#include "core/options/dites.h"
#include "text/gestion/table.h"

namespace quelvar::text {

// The table with the rows marked that its parameter line tells as supplementary: the last ISUP ones.
TableOuverte OuvrirSuplMot(const Contexte& contexte);

// A click on a column or a row: its mark flips.
void BasculerColonne(TableGeree& table, std::size_t colonne);
void BasculerLigne(TableGeree& table, std::size_t ligne);
// The texts of the lists: name, mark " S " or "   ", label.
std::string TexteDeColonne(const TableGeree& table, std::size_t colonne);
std::string TexteDeLigne(const TableGeree& table, std::size_t ligne);

// Writes both files, the supplementary rows behind the active ones; the report holds the sentence of the end.
Fin EnregistrerSuplMot(const Contexte& contexte, const TableGeree& table);

// The same without a form.
struct OptionsSuplMot {
  struct Action {
    enum class Genre { ColonneSup, ColonneActive, IntituleColonne, LigneSup, LigneActive, IntituleLigne };
    Genre genre;
    std::string nom;
    std::string intitule = {};

    bool operator==(const Action&) const = default;
  };
  std::vector<Action> actions = {};  // in their order

  bool operator==(const OptionsSuplMot&) const = default;
};
Fin SuplMot(const Contexte& contexte, const OptionsSuplMot& options);

// The options that make `table` of what the files hold; none do for columns or rows that share their name.
OptionsDites<OptionsSuplMot> OptionsDeLaTable(const TableGeree& desFichiers, const TableGeree& table);

}  // namespace quelvar::text
