#include "capture/apercu/octets/premiereligne.h"

#include <algorithm>
#include <string_view>

#include "capture/apercu/octets/cellule.h"
#include "core/texte/texte.h"

namespace quelvar::capture {

namespace {

using Rangees = std::vector<std::vector<std::string>>;

bool EstMesure(const std::string& cellule) { return LireNombre(cellule).has_value() || EstDate(cellule); }

// What stands under the first cell of a column.
struct Dessous {
  std::size_t remplies = 0;
  std::size_t mesures = 0;     // numbers and dates
  std::size_t identiques = 0;  // the first cell again
};

Dessous Regarder(const Rangees& rangees, std::size_t j) {
  Dessous dessous;
  for (std::size_t i = 1; i < rangees.size(); ++i) {
    if (j >= rangees[i].size() || rangees[i][j].empty()) continue;
    ++dessous.remplies;
    if (EstMesure(rangees[i][j])) ++dessous.mesures;
    if (rangees[i][j] == rangees[0][j]) ++dessous.identiques;
  }
  return dessous;
}

// The cells of the first row by what they are beside the cells under them.
struct Compte {
  std::size_t mesures = 0;     // a number on numbers
  std::size_t etrangeres = 0;  // a number on texts
  std::size_t reprises = 0;    // a text that comes again among the texts of its column
  std::size_t titres = 0;      // any other text

  void Voir(const std::string& cellule, const Dessous& dessous) {
    if (EstMesure(cellule)) {
      ++(dessous.mesures * 2 >= dessous.remplies ? mesures : etrangeres);
      return;
    }
    // A column that holds nothing but its title is an answer that was ticked.
    const bool reprise =
        dessous.identiques > 0 && dessous.identiques < dessous.remplies && dessous.mesures * 2 < dessous.remplies;
    ++(reprise ? reprises : titres);
  }
};

}  // namespace

PremiereLigne JugerPremiereLigne(const Rangees& rangees) {
  Compte compte;
  for (std::size_t j = 0; j < rangees[0].size(); ++j)
    if (!rangees[0][j].empty()) compte.Voir(rangees[0][j], Regarder(rangees, j));
  const std::size_t donnees = compte.mesures + compte.reprises;
  if (compte.titres == 0 && compte.reprises == 0 && donnees > 0)
    return {false, Joindre({"La première ligne ne contient que des nombres : elle est lue comme un individu, sans "
                            "intitulés (si ce sont des intitulés, dites-le : titres=oui)."_w})};
  if ((compte.titres == 0 && compte.etrangeres == 0 && donnees > 0) || (compte.mesures > 0 && compte.reprises > 0) ||
      (compte.reprises > 0 && compte.reprises >= compte.titres))
    return {false, Joindre({"La première ligne contient les mêmes valeurs que les suivantes : elle est lue comme un "
                            "individu, sans intitulés (si ce sont des intitulés, dites-le : titres=oui)."_w})};
  if (compte.mesures > 0 || compte.reprises > 0)
    return {true, Joindre({"La première ligne contient des valeurs de ses colonnes : elle est lue comme celle des "
                           "intitulés (si c'est un individu, dites-le : titres=non)."_w})};
  return {};
}

}  // namespace quelvar::capture
