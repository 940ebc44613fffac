#include "capture/apercu/apercu.h"
#include "capture/apercu/imc.h"
#include "capture/apercu/import.h"
#include "capture/apercu/options.h"
#include "capture/apercu/source.h"

namespace quelvar::capture {

namespace {
[[noreturn]] void Absent() { throw Erreur(kArgumentIncorrect); }
}  // namespace

LectureDetectee DetecterLecture(const Chemin&, Etendue) { Absent(); }
std::string_view NomEncodage(Encodage) { Absent(); }
std::string_view NomSeparateur(char) { Absent(); }
std::string_view NomDecimale(char) { Absent(); }
std::string DireLecture(const Lecture&) { Absent(); }
std::optional<FaitsDeTable> ExaminerTable(const Chemin&, const Lecture&, const Suivi&) { Absent(); }
std::optional<std::int64_t> CompterIndividus(const Chemin&, const Lecture&, const Suivi&) { Absent(); }
std::string_view NomContenu(Contenu) { Absent(); }
Apercu LireApercu(const Chemin&, const Lecture&) { Absent(); }
std::vector<ChoixDeColonne> ProposerChoix(const std::vector<FaitsDeColonne>&) { Absent(); }
ChoixDeColonne ProposerGenre(const FaitsDeColonne&, const ChoixDeColonne&, Genre) { Absent(); }
std::vector<Genre> GenresPossibles(const FaitsDeColonne&) { Absent(); }
void NommerChoix(std::vector<ChoixDeColonne>&) { Absent(); }
std::vector<std::string> RefusDesChoix(const std::vector<ChoixDeColonne>&, const std::vector<FaitsDeColonne>&) {
  Absent();
}
std::string Devenir(const ChoixDeColonne&, const FaitsDeColonne&) { Absent(); }
bool ToutEstCodes(const std::vector<ChoixDeColonne>&) { Absent(); }
std::string_view NomGenre(Genre) { Absent(); }
std::string_view LibelleGenre(Genre) { Absent(); }
std::string EcrireImc(const std::vector<ChoixDeColonne>&) { Absent(); }
std::vector<ChoixDeColonne> LireImc(const Chemin&) { Absent(); }
ChoixApparies Apparier(const std::vector<ChoixDeColonne>&, const std::vector<ChoixDeColonne>&) { Absent(); }
GenreDeSource GenreDe(const Chemin&) { Absent(); }
SourceDeTable::SourceDeTable(const Chemin&, std::string_view, const Chemin&) { Absent(); }
SourceDeTable::~SourceDeTable() = default;
Lecture LectureImposee::Appliquer(Lecture) const { Absent(); }
Fin Importer(const Contexte&, const OptionsImport&) { Absent(); }
Fin MontrerApercu(const Contexte&, const OptionsImport&) { Absent(); }
const Description<OptionsImport>& DescriptionImport() { Absent(); }
const Description<OptionsImport>& DescriptionApercu() { Absent(); }

}  // namespace quelvar::capture
