#include "forms/qt/ecran.h"

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
#include <functional>

namespace quelvar::forms {

namespace {

QString SansLettre(QString texte) { return texte.remove(u'&').simplified(); }

bool AUneLettre(const QString& texte) {
  return std::any_of(texte.begin(), texte.end(), [](QChar c) { return c.isLetter(); });
}

// The caption of the nearest frame around the control that has one.
QString CadreDe(const QWidget& controle) {
  for (const QWidget* parent = controle.parentWidget(); parent != nullptr && !parent->isWindow();
       parent = parent->parentWidget())
    if (const auto* cadre = qobject_cast<const QGroupBox*>(parent); cadre != nullptr && !cadre->title().isEmpty())
      return SansLettre(cadre->title());
  return {};
}

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

// A caption that an Alt key leads to, and how it is changed.
struct Legende {
  const QWidget* controle;
  QString texte;
  std::function<void(const QString&)> poser;
};

QList<Legende> LegendesDe(QWidget& fenetre) {
  QList<Legende> legendes;
  for (QWidget* controle : fenetre.findChildren<QWidget*>()) {
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
