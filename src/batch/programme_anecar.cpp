#include "batch/programmes.h"
#include "factor/analyse/anecar.h"

namespace quelvar::batch {

namespace {

using O = factor::OptionsAnecar;

Description<O>::Poser PoserSeuil(std::string nom, std::optional<int> O::*membre) {
  return [nom = std::move(nom), membre](O& options, const std::string& valeur) {
    if (Minuscules(valeur) == "moyenne") {
      options.*membre = factor::kSeuilMoyen;
      return;
    }
    if (valeur.empty() || valeur.size() > 4 || valeur.find_first_not_of("0123456789") != std::string::npos)
      throw UsageIncorrect(
          Joindre({"l'option ", nom, " attend moyenne ou un nombre entier (0..9999) et non \"", valeur, "\""}));
    options.*membre = static_cast<int>(ValeurDe(valeur));
  };
}

void PoserEdition(O& options, const std::string& valeur) {
  const std::string mot = Minuscules(valeur);
  if (mot == "compacte") options.edition = factor::EditionAnecar::Compacte;
  else if (mot == "triee") options.edition = factor::EditionAnecar::Triee;
  else if (mot == "etendue") options.edition = factor::EditionAnecar::Etendue;
  else throw UsageIncorrect(Joindre({"l'option edition attend compacte|triee|etendue et non \"", valeur, "\""}));
}

void PoserInversions(O& options, const std::string& valeur) {
  options.inversions = {};
  for (std::size_t i = 0; i < valeur.size(); i += 2) {
    const bool separe = i + 1 == valeur.size() || valeur[i + 1] == ',';
    if (valeur[i] < '1' || valeur[i] > '3' || !separe)
      throw UsageIncorrect(
          Joindre({"l'option inversions attend des facteurs de 1 à 3 (1,3) et non \""_w, valeur, "\""}));
    options.inversions[static_cast<std::size_t>(valeur[i] - '1')] = true;
  }
}

void PoserFacteurs(O& options, const std::string& valeur) {
  if (valeur.empty() || valeur.size() > 3 || valeur.find_first_not_of("0123456789") != std::string::npos)
    throw UsageIncorrect(Joindre({"l'option facteurs attend un nombre entier (0..999) et non \"", valeur, "\""}));
  options.facteurs = static_cast<int>(ValeurDe(valeur));
}

void PoserClassification(O& options, const std::string& valeur) {
  const std::string mot = Minuscules(valeur);
  if (mot == "non") return options.classification.reset();
  if (mot != "ward1" && mot != "ward2")
    throw UsageIncorrect(Joindre({"l'option cah attend ward1|ward2|non et non \"", valeur, "\""}));
  if (!options.classification) options.classification.emplace();
  options.classification->methode = mot == "ward1" ? factor::MethodeWard::Distances : factor::MethodeWard::Carres;
}

// A choice of the classification, which begins with it.
Description<O>::Poser PoserChoixWard(std::string nom, bool factor::OptionsWard::*membre) {
  return [nom = std::move(nom), membre](O& options, const std::string& valeur) {
    const bool choisi = LireOuiNon(nom, valeur);
    if (choisi && !options.classification) options.classification.emplace();
    if (options.classification) *options.classification.*membre = choisi;
  };
}

}  // namespace

Programme ProgrammeAnecar() {
  return Description<O>("anecar", "Analyse factorielle d'un tableau (.AFC ou .ACP, coordonnées .FAJ .FAI .FJ2 .FI2)"_w,
                        factor::Anecar)
      .Choix<factor::TypeAnalyse>("analyse", &O::type,
                                  {{"afc", factor::TypeAnalyse::Afc}, {"acp", factor::TypeAnalyse::Acp}},
                                  "analyse des correspondances ou en composantes principales")
      .Libre("facteurs", "0..999", "3, ou 5 avec cah", "nombre de facteurs à extraire, 0 pour 3"_w, PoserFacteurs)
      .Alias({"textboxnbfact"})
      .Libre("edition", "compacte|triee|etendue", "selon le niveau et la taille",
             "tables compactes, listes triées par facteur, ou tables étendues avec Cos2"_w, PoserEdition)
      .OuiNon("lignes", &O::imprimerLignes, "imprime aussi les lignes du tableau dans les listes triées"_w)
      .Alias({"caselignes"})
      .Libre("seuillignes", "moyenne|N", "niveau 1 : 0, niveau 2 : moyenne",
             "contribution minimum pour l'édition des lignes"_w, PoserSeuil("seuillignes", &O::seuilLignes))
      .Alias({"textboxctrl"})
      .Libre("seuilcolonnes", "moyenne|N", "niveau 1 : 0, niveau 2 : moyenne",
             "contribution minimum pour l'édition des colonnes"_w, PoserSeuil("seuilcolonnes", &O::seuilColonnes))
      .Alias({"textboxctrc"})
      .OuiNon("codagelogique", &O::codageLogique, "analyse les individus eux-mêmes, en codage logique"_w)
      .Alias({"casecdg"})
      .Libre("inversions", "facteurs", "aucune", "facteurs, de 1 à 3, dont le signe est inversé dans les fichiers"_w,
             PoserInversions)
      .Libre("cah", "ward1|ward2|non", "non", "classe ensuite les modalités par la méthode de Ward"_w,
             PoserClassification)
      .Libre("individus", "oui|non", "non", "classe les individus au lieu des modalités"_w,
             PoserChoixWard("individus", &factor::OptionsWard::individus))
      .Alias({"indivcah"})
      .Libre("csv", "oui|non", "non", "écrit le .CSV des étapes de la classification"_w,
             PoserChoixWard("csv", &factor::OptionsWard::etapesCsv))
      .Alias({"impragr"});
}

}  // namespace quelvar::batch
