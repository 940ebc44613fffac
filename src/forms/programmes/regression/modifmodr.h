// Coding of a regression in the modalities of the current generic.
#pragma once

#include <memory>
#include <string_view>

#include "forms/pieces/editionliste.h"
#include "forms/services/services.h"
#include "regression/modifmodr.h"

namespace Ui {
class ModifModR;
}

namespace quelvar::forms {

class ModifModR : public Forme {
  Q_OBJECT
 public:
  explicit ModifModR(Services& services);
  ~ModifModR() override;
  bool ATravail() const override { return etat_.textes != duFichier_ || edition_->EnCours(); }

 private:
  regression::TypeDeQuestion Type() const;
  void Relier();
  void ChangerType();
  void CoderQuestion(int ligne);
  void CoderModalite(int ligne);
  void MontrerModalites(const std::string& question);
  void Dire(std::string_view titre, const QString& texte);
  void Enregistrer();

  ListeOuverte etat_;
  std::vector<std::string> duFichier_;  // the lines as the file has them
  std::vector<std::string> questions_;
  std::vector<std::size_t> montrees_;  // indices of the modalities that Listmod shows
  std::unique_ptr<Ui::ModifModR> ui_;
  EditionListe* edition_ = nullptr;
  bool intituleRefuse_ = false;  // TextMsg says why
};

void OuvrirModifModR(Services& services);
// The two programs that have no form: they run at once.
void OuvrirAnatab(Services& services);
void OuvrirReglin(Services& services);

}  // namespace quelvar::forms
