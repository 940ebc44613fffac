// Prints a lexical table: its files, questions and counts, and the steps that may follow.
#pragma once

#include <cstdint>
#include <vector>

#include "core/enquete/posfile.h"
#include "core/programme/programme.h"
#include "text/tableau/comptage.h"
#include "text/tableau/tabmot.h"

namespace quelvar::text {

void ImprimerNoms(Rapport& rapport, const Contexte& contexte);
// `actives`: ranks of the active questions.
void ImprimerQuestions(Rapport& rapport, const FichierPos& pos, std::int64_t individus,
                       const std::vector<std::size_t>& actives);
void ImprimerBilan(Rapport& rapport, int niveau, const OptionsTabMot& options, const TableLexicale& table);
void ImprimerFin(Rapport& rapport);

}  // namespace quelvar::text
