// The request of the crosstabs: which questions are crossed, and how the tables are printed.
#pragma once

#include <QListWidget>
#include <QShowEvent>
#include <memory>

#include "crosstab/choixvar.h"
#include "forms/cadre/services.h"

namespace Ui {
class ChoixVar;
}

namespace quelvar::forms {

class ChoixVar : public Forme {
  Q_OBJECT
 public:
  // The survey as it was loaded for the current generic.
  ChoixVar(Services& services, crosstab::EnqueteCroisee enquete);
  ~ChoixVar() override;

 protected:
  void showEvent(QShowEvent* evenement) override;

 private:
  void RelierListes();
  void RelierOptions();
  void RelierBoutons();
  QListWidget& ListeDu(crosstab::RoleQuestion role) const;
  void Montrer();
  void RemplirListe(crosstab::RoleQuestion role);
  void Ajouter(crosstab::RoleQuestion role);
  void Enlever(crosstab::RoleQuestion role);
  void CocherIsole(bool coche);
  void LancerTri();

  crosstab::EnqueteCroisee enquete_;
  crosstab::EtatChoixVar etat_;
  std::unique_ptr<Ui::ChoixVar> ui_;
};

// Loads the survey and opens the form; the one that is open for the same data set is shown again.
void OuvrirChoixVar(Services& services);

}  // namespace quelvar::forms
