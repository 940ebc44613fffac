// OpenDocument sheets (ISO/IEC 26300): one stream of XML holds every sheet.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "capture/classeur/archive.h"
#include "capture/classeur/rangees.h"

namespace quelvar::capture::classeur {

bool EstOds(const Archive& archive);
// Names in UTF-8, in the order of the workbook.
std::vector<std::string> FeuillesOds(const Archive& archive);
// The rows of the sheet of that rank, from 0.
void LireOds(const Archive& archive, std::size_t rang, Rangees& rangees);

}  // namespace quelvar::capture::classeur
