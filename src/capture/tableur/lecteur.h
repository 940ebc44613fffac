// The rows of a spreadsheet saved as text: lines of the file, those of a field in quotes joined.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "core/fichiers/fichiers.h"

namespace quelvar::capture {

// Reads the rows of a source. A field in quotes may span lines: the line end inside it becomes a blank. A quote that
// is not closed within kLignesJointes lines or kOctetsJoints bytes runs to the end of its own line only.
class LecteurTableur {
 public:
  static constexpr std::size_t kLignesJointes = 1000;
  static constexpr std::size_t kOctetsJoints = std::size_t{1} << 20;

  // Gives the next line of the source, as LecteurLignes does.
  using Lignes = std::function<bool(std::string_view& ligne)>;

  // With the separator 0 a field starts behind a ";" as behind a tab.
  LecteurTableur(const Chemin& source, char separateur);
  LecteurTableur(Lignes lignes, char separateur, bool guillemets = true)
      : lignes_(std::move(lignes)), separateur_(separateur), guillemets_(guillemets) {}

  // The next row as the bytes of the file without a byte-order mark; views live until the next call.
  bool LireOctetsDeLigne(std::string_view& ligne);
  // The next row as bytes of the code page.
  bool Lire(std::string_view& ligne, bool utf8);
  bool AvecMarqueUtf8() const { return marque_; }
  // Line of the source (from 1) where the row given last starts.
  std::int64_t Ligne() const { return debut_; }
  // Line of the first quote that nothing closes; 0 without any.
  std::int64_t GuillemetSansFin() const { return sansFin_; }

 private:
  bool LireUneLigne(std::string_view& ligne);
  void JoindreSuite(std::string_view& ligne);

  Lignes lignes_;
  char separateur_;
  bool guillemets_ = true;
  std::int64_t lues_ = 0;  // lines taken so far, those given back not counted
  std::int64_t debut_ = 0;
  std::int64_t sansFin_ = 0;
  bool premiere_ = true;
  bool marque_ = false;
  std::string jointe_;
  std::string rendue_;
  std::deque<std::string> enAttente_;  // lines read ahead behind a quote that nothing closes
  std::string convertie_;
};

// Place of the quote that closes the one at `i`; the end of the line when none does.
std::size_t FinDesGuillemets(std::string_view ligne, std::size_t i);

// Nothing but blanks: no row, nor the titles.
bool LigneBlanche(std::string_view ligne);

// True for a row whose cells are all blank.
bool LigneSansValeur(std::string_view ligne, char separateur);

}  // namespace quelvar::capture
