#include "text/tableau/tabmot.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/codemax.h"
#include "core/enquete/coherence.h"
#include "core/enquete/datfile.h"
#include "core/enquete/noms.h"
#include "core/enquete/parametres.h"
#include "core/fichiers/jeu.h"
#include "core/panne/annonce.h"
#include "core/panne/attention.h"
#include "core/programme/arret.h"
#include "core/programme/place.h"
#include "text/commun/intitule.h"
#include "text/commun/lignedemot.h"
#include "text/tableau/comptage.h"
#include "text/tableau/edition.h"
#include "text/tableau/sorties.h"

namespace quelvar::text {

namespace {

struct Entrees {
  Chemin donnees;
  FichierPos pos;
  ParametresMod parametres;  // of the former .MOD
  IntitulesModalites intitules;
  std::int64_t individus = 0;
};

void ExigerEntrees(Rapport& rapport, const Contexte& contexte) {
  ExigerFichiers(rapport, contexte.Ecran(),
                 {Obligatoire(contexte, ".DAT", kLeFichierEnRelief), Obligatoire(contexte, ".POS", kLeFichierEnRelief)},
                 "*** Arrêt du programme du à l'absence d'un ou de plusieurs fichiers"_w);
}

Entrees LireEntrees(const Contexte& contexte) {
  Entrees entrees;
  entrees.donnees = contexte.Exiger(".DAT");
  if (const std::optional<Chemin> mod = ChercherMod(contexte.repertoire, contexte.Nom(".MOD"))) {
    LecteurLignes lecteur(*mod);
    std::string_view ligne;
    if (lecteur.Lire(ligne) && lecteur.Lire(ligne))
      entrees.parametres = LireParametres(ligne, TexteDe(mod->filename()));
    entrees.intitules = LireIntitules(*mod);
  }
  entrees.pos = LirePos(contexte.Exiger(".POS"));
  return entrees;
}

// Ranks of the active questions, in the order of the position file.
std::vector<std::size_t> ChoisirQuestions(Rapport& rapport, const Contexte& contexte, const FichierPos& pos,
                                          const OptionsTabMot& options) {
  std::vector<std::size_t> actives;
  if (!options.actives) {
    for (std::size_t i = 0; i < pos.questions.size(); ++i)
      if (pos.questions[i].statut == Statut::Actif) actives.push_back(i);
    for (const std::size_t rang : actives) {
      const std::string& nom = pos.questions[rang].nom;
      if (const std::vector<std::size_t> rangs = RangsDuNom(pos.questions, nom); rangs.size() > 1)
        AvertirEtArreter(rapport, contexte.Ecran(),
                         {FauteHomonymes(nom, pos.questions, rangs), LieuDeLaQuestion(pos, rangs[1])});
    }
    return actives;
  }
  for (const std::string& nom : *options.actives)
    actives.push_back(ExigerQuestion(rapport, contexte.Ecran(), pos, nom));
  std::sort(actives.begin(), actives.end());
  actives.erase(std::unique(actives.begin(), actives.end()), actives.end());
  return actives;
}

// Width of the characteristics; stops a run whose questions do not go with the data.
std::size_t ExigerQuestions(Rapport& rapport, const Contexte& contexte, const Entrees& entrees,
                            const std::vector<std::size_t>& actives) {
  if (actives.empty())
    AvertirEtArreter(
        rapport, contexte.Ecran(),
        contexte.niveau == kNiveauSimple
            ? "*** Aucune question n'est marquée &ACT& : passer en niveau 2 d'utilisateur pour en choisir"_w
            : "*** Aucune question n'est choisie comme active"_w);
  for (const std::size_t rang : actives) {
    const Question& question = entrees.pos.questions[rang];
    if (question.position < 1) throw ChampImpossible(entrees.pos, rang);
    const std::optional<RefusDeCodeMax> refus = RefusDuCodeMax(question);
    if (!refus) continue;
    contexte.Ecran().demander(refus->boite, Boutons::Ok);
    AvertirEtArreter(rapport, contexte.Ecran(), refus->ligne);
  }
  LecteurLignes lecteur(entrees.donnees);
  std::string_view ligne;
  if (!lecteur.Lire(ligne))
    AvertirEtArreter(rapport, contexte.Ecran(),
                     Joindre({kArretDuProgramme, "le fichier ", contexte.Nom(".DAT"),
                              " est vide, faire d'abord le découpage en mots"_w}));
  const std::optional<std::size_t> largeur = LargeurDesCaracteristiques(ligne);
  if (!largeur)
    AvertirEtArreter(
        rapport, contexte.Ecran(),
        {Joindre({"*** Le fichier ", contexte.Nom(".DAT"),
                  " ne contient pas des mots ($$ absent en ligne 1) : faire d'abord le découpage en mots"_w}),
         {contexte.Nom(".DAT"), 1}});
  for (const std::size_t rang : actives) {
    const Question& question = entrees.pos.questions[rang];
    if (static_cast<std::size_t>(question.position) <= *largeur) continue;
    AvertirEtArreter(rapport, contexte.Ecran(),
                     {Joindre({"*** La question ", question.nom, " (position ", Nombre(question.position),
                               ") est au-delà des caractéristiques des mots, qui ont "_w, Nombre(*largeur),
                               " colonne(s) : corriger ", contexte.Nom(".POS")}),
                      LieuDeLaQuestion(entrees.pos, rang)});
  }
  return *largeur;
}

// Stops a run whose data go on behind the words that were announced, or come back to a word: rows would be false.
void ExigerLesMots(Rapport& rapport, const Contexte& contexte, const Entrees& entrees, const TableLexicale& table,
                   std::size_t caracteristiques) {
  if (table.suite)
    AvertirEtArreter(
        rapport, contexte.Ecran(),
        Joindre({"*** ", contexte.Nom(".POS"), " annonce ", Nombre(entrees.individus), " mots (ligne 2) et ",
                 contexte.Nom(".DAT"), " en a davantage : refaire le découpage en mots, ou corriger la ligne 2"_w}));
  if (table.montante) return;
  if (const std::optional<MotRevenu> revenu = ChercherMotRevenu(entrees.donnees, caracteristiques))
    AvertirEtArreter(
        rapport, contexte.Ecran(),
        {Joindre({"*** Le mot ", revenu->mot, " revient à la ligne "_w, Nombre(revenu->ligne), " de ",
                  contexte.Nom(".DAT"),
                  ", qui doit être dans l'ordre des mots : refaire le découpage en mots, ou trier ce fichier"_w}),
         {contexte.Nom(".DAT"), revenu->ligne}});
}

// A row for each word that is frequent enough: counted beforehand only where there may be very many.
void ExigerPlaceDuTableau(Rapport& rapport, const Contexte& contexte, const Entrees& entrees, const PlanLexical& plan,
                          const ConsignesDeComptage& consignes) {
  constexpr std::uint64_t kSansCompter = std::uint64_t{256} << 20;  // bytes
  constexpr std::uint64_t kMemoireDUneCellule = 4 + 4;              // the cell, and its columns in the line written
  constexpr std::uint64_t kColonnesDUneCellule = 4;
  const std::uint64_t annoncees = static_cast<std::uint64_t>(std::max<std::int64_t>(entrees.individus, 0));
  const std::uint64_t lignes = std::min<std::uint64_t>(annoncees, LongueurFichier(entrees.donnees)) /
                               static_cast<std::uint64_t>(std::max<std::int64_t>(consignes.frequenceMin, 1));
  if (lignes * plan.noms.size() * kMemoireDUneCellule < kSansCompter) return;
  const std::uint64_t cellules = CompterMotsFrequents(entrees.donnees, consignes) * plan.noms.size();
  ExigerPlace(contexte, rapport, {kMemoireDUneCellule * cellules, kColonnesDUneCellule * cellules});
}

TableLexicale Compter(Rapport& rapport, const Contexte& contexte, const Entrees& entrees, const PlanLexical& plan,
                      const OptionsTabMot& options, std::size_t caracteristiques) {
  ConsignesDeComptage consignes;
  consignes.individus = entrees.individus;
  consignes.caracteristiques = caracteristiques;
  consignes.frequenceMin = options.FrequenceExigee();
  const std::size_t colonne = caracteristiques + kLargeurCode + kLargeurMot + 1;  // of the end of a word
  consignes.horsFormat = [&](std::int64_t ligne) {
    AvertirEtArreter(rapport, contexte.Ecran(),
                     {Joindre({"*** La ligne ", Nombre(ligne), " de ", contexte.Nom(".DAT"),
                               " n'est pas celle d'un mot ($$ absent en colonne "_w, Nombre(colonne), ")"}),
                      {contexte.Nom(".DAT"), ligne, static_cast<int>(colonne)}});
  };
  consignes.depassement = [&, nombre = 0](std::size_t question, std::int64_t ligne, int valeur) mutable {
    Avertir(rapport, contexte.Ecran(),
            Joindre({"Dépassement de code-max à "_w, entrees.pos.questions[question].nom, " Ligne ", NombreBlanc(ligne),
                     " Valeur ", NombreBlanc(valeur)}));
    if (++nombre <= options.limite || options.limite < 1) return;
    AvertirEtArreter(rapport, contexte.Ecran(),
                     {Joindre({"Arret pour nombre de dépassement de code-max >"_w, NombreNu(options.limite)}),
                      {contexte.Nom(".DAT"), ligne}});
  };
  ExigerPlaceDuTableau(rapport, contexte, entrees, plan, consignes);
  TableLexicale table = CompterMots(entrees.donnees, plan, consignes, contexte.Ecran());
  ExigerLesMots(rapport, contexte, entrees, table, caracteristiques);
  return table;
}

// What the rows and cells do not tell by themselves.
void PrevenirDesLignes(Rapport& rapport, const Contexte& contexte, const TableLexicale& table) {
  if (table.lignes.empty())
    contexte.Ecran().demander("Aucun mot n'atteint la fréquence minimum : le tableau est vide"_w, Boutons::Ok);
  for (const LigneLexicale& ligne : table.lignes) {
    if (ligne.frequence <= kFrequenceEcrite) continue;
    Avertir(
        rapport, contexte.Ecran(),
        Joindre({kAttention, "la fréquence du mot "_w, RognerDroite(std::string_view(ligne.texte).substr(kLargeurCode)),
                 " est de ", Nombre(ligne.frequence), ", ses 4 colonnes du tableau portent 9999"}));
  }
}

// Threshold of the inversion, which goes to DE= too.
std::int64_t TraiterThemes(Rapport& rapport, const Entrees& entrees, const PlanLexical& plan, TableLexicale& table) {
  std::int64_t seuil = entrees.parametres.de;
  if (seuil == 0 && plan.groupes.size() == 1) seuil = plan.groupes.front().codeMax / 3;
  rapport.Ligne("Option thèmes utilisée"_w);
  rapport.Ligne({"Seuil d'inversion =", NombreNu(seuil)});
  ReduireAuxThemes(table, seuil);
  return seuil;
}

void EcrireSorties(const Contexte& contexte, const Entrees& entrees, const std::vector<std::size_t>& actives,
                   const PlanLexical& plan, const std::vector<std::string>& lignes, int largeur, std::int64_t de) {
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  Ecrivain& brt = sorties.Ouvrir(contexte.Nom(".BRT"), Nature::Refaisable);
  Ecrivain& mod = sorties.Ouvrir(contexte.Nom(".MOD"), Nature::Unique);
  Ecrivain& pos = sorties.Ouvrir(contexte.Nom(".POS"), Nature::Unique);
  for (const std::string& ligne : lignes) brt.Ligne(ligne);
  EcrireModLexical(mod, contexte.generique, plan, entrees.intitules, lignes, largeur, de);
  sorties.Effacer(contexte.Nom(kMotsDesLignes));  // rows of the former table
  for (std::size_t i = 0; i < entrees.pos.lignes.size(); ++i) {
    const bool question = i >= 2 && i < entrees.pos.premiereApres;
    const bool choisie = question && std::binary_search(actives.begin(), actives.end(), i - 2);
    pos.Ligne(question ? LigneMarquee(entrees.pos.lignes[i], choisie) : entrees.pos.lignes[i]);
  }
  sorties.Valider();
}

void Croiser(Rapport& rapport, const Contexte& contexte, const OptionsTabMot& options) {
  ExigerEntrees(rapport, contexte);
  ImprimerBandeau(rapport, "Création du tableau lexical des questions"_w);
  ImprimerNoms(rapport, contexte);
  Entrees entrees = LireEntrees(contexte);
  rapport.Lignes(entrees.parametres.remarques);
  ExigerParentheses(entrees.pos.taille, contexte.Ecran());
  entrees.individus = AnnoncesOuComptes(entrees.pos.taille, entrees.donnees);
  rapport.Ligne(LigneDesIndividus(entrees.individus));
  const std::vector<std::size_t> actives = ChoisirQuestions(rapport, contexte, entrees.pos, options);
  ImprimerQuestions(rapport, entrees.pos, entrees.individus, actives);
  const std::size_t caracteristiques = ExigerQuestions(rapport, contexte, entrees, actives);
  const PlanLexical plan = PlanifierTable(entrees.pos, actives, options.codesZero);
  rapport.Ligne({"Nombre total de modalités ="_w, NombreNu(plan.noms.size())});

  TableLexicale table = Compter(rapport, contexte, entrees, plan, options, caracteristiques);
  if (table.individus < entrees.individus)
    Avertir(rapport, contexte.Ecran(), "Attention : le nombre réel d'individus est inférieur à celui annoncé"_w);
  ImprimerBilan(rapport, contexte.niveau, options, table);
  PrevenirDesLignes(rapport, contexte, table);
  const int chiffres = static_cast<int>(Nombre(static_cast<std::int64_t>(table.plusGrande)).size());
  const int largeur = std::max({1, static_cast<int>(entrees.parametres.largeur), chiffres});
  std::int64_t de = entrees.parametres.de;
  if (options.themes.value_or(table.themes)) de = TraiterThemes(rapport, entrees, plan, table);
  const std::vector<std::string> lignes = LignesTriees(table, largeur, contexte.Ecran());
  rapport.Ligne("Un utilitaire de tri range les fréquences par ordre croissant"_w);
  EcrireSorties(contexte, entrees, actives, plan, lignes, largeur, de);
  ImprimerFin(rapport);
}

}  // namespace

Fin TabMot(const Contexte& contexte, const OptionsTabMot& options) {
  return ExecuterProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{},
                           [&](Rapport& rapport) { Croiser(rapport, contexte, options); });
}

}  // namespace quelvar::text
