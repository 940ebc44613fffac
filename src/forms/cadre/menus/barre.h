// The menu of the main form: every entry in its place, with name, caption and shortcut.
#pragma once

#include <QMenuBar>

namespace quelvar::forms {

// Fills the bar. Every entry starts disabled: what has a program behind it is enabled by the form.
void ConstruireMenus(QMenuBar& barre);

}  // namespace quelvar::forms
