// The editing of labels that several forms share: a list, the label of its current line in a text box, and the button
// that stores it and goes on, which the Enter key presses there (a form may have two of them).
#pragma once

#include <QLineEdit>
#include <QListWidget>
#include <QObject>
#include <QPushButton>
#include <functional>
#include <string>
#include <vector>

namespace quelvar::forms {

class EditionListe : public QObject {
  Q_OBJECT
 public:
  static constexpr int kSansLimite = 32767;  // what a text box takes when nothing is said

  // The list behind the form.
  struct Acces {
    std::function<int()> nombre;
    std::function<QString(int ligne)> texte;     // what the list shows
    std::function<QString(int ligne)> intitule;  // what the text box shows
    // Stores a label; returns why it is refused, empty when it is stored.
    std::function<QString(int ligne, const QString& intitule)> poser;
    int longueur = kSansLimite;  // characters that the text box takes, unless the label is longer
    QString tropLong = {};       // told when more are typed
  };
  // The controls live as long as their form, which is the parent.
  EditionListe(QWidget& forme, QListWidget& liste, QLineEdit& champ, QPushButton& suivant, Acces acces);

  // Fills the list anew; no line is current.
  void Remplir();
  // Shows a line again after its text has changed.
  void Montrer(int ligne);
  // Stores what the text box holds; false when it is refused, as a character is that the files can't hold.
  bool Ranger();
  // Whether the text box holds what is not stored yet.
  bool EnCours() const { return ligne_ >= 0 && champ_.isModified(); }

 signals:
  // Why a label is refused, or empty when it is not.
  void Refuse(const QString& texte);

 private:
  bool eventFilter(QObject* objet, QEvent* evenement) override;
  void Aller(int ligne);

  QListWidget& liste_;
  QLineEdit& champ_;
  QPushButton& suivant_;
  Acces acces_;
  int ligne_ = -1;  // the one in the text box
};

// The texts of a .MOD behind a list, each shown whole, its label alone in the text box; `poser` stores a label, and
// whatever is typed is one.
EditionListe::Acces AccesAuxTextes(std::function<int()> nombre, std::function<const std::string&(int ligne)> texte,
                                   std::function<void(int ligne, const std::string& intitule)> poser);

// Lines of the code page as the text of a label.
QString EnUnTexte(const std::vector<std::string>& lignes);

}  // namespace quelvar::forms
