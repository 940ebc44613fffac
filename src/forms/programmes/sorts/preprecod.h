// The preparation of a recoding: rules, weighting, filter and VIT, written to the .POS of the current generic.
#pragma once

#include <QComboBox>
#include <memory>

#include "forms/services/services.h"
#include "sorts/preparation/preprecod.h"

namespace Ui {
class PrepRecod;
}

namespace quelvar::forms {

class PrepRecod : public Forme {
  Q_OBJECT
 public:
  PrepRecod(Services& services, sorts::EtatPrepRecod etat);
  ~PrepRecod() override;

  bool ATravail() const override;

 private:
  bool RegleTapee() const;
  void ReprendreLeTexte(sorts::EtatPrepRecod& etat) const;
  bool ValiderLaRegle();
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

  sorts::EtatPrepRecod EtatAEnregistrer() const;

  sorts::EtatPrepRecod etat_;
  const sorts::EtatPrepRecod ouvert_;  // as the file was read
  std::unique_ptr<Ui::PrepRecod> ui_;
};

void OuvrirPrepRecod(Services& services);

}  // namespace quelvar::forms
