// Lays the cells of a row in the fixed columns of .DAT.
#pragma once

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "capture/colonnes/colonne.h"
#include "capture/tableur/cellules.h"
#include "capture/tableur/codes.h"
#include "core/texte/caracteres.h"

namespace quelvar::capture {

// A row at a time; a column of codes is filled with zeros.
class MetteurEnColonnes {
 public:
  MetteurEnColonnes(const std::vector<ColonneImportee>& colonnes, bool avecCodes) {
    std::size_t alignees = colonnes.size();  // behind the last question the texts are not aligned
    while (alignees > 0 && !colonnes[alignees - 1].EstEtroite() && !colonnes[alignees - 1].alphabetique) --alignees;
    alignees_ = alignees;
    for (const ColonneImportee& colonne : colonnes)
      places_.push_back({colonne.position - 1, colonne.largeur, avecCodes && colonne.EstEtroite(),
                         colonne.alphabetique && !colonne.aDroite});
    largeurAlignee_ = alignees == 0 ? 0 : places_[alignees - 1].debut + places_[alignees - 1].largeur;
  }

  // The line of .DAT of a whole row, as a view that lives until the next call.
  std::string_view Mettre(LigneDeTableur cellules) {
    Commencer();
    std::size_t j = 0;
    const char* octets = nullptr;
    std::string_view cellule;
    do {
      while (const unsigned nombre = cellules.ChiffresSuivants(octets)) {
        for (unsigned i = 0; i < nombre; ++i) PlacerChiffre(j + i, octets[i * std::size_t{2}]);
        j += nombre;
      }
      if (!cellules.Suivante(cellule)) break;
      Placer(j++, cellule);
    } while (true);
    return Finir(j);
  }

  // The same cell by cell: the columns in their order, then how many there were.
  void Commencer() { ligne_.assign(largeurAlignee_, ' '); }
  void PlacerChiffre(std::size_t j, char chiffre) {
    if (j < alignees_ && places_[j].largeur == 1) ligne_[places_[j].debut] = chiffre;
    else Placer(j, std::string_view(&chiffre, 1));
  }
  void Placer(std::size_t j, std::string_view cellule) {
    if (j < alignees_) Aligner(places_[j], cellule);
    else ligne_.append(Rogner(cellule)).append(1, ' ');
  }
  std::string_view Finir(std::size_t j) {
    for (j = std::max(j, alignees_); j < places_.size(); ++j) ligne_ += ' ';
    return RognerDroite(ligne_);
  }
  // Columns up to the last question, all aligned.
  std::size_t LargeurAlignee() const { return largeurAlignee_; }
  // The line up to there, not trimmed.
  std::string_view PartieAlignee() const { return std::string_view(ligne_).substr(0, largeurAlignee_); }

 private:
  struct Place {
    std::size_t debut;
    std::size_t largeur;
    bool codes;
    bool aGauche;  // else right-aligned
  };

  void Aligner(const Place& place, std::string_view cellule) {
    if (cellule.empty()) return;
    char* champ = ligne_.data() + place.debut;
    if (place.codes) {
      if (cellule.size() > place.largeur || !std::ranges::all_of(cellule, EstChiffre)) cellule = Code(cellule);
      std::memset(champ, '0', place.largeur);
    }
    cellule = cellule.substr(0, place.largeur);
    cellule.copy(champ + (place.aGauche ? 0 : place.largeur - cellule.size()), cellule.size());
  }

  std::string_view Code(std::string_view cellule) {
    code_ = ChiffresDuCode(cellule).value_or("0");
    return code_;
  }

  std::size_t alignees_ = 0;  // columns up to the last question
  std::size_t largeurAlignee_ = 0;
  std::vector<Place> places_;
  std::string ligne_;
  std::string code_;
};

}  // namespace quelvar::capture
