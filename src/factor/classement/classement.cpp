#include "factor/classement/classement.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/fichiers/sauvegarde.h"
#include "core/panne/annonce.h"
#include "core/panne/attention.h"
#include "core/programme/arret.h"
#include "core/programme/place.h"
#include "factor/classement/cah.h"
#include "factor/classement/edition.h"
#include "factor/classement/tableur.h"
#include "factor/fichiers/coordonnees.h"

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
  for (double& x : population.points.Valeurs()) x /= kMilliemesParUnite;
  for (std::size_t i = 0; i < lus.noms.size(); ++i) {
    const bool nomCourt = options.individus || Rogner(lus.intitules[i]).empty();
    population.libelles.push_back(std::move(nomCourt ? lus.noms[i] : lus.intitules[i]));
  }
  return population;
}

// A .CSV that no classification has written is the user's spreadsheet: a copy of it stays.
void GarderTableur(const Contexte& contexte, Rapport& rapport, JeuDeFichiers& sorties) {
  const std::optional<Chemin> tableur = contexte.Chercher(".CSV");
  if (!tableur) return;
  LecteurLignes lecteur(*tableur);
  if (std::string_view titre; !lecteur.Lire(titre) || titre == kTitreDuTableur) return;
  const std::string copie = Sauvegarder(sorties, *tableur, contexte.Nom(".CSV"));
  rapport.Ligne(
      {kAttention, "le fichier ", contexte.Nom(".CSV"), " existait déjà, il est sauvegardé sous le nom "_w, copie});
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
  if (static_cast<std::int64_t>(etapes.size()) < elements - 1)
    AvertirEtArreter(rapport, contexte.Ecran(),
                     Joindre({kArretDuProgrammeSansAccents, "des éléments sont trop éloignés pour être classés"_w}));

  EcrireCah(sorties.Ouvrir(contexte.Nom(".CAH"), Nature::Refaisable), {options.individus, etapes});
  const std::vector<BilanDEtape> bilans = BilanDesEtapes(etapes);
  if (options.etapesCsv) {
    GarderTableur(contexte, rapport, sorties);
    EcrireTableur(sorties.Ouvrir(contexte.Nom(".CSV"), Nature::Refaisable), bilans);
  }
  ImprimerEtapes(rapport, etapes, bilans, population.libelles);
  contexte.Ecran().montrerProgression(0);
}

}  // namespace quelvar::factor
