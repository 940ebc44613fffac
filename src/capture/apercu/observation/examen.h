// The facts of a table while its rows pass: one observation a column, and the rows that have not its form.
#pragma once

#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/observation/faits.h"
#include "capture/apercu/observation/observation.h"
#include "capture/apercu/observation/trace.h"
#include "capture/apercu/octets/pages.h"
#include "capture/apercu/octets/rangees.h"

namespace quelvar::capture {

class ExamenDeTable {
 public:
  static constexpr std::int64_t kToutes = std::numeric_limits<std::int64_t>::max();

  // `trace`, if any, gets the rows that hold something.
  explicit ExamenDeTable(const Lecture& lecture, TraceDeCellules* trace = nullptr) : lecture_(lecture), trace_(trace) {}

  // The title row, when the reading has one.
  void LireTitres(LecteurDeRangees& lecteur);
  // Looks at that many rows that hold something; false when `suivi` stopped it.
  bool LireRangees(LecteurDeRangees& lecteur, std::int64_t nombre, const Suivi& suivi = {});
  void Voir(std::string_view rangee, const LecteurDeRangees& lecteur);
  // The trace is whole.
  void AcheverLaTrace();
  // Raises a sentence (kIncompatibiliteType) for a file of titles only.
  FaitsDeTable Conclure(const LecteurDeRangees& lecteur) const;

  std::int64_t Individus() const { return faits_.individus; }
  bool Finie() const { return finie_; }

 private:
  void AssurerColonnes(std::size_t nombre);
  void VoirCellules(LigneDeTableur cellules, std::int64_t ligne);
  SignesDeTable Signes() const;
  void VoirEtrangere(std::string_view rangee, const LecteurDeRangees& lecteur);
  void VoirLongueur(std::size_t cellules, std::size_t remplies, std::int64_t ligne);

  Lecture lecture_;
  TraceDeCellules* trace_;
  FaitsDeTable faits_;
  std::vector<std::string> intitules_;
  std::vector<Observation> colonnes_;
  std::int64_t vides_ = 0;                                       // empty rows since the last one that holds something
  std::size_t moins_ = std::numeric_limits<std::size_t>::max();  // cells of the shortest row
  std::size_t plus_ = 0;                                         // of the longest one
  std::size_t largeur_ = 0;  // cells of the widest row, empty ones at its end left out
  bool finie_ = false;
  std::vector<std::uint16_t> rangee_;  // of the trace
};

}  // namespace quelvar::capture
