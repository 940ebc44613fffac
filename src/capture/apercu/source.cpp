#include "capture/apercu/source.h"

#include "core/programme/erreur.h"

namespace quelvar::capture {

GenreDeSource GenreDe(const Chemin& fichier) {
  const std::string extension = Minuscules(TexteDe(fichier.extension()));
  if (extension == ".ods" || extension == ".xlsx") return GenreDeSource::Classeur;
  return extension == ".dbf" ? GenreDeSource::DBase : GenreDeSource::Texte;
}

SourceDeTable::SourceDeTable(const Chemin& fichier, std::string_view, const Chemin&) : texte_(fichier) {
  if (GenreDe(fichier) == GenreDeSource::Classeur)
    throw Erreur(kIncompatibiliteType,
                 Joindre({"*** Arrêt du programme : enregistrez la feuille de "_w, TexteDe(fichier.filename()),
                          " en .csv pour l'importer"}));
}

SourceDeTable::~SourceDeTable() {
  if (!copie_) return;
  std::error_code inconnu;
  std::filesystem::remove(texte_, inconnu);
}

}  // namespace quelvar::capture
