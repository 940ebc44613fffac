#include "text/decoupage/saisiemot_options.h"

#include "core/programme/alerte.h"

namespace quelvar::text {

namespace {

using O = OptionsSaisieMot;

constexpr int kLignesAuPlus = 9999;

// The boxes of the form come first; nothing runs before them.
Fin LancerSaisieMot(const Contexte& contexte, const O& options) {
  const std::string refus = RefusDeDecouper(options);
  if (refus.empty()) return SaisieMot(contexte, options);
  AlerterEnBoite(contexte.Ecran(), refus);
  return Fin::Arret;
}

// An option button of the form, which is also a name: "oui" takes its value, "non" says nothing.
void Bouton(Description<O>& description, std::string_view controle, const std::string& valeur) {
  description.Bouton(controle, valeur).Alias(Minuscules(controle), {{"oui", valeur}, {"non", ""}});
}

void DecrireStimulus(Description<O>& description) {
  description.Choix("mode", &O::mode,
                    {{"1", ModeStimulus::Aucun},
                     {"2", ModeStimulus::CaracteristiqueReportee},
                     {"3", ModeStimulus::Caracteristique},
                     {"4", ModeStimulus::FinDeMot},
                     {"5", ModeStimulus::FinDeMotSupprimee}},
                    "question ouverte (1), stimulus dans les caractéristiques et reporté (2) ou non (3), en fin "
                    "de mot et laissé (4) ou supprimé (5)"_w);
  Bouton(description, "OpQuestOuv", "1");
  description.Bouton("OpNonNoté"_w, "1").Alias("opnonnote", {{"oui", "1"}, {"non", ""}});
  Bouton(description, "OpCaracFinMotY", "2");
  Bouton(description, "OpCaracFinMotN", "3");
  Bouton(description, "OpStimFinY", "4");
  Bouton(description, "OpStimFinMotN", "5");
  description.Entier("stimulus", &O::positionStimulus, 0, kColonneLaPlusHaute, "colonne du stimulus, en modes 2 et 3")
      .Montre("TbPosStim");
}

Description<O> Decrire() {
  Description<O> description("saisiemot", "Découpage en mots d'un texte (.DAT, .POS, .IMP)"_w, LancerSaisieMot);
  description.Entier("position", &O::position, 0, kColonneLaPlusHaute, "colonne où finissent les caractéristiques"_w)
      .Montre("TbPos")
      .Choix("vides", &O::vide, {{"nr", ReponseVide::NonReponse}, {"supprimees", ReponseVide::Supprimee}},
             "lignes sans texte : réponse NR, ou supprimées"_w);
  Bouton(description, "OptNR", "nr");
  Bouton(description, "OptSupr", "supprimees");
  DecrireStimulus(description);
  description.Entier("lignes", &O::lignesMax, 1, kLignesAuPlus, "lignes de texte d'un individu au plus")
      .Montre("CbLignMax")
      .OuiNon("auxiliaires", &O::auxiliaires, "garde les fichiers auxiliaires .NT1, .TR1 et .EDI")
      .Montre("OpFichAuxY");
  Bouton(description, "OpFichAuxN", "non");
  description.OuiNon("themes", &O::themes, "ne garde que les mots qui commencent par $, comme thèmes"_w)
      .Montre("ChkThemes");
  return description;
}

}  // namespace

const Description<OptionsSaisieMot>& DescriptionSaisieMot() {
  static const Description<OptionsSaisieMot> description = Decrire();
  return description;
}

std::string CommandeDuDecoupage(const Contexte& contexte, const OptionsSaisieMot& options) {
  constexpr std::string_view kProgramme = "quelvar-batch ";
  std::string commande = CommandeEquivalente(DescriptionSaisieMot(), contexte.generique, contexte.niveau, options);
  std::string reponses;
  try {
    for (const std::string& reponse : ReponsesAuDecoupage(contexte, options))
      reponses += Joindre({"--reponse ", reponse, " "});
  } catch (const Erreur&) {
    return commande;  // a position file that cannot be read stops the run before it asks
  }
  return commande.insert(kProgramme.size(), reponses);
}

}  // namespace quelvar::text
