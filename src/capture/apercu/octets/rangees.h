// The rows of a table under a given reading: bytes of the code page, the title row first when there is one, each with
// the line of the file where it starts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "capture/apercu/octets/lecture.h"
#include "capture/tableur/cellules.h"
#include "capture/tableur/lecteur.h"

namespace quelvar::capture {

// Raises the failures of LecteurLignes; kMemoireInsuffisante for a line beyond its bound.
class LecteurDeRangees {
 public:
  LecteurDeRangees(const Chemin& source, const Lecture& lecture);

  // The next row, as a view that lives until the next call; false at the end. What stands before the titles is skipped.
  bool Lire(std::string_view& rangee);
  LigneDeTableur Cellules(std::string_view rangee) const { return {rangee, lecture_.separateur, lecture_.guillemets}; }
  bool SansValeur(std::string_view rangee) const;
  // Goes behind the title row, when there is one.
  void PasserTitres();

  // The row given last before its conversion, when it holds characters that the code page has not; empty otherwise.
  std::string_view Etrangere() const { return etrangere_; }

  std::int64_t Ligne() const { return lecteur_.Ligne(); }
  std::int64_t GuillemetSansFin() const { return lecteur_.GuillemetSansFin(); }
  std::int64_t Etrangers() const { return etrangers_; }
  std::int64_t LigneEtrangere() const { return ligneEtrangere_; }  // of the first one; 0 without
  std::uintmax_t Octets() const { return octets_; }                // length of the rows given so far

 private:
  Lecture lecture_;
  LecteurTableur lecteur_;
  std::string convertie_;
  std::string_view etrangere_;
  std::int64_t etrangers_ = 0;
  std::int64_t ligneEtrangere_ = 0;
  std::uintmax_t octets_ = 0;
};

// Whether lines of a source end in CR alone, some of them or all, as its head shows: LecteurLignes knows them not.
bool AvecCrSeuls(const Chemin& source);

// The lines of a source as LecteurTableur takes them; UTF-16 comes as UTF-8. `crSeuls`: some end in CR alone, were it
// behind the head.
LecteurTableur::Lignes LignesDe(const Chemin& source, EncodageDeTable encodage, bool crSeuls);

}  // namespace quelvar::capture
