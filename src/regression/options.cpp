#include "regression/options.h"

#include "core/options/image.h"
#include "regression/reglin/reglin.h"

namespace quelvar::regression {

const Description<OptionsModifModR>& DescriptionModifModR() {
  using O = OptionsModifModR;
  static const Description<O> description =
      Description<O>("modifmodr", "Codage d'une régression dans le .MOD : modalité à expliquer, références"_w,
                     ModifModR)
          .Noms("expliquer", &O::expliquer, "modalité à expliquer ; les autres de sa question sont mises à blanc"_w)
          .Noms("reference", &O::references, "modalités de référence ; les autres de leur question sont explicatives"_w)
          .Couples("intitule", &O::intitules, "NOM=TEXTE", "intitulé d'une modalité ; peut être répété"_w);
  return description;
}

const Description<OptionsAnatab>& DescriptionAnatab() {
  using O = OptionsAnatab;
  static const Description<O> description =
      Description<O>(
          "anatab",
          "Une modalité expliquée par celles de plusieurs questions : analyse tabulaire et logistique (.TRP)"_w,
          [](const Contexte& contexte, const O& options) { return Anatab(contexte, options); })
          .Libre("image", "FICHIER.svg", "image des effets, la référence à zéro"_w, PoserImage("image", &O::image),
                 EcrireImage(&O::image));
  return description;
}

const Description<SansOption>& DescriptionReglin() {
  static const Description<SansOption> description(
      "reglin", "Régression linéaire d'une variable numérique sur d'autres (.REG)"_w,
      [](const Contexte& contexte, const SansOption&) { return Reglin(contexte); });
  return description;
}

const Description<OptionsVarint>& DescriptionVarint() {
  using O = OptionsVarint;
  static const Description<O> description =
      Description<O>("varint", "Profils de variables d'intérêt : les questions par la force de leur lien (.TRF)"_w,
                     [](const Contexte& contexte, const O& options) { return Varint(contexte, options); })
          .Noms("questions", &O::questions, "questions dont on veut le profil"_w)
          .Alias({"listvar2"})
          .Choix("edition", &O::edition, {{"compacte", EditionVarint::Courte}, {"longue", EditionVarint::Longue}},
                 "avec les noms longs au niveau 2 seulement"_w)
          .Bouton("Opt1", "compacte")
          .Bouton("Opt2", "longue")
          .Libre("image", "FICHIER.svg", "image des profils, une barre par question"_w, PoserImage("image", &O::image),
                 EcrireImage(&O::image));
  return description;
}

}  // namespace quelvar::regression
