// What the tabular analysis has found, as tables of data.
#pragma once

#include <array>
#include <string_view>

#include "core/resultats/tableau.h"
#include "regression/anatab/analyse.h"
#include "regression/anatab/base.h"
#include "regression/anatab/modele.h"

namespace quelvar::regression {

// The questions with their modalities and what they are in the model; the same of the modalities.
TableauEdite TableauDesQuestions(const Modele& modele);
TableauEdite TableauDesModalites(const Modele& modele);
// Individuals of each explanatory modality with and without the explained one, its share; the same of everybody last.
TableauEdite TableauDeBase(const Modele& modele, const DonneesDeBase& base);
// The situations that were examined: individuals, percentage, chi-square and its mark.
TableauEdite TableauDesSituations(const AnalyseTabulaire& analyse);

// "***" above 6.64, "** " above 3.84, "*  " above 2.71, else "ns ".
std::string_view MarqueDeCellule(int classe);

// The reference situation: percentage of the explained modality, mark of its chi-square, and the interval of one
// standard error on both sides, held between 0 and 100.
TableauEdite TableauDeLaReference(const AnalyseTabulaire& analyse);
// The effects: weighted mean, remark, and the interval of one standard deviation on both sides.
TableauEdite TableauDesEffets(const AnalyseTabulaire& analyse, const Modele& modele);

// Decimals of an effect: of points one, of an odds-ratio two.
int DecimalesDEffet(MesureDEffet mesure);
// Columns of the label that names an effect.
inline constexpr int kLargeurCourte = 5;

// The 2 x 2 table of a sub-effect. There may be millions of them: no more than numbers and views on the model.
struct TableDePaire {
  struct Rangee {
    std::string_view nom;
    double oui = 0;
    double effectif = 0;

    double Non() const { return effectif - oui; }
    double PartOui() const { return 100 * oui / effectif; }  // percent
    double PartNon() const { return 100 * Non() / effectif; }
  };
  std::array<Rangee, 3> rangees;  // the situation that stands first, the second one, both
  std::string_view expliquee;     // name of the modality
  bool premierePlus = false;      // the share of the first one is above that of both
};
TableDePaire TableDe(const AnalyseTabulaire& analyse, const Modele& modele, const SousEffet& sousEffet);

}  // namespace quelvar::regression
