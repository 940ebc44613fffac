// The options of the import of any table and of its preview, as the command line and the window know them.
#pragma once

#include "capture/apercu/import.h"
#include "core/options/description.h"

namespace quelvar::capture {

const Description<OptionsImport>& DescriptionImport();
const Description<OptionsImport>& DescriptionApercu();

}  // namespace quelvar::capture
