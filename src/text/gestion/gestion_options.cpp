#include "text/gestion/gestion_options.h"

namespace quelvar::text {

namespace {

using Textes = std::vector<std::string>;
using Supl = Description<OptionsSuplMot>;
using ActionSupl = OptionsSuplMot::Action;
using Agreg = Description<OptionsTabMotAgreg>;

// "NOM=TEXTE" in two, whatever the length of the name.
std::pair<std::string, std::string> AvantEtApres(std::string_view option, const std::string& valeur) {
  const std::size_t egal = valeur.find('=');
  if (egal == std::string::npos) RefuserValeur(option, "NOM=TEXTE", valeur);
  return {valeur.substr(0, egal), valeur.substr(egal + 1)};
}

void DecrireStatut(Supl& description, std::string nom, ActionSupl::Genre genre, std::string_view valeurs,
                   std::string_view aide) {
  const auto poser = [genre](OptionsSuplMot& options, const std::string& valeur) {
    for (const std::string& element : NomsSepares(valeur)) options.actions.push_back({genre, element});
  };
  const auto ecrire = [genre](const OptionsSuplMot& options) {
    Textes noms;
    for (const ActionSupl& action : options.actions)
      if (action.genre == genre) noms.push_back(action.nom);
    return noms.empty() ? Textes() : Textes{NomsJoints(noms)};
  };
  description.Libre(std::move(nom), valeurs, aide, poser, ecrire).Repetable();
}

void DecrireIntitule(Supl& description, const std::string& nom, ActionSupl::Genre genre, std::string_view valeurs,
                     std::string_view aide) {
  const auto poser = [nom, genre](OptionsSuplMot& options, const std::string& valeur) {
    auto [element, texte] = AvantEtApres(nom, valeur);
    options.actions.push_back({genre, std::move(element), std::move(texte)});
  };
  const auto ecrire = [genre](const OptionsSuplMot& options) {
    Textes textes;
    for (const ActionSupl& action : options.actions)
      if (action.genre == genre) textes.push_back(Joindre({action.nom, "=", action.intitule}));
    return textes;
  };
  description.Libre(nom, valeurs, aide, poser, ecrire).Repetable();
}

Supl DecrireSuplMot() {
  using Genre = ActionSupl::Genre;
  Supl description("suplmot", "Gestion des colonnes et lignes d'un tableau (.BRT, .MOD)", SuplMot);
  DecrireStatut(description, "colonnes-sup", Genre::ColonneSup, "NOM,NOM...", "colonnes mises en supplémentaires"_w);
  description.Alias({"listcolsuppl"});
  DecrireStatut(description, "colonnes-actives", Genre::ColonneActive, "NOM,NOM...", "colonnes mises en actives");
  DecrireStatut(description, "lignes-sup", Genre::LigneSup, "MOT,MOT...", "lignes mises en supplémentaires"_w);
  description.Alias({"listlignsuppl"});
  DecrireStatut(description, "lignes-actives", Genre::LigneActive, "MOT,MOT...", "lignes mises en actives");
  DecrireIntitule(description, "intitule-colonne", Genre::IntituleColonne, "NOM=TEXTE",
                  "intitulé d'une colonne ; peut être répété"_w);
  description.Alias({"textmodcol"});
  DecrireIntitule(description, "intitule-ligne", Genre::IntituleLigne, "MOT=TEXTE",
                  "intitulé d'une ligne ; peut être répété"_w);
  description.Alias({"textmodlign"});
  return description;
}

constexpr std::string_view kFacteur = "facteur";

// frequence, alphabetique or facteurN, then the order behind a comma.
TriDeLignes LireTri(const std::string& valeur) {
  const Textes mots = NomsSepares(valeur);
  const std::string cle = mots.empty() ? std::string() : Minuscules(mots.front());
  const std::string ordre = mots.size() > 1 ? Minuscules(mots[1]) : "croissant";
  TriDeLignes tri;
  if (cle == "alphabetique") tri.cle = CleDeLignes::Intitule;
  else if (cle.starts_with(kFacteur)) tri.cle = CleDeLignes::Facteur;
  if ((tri.cle == CleDeLignes::Frequence && cle != "frequence") || mots.size() > 2 ||
      (ordre != "croissant" && ordre != "decroissant"))
    RefuserValeur("tri", "frequence, alphabetique ou facteurN, puis ,croissant ou ,decroissant", valeur);
  if (tri.cle == CleDeLignes::Facteur) tri.facteur = ValeurDe(cle.substr(kFacteur.size()));
  if (ordre == "decroissant") tri.sens = utilities::SensDeTri::Decroissant;
  return tri;
}

std::string EcrireTri(const TriDeLignes& tri) {
  std::string texte = tri.cle == CleDeLignes::Frequence  ? "frequence"
                      : tri.cle == CleDeLignes::Intitule ? "alphabetique"
                                                         : std::string(kFacteur) + EcrireReel(tri.facteur);
  if (tri.sens == utilities::SensDeTri::Decroissant) texte += ",decroissant";
  return texte;
}

LigneDOptions EcrireActions(const OptionsTabMotAgreg& options) {
  LigneDOptions ligne;
  for (const OptionsTabMotAgreg::Action& action : options.actions) {
    if (action.tri) ligne.emplace_back("tri", EcrireTri(*action.tri));
    else ligne.emplace_back("agreger", Joindre({action.intitule, "=", NomsJoints(action.lignes)}));
  }
  return ligne;
}

Agreg DecrireTabMotAgreg() {
  using O = OptionsTabMotAgreg;
  const auto reunir = [](O& options, const std::string& valeur) {
    auto [nom, lignes] = AvantEtApres("agreger", valeur);
    options.actions.push_back({std::nullopt, std::move(nom), NomsSepares(lignes)});
  };
  const auto trier = [](O& options, const std::string& valeur) { options.actions.push_back({LireTri(valeur)}); };
  return Agreg("tabmotagreg", "Agrégation manuelle de lignes d'un tableau, sous un nouveau générique"_w, TabMotAgreg)
      .Geste("agreger", "NOM=MOT,MOT...", "lignes réunies en une seule par sommation ; peut être répété"_w, reunir)
      .Alias({"btenreg"})
      .Geste("tri", "frequence|alphabetique|facteurN[,decroissant]", "tri des lignes ; peut être répété"_w, trier)
      .Alias({"bttri"})
      .EcrireGestes(EcrireActions)
      .OuiNon("remplacer", &O::remplacer,
              "remplace sans demander les fichiers du générique suivant ; non : un nom libre est pris"_w);
}

}  // namespace

const Description<OptionsSuplMot>& DescriptionSuplMot() {
  static const Description<OptionsSuplMot> description = DecrireSuplMot();
  return description;
}

const Description<OptionsTabMotAgreg>& DescriptionTabMotAgreg() {
  static const Description<OptionsTabMotAgreg> description = DecrireTabMotAgreg();
  return description;
}

}  // namespace quelvar::text
