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

// Ranks of the rows that a user names: by their whole label, or else by their word without the code in front.
std::vector<std::size_t> LignesDuNom(const TableGeree& table, std::string_view nom);
// The only one of them, or why there is none: a line for the report, empty with a row.
struct LigneTrouvee {
  std::size_t rang = 0;
  std::string faute{};
};
LigneTrouvee TrouverLigne(const TableGeree& table, std::string_view nom);
// A name by which TrouverLigne finds that row: its word if that is enough, else its label; nothing when several rows
// have it, which is why no options say what is done to it.
inline constexpr std::string_view kLignesDuMemeNom = "deux lignes ont le même nom"_w;
std::optional<std::string> NomDeLigne(const TableGeree& table, std::size_t ligne);

}  // namespace quelvar::text
