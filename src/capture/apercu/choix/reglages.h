// What the parameters of a choice show to whoever sets them, and the choice that comes of it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "capture/apercu/choix/colonne.h"

namespace quelvar::capture {

// The codes that a column of texts becomes, those that count as 0 first, the texts in the order in which they are
// coded.
struct TexteCode {
  std::string texte;
  std::int64_t effectif = 0;
  int code = 0;
};
std::vector<TexteCode> TextesCodes(const ChoixDeColonne& choix, const FaitsDeColonne& colonne);
// The choice with its texts coded in that order; Ordre::Donne lays down the order that they have.
ChoixDeColonne AvecOrdre(ChoixDeColonne choix, const FaitsDeColonne& colonne, Ordre ordre);

// The texts of a column whose answers are 1 and 0, or numbers with faulty cells among them: each with whether it counts
// (as the answer, or as a fault that stops the import) and not as code 0. Empty for other kinds of choices.
struct TexteCompte {
  std::string texte;
  std::int64_t effectif = 0;
  bool compte = true;
};
std::vector<TexteCompte> TextesComptes(const ChoixDeColonne& choix, const FaitsDeColonne& colonne);
// The choice with these texts.
ChoixDeColonne AvecTextesComptes(ChoixDeColonne choix, const std::vector<TexteCompte>& textes);
// The same of texts that become codes: under Ordre::Donne those that count are coded as they stand there.
ChoixDeColonne AvecTextesCodes(ChoixDeColonne choix, Ordre ordre, const std::vector<TexteCompte>& textes);

// Bounds as they are typed ("15 25 35" or "15;25;35", decimals with "." or ","); nothing when they are no rising
// numbers.
std::optional<std::vector<double>> BornesDe(std::string_view saisi);
std::string TexteDesBornes(const std::vector<double>& bornes);

}  // namespace quelvar::capture
