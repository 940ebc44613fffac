#include "forms/pieces/commande.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <utility>

#include "forms/qt/texte.h"

namespace quelvar::forms {

namespace {

// The layout that holds the control itself.
QLayout* RangeeDe(QLayout* disposition, QWidget& controle) {
  for (int i = 0; disposition != nullptr && i < disposition->count(); ++i) {
    if (disposition->itemAt(i)->widget() == &controle) return disposition;
    if (QLayout* dedans = RangeeDe(disposition->itemAt(i)->layout(), controle)) return dedans;
  }
  return nullptr;
}

bool PrendLeClavier(const QWidget& controle) { return (controle.focusPolicy() & Qt::TabFocus) != 0; }

// The Tab key comes to the button just before it comes to the other.
void Preceder(QWidget& suivant, QWidget& bouton) {
  QWidget* avant = suivant.previousInFocusChain();
  while (!PrendLeClavier(*avant) && avant != &suivant) avant = avant->previousInFocusChain();
  QWidget::setTabOrder(avant, &bouton);
  QWidget::setTabOrder(&bouton, &suivant);
}

// The Tab key comes to the button behind all that the grid holds.
void SuivreLaGrille(QWidget& fenetre, const QLayout& grille, QWidget& bouton) {
  QWidget* dernier = nullptr;
  for (QWidget* controle = fenetre.nextInFocusChain(); controle != &fenetre; controle = controle->nextInFocusChain())
    if (controle != &bouton && PrendLeClavier(*controle) && grille.parentWidget()->isAncestorOf(controle))
      dernier = controle;
  if (dernier != nullptr) QWidget::setTabOrder(dernier, &bouton);
}

void Montrer(QWidget& fenetre, const QString& commande) {
  QDialog boite(&fenetre);
  boite.setWindowTitle(QStringLiteral("Commande équivalente"));
  auto* disposition = new QVBoxLayout(&boite);
  auto* libelle = new QLabel(QStringLiteral("&Ce que fait ce formulaire, à taper dans un terminal :"), &boite);
  auto* ligne = new QLineEdit(commande, &boite);
  ligne->setObjectName(QStringLiteral("Commande"));
  ligne->setReadOnly(true);
  constexpr int largeur = 520;  // pixels: most commands are seen whole
  ligne->setMinimumWidth(largeur);
  ligne->selectAll();
  libelle->setBuddy(ligne);
  auto* boutons = new QDialogButtonBox(&boite);
  QPushButton* copier = boutons->addButton(QStringLiteral("C&opier"), QDialogButtonBox::ActionRole);
  QPushButton* fermer = boutons->addButton(QStringLiteral("&Fermer"), QDialogButtonBox::RejectRole);
  fermer->setDefault(true);
  QObject::connect(copier, &QPushButton::clicked, &boite, [commande] { QApplication::clipboard()->setText(commande); });
  QObject::connect(boutons, &QDialogButtonBox::rejected, &boite, &QDialog::reject);
  for (QWidget* controle :
       {static_cast<QWidget*>(libelle), static_cast<QWidget*>(ligne), static_cast<QWidget*>(boutons)})
    disposition->addWidget(controle);
  boite.exec();
}

}  // namespace

QPushButton& AjouterVoirLaCommande(QPushButton& lancer, std::function<std::string()> commande,
                                   const BoutonDeCommande& voulu) {
  QWidget& fenetre = *lancer.window();
  auto* bouton = new QPushButton(voulu.texte, lancer.parentWidget());
  bouton->setObjectName(voulu.nom);
  bouton->setAutoDefault(false);
  QLayout* disposition = RangeeDe(lancer.parentWidget()->layout(), lancer);
  if (auto* rangee = qobject_cast<QBoxLayout*>(disposition)) rangee->insertWidget(rangee->indexOf(&lancer), bouton);
  else if (auto* grille = qobject_cast<QGridLayout*>(disposition))
    grille->addWidget(bouton, grille->rowCount(), 0, 1, -1);
  else if (disposition != nullptr) disposition->addWidget(bouton);
  if (qobject_cast<QGridLayout*>(disposition) != nullptr) SuivreLaGrille(fenetre, *disposition, *bouton);
  else Preceder(lancer, *bouton);
  QObject::connect(bouton, &QPushButton::clicked, &fenetre,
                   [&fenetre, commande = std::move(commande)] { Montrer(fenetre, VersQt(commande())); });
  return *bouton;
}

}  // namespace quelvar::forms
