// The triangular graph and the grouping of a Burt table.
#include "batch/programmes.h"
#include "modalities/regroupement/modifburt.h"
#include "tables/triangle/triang.h"

namespace quelvar::batch {

namespace {

using OptionsBurt = modalities::OptionsModifBurt;
using OptionsTriang = tables::OptionsTriang;

Description<OptionsBurt>::Poser PoserMarques(std::vector<std::string> OptionsBurt::*membre) {
  return [membre](OptionsBurt& options, const std::string& valeur) { options.*membre = NomsSepares(valeur); };
}

Description<OptionsBurt>::Poser PoserNom(std::string nom, std::string OptionsBurt::*membre) {
  return [nom = std::move(nom), membre](OptionsBurt& options, const std::string& valeur) {
    if (valeur.size() > modalities::kNomDeGroupeLePlusLong)
      throw UsageIncorrect(Joindre({"l'option ", nom, " prend 25 caractères au plus"_w}));
    options.*membre = valeur;
  };
}

template <typename Choix>
Description<OptionsTriang>::Poser PoserReglage(std::string nom, Choix tables::ReglagesTriangle::*membre,
                                               std::vector<std::pair<std::string, Choix>> mots) {
  return [nom = std::move(nom), membre, mots = std::move(mots)](OptionsTriang& options, const std::string& valeur) {
    for (const auto& [mot, choix] : mots)
      if (mot == Minuscules(valeur)) {
        options.reglages.*membre = choix;
        return;
      }
    throw UsageIncorrect(Joindre({"l'option ", nom, " ne connaît pas \""_w, valeur, "\""}));
  };
}

void DecrireCase(Description<OptionsTriang>& description, std::string nom, bool tables::ReglagesTriangle::*membre,
                 std::string_view aide, std::string controle) {
  description.Libre(nom, "oui|non", "non", aide, PoserReglage<bool>(nom, membre, {{"oui", true}, {"non", false}}));
  description.Alias({std::move(controle)});
}

void DecrireCote(Description<OptionsTriang>& description, std::string nom, double tables::CotesTriangle::*membre,
                 std::string_view defaut, std::string_view aide) {
  description.Libre(nom, "0..100", defaut, aide, [nom, membre](OptionsTriang& options, const std::string& valeur) {
    const double place = ValeurDe(valeur);
    if (!EstNombre(valeur) || place < 0 || place > 100)
      throw UsageIncorrect(Joindre({"l'option ", nom, " attend un nombre de 0 à 100 et non \""_w, valeur, "\""}));
    options.cotes.*membre = place;
  });
}

void PoserFichier(OptionsTriang& options, const std::string& valeur) {
  if (!Minuscules(valeur).ends_with(".svg"))
    throw UsageIncorrect(Joindre({"l'option fichier attend un nom en .svg et non \"", valeur, "\""}));
  options.fichier = valeur;
}

}  // namespace

Programme ProgrammeModifBurt() {
  using O = OptionsBurt;
  return Description<O>("modifburt", "Regroupement de lignes et de colonnes d'un tableau, sous un nouveau générique"_w,
                        modalities::ModifierBurt)
      .Libre("colonnes", "NOM,NOM...", "aucune", "colonnes à regrouper ; d'un tableau de Burt, aussi ses lignes"_w,
             PoserMarques(&O::colonnes))
      .Libre("lignes", "NOM,NOM...", "aucune", "lignes à regrouper"_w, PoserMarques(&O::lignes))
      .Libre("nomcolonne", "TEXTE", "", "intitulé du regroupement de colonnes, 25 caractères au plus"_w,
             PoserNom("nomcolonne", &O::nomColonne))
      .Alias({"textnouvcol"})
      .Libre("nomligne", "TEXTE", "", "intitulé du regroupement de lignes, 25 caractères au plus"_w,
             PoserNom("nomligne", &O::nomLigne))
      .Alias({"textnouvnom"});
}

Programme ProgrammeTriang() {
  using tables::FormeTriangle;
  using tables::ReglagesTriangle;
  using tables::TailleTriangle;
  Description<OptionsTriang> description("triang", "Graphique triangulaire d'un fichier .TRG (SVG, rapport .prt)",
                                         tables::Triang);
  description.Libre("fichier", "NOM.svg", "GENERIQUETrg.svg", "le graphique, en SVG", PoserFichier)
      .Libre("forme", "triangulaire|angledroit", "triangulaire", "triangle équilatéral, ou angle droit"_w,
             PoserReglage<FormeTriangle>(
                 "forme", &ReglagesTriangle::forme,
                 {{"triangulaire", FormeTriangle::Triangulaire}, {"angledroit", FormeTriangle::AngleDroit}}))
      .Libre("caracteres", "moyens|petits|grands", "moyens", "taille des caractères"_w,
             PoserReglage<TailleTriangle>("caracteres", &ReglagesTriangle::taille,
                                          {{"moyens", TailleTriangle::Moyenne},
                                           {"petits", TailleTriangle::Petite},
                                           {"grands", TailleTriangle::Grande}}));
  DecrireCase(description, "longs", &ReglagesTriangle::intitulesLongs, "intitulés longs"_w, "checklong");
  DecrireCase(description, "centre", &ReglagesTriangle::centre, "affiche le centre", "chkcentre");
  DecrireCase(description, "troisieme", &ReglagesTriangle::troisieme, "affiche la 3e coordonnée"_w, "chkgauche");
  DecrireCase(description, "traits", &ReglagesTriangle::traits,
              "trait entre modalités dont les trois premiers caractères sont identiques"_w, "chktrait");
  DecrireCase(description, "gras", &ReglagesTriangle::gras, "caractères gras"_w, "check1");
  DecrireCote(description, "gauche", &tables::CotesTriangle::gauche, "0", "place du côté gauche"_w);
  DecrireCote(description, "bas", &tables::CotesTriangle::bas, "0", "place du côté inférieur"_w);
  DecrireCote(description, "droit", &tables::CotesTriangle::droit, "100", "place du côté droit"_w);
  description.Entier("marque", &OptionsTriang::marque, 0, 5, "marque des points : 0 *, sinon taille du cercle")
      .Entier("largeur", &OptionsTriang::largeur, 20, 1000, "largeur du graphique, %")
      .Entier("hauteur", &OptionsTriang::hauteur, 20, 1000, "hauteur du graphique, %")
      .Entier("page", &OptionsTriang::fenetre, 20, 1000, "fenêtre d'impression, %"_w);
  return description;
}

}  // namespace quelvar::batch
