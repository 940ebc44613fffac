// Status and labels of the modalities of the current generic.
#pragma once

#include <QDialog>
#include <memory>

#include "forms/cadre/principal.h"
#include "forms/pieces/editionliste.h"
#include "modalities/edition/modifmod.h"

namespace Ui {
class ModifMod;
}

namespace quelvar::forms {

class ModifMod : public QDialog {
  Q_OBJECT
 public:
  explicit ModifMod(Principal& principal);
  ~ModifMod() override;

 private:
  void Remplir();
  void Basculer(int ligne);
  void MontrerStatut(int ligne);
  void Enregistrer();

  Principal& principal_;
  Contexte contexte_;  // of the generic that the form was opened on
  modalities::EtatModifMod etat_;
  std::unique_ptr<Ui::ModifMod> ui_;
  EditionListe* edition_ = nullptr;
};

void OuvrirModifMod(Principal& principal);

}  // namespace quelvar::forms
