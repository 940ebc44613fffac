#include "factor/classement/classement.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/fichiers/sauvegarde.h"
#include "core/programme/place.h"
#include "core/texte/nombres.h"
#include "factor/coordonnees.h"

namespace quelvar::factor {

namespace {

// The elements under the names that the report shows.
struct Population {
  Matrice points;  // factors x elements, coordinate units
  std::vector<std::string> libelles;
};

Population LirePopulation(const Chemin& points, std::size_t facteurs, const OptionsWard& options,
                          std::optional<std::size_t> derniers) {
  PointsFactoriels lus = LirePoints(points, facteurs, derniers.value_or(kToutesLesLignes));
  Population population{std::move(lus.coordonnees), {}};
  for (double& x : population.points.Valeurs()) x /= 1000;
  for (std::size_t i = 0; i < lus.noms.size(); ++i) {
    const bool nomCourt = options.individus || Rogner(lus.intitules[i]).empty();
    population.libelles.push_back(std::move(nomCourt ? lus.noms[i] : lus.intitules[i]));
  }
  return population;
}

std::string TexteItem(std::int32_t item, const std::vector<std::string>& libelles) {
  constexpr int kLargeur = 14;
  if (item > 0) return CadreGauche(libelles[static_cast<std::size_t>(item - 1)], kLargeur);
  return Joindre({" Agrég. n°"_w, CadreDroit(Nombre(-item), 3), " "});
}

// How the number of classes changes: two elements make a new one, two classes become one.
int Changement(const EtapeWard& etape) { return (etape.itemPremier > 0 ? 1 : 0) + (etape.itemSecond > 0 ? 1 : 0) - 1; }

// Report and steps file.
void EcrireEtapes(Rapport& rapport, Ecrivain* csv, const std::vector<EtapeWard>& etapes,
                  const std::vector<std::string>& libelles) {
  rapport.Ligne("NUM Elément 1     Elément 2   NbAgrèg  Critère  %Crit Cumulé"_w);
  rapport.Ligne("                                    d'association");
  double total = 0;
  for (const EtapeWard& etape : etapes) total += etape.critere;
  double cumul = 0;
  int classes = 0;
  for (std::size_t s = 0; s < etapes.size(); ++s) {
    const EtapeWard& etape = etapes[s];
    cumul += etape.critere;
    classes += Changement(etape);
    const std::string numero = NombreFixe(static_cast<double>(s + 1), 4, 0);
    const std::string nombre = NombreFixe(classes, 3, 0);
    rapport.Ligne({numero, " ", TexteItem(etape.itemPremier, libelles), TexteItem(etape.itemSecond, libelles), nombre,
                   NombreFixe(etape.critere, 5, 5), NombreFixe(total == 0 ? 0 : 100 * cumul / total, 5, 1)});
    if (csv) csv->Ligne(numero + ';' + nombre);
  }
}

void EcrireArbre(Ecrivain& cah, const std::vector<EtapeWard>& etapes, bool individus) {
  cah.Ligne(std::string_view(individus ? "INDIV = OUI" : "INDIV = NON"));
  for (std::size_t s = 0; s < etapes.size(); ++s) {
    cah.Ecrire(NombreFixe(static_cast<double>(s + 1), 4, 0));
    for (const std::int32_t valeur : {etapes[s].premier, etapes[s].second, etapes[s].itemPremier, etapes[s].itemSecond})
      cah.Ecrire(NombreFixe(valeur, 5, 0));
    cah.FinDeLigne();
  }
  // The members of each class as its step makes it.
  const MembresWard membres = MembresDesEtapes(etapes);
  for (std::size_t s = 0; s < etapes.size(); ++s) {
    cah.Ecrire(NombreFixe(static_cast<double>(s + 1), 4, 0));
    cah.Ecrire(' ');
    for (const std::int32_t element : membres.DeLEtape(s)) cah.Ecrire(NombreFixe(element, 4, 0));
    cah.FinDeLigne();
  }
}

constexpr std::string_view kTitreDesEtapes = " ;Etapes de l'agrégation"_w;

// A .CSV that no classification has written is the user's spreadsheet: a copy of it stays.
void GarderTableur(const Contexte& contexte, Rapport& rapport, JeuDeFichiers& sorties) {
  const std::optional<Chemin> tableur = contexte.Chercher(".CSV");
  if (!tableur) return;
  LecteurLignes lecteur(*tableur);
  if (std::string_view titre; !lecteur.Lire(titre) || titre == kTitreDesEtapes) return;
  const std::string copie = Sauvegarder(sorties, *tableur, contexte.Nom(".CSV"));
  rapport.Ligne(
      {"*** Attention : le fichier ", contexte.Nom(".CSV"), " existait déjà, il est sauvegardé sous le nom "_w, copie});
}

}  // namespace

void ClasserWard(const Contexte& contexte, Rapport& rapport, const Chemin& points, std::size_t facteurs,
                 const OptionsWard& options, std::optional<std::size_t> derniers, JeuDeFichiers& sorties) {
  Population population = LirePopulation(points, facteurs, options, derniers);
  rapport.Ligne({"Méthode Ward"_w, NombreNu(static_cast<int>(options.methode))});
  const auto elements = static_cast<std::int64_t>(population.libelles.size());
  const auto n = static_cast<std::uint64_t>(elements);
  ExigerPlace(contexte, rapport, {4 * n * n, 0});  // half a matrix of doubles
  contexte.Ecran().montrerProgression(std::max<std::int64_t>(elements - 1, 1));
  const std::vector<EtapeWard> etapes = ClasserPoints(population.points, options.methode, contexte.Ecran().progresser);
  if (static_cast<std::int64_t>(etapes.size()) < elements - 1) {
    Avertir(rapport, contexte.Ecran(), "*** Arret du programme : des éléments sont trop éloignés pour être classés"_w);
    throw Erreur(kArretAnnonce);
  }

  EcrireArbre(sorties.Ouvrir(contexte.Nom(".CAH"), Nature::Refaisable), etapes, options.individus);
  Ecrivain* csv = nullptr;
  if (options.etapesCsv) {
    GarderTableur(contexte, rapport, sorties);
    csv = &sorties.Ouvrir(contexte.Nom(".CSV"), Nature::Refaisable);
    csv->Ligne(kTitreDesEtapes);
  }
  EcrireEtapes(rapport, csv, etapes, population.libelles);
  contexte.Ecran().montrerProgression(0);
}

}  // namespace quelvar::factor
