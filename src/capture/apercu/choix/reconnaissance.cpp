#include "capture/apercu/choix/reconnaissance.h"

#include "capture/apercu/choix/imc.h"
#include "capture/apercu/choix/proposition.h"
#include "capture/apercu/observation/apercu.h"
#include "core/panne/annonce.h"

namespace quelvar::capture {

namespace {

LectureDetectee LireLaLecture(const SourceDeTable& source, const LectureImposee& imposee) {
  LectureDetectee detectee = DetecterLecture(source);
  // What lies behind the head may settle the encoding and the line ends otherwise.
  if (LongueurFichier(source.Texte()) > kTete) detectee = DetecterLecture(source, EtendueDeLecture::Entier);
  if (imposee.titres) detectee.douteTitres.clear();
  detectee.doutes = detectee.DoutesDe(detectee.lecture);
  detectee.lecture = imposee.Appliquer(detectee.lecture);
  return detectee;
}

FaitsDeTable ExaminerEnMontrant(const Contexte& contexte, const SourceDeTable& source, const Lecture& lecture,
                                TraceDeCellules* trace) {
  const Dialogue& ecran = contexte.Ecran();
  const Progression affichee(ecran, static_cast<std::int64_t>(LongueurFichier(source.Texte())));
  const auto suivi = [&](std::uintmax_t octets) {
    ecran.progresser(static_cast<std::int64_t>(octets));
    return true;
  };
  return EnNommantLaSource(source, [&] { return *ExaminerTable(source.Texte(), lecture, suivi, trace); });
}

// The choices of the window: what it took over from the first rows unchanged is proposed again from the whole file.
std::vector<ChoixDeColonne> ChoixDeFenetre(const Chemin& source, const Lecture& lecture, const OptionsImport& options,
                                           const std::vector<ChoixDeColonne>& proposes) {
  std::vector<ChoixDeColonne> choix = options.choix;
  const Apercu apercu = LireApercu(source, lecture);
  if (!apercu.entier) {
    const std::vector<ChoixDeColonne> premiers = ProposerChoix(apercu.faits.colonnes);
    for (std::size_t j = 0; j < std::min({choix.size(), premiers.size(), proposes.size()}); ++j)
      if (choix[j] == premiers[j]) choix[j] = proposes[j];
  }
  return Apparier(proposes, choix).choix;
}

std::vector<ChoixDeColonne> ChoixDeFichier(const Contexte& contexte, const OptionsImport& options,
                                           const std::vector<ChoixDeColonne>& proposes,
                                           std::vector<std::string>& doutes) {
  const std::optional<Chemin> fichier = ChercherFichier(contexte.repertoire, options.fichierChoix);
  if (!fichier)
    throw Erreur(kFichierIntrouvable,
                 Joindre({kArretDuProgramme, "le fichier des choix ", options.fichierChoix, " n'existe pas"}));
  ChoixApparies apparies = Apparier(proposes, LireImc(*fichier));
  for (const std::string& titre : apparies.sansChoix)
    doutes.push_back(Joindre(
        {"la colonne ", titre, " n'est pas dans ", options.fichierChoix, ", elle devient ce qui est proposé"_w}));
  for (const std::string& titre : apparies.sansColonne)
    doutes.push_back(Joindre({"aucune colonne n'a l'intitulé "_w, titre, " de ", options.fichierChoix}));
  return std::move(apparies.choix);
}

}  // namespace

Reconnaissance Reconnaitre(const Contexte& contexte, const SourceDeTable& source, const OptionsImport& options,
                           TraceDeCellules* trace) {
  LectureDetectee detectee = LireLaLecture(source, options.lecture);
  FaitsDeTable faits = ExaminerEnMontrant(contexte, source, detectee.lecture, trace);
  Reconnaissance table{detectee.lecture, std::move(detectee.doutes), std::move(faits), {}};
  table.choix = ProposerChoix(table.faits.colonnes);
  if (!options.choix.empty()) table.choix = ChoixDeFenetre(source.Texte(), table.lecture, options, table.choix);
  else if (!options.fichierChoix.empty()) table.choix = ChoixDeFichier(contexte, options, table.choix, table.doutes);
  return table;
}

}  // namespace quelvar::capture
