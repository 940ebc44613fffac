#include "sorts/triapl/edition.h"

#include <algorithm>

namespace quelvar::sorts {

namespace {

void EcrireBloc(Rapport& rapport, const TableauPlat& tableau, Bloc bloc) {
  const auto colonnes = [&](auto ecrire) {
    for (std::size_t i = bloc.premier; i < bloc.fin; ++i) rapport.Suite(ecrire(tableau.colonnes[i]));
    rapport.Ligne();
  };
  rapport.Suite({tableau.prefixe, "Tot."});
  colonnes([](const ColonneCode& c) { return NombreFixe(c.code, c.largeur, 0); });
  const auto debut = tableau.colonnes.begin();
  const bool intitules =
      std::any_of(debut + static_cast<std::ptrdiff_t>(bloc.premier), debut + static_cast<std::ptrdiff_t>(bloc.fin),
                  [](const ColonneCode& c) { return !c.texte.empty(); });
  if (tableau.etiquete && intitules) {
    rapport.Suite({tableau.prefixe, "    "});
    colonnes([](const ColonneCode& c) { return CadreDroit(c.texte, c.largeur); });
  }
  rapport.Suite(NombreFixe(tableau.total, tableau.largeurTotal, 0));
  colonnes([](const ColonneCode& c) { return NombreFixe(c.effectif, c.largeur, 0); });
  rapport.Suite({tableau.prefixe, " 100"});
  colonnes([](const ColonneCode& c) { return Dixiemes(c.pourMille, c.largeur); });
  rapport.Ligne();
  rapport.Ligne();
}

}  // namespace

void EcrireEnTete(Rapport& rapport, const Question& question, const double* nonReponses) {
  rapport.Suite({"Question ", question.nom, " Position ", NombreFixe(question.position, 4, 0), "    Code-max. ",
                 NombreFixe(question.codeMax, 3, 0)});
  if (nonReponses) rapport.Suite({" (NR= ", NombreFixe(*nonReponses, 4, 0), ")"});
  rapport.Ligne({" ", question.intitule});
}

void EcrireTableau(Rapport& rapport, const TableauPlat& tableau) {
  for (const Bloc& bloc : DecouperEnBlocs(tableau)) EcrireBloc(rapport, tableau, bloc);
}

void EcrireCumul(Rapport& rapport, const TableauPlat& cumul) {
  rapport.Ligne(" ");
  rapport.Ligne("Impression du cumul des tris précedents"_w);
  rapport.Ligne("Les pourcentages sont calculés sur les occurences citées"_w);
  rapport.Ligne("c'est à dire autres que non-reponse=0"_w);
  rapport.Ligne(" ");
  EcrireTableau(rapport, cumul);
}

std::string LigneTriangle(const Question& question, const EffectifsTriangle& effectifs) {
  const double somme = effectifs[0] + effectifs[1] + effectifs[2];
  std::string ligne = Joindre({" ", question.nom});
  for (const double effectif : effectifs) ligne += NombreFixe(somme == 0 ? 0 : 100 * effectif / somme, 3, 1);
  ligne += question.intitule.empty() ? question.nom : question.intitule;
  return ligne;
}

}  // namespace quelvar::sorts
