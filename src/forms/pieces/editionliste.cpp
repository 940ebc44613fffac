#include "forms/pieces/editionliste.h"

#include <QEvent>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QToolTip>
#include <algorithm>

#include "core/enquete/listemod.h"
#include "core/programme/horspage.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

EditionListe::EditionListe(QWidget& forme, QListWidget& liste, QLineEdit& champ, QPushButton& suivant, Acces acces)
    : QObject(&forme), liste_(liste), champ_(champ), suivant_(suivant), acces_(std::move(acces)) {
  liste.setFont(PoliceFixe());
  champ.setEnabled(false);
  suivant.setDefault(true);
  liste.installEventFilter(this);
  champ.installEventFilter(this);
  connect(&liste, &QListWidget::currentRowChanged, this, &EditionListe::Aller);
  connect(&liste, &QListWidget::itemClicked, &champ, [&champ] { champ.setFocus(); });
  connect(&champ, &QLineEdit::inputRejected, this, [this] { emit Refuse(acces_.tropLong); });
  connect(&champ, &QLineEdit::textEdited, this, [this](const QString& texte) {
    if (texte.size() < champ_.maxLength()) emit Refuse(QString());
  });
  connect(&suivant, &QPushButton::clicked, this, [this] {
    if (ligne_ < 0) return;
    const int suite = ligne_ + 1 < liste_.count() ? ligne_ + 1 : 0;
    if (suite == ligne_) Ranger();
    else liste_.setCurrentRow(suite);
    champ_.setFocus();
    champ_.selectAll();
  });
}

bool EditionListe::eventFilter(QObject* objet, QEvent* evenement) {
  if (evenement->type() != QEvent::KeyPress) return QObject::eventFilter(objet, evenement);
  const int touche = static_cast<const QKeyEvent&>(*evenement).key();
  if (touche != Qt::Key_Return && touche != Qt::Key_Enter) return QObject::eventFilter(objet, evenement);
  suivant_.click();
  return true;
}

void EditionListe::Remplir() {
  ligne_ = -1;
  const QSignalBlocker silence(liste_);
  liste_.clear();
  for (int i = 0; i < acces_.nombre(); ++i) liste_.addItem(acces_.texte(i));
  champ_.clear();
  champ_.setEnabled(false);
}

void EditionListe::Montrer(int ligne) { liste_.item(ligne)->setText(acces_.texte(ligne)); }

bool EditionListe::Ranger() {
  if (ligne_ < 0 || !champ_.isModified()) return true;
  const std::string etranger = RefusHorsPage(champ_.text().toStdString());
  const QString refus = etranger.empty() ? acces_.poser(ligne_, champ_.text())
                                         : QStringLiteral("L'intitulé n'est pas pris : ") + VersQt(etranger);
  emit Refuse(refus);
  if (!etranger.empty()) QToolTip::showText(champ_.mapToGlobal(QPoint(0, champ_.height())), refus, &champ_);
  if (!refus.isEmpty()) return false;
  champ_.setModified(false);
  Montrer(ligne_);
  return true;
}

void EditionListe::Aller(int ligne) {
  if (!Ranger()) {  // the line that is refused stays the current one
    const QSignalBlocker silence(liste_);
    liste_.setCurrentRow(ligne_);
    champ_.setFocus();
    return;
  }
  ligne_ = ligne;
  champ_.setEnabled(ligne >= 0);
  const QString intitule = ligne >= 0 ? acces_.intitule(ligne) : QString();
  champ_.setMaxLength(std::max(acces_.longueur, static_cast<int>(intitule.size())));
  champ_.setText(intitule);
}

EditionListe::Acces AccesAuxTextes(std::function<int()> nombre, std::function<const std::string&(int ligne)> texte,
                                   std::function<void(int ligne, const std::string& intitule)> poser) {
  return {std::move(nombre), [texte](int ligne) { return VersQt(texte(ligne)); },
          [texte](int ligne) { return VersQt(IntituleDeTexte(texte(ligne))); },
          [poser = std::move(poser)](int ligne, const QString& intitule) {
            poser(ligne, DepuisQt(intitule));
            return QString();
          }};
}

QString EnUnTexte(const std::vector<std::string>& lignes) {
  QStringList textes;
  for (const std::string& ligne : lignes) textes << VersQt(ligne);
  return textes.join(u'\n');
}

}  // namespace quelvar::forms
