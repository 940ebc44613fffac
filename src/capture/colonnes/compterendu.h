// What the account of an import says of the columns and of the files.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "capture/colonnes/colonne.h"
#include "core/programme/programme.h"
#include "core/programme/rapport.h"

namespace quelvar::capture {

inline constexpr std::size_t kLignesDeVerification = 10;  // lines of the .DAT shown in the report

// Lines on the files found; without a source the run stops there.
struct Presence {
  bool source = false;
  bool dat = false;
  bool pos = false;
};
void ImprimerPresence(Rapport& rapport, const Contexte& contexte, std::string_view nomSource, const Presence& presence);

// The table of the columns, with or without titles.
void ImprimerColonnes(Rapport& rapport, const std::vector<ColonneImportee>& colonnes, std::size_t nombre,
                      bool sansIntitules);
// The columns whose names were made different, and those behind the last position that .POS can tell.
void RemarquerNoms(std::vector<std::string>& remarques, const std::vector<ColonneImportee>& colonnes,
                   const std::vector<std::size_t>& nomsChanges);
// "3  Age", with the bare number.
std::string NumeroEtIntitule(const ColonneImportee& colonne);
// How many lines without a value, and cells below zero.
std::string RemarqueLignesVides(std::int64_t nombre);
std::string RemarqueNegatives(std::int64_t nombre, std::size_t rang, std::string_view intitule);
// The remarks behind an empty line; nothing without any.
void ImprimerRemarques(Rapport& rapport, const std::vector<std::string>& remarques);

void ImprimerVerification(Rapport& rapport, std::int64_t individus, const std::vector<std::string>& premieres,
                          bool sansIntitules);

}  // namespace quelvar::capture
