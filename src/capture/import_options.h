// The options of the imports that have no preview as the command line and the forms know them.
#pragma once

#include "capture/burt/import.h"
#include "capture/csv/import.h"
#include "capture/dbase/import.h"
#include "capture/dbase/tableau.h"
#include "core/options/description.h"

namespace quelvar::capture {

const Description<OptionsImportDbf>& DescriptionImportDbf();
const Description<OptionsImportTableau>& DescriptionImportTableau();
const Description<OptionsImportBurt>& DescriptionImportBurt();
const Description<OptionsImportCsv>& DescriptionImportCsv();

}  // namespace quelvar::capture
