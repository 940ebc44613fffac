// The files of a lexical table: rows and modalities, and the marks of the questions in the position file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"
#include "core/enquete/posfile.h"
#include "core/programme/programme.h"
#include "text/tableau/comptage.h"

namespace quelvar::text {

// Columns of the frequency in front of a row, and the greatest that they hold.
inline constexpr int kLargeurFrequence = kLargeurDeModalite;
inline constexpr std::int64_t kFrequenceEcrite = 9999;

// The rows of .BRT in the upward order of their frequency field, equal ones as the file sort leaves them.
std::vector<std::string> LignesTriees(const TableLexicale& table, int largeur, const Dialogue& ecran);

// `lignes` are those of the .BRT, whose label stands behind the cells.
void EcrireModLexical(Ecrivain& fichier, std::string_view generique, const PlanLexical& plan,
                      const IntitulesModalites& intitules, const std::vector<std::string>& lignes, int largeur,
                      std::int64_t decimales);

// A question line with the mark that its choice asks for: a chosen one is active, one that no longer is becomes
// supplementary, one without a mark that is not chosen stays so.
std::string LigneMarquee(const std::string& ligne, bool choisie);

}  // namespace quelvar::text
