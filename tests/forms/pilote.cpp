#include "forms/pilote.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
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
#include <QRegularExpression>
#include <QScrollArea>
#include <QSet>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <utility>

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
  const bool deQuelvar = boite.windowTitle() == QStringLiteral("Quelvar");
  EXPECT_FALSE(deQuelvar && vues_.back().contains(QRegularExpression(QStringLiteral(" [:;?!]"))))
      << "a sign may begin a line: " << vues_.back().toStdString();
  vues_.back().replace(QChar(QChar::Nbsp), u' ');
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

BureauDe::BureauDe(int niveau, std::initializer_list<Fichier> fichiers) : Bureau(niveau) {
  for (const Fichier& fichier : fichiers) Ecrire(fichier.nom, fichier.octets);
  Ouvrir();
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

void Activer(QWidget& fenetre) {
  fenetre.activateWindow();
  if (!QTest::qWaitFor([&] { return fenetre.isActiveWindow(); }, 500)) QApplication::setActiveWindow(&fenetre);
  QApplication::processEvents();
}

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
  return Bureau::Dans<QLabel>(forme, nom).text().remove(u'&');
}
QString Champ(const QWidget& forme, const char* nom) { return Bureau::Dans<QLineEdit>(forme, nom).text(); }

namespace {

// Contents of the files by name, those of the session and of the commits apart, without the time of a run.
std::map<std::string, std::string> Fichiers(const std::filesystem::path& dossier) {
  static const std::regex heure("[0-9]{2}/[0-9]{2}/[0-9]{4}|[0-9]{2}:[0-9]{2}:[0-9]{2}");
  std::map<std::string, std::string> fichiers;
  for (const auto& entree : std::filesystem::directory_iterator(dossier)) {
    const std::string nom = entree.path().filename();
    if (!nom.starts_with('.') && quelvar::Minuscules(nom) != "qvr2.ini")
      fichiers[nom] = std::regex_replace(quelvar::LireOctets(entree.path()), heure, "*");
  }
  return fichiers;
}

}  // namespace

CopieDuDossier::CopieDuDossier(const Bureau& bureau) {
  std::filesystem::copy(bureau.Dossier(), dossier.Chemin(), std::filesystem::copy_options::recursive);
}

QString CommandeMontree(Pilote& pilote, const QWidget& forme, const char* bouton) {
  QString commande;
  pilote.Faire([&](QDialog& boite) {
    commande = Bureau::Dans<QLineEdit>(boite, "Commande").text();
    boite.reject();
  });
  Cliquer(forme, bouton);
  return commande;
}

QString FaitCommeLaCommande(const CopieDuDossier& avant, const Bureau& bureau, Pilote& pilote, const QWidget& forme,
                            const std::function<void()>& faire) {
  const std::filesystem::path& copie = avant.dossier.Chemin();
  const QString commande = CommandeMontree(pilote, forme);
  faire();
  const QString ligne = "cd '" + QString::fromStdString(copie.string()) + "' && Q='" QUELVAR_BATCH "' && $Q" +
                        commande.mid(QString("quelvar-batch").size()) + " >/dev/null 2>&1";
  EXPECT_TRUE(commande.startsWith("quelvar-batch ")) << commande.toStdString();
  EXPECT_EQ(std::system(ligne.toUtf8().constData()), 0) << commande.toStdString();
  EXPECT_EQ(Fichiers(copie), Fichiers(bureau.Dossier())) << commande.toStdString();
  return commande;
}

QString FaitCommeLaCommande(const Bureau& bureau, Pilote& pilote, const QWidget& forme,
                            const std::function<void()>& faire) {
  return FaitCommeLaCommande(CopieDuDossier(bureau), bureau, pilote, forme, faire);
}

