// The modalities whose profile is asked for, as line 2 of the .MOD keeps them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/enquete/listemod.h"

namespace quelvar::factor {

// Value of "MOD=": names of four columns with one blank between them, every blank written "~".
std::string TexteDuChoix(const std::vector<std::string>& noms);
// The names of that value, padded to four columns.
std::vector<std::string> NomsDuChoix(std::string_view texte);

// Why a choice can't be kept on the line; empty when it can.
std::string RefusDuChoix(const std::vector<std::string>& noms);

// Line 2 with its parameters in their order, those of no value left out, and the choice behind them. Raises
// kDepassementCapacite for a value beyond its type, at line 2 of the file of that name.
std::string LigneDuChoix(std::string_view parametres, const std::vector<std::string>& noms, std::string_view nomMod);

// The mark of a text of the list as it is written back: " S ", three blanks, or what the coding of a regression says.
void RendreMarque(std::string& texte);

}  // namespace quelvar::factor
