#include "forms/services/brouillon.h"

#include <utility>

#include "forms/services/sauvegarde.h"

namespace quelvar::forms {

Brouillon::Brouillon(const Contexte& contexte, std::string_view extension, std::string prepare)
    : chemin_(CheminDEcriture(contexte.repertoire, contexte.Nom(extension))),
      nom_(contexte.Nom(extension)),
      etat_{.prepare = std::move(prepare)} {}

std::optional<std::string> Brouillon::Fichier() const {
  std::error_code absent;
  return std::filesystem::exists(chemin_, absent) ? std::optional(LireOctets(chemin_)) : std::nullopt;
}

bool Brouillon::Continuer(Lanceur& lanceur, const Programme& programme) {
  avant_.reset();  // what a former launch has written stays, also when this one does not begin
  const bool fait = lanceur.Lancer([&](const Contexte& contexte) {
    Poser();
    programme(contexte);
  });
  if (!fait) Reprendre();
  return fait;
}

void Brouillon::Poser() {
  avant_.reset();
  const Etat pose = std::exchange(etat_, {.commence = true});
  if (!pose.prepare && pose.ajouts.empty()) return;
  avant_ = Avant{pose, Fichier()};
  RemplacerFichier(chemin_, pose.prepare.value_or(avant_->fichier.value_or("")) + pose.ajouts, Nature::Refaisable);
}

void Brouillon::Reprendre() {
  if (!avant_) return;
  if (avant_->fichier) RemplacerFichier(chemin_, *avant_->fichier, Nature::Refaisable);
  else EffacerFichier(chemin_);
  etat_ = std::move(avant_->etat);
  avant_.reset();
}

void Brouillon::Montrer(const Contexte& contexte) const {
  if (!etat_.prepare && etat_.ajouts.empty()) return MontrerRapport(contexte, nom_);
  const std::string debut = etat_.prepare ? *etat_.prepare : Fichier().value_or("");
  contexte.Ecran().afficher({Affichage::Ou::Texte, debut + etat_.ajouts, nom_, {}, {}});
}

}  // namespace quelvar::forms
