// Whether the files of an analysis belong together: a table .BRT or a logical coding .CDG and the .MOD that names its
// columns; and what a run demands of line 2 of the .POS. What a reader would take for other figures than they are stops
// the run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/enquete/posfile.h"
#include "core/programme/dialogue.h"
#include "core/programme/rapport.h"

namespace quelvar {

// Follows the rows of a rectangular table as they are read.
class ControleDeTable {
 public:
  // The path must outlive it; `colonnes` are the modalities of the .MOD.
  ControleDeTable(const Chemin& brt, const ParametresMod& parametres, std::size_t colonnes);
  // The next row.
  void Voir(std::string_view texte);
  // All rows were seen; raises a sentence (kIncompatibiliteType) when every one is too short for its cells, when every
  // one goes on with a number and the .MOD has another count of columns than it announces, or when the last one has no
  // line end and stops inside a cell.
  void Conclure() const;
  // Rows seen.
  std::int64_t Lignes() const { return lignes_; }

 private:
  const Chemin& brt_;
  std::size_t largeur_;
  std::size_t longueur_;  // of a row up to its last cell
  bool autreNombre_;      // the .MOD announces another count of columns
  std::int64_t lignes_ = 0;
  bool toutesCourtes_ = true;
  bool toutesLongues_ = true;
  bool entamee_ = false;  // the last row stops inside a cell
};

// Reads the whole table and raises a sentence (kIncompatibiliteType) when it is not that of the .MOD: rows with other
// names, another width, too few of them, or a .MOD whose modalities are not as many as it announces. For readers that
// look at nothing of this on their way. Raises the failures of LecteurLignes.
void ExigerTableDuMod(const Chemin& brt, const FichierMod& mod, const ParametresMod& parametres);
// Of that, what the shape of the rows tells.
void ExigerFormeDuMod(const Chemin& brt, const FichierMod& mod, const ParametresMod& parametres);

// Reads the whole logical coding and raises a sentence (kIncompatibiliteType) when it is not that of the .MOD: lines
// that have fewer or more digits than there are modalities, other individuals than the .MOD counts, or a .MOD whose
// modalities are not as many as it announces. Single short lines pass. Raises the failures of LecteurLignes.
void ExigerCdgDuMod(const Chemin& cdg, const FichierMod& mod, const ParametresMod& parametres);

// The message on the parentheses of line 2 of a .POS.
std::string_view MessageParentheses();
// Shows that message and stops the run (kArretAnnonce) when the size line has it coming. Its one place of telling: the
// programs that demand it all do just this once they have read the .POS, a box and no line of the report.
void ExigerParentheses(const LigneTaille& taille, const Dialogue& dialogue);

// The rank of the question of that name, which a run was asked for. Tells a name that no question has, or that several
// share, in a line with a beep, and stops the run (kArretAnnonce).
std::size_t ExigerQuestion(Rapport& rapport, const Dialogue& ecran, const FichierPos& pos, std::string_view nom);

}  // namespace quelvar
