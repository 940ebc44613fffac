#include "factor/analyse/anecar.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/enquete/modfile.h"
#include "core/panne/annonce.h"
#include "core/programme/arret.h"
#include "core/resultats/fichiers.h"
#include "factor/analyse/facteurs.h"
#include "factor/analyse/tableau.h"
#include "factor/analyse/tables.h"

namespace quelvar::factor {

namespace {

constexpr std::string_view kTravail = "$$AEI.TIS";  // supplementary rows, while the run lasts
constexpr int kBurtEnListes = 50;                   // from this size on a table is edited by sorted listings at level 1

// The options with every choice of the level made.
struct ReglagesDAnecar {
  EditionAnecar edition = EditionAnecar::Compacte;
  int seuilLignes = 0;
  int seuilColonnes = 0;
};

ReglagesDAnecar ReglagesDe(const OptionsAnecar& options, int niveau, int burt) {
  const int seuil = niveau < kNiveauAvance ? 0 : kSeuilMoyen;
  const bool listes = niveau < kNiveauAvance && burt >= kBurtEnListes;
  return {options.edition.value_or(listes ? EditionAnecar::Triee : EditionAnecar::Compacte),
          options.seuilLignes.value_or(seuil), options.seuilColonnes.value_or(seuil)};
}

void ExigerTable(Rapport& rapport, const Contexte& contexte) {
  const auto exiger = [&](std::string_view extension, Texte arret) {
    if (contexte.Chercher(extension)) return true;
    rapport.Ligne(PhraseDAbsence(contexte.Nom(extension)));
    rapport.Ligne(arret);
    return false;
  };
  const bool donnees = exiger(".BRT", "Arret du programme car absence de donnees");
  const bool modalites = exiger(".MOD", "Arret du programme car absence de fichier de modalites");
  if (donnees && modalites) return;
  AvertirEtArreter(rapport, contexte.Ecran(), "*** Arret du programme du à l'absence d'un ou de plusieurs fichiers"_w);
}

ParametresMod Preparer(Rapport& rapport, const Contexte& contexte) {
  EffacerEnsemble(contexte.repertoire, contexte.generique, {contexte.Nom(".FA2")});
  ExigerTable(rapport, contexte);
  ImprimerBandeau(rapport, "Calcul des facteurs");
  rapport.Ligne({"Le nom du fichier des noms de modalites est ", contexte.Nom(".MOD")});
  LecteurLignes mod(contexte.Exiger(".MOD"));
  mod.LireObligatoire();  // the title
  ParametresMod parametres = LireParametres(mod.LireObligatoire(), contexte.Nom(".MOD"));
  rapport.Lignes(parametres.remarques);
  return parametres;
}

// The preparation's report opens the report of the run.
void ReprendreRapport(Rapport& rapport, const Contexte& contexte, std::string_view nomRapport) {
  LecteurLignes ana(contexte.Exiger(".ANA"));
  for (std::string_view ligne; ana.Lire(ligne);) rapport.Ligne(ligne);
  rapport.Ligne({"Ce fichier d'impression a pour nom ", nomRapport});
}

void ExigerCodageLogique(const Contexte& contexte) {
  if (contexte.Chercher(".CDG")) return;
  contexte.Ecran().demander("Le fichier en codage logique n'existe pas, vérifiez et relancez"_w, Boutons::Ok);
  throw Erreur(kArretAnnonce);
}

// Tells later programs that the individuals were analysed with the table.
void MarquerCodageLogique(const Contexte& contexte, const FichierMod& mod, JeuDeFichiers& sorties) {
  if (mod.parametres.find("CDG=1") != std::string::npos) return;
  Ecrivain& fichier = sorties.Ouvrir(contexte.Nom(".MOD"), Nature::Unique);
  for (std::size_t i = 0; i < mod.lignes.size(); ++i) {
    fichier.Ecrire(mod.lignes[i]);
    fichier.Ligne(std::string_view(i == 1 ? " CDG=1" : ""));
  }
}

int SeuilEffectif(int seuil, std::int64_t actifs) {
  constexpr int kSansMoyenne = -1;  // every element is listed
  if (seuil != kSeuilMoyen) return seuil;
  return actifs > 0 ? CpfMoyen(static_cast<std::size_t>(actifs)) : kSansMoyenne;
}

// The table as the .MOD declares it, and the names of that file that no column has.
struct Declaration {
  PlanAnecar plan;
  std::vector<std::string> inconnus;
};

Declaration DeclarerTableau(const Contexte& contexte, const ParametresMod& parametres, bool codageLogique,
                            JeuDeFichiers& sorties) {
  const Chemin chemin = contexte.Exiger(".MOD");
  const FichierMod mod = LireMod(chemin);
  if (parametres.burt == 1) MarquerCodageLogique(contexte, mod, sorties);
  Declaration declaration;
  declaration.plan = Situer(
      [&] {
        return Lieu{TexteDe(chemin.filename()), kLigneDesParametres};
      },
      [&] { return PlanifierTableau(parametres, mod, codageLogique); });
  declaration.inconnus = AttribuerIntitules(mod, declaration.plan);
  return declaration;
}

// Why the declared table can't be analysed; nothing when it can.
std::optional<FauteSituee> RefusDuTableau(const Contexte& contexte, const PlanAnecar& plan,
                                          const OptionsAnecar& options) {
  const auto arret = [](Texte phrase) { return FauteSituee{Joindre({kArretDuProgrammeSansAccents, phrase})}; };
  const bool sansIndividus = plan.genre == GenreTableau::BurtCarre;
  if (sansIndividus && options.codageLogique)
    return arret(
        "le tableau de Burt n'a pas les lignes des individus, relancez la création des modalités avec les individus "
        "pour analyser leur codage logique"_w);
  if (sansIndividus && options.classification && options.classification->individus)
    return arret(
        "le tableau de Burt n'a pas les lignes des individus, relancez la création des modalités avec les individus "
        "pour les classer"_w);
  if (plan.lignesActives <= 0) return arret("le tableau n'a pas de ligne active");
  if (plan.colonnes.actifs == 0) return arret("le tableau n'a pas de colonne active");
  if (plan.largeur < 1) return FauteDeFormat(contexte.Nom(".MOD"), MotsDuFormat::AvecLeFichier);
  return std::nullopt;
}

std::string NomDuRapport(const Contexte& contexte, TypeAnalyse type) {
  return contexte.Nom(type == TypeAnalyse::Acp ? ".ACP" : ".AFC");
}

int NombreDeFacteurs(const OptionsAnecar& options, const PlanAnecar& plan) {
  const int demandes = options.facteurs.value_or(options.classification ? kFacteursAClasser : kFacteursParDefaut);
  const std::int64_t lesPlus = std::min(plan.lignesActives, static_cast<std::int64_t>(plan.colonnes.actifs)) - 1;
  return static_cast<int>(std::min<std::int64_t>(demandes == 0 ? kFacteursParDefaut : demandes, lesPlus));
}

// One run of the engine, from the declared table to the final editions.
struct Moteur {
  const Contexte& contexte;
  const OptionsAnecar& options;
  ReglagesDAnecar reglages;
  PlanAnecar plan;
  TableauAnecar tableau;
  AnalyseAnecar analyse;
  // What is printed once all factors are there: lists of coordinates whose scale the largest of them decides.
  std::vector<std::function<void(Rapport&)>> differees = {};

