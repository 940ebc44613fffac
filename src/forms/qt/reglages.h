// The settings store of the platform: one INI file an application in the user's configuration.
#pragma once

#include "core/session/reglages.h"

namespace quelvar::forms {

Reglages ReglagesQt();

}  // namespace quelvar::forms
