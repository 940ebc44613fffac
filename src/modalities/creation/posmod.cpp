#include "modalities/creation/posmod.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/codemax.h"
#include "core/enquete/coherence.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/datfile.h"
#include "core/enquete/listemod.h"
#include "core/enquete/modfile.h"
#include "core/fichiers/jeu.h"
#include "core/panne/attention.h"
#include "core/programme/alerte.h"
#include "core/programme/arret.h"
#include "core/programme/place.h"
#include "core/programme/refus.h"
#include "core/texte/listes.h"
#include "modalities/creation/edition.h"
#include "modalities/creation/fichiers.h"
#include "modalities/creation/passe.h"

namespace quelvar::modalities {

namespace {

// What a run starts from.
struct EntreesDePosmod {
  Chemin donnees;
  FichierPos pos;
  std::optional<Chemin> ancienMod;
};

void ImprimerNomsDesFichiers(const Contexte& contexte, Rapport& rapport) {
  ImprimerBandeau(rapport, "Création des modalités"_w);
  rapport.Ligne({"Le nom du fichier d'entree est ", contexte.Nom(".DAT")});
  rapport.Ligne({"Le nom du fichier de parametres de position est ", contexte.Nom(".POS")});
  rapport.Ligne({"Ce fichier d'impression a pour nom ", contexte.Nom(".PRT")});
  rapport.Ligne({"Le nom du fichier des donnees en codage logique est ", contexte.Nom(".CDG")});
  rapport.Ligne({"Le nom du fichier des noms de modalites est ", contexte.Nom(".MOD")});
  rapport.Ligne({"Le nom du fichier des données en tableau de Burt est "_w, contexte.Nom(".BRT")});
}

void ImprimerIndividus(const FichierPos& pos, Rapport& rapport) {
  if (pos.taille.individus > 0) rapport.Ligne(LigneDesIndividus(pos.taille.individus));
}

// Opens the files; without those that are needed the run stops, before the heading of its report.
EntreesDePosmod OuvrirFichiers(const Contexte& contexte, Rapport& rapport) {
  EntreesDePosmod entrees;
  const std::optional<Chemin> donnees = contexte.Chercher(".DAT");
  const std::optional<Chemin> pos = contexte.Chercher(".POS");
  entrees.ancienMod = ChercherMod(contexte.repertoire, contexte.Nom(".MOD"));
  ExigerFichiers(rapport, contexte.Ecran(),
                 {{contexte.Nom(".DAT"), donnees.has_value()}, {contexte.Nom(".POS"), pos.has_value()}},
                 kArretAbsenceSansAccents);
  entrees.donnees = *donnees;
  return entrees;
}

void PrendreQuestions(const Contexte& contexte, EntreesDePosmod& entrees) {
  entrees.pos = LirePos(contexte.Exiger(".POS"));
  ExigerParentheses(entrees.pos.taille, contexte.Ecran());
}

// Opens the files and tells their names.
EntreesDePosmod Preparer(const Contexte& contexte, Rapport& rapport) {
  EntreesDePosmod entrees = OuvrirFichiers(contexte, rapport);
  ImprimerNomsDesFichiers(contexte, rapport);
  PrendreQuestions(contexte, entrees);
  ImprimerIndividus(entrees.pos, rapport);
  return entrees;
}

ChoixQuestions Choisir(const FichierPos& pos, const OptionsPosmod& options, Rapport& rapport) {
  if (!options.actives && !options.supplementaires) return ChoixDesMarques(pos, options.mode);
  static const std::vector<std::string> aucune;
  std::vector<std::string> fautes;
  ChoixQuestions choix = ChoixDesNoms(pos, options.mode, options.actives ? *options.actives : aucune,
                                      options.supplementaires ? *options.supplementaires : aucune, fautes);
  rapport.Lignes(fautes);
  if (!fautes.empty()) throw Refus();
  return choix;
}

NombresDeModalites Compter(const FichierPos& pos, const ChoixQuestions& choix, bool codesZero) {
  return {CompterModalites(pos, choix, Statut::Actif, codesZero),
          CompterModalites(pos, choix, Statut::Supplementaire, codesZero)};
}

// Stops a run that the form would not have started.
void ExigerModalites(const NombresDeModalites& nombres, const OptionsPosmod& options, const Dialogue& dialogue) {
  const std::string refus = options.mode == ModePosmod::Modi ? std::string(RefusDeNommer(nombres.actives))
                                                             : RefusDeLancer(options.individus, options.noms,
                                                                             nombres.actives, nombres.supplementaires);
  if (refus.empty()) return;
  AlerterEnBoite(dialogue, refus);
  throw Refus();
}

// Those of line 2 have been told; a count is told now.
std::int64_t CompterIndividus(const EntreesDePosmod& entrees, Rapport& rapport) {
  const std::int64_t individus = AnnoncesOuComptes(entrees.pos.taille, entrees.donnees);
  if (entrees.pos.taille.individus <= 0) rapport.Ligne(LigneDesIndividus(individus));
  return individus;
}

void RefuserCodesMax(const FichierPos& pos, const ChoixQuestions& choix, Rapport& rapport, const Dialogue& dialogue) {
  for (const std::size_t rang : choix.Rangs(Statut::Actif)) {
    const std::optional<RefusDeCodeMax> refus = RefusDuCodeMax(pos.questions[rang]);
    if (!refus) continue;
    dialogue.demander(refus->boite, Boutons::Ok);
    Arreter(rapport, refus->ligne);
  }
}

// Tells a value above its code-max, and stops the run at one too many.
class Surveillance {
 public:
  Surveillance(Rapport& rapport, const Dialogue& dialogue) : rapport_(rapport), dialogue_(dialogue) {}

