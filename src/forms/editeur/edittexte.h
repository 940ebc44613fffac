// The text box of the editor: fixed columns under a ruler, characters kept to what the file can hold, long texts shown
// while they still load.
#pragma once

#include <QTimer>
#include <string>

#include "core/document/texteedite.h"
#include "forms/texte/regle.h"
#include "forms/texte/textefixe.h"

namespace quelvar::forms {

class EditTexte : public TexteFixe {
  Q_OBJECT
 public:
  explicit EditTexte(QWidget* parent = nullptr);

  // Replaces the text: its head at once, the rest in the pauses of the window, read-only until it is there.
  void Charger(std::u16string texte, EncodageDuTexte encodage);
  // Loads at once what is still to come.
  void AcheverChargement();
  bool EnChargement() const { return charge_ < attente_.size(); }
  // The whole text, lines ended by LF.
  std::u16string TexteComplet();

  void FixerLectureSeule(bool lectureSeule);
  void MontrerRegle(bool visible);
  bool RegleVisible() const { return !regle_->isHidden(); }
  void FixerTailleCaracteres(int points);

  int Ligne() const;    // of the caret, from 1
  int Colonne() const;  // from 1
  void AllerALigne(int ligne);
  // Selects a place and brings it to the middle of the window when it was out of sight.
  void Montrer(const QTextCursor& selection);

  // Typed and pasted text as the document takes it.
  QString Admettre(const QString& texte);

 signals:
  void Charge(int pourcent);  // 100 at the end
  // Something typed or pasted was not taken as it was.
  void Signale(const QString& phrase);

 protected:
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;
  QMimeData* createMimeDataFromSelection() const override;
  void keyPressEvent(QKeyEvent* evenement) override;
  void inputMethodEvent(QInputMethodEvent* evenement) override;
  void resizeEvent(QResizeEvent* evenement) override;
  void wheelEvent(QWheelEvent* evenement) override;

 private:
  void ChargerSuite(std::size_t caracteres);
  void FinirChargement();
  bool Deborde(const QString& ajout) const;
  void MarquerLigne();
  void DisposerRegle();

  ReglePositions* regle_;
  QTimer pause_;
  std::u16string attente_;
  std::size_t charge_ = 0;  // characters of attente_ that the box holds
  EncodageDuTexte encodage_ = EncodageDuTexte::PageDeCode;
  bool lectureSeule_ = false;
};

}  // namespace quelvar::forms
