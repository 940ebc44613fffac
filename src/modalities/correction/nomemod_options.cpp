#include "modalities/correction/nomemod_options.h"

namespace quelvar::modalities {

namespace {

using O = OptionsNomeMod;

template <typename T>
auto DeLaPasse(T PasseNomeMod::*membre) {
  return [membre](auto& options) -> auto& { return options.passes.back().*membre; };
}

void Avancer(O& options) { options.passes.push_back({std::nullopt, options.passes.back().codesZero}); }

std::vector<O> Passes(const O& options) {
  std::vector<O> etapes;
  for (std::size_t i = 1; i <= options.passes.size(); ++i) {
    etapes.push_back(options);
    etapes.back().passes.resize(i);
  }
  return etapes;
}

}  // namespace

const Description<OptionsNomeMod>& DescriptionNomeMod() {
  static const Description<O> description =
      Description<O>("nomemod", "Création de modalités et intitulés, sans lecture des données (.MOD)"_w,
                     NommerModalites)
          .Noms("questions", DeLaPasse(&PasseNomeMod::questions), "questions dont on crée les modalités"_w)
          .Defaut("aucune : toutes les modalités du .MOD"_w)
          .Montre("ListVar2")
          .OuiNon("codeszero", DeLaPasse(&PasseNomeMod::codesZero),
                  "le code zéro de chaque question est une modalité"_w)
          .MontreLeContraire("CaseCodZ")
          .Couples("intitule", &O::intitules, "NOM=TEXTE", "intitulé d'une modalité ; peut être répété"_w)
          .Montre("TextMod")
          .Etape("lancer", "crée les modalités demandées jusqu'ici ; les questions qui suivent en créent d'autres"_w,
                 Avancer, Passes)
          .Alias({"boutlancer"});
  return description;
}

}  // namespace quelvar::modalities
