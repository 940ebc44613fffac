// The preparation of a recoding: rules, weighting, filter and VIT, written to the .POS of the current generic.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <memory>

#include "forms/cadre/principal.h"
#include "sorts/preparation/preprecod.h"

namespace Ui {
class PrepRecod;
}

namespace quelvar::forms {

class PrepRecod : public QDialog {
  Q_OBJECT
 public:
  PrepRecod(Principal& principal, sorts::EtatPrepRecod etat);
  ~PrepRecod() override;

  // Whether the form was opened on that generic.
  bool EstSur(const Contexte& contexte) const;
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* evenement) override;

 private:
  void RelierQuestions();
  void RelierPonderation();
  void RelierFiltre();
  void RelierVit();
  void RelierAides();
  // Runs one action on the state, then shows what became of it.
  void Agir(const std::function<void()>& action);
  void Montrer();
  void MontrerQuestion();
  void MontrerLigneEnCours();
  void ProposerCodes(QComboBox& codes, const std::vector<int>& offerts);
  void NommerVit();
  void ChoisirCodeDeVit(int rang);
  void EffacerVit();
  void Enregistrer();

  Principal& principal_;
  Contexte contexte_;  // of the generic that the form was opened on
  sorts::EtatPrepRecod etat_;
  bool parLeProgramme_ = false;  // closed by the program, not left by the user
  std::unique_ptr<Ui::PrepRecod> ui_;
};

void OuvrirPrepRecod(Principal& principal);

}  // namespace quelvar::forms
