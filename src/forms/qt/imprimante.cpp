#include "forms/qt/imprimante.h"

#include <QPrintDialog>
#include <QPrinterInfo>

namespace quelvar::forms {

bool DemanderImprimante(QWidget* parent, QPrinter& imprimante, ChoixDePages pages) {
  if (QPrinterInfo::availablePrinters().isEmpty()) return false;
  QPrintDialog dialogue(&imprimante, parent);
  dialogue.setOption(QAbstractPrintDialog::PrintPageRange, pages == ChoixDePages::Permis);
  return dialogue.exec() == QDialog::Accepted && imprimante.isValid();
}

}  // namespace quelvar::forms
