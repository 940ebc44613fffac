// Plays the user in the tests of the forms: answers the modal boxes as they open, through their own widgets, and brings
// up a main form on a directory of its own.
#pragma once

#include <QAction>
#include <QDialog>
#include <QStringList>
#include <QTest>
#include <QUrl>
#include <deque>
#include <functional>
#include <ostream>
#include <stdexcept>

#include "forms/cadre/principal.h"
#include "support/environnement.h"
#include "support/reglages.h"

using namespace quelvar::forms;

inline void PrintTo(const QString& texte, std::ostream* flux) { *flux << '"' << texte.toStdString() << '"'; }

namespace essai {

// Waits for modal boxes while it lives. A box that nobody announced, or an answer that no box took, fails the test.
class Pilote : public QObject {
 public:
  Pilote();
  ~Pilote() override;

  // The answers, in the order of the boxes.
  void Cliquer(const QString& bouton);   // a message box: "Oui", "Non", "Annuler", "OK"
  void Taper(const QString& texte);      // an input box: text, then Return
  void Choisir(const QString& fichier);  // a file dialog: path, then Return
  void Abandonner();                     // any of them: Escape
  void Faire(const std::function<void(QDialog&)>& action);

  // Texts of the message and input boxes, titles of the file dialogs.
  const QStringList& Vues() const { return vues_; }

  bool eventFilter(QObject* objet, QEvent* evenement) override;

 private:
  void Repondre(QDialog& boite);

  std::deque<std::function<void(QDialog&)>> reponses_;
  QStringList vues_;
};

// A main form on a new directory, its settings in memory, what it starts outside written down.
class Bureau {
 public:
  Bureau();  // a first start: the program knows no directory
  // The program finds the directory as that of the last session, which left this generic and level.
  explicit Bureau(int niveau, std::string_view generique = "ENQ");

  // Makes the form; files put in the directory before are there at start-up.
  quelvar::forms::Principal& Ouvrir();
  // The form, which is made when it is not there.
  quelvar::forms::Principal& Fenetre() { return principal_ ? *principal_ : Ouvrir(); }
  void Fermer() { principal_.reset(); }

  const std::filesystem::path& Dossier() const { return donnees_; }
  const std::filesystem::path& DossierProgramme() const { return programme_; }
  void Ecrire(const char* nom, std::string_view octets) const { EcrireOctets(donnees_ / nom, octets); }
  std::string Lire(const char* nom) const;
  bool Existe(const char* nom) const { return std::filesystem::exists(donnees_ / nom); }

  // A widget of the main form, by name.
  template <class W>
  W& Controle(const char* nom) {
    return Dans<W>(*principal_, nom);
  }
  template <class W>
  static W& Dans(const QWidget& forme, const char* nom) {
    auto* trouve = forme.findChild<W*>(QString::fromUtf8(nom));
    if (trouve == nullptr) throw std::runtime_error(std::string("no such control: ") + nom);
    return *trouve;
  }
  // The form of that class that is shown, or nullptr.
  template <class F>
  F* Forme() {
    for (F* forme : principal_->findChildren<F*>())
      if (forme->isVisible()) return forme;
    return nullptr;
  }
  // The form of that class, which the entry of the menu must open.
  template <class F>
  F& Demander(const char* entree) {
    Menu(entree);
    F* forme = Forme<F>();
    if (forme == nullptr) throw std::runtime_error(std::string(entree) + " shows no form");
    return *forme;
  }
  // What Text1 shows, lines ended by "\n".
  QString Texte();
  // Takes an entry of the menu, which must be enabled, as a user with the mouse would.
  void Menu(const char* nom);
  bool MenuActif(const char* nom);

  QStringList demarres;  // programs started beside this one, with their arguments
  QStringList ouverts;   // documents and pages opened
  quelvar::Reglages reglages = essai::ReglagesEnMemoire();

 private:
  QAction& Action(const char* nom);

  DossierTemporaire dossier_;
  std::filesystem::path programme_;
  std::filesystem::path donnees_;
  std::unique_ptr<quelvar::forms::Principal> principal_;
};

struct Fichier {
  const char* nom;
  std::string_view octets;
};
// A main form that finds the files in its directory when it opens.
struct BureauDe : Bureau {
  BureauDe(int niveau, std::initializer_list<Fichier> fichiers);
};

// --- what a user does in a form, and what he sees there, by the names of the controls ---

// Makes it the window that has the keyboard, also on a screen where no window manager gives it.
void Activer(QWidget& fenetre);
// Clicks a button in its middle, a box on its mark; the tab that holds it comes to the front before.
void Cliquer(const QWidget& forme, const char* nom);
void Cliquer(const QWidget& forme, std::initializer_list<const char*> noms);
// Writes over what stands in the field.
void Taper(const QWidget& forme, const char* champ, const QString& texte);
void CliquerLigne(const QWidget& forme, const char* liste, int ligne);
QStringList Lignes(const QWidget& forme, const char* liste);
bool Visible(const QWidget& forme, const char* nom);
bool Actif(const QWidget& forme, const char* nom);
bool Coche(const QWidget& forme, const char* nom);
QString Etiquette(const QWidget& forme, const char* nom);  // of a label, or of a text that the form only shows
QString Champ(const QWidget& forme, const char* nom);

// What the window holds, without the bars that a small screen gives it.
const QWidget& ContenuDe(const QWidget& fenetre);

// What holds for every window: one letter each and none lacking, a name in words for every control that a screen reader
// meets, and a Tab key that goes through the window as it is read.
void VerifierControles(QWidget& fenetre);

// The directory as it is when the copy is made.
struct CopieDuDossier {
  explicit CopieDuDossier(const Bureau& bureau);
  DossierTemporaire dossier;
};
// Takes the line that "Voir la commande" of the form shows, does what the form does, and tries the line with
// quelvar-batch in a copy of the directory, made now if none is given: every file must come out the same, the time of
// the run aside. Returns the line.
QString FaitCommeLaCommande(const Bureau& bureau, Pilote& pilote, const QWidget& forme,
                            const std::function<void()>& faire);
QString FaitCommeLaCommande(const CopieDuDossier& avant, const Bureau& bureau, Pilote& pilote, const QWidget& forme,
                            const std::function<void()>& faire);
// The line itself.
QString CommandeMontree(Pilote& pilote, const QWidget& forme, const char* bouton = "BoutCommande");

}  // namespace essai
