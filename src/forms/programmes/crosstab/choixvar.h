// The request of the crosstabs: which questions are crossed, and how the tables are printed.
#pragma once

#include <QDialog>
#include <QListWidget>
#include <QShowEvent>
#include <memory>

#include "crosstab/choixvar.h"
#include "forms/cadre/principal.h"

namespace Ui {
class ChoixVar;
}

namespace quelvar::forms {

class ChoixVar : public QDialog {
  Q_OBJECT
 public:
  // The survey as it was loaded for that generic.
  ChoixVar(Principal& principal, const Contexte& contexte, crosstab::EnqueteCroisee enquete);
  ~ChoixVar() override;

  // The data set whose survey the form holds is that one.
  bool EstPour(const Contexte& contexte) const {
    return contexte.repertoire == contexte_.repertoire && contexte.generique == contexte_.generique;
  }

 protected:
  void showEvent(QShowEvent* evenement) override;
  void closeEvent(QCloseEvent* evenement) override;
  void reject() override;

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

  Principal& principal_;
  Contexte contexte_;
  crosstab::EnqueteCroisee enquete_;
  crosstab::EtatChoixVar etat_;
  bool finie_ = false;  // the run has ended and shown its report
  std::unique_ptr<Ui::ChoixVar> ui_;
};

// Loads the survey and opens the form; the one that is open for the same data set is shown again.
void OuvrirChoixVar(Principal& principal);

}  // namespace quelvar::forms
