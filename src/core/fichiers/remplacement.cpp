#include "core/fichiers/remplacement.h"

#include "core/fichiers/provisoire.h"
#include "core/fichiers/systeme/lecture.h"

namespace quelvar {

Remplacement::Remplacement(const Chemin& repertoire, std::string_view nom, Nature nature)
    : Remplacement(CheminDEcriture(repertoire, nom), nature) {}

Remplacement::Remplacement(const Chemin& cible, Nature nature) : fichier_(new Provisoire(cible, nature)) {}

Remplacement::~Remplacement() = default;

Ecrivain& Remplacement::Fichier() { return fichier_->Fichier(); }

void Remplacement::Valider() {
  fichier_->Achever();
  fichier_->Tenir();
  if (fichier_->SaNature() == Nature::Unique) fichier_->Synchroniser();
  fichier_->Placer();
}

const Chemin& Remplacement::CheminProvisoire() const { return fichier_->Emplacement(); }

void CopierLignes(const Chemin& source, Ecrivain& copie) {
  LecteurLignes lecteur(source);
  for (std::string_view ligne; lecteur.Lire(ligne);) copie.Ligne(ligne);
}

}  // namespace quelvar
