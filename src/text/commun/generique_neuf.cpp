#include "text/commun/generique_neuf.h"

#include "core/session/generique.h"

namespace quelvar::text {

namespace {

constexpr int kEssaisAuPlus = 100;

bool Existe(const Contexte& contexte, const std::string& generique) {
  for (const std::string_view extension : {".TXT", ".DAT", ".POS", ".MOD", ".BRT"})
    if (ChercherFichier(contexte.repertoire, generique + std::string(extension))) return true;
  return false;
}

// The next generic that has no file; the plain next one when there is none.
std::string GeneriqueLibre(const Contexte& contexte) {
  std::string libre = GeneriqueSuivant(contexte.generique);
  for (int essai = 0; essai < kEssaisAuPlus; ++essai) {
    if (!Existe(contexte, libre)) return libre;
    libre = GeneriqueSuivant(libre);
  }
  return contexte.generique + "A";
}

}  // namespace

std::string ChoisirGeneriqueNeuf(const Contexte& contexte) {
  const std::string suivant = GeneriqueSuivant(contexte.generique);
  if (suivant.empty() || !Existe(contexte, suivant)) return suivant;
  const std::string saisi = contexte.Ecran().saisir(
      Joindre({"Le générique "_w, suivant, " existe déjà : donnez le nom du nouveau générique"_w}),
      GeneriqueLibre(contexte));
  std::string nom(Rogner(std::string_view(saisi).substr(0, saisi.find('.'))));
  if (nom.find_first_of("/\\") != std::string::npos || EgalSansCasse(nom, contexte.generique)) return {};
  if (nom.empty() || !Existe(contexte, nom)) return nom;
  const Reponse reponse = contexte.Ecran().demander(
      Joindre({"Les fichiers du générique "_w, nom, " vont être remplacés. L'acceptez-vous ?"_w}), Boutons::OuiNon);
  return reponse == Reponse::Oui ? nom : std::string();
}

void EcrireChangement(Rapport& rapport, const Contexte& contexte, std::string_view nouveau) {
  rapport.Ligne("*** Attention, changement de nom générique ***"_w);
  rapport.Ligne({"    L'ancien générique était : "_w, contexte.generique});
  rapport.Ligne({"    le nouveau est désormais : "_w, nouveau});
}

}  // namespace quelvar::text
