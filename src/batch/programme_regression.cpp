// The programs of the regression.
#include "batch/programmes.h"
#include "regression/anatab/anatab.h"
#include "regression/modifmodr.h"
#include "regression/reglin/reglin.h"

namespace quelvar::batch {

namespace {

// A program whose options all stand in the files of the survey.
struct SansOption {};

Description<regression::OptionsModifModR>::Poser PoserCodes(regression::OptionsModifModR::Action::Genre genre) {
  return [genre](regression::OptionsModifModR& options, const std::string& valeur) {
    for (const std::string& nom : NomsSepares(valeur)) options.actions.push_back({genre, nom});
  };
}

}  // namespace

Programme ProgrammeModifModR() {
  using O = regression::OptionsModifModR;
  return Description<O>("modifmodr", "Codage d'une régression dans le .MOD : modalité à expliquer, références"_w,
                        regression::ModifModR)
      .Libre("expliquer", "NOM", "", "modalité à expliquer ; les autres de sa question sont mises à blanc"_w,
             PoserCodes(O::Action::Genre::Expliquer))
      .Libre("reference", "NOM,NOM...", "", "modalités de référence ; les autres de leur question sont explicatives"_w,
             PoserCodes(O::Action::Genre::Reference))
      .Libre("intitule", "NOM=TEXTE", "", "intitulé d'une modalité ; peut être répété"_w,
             [](O& options, const std::string& valeur) {
               auto [nom, texte] = NomEtTexte("intitule", valeur);
               options.actions.push_back({O::Action::Genre::Intitule, std::move(nom), std::move(texte)});
             });
}

Programme ProgrammeAnatab() {
  return Description<SansOption>(
      "anatab", "Une modalité expliquée par celles de plusieurs questions : analyse tabulaire et logistique"_w,
      [](const Contexte& contexte, const SansOption&) { return regression::Anatab(contexte); });
}

Programme ProgrammeReglin() {
  return Description<SansOption>(
      "reglin", "Régression linéaire d'une variable numérique sur d'autres"_w,
      [](const Contexte& contexte, const SansOption&) { return regression::Reglin(contexte); });
}

}  // namespace quelvar::batch
