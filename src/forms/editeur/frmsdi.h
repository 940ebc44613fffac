// The text editor: one window, one file of the survey or any other text. Read-only, the same window is the viewer of
// long reports.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>

#include "core/document/texteedite.h"
#include "core/session/recents.h"
#include "forms/editeur/secours.h"

namespace Ui {
class frmSDI;
}

namespace quelvar::forms {

class frmFind;

// The recent files of the editor, apart from those of the main form.
inline constexpr ListeRecents kRecentsEditeur{"frmSDI", "Recent Files", 6};

// What the editor asks of the rest of the program.
struct ServicesEditeur {
  Reglages reglages;
  std::function<void()> aide = [] {};
  // Shows a file in the viewer; false when that can't be started.
  std::function<bool(const QString& fichier)> lecteur = [](const QString&) { return false; };
  QString dossierDeSecours = {};  // of the recovery copies; none without it
  int cadenceDeSecours = 30'000;  // milliseconds between two copies of a text that changes
};

class frmSDI : public QMainWindow {
  Q_OBJECT
 public:
  enum class Genre { Editeur, Lecteur };
  // The viewer shows a longer file in parts of about this many bytes.
  static constexpr std::uintmax_t kTaillePartie = std::uintmax_t{8} << 20;

  explicit frmSDI(ServicesEditeur services, Genre genre = Genre::Editeur, QWidget* parent = nullptr);
  ~frmSDI() override;

  // Shows a file in place of the present text, which is asked about when it is not saved. In the editor a file that
  // does not exist begins as an empty text of that name. False when the file is not shown; the user has been told why.
  bool Ouvrir(const QString& fichier);
  // The same for a file that the user chooses.
  bool OuvrirParDialogue();
  // Path of the file; empty for a text without a name.
  const QString& Fichier() const { return fichier_; }
  // Saves the text under its name; false when it is not saved, the user has been told why.
  bool Enregistrer();
  // Changes with every change of the text.
  int Revision() const;

  // Keeps a recovery copy of a text that has changed since the last one.
  void EcrireSecours();
  // Shows the text of a recovery copy, not saved yet, in place of the present one; false when it can't be shown.
  bool Reprendre(std::unique_ptr<Secours> secours);

 protected:
  void changeEvent(QEvent* evenement) override;
  void closeEvent(QCloseEvent* evenement) override;

 private:
  // frmsdi.cpp: window
  void RelierMenus();
  void RelierEdition();
  void PreparerLecteur();
  void MontrerTitre();
  void MontrerPosition();
  void MontrerForme();
  void Dire(const QString& phrase);
  QString Nom() const;
  QString DossierDeDepart() const;
  void DemanderImpression();
  void DemanderPdf();

  // fichier.cpp: file
  bool Perdre();  // asks about a text that is not saved; false when it must stay
  bool LireEditeur(const QString& fichier);
  bool LireLecteur(const QString& fichier);
  void LirePartieDuFichier(std::size_t rang);
  void Nouveau();
  bool Recharger();
  bool EnregistrerSous();
  bool PeutRemplacer();
  bool Ecrire(const QString& fichier);
  void SurveillerLeDisque();
  bool DejaSignale() const;
  void RetenirSignalement();
  void PreparerRecents();
  void RetenirRecent();

  // reprise.cpp: recovery copy
  void PreparerSecours();
  void EffacerSecours();

  // occurrences.cpp: search
  frmFind& DialogueRecherche();
  void OuvrirRecherche(bool remplacer);
  void Chercher(bool enArriere);
  bool ChercherDansLesParties(bool enArriere);
  void Remplacer();
  void RemplacerPartout();
  void AllerALigne();

  ServicesEditeur services_;
  Genre genre_;
  std::unique_ptr<Ui::frmSDI> ui_;
  frmFind* recherche_ = nullptr;
  QLabel* position_;
  QLabel* selection_;
  QLabel* frappe_;
  QLabel* forme_;

  QString fichier_;
  FormeTexte formeTexte_;
  std::optional<Empreinte> empreinte_;  // nothing for a file that is not on the disk yet
  std::optional<Empreinte> signale_;    // another state of the file that the user has been told of
  std::size_t partie_ = 0;              // of a long file in the viewer
  std::size_t parties_ = 1;
  bool surveille_ = false;  // a question about the disk is open
  std::unique_ptr<Secours> secours_;
  QTimer cadence_;
  int copiee_ = -1;  // revision of the text that the copy holds
  bool copieRefusee_ = false;
};

}  // namespace quelvar::forms
