#include "capture/apercu/travail.h"

#include <algorithm>

#include "capture/apercu/choix/proposition.h"
#include "capture/apercu/observation/apercu.h"
#include "capture/apercu/sorties/direct.h"
#include "capture/colonnes/colonne.h"
#include "core/chiffres/nombres.h"

namespace quelvar::capture {

namespace {

constexpr std::string_view kTrace = "cellules";  // of a file that has no name in the end
constexpr std::int64_t kPremiers = 5000;         // individuals whose codes tell the widths of all

// The facts that the reading has found in the place of those of the first rows.
FaitsDeTable FaitsDuPassage(FaitsDeTable faits, const PassageDirect& passage) {
  faits.individus = passage.individus;
  for (std::size_t j = 0; j < faits.colonnes.size(); ++j) {
    FaitsDeColonne& colonne = faits.colonnes[j];
    if (colonne.contenu == Contenu::Vide) continue;
    if (j == 0 && passage.dernierNumero > 0) {
      colonne.maximum = static_cast<double>(passage.dernierNumero);
      colonne.largeur = colonne.largeurNombre = Nombre(passage.dernierNumero).size();
      colonne.differentes = colonne.remplies = passage.individus;
      continue;
    }
    colonne.maximum = passage.maxima[j];
    const bool numero = j == 0 && (colonne.intitule == kTitreNumero || passage.maxima[j] == passage.individus);
    colonne.contenu = numero ? Contenu::Numero : Contenu::Codes;
  }
  return faits;
}

bool TientPromesse(const PlanDImport& plan, const Promesse& promesse) {
  for (std::size_t j = 0; j < plan.lues.size(); ++j) {
    const ColonneLue& lue = plan.lues[j];
    const std::size_t largeur = lue.nombre == 0 ? 0 : plan.colonnes[lue.premiere].largeur;
    if (lue.nombre > 1 || largeur != promesse.largeurs[j]) return false;
  }
  return true;
}

bool SansAutreChoix(const OptionsImport& options, const Apercu& apercu) {
  if (!options.fichierChoix.empty()) return false;
  return options.choix.empty() || options.choix == ProposerChoix(apercu.faits.colonnes);
}

// True when the table was codes from its first row to its last.
bool TravaillerDirect(const Contexte& contexte, const SourceDeTable& source, const OptionsImport& options,
                      TravailDImport& travail) {
  LectureDetectee detectee = DetecterLecture(source);
  if (options.lecture.titres) detectee.douteTitres.clear();
  const Lecture lecture = options.lecture.Appliquer(detectee.lecture);
  const Apercu vue = EnNommantLaSource(source, [&] { return LireApercu(source.Texte(), lecture); });
  if (!SansAutreChoix(options, vue)) return false;
  const Apercu apercu = LireApercu(source.Texte(), lecture, kPremiers);
  const std::optional<Promesse> promesse = PromesseDe(apercu, source.Texte());
  if (!promesse || lecture.crSeuls || AvecCrSeuls(source.Texte())) return false;
  travail.sorties = std::make_unique<SortiesDImport>(contexte, false);
  // A code of one digit and a sign behind it, in every column: about the individuals that the file has.
  constexpr std::size_t kOctetsDeCode = 2;
  const std::uintmax_t environ = apercu.octets / (kOctetsDeCode * std::max<std::size_t>(promesse->largeurs.size(), 1));
  Progression progression(contexte.Ecran(), static_cast<std::int64_t>(environ));
  Ecrivain& dat = travail.sorties->jeu.Ouvrir(contexte.Nom(".DAT"), Nature::Refaisable);
  const std::optional<PassageDirect> passage =
      EcrireDirect(source.Texte(), lecture, *promesse, dat, [&] { progression.Avancer(); });
  if (!passage || passage->individus == 0) return false;
  travail.table = {lecture, detectee.DoutesDe(lecture), FaitsDuPassage(apercu.faits, *passage), {}};
  travail.table.choix = ProposerChoix(travail.table.faits.colonnes);
  travail.plan = DresserPlan(travail.table.choix, travail.table.faits, source.Texte(), lecture);
  travail.bilan.individus = passage->individus;
  travail.bilan.premieres = passage->premieres;
  travail.bilan.effectifs.resize(travail.plan.colonnes.size());
  return TientPromesse(travail.plan, *promesse);
}

// True when what the first reading has kept of the cells was enough; else nothing is left of it.
bool TravaillerSelonTrace(const Contexte& contexte, const TraceDeCellules& trace, TravailDImport& travail) {
  travail.sorties = std::make_unique<SortiesDImport>(contexte, false);
  Progression progression(contexte.Ecran(), travail.table.faits.individus);
  Ecrivain& dat = travail.sorties->jeu.Ouvrir(contexte.Nom(".DAT"), Nature::Refaisable);
  std::optional<Bilan> bilan =
      EcrireSelonTrace(trace, travail.plan, travail.table.faits.individus, dat, [&] { progression.Avancer(); });
  if (!bilan) {
    travail.sorties.reset();
    return false;
  }
  travail.bilan = *std::move(bilan);
  return true;
}

}  // namespace

SortiesDImport::SortiesDImport(const Contexte& contexte, bool avecNombres)
    : jeu(contexte.repertoire, contexte.generique),
      nombres(avecNombres ? GeneriqueTenu(contexte.repertoire, contexte.Nom("N"), contexte.Nom("N"))
                          : GeneriqueTenu()) {}

TravailDImport Travailler(const Contexte& contexte, const SourceDeTable& source, const OptionsImport& options,
                          const std::function<void(const Reconnaissance&, const PlanDImport&)>& accepter) {
  TravailDImport travail;
  if (TravaillerDirect(contexte, source, options, travail)) {
    accepter(travail.table, travail.plan);
    return travail;
  }
  travail = {};  // what was written goes with its set
  TraceDeCellules trace(CheminDEcriture(contexte.repertoire, kTrace));
  travail.table = Reconnaitre(contexte, source, options, &trace);
  travail.plan = Situer(
      [&] { return Lieu{source.Nom()}; },
      [&] { return DresserPlan(travail.table.choix, travail.table.faits, source.Texte(), travail.table.lecture); });
  accepter(travail.table, travail.plan);
  if (TravaillerSelonTrace(contexte, trace, travail)) return travail;
  travail.sorties = std::make_unique<SortiesDImport>(contexte, !travail.plan.nombres.empty());
  JeuDeFichiers& jeu = travail.sorties->jeu;
  SortiesDeTable fichiers;
  fichiers.dat = &jeu.Ouvrir(contexte.Nom(".DAT"), Nature::Refaisable);
  if (!travail.plan.longues.empty()) fichiers.txt = &jeu.Ouvrir(contexte.Nom(".TXT"), Nature::Refaisable);
  if (!travail.plan.nombres.empty()) fichiers.cdg = &jeu.Ouvrir(contexte.Nom("N.CDG"), Nature::Refaisable);
  Progression progression(contexte.Ecran(), travail.table.faits.individus);
  travail.bilan = EcrireTable(source.Texte(), travail.table.lecture, travail.plan, travail.table.faits.individus,
                              fichiers, [&] { progression.Avancer(); });
  return travail;
}

}  // namespace quelvar::capture
