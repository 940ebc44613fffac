#include "capture/apercu/source.h"

#include "capture/classeur/classeur.h"

namespace quelvar::capture {

GenreDeSource GenreDe(const Chemin& fichier) {
  if (EstNomDeClasseur(TexteDe(fichier.filename()))) return GenreDeSource::Classeur;
  return EgalSansCasse(TexteDe(fichier.extension()), ".dbf") ? GenreDeSource::DBase : GenreDeSource::Texte;
}

SourceDeTable::SourceDeTable(const Chemin& fichier, std::string_view feuille, const Chemin& repertoire)
    : texte_(fichier) {
  if (GenreDe(fichier) != GenreDeSource::Classeur) return;
  feuille_ = std::make_unique<Remplacement>(repertoire, "quelvar-feuille.csv");
  feuille_->Achever();
  texte_ = feuille_->CheminProvisoire();
  EcrireFeuilleEnCsv(fichier, feuille, texte_);
}

SourceDeTable::~SourceDeTable() = default;

}  // namespace quelvar::capture
