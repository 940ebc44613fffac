// The modality file of a recoding: the labels of the questions whose codes change follow their codes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/modfile.h"
#include "core/enquete/posfile.h"
#include "sorts/recodage/recodage.h"

namespace quelvar::sorts {

// A question with a rule, whose codes may change or which may get a copy.
struct CodesChanges {
  std::string question;    // name of its modalities in the file that is read
  std::string nouvelle;    // in the new one: the same, or that of the copy at the end
  std::vector<int> table;  // new code by old code

  bool Copie() const { return nouvelle != question; }
  bool Change() const;  // some code does not keep its value
};

// The modality file for the new generic.
struct ModalitesSuivies {
  std::vector<std::string> lignes;
  std::vector<std::string> refaites;  // questions of the new file whose labels were rebuilt
  std::vector<std::string> otees;     // names that a created question takes from another: their labels are left out
  // Modalities that may be of a changed question or of another one, and whose place tells nothing: as they were.
  std::vector<std::string> indecises;
};

// Label of the codes that become one: each label once it touches no other as a range ("15-25 ans", "26-35 ans" give
// "15-35 ans"), joined by " + ", at most 25 characters, cut where a word ends.
std::string IntituleReuni(const std::vector<std::string>& intitules);

// The rules of a .POS; one with faults is left out.
std::vector<CodesChanges> CodesChangesPar(const FichierPos& pos, const OptionsRecodage& options);

// Rewrites the lines of a .MOD: in place of the modalities of a changed question those of its new codes that an old
// code with a line becomes, supplementary when all these are; those of a copy behind the others. The names of `creees`
// (VIT) lose their lines. `pos`: the questions before the recoding.
ModalitesSuivies SuivreRecodage(const FichierMod& mod, const FichierPos& pos, const std::vector<CodesChanges>& regles,
                                const std::vector<std::string>& creees);

}  // namespace quelvar::sorts
