#include "forms/pieces/brouillon.h"

#include <utility>

namespace quelvar::forms {

namespace {

void Ecrire(const Chemin& chemin, std::string_view octets) {
  Remplacement fichier(chemin);
  fichier.Fichier().Ecrire(octets);
  fichier.Valider();
}

}  // namespace

Brouillon::Brouillon(const Contexte& contexte, std::string_view extension)
    : chemin_(CheminDEcriture(contexte.repertoire, contexte.Nom(extension))), nom_(contexte.Nom(extension)) {
  if (contexte.Chercher(extension)) ancien_ = LireOctets(chemin_);
}

void Brouillon::Retirer() {
  prepare_ = LireOctets(chemin_);
  if (ancien_) Ecrire(chemin_, *ancien_);
  else EffacerFichier(chemin_);
}

void Brouillon::Poser() {
  if (prepare_) Ecrire(chemin_, *std::exchange(prepare_, std::nullopt));
}

void Brouillon::Montrer(const Contexte& contexte) const {
  if (!prepare_) MontrerRapport(contexte, nom_);
  else contexte.Ecran().afficher({Affichage::Ou::Texte, *prepare_, nom_, {}, {}});
}

}  // namespace quelvar::forms
