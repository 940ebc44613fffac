// A table of words as its forms manage it: columns of the .MOD, rows of the .BRT, and which of them are supplementary.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/listemod.h"
#include "core/programme/programme.h"

namespace quelvar::text {

struct LigneDeTable {
  std::string nom;                  // columns 1-4: the frequency in a lexical table
  std::string cellules;             // as they stand, `largeur` characters each
  std::string intitule;             // behind the cells, as it stands
  bool marquee = false;             // supplementary, or to be merged
  std::vector<std::string> mots{};  // of a merged row: those of the rows that it stands for
};

struct TableGeree {
  ListeModalites mod;  // title, parameter line, columns, tail
  int largeur = 0;     // of a cell
  std::int64_t lignesSup = 0;
  std::vector<LigneDeTable> lignes;

  std::size_t Colonnes() const { return mod.textes.size(); }
};

// What a form opens on. Without a table, the lines of `message` tell why.
struct TableOuverte {
  std::vector<std::string> message;
  TableGeree table;
};

// Reads .MOD and .BRT of the generic; no row is marked.
TableOuverte OuvrirTable(const Contexte& contexte);

// The parameter line of a managed table.
std::string ParametresDeTable(std::size_t lignes, std::size_t colonnes, std::int64_t lignesSup, int largeur);
// The words whose lines of concordance are those of the row.
std::vector<std::string> MotsDeLaLigne(const LigneDeTable& ligne);
void EcrireLignesDeTable(Ecrivain& fichier, const std::vector<LigneDeTable>& lignes);

// Rank of the row that a user names: by its whole label, or by its word without the code in front. Raises kArretAnnonce
// with a line in the report when there is none, or more than one.
std::size_t TrouverLigne(const TableGeree& table, std::string_view nom, Rapport& rapport);
// A name by which TrouverLigne finds that row: its word if that is enough, else its label; nothing when several rows
// have it, or when it holds a comma or "=", which part the names of a list.
std::optional<std::string> NomDeLigne(const TableGeree& table, std::size_t ligne);

}  // namespace quelvar::text
