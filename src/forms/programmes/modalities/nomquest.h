// The long names of the questions of the current generic.
#pragma once

#include <memory>

#include "forms/pieces/editionliste.h"
#include "forms/services/services.h"
#include "modalities/correction/nomquest.h"

namespace Ui {
class NomQuest;
}

namespace quelvar::forms {

class NomQuest : public Forme {
  Q_OBJECT
 public:
  explicit NomQuest(Services& services);
  ~NomQuest() override;

  bool ATravail() const override;

 private:
  void MontrerMessage(const QString& texte);
  void Sauver();
  void Enregistrer();

  modalities::EtatNomQuest etat_;
  std::vector<modalities::NomDeQuestion> ouverts_;  // as the file was read
  std::unique_ptr<Ui::NomQuest> ui_;
  EditionListe* edition_ = nullptr;
};

void OuvrirNomQuest(Services& services);

}  // namespace quelvar::forms
