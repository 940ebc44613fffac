// A sheet of a workbook is read on a thread of its own, while the window goes on painting and tells how far it is.
#pragma once

#include <string>

#include "capture/preparation.h"

class QWidget;

namespace quelvar::forms {

// A box tells how far it is; raises what PreparationDImport raises, and Annulation when the user gives up there.
capture::PreparationDImport PreparerAuLoin(QWidget* parent, const Chemin& classeur, const std::string& feuille);

}  // namespace quelvar::forms
