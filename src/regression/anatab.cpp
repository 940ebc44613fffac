#include "regression/anatab.h"

#include <optional>
#include <utility>

#include "core/chiffres/nombres.h"
#include "core/dessin/svg.h"
#include "core/enquete/coherence.h"
#include "core/enquete/modfile.h"
#include "core/panne/annonce.h"
#include "core/panne/attention.h"
#include "core/programme/alerte.h"
#include "core/programme/arret.h"
#include "core/programme/place.h"
#include "core/programme/refus.h"
#include "core/texte/listes.h"
#include "regression/anatab/edition.h"
#include "regression/anatab/editiondeseffets.h"
#include "regression/anatab/travail.h"
#include "regression/donnees/exigences.h"
#include "regression/images/effets.h"
#include "regression/logistique/edition.h"
#include "regression/logistique/logistique.h"

namespace quelvar::regression {

namespace {

constexpr std::string_view kSorte = "codage logique";  // what the .CDG holds
constexpr double kPopulationSuffisante = 50;           // percent
// What the progress display shows: percent of a run up to the fit, at the end of each of its parts.
constexpr std::int64_t kProgressionMax = 100;
constexpr std::int64_t kBaseComptee = 20;
constexpr std::int64_t kGroupesFormes = 40;
constexpr std::int64_t kSituationsExaminees = 60;
constexpr std::int64_t kEffetsTrouves = 80;

TravailDAnatab PreparerLeModele(const Contexte& contexte, Rapport& rapport, const Chemin& chemin) {
  const FichierMod mod = LireMod(chemin);
  const std::string nom = TexteDe(chemin.filename());
  const ParametresMod parametres = LireParametres(mod.parametres, nom);
  ExigerFormat(rapport, parametres, nom);
  std::vector<ModaliteCodee> codage = LireCodage(mod.modalites);
  std::vector<QuestionCodee> questions = QuestionsDe(codage);
  FautesDuCodage fautes = FautesDeCodage(codage, questions, contexte.Nom(".MOD"));
  rapport.Lignes(fautes.lignes);
  if (!fautes.lignes.empty())
    Arreter(rapport, "*** Arrêt du programme dû aux erreurs mentionnées"_w, std::move(fautes.premiere));
  TravailDAnatab travail(ConstruireModele(std::move(codage), std::move(questions)));
  travail.parametres = parametres;
  return travail;
}

// A coding that is too short is told individual by individual. What stands behind the digits, and a number of
// individuals that is not the one announced, only tell that it is the coding of other modalities.
void PrendreLesReponses(const Contexte& contexte, Rapport& rapport, const EntreesDeRegression& fichiers,
                        TravailDAnatab& travail) {
  LireIndividus(*fichiers.donnees, travail.modele, contexte.Ecran(), travail.individus);
  const Individus& individus = travail.individus;
  if (individus.fautifs.nombre == 0 && individus.Nombre() > 0)
    ExigerCdgDuMod(*fichiers.donnees, LireMod(*fichiers.mod), travail.parametres);
  travail.etape = Etape::Lecture;
  ExigerSansFautifs(rapport, individus.fautifs, "n'a pas une réponse à chaque question"_w);
  if (individus.Nombre() == 0)
    Arreter(rapport, Joindre({"*** Le fichier ", contexte.Nom(".CDG"), " est vide. Arrêt du programme"_w}));
  rapport.Ligne({"Nombre d'individus =", NombreNu(individus.Nombre())});
}

// Figures that the order of the records has made false never stand without a word.
void PrevenirDuMelange(const Contexte& contexte, Rapport& rapport, const TravailDAnatab& travail, double population) {
  if (!travail.melange) return;
  const Melange& melange = *travail.melange;
  const std::size_t aMarquer = travail.modele.LargeurFiche() - travail.modele.Explicatives();
  const auto perdus = static_cast<double>(melange.population) - population;
  const std::vector<std::string> lignes = {
      Joindre({kAttention, "avec "_w, Nombre(travail.modele.Explicatives()),
               " modalités explicatives, le tri ne distingue plus toutes les situations"_w}),
      Joindre({"    Les "_w, Nombre(melange.situations), " situations des individus sont en "_w,
               Nombre(melange.morceaux), " morceaux, ", Nombre(melange.inversees), " à l'envers, "_w, Nombre(perdus),
               " individus manquent à la population concernée : les effets sont faussés"_w}),
      Joindre({"    Regrouper des modalités par un recodage ("_w, Nombre(kChiffresExacts - aMarquer),
               " modalités explicatives au plus sont sans risque)"_w})};
  rapport.Lignes(lignes);
  AlerterEnBoite(contexte.Ecran(), Joindre({lignes[0], "\r\n", lignes[1], "\r\n", lignes[2]}));
}

// Modalities whose labels begin alike are one to the tabular analysis: whoever runs it is told which.
void PrevenirDesConfusions(const Contexte& contexte, const Modele& modele) {
  const std::vector<CelluleDeSituation> cellules = CellulesDe(modele);
  std::string confondues;
  for (std::size_t k = 0; k < modele.Explicatives(); ++k) {
    if (cellules[k].designee != k) continue;
    std::vector<std::string_view> memes;
    for (std::size_t j = 0; j <= k; ++j)
      if (cellules[j].designee == k) memes.push_back(modele.Explicative(j).intitule);
    if (memes.size() > 1) confondues += Joindre({"\r\n    ", Enumerer(memes)});
  }
  if (confondues.empty()) return;
  AlerterEnBoite(
      contexte.Ecran(),
      Joindre(
          {kAttention,
           "ces modalités ont les mêmes 4 premiers caractères d'intitulé et sont confondues, leurs "
           "effets et ceux des autres questions en dépendent : donnez-leur d'autres intitulés par l'étape de modification"_w,
           confondues}));
}

// Two runs of one name are two questions to the tabular analysis, and one where the logistic part compares names.
void RefuserLesHomonymes(const Contexte& contexte, Rapport& rapport, const Modele& modele) {
  std::vector<std::string> noms;
  for (std::size_t i = 0; i < modele.questions.size(); ++i) {
    const std::string& nom = modele.questions[i].nom;
    const auto meme = [&nom](const QuestionCodee& question) { return question.nom == nom; };
    const auto fin = modele.questions.begin() + static_cast<std::ptrdiff_t>(i);
    if (std::count_if(modele.questions.begin(), fin, meme) == 1) noms.push_back(nom);
  }
  if (noms.empty()) return;
  AvertirEtArreter(rapport, contexte.Ecran(),
                   Joindre({kArretDuProgramme, "plusieurs questions portent le même nom, renommez leurs modalités ("_w,
                            Enumerer(noms), ")"}));
}

void FormerLesGroupes(const Contexte& contexte, Rapport& rapport, const Chemin& codageLogique,
                      TravailDAnatab& travail) {
  travail.triees = Situer([&] { return Lieu{TexteDe(codageLogique.filename())}; },
                          [&] { return TrierFiches(travail.individus, contexte.Ecran()); });
  travail.etape = Etape::Tri;
  travail.comptees = CompterVoisines(travail.triees);
  double possibles = 2;
  for (const QuestionCodee& question : travail.modele.explicantes) possibles *= static_cast<double>(question.nombre);
  travail.melange = MelangeDesFiches(travail.individus, travail.comptees, possibles);
  if (possibles == static_cast<double>(travail.comptees.size())) {
    rapport.Ligne("Tous les sous-effets possibles sont attestés"_w);
    return;
  }
  rapport.Ligne("Tous les sous-effets possibles ne sont pas attestés"_w);
  std::vector<Comptee> paires = GarderLesPaires(travail.comptees, travail.individus.fiches);
  if (paires.empty()) {
    travail.etape = Etape::SansPaire;
    PrevenirDuMelange(contexte, rapport, travail, 0);
    Arreter(rapport, "Aucun sous-effet n'est calculable. Arrêt du programme"_w);
  }
  travail.comptees = std::move(paires);
  travail.filtrees = true;
}

void ExaminerLesSituations(const Contexte& contexte, Rapport& rapport, TravailDAnatab& travail) {
  travail.analyse.cellules = CellulesDe(travail.modele);
  travail.analyse.table = FormerSituations(travail.comptees, travail.individus.fiches, travail.modele);
  travail.etape = Etape::Situations;
  AnalyseTabulaire& analyse = travail.analyse;
  analyse.examinees = ExaminerSituations(analyse.table, travail.base.individus, travail.base.nombreOui);
  ImprimerSituations(rapport, analyse);
  if (analyse.examinees < analyse.table.situations.size()) throw Erreur(kDivisionParZero);
  const double population = travail.analyse.table.Population();
  const double part = 100 * population / travail.base.individus;
  ImprimerPopulation(rapport, population, part);
  PrevenirDuMelange(contexte, rapport, travail, population);
  if (part < kPopulationSuffisante &&
      contexte.Ecran().demander("La population concernée est inférieure à 50%\nSouhaitez-vous continuer ?"_w,
                                Boutons::OuiNon) != Reponse::Oui)
    throw Erreur(kArretAnnonce);
}

void ChercherLesEffets(Rapport& rapport, TravailDAnatab& travail) {
  AnalyseTabulaire& analyse = travail.analyse;
  analyse.voisinages = VoisinagesDe(analyse.table, analyse.cellules);
  travail.etape = Etape::SousEffets;
  analyse.mesure = travail.MesureDemandee();
  analyse.effets = CalculerEffets(analyse.table, analyse.cellules, analyse.voisinages, analyse.mesure);
  ImprimerTitreParametres(rapport, travail.modele, analyse.mesure);
  const std::optional<std::size_t> reference = SituationDeReference(analyse.table, analyse.cellules);
  if (!reference) {
    rapport.Ligne("*** La situation de référence n'est attestée par aucun individu"_w);
    rapport.Ligne("    Au vu des résultats précédents prendre une situation attestée"_w);
    Arreter(rapport, "    Arrêt du programme"_w);
  }
  analyse.reference = *reference;
  const Situation& situation = analyse.Reference();
  analyse.khi2Reference =
      KhiCellule(travail.base.individus, travail.base.nombreOui, situation.effectif, situation.OuiConserve());
  ImprimerReference(rapport, analyse);
  ImprimerEffets(rapport, analyse, travail.modele, travail.TableauxDemandes());
  ImprimerResume(rapport, analyse, travail.modele);
}

ModeleAjuste Analyser(const Contexte& contexte, Rapport& rapport, const EntreesDeRegression& fichiers,
                      TravailDAnatab& travail) {
  const Dialogue& ecran = contexte.Ecran();
  ecran.montrerProgression(kProgressionMax);
  ImprimerModele(rapport, travail.modele);
  RefuserLesHomonymes(contexte, rapport, travail.modele);
  PrevenirDesConfusions(contexte, travail.modele);
  PrendreLesReponses(contexte, rapport, fichiers, travail);
  travail.base = CompterLaBase(travail.individus, travail.modele);
  ImprimerDonneesDeBase(rapport, travail.modele, travail.base);
  ecran.progresser(kBaseComptee);
  FormerLesGroupes(contexte, rapport, *fichiers.donnees, travail);
  ecran.progresser(kGroupesFormes);
  ExaminerLesSituations(contexte, rapport, travail);
  ecran.progresser(kSituationsExaminees);
  ChercherLesEffets(rapport, travail);
  ecran.progresser(kEffetsTrouves);
  return AjusterLesModeles(contexte, rapport, travail);
}

// One line for each explanatory modality. Odds-ratios are no points: the tabular effects are then left out.
ImageDesEffets ImageDe(const TravailDAnatab& travail, const ModeleAjuste& logistique) {
  ImageDesEffets image{travail.modele.titre, {}};
  std::vector<LigneDEffet>& lignes = image.lignes;
  for (std::size_t k = 0; k < travail.modele.Explicatives(); ++k) {
    const ModaliteCodee& modalite = travail.modele.Explicative(k);
    LigneDEffet ligne{modalite.intitule, modalite.reference, {}, 0, {}, false};
    ligne.nouvelleQuestion = k > 0 && travail.modele.Explicative(k - 1).Question() != modalite.Question();
    if (!modalite.reference && EstEstimee(travail, k))
      ligne.logistique = EffetEnPoints(logistique, logistique.betas[k]);
    lignes.push_back(std::move(ligne));
  }
  if (travail.analyse.mesure != MesureDEffet::Points) return image;
  // An effect is that of all modalities whose cells read the same, and bears the rank of the last of them.
  for (const Effet& effet : travail.analyse.effets)
    for (std::size_t k = 0; k < lignes.size(); ++k) {
      if (travail.modele.Explicative(k).reference || travail.analyse.cellules[k].designee != effet.modalite) continue;
      lignes[k].moyenne = effet.moyenne;
      lignes[k].ecartType = effet.ecartType;
    }
  return image;
}

// Records of individuals in memory, with what sorts them; the work files hold the records again, four times at the
// most.
void ExigerPlaceDesFiches(const Contexte& contexte, Rapport& rapport, const Chemin& codageLogique,
                          const TravailDAnatab& travail) {
  constexpr std::uint64_t kParIndividu = 28;  // number, key and place in the order
  const std::uint64_t fiche = travail.modele.LargeurFiche();
  const std::uint64_t individus =
      LongueurFichier(codageLogique) / std::max<std::uint64_t>(travail.modele.codage.size(), 1);
  ExigerPlace(contexte, rapport, {individus * (fiche + kParIndividu), 4 * individus * (fiche + 2)});
}

// A run that stops leaves its work files as they stand.
void Executer(const Contexte& contexte, const OptionsAnatab& options, Rapport& rapport, ImageDesEffets& effets) {
  const EntreesDeRegression fichiers = TrouverEntrees(contexte);
  ExigerEntrees(rapport, contexte, fichiers, kSorte);
  ImprimerNomsDeFichiers(contexte, rapport, "Régression sur données d'enquête"_w, kSorte, ".TRP");
  ExigerEcriture(contexte, rapport, options.image);
  TravailDAnatab travail = PreparerLeModele(contexte, rapport, *fichiers.mod);
  ExigerPlaceDesFiches(contexte, rapport, *fichiers.donnees, travail);
  try {
    effets = ImageDe(travail, Analyser(contexte, rapport, fichiers, travail));
    if (!options.image.empty()) EcrireSvg(contexte.repertoire, options.image, DessinerEffets(effets));
  } catch (const Erreur&) {
    LaisserLesFichiers(contexte, travail);
    throw;
  }
  if (travail.FichiersGardes()) {
    LaisserLesFichiers(contexte, travail);
    EcrireListeFinale(contexte, travail);
  } else {
    EffacerLesFichiers(contexte);
  }
  rapport.Ligne("Fin normale du programme");
}

}  // namespace

Fin Anatab(const Contexte& contexte, const OptionsAnatab& options) {
  ImageDesEffets effets;
  return Anatab(contexte, options, effets);
}

Fin Anatab(const Contexte& contexte, const OptionsAnatab& options, ImageDesEffets& effets) {
  const Fin fin = ExecuterProgramme(contexte, contexte.Nom(".TRP"), LibellesErreur{},
                                    [&](Rapport& rapport) { Executer(contexte, options, rapport, effets); });
  contexte.Ecran().montrerProgression(0);
  return fin;
}

}  // namespace quelvar::regression
