#include "capture/apercu/source.h"

#include "capture/classeur/classeur.h"

namespace quelvar::capture {

namespace {
constexpr std::string_view kFeuille = "feuille.csv";  // never takes this name: it goes with the object
}

GenreDeSource GenreDe(const Chemin& fichier) {
  if (EstNomDeClasseur(TexteDe(fichier))) return GenreDeSource::Classeur;
  return EgalSansCasse(TexteDe(fichier.extension()), ".dbf") ? GenreDeSource::DBase : GenreDeSource::Texte;
}

SourceDeTable::SourceDeTable(const Chemin& fichier, std::string_view feuille, const Chemin& repertoire,
                             const std::function<void(std::int64_t)>& suivi)
    : texte_(fichier) {
  if (GenreDe(fichier) != GenreDeSource::Classeur) return;
  copie_ = std::make_unique<Remplacement>(repertoire, kFeuille);
  copie_->Achever();
  texte_ = copie_->CheminProvisoire();
  EcrireFeuilleEnCsv(fichier, feuille, texte_, suivi);
}

SourceDeTable::~SourceDeTable() = default;

LectureDetectee DetecterLecture(const SourceDeTable& source, Etendue etendue) {
  LectureDetectee detectee = DetecterLecture(source.Texte(), etendue);
  if (source.EstCopie()) {
    detectee.lecture.decimale = '.';
    detectee.lecture.sourceDeDecimale = SourceDeDecimale::Feuille;
  }
  return detectee;
}

}  // namespace quelvar::capture
