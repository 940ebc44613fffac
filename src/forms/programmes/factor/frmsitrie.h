// What the sorted edition asks for: whether rows are listed, and the smallest contribution of a listed row or column.
// ChoixAnecar opens it under the choice of that edition.
#pragma once

#include <QWidget>
#include <memory>

namespace Ui {
class frmSiTrié;
}

namespace quelvar::forms {

class frmSiTrié : public QWidget {
 public:
  // Its controls follow that one in the tab order.
  frmSiTrié(QWidget& parent, QWidget& avant);
  ~frmSiTrié() override;

  // Opens it with both thresholds at the mean; with its own box for the rows, or without one where another decides.
  void Ouvrir(bool avecCaseLignes);
  // Per mille; kSeuilMoyen for the mean.
  int SeuilLignes() const;
  int SeuilColonnes() const;

 private:
  std::unique_ptr<Ui::frmSiTrié> ui_;
};

}  // namespace quelvar::forms
