// Status and labels of the modalities of the current generic.
#pragma once

#include <memory>

#include "forms/pieces/editionliste.h"
#include "forms/services/services.h"
#include "modalities/correction/modifmod.h"

namespace Ui {
class ModifMod;
}

namespace quelvar::forms {

class ModifMod : public Forme {
  Q_OBJECT
 public:
  explicit ModifMod(Services& services);
  ~ModifMod() override;

  bool ATravail() const override;

 private:
  std::string& Texte(int ligne) { return etat_.textes[static_cast<std::size_t>(ligne)]; }
  void Remplir();
  void Basculer(int ligne);
  void MontrerStatut(int ligne);
  void Enregistrer();

  ListeOuverte etat_;
  std::vector<std::string> dansLeFichier_;  // the texts as they were read
  std::unique_ptr<Ui::ModifMod> ui_;
  EditionListe* edition_ = nullptr;
};

void OuvrirModifMod(Services& services);

}  // namespace quelvar::forms
