// A table of words as its forms manage it: columns of the .MOD, rows of the .BRT, and which of them are supplementary.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/listemod.h"
#include "core/panne/erreur.h"
#include "core/programme/programme.h"

namespace quelvar::text {

struct LigneDeTable {
  std::string nom;                  // columns 1-4: the frequency in a lexical table
  std::string cellules;             // as they stand, `largeur` characters each
  std::string intitule;             // behind the cells, as it stands
  bool marquee = false;             // supplementary, or to be merged
  std::vector<std::string> mots{};  // that it stands for, where its label may not tell them
};

struct TableGeree {
  ListeModalites mod;  // title, parameter line, columns, tail
  int largeur = 0;     // of a cell
  std::int64_t lignesSup = 0;
  std::vector<LigneDeTable> lignes;
  std::vector<std::string> motsSansLigne{};  // lines of .AGR that go with no row, as they stand

  std::size_t Colonnes() const { return mod.textes.size(); }
};

// What a form opens on. Without a table, the lines of `message` tell why, and `ou` where, unless their words do.
struct TableOuverte {
  std::vector<std::string> message;
  Lieu ou{};
  TableGeree table;
};

// Reads .MOD and .BRT of the generic; no row is marked.
TableOuverte OuvrirTable(const Contexte& contexte);

// Why a table that was read earlier, and not changed since, cannot be worked on any longer: the files are others now.
// Empty when they are the same.
std::string RefusDeTableChangee(const Contexte& contexte, const TableGeree& lue);

// The parameter line of a managed table.
std::string ParametresDeTable(std::size_t lignes, std::size_t colonnes, std::int64_t lignesSup, int largeur);
void EcrireLignesDeTable(Ecrivain& fichier, const std::vector<LigneDeTable>& lignes);

}  // namespace quelvar::text