  bool Differe() const { return options.type == TypeAnalyse::Acp && reglages.edition == EditionAnecar::Triee; }
  void TraiterFacteur(Rapport& rapport, std::size_t k);
  void Imprimer(Rapport& rapport, std::function<void(Rapport&)> impression);
  void ImprimerListes(Rapport& rapport, std::size_t k) const;
  void ImprimerRestants(Rapport& rapport);
};

void Moteur::Imprimer(Rapport& rapport, std::function<void(Rapport&)> impression) {
  if (Differe()) differees.push_back(std::move(impression));
  else impression(rapport);
}

void Moteur::ImprimerListes(Rapport& rapport, std::size_t k) const {
  const FacteurAnecar& facteur = analyse.facteurs[k - 1];
  if (options.imprimerLignes)
    ImprimerLignesTriees(rapport, TrierElements(tableau.lignes, facteur.lignes, analyse.echelle, reglages.seuilLignes),
                         k);
  ImprimerColonnesTriees(rapport,
                         TrierElements(plan.colonnes, facteur.colonnes, analyse.echelle, reglages.seuilColonnes), k);
}

// The deviations as they stand now, which a listing that waits for the scale keeps for itself.
void Moteur::ImprimerRestants(Rapport& rapport) {
  const auto imprimer = [this](Rapport& r, const Matrice& d) {
    ImprimerEcartsRestants(r, tableau.lignes, plan.colonnes, {d, analyse.ecarts.effectif}, plan.decimales);
  };
  if (Differe()) differees.push_back([imprimer, d = tableau.actives](Rapport& r) { imprimer(r, d); });
  else imprimer(rapport, tableau.actives);
}

void Moteur::TraiterFacteur(Rapport& rapport, std::size_t k) {
  // The progress is told in hundredths of a factor, on the logarithm of the rounds: 22,000 of them are a whole one.
  constexpr double kFacteurEntier = 10;
  const auto suivre = [this, k, dernier = std::int64_t{-1}](std::int64_t tour) mutable {
    const auto avance = static_cast<std::int64_t>(
        100 * (static_cast<double>(k) - 1 + std::min(1.0, std::log(static_cast<double>(tour)) / kFacteurEntier)));
    if (avance != dernier) contexte.Ecran().progresser(dernier = avance);
  };
  Imprimer(rapport, [k](Rapport& r) { ImprimerDebutDeFacteur(r, k); });
  const FacteurCourant courant = ExtraireFacteur(tableau, analyse, suivre);
  Imprimer(rapport, [this, k](Rapport& r) { ImprimerFacteur(r, analyse.facteurs[k - 1]); });
  if (!analyse.facteurs.back().converge) contexte.Ecran().biper();
  if (reglages.edition == EditionAnecar::Triee) Imprimer(rapport, [this, k](Rapport& r) { ImprimerListes(r, k); });
  if (plan.decimales > 0) ImprimerRestants(rapport);
  DeflaterActives(tableau, analyse, courant);
  if (plan.decimales > 0)
    Imprimer(rapport, [this, courant](Rapport& r) {
      ImprimerReconstitution(r, tableau.lignes, plan.colonnes, ReconstituerEcarts(tableau, analyse.ecarts, courant),
                             plan.decimales);
    });
  DeflaterSupplementaires(tableau, analyse, courant);
}

void ExtraireEtImprimer(Rapport& rapport, Moteur& moteur) {
  const Contexte& contexte = moteur.contexte;
  moteur.tableau = LireTableau(contexte.Exiger(".BRT"), moteur.plan, CheminDEcriture(contexte.repertoire, kTravail));
  moteur.tableau.constats.Dire(rapport, contexte.Ecran());
  if (EffectifTotal(moteur.tableau.actives) == 0)
    AvertirEtArreter(rapport, contexte.Ecran(), Joindre({kArretDuProgrammeSansAccents, "le total du tableau est nul"}));
  moteur.analyse = CommencerAnalyse(moteur.tableau, moteur.options.type);
  ImprimerTitre(rapport, moteur.analyse);
  const int facteurs = NombreDeFacteurs(moteur.options, moteur.plan);
  ImprimerNombreDeFacteurs(rapport, facteurs);

  contexte.Ecran().montrerProgression(std::max(100 * std::int64_t{facteurs}, std::int64_t{1}));
  for (int k = 1; k <= facteurs; ++k) moteur.TraiterFacteur(rapport, static_cast<std::size_t>(k));
  moteur.analyse.echelle = EchelleDesCoordonnees(moteur.analyse);
  ImprimerEchelle(rapport, moteur.analyse.echelle);
  for (const auto& impression : moteur.differees) impression(rapport);
  if (moteur.reglages.edition == EditionAnecar::Compacte)
    ImprimerTablesCompactes(rapport, moteur.plan, moteur.tableau, moteur.analyse);
  if (moteur.reglages.edition == EditionAnecar::Etendue)
    ImprimerTablesEtendues(rapport, moteur.plan, moteur.tableau, moteur.analyse);
  contexte.Ecran().montrerProgression(0);
}

// What the classification that follows needs to know.
struct SuiteWard {
  std::size_t facteurs = 0;
  std::optional<std::size_t> derniers;  // individuals behind the modalities
};

SuiteWard Extraire(Rapport& rapport, const Contexte& contexte, const ParametresMod& parametres,
                   const OptionsAnecar& options, JeuDeFichiers& sorties) {
  if (options.codageLogique) ExigerCodageLogique(contexte);
  Moteur moteur{contexte, options, ReglagesDe(options, contexte.niveau, parametres.burt), {}, {}, {}, {}};
  rapport.Lignes(parametres.remarques);
  Declaration declaration = DeclarerTableau(contexte, parametres, options.codageLogique, sorties);
  ImprimerInconnus(rapport, declaration.inconnus);
  moteur.plan = std::move(declaration.plan);
  ReglagesDAnecar& reglages = moteur.reglages;
  reglages.seuilLignes = SeuilEffectif(reglages.seuilLignes, moteur.plan.lignesActives);
  reglages.seuilColonnes =
      SeuilEffectif(reglages.seuilColonnes, static_cast<std::int64_t>(moteur.plan.colonnes.actifs));
  SeuilsAnecar seuils;
  if (options.imprimerLignes) seuils.lignes = reglages.seuilLignes;
  if (reglages.edition == EditionAnecar::Triee) seuils.colonnes = reglages.seuilColonnes;
  ImprimerDimensions(rapport, moteur.plan, seuils);
  if (std::optional<FauteSituee> refus = RefusDuTableau(contexte, moteur.plan, options))
    AvertirEtArreter(rapport, contexte.Ecran(), *std::move(refus));
  if (moteur.plan.genre == GenreTableau::Rectangulaire && !options.codageLogique)
    ExigerFormeDuMod(contexte.Exiger(".BRT"), LireMod(contexte.Exiger(".MOD")), parametres);
  ExtraireEtImprimer(rapport, moteur);
  const std::vector<TableauEdite> tableaux = {ValeursPropres(moteur.analyse)};
  EcrireTableaux(sorties, NomDuRapport(contexte, options.type), tableaux, options.sortie);
  if (!moteur.analyse.facteurs.empty())
    EcrireCoordonnees(contexte, sorties, moteur.plan, moteur.tableau, moteur.analyse, options.inversions,
                      options.classification.has_value());
  SuiteWard suite{moteur.analyse.facteurs.size(), std::nullopt};
  if (moteur.plan.genre == GenreTableau::BurtEtIndividus && options.classification && options.classification->individus)
    suite.derniers = moteur.tableau.lignes.Nombre() - moteur.plan.positions.size();
  return suite;
}

// The table is given back before the distances take its place in memory.
void Analyser(Rapport& rapport, const Contexte& contexte, const ParametresMod& parametres,
              const OptionsAnecar& options) {
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  const SuiteWard suite = Extraire(rapport, contexte, parametres, options, sorties);
  if (options.classification) {
    if (suite.facteurs == 0)
      AvertirEtArreter(rapport, contexte.Ecran(),
                       Joindre({kArretDuProgrammeSansAccents, "pas de facteur pour la classification"}));
    const Chemin& points = sorties.Achever(contexte.Nom(options.classification->individus ? ".FI2" : ".FJ2"));
    ClasserWard(contexte, rapport, points, suite.facteurs, *options.classification, suite.derniers, sorties);
  }
  sorties.Valider();
  rapport.Ligne("Fin normale du programme");
}

}  // namespace

std::optional<ParametresMod> PrepAnecar(const Contexte& contexte) {
  ParametresMod parametres;
  if (!PreparerProgramme(contexte, contexte.Nom(".ANA"), LibellesErreur{},
                         [&](Rapport& rapport) { parametres = Preparer(rapport, contexte); }))
    return std::nullopt;
  return parametres;
}

Fin Anecar(const Contexte& contexte, const OptionsAnecar& options) {
  const std::optional<ParametresMod> parametres = PrepAnecar(contexte);
  if (!parametres) return Fin::Arret;
  const std::string nomRapport = NomDuRapport(contexte, options.type);
  return ExecuterProgramme(contexte, nomRapport, LibellesErreur{}, [&](Rapport& rapport) {
    ReprendreRapport(rapport, contexte, nomRapport);
    Analyser(rapport, contexte, *parametres, options);
  });
}

}  // namespace quelvar::factor
