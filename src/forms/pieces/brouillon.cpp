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
  if (std::error_code absent; !std::filesystem::exists(chemin_, absent)) return;
  prepare_ = LireOctets(chemin_);
  RemettreLAncien();
}

void Brouillon::RemettreLAncien() const {
  if (ancien_) Ecrire(chemin_, *ancien_);
  else EffacerFichier(chemin_);
}

void Brouillon::Poser() {
  pose_ = std::exchange(prepare_, std::nullopt);
  if (pose_) Ecrire(chemin_, *pose_);
}

void Brouillon::Reprendre() {
  if (!pose_) return;
  prepare_ = std::exchange(pose_, std::nullopt);
  RemettreLAncien();
}

void Brouillon::Montrer(const Contexte& contexte) const {
  if (!prepare_) MontrerRapport(contexte, nom_);
  else contexte.Ecran().afficher({Affichage::Ou::Texte, *prepare_, nom_, {}, {}});
}

}  // namespace quelvar::forms
