#include "sorts/triapl/triapl.h"

#include <algorithm>
#include <optional>

#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/enquete/datfile.h"
#include "core/enquete/posfile.h"
#include "core/programme/arret.h"
#include "core/resultats/fichiers.h"
#include "core/texte/caracteres.h"
#include "sorts/triapl/comptage.h"
#include "sorts/triapl/edition.h"
#include "sorts/triapl/tableau.h"

namespace quelvar::sorts {

namespace {

constexpr int kValeurEsperluette = 203;  // what the character & reads as in old card files

// The files of a run, found before the banner.
struct FichiersTriapl {
  std::string nomDonnees;
  std::optional<Chemin> donnees;
  std::optional<Chemin> pos;
  std::optional<Chemin> trg;
  std::optional<Chemin> mod;  // only when its labels are used
};

// Everything that the tables are drawn from.
struct Etude {
  FichierPos pos;
  std::int64_t individus = 0;                  // N of the report, the count before weighting once it is applied
  std::vector<std::vector<double>> effectifs;  // by question, then by code from 0
  IntitulesModalites intitules;
};

FichiersTriapl TrouverFichiers(const Contexte& contexte, const OptionsTriapl& options) {
  FichiersTriapl fichiers;
  fichiers.nomDonnees = options.fichierDonnees.empty() ? contexte.Nom(".DAT") : options.fichierDonnees;
  fichiers.donnees = ChercherFichier(contexte.repertoire, fichiers.nomDonnees);
  fichiers.pos = contexte.Chercher(".POS");
  fichiers.trg = contexte.Chercher(".TRG");
  fichiers.mod = ChercherMod(contexte.repertoire, contexte.Nom(".MOD"));
  if (!options.intitules) fichiers.mod.reset();
  return fichiers;
}

TeteTrg LireTeteTriangle(const Chemin& trg) {
  LecteurLignes lecteur(trg);
  return LireTeteTrg(lecteur);
}

// Asks for one text; an answer that is blank keeps the one proposed.
void Demander(const Dialogue& dialogue, std::string_view question, std::string& texte) {
  const std::string reponse = dialogue.saisir(question, texte);
  if (!Rogner(reponse).empty()) texte = reponse;
}

TeteTrg DemanderTeteTriangle(const Contexte& contexte) {
  TeteTrg tete{contexte.generique, {"%COD1", "%COD2", "%COD3"}};
  Demander(contexte.Ecran(),
           Joindre({"Donnez un titre au graphique triangulaire, par défaut le titre est "_w, contexte.generique}),
           tete.titre);
  for (std::string& sommet : tete.sommets)
    Demander(contexte.Ecran(), Joindre({"Donnez le code associé au sommet de code 1 qui actuellement est "_w, sommet}),
             sommet);
  return tete;
}

void ImprimerNomsDeFichiers(Rapport& rapport, const Contexte& contexte, const FichiersTriapl& fichiers) {
  rapport.Ligne({"Le nom du fichier d'entree est ", fichiers.nomDonnees});
  rapport.Ligne({"Le nom du fichier de parametres de position est ", contexte.Nom(".POS")});
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".TAP")});
}

Etude LireQuestions(const FichiersTriapl& fichiers) {
  Etude etude;
  if (fichiers.mod) etude.intitules = LireIntitules(*fichiers.mod);
  etude.pos = LirePos(*fichiers.pos);
  return etude;
}

// Settles the size: 0 becomes the count of lines of the data file.
void PrendreTaille(Rapport& rapport, const Contexte& contexte, const FichiersTriapl& fichiers, Etude& etude) {
  ExigerParentheses(etude.pos.taille, contexte.Ecran());
  etude.individus = AnnoncesOuComptes(etude.pos.taille, *fichiers.donnees);
  const bool annonces = etude.pos.taille.individus > 0;
  if (annonces) rapport.Ligne(LigneDesIndividus(etude.individus));
  rapport.Ligne({"Il y a ", NombreNu(etude.pos.questions.size()), " questions"});
  if (!annonces) rapport.Ligne(LigneDesIndividus(etude.individus));
  rapport.Ligne(" ");
}

// Writes each overflow, and stops the run with the first one beyond the limit.
SignalerDepassement ControleDesDepassements(Rapport& rapport, const Dialogue& dialogue, const FichierPos& pos,
                                            const Chemin& donnees, int limite) {
  if (limite <= 0) return nullptr;
  return [&rapport, &dialogue, &pos, nom = TexteDe(donnees.filename()), limite, nombre = std::int64_t{0}](
             std::size_t question, std::int64_t ligne, int valeur) mutable {
    ++nombre;
    Avertir(rapport, dialogue,
            Joindre({"Depassement de code-max a ", pos.questions[question].nom, " Ligne", NombreBlanc(ligne), " Valeur",
                     NombreBlanc(valeur),
                     std::string_view(valeur == kValeurEsperluette ? " (valeur du caractere &)" : "")}));
    if (nombre <= limite) return;
    AvertirEtArreter(rapport, dialogue,
                     {Joindre({"Arret pour nombre de depassement de code-max >", NombreNu(limite)}),
                      {nom, ligne, pos.questions[question].position}});
  };
}

