// The request of the crosstabs: which questions are crossed, and how the tables are printed.
#pragma once

#include <QListWidget>
#include <QShowEvent>
#include <memory>

#include "crosstab/choixvar.h"
#include "crosstab/croise_options.h"
#include "forms/services/brouillon.h"
#include "forms/services/services.h"

namespace Ui {
class ChoixVar;
}

namespace quelvar::forms {

class ChoixVar : public Forme {
  Q_OBJECT
 public:
  // The survey as it was loaded for the current generic.
  ChoixVar(Services& services, crosstab::EnqueteCroisee enquete, Brouillon rapport);
  ~ChoixVar() override;

  // A request that was made and not launched as it stands.
  bool ATravail() const override { return etat_.nombreTableaux > 0 && etat_.drapeaux != lancee_; }

 protected:
  void showEvent(QShowEvent* evenement) override;
  std::string_view QuestionDePerte() const override;

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
  crosstab::OptionsCroise Demande() const;
  void LancerTri();

  crosstab::EnqueteCroisee enquete_;
  std::shared_ptr<Brouillon> rapport_;
  crosstab::EtatChoixVar etat_;
  decltype(crosstab::EtatChoixVar::drapeaux) lancee_;  // the questions of the last launch
  std::unique_ptr<Ui::ChoixVar> ui_;
};

// Loads the survey and opens the form; the one that is open for the same data set is shown again.
void OuvrirChoixVar(Services& services);

}  // namespace quelvar::forms
