// The making of the descriptor of an entry: name and kind of each question, the list of those validated.
#pragma once

#include <memory>

#include "capture/saisie/descripteur.h"
#include "forms/services/services.h"

namespace Ui {
class SaisieDes;
}

namespace quelvar::forms {

class SaisieDes : public Forme {
  Q_OBJECT
 public:
  explicit SaisieDes(Services& services);
  ~SaisieDes() override;

  bool ATravail() const override { return !sansEnregistrer_ && (change_ || EnCours()); }

 private:
  GenreDescription Genre() const;
  void ChangerGenre();
  void Montrer(const QString& nom, const QString& codeMax, GenreDescription genre);
  bool EnCours() const;
  bool Valider();
  bool ValiderLEnCours();
  void Reprendre(int ligne);
  void MontrerListe();
  bool Enregistrer();
  void EnregistrerEtQuitter();
  void PasserALaSaisie();

  capture::EtatDescripteur etat_;
  bool change_ = false;           // questions that no file has
  bool sansEnregistrer_ = false;  // left by the button that says so
  std::unique_ptr<Ui::SaisieDes> ui_;
};

}  // namespace quelvar::forms
