#include "text/gestion/gestion_options.h"

namespace quelvar::text {

namespace {

using Textes = std::vector<std::string>;
using Agreg = Description<OptionsTabMotAgreg>;

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

const Description<OptionsTabMotAgreg>& DescriptionTabMotAgreg() {
  static const Description<OptionsTabMotAgreg> description = DecrireTabMotAgreg();
  return description;
}

}  // namespace quelvar::text
