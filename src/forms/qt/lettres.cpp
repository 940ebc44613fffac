#include "forms/qt/lettres.h"

#include <QAbstractButton>
#include <QChildEvent>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QList>
#include <QStackedWidget>
#include <algorithm>
#include <functional>

namespace quelvar::forms {

bool AUneLettre(const QString& texte) {
  return std::any_of(texte.begin(), texte.end(), [](QChar c) { return c.isLetter(); });
}

namespace {

// The page of the tabs that holds the control; none for what is always seen.
const QWidget* PageDe(const QWidget& controle) {
  for (const QWidget* parent = &controle; parent->parentWidget() != nullptr; parent = parent->parentWidget())
    if (qobject_cast<const QStackedWidget*>(parent->parentWidget()) != nullptr) return parent;
  return nullptr;
}

// Whether the control or what it stands in is taken off the window now; the pages of the tabs are not.
bool EstRetire(const QWidget& controle, const QWidget& fenetre) {
  for (const QWidget* suite = &controle; suite != &fenetre && suite != nullptr; suite = suite->parentWidget())
    if (suite->isHidden() && qobject_cast<const QStackedWidget*>(suite->parentWidget()) == nullptr) return true;
  return false;
}

struct Lettre {
  QString touche;
  const QWidget* page;
  bool retiree;
};

bool EstPrise(const QList<Lettre>& prises, const Lettre& lettre) {
  return std::any_of(prises.begin(), prises.end(), [&](const Lettre& prise) {
    return prise.touche == lettre.touche &&
           (prise.page == lettre.page || prise.page == nullptr || lettre.page == nullptr);
  });
}

// The caption with a letter of the keyboard that is free, none when there is none.
QString AvecLettreLibre(QString texte, const QList<Lettre>& prises, const QWidget* page) {
  texte.remove(u'&');
  for (qsizetype i = 0; i < texte.size(); ++i) {
    QString essai = texte;
    essai.insert(i, u'&');
    const bool duClavier = texte[i].unicode() < 128 && texte[i].isLetter();
    if (duClavier && !EstPrise(prises, {QKeySequence::mnemonic(essai).toString(), page, false})) return essai;
  }
  return texte;
}

// Those that are on the window now.
QList<Lettre> Montrees(QList<Lettre> lettres) {
  lettres.removeIf([](const Lettre& lettre) { return lettre.retiree; });
  return lettres;
}

// A caption of the window that an Alt key leads to, and how it is changed.
struct Legende {
  const QWidget* controle;
  QString texte;
  std::function<void(const QString&)> poser;
};

QList<Legende> LegendesDe(QWidget& fenetre) {
  QList<Legende> legendes;
  for (QWidget* controle : fenetre.findChildren<QWidget*>()) {
    if (controle->window() != &fenetre) continue;  // of a box over it
    if (auto* bouton = qobject_cast<QAbstractButton*>(controle); bouton != nullptr && AUneLettre(bouton->text()))
      legendes.append({bouton, bouton->text(), [bouton](const QString& texte) { bouton->setText(texte); }});
    else if (auto* libelle = qobject_cast<QLabel*>(controle); libelle != nullptr && libelle->buddy() != nullptr)
      legendes.append({libelle, libelle->text(), [libelle](const QString& texte) { libelle->setText(texte); }});
    else if (auto* cadre = qobject_cast<QGroupBox*>(controle); cadre != nullptr && cadre->title().contains(u'&'))
      legendes.append({cadre, cadre->title(), [cadre](const QString& texte) { cadre->setTitle(texte); }});
  }
  return legendes;
}

}  // namespace

void DonnerLesLettres(QWidget& fenetre) {
  QList<Lettre> prises;
  const QList<Legende> legendes = LegendesDe(fenetre);
  const auto touche = [](const QString& texte) { return QKeySequence::mnemonic(texte).toString(); };
  QList<const Legende*> sansLettre;
  for (const Legende& legende : legendes) {
    const Lettre lettre{touche(legende.texte), PageDe(*legende.controle), EstRetire(*legende.controle, fenetre)};
    const bool prise = !lettre.touche.isEmpty() && !lettre.retiree && EstPrise(prises, lettre);
    if (lettre.touche.isEmpty() || prise) sansLettre.append(&legende);
    else prises.append(lettre);
  }
  for (const Legende* legende : sansLettre) {
    const QWidget* const page = PageDe(*legende->controle);
    const bool retiree = EstRetire(*legende->controle, fenetre);
    QString autre = AvecLettreLibre(legende->texte, prises, page);
    if (touche(autre).isEmpty() && !retiree) autre = AvecLettreLibre(legende->texte, Montrees(prises), page);
    if (autre != legende->texte) legende->poser(autre);
    if (const QString prise = touche(autre); !prise.isEmpty()) prises.append({prise, page, retiree});
  }
}

namespace {

// Sees what comes up in a window or leaves it.
class Gardien : public QObject {
 public:
  explicit Gardien(QWidget& fenetre) : QObject(&fenetre), fenetre_(fenetre) {
    Suivre(fenetre);
    DonnerLesLettres(fenetre);
  }

  bool eventFilter(QObject* objet, QEvent* evenement) override {
    switch (evenement->type()) {
      case QEvent::ShowToParent:
      case QEvent::HideToParent: Demander(); break;
      case QEvent::ChildAdded:
        if (auto* enfant = static_cast<QChildEvent*>(evenement)->child(); enfant->isWidgetType()) {
          Suivre(*static_cast<QWidget*>(enfant));
          Demander();
        }
        break;
      default: break;
    }
    return QObject::eventFilter(objet, evenement);
  }

 private:
  void Suivre(QWidget& racine) {
    racine.installEventFilter(this);
    for (QWidget* controle : racine.findChildren<QWidget*>()) controle->installEventFilter(this);
  }

  // Once for all that changes together, before the next key.
  void Demander() {
    if (demande_) return;
    demande_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
          DonnerLesLettres(fenetre_);
          demande_ = false;
        },
        Qt::QueuedConnection);
  }

  QWidget& fenetre_;
  bool demande_ = false;
};

}  // namespace

void TenirLesLettres(QWidget& fenetre) { new Gardien(fenetre); }

}  // namespace quelvar::forms
