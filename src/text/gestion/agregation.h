// TabMotAgreg: rows of a table merged into one by summation, and the sorts of the rows that help to choose them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/gestion/facteurs.h"
#include "text/gestion/table.h"
#include "utilities/tri/chaines.h"

namespace quelvar::text {

enum class CleDeLignes { Facteur, Frequence, Intitule };

struct TriDeLignes {
  CleDeLignes cle = CleDeLignes::Frequence;
  std::string facteur = "1";  // number from 1 as typed, for the key of that name; what is no number counts as 0
  utilities::SensDeTri sens = utilities::SensDeTri::Croissant;

  bool operator==(const TriDeLignes&) const = default;
};

// The work in progress: nothing of it is in a file before Terminer.
struct Agregation {
  TableGeree table;
  TableGeree lue;                             // as the files have it
  std::optional<FacteursDesLignes> facteurs;  // without both coordinate files there is no sort by factor
  std::vector<std::string> compteRendu;       // lines of the report, behind the banner
  bool modifiee = false;                      // a merge was made
  std::vector<std::string> supplementaires;   // labels of the last ISUP rows, as the table was opened
};

struct AgregationOuverte {
  std::vector<std::string> message;  // an error, or the remark on the sort by factor
  Lieu ou{};                         // of the error, unless its words tell
  bool ouverte = false;
  Agregation agregation;
};
AgregationOuverte OuvrirAgregation(const Contexte& contexte);

// Merges the marked rows into a new one at the end; returns what the form says of it when nothing is marked.
std::string_view Agreger(Agregation& agregation, std::string_view intitule);

// Sorts the rows; returns the lines of what is wrong with the request, nothing when it is done. Coordinates that are
// not quite those of the table are told once in a box.
std::vector<std::string> TrierLignes(Agregation& agregation, const TriDeLignes& tri, const Contexte& contexte);

// What the form says when there is nothing to save, or the table is another one by now; empty otherwise.
std::string RefusDeTerminer(const Contexte& contexte, const Agregation& agregation);

// Writes the table under a new generic, to which the session goes; on a normal end `nouveau` holds it.
Fin TerminerAgregation(const Contexte& contexte, const Agregation& agregation, std::string& nouveau);

// The text of a row in the list of the form.
std::string TexteDeRangee(const LigneDeTable& ligne);

// The same without a form.
struct OptionsTabMotAgreg {
  struct Action {
    std::optional<TriDeLignes> tri;  // a sort; without it a merge
    std::string intitule = {};
    std::vector<std::string> lignes = {};

    bool operator==(const Action&) const = default;
  };
  std::vector<Action> actions = {};  // in their order
  bool remplacer = false;            // the files of the next generic may be replaced unasked

  bool operator==(const OptionsTabMotAgreg&) const = default;
};
Fin TabMotAgreg(const Contexte& contexte, const OptionsTabMotAgreg& options);

}  // namespace quelvar::text
