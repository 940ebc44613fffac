// The profile of chosen modalities: the choice, the labels, the run, and the picture beside the report.
#pragma once

#include <QStringList>
#include <memory>

#include "factor/profil/profilmod.h"
#include "forms/pieces/editionliste.h"
#include "forms/services/services.h"

namespace Ui {
class ProfilMod;
}  // namespace Ui

namespace quelvar::forms {

class ProfilMod : public Forme {
  Q_OBJECT
 public:
  explicit ProfilMod(Services& services);
  ~ProfilMod() override;

 private:
  void Remplir();
  void Filtrer(const QString& texte);
  // Names of the selected modalities, in the order of the list.
  std::vector<std::string> Choisies() const;
  void MontrerChoix();
  // What the form runs, as options: the choice and the labels that were changed.
  factor::OptionsProfil Options() const;
  void Enregistrer();

  factor::EtatProfil etat_;
  std::vector<std::string> initiaux_;  // the texts of the list as they were read
  std::unique_ptr<Ui::ProfilMod> ui_;
  EditionListe* edition_ = nullptr;
};

void OuvrirProfilMod(Services& services);

}  // namespace quelvar::forms
