#include <algorithm>

#include "text/gestion/options.h"

namespace quelvar::text {

namespace {

using Textes = std::vector<std::string>;
using Agreg = Description<OptionsTabMotAgreg>;

constexpr std::string_view kFacteur = "facteur";

// One sort of the rows: no program, but a part of TabMotAgreg, which the form shows by itself.
Description<TriDeLignes> DecrireTriDeLignes() {
  using O = TriDeLignes;
  using utilities::SensDeTri;
  return Description<O>("tri", "Tri des lignes d'un tableau", {})
      .Choix("cle", &O::cle,
             {{"frequence", CleDeLignes::Frequence},
              {"alphabetique", CleDeLignes::Intitule},
              {std::string(kFacteur), CleDeLignes::Facteur}},
             "ce qui donne leur ordre aux lignes")
      .Bouton("OptCourt", "frequence")
      .Bouton("OptLong", "alphabetique")
      .Bouton("OptFac", std::string(kFacteur))
      .Texte("numero", &O::facteur, "1..", "numéro du facteur dont les contributions ordonnent les lignes"_w)
      .Montre("TextNum")
      .Choix("ordre", &O::sens, {{"croissant", SensDeTri::Croissant}, {"decroissant", SensDeTri::Decroissant}},
             "ordre du tri")
      .Bouton("Croissant", "croissant")
      .Bouton("Decroissant", "decroissant");
}

// frequence, alphabetique or facteurN, then the order behind a comma.
TriDeLignes LireTri(const std::string& valeur) {
  const Description<TriDeLignes>& table = DescriptionTriDeLignes();
  const auto prend = [&table](std::string_view option, const std::string& mot) {
    return std::ranges::find(table.De(option).mots, mot) != table.De(option).mots.end();
  };
  const Textes mots = NomsSepares(Minuscules(valeur));
  const bool parFacteur = !mots.empty() && mots.front().starts_with(kFacteur);
  const std::string cle = parFacteur ? std::string(kFacteur) : mots.empty() ? std::string() : mots.front();
  if (!prend("cle", cle) || mots.size() > 2 || (mots.size() == 2 && !prend("ordre", mots.back())))
    RefuserValeur("tri", "frequence, alphabetique ou facteurN, puis ,croissant ou ,decroissant", valeur);
  TriDeLignes tri;
  table.PoserUne(tri, "cle", cle);
  if (parFacteur) tri.facteur = EcrireReel(ValeurDe(mots.front().substr(kFacteur.size())));
  if (mots.size() == 2) table.PoserUne(tri, "ordre", mots.back());
  return tri;
}

std::string EcrireTri(const TriDeLignes& tri) {
  const Description<TriDeLignes>& table = DescriptionTriDeLignes();
  std::string texte = table.ValeurEcrite(tri, "cle");
  if (tri.cle == CleDeLignes::Facteur) texte += EcrireReel(ValeurDe(tri.facteur));
  if (tri.sens != TriDeLignes{}.sens) texte += Joindre({",", table.ValeurEcrite(tri, "ordre")});
  return texte;
}

LigneDOptions EcrireActions(const OptionsTabMotAgreg& options) {
  LigneDOptions ligne;
  for (const OptionsTabMotAgreg::Action& action : options.actions) {
    if (action.tri) ligne.emplace_back("tri", EcrireTri(*action.tri));
    else ligne.emplace_back("agreger", EcrireCouple(action.intitule, NomsJoints(action.lignes)));
  }
  return ligne;
}

Agreg DecrireTabMotAgreg() {
  using O = OptionsTabMotAgreg;
  const auto reunir = [](O& options, const std::string& valeur) {
    auto [nom, lignes] = LireCouple("agreger", valeur);
    options.actions.push_back({std::nullopt, std::move(nom), NomsSepares(lignes)});
  };
  const auto trier = [](O& options, const std::string& valeur) { options.actions.push_back({LireTri(valeur)}); };
  return Agreg("tabmotagreg", "Agrégation manuelle de lignes d'un tableau, sous un nouveau générique"_w, TabMotAgreg)
      .Geste("agreger", "NOM=MOT,MOT...", "lignes réunies en une seule par sommation ; peut être répété"_w, reunir)
      .ADesNoms()
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

const Description<TriDeLignes>& DescriptionTriDeLignes() {
  static const Description<TriDeLignes> description = DecrireTriDeLignes();
  return description;
}

}  // namespace quelvar::text
