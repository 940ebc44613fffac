// The main form: menu, session, the text of the results, and the frame in which every program runs.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QProgressBar>
#include <QStringList>
#include <functional>
#include <memory>

#include "core/affichage.h"
#include "core/programme.h"
#include "core/session.h"

namespace Ui {
class Principal;
}

namespace quelvar {

// What lies outside the program, given at the start: the tests put their own in its place.
struct Environnement {
  Chemin repertoireProgramme;
  Reglages reglages;
  QString dossierAide;  // directory of QuelvarAide.html and of the method notes
  // Starts a program of ours beside this one and does not wait for it.
  std::function<bool(const QString& programme, const QStringList& arguments)> demarrer;
  // Opens a document or a page in the program that the user has for it.
  std::function<bool(const QUrl& adresse)> ouvrir;
};

class Principal : public QMainWindow {
  Q_OBJECT
 public:
  explicit Principal(Environnement environnement);
  ~Principal() override;

  // --- for the forms ---

  Session& SessionEnCours() { return session_; }
  Dialogue& Ecran() { return dialogue_; }
  Contexte ContexteEnCours();
  // Runs a program: the window is kept from the user until it comes back.
  void Lancer(const std::function<void(const Contexte&)>& programme);
  // Shows the form of that class: the one that is open, else a new one made with this window.
  template <class Forme>
  Forme& Montrer() {
    for (const QPointer<QWidget>& ouverte : formes_)
      if (auto* forme = qobject_cast<Forme*>(ouverte.data()); forme != nullptr && forme->isVisible()) {
        Presenter(*forme);
        return *forme;
      }
    auto* forme = new Forme(*this);
    Presenter(*forme);
    return *forme;
  }
  // Closes every form that Montrer has opened and hides the progress display.
  void FermerFormes();
  // A program has moved the data set to another generic; Text1 keeps the report.
  void AdopterGenerique(std::string_view generique);
  // Replaces what Text1 holds by lines that belong to no file.
  void AfficherTexte(std::string_view texte);
  void AjouterTexte(std::string_view texte);
  void OuvrirAide(const QString& document, const QString& ancre);

  // --- moves of the session ---

  void OuvrirRepertoire(const Chemin& repertoire);
  void OuvrirInitialisation(const Chemin& initialisation);
  // A first use: the title says so until a generic is accepted, and entry and import wait for it.
  void CommencerNouvelleUtilisation();
  // What CmdGenOui does with a typed name; false when the name is refused.
  bool AccepterGenerique(const QString& saisi);

 protected:
  void closeEvent(QCloseEvent* evenement) override;

 private:
  void RelierMenus();
  void RelierControles();
  void Relier(const char* action, const std::function<void()>& effet);
  QAction* Action(const QString& nom) const;

  void Demarrer();
  void OuvrirEtRapporter();
  void MontrerSession();
  void ChangerNiveau(int niveau);
  void ReconstruireRecents();
  void ChercherInitialisation();
  void NouvelleDemande();
  void FixerTailleDEcran(const QString& action);

  void Presenter(QWidget& forme);
  void Afficher(const Affichage& affichage);
  void PreparerMenuAffichage();
  void PreparerMenuAide();
  void AfficherResultat(const QString& extension);

  Environnement environnement_;
  std::unique_ptr<Ui::Principal> ui_;
  QLabel* repertoire_ = nullptr;
  QLabel* iteration_ = nullptr;
  QProgressBar* progression_ = nullptr;
  Session session_;
  Dialogue dialogue_;
  QList<QPointer<QWidget>> formes_;
  bool enCours_ = false;  // a program runs
};

}  // namespace quelvar
