// The text box of the main form: fixed-width text whose bytes are kept through the screen and back, with the ruler of
// a partial display and the first columns held in place on demand.
#pragma once

#include <QPlainTextEdit>
#include <string>
#include <string_view>

#include "core/document/texteedite.h"

namespace quelvar::forms {

class TexteFixe : public QPlainTextEdit {
  Q_OBJECT
 public:
  explicit TexteFixe(QWidget* parent = nullptr);

  // Replaces the text; the caret stands at its head or at its end.
  void PoserTexte(std::string_view octets, bool alaFin = false);
  // What the program itself says, which may hold names of any script.
  void PoserPhrases(std::string_view texte);
  // Adds lines under what the box holds, the caret behind them.
  void AjouterTexte(std::string_view texte);
  // The text as bytes, encoded and ended as those that came in.
  std::string Octets() const;

  void FixerTaille(int points);

  // Keeps the first lines at the top, and the first columns at the left, while the rest scrolls; 0 lets them go.
  void FigerLignes(int lignes);
  void FigerColonnes(int colonnes);

 protected:
  void resizeEvent(QResizeEvent* evenement) override;
  void changeEvent(QEvent* evenement) override;

 private:
  void PlacerVolets();
  void PeindreLignes(QPainter& peintre) const;
  void PeindreColonnes(QPainter& peintre) const;
  int LargeurFigee() const;

  FormeTexte forme_;
  int lignesFigees_ = 0;
  int colonnesFigees_ = 0;
  QWidget* voletLignes_;
  QWidget* voletColonnes_;
};

}  // namespace quelvar::forms
