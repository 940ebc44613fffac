// A sheet of a workbook is read on a thread of its own, while the window goes on painting and tells how far it is.
#pragma once

#include <string>

#include "capture/preparation.h"
#include "core/programme/dialogue.h"

namespace quelvar::forms {

// Raises what PreparationDImport raises.
capture::PreparationDImport PreparerAuLoin(const Dialogue& ecran, const Chemin& classeur, const std::string& feuille);

}  // namespace quelvar::forms
