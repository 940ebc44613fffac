#include "forms/pilote.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QFileDialog>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMap>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QSet>
#include <QTabWidget>
#include <QTimer>
#include <fstream>
#include <iterator>
#include <map>

using namespace quelvar::forms;

namespace essai {

Pilote::Pilote() { qApp->installEventFilter(this); }

Pilote::~Pilote() { EXPECT_TRUE(reponses_.empty()) << reponses_.size() << " boxes were awaited and never came"; }

void Pilote::Faire(const std::function<void(QDialog&)>& action) { reponses_.push_back(action); }

void Pilote::Cliquer(const QString& bouton) {
  Faire([bouton](QDialog& boite) {
    for (QAbstractButton* candidat : boite.findChildren<QAbstractButton*>())
      if (candidat->isVisible() && candidat->text().remove(u'&') == bouton) {
        QTest::mouseClick(candidat, Qt::LeftButton);
        return;
      }
    ADD_FAILURE() << "no button " << bouton.toStdString() << " in the box";
    boite.reject();
  });
}

void Pilote::Taper(const QString& texte) {
  Faire([texte](QDialog& boite) {
    auto* champ = boite.findChild<QLineEdit*>();
    champ->selectAll();
    QTest::keyClicks(champ, texte);
    QTest::keyClick(champ, Qt::Key_Return);
  });
}

void Pilote::Choisir(const QString& fichier) {
  Faire([fichier](QDialog& boite) {
    auto* champ = boite.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    champ->setText(fichier);
    QTest::keyClick(champ, Qt::Key_Return);
  });
}

void Pilote::Abandonner() {
  Faire([](QDialog& boite) { QTest::keyClick(&boite, Qt::Key_Escape); });
}

bool Pilote::eventFilter(QObject* objet, QEvent* evenement) {
  auto* boite = qobject_cast<QDialog*>(objet);
  if (boite != nullptr && evenement->type() == QEvent::Show && boite->isModal())
    QTimer::singleShot(0, boite, [this, boite] { Repondre(*boite); });
  return QObject::eventFilter(objet, evenement);
}

void Pilote::Repondre(QDialog& boite) {
  if (auto* message = qobject_cast<QMessageBox*>(&boite)) vues_ << message->text();
  else if (auto* saisie = qobject_cast<QInputDialog*>(&boite)) vues_ << saisie->labelText();
  else vues_ << boite.windowTitle();
  if (reponses_.empty()) {
    ADD_FAILURE() << "a box nobody awaited: " << vues_.back().toStdString();
    boite.reject();
    return;
  }
  if (qobject_cast<QFileDialog*>(&boite) == nullptr) VerifierControles(boite);  // Qt's own is none of ours
  const auto reponse = std::move(reponses_.front());
  reponses_.pop_front();
  reponse(boite);
}

Bureau::Bureau() : programme_(dossier_.Chemin() / "programme"), donnees_(dossier_.Chemin() / "donnees") {
  std::filesystem::create_directories(programme_);
  std::filesystem::create_directories(donnees_);
}

Bureau::Bureau(int niveau, std::string_view generique) : Bureau() {
  EcrireOctets(programme_ / "Qvr2.in0", (donnees_ / "qvr2.ini").string() + "\r\n");
  Ecrire("qvr2.ini", std::string(generique) + "\r\n " + std::to_string(niveau) + " \r\n");
}

quelvar::forms::Principal& Bureau::Ouvrir() {
  principal_ = std::make_unique<quelvar::forms::Principal>(
      quelvar::forms::Environnement{programme_, reglages, QString::fromStdString((programme_ / "aide").string()),
                                    [this](const QString& programme, const QStringList& arguments) {
                                      demarres << programme + u' ' + arguments.join(u' ');
                                      return true;
                                    },
                                    [this](const QUrl& adresse) {
                                      ouverts << adresse.toString();
                                      return true;
                                    }});
  principal_->show();
  return *principal_;
}

std::string Bureau::Lire(const char* nom) const {
  std::ifstream flux(donnees_ / nom, std::ios::binary);
  return {std::istreambuf_iterator<char>(flux), {}};
}

QString Bureau::Texte() { return Controle<QPlainTextEdit>("Text1").toPlainText(); }

QAction& Bureau::Action(const char* nom) {
  auto* action = Fenetre().findChild<QAction*>(QString::fromUtf8(nom));
  if (action == nullptr) throw std::runtime_error(std::string("no such menu entry: ") + nom);
  return *action;
}

bool Bureau::MenuActif(const char* nom) { return Action(nom).isEnabled(); }

void Bureau::Menu(const char* nom) {
  QAction& action = Action(nom);
  auto* menu = qobject_cast<QMenu*>(action.parent());
  ASSERT_NE(menu, nullptr);
  menu->popup(principal_->mapToGlobal(QPoint(0, 0)));
  ASSERT_TRUE(action.isEnabled()) << nom << " is disabled";
  QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(&action).center());
}

