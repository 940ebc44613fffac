// Columns and rows of a table: which are supplementary, and their labels.
#pragma once

#include <QListWidget>
#include <memory>

#include "forms/pieces/editionliste.h"
#include "forms/services/forme.h"
#include "forms/services/services.h"
#include "text/gestion/suplmot.h"

namespace Ui {
class SuplMot;
}

namespace quelvar::forms {

class SuplMot : public Forme {
  Q_OBJECT
 public:
  explicit SuplMot(Services& services);
  ~SuplMot() override;
  bool ATravail() const override { return modifie_; }
  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  void PreparerEdition();
  void BasculerColonnes();
  void BasculerLigne(const QListWidgetItem& element);
  void BasculerLignes();
  void MontrerColonne(int colonne);
  void MontrerLigne(int ligne);
  void Enregistrer();

  text::TableOuverte ouverte_;
  text::TableGeree desFichiers_;  // as it was opened
  std::unique_ptr<Ui::SuplMot> ui_;
  EditionListe* colonnes_ = nullptr;
  EditionListe* lignes_ = nullptr;
  const QListWidgetItem* appuyee_ = nullptr;  // the row under the last press of the mouse
  bool modifie_ = false;
};

void OuvrirSuplMot(Services& services);

}  // namespace quelvar::forms
