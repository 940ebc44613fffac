// The options of the work on the rows and columns of a table as the command line and the forms know them.
#pragma once

#include "core/options/description.h"
#include "text/gestion/agregation.h"
#include "text/gestion/suplmot.h"

namespace quelvar::text {

const Description<OptionsSuplMot>& DescriptionSuplMot();
const Description<OptionsTabMotAgreg>& DescriptionTabMotAgreg();
// One sort of the rows, as the form TabMotAgreg asks for it; it cannot be run by itself.
const Description<TriDeLignes>& DescriptionTriDeLignes();

}  // namespace quelvar::text
