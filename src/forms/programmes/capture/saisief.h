// Keyed entry: one question at a time from the keyboard, with those around it, and the list of the records made.
#pragma once

#include <memory>

#include "capture/saisie/saisie.h"
#include "core/enquete/modfile.h"
#include "forms/services/services.h"

namespace Ui {
class Saisief;
}

namespace quelvar::forms {

class ListeEnregistrements;

class Saisief : public Forme {
  Q_OBJECT
 public:
  Saisief(Services& services, std::shared_ptr<capture::SaisieEnCours> saisie);
  ~Saisief() override;

  // An individual whose answers are not written yet.
  bool ATravail() const override;

 protected:
  std::string_view QuestionDePerte() const override;
  void showEvent(QShowEvent* evenement) override;
  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  void Frapper(capture::Touche touche, bool tenue);
  void LaisserLEnregistrement();
  void Enregistrer();
  void Montrer();
  void DonnerLeClavier();
  void Continuer();
  std::string Commande() const;
  void MontrerListe();
  void Choisir(int rang);
  bool ToucheDeListe(int cle);
  bool ToucheDeFautes(QPushButton& bouton, int cle);

  std::shared_ptr<capture::SaisieEnCours> saisie_;
  IntitulesModalites intitules_;
  std::unique_ptr<Ui::Saisief> ui_;
  ListeEnregistrements* liste_;
  bool fautesVues_;
};

// Starts an entry on the files of the generic, or the making of its descriptor when it has none.
void OuvrirSaisie(Services& services);

}  // namespace quelvar::forms
