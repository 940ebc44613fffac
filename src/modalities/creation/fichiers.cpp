#include "modalities/creation/fichiers.h"

#include "core/chiffres/nombres.h"
#include "core/enquete/brtfile.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/parametres.h"

namespace quelvar::modalities {

int LargeurDeCellule(const TableBurt& burt) { return LargeurDeTable(burt.PlusGrandEffectif()); }

void EcrireTableBurt(Ecrivain& fichier, const std::vector<ModaliteCreee>& modalites, const TableBurt& burt,
                     int largeur) {
  std::vector<std::int64_t> effectifs(modalites.size());
  for (std::size_t i = 0; i < modalites.size(); ++i) {
    burt.Ligne(i, effectifs);
    EcrireLigneBrt(fichier, modalites[i].nom, effectifs, largeur);
  }
}

void EcrireIndividus(Ecrivain& fichier, const Chemin& codageLogique, std::size_t modalites, int largeur) {
  const auto w = static_cast<std::size_t>(largeur);
  LecteurLignes lecteur(codageLogique);
  std::string cellules(modalites * w, ' ');
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    for (std::size_t j = 0; j < modalites; ++j) cellules[j * w + w - 1] = ligne[kLargeurDeModalite + j];
    fichier.Ecrire(ligne.substr(0, kLargeurDeModalite));
    fichier.Ecrire(cellules);
    fichier.Ligne(ligne.substr(kLargeurDeModalite + modalites));
  }
}

std::string ParametresDeLaTable(std::size_t modalites, std::int64_t individus, int largeur) {
  const auto colonnes = static_cast<std::int64_t>(modalites);
  if (individus < 0) return LigneDeParametres({{"BRT=", colonnes}, {"FMT=", largeur}});
  return LigneDeParametres(
      {{"BRT=", 1}, {"LIGN=", colonnes + individus}, {"LSUP=", individus}, {"COL=", colonnes}, {"FMT=", largeur}});
}

void EcrireMod(Ecrivain& fichier, const std::string& titre, const std::string& parametres,
               const std::vector<ModaliteCreee>& modalites, const std::vector<AncienneModalite>* anciennes) {
  fichier.Ligne(titre);
  fichier.Ligne(parametres);
  for (const ModaliteCreee& modalite : modalites) {
    fichier.Ecrire(modalite.nom);
    fichier.Ecrire(modalite.marque);
    fichier.Ligne(modalite.intitule);
  }
  if (anciennes == nullptr) return;
  fichier.Ligne(kFinDeListe);
  for (const AncienneModalite& ancienne : *anciennes)
    if (!ancienne.reprise) fichier.Ligne(ancienne.ligne);
}

void EcrirePosMarque(Ecrivain& fichier, const FichierPos& pos, const ChoixQuestions& choix) {
  for (std::size_t i = 0; i < pos.lignes.size(); ++i) {
    const bool question = i >= 2 && i < pos.premiereApres;
    fichier.Ligne(question ? LigneAvecMarque(pos.lignes[i], choix.statuts[i - 2]) : pos.lignes[i]);
  }
}

}  // namespace quelvar::modalities
