#include "capture/apercu/octets/source.h"

#include "core/chiffres/nombres.h"

namespace quelvar::capture {

namespace {
constexpr std::string_view kFeuille = "feuille.csv";  // never takes this name: it goes with the object

std::string NumeroEtNom(const FeuilleLue& feuille, std::size_t rang) {
  return Joindre({Nombre(rang + 1), " \"", feuille.feuilles[rang], "\""});
}
}  // namespace

GenreDeSource GenreDe(const Chemin& fichier) {
  if (EstNomDeClasseur(TexteDe(fichier))) return GenreDeSource::Classeur;
  return EgalSansCasse(TexteDe(fichier.extension()), ".dbf") ? GenreDeSource::DBase : GenreDeSource::Texte;
}

SourceDeTable::SourceDeTable(const Chemin& fichier, std::string_view feuille, const Chemin& repertoire,
                             const classeur::SuiviDArchive& suivi)
    : nom_(TexteDe(fichier.filename())), texte_(fichier) {
  if (GenreDe(fichier) != GenreDeSource::Classeur) return;
  copie_ = std::make_unique<Remplacement>(repertoire, kFeuille);
  copie_->Achever();
  texte_ = copie_->CheminProvisoire();
  feuille_ = EcrireFeuilleEnCsv(fichier, feuille, texte_, suivi);
}

SourceDeTable::~SourceDeTable() = default;

LectureDetectee DetecterLecture(const SourceDeTable& source, EtendueDeLecture etendue) {
  return EnNommantLaSource(source, [&] {
    LectureDetectee detectee = DetecterLecture(source.Texte(), etendue);
    if (!source.Feuille()) return detectee;
    detectee.lecture.decimale = '.';
    detectee.lecture.sourceDeDecimale = SourceDeDecimale::Feuille;
    const FeuilleLue& feuille = *source.Feuille();
    for (const std::size_t rang : feuille.sansTable)
      detectee.doutes.push_back(Joindre(
          {"La feuille ", NumeroEtNom(feuille, rang), " est vide ou n'a qu'une ligne : elle est laissée de côté."_w}));
    return detectee;
  });
}

std::string DireLecture(const SourceDeTable& source, const Lecture& lecture) {
  if (!source.Feuille()) return DireLecture(lecture);
  const FeuilleLue& feuille = *source.Feuille();
  std::string phrase = Joindre(
      {"feuille \"", feuille.Nom(), "\" (", Nombre(feuille.rang + 1), " sur ", Nombre(feuille.feuilles.size()), ")"});
  if (lecture.sourceDeDecimale == SourceDeDecimale::Donnee)
    phrase += lecture.decimale == ',' ? Joindre({", virgule décimale"_w}) : Joindre({", point décimal"_w});
  return phrase + DireIntitules(lecture);
}

std::string DireAutresFeuilles(const SourceDeTable& source) {
  if (!source.Feuille() || source.Feuille()->feuilles.size() < 2) return {};
  return Joindre({"Autres feuilles du classeur, qui ne sont pas lues : ", AutresFeuilles(*source.Feuille()),
                  " (feuille=N en lit une autre)"});
}

std::string RefusDeFeuille(const FeuilleLue& feuille, std::string_view refus) {
  std::string phrase = Joindre({refus, " (feuille ", NumeroEtNom(feuille, feuille.rang)});
  if (feuille.feuilles.size() > 1) phrase += Joindre({" ; les autres feuilles sont : ", AutresFeuilles(feuille)});
  return phrase + ")";
}

}  // namespace quelvar::capture
