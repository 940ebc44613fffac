#include "regression/anatab/base.h"

#include <algorithm>
#include <string>

#include "core/resultats/colonnedenombres.h"

namespace quelvar::regression {

namespace {

constexpr int kLargeur = static_cast<int>(kLargeurIntitule);

}  // namespace

DonneesDeBase CompterLaBase(const Individus& individus, const Modele& modele) {
  std::vector<double> effectifs(individus.fiches.Nombre());
  for (const NumeroFiche f : individus.fiche) ++effectifs[f];
  DonneesDeBase base;
  base.oui.resize(modele.Explicatives());
  base.total.resize(modele.Explicatives());
  for (NumeroFiche f = 0; f < effectifs.size(); ++f) {
    const std::string_view fiche = individus.fiches[f];
    const double oui = individus.fiches.Oui(f) ? effectifs[f] : 0;
    for (std::size_t k = 0; k < base.total.size(); ++k) {
      base.total[k] += ValeurDuCaractere(fiche[k]) * effectifs[f];
      base.oui[k] += ValeurDuCaractere(fiche[k]) * oui;
    }
  }
  base.nombreOui = static_cast<double>(individus.oui);
  base.individus = static_cast<double>(individus.Nombre());
  return base;
}

void ImprimerModele(Rapport& rapport, const Modele& modele) {
  rapport.Ligne("Intitulés des questions, nombre de modalités et type de la question"_w);
  ColonneDeNombres nombre(3, 0);
  for (const QuestionCodee& question : modele.questions) nombre.Voir(static_cast<double>(question.nombre));
  for (const QuestionCodee& question : modele.questions)
    rapport.Ligne(
        {question.nom, nombre(static_cast<double>(question.nombre)),
         question.references > 0 ? " modalités. Question explicative "_w : " modalités. Question à expliquer "_w});
  rapport.Ligne("Intitulés des modalités et type de chacune"_w);
  for (const QuestionCodee& question : modele.questions)
    for (std::size_t i = question.premiere; i < question.premiere + question.nombre; ++i) {
      const ModaliteCodee& modalite = modele.codage[i];
      rapport.Ligne(
          {CadreGauche(modalite.intitule, kLargeur),
           question.references > 0 ? " modalité de question explicative "_w : " modalité de question à expliquer "_w,
           modalite.aExpliquer  ? " modalité à expliquer "_w
           : modalite.reference ? " modalité de référence"_w
                                : std::string_view("                      ")});
    }
  rapport.Ligne(kEtoiles);
  rapport.Ligne(modele.titre);
  rapport.Ligne();
  rapport.Ligne("Données de base"_w);
  rapport.Ligne();
}

void ImprimerDonneesDeBase(Rapport& rapport, const Modele& modele, const DonneesDeBase& base) {
  ColonneDeNombres oui(5, 0);
  ColonneDeNombres non(5, 0);
  ColonneDeNombres total(5, 0);
  const auto voir = [&](double y, double n) {
    oui.Voir(y);
    non.Voir(n - y);
    total.Voir(n);
  };
  for (std::size_t k = 0; k < base.total.size(); ++k) voir(base.oui[k], base.total[k]);
  voir(base.nombreOui, base.individus);

  const auto ligne = [&](std::string_view intitule, double y, double n, double part) {
    rapport.Ligne(
        {CadreGauche(intitule, kLargeur), oui(y), " ", non(n - y), " ", total(n), "    ", NombreFixe(part, 1, 4)});
  };
  const auto entete = [&](Texte colonne) {
    rapport.Ligne({colonne, oui.Ajout(), "  Oui ", non.Ajout(), "  Non ", total.Ajout(), " Total", "  Prop de Y"});
  };
  rapport.Ligne({"                         (Y)", modele.titre});
  entete("Mod.explicative (X)      ");
  for (std::size_t k = 0; k < base.total.size(); ++k)
    ligne(modele.Explicative(k).intitule, base.oui[k], base.total[k], base.Part(k));
  rapport.Ligne();
  ligne("Tri à plat"_w, base.nombreOui, base.individus, base.MoyenneGenerale());
}

}  // namespace quelvar::regression