void Compter(Rapport& rapport, const Contexte& contexte, const OptionsTriapl& options, const FichiersTriapl& fichiers,
             Etude& etude) {
  Progression progression(contexte.Ecran(), etude.individus);
  const Comptage comptage = CompterCodes(
      *fichiers.donnees, etude.pos, etude.individus,
      ControleDesDepassements(rapport, contexte.Ecran(), etude.pos, *fichiers.donnees, options.limite), progression);
  if (comptage.individus < etude.individus) {
    constexpr std::size_t kBlancsDevantLAlerte = 12;
    rapport.Ligne(Blancs(kBlancsDevantLAlerte));
    Avertir(rapport, contexte.Ecran(), kFichierPlusCourt);
    etude.individus = comptage.individus;
  }
  for (const std::vector<std::int64_t>& effectifs : comptage.effectifs) {
    etude.effectifs.emplace_back(effectifs.begin(), effectifs.end());
    if (!options.nonReponses) etude.effectifs.back()[0] = 0;
  }
}

// The data file stands for fewer real individuals: counts come back to their scale. Raises kDivisionParZero for an
// empty data file.
void Ponderer(Etude& etude) {
  const std::int64_t avant = etude.pos.taille.avantPonderation;
  if (etude.individus == 0) throw Erreur(kDivisionParZero);
  const double rapportDEchelle = static_cast<double>(etude.individus) / static_cast<double>(avant);
  for (std::vector<double>& effectifs : etude.effectifs)
    for (double& effectif : effectifs) effectif /= rapportDEchelle;
  etude.individus = avant;
}

double TotalDe(const std::vector<double>& effectifs, const OptionsTriapl& options) {
  double total = 0;
  if (options.triangulaire) {
    for (const double effectif : EffectifsDuTriangle(effectifs)) total += effectif;
  } else {
    for (const double effectif : effectifs) total += effectif;
  }
  return total;
}

std::vector<std::string> TitresDuCumul() {
  return {" ", Joindre({"Impression du cumul des tris précedents"_w}),
          Joindre({"Les pourcentages sont calculés sur les occurences citées"_w}),
          Joindre({"c'est à dire autres que non-reponse=0"_w}), " "};
}

// The table of every question and, on request, that of all of them together.
std::vector<TableauEdite> DresserTris(const OptionsTriapl& options, const Etude& etude,
                                      const IntitulesModalites* intitules) {
  std::vector<TableauEdite> tableaux;
  std::vector<double> cumul;
  double totalCumule = 0;
  for (std::size_t i = 0; i < etude.pos.questions.size(); ++i) {
    const Question& question = etude.pos.questions[i];
    const std::vector<double>& effectifs = etude.effectifs[i];
    const double total = TotalDe(effectifs, options);
    const double nonReponses = static_cast<double>(etude.individus) - total;
    tableaux.push_back(DresserTableau(question, effectifs, total, intitules));
    tableaux.back().titres = {EnTeteDe(question, options.nonReponses ? nullptr : &nonReponses)};
    cumul.resize(std::max(cumul.size(), effectifs.size()));
    for (std::size_t code = 1; code < effectifs.size(); ++code) {
      cumul[code] += effectifs[code];
      totalCumule += effectifs[code];
    }
  }
  if (options.reponsesMultiples) {
    tableaux.push_back(DresserCumul(cumul, totalCumule));
    tableaux.back().titres = TitresDuCumul();
  }
  return tableaux;
}

void EcrireTriangle(Ecrivain& trg, const Etude& etude, const TeteTrg& tete) {
  EcrireTeteTrg(trg, tete);
  for (std::size_t i = 0; i < etude.pos.questions.size(); ++i)
    trg.Ligne(LigneTriangle(etude.pos.questions[i], PartsDuTriangle(etude.effectifs[i])));
}

void TrierAPlat(Rapport& rapport, const Contexte& contexte, const OptionsTriapl& options) {
  const FichiersTriapl fichiers = TrouverFichiers(contexte, options);
  ExigerFichiers(
      rapport, contexte.Ecran(),
      {{fichiers.nomDonnees, fichiers.donnees.has_value()}, {contexte.Nom(".POS"), fichiers.pos.has_value()}},
      kArretAbsenceUnOuDeux);
  TeteTrg tete;
  if (options.triangulaire) tete = fichiers.trg ? LireTeteTriangle(*fichiers.trg) : DemanderTeteTriangle(contexte);

  ImprimerBandeau(rapport, "Tri à plat"_w);
  ImprimerNomsDeFichiers(rapport, contexte, fichiers);
  Etude etude = LireQuestions(fichiers);
  PrendreTaille(rapport, contexte, fichiers, etude);
  Compter(rapport, contexte, options, fichiers, etude);
  if (!options.triangulaire && etude.pos.taille.avantPonderation > 0) {
    const std::int64_t ponderes = etude.individus;
    Ponderer(etude);
    ImprimerPonderation(rapport, ponderes, etude.individus);
  }

  ImprimerTitreDesTris(rapport, options);
  const std::vector<TableauEdite> tableaux = DresserTris(options, etude, fichiers.mod ? &etude.intitules : nullptr);
  for (const TableauEdite& tableau : tableaux) ImprimerTableau(rapport, tableau);
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  if (options.triangulaire) EcrireTriangle(sorties.Ouvrir(contexte.Nom(".TRG"), Nature::Refaisable), etude, tete);
  EcrireTableaux(sorties, contexte.Nom(".TAP"), tableaux, options.sortie);
  sorties.Valider();
  rapport.Ligne("Fin normale du programme");
}

}  // namespace

Fin Triapl(const Contexte& contexte, const OptionsTriapl& options) {
  return ExecuterProgramme(contexte, contexte.Nom(".TAP"), LibellesErreur{},
                           [&](Rapport& rapport) { TrierAPlat(rapport, contexte, options); });
}

}  // namespace quelvar::sorts
