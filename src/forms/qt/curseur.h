// The cursor of the mouse for a while.
#pragma once

#include <QApplication>

namespace quelvar::forms {

// While one lives, the cursor has that shape over every window of the program.
class Curseur {
 public:
  explicit Curseur(Qt::CursorShape forme) { QApplication::setOverrideCursor(forme); }
  ~Curseur() { QApplication::restoreOverrideCursor(); }
  Curseur(const Curseur&) = delete;
  Curseur& operator=(const Curseur&) = delete;
};

}  // namespace quelvar::forms
