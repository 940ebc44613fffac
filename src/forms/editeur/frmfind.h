// The find dialog of the editor: what to look for, what to put in its place, and how.
#pragma once

#include <QDialog>
#include <memory>

#include "forms/editeur/recherche.h"

namespace Ui {
class frmFind;
}

namespace quelvar::forms {

class frmFind : public QDialog {
  Q_OBJECT
 public:
  explicit frmFind(QWidget* parent);
  ~frmFind() override;

  OptionsRecherche Options() const;
  QString Remplacement() const;
  bool Boucle() const;  // goes on at the other end of the text

  // Shows the dialog; a text that is not empty is what to look for. Without `remplacer` it only looks.
  void Ouvrir(const QString& motif, bool remplacer);
  // The outcome of the last search, under the options.
  void Dire(const QString& phrase);

 signals:
  void Cherche(bool enArriere);
  void Remplace();
  void RemplaceTout();

 private:
  std::unique_ptr<Ui::frmFind> ui_;
};

}  // namespace quelvar::forms