namespace {

// The controls that answer to an Alt key by their caption, that of a label for the field it leads to.
template <class F>
void PourChaqueLegende(const QWidget& fenetre, const F& faire) {
  for (const auto* bouton : fenetre.findChildren<QAbstractButton*>())
    if (!qobject_cast<const QTabBar*>(bouton->parentWidget()) && !qobject_cast<const QToolBar*>(bouton->parentWidget()))
      faire(*bouton, bouton->text());
  for (const auto* libelle : fenetre.findChildren<QLabel*>())
    if (libelle->buddy() != nullptr) faire(*libelle, libelle->text());
  for (const auto* cadre : fenetre.findChildren<QGroupBox*>())
    if (cadre->isCheckable()) faire(*cadre, cadre->title());
}

bool AUneLettre(const QString& texte) {
  return std::any_of(texte.begin(), texte.end(), [](QChar c) { return c.isLetter(); });
}

// The page of the tabs that holds the control, if any.
const QWidget* PageDe(const QWidget& controle) {
  for (const QWidget* parent = &controle; parent->parentWidget() != nullptr; parent = parent->parentWidget())
    if (qobject_cast<const QStackedWidget*>(parent->parentWidget()) != nullptr) return parent;
  return nullptr;
}

// One letter each: none twice, and none lacking as long as one of the caption is free.
void VerifierLettres(const QWidget& fenetre) {
  QMap<QString, QStringList> vues;
  QList<std::pair<QString, const QWidget*>> prises;  // and the page of the letter
  PourChaqueLegende(fenetre, [&](const QWidget& controle, const QString& texte) {
    const QString lettre = QKeySequence::mnemonic(texte).toString();
    if (lettre.isEmpty()) return;
    if (controle.isVisible()) vues[lettre] << texte;
    if (controle.isVisible() || PageDe(controle) != nullptr) prises.append({lettre, PageDe(controle)});
  });
  for (auto i = vues.cbegin(); i != vues.cend(); ++i)
    EXPECT_EQ(i.value().size(), 1) << i.key().toStdString() << ": " << i.value().join(u" / ").toStdString();
  if (qobject_cast<const QMessageBox*>(&fenetre) != nullptr || qobject_cast<const QInputDialog*>(&fenetre) != nullptr)
    return;  // Enter and Escape answer it
  PourChaqueLegende(fenetre, [&](const QWidget& controle, const QString& texte) {
    if (!controle.isVisible() || !QKeySequence::mnemonic(texte).isEmpty()) return;
    const QWidget* const page = PageDe(controle);
    const auto libre = std::find_if(texte.begin(), texte.end(), [&](QChar c) {
      const QString lettre = QStringLiteral("Alt+") + c.toUpper();
      return c.unicode() < 128 && c.isLetter() && std::none_of(prises.begin(), prises.end(), [&](const auto& prise) {
               return prise.first == lettre && (page == nullptr || prise.second == nullptr || prise.second == page);
             });
    });
    EXPECT_TRUE(libre == texte.end()) << QString(*libre).toStdString() << " is free for " << texte.toStdString();
  });
}

const QWidget* CadreTitre(const QWidget& controle) {
  for (const QWidget* parent = controle.parentWidget(); parent != nullptr; parent = parent->parentWidget())
    if (const auto* cadre = qobject_cast<const QGroupBox*>(parent); cadre != nullptr && !cadre->title().isEmpty())
      return cadre;
  return nullptr;
}

// A name that is words, and no other control of the frame has.
void VerifierNoms(const QWidget& fenetre) {
  QMap<std::pair<const QWidget*, QString>, QStringList> noms;
  for (QWidget* controle : fenetre.findChildren<QWidget*>()) {
    const bool dedans = controle->objectName() == QStringLiteral("qt_spinbox_lineedit");  // named by what it is in
    if (!controle->isVisible() || !(controle->focusPolicy() & Qt::TabFocus) || dedans) continue;
    if (controle->focusProxy() != nullptr || qobject_cast<QTabBar*>(controle) != nullptr) continue;
    QAccessibleInterface* acces = QAccessible::queryAccessibleInterface(controle);
    // Of a list that opens the platform reads the value, and the name apart.
    const bool liste = qobject_cast<QComboBox*>(controle) != nullptr;
    const QString nom = acces == nullptr ? QString()
                        : liste          ? controle->accessibleName()
                                         : acces->text(QAccessible::Name);
    EXPECT_TRUE(AUneLettre(nom)) << controle->metaObject()->className() << ' ' << controle->objectName().toStdString()
                                 << ": \"" << nom.toStdString() << '"';
    noms[{CadreTitre(*controle), nom}] << controle->objectName();
  }
  for (auto i = noms.cbegin(); i != noms.cend(); ++i)
    EXPECT_EQ(i.value().size(), 1) << i.key().second.toStdString() << ": " << i.value().join(u' ').toStdString();
}

// Whether the first rectangle is read behind the second: it lies below it in one column, or right of it in one row.
bool SeLitApres(const QRect& a, const QRect& b) {
  const bool colonne = a.left() <= b.right() && b.left() <= a.right();
  const bool rangee = a.top() <= b.bottom() && b.top() <= a.bottom();
  return (colonne && a.top() > b.bottom()) || (rangee && a.left() > b.right());
}

// What of the window is read where the control stands: the whole area that scrolls, beside a control that does not
// scroll with it, since most of its content lies out of sight, under what follows.
const QWidget& LuAvec(const QWidget& controle, const QWidget& autre) {
  const QWidget* lu = &controle;
  for (const QWidget* parent = controle.parentWidget(); parent != nullptr; parent = parent->parentWidget())
    if (qobject_cast<const QScrollArea*>(parent) != nullptr && !parent->isAncestorOf(&autre)) lu = parent;
  return *lu;
}

// The Tab key goes through the window as it is read: never up in a column, nor to the left in a row.
void VerifierTabulation(QWidget& fenetre) {
  QList<QWidget*> chaine;
  for (QWidget* suivant = fenetre.nextInFocusChain(); suivant != &fenetre && suivant != nullptr;
       suivant = suivant->nextInFocusChain())
    if (suivant->isVisible() && (suivant->focusPolicy() & Qt::TabFocus) && suivant->focusProxy() == nullptr &&
        suivant->window() == &fenetre && qobject_cast<const QTabBar*>(suivant) == nullptr)
      chaine << suivant;
  const auto place = [&fenetre](const QWidget& c) { return QRect(c.mapTo(&fenetre, QPoint(0, 0)), c.size()); };
  for (qsizetype i = 0; i < chaine.size(); ++i)
    for (qsizetype j = i + 1; j < chaine.size(); ++j)
      EXPECT_FALSE(SeLitApres(place(LuAvec(*chaine[i], *chaine[j])), place(LuAvec(*chaine[j], *chaine[i]))))
          << chaine[i]->objectName().toStdString() << " comes before " << chaine[j]->objectName().toStdString();
}

}  // namespace

const QWidget& ContenuDe(const QWidget& fenetre) {
  const auto* zone = fenetre.findChild<QScrollArea*>("DefilementDeLaFenetre");
  return zone == nullptr ? fenetre : *zone->widget();
}

void VerifierControles(QWidget& fenetre) {
  VerifierLettres(fenetre);
  VerifierNoms(fenetre);
  VerifierTabulation(fenetre);
}

}  // namespace essai
