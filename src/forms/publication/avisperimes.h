// The help page: what it says of the programs that the menu does not have yet.
#pragma once

#include <QString>

namespace quelvar::forms {

// The page without the paragraphs (class "etat") whose data-menu names an entry that has a program behind it.
QString SansAvisPerimes(const QString& page);

}  // namespace quelvar::forms
