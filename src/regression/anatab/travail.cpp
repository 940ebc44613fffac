#include "regression/anatab/travail.h"

#include <algorithm>
#include <string>

#include "core/chiffres/nombres.h"
#include "core/fichiers/jeu.h"
#include "regression/anatab/editiondeseffets.h"

namespace quelvar::regression {

namespace {

constexpr std::string_view kExtensions[] = {".CD2", ".CD4", ".cd6", ".cd7", ".cd8"};

// Numbers of the work files: those of the situations, and those of the list of groups.
constexpr int kEntiersDesSituations = 6;
constexpr int kEntiersDUnPourcentage = 3;
constexpr int kDecimalesDUnPourcentage = 6;
constexpr int kEntiersDeLaListe = 4;

Ecrivain Ouvrir(const Contexte& contexte, std::string_view extension) {
  return Ecrivain(CheminDEcriture(contexte.repertoire, contexte.Nom(extension)));
}

void EcrireFiches(Ecrivain fichier, const Fiches& fiches, const std::vector<NumeroFiche>& liste) {
  for (const NumeroFiche f : liste) fichier.Ligne(fiches[f]);
  fichier.Fermer();
}

std::string LigneComptee(const Fiches& fiches, const Comptee& comptee) {
  return Joindre({fiches[comptee.fiche], " ", NombreNu(comptee.effectif)});
}

void EcrireComptees(Ecrivain fichier, const TravailDAnatab& travail) {
  for (const Comptee& comptee : travail.comptees) fichier.Ligne(LigneComptee(travail.individus.fiches, comptee));
  fichier.Fermer();
}

void EcrireSituations(Ecrivain fichier, const AnalyseTabulaire& analyse) {
  for (std::size_t s = 0; s < analyse.examinees; ++s) {
    const Situation& situation = analyse.table.situations[s];
    for (const std::uint32_t k : analyse.table.Modalites(s))
      for (const std::string& morceau : {analyse.cellules[k].intitule, analyse.cellules[k].role})
        fichier.Ecrire(morceau);
    fichier.Ligne(Joindre({NombreFixe(situation.effectif, kEntiersDesSituations, 0),
                           NombreFixe(situation.pourcentage, kEntiersDUnPourcentage, kDecimalesDUnPourcentage)}));
  }
  fichier.Fermer();
}

void EcrireSousEffets(Ecrivain populations, Ecrivain tableaux, const TravailDAnatab& travail) {
  const AnalyseTabulaire& analyse = travail.analyse;
  std::string population;
  ParcourirSousEffets(analyse.table, analyse.cellules, analyse.voisinages, [&](const SousEffet& sousEffet) {
    population.clear();
    AjouterSousPopulation(population, analyse, sousEffet);
    populations.Ligne(population);
    for (const std::string& ligne : LignesDeLaPaire(TableDe(analyse, travail.modele, sousEffet)))
      tableaux.Ecrire(ligne);
    tableaux.FinDeLigne();
  });
  populations.Fermer();
  tableaux.Fermer();
}

// The names of the columns of the list: the explanatory modalities, the explained one, the others of its question.
std::vector<std::string_view> NomsDesColonnes(const Modele& modele) {
  std::vector<std::string_view> noms;
  for (std::size_t k = 0; k < modele.Explicatives(); ++k) noms.push_back(modele.Explicative(k).nom);
  noms.push_back(modele.Expliquee().nom);
  for (const std::size_t i : modele.autres) noms.push_back(modele.codage[i].nom);
  return noms;
}

}  // namespace

bool EstEstimee(const TravailDAnatab& travail, std::size_t k) {
  return std::any_of(travail.comptees.begin(), travail.comptees.end(), [&](const Comptee& comptee) {
    return ValeurDuCaractere(travail.individus.fiches[comptee.fiche][k]) != 0;
  });
}

void LaisserLesFichiers(const Contexte& contexte, const TravailDAnatab& travail) {
  const Fiches& fiches = travail.individus.fiches;
  if (travail.etape >= Etape::Lecture && travail.etape <= Etape::Situations) {
    if (travail.etape == Etape::SansPaire) Ouvrir(contexte, ".CD2").Fermer();
    else if (travail.filtrees) EcrireComptees(Ouvrir(contexte, ".CD2"), travail);
    else EcrireFiches(Ouvrir(contexte, ".CD2"), fiches, travail.individus.fiche);
  }
  if (travail.etape >= Etape::Tri && travail.etape <= Etape::Situations)
    EcrireFiches(Ouvrir(contexte, ".CD4"), fiches, travail.triees);
  if (travail.etape >= Etape::SansPaire) EcrireComptees(Ouvrir(contexte, ".cd6"), travail);
  if (travail.etape >= Etape::Situations) EcrireSituations(Ouvrir(contexte, ".cd8"), travail.analyse);
  if (travail.etape >= Etape::SousEffets) EcrireSousEffets(Ouvrir(contexte, ".CD2"), Ouvrir(contexte, ".CD4"), travail);
}

void EcrireListeFinale(const Contexte& contexte, const TravailDAnatab& travail) {
  const std::vector<std::string_view> noms = NomsDesColonnes(travail.modele);
  Ecrivain fichier = Ouvrir(contexte, ".cd7");
  double numero = 0;
  for (const Comptee& comptee : travail.comptees) {
    // The count and the marks are looked up by the number of modalities of the file, which is the width of a record
    // when the explained question has two.
    const std::string ligne = LigneComptee(travail.individus.fiches, comptee);
    const std::string_view marques = Milieu(ligne, 1, noms.size());
    fichier.Ecrire(NombreFixe(++numero, kEntiersDeLaListe, 0));
    fichier.Ecrire(NombreFixe(ValeurDe(Milieu(ligne, noms.size() + 1)), kEntiersDeLaListe, 0));
    fichier.Ecrire(marques);
    fichier.Ecrire(' ');
    for (std::size_t c = 0; c < marques.size(); ++c) {
      if (marques[c] != '1') continue;
      fichier.Ecrire(noms[c]);
      fichier.Ecrire(' ');
    }
    fichier.FinDeLigne();
  }
  fichier.Fermer();
}

void EffacerLesFichiers(const Contexte& contexte) {
  std::vector<std::string> noms;
  for (const std::string_view extension : kExtensions) noms.push_back(contexte.Nom(extension));
  EffacerEnsemble(contexte.repertoire, contexte.generique, noms);
}

}  // namespace quelvar::regression
