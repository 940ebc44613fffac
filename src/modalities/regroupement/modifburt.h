// ModifierBurt: marked rows and columns of a table added together into new ones, under a new generic.
#pragma once

#include <string>
#include <vector>

#include "core/enquete/colonnes.h"
#include "core/programme/programme.h"

namespace quelvar::modalities {

struct OptionsModifBurt {
  std::vector<std::string> colonnes;  // marked, by name; of a Burt table also its rows
  std::vector<std::string> lignes;    // marked rows of a table whose rows are not its columns
  std::string nomColonne;             // of the group; its first four characters are the short name
  std::string nomLigne;               // of the rows, where they are not those of the columns
  bool remplacer = false;             // the files of the next generic may be replaced unasked
  std::string* nouveau = nullptr;     // if given, receives the generic that the session is to take

  bool operator==(const OptionsModifBurt&) const = default;
};

// Longest name of a group: that of a modality.
inline constexpr std::size_t kNomDeGroupeLePlusLong = kIntituleDeModaliteAuPlus;

// Short name of a group: its first four characters, "0" for those that it lacks.
std::string NomCourtDeGroupe(std::string_view nom);

// Why a group cannot have the name that it is given, among these columns and rows: an element that is not marked bears
// it, or it would end the list of modalities. Empty when it can.
std::string RefusDuNom(const OptionsModifBurt& options, const std::vector<std::string>& colonnes,
                       const std::vector<std::string>& lignes);

// What the marks will do, told before it is done; empty without marks.
std::string AnnonceDuRegroupement(const OptionsModifBurt& options);

// Report: new generic and ".PRT". Writes .MOD, .BRT and, when there is one, .POS of the next generic, or of a free one
// that an input box proposes when that name is taken; Qvr2.ini takes it at the normal end. The group's cell ends each
// row; its row stands behind the other active ones. A sum wider than the cells widens them all.
Fin ModifierBurt(const Contexte& contexte, const OptionsModifBurt& options);

}  // namespace quelvar::modalities
