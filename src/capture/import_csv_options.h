// The options of the spreadsheet import as the command line and the form know them.
#pragma once

#include "capture/csv/import.h"
#include "core/options/description.h"

namespace quelvar::capture {

const Description<OptionsImportCsv>& DescriptionImportCsv();

}  // namespace quelvar::capture