  void operator()(const Depassement& depassement) {
    Avertir(rapport_, dialogue_,
            Joindre({"Avertissement : depassement de code-max ", depassement.question, " Ligne ",
                     NombreBlanc(depassement.ligne), " Valeur ", NombreBlanc(depassement.valeur)}));
    if (++nombre_ <= kDepassementsAuPlus) return;
    AvertirEtArreter(
        rapport_, dialogue_,
        Joindre({"Erreur : arret pour nombre de depassement de code-max >", NombreNu(kDepassementsAuPlus)}));
  }

 private:
  Rapport& rapport_;
  const Dialogue& dialogue_;
  int nombre_ = 0;
};

// `avecIndividus`: the .CDG is written, and its lines follow those of the .BRT too.
Place PlaceDesTables(std::uint64_t modalites, std::int64_t individus, bool avecIndividus) {
  constexpr std::uint64_t kMemoireParCase = 4;  // of the square: half of it is held, in counts of eight bytes
  constexpr std::uint64_t kHorsDesCases = kLargeurDeModalite + 2;  // bytes of a line: its name, its end
  const std::uint64_t lignes = avecIndividus ? static_cast<std::uint64_t>(individus) : 0;
  const std::uint64_t largeurPrevue = Nombre(individus).size();
  const std::uint64_t burt = (modalites + lignes) * (kHorsDesCases + modalites * largeurPrevue);
  const std::uint64_t codageLogique = lignes * (kHorsDesCases + modalites);
  return {kMemoireParCase * modalites * modalites, burt + codageLogique};
}

// A logical coding that a former choice has made stays, and regressions read it without a sight of the data.
void PrevenirDuCodageLaisse(const Contexte& contexte, const OptionsPosmod& options) {
  if (options.individus || !contexte.Chercher(".CDG")) return;
  contexte.Ecran().demander(
      Joindre({kAttention, contexte.Nom(".CDG"),
               " reste celui d'un choix précédent : une régression qui le lit ne porterait pas sur ces modalités. "
               "Demandez aussi les individus pour le refaire"_w}),
      Boutons::Ok);
}

// Reads the data and writes the tables; returns the parameter line of the .MOD.
std::string ConstruireTables(const Contexte& contexte, const EntreesDePosmod& entrees, const PlanModalites& plan,
                             const OptionsPosmod& options, std::int64_t individus, JeuDeFichiers& sorties,
                             Rapport& rapport) {
  const std::size_t modalites = plan.modalites.size();
  ExigerPlace(contexte, rapport, PlaceDesTables(modalites, individus, options.individus));
  std::optional<CodageLogique> codage;
  if (options.individus)
    codage.emplace(sorties.Ouvrir(contexte.Nom(".CDG"), Nature::Refaisable), modalites, options.noms);
  DemandeDePasse demande{entrees.donnees, individus, codage ? &*codage : nullptr, {}};
  if (options.verifierCodesMax) demande.signaler = Surveillance(rapport, contexte.Ecran());
  TableBurt burt(modalites);
  const std::int64_t lus = PasserLesDonnees(entrees.pos, plan, demande, burt, contexte.Ecran());
  if (lus < individus)
    Avertir(rapport, contexte.Ecran(), "Attention : le nombre reel d'individus est inferieur a celui prevu");

  const int largeur = LargeurDeCellule(burt);
  Ecrivain& table = sorties.Ouvrir(contexte.Nom(".BRT"), Nature::Refaisable);
  EcrireTableBurt(table, plan.modalites, burt, largeur);
  if (options.individus) EcrireIndividus(table, sorties.Achever(contexte.Nom(".CDG")), modalites, largeur);
  PrevenirDuCodageLaisse(contexte, options);
  return ParametresDeLaTable(modalites, options.individus ? lus : -1, largeur);
}

// The questions whose marks follow today's choice against the old .MOD, once the user has agreed.
std::vector<std::size_t> DemanderChangements(const FichierPos& pos, const PlanModalites& plan,
                                             const std::vector<AncienneModalite>& anciennes, Rapport& rapport,
                                             const Dialogue& dialogue) {
  std::vector<std::size_t> changees = QuestionsPasseesDeLAutreCote(plan, anciennes);
  if (changees.empty()) return changees;
  std::string actives;
  std::string supplementaires;
  for (const std::size_t q : changees) {
    const bool active = !plan.modalites[plan.questions[q].premiere].supplementaire;
    (active ? actives : supplementaires) += Joindre({" ", pos.questions[plan.questions[q].rang].nom});
  }
  std::string texte = Joindre({"Ces questions étaient de l'autre côté dans l'ancien fichier de modalités :"_w});
  if (!actives.empty()) texte += Joindre({"\r\nmaintenant actives :", actives});
  if (!supplementaires.empty()) texte += Joindre({"\r\nmaintenant supplémentaires :"_w, supplementaires});
  texte += Joindre({"\r\nLe choix d'aujourd'hui l'emporte-t-il ? (Non : les anciennes marques sont gardées)"_w});
  if (dialogue.demander(texte, Boutons::OuiNon) != Reponse::Oui) return {};
  rapport.Ligne();
  if (!actives.empty()) rapport.Ligne({"Questions passées en actives selon le choix :"_w, actives});
  if (!supplementaires.empty())
    rapport.Ligne({"Questions passées en supplémentaires selon le choix :"_w, supplementaires});
  return changees;
}

// Modalities whose mark and label may be another question's.
void PrevenirDesDouteuses(const std::vector<std::string>& douteuses, Rapport& rapport, const Dialogue& dialogue) {
  if (douteuses.empty()) return;
  const std::string phrase =
      Joindre({"Dans l'ancien fichier de modalités, ces noms peuvent être ceux de plusieurs questions ; la marque et "
               "l'intitulé viennent de la première ligne de ce nom, vérifiez-les : "_w,
               Enumerer(douteuses)});
  dialogue.demander(phrase, Boutons::Ok);
  rapport.Ligne();
  rapport.Ligne(phrase);
}

std::string PhraseDeRelance(const Contexte& contexte) {
  return Joindre(
      {"Le tableau "_w, contexte.Nom(".BRT"), " n'est plus celui des modalités de "_w, contexte.Nom(".MOD"),
       " : relancez la création des modalités (menu 'Analyse factorielle'), puis les programmes qui la suivent"_w});
}

// The parameter line of a .MOD that was made without the data. One with the modalities of the former file keeps its
// line: the table is still theirs.
std::string ParametresDeNommage(const Contexte& contexte, const EntreesDePosmod& entrees, const PlanModalites& plan,
                                Rapport& rapport) {
  if (entrees.ancienMod) {
    const ListeModalites ancienne = LireListeModalites(*entrees.ancienMod);
    const auto memeNom = [](const std::string& texte, const ModaliteCreee& modalite) {
      return NomDeTexte(texte) == modalite.nom;
    };
    if (std::equal(ancienne.textes.begin(), ancienne.textes.end(), plan.modalites.begin(), plan.modalites.end(),
                   memeNom))
      return ancienne.parametres;
  }
  if (contexte.Chercher(".BRT")) {
    rapport.Ligne();
    rapport.Ligne(PhraseDeRelance(contexte));
  }
  return ParametresDeLaTable(plan.modalites.size(), -1, 0);
}

void MoteurPosmod(const Contexte& contexte, const EntreesDePosmod& entrees, const ChoixQuestions& choix,
                  const NombresDeModalites& nombres, const OptionsPosmod& options, Rapport& rapport) {
  const bool nommer = options.mode == ModePosmod::Modi;
  std::int64_t individus = 0;
  if (!nommer) {
    ImprimerChoix(entrees.pos, choix, nombres, options, entrees.ancienMod.has_value(), rapport, contexte.Ecran());
    individus = CompterIndividus(entrees, rapport);
  }
  RefuserCodesMax(entrees.pos, choix, rapport, contexte.Ecran());
  PlanModalites plan = PlanifierModalites(entrees.pos, choix, options.codesZero);
  std::vector<AncienneModalite> anciennes;
  if (entrees.ancienMod) anciennes = LireAnciennes(*entrees.ancienMod, entrees.pos);
  std::vector<std::size_t> changees;
  if (!nommer && !options.oublierAnciennes)
    changees = DemanderChangements(entrees.pos, plan, anciennes, rapport, contexte.Ecran());
  PrevenirDesDouteuses(ReprendreAnciennes(plan.modalites, anciennes, options.oublierAnciennes, nommer), rapport,
                       contexte.Ecran());
  MarquerSelonLeChoix(plan, changees);

  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  const std::string parametres = nommer
                                     ? ParametresDeNommage(contexte, entrees, plan, rapport)
                                     : ConstruireTables(contexte, entrees, plan, options, individus, sorties, rapport);
  EcrireMod(sorties.Ouvrir(contexte.Nom(".MOD"), Nature::Unique), contexte.generique, parametres, plan.modalites,
            entrees.ancienMod ? &anciennes : nullptr);
  // The marks of a set that was analysed are those of its table, whatever is named afterwards.
  if (!nommer || !contexte.Chercher(".BRT"))
    EcrirePosMarque(sorties.Ouvrir(contexte.Nom(".POS"), Nature::Unique), entrees.pos, choix);
  sorties.Valider();
  rapport.Ligne();
  rapport.Ligne("Fin normale du programme");
}

}  // namespace

Fin Posmod(const Contexte& contexte, const OptionsPosmod& options) {
  OptionsPosmod effectives = options;
  if (options.mode != ModePosmod::Afc) {
    effectives.individus = options.mode == ModePosmod::Regr;
    effectives.noms = {};
    effectives.oublierAnciennes = false;
  }
  return ExecuterProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{}, [&](Rapport& rapport) {
    const EntreesDePosmod entrees = Preparer(contexte, rapport);
    const ChoixQuestions choix = Choisir(entrees.pos, effectives, rapport);
    const NombresDeModalites nombres = Compter(entrees.pos, choix, effectives.codesZero);
    ExigerModalites(nombres, effectives, contexte.Ecran());
    MoteurPosmod(contexte, entrees, choix, nombres, effectives, rapport);
  });
}

