// Any dictionary with any data file: the readers end with values or with an error number, and the two ways of
// reading a field agree. Input: the bytes of the .POS, a byte FF hex, the bytes of the .DAT.
#include <cstdint>
#include <cstdlib>

#include "core/enquete/datfile.h"
#include "core/enquete/posfile.h"
#include "fuzz/support/entree.h"
#include "fuzz/support/fichier_memoire.h"

namespace {

void LireTout(std::string_view dictionnaire, std::string_view donnees) {
  const fuzz::FichierMemoire pos(dictionnaire);
  const fuzz::FichierMemoire dat(donnees);
  const quelvar::FichierPos lu = quelvar::LirePos(pos.Chemin());
  const auto champs = quelvar::ChampsDe(lu);
  if (champs.size() != lu.questions.size()) std::abort();
  if (quelvar::LongueurUtile(champs) > 40000) std::abort();  // a position is a 16-bit number

  quelvar::LecteurIndividus lecteur(dat.Chemin(), quelvar::LongueurUtile(champs));
  std::int64_t individus = 0;
  while (const char* ligne = lecteur.Lire()) {
    ++individus;
    for (const quelvar::Champ champ : champs) {
      const std::string_view octets = quelvar::Milieu(lecteur.Ligne(), champ.debut + std::size_t{1}, champ.largeur);
      if (quelvar::LireChampInterieur(ligne, champ) != quelvar::ConvertirChamp(octets, champ)) std::abort();
    }
  }
  if (individus != quelvar::CompterLignes(dat.Chemin())) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  fuzz::Entree entree(donnees, taille, 0);
  const std::string_view pos = entree.Suivant();
  try {
    LireTout(pos, entree.Reste());
  } catch (const quelvar::Erreur& erreur) {
    if (quelvar::TexteErreur(erreur.Numero()).empty()) std::abort();
  }
  return 0;
}
