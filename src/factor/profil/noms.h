// The names that a profile asks for: the chosen modalities in the list, and the questions and codes of all of them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "core/enquete/modfile.h"
#include "core/enquete/nomdemodalite.h"
#include "core/enquete/posfile.h"
#include "core/panne/erreur.h"

namespace quelvar::factor {

struct ModalitesChoisies {
  std::vector<std::size_t> rangs = {};   // in the list
  std::vector<std::string> fautes = {};  // lines on the names that are not there
  bool sansIntitule = false;             // one of them has no label
};
// `choix` is the value of "MOD="; empty for none.
ModalitesChoisies TrouverChoisies(const std::vector<Modalite>& modalites, const std::string& choix);

struct CodesDesModalites {
  std::vector<CodeDeModalite> codes;  // of each modality, whole without faults
  std::vector<std::string> fautes;    // lines on the names that stand for no code
  std::string homonymes = {};         // why the search was given up: two questions have one name
  Lieu ou = {};                       // of them in the .POS, or of the first fault in the .MOD, without its name
};
CodesDesModalites TrouverCodes(const std::vector<Modalite>& modalites, const FichierPos& pos);

}  // namespace quelvar::factor
