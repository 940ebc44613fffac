#include "core/programme/ancienrapport.h"

namespace quelvar {

AncienRapport::AncienRapport(const Contexte& contexte, std::string_view extension)
    : chemin_(CheminDEcriture(contexte.repertoire, contexte.Nom(extension))) {
  if (contexte.Chercher(extension)) octets_ = LireOctets(chemin_);
}

void AncienRapport::Remettre() const {
  if (!octets_) return EffacerFichier(chemin_);
  Remplacement fichier(chemin_);
  fichier.Fichier().Ecrire(*octets_);
  fichier.Valider();
}

}  // namespace quelvar
