#include "forms/pieces/commande.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <utility>

#include "forms/texte/texte_qt.h"

namespace quelvar::forms {

namespace {

// The caption with the first letter that no control of the window answers to.
QString AvecLettreLibre(const QWidget& fenetre, const QString& texte) {
  QSet<QString> prises;
  for (const auto* bouton : fenetre.findChildren<QAbstractButton*>())
    prises << QKeySequence::mnemonic(bouton->text()).toString();
  for (const auto* libelle : fenetre.findChildren<QLabel*>())
    prises << QKeySequence::mnemonic(libelle->text()).toString();
  for (const auto* cadre : fenetre.findChildren<QGroupBox*>())
    prises << QKeySequence::mnemonic(cadre->title()).toString();
  for (qsizetype i = 0; i < texte.size(); ++i) {
    QString essai = texte;
    essai.insert(i, u'&');
    if (texte[i].isLetter() && !prises.contains(QKeySequence::mnemonic(essai).toString())) return essai;
  }
  return texte;
}

// The layout that holds the control itself.
QLayout* RangeeDe(QLayout* disposition, QWidget& controle) {
  for (int i = 0; disposition != nullptr && i < disposition->count(); ++i) {
    if (disposition->itemAt(i)->widget() == &controle) return disposition;
    if (QLayout* dedans = RangeeDe(disposition->itemAt(i)->layout(), controle)) return dedans;
  }
  return nullptr;
}

void Montrer(QWidget& fenetre, const QString& commande) {
  QDialog boite(&fenetre);
  boite.setWindowTitle(QStringLiteral("Commande équivalente"));
  auto* disposition = new QVBoxLayout(&boite);
  auto* libelle = new QLabel(QStringLiteral("&Ce que fait ce formulaire, à taper dans un terminal :"), &boite);
  auto* ligne = new QLineEdit(commande, &boite);
  ligne->setObjectName(QStringLiteral("Commande"));
  ligne->setReadOnly(true);
  ligne->setMinimumWidth(520);
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
  auto* bouton = new QPushButton(AvecLettreLibre(fenetre, voulu.texte), lancer.parentWidget());
  bouton->setObjectName(voulu.nom);
  bouton->setAutoDefault(false);
  QLayout* disposition = RangeeDe(lancer.parentWidget()->layout(), lancer);
  if (auto* rangee = qobject_cast<QBoxLayout*>(disposition)) rangee->insertWidget(rangee->indexOf(&lancer), bouton);
  else if (auto* grille = qobject_cast<QGridLayout*>(disposition))
    grille->addWidget(bouton, grille->rowCount(), 0, 1, -1);
  else if (disposition != nullptr) disposition->addWidget(bouton);
  QWidget::setTabOrder(&lancer, bouton);
  QObject::connect(bouton, &QPushButton::clicked, &fenetre,
                   [&fenetre, commande = std::move(commande)] { Montrer(fenetre, VersQt(commande())); });
  return *bouton;
}

}  // namespace quelvar::forms
