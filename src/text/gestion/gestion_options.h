// The options of the work on the rows and columns of a table as the command line knows them.
#pragma once

#include "core/options/description.h"
#include "text/gestion/agregation.h"
#include "text/gestion/suplmot.h"

namespace quelvar::text {

const Description<OptionsSuplMot>& DescriptionSuplMot();
const Description<OptionsTabMotAgreg>& DescriptionTabMotAgreg();

}  // namespace quelvar::text
