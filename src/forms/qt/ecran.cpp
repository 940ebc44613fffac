#include "forms/qt/ecran.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QList>
#include <QMainWindow>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/qt/lettres.h"

namespace quelvar::forms {

namespace {

QString SansLettre(QString texte) { return texte.remove(u'&').simplified(); }

// The caption of the nearest frame around the control that has one.
QString CadreDe(const QWidget& controle) {
  for (const QWidget* parent = controle.parentWidget(); parent != nullptr && !parent->isWindow();
       parent = parent->parentWidget())
    if (const auto* cadre = qobject_cast<const QGroupBox*>(parent); cadre != nullptr && !cadre->title().isEmpty())
      return SansLettre(cadre->title());
  return {};
}

constexpr QSize kCadre(0, 40);  // what the window system puts around a window
constexpr const char* kDefilement = "DefilementDeLaFenetre";

// The controls in the order of the Tab key.
QList<QWidget*> Tabulation(const QWidget& fenetre) {
  QList<QWidget*> controles;
  for (QWidget* suivant = fenetre.nextInFocusChain(); suivant != &fenetre && suivant != nullptr;
       suivant = suivant->nextInFocusChain())
    if (suivant->focusPolicy() != Qt::NoFocus && suivant->focusProxy() == nullptr) controles << suivant;
  return controles;
}

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
  // A control that changes its parent loses the keyboard, and its place among those that the Tab key goes through.
  QWidget* const clavier = fenetre.focusWidget();
  const QList<QWidget*> tabulation = Tabulation(fenetre);
  const auto rendre = [&] {
    for (qsizetype i = 1; i < tabulation.size(); ++i) QWidget::setTabOrder(tabulation[i - 1], tabulation[i]);
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
    if (const auto* legende = qobject_cast<const QAbstractButton*>(controle);
        legende != nullptr && AUneLettre(legende->text()))
      continue;
    const QString infobulle = SansLettre(controle->toolTip());
    const auto* bouton = qobject_cast<const QAbstractButton*>(controle);
    if (!infobulle.isEmpty()) controle->setAccessibleName(infobulle);
    else if (bouton != nullptr)
      controle->setAccessibleName(CadreDe(*controle) + QStringLiteral(" : ") + bouton->text());
  }
}

}  // namespace quelvar::forms
