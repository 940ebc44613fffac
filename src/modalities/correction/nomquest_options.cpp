#include "modalities/correction/nomquest_options.h"

namespace quelvar::modalities {

const Description<OptionsNomQuest>& DescriptionNomQuest() {
  using O = OptionsNomQuest;
  static const Description<O> description =
      Description<O>("nomquest", "Intitulés des questions, entre signes $ dans le .POS"_w, NommerQuestions)
          .Couples("intitule", &O::intitules, "NOM=TEXTE",
                   "intitulé d'une question, 30 caractères au plus ; peut être répété"_w)
          .Montre("TextMod");
  return description;
}

}  // namespace quelvar::modalities
