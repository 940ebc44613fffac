// Creation of modalities without reading the data, and their labels.
#pragma once

#include <QDialog>
#include <memory>

#include "forms/cadre/principal.h"
#include "forms/pieces/editionliste.h"
#include "modalities/creation/posmod.h"
#include "modalities/edition/nomemod.h"

namespace Ui {
class NomeMod;
}

namespace quelvar::forms {

class NomeMod : public QDialog {
  Q_OBJECT
 public:
  NomeMod(Principal& principal, modalities::ChoixPrepare prepare);
  ~NomeMod() override;

 private:
  void RelierChoix();
  void RelierEdition();
  void Deplacer(const QListWidget& liste, Statut statut);
  void MontrerChoix();
  void LancerCreation();
  void OuvrirModification();
  void MontrerModalites();
  void Sauver();
  void Enregistrer();

  Principal& principal_;
  Contexte contexte_;  // of the generic that the form was opened on
  modalities::ChoixPrepare prepare_;
  std::vector<modalities::ModaliteNommee> modalites_;
  std::unique_ptr<Ui::NomeMod> ui_;
  EditionListe* edition_ = nullptr;
};

void OuvrirNomMod(Principal& principal);

}  // namespace quelvar::forms
