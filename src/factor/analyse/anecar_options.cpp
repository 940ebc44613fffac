#include "factor/analyse/anecar_options.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "core/chiffres/nombres.h"
#include "core/options/sortie.h"
#include "core/texte/caracteres.h"

namespace quelvar::factor {

namespace {

using O = OptionsAnecar;
using Textes = std::vector<std::string>;

using Seuils = std::numeric_limits<std::int16_t>;  // that can be typed

Description<O>::Poser PoserSeuil(std::string nom, std::optional<int> O::*membre) {
  return [nom = std::move(nom), membre](O& options, const std::string& valeur) {
    if (EgalSansCasse(valeur, kMotDeLaMoyenne)) {
      options.*membre = kSeuilMoyen;
      return;
    }
    const std::string_view chiffres = std::string_view(valeur).substr(valeur.starts_with('-') ? 1 : 0);
    const bool entier = SontChiffres(chiffres) && chiffres.size() <= Seuils::digits10 + 1;
    const double seuil = entier ? ValeurDe(valeur) : 0;
    if (!entier || seuil < Seuils::min() || seuil > Seuils::max())
      RefuserValeur(nom,
                    Joindre({"moyenne ou un nombre entier (", Nombre(Seuils::min()), "..", Nombre(Seuils::max()), ")"}),
                    valeur);
    options.*membre = static_cast<int>(seuil);
  };
}

Description<O>::Ecrire EcrireSeuil(std::optional<int> O::*membre) {
  return [membre](const O& options) {
    const std::optional<int>& seuil = options.*membre;
    if (!seuil) return Textes();
    return Textes{*seuil == kSeuilMoyen ? Minuscules(kMotDeLaMoyenne) : Nombre(*seuil)};
  };
}

void PoserInversions(O& options, const std::string& valeur) {
  options.inversions = {};
  for (std::size_t i = 0; i < valeur.size(); i += 2) {
    const bool separe = i + 1 == valeur.size() || valeur[i + 1] == ',';
    if (valeur[i] < '1' || valeur[i] > '3' || !separe)
      RefuserValeur("inversions", "des facteurs de 1 à 3 (1,3)"_w, valeur);
    options.inversions[static_cast<std::size_t>(valeur[i] - '1')] = true;
  }
}

Textes EcrireInversions(const O& options) {
  Textes facteurs;
  for (std::size_t i = 0; i < options.inversions.size(); ++i)
    if (options.inversions[i]) facteurs.push_back(Nombre(i + 1));
  if (facteurs.empty()) return {};
  return {NomsJoints(facteurs)};
}

void PoserClassification(O& options, const std::string& valeur) {
  const std::string mot = Minuscules(valeur);
  if (mot == "non") return options.classification.reset();
  if (mot != "ward1" && mot != "ward2") RefuserValeur("cah", "ward1|ward2|non", valeur);
  if (!options.classification) options.classification.emplace();
  options.classification->methode = mot == "ward1" ? MethodeWard::Distances : MethodeWard::Carres;
}

Textes EcrireClassification(const O& options) {
  if (!options.classification) return {"non"};
  return {options.classification->methode == MethodeWard::Distances ? "ward1" : "ward2"};
}

// A choice of the classification, which begins with it.
Description<O>::Poser PoserChoixWard(std::string nom, bool OptionsWard::*membre) {
  return [nom = std::move(nom), membre](O& options, const std::string& valeur) {
    const bool choisi = LireOuiNon(nom, valeur);
    if (choisi && !options.classification) options.classification.emplace();
    if (options.classification) *options.classification.*membre = choisi;
  };
}

Description<O>::Ecrire EcrireChoixWard(bool OptionsWard::*membre) {
  return [membre](const O& options) {
    return Textes{options.classification && *options.classification.*membre ? "oui" : "non"};
  };
}

void DecrireEdition(Description<O>& description) {
  description
      .Choix(
          "edition", &O::edition,
          {{"compacte", EditionAnecar::Compacte}, {"triee", EditionAnecar::Triee}, {"etendue", EditionAnecar::Etendue}},
          "tables compactes, listes triées par facteur, ou tables étendues avec Cos2"_w)
      .Defaut("selon le niveau et la taille")
      .Bouton("optCompact", "compacte")
      .Bouton("optTrié"_w, "triee")
      .Bouton("optDetails", "etendue")
      .Bouton("TriEdit", "triee")
      .OuiNon("lignes", &O::imprimerLignes, "imprime aussi les lignes du tableau dans les listes triées"_w)
      .Montre("CaseLignes")
      .Bouton("CaseLignes2", "oui")
      .Libre("seuillignes", "moyenne|N", "contribution minimum pour l'édition des lignes"_w,
             PoserSeuil("seuillignes", &O::seuilLignes), EcrireSeuil(&O::seuilLignes))
      .Defaut("niveau 1 : 0, niveau 2 : moyenne")
      .Montre("TextBoxCTRL")
      .Libre("seuilcolonnes", "moyenne|N", "contribution minimum pour l'édition des colonnes"_w,
             PoserSeuil("seuilcolonnes", &O::seuilColonnes), EcrireSeuil(&O::seuilColonnes))
      .Defaut("niveau 1 : 0, niveau 2 : moyenne")
      .Montre("TextBoxCTRC");
}

void DecrireClassification(Description<O>& description) {
  description
      .Libre("cah", "ward1|ward2|non", "classe ensuite les modalités par la méthode de Ward"_w, PoserClassification,
             EcrireClassification)
      .Parmi({"ward1", "ward2", "non"})
      .Bouton("OptW1", "ward1")
      .Bouton("OptW2", "ward2")
      .Libre("individus", "oui|non", "classe les individus au lieu des modalités"_w,
             PoserChoixWard("individus", &OptionsWard::individus), EcrireChoixWard(&OptionsWard::individus))
      .Parmi({"oui", "non"})
      .Montre("IndivCAH")
      .Libre("csv", "oui|non", "écrit le .CSV des étapes de la classification"_w,
             PoserChoixWard("csv", &OptionsWard::etapesCsv), EcrireChoixWard(&OptionsWard::etapesCsv))
      .Parmi({"oui", "non"})
      .Montre("ImprAgr");
}

Description<O> Decrire() {
  Description<O> description(
      "anecar", "Analyse factorielle d'un tableau (.AFC ou .ACP, coordonnées .FAJ .FAI .FJ2 .FI2)"_w, Anecar);
  description
      .Choix("analyse", &O::type, {{"afc", TypeAnalyse::Afc}, {"acp", TypeAnalyse::Acp}},
             "analyse des correspondances ou en composantes principales")
      .Bouton("optAFC", "afc")
      .Bouton("optACP", "acp")
      .Entier("facteurs", &O::facteurs, 0, kFacteursAuPlus, "nombre de facteurs à extraire, 0 pour 3"_w)
      .Defaut("3, ou 5 avec cah")
      .Montre("TextBoxNbFact");
  DecrireEdition(description);
  description.OuiNon("codagelogique", &O::codageLogique, "analyse les individus eux-mêmes, en codage logique"_w)
      .Montre("CaseCDG")
      .Libre("inversions", "facteurs", "facteurs, de 1 à 3, dont le signe est inversé dans les fichiers"_w,
             PoserInversions, EcrireInversions)
      .Defaut("aucune")
      .Bouton("Inv1", "1")
      .Bouton("Inv2", "2")
      .Bouton("Inv3", "3");
  DecrireClassification(description);
  description.Choix("sortie", &O::sortie, MotsDesSorties(), kAideSortie);
  return description;
}

}  // namespace

int SeuilTape(std::string_view texte) {
  if (EgalSansCasse(texte, kMotDeLaMoyenne)) return kSeuilMoyen;
  return Entier16(std::clamp<double>(ValeurDe(texte), Seuils::min(), Seuils::max()));
}

const Description<OptionsAnecar>& DescriptionAnecar() {
  static const Description<OptionsAnecar> description = Decrire();
  return description;
}

}  // namespace quelvar::factor
