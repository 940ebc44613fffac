#include "utilities/gendat.h"

#include <algorithm>
#include <optional>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/jeu.h"
#include "core/fichiers/sauvegarde.h"
#include "core/programme/libelles.h"
#include "core/programme/place.h"
#include "utilities/edition.h"
#include "utilities/entrees/exigences.h"
#include "utilities/entrees/fichiers.h"

namespace quelvar::utilities {

namespace {

// One question of the new data.
struct QuestionCreee {
  std::string nom;
  int codeMax = 0;
  std::vector<std::string> codes;  // printed, from code 1 on
};

// Columns of the codes: those that "L3" makes are three.
int LargeurDesCodes(int codeMax) { return LargeurDe(codeMax > kDernierCodeNomme ? kCodeMaxL3 : codeMax); }

QuestionCreee Creer(std::string nom, std::int64_t codeMax) {
  if (codeMax > kCodeMaxL3) throw Erreur(kDepassementCapacite);
  QuestionCreee question{std::move(nom), static_cast<int>(codeMax), {}};
  const int largeur = LargeurDesCodes(question.codeMax);
  for (int code = 1; code <= question.codeMax; ++code) question.codes.push_back(NombreFixe(code, largeur, 0));
  return question;
}

// Rows, columns and, when there is more than one, blocks.
std::vector<QuestionCreee> CreerQuestions(const TableauDuGenerique& tableau) {
  const std::array<std::string, 3> noms = NomsDesQuestions(tableau.titre);
  std::vector<QuestionCreee> questions;
  questions.push_back(Creer(noms[0], tableau.lignes));
  questions.push_back(Creer(noms[1], static_cast<std::int64_t>(tableau.colonnes.size())));
  if (tableau.Blocs() > 1) questions.push_back(Creer(noms[2], tableau.Blocs()));
  return questions;
}

// Number of individuals of a cell.
std::int64_t Compter(std::string_view cellule, std::int64_t ligne, std::size_t colonne, BilanGendat& bilan) {
  const double valeur = ValeurDe(cellule);
  const double arrondie = ArrondirPair(valeur);
  if (valeur < 0) bilan.negatives.Noter(ligne, colonne, cellule);
  else if (valeur != arrondie) bilan.fractionnaires.Noter(ligne, colonne, cellule);
  return std::max<std::int64_t>(Entier64(arrondie), 0);
}

BilanGendat EcrireDonnees(const Contexte& contexte, const TableauDuGenerique& tableau,
                          const std::vector<QuestionCreee>& questions, Ecrivain& sortie) {
  BilanGendat bilan;
  std::int64_t rangee = 0;
  Progression progression(contexte.Ecran(), tableau.lignes * tableau.Blocs());
  std::string individu;
  ParcourirTableau(tableau, tableau.lignes * tableau.Blocs(), [&](const LigneDeTableau& ligne) {
    const auto i = static_cast<std::size_t>(rangee % tableau.lignes);
    const auto k = static_cast<std::size_t>(rangee / tableau.lignes);
    ++rangee;
    bilan.autres.Voir(ligne);
    for (std::size_t j = 0; j < ligne.cellules.size(); ++j) {
      const std::int64_t nombre = Compter(ligne.cellules[j], rangee, j + 1, bilan);
      individu = Joindre({questions[0].codes[i], questions[1].codes[j],
                          questions.size() > 2 ? std::string_view(questions[2].codes[k]) : std::string_view{}});
      for (std::int64_t n = 0; n < nombre; ++n) sortie.Ligne(individu);
      bilan.individus += nombre;
    }
    progression.Avancer();
  });
  bilan.lignesLaissees = tableau.lignesDuFichier - tableau.lignes * tableau.Blocs();
  return bilan;
}

// A line for each individual: a cell mistyped asks for a disk of its own.
void ExigerPlaceDesDonnees(Rapport& rapport, const Contexte& contexte, const TableauDuGenerique& tableau,
                           const std::vector<QuestionCreee>& questions) {
  double individus = 0;
  ParcourirTableau(tableau, tableau.lignes * tableau.Blocs(), [&](const LigneDeTableau& ligne) {
    for (const std::string_view cellule : ligne.cellules) individus += std::max(ValeurDe(cellule), 0.0);
  });
  std::size_t longueur = 2;
  for (const QuestionCreee& question : questions)
    longueur += question.codes.empty() ? 0 : question.codes.front().size();
  constexpr double kOctetsAuPlus = 1e18;  // an exabyte: no disk has it, and 64 bits hold it
  const double octets = std::min(individus * static_cast<double>(longueur), kOctetsAuPlus);
  ExigerPlace(contexte, rapport, {0, static_cast<std::uint64_t>(octets)});
}

void EcrirePos(Ecrivain& sortie, const std::string& titre, const std::vector<QuestionCreee>& questions,
               std::int64_t individus) {
  sortie.Ligne(titre);
  sortie.Ligne(LigneDeTaille(individus));
  std::size_t position = 1;
  for (const QuestionCreee& question : questions) {
    sortie.Ligne(LigneDeQuestion(question.nom, static_cast<std::int64_t>(position), TexteCodeMax(question.codeMax)));
    position += question.codes.empty() ? 1 : question.codes.front().size();
  }
}

void Engendrer(Rapport& rapport, const Contexte& contexte) {
  ExigerTableau(rapport, contexte);
  ImprimerTeteDeGendat(rapport, contexte);
  const TableauDuGenerique tableau = LireTableau(contexte);
  ExigerFormat(rapport, contexte, tableau);
  const std::vector<QuestionCreee> questions = CreerQuestions(tableau);
  ExigerPlaceDesDonnees(rapport, contexte, tableau, questions);

  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  if (const std::optional<Chemin> anciennes = contexte.Chercher(".DAT"))
    Sauvegarder(sorties, *anciennes, contexte.Nom(".DAT"));
  Ecrivain& donnees = sorties.Ouvrir(contexte.Nom(".DAT"), Nature::Refaisable);
  const BilanGendat bilan = EcrireDonnees(contexte, tableau, questions, donnees);
  EcrirePos(sorties.Ouvrir(contexte.Nom(".POS"), Nature::Unique), tableau.titre, questions, bilan.individus);
  const std::string copie = NomDeSauvegarde(contexte.Nom(".POS"));
  const std::optional<Chemin> sauvegarde = ChercherFichier(contexte.repertoire, copie);
  if (contexte.Chercher(".POS") && sauvegarde)
    sorties.Copier(*sauvegarde, NomDeSauvegardeLibre(contexte.repertoire, contexte.Nom(".POS")), Nature::Unique);
  if (const std::optional<Chemin> ancien = contexte.Chercher(".POS"))
    CopierSousLeNomUsuel(sorties, *ancien, contexte.Nom(".POS"));
  sorties.Valider();
  ImprimerReservesDeGendat(rapport, bilan);
  for (std::size_t i = 1; i < questions.size(); ++i)
    for (std::size_t j = 0; j < i; ++j)
      if (questions[i].nom == questions[j].nom)
        Prevenir(contexte,
                 Joindre({"Deux questions portent le nom ", questions[i].nom, ", tiré du titre "_w, tableau.titre,
                          " : changez l'un des deux dans ", contexte.Nom(".POS"), " avant d'analyser"}));
  rapport.Ligne("Programme normalement terminé"_w);
}

// Data that can't be counted again from the table are not lost unasked.
bool RemplacementAccepte(const Contexte& contexte) {
  if (!contexte.Chercher(".DAT") && !contexte.Chercher(".POS")) return true;
  if (!contexte.Chercher(".BRT") || !contexte.Chercher(".MOD")) return true;
  const std::string copie = NomDeSauvegarde(contexte.Nom(".POS"));
  std::string phrase;
  if (contexte.Chercher(".DAT"))
    phrase = Joindre({"Le fichier ", contexte.Nom(".DAT"),
                      " existe déjà : il va être remplacé par des individus refaits à partir du tableau. "_w,
                      contexte.Nom(".DAT"), " sera conservé sous le nom "_w,
                      NomDeSauvegardeLibre(contexte.repertoire, contexte.Nom(".DAT")), " et ", contexte.Nom(".POS"),
                      " sous le nom ", copie});
  else
    phrase = Joindre(
        {"Le fichier ", contexte.Nom(".POS"), " existe déjà : il va être remplacé, et conservé sous le nom "_w, copie});
  if (contexte.Chercher(".POS") && ChercherFichier(contexte.repertoire, copie))
    phrase += Joindre(
        {", l'ancien ", copie, " sous le nom ", NomDeSauvegardeLibre(contexte.repertoire, contexte.Nom(".POS"))});
  return contexte.Ecran().demander(Joindre({phrase, ". L'acceptez-vous ?"}), Boutons::OuiNon) == Reponse::Oui;
}

}  // namespace

std::array<std::string, 3> NomsDesQuestions(std::string_view titre) {
  std::array<std::string, 3> noms = {"LGN", "COL", "BLK"};
  if (titre.find('/') == std::string_view::npos) return noms;
  for (std::string& nom : noms) {
    const std::size_t fin = std::min(titre.find('/'), titre.size());
    const std::string_view partie = Rogner(titre.substr(0, fin));
    if (!partie.empty()) nom = CadreGauche(partie, kLargeurDeQuestion);
    titre.remove_prefix(std::min(fin + 1, titre.size()));
  }
  return noms;
}

Fin Gendat(const Contexte& contexte, const OptionsGendat&) {
  if (!RemplacementAccepte(contexte)) return Fin::Arret;
  return ExecuterProgramme(contexte, NomDuRapport(contexte), LibellesSansTexte(),
                           [&](Rapport& rapport) { Engendrer(rapport, contexte); });
}

}  // namespace quelvar::utilities
