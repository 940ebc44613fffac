// What every window program of ours and the tests of the forms share: names, French, the place of the help.
#pragma once

#include <QString>

namespace quelvar::forms {

// Called once, when the application object exists.
void PreparerApplication();

// The directory of QuelvarAide.html, beside the executable or installed; empty when there is none.
QString DossierAide();

}  // namespace quelvar::forms