namespace {

// Brings the tab of a control to the front.
void MontrerOnglet(const QWidget& forme, const QWidget& controle) {
  for (auto* onglets : forme.findChildren<QTabWidget*>())
    for (int rang = 0; rang < onglets->count(); ++rang)
      if (onglets->widget(rang)->isAncestorOf(&controle)) onglets->setCurrentIndex(rang);
}

}  // namespace

void Cliquer(const QWidget& forme, const char* nom) {
  auto& bouton = Bureau::Dans<QAbstractButton>(forme, nom);
  MontrerOnglet(forme, bouton);
  ASSERT_TRUE(bouton.isVisible() && bouton.isEnabled()) << nom;
  QTest::mouseClick(&bouton, Qt::LeftButton, {},
                    bouton.isCheckable() ? QPoint(8, bouton.height() / 2) : bouton.rect().center());
  QCoreApplication::processEvents();
}

void Cliquer(const QWidget& forme, std::initializer_list<const char*> noms) {
  for (const char* nom : noms) Cliquer(forme, nom);
}

void Taper(const QWidget& forme, const char* champ, const QString& texte) {
  auto& c = Bureau::Dans<QLineEdit>(forme, champ);
  MontrerOnglet(forme, c);
  ASSERT_TRUE(c.isVisible()) << champ;
  c.selectAll();
  for (const QChar signe : texte) {
    if (signe.unicode() < 128) QTest::keyClick(&c, signe.toLatin1());
    else c.insert(signe);  // key events of the tests are ASCII
  }
}

void CliquerLigne(const QWidget& forme, const char* liste, int ligne) {
  auto& l = Bureau::Dans<QListWidget>(forme, liste);
  QTest::mouseClick(l.viewport(), Qt::LeftButton, {}, l.visualItemRect(l.item(ligne)).center());
}

QStringList Lignes(const QWidget& forme, const char* liste) {
  QStringList lignes;
  const auto& l = Bureau::Dans<QListWidget>(forme, liste);
  for (int i = 0; i < l.count(); ++i) lignes << l.item(i)->text();
  return lignes;
}

bool Visible(const QWidget& forme, const char* nom) { return Bureau::Dans<QWidget>(forme, nom).isVisible(); }
bool Actif(const QWidget& forme, const char* nom) { return Bureau::Dans<QWidget>(forme, nom).isEnabled(); }
bool Coche(const QWidget& forme, const char* nom) { return Bureau::Dans<QAbstractButton>(forme, nom).isChecked(); }
QString Etiquette(const QWidget& forme, const char* nom) {
  if (const auto* texte = forme.findChild<QPlainTextEdit*>(QString::fromUtf8(nom))) return texte->toPlainText();
  return Bureau::Dans<QLabel>(forme, nom).text();
}
QString Champ(const QWidget& forme, const char* nom) { return Bureau::Dans<QLineEdit>(forme, nom).text(); }

namespace {

// Contents of the files by name, those of the session and of the commits apart.
std::map<std::string, std::string> Fichiers(const std::filesystem::path& dossier) {
  std::map<std::string, std::string> fichiers;
  for (const auto& entree : std::filesystem::directory_iterator(dossier)) {
    const std::string nom = entree.path().filename();
    if (!nom.starts_with('.') && quelvar::Minuscules(nom) != "qvr2.ini")
      fichiers[nom] = quelvar::LireOctets(entree.path());
  }
  return fichiers;
}

}  // namespace

