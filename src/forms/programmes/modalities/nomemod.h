// Creation of modalities without reading the data, and their labels.
#pragma once

#include <memory>

#include "forms/pieces/editionliste.h"
#include "forms/pieces/listequestions.h"
#include "forms/services/services.h"
#include "modalities/correction/nomemod.h"
#include "modalities/creation/posmod.h"

namespace Ui {
class NomeMod;
}

namespace quelvar::forms {

class NomeMod : public Forme {
  Q_OBJECT
 public:
  NomeMod(Services& services, modalities::ChoixPrepare prepare);
  ~NomeMod() override;

  bool ATravail() const override;

 private:
  void RelierChoix();
  void RelierEdition();
  void MontrerNombre();
  void LancerCreation();
  void OuvrirModification();
  void MontrerModalites();
  void Sauver();
  void Enregistrer();
  void RetenirIntitule(std::string_view nom, const std::string& intitule);
  modalities::RapportNomeMod Rapport() const;

  modalities::ChoixPrepare prepare_;
  modalities::OptionsNomeMod faits_;  // the creations and the labels since the form was opened
  std::vector<modalities::ModaliteNommee> modalites_;
  std::unique_ptr<Ui::NomeMod> ui_;
  ListesDeQuestions* listes_ = nullptr;
  EditionListe* edition_ = nullptr;
};

void OuvrirNomMod(Services& services);

}  // namespace quelvar::forms
