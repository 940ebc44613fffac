// The long names of the questions of the current generic.
#pragma once

#include <QDialog>
#include <memory>

#include "forms/cadre/principal.h"
#include "forms/pieces/editionliste.h"
#include "modalities/edition/nomquest.h"

namespace Ui {
class NomQuest;
}

namespace quelvar::forms {

class NomQuest : public QDialog {
  Q_OBJECT
 public:
  explicit NomQuest(Principal& principal);
  ~NomQuest() override;

 private:
  void MontrerMessage(const QString& texte);
  void Sauver();
  void Enregistrer();

  Principal& principal_;
  Contexte contexte_;  // of the generic that the form was opened on
  modalities::EtatNomQuest etat_;
  std::unique_ptr<Ui::NomQuest> ui_;
  EditionListe* edition_ = nullptr;
};

void OuvrirNomQuest(Principal& principal);

}  // namespace quelvar::forms
