#include "forms/pieces/ecran.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLayout>
#include <QList>
#include <QMainWindow>
#include <QScreen>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace quelvar::forms {

namespace {

QString SansLettre(QString texte) { return texte.remove(u'&').simplified(); }

// The caption of the nearest frame around the control that has one.
QString CadreDe(const QWidget& controle) {
  for (const QWidget* parent = controle.parentWidget(); parent != nullptr && !parent->isWindow();
       parent = parent->parentWidget())
    if (const auto* cadre = qobject_cast<const QGroupBox*>(parent); cadre != nullptr && !cadre->title().isEmpty())
      return SansLettre(cadre->title());
  return controle.window()->windowTitle();
}

// The page of the tabs that holds the control; none for what is always seen.
const QWidget* PageDe(const QWidget& controle) {
  for (const QWidget* parent = &controle; parent->parentWidget() != nullptr; parent = parent->parentWidget())
    if (qobject_cast<const QStackedWidget*>(parent->parentWidget()) != nullptr) return parent;
  return nullptr;
}

struct Lettre {
  QString touche;
  const QWidget* page;
};

bool EstPrise(const QList<Lettre>& prises, const Lettre& lettre) {
  return std::any_of(prises.begin(), prises.end(), [&](const Lettre& prise) {
    return prise.touche == lettre.touche &&
           (prise.page == lettre.page || prise.page == nullptr || lettre.page == nullptr);
  });
}

// The caption with a letter that is free, none when there is none.
QString AvecAutreLettre(QString texte, const QList<Lettre>& prises, const QWidget* page) {
  texte.remove(u'&');
  for (qsizetype i = 0; i < texte.size(); ++i) {
    QString essai = texte;
    essai.insert(i, u'&');
    if (texte[i].isLetter() && !EstPrise(prises, {QKeySequence::mnemonic(essai).toString(), page})) return essai;
  }
  return texte;
}

}  // namespace

void DistinguerLesLettres(QWidget& fenetre) {
  QList<Lettre> prises;
  const auto passer = [&](QWidget& controle, const QString& texte, const auto& poser) {
    const QWidget* page = PageDe(controle);
    QString touche = QKeySequence::mnemonic(texte).toString();
    if (touche.isEmpty() || controle.isHidden()) return;
    if (EstPrise(prises, {touche, page})) {
      const QString autre = AvecAutreLettre(texte, prises, page);
      poser(autre);
      touche = QKeySequence::mnemonic(autre).toString();
    }
    if (!touche.isEmpty()) prises.append({touche, page});
  };
  for (QWidget* controle : fenetre.findChildren<QWidget*>()) {
    if (auto* bouton = qobject_cast<QAbstractButton*>(controle))
      passer(*bouton, bouton->text(), [bouton](const QString& texte) { bouton->setText(texte); });
    else if (auto* libelle = qobject_cast<QLabel*>(controle); libelle != nullptr && libelle->buddy() != nullptr)
      passer(*libelle, libelle->text(), [libelle](const QString& texte) { libelle->setText(texte); });
    else if (auto* cadre = qobject_cast<QGroupBox*>(controle))
      passer(*cadre, cadre->title(), [cadre](const QString& texte) { cadre->setTitle(texte); });
  }
}

namespace {

constexpr QSize kCadre(0, 40);  // what the window system puts around a window
constexpr const char* kDefilement = "DefilementDeLaFenetre";

// Puts the content of the window behind bars; the menu and the status bar of a main window stay outside.
void Defiler(QWidget& fenetre) {
  if (fenetre.findChild<QScrollArea*>(QString::fromLatin1(kDefilement)) != nullptr) return;
  auto* principale = qobject_cast<QMainWindow*>(&fenetre);
  if (principale == nullptr && fenetre.layout() == nullptr) return;
  auto* zone = new QScrollArea(&fenetre);
  zone->setObjectName(QString::fromLatin1(kDefilement));
  zone->setFrameShape(QFrame::NoFrame);
  zone->setFocusPolicy(Qt::NoFocus);
  zone->setWidgetResizable(true);
  fenetre.setMinimumSize(0, 0);
  // A control that changes its parent loses the keyboard.
  QWidget* const clavier = fenetre.focusWidget();
  const auto rendre = [clavier] {
    if (clavier != nullptr) clavier->setFocus();
  };
  if (principale != nullptr) {
    zone->setWidget(principale->takeCentralWidget());
    principale->setCentralWidget(zone);
    return rendre();
  }
  auto* contenu = new QWidget;
  contenu->setLayout(fenetre.layout());  // and with it the controls
  zone->setWidget(contenu);
  auto* autour = new QVBoxLayout(&fenetre);
  autour->setContentsMargins(0, 0, 0, 0);
  autour->addWidget(zone);
  autour->activate();
  if (!fenetre.isVisible()) return rendre();
  zone->show();
  for (QWidget* controle : contenu->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
    if (!controle->isHidden() || !controle->testAttribute(Qt::WA_WState_ExplicitShowHide)) controle->show();
  rendre();
}

bool Depasse(const QWidget& fenetre, const QSize& place) {
  const QSize besoin = fenetre.minimumSizeHint().expandedTo(fenetre.minimumSize());
  return besoin.width() > place.width() || besoin.height() > place.height();
}

}  // namespace

QSize PlaceSurLEcran(const QWidget& fenetre) { return fenetre.screen()->availableSize() - kCadre; }

bool DepasseLEcran(const QWidget& fenetre) { return Depasse(fenetre, PlaceSurLEcran(fenetre)); }

const QWidget& ContenuDe(const QWidget& fenetre) {
  const auto* zone = fenetre.findChild<QScrollArea*>(QString::fromLatin1(kDefilement));
  return zone == nullptr ? fenetre : *zone->widget();
}

void TenirDansLEcran(QWidget& fenetre) { TenirDans(fenetre, fenetre.screen()->availableGeometry()); }

void TenirDans(QWidget& fenetre, const QRect& ecran) {
  const QSize place = ecran.size() - kCadre;
  if (Depasse(fenetre, place)) Defiler(fenetre);
  fenetre.resize(fenetre.size().boundedTo(place));
  const QRect cadre = fenetre.frameGeometry();
  fenetre.move(std::clamp(cadre.x(), ecran.x(), std::max(ecran.x(), ecran.right() + 1 - cadre.width())),
               std::clamp(cadre.y(), ecran.y(), std::max(ecran.y(), ecran.bottom() + 1 - cadre.height())));
}

void NommerLesControles(QWidget& fenetre) {
  for (const QLabel* libelle : fenetre.findChildren<QLabel*>())
    if (QWidget* controle = libelle->buddy(); controle != nullptr && controle->accessibleName().isEmpty())
      controle->setAccessibleName(SansLettre(libelle->text()));
  for (QWidget* controle : fenetre.findChildren<QWidget*>()) {
    if (controle->focusPolicy() == Qt::NoFocus || !controle->accessibleName().isEmpty()) continue;
    if (const auto* bouton = qobject_cast<const QAbstractButton*>(controle);
        bouton != nullptr && !bouton->text().isEmpty())
      continue;  // its caption
    const QString infobulle = SansLettre(controle->toolTip());
    controle->setAccessibleName(infobulle.isEmpty() ? CadreDe(*controle) : infobulle);
  }
}

}  // namespace quelvar::forms