void ExigerFichiersDesModalites(const Contexte& contexte, Rapport& rapport) { OuvrirFichiers(contexte, rapport); }

void ImprimerEnTeteDesModalites(const Contexte& contexte, Rapport& rapport) {
  ImprimerNomsDesFichiers(contexte, rapport);
  try {
    ImprimerIndividus(LirePos(contexte.Exiger(".POS")), rapport);
  } catch (const Erreur&) {  // the modalities do without
  }
}

void CreerSansDonnees(const Contexte& contexte, const std::vector<std::string>& questions, bool codesZero,
                      Rapport& rapport) {
  OptionsPosmod options;
  options.mode = ModePosmod::Modi;
  options.actives = questions;
  options.codesZero = codesZero;
  EntreesDePosmod entrees = OuvrirFichiers(contexte, rapport);
  PrendreQuestions(contexte, entrees);
  const ChoixQuestions choix = Choisir(entrees.pos, options, rapport);
  const NombresDeModalites nombres = Compter(entrees.pos, choix, options.codesZero);
  ExigerModalites(nombres, options, contexte.Ecran());
  MoteurPosmod(contexte, entrees, choix, nombres, options, rapport);
}

std::string PhraseDeTableDepassee(const Contexte& contexte) {
  const std::optional<Chemin> mod = ChercherMod(contexte.repertoire, contexte.Nom(".MOD"));
  if (!mod || !contexte.Chercher(".BRT")) return {};
  const ListeModalites liste = LireListeModalites(*mod);
  return liste.parametres == ParametresDeLaTable(liste.textes.size(), -1, 0) ? PhraseDeRelance(contexte)
                                                                             : std::string();
}

std::optional<ChoixPrepare> PrepPosmod(const Contexte& contexte, ModePosmod mode) {
  std::optional<ChoixPrepare> prepare;
  const bool pret = PreparerProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{}, [&](Rapport& rapport) {
    EntreesDePosmod entrees = Preparer(contexte, rapport);
    ChoixQuestions choix = ChoixDesMarques(entrees.pos, mode);
    prepare = ChoixPrepare{std::move(entrees.pos), std::move(choix), entrees.ancienMod.has_value()};
  });
  return pret ? std::move(prepare) : std::nullopt;
}

}  // namespace quelvar::modalities
