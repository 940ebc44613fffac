// The options of the utilities as the command line and the form know them.
#pragma once

#include "core/options/description.h"
#include "utilities/caracteres.h"
#include "utilities/exportation.h"
#include "utilities/exportcsv/exportcsv.h"
#include "utilities/fusion/fusion.h"
#include "utilities/gendat.h"
#include "utilities/inversion.h"
#include "utilities/tri/trifichier.h"

namespace quelvar::utilities {

const Description<OptionsTriFichier>& DescriptionTriFichier();
const Description<OptionsTriFichier>& DescriptionTri();
const Description<OptionsExportation>& DescriptionExporter();
const Description<OptionsCaracteres>& DescriptionCaracteres();
const Description<OptionsFusion>& DescriptionFusionner();
const Description<OptionsGendat>& DescriptionGendat();
const Description<OptionsInversion>& DescriptionInversion();
const Description<OptionsExportCsv>& DescriptionExportCsv();

}  // namespace quelvar::utilities