QString CommandeMontree(Pilote& pilote, const QWidget& forme, const char* bouton) {
  QString commande;
  pilote.Faire([&](QDialog& boite) {
    commande = Bureau::Dans<QLineEdit>(boite, "Commande").text();
    boite.reject();
  });
  Cliquer(forme, bouton);
  return commande;
}

QString FaitCommeLaCommande(const Bureau& bureau, Pilote& pilote, const QWidget& forme,
                            const std::function<void()>& faire, const char* bouton) {
  const DossierTemporaire copie;
  std::filesystem::copy(bureau.Dossier(), copie.Chemin(), std::filesystem::copy_options::recursive);
  const QString commande = CommandeMontree(pilote, forme, bouton);
  faire();
  const QString ligne = "cd '" + QString::fromStdString(copie.Chemin().string()) + "' && Q='" QUELVAR_BATCH "' && $Q" +
                        commande.mid(QString("quelvar-batch").size()) + " >/dev/null 2>&1";
  EXPECT_TRUE(commande.startsWith("quelvar-batch ")) << commande.toStdString();
  EXPECT_EQ(std::system(ligne.toUtf8().constData()), 0) << commande.toStdString();
  EXPECT_EQ(Fichiers(copie.Chemin()), Fichiers(bureau.Dossier())) << commande.toStdString();
  return commande;
}

namespace {

void VerifierLettres(const QWidget& fenetre) {
  QMap<QString, QStringList> lettres;
  const auto noter = [&](const QWidget& controle, const QString& texte) {
    const QString lettre = QKeySequence::mnemonic(texte).toString();
    if (!lettre.isEmpty() && controle.isVisible()) lettres[lettre] << texte;
  };
  for (const auto* bouton : fenetre.findChildren<QAbstractButton*>()) noter(*bouton, bouton->text());
  for (const auto* libelle : fenetre.findChildren<QLabel*>())
    if (libelle->buddy() != nullptr) noter(*libelle, libelle->text());
  for (const auto* cadre : fenetre.findChildren<QGroupBox*>()) noter(*cadre, cadre->title());
  for (auto i = lettres.cbegin(); i != lettres.cend(); ++i)
    EXPECT_EQ(i.value().size(), 1) << i.key().toStdString() << ": " << i.value().join(u" / ").toStdString();
}

void VerifierNoms(const QWidget& fenetre) {
  for (QWidget* controle : fenetre.findChildren<QWidget*>()) {
    const bool dedans = controle->objectName() == QStringLiteral("qt_spinbox_lineedit");  // named by what it is in
    if (!controle->isVisible() || !(controle->focusPolicy() & Qt::TabFocus) || dedans) continue;
    QAccessibleInterface* acces = QAccessible::queryAccessibleInterface(controle);
    EXPECT_TRUE(acces != nullptr && !acces->text(QAccessible::Name).isEmpty())
        << controle->metaObject()->className() << ' ' << controle->objectName().toStdString();
  }
}

// The Tab key reaches every control, and comes back to where it started.
void VerifierTabulation(QWidget& fenetre) {
  QSet<const QWidget*> attendus;
  for (const QWidget* controle : fenetre.findChildren<QWidget*>())
    if (controle->isVisible() && controle->isEnabled() && (controle->focusPolicy() & Qt::TabFocus) &&
        controle->focusProxy() == nullptr && controle->window() == &fenetre)
      attendus << controle;
  QSet<const QWidget*> vus;
  for (const QWidget* suivant = fenetre.nextInFocusChain(); suivant != &fenetre && suivant != nullptr;
       suivant = suivant->nextInFocusChain())
    vus << suivant;
  for (const QWidget* controle : attendus) EXPECT_TRUE(vus.contains(controle)) << controle->objectName().toStdString();
}

}  // namespace

void VerifierControles(QWidget& fenetre) {
  VerifierLettres(fenetre);
  VerifierNoms(fenetre);
  VerifierTabulation(fenetre);
}

}  // namespace essai
