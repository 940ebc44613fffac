// The main form: menu, session, and what the other forms are served with. What Text1 shows, where its text goes, and
// the windows of the editor are classes of their own.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QStringList>
#include <functional>
#include <memory>
#include <utility>

#include "core/panne/erreur.h"
#include "core/programme/programme.h"
#include "core/session/session.h"
#include "forms/editeur/editeurs.h"
#include "forms/qt/garde.h"
#include "forms/services/services.h"
#include "forms/texte/resultats.h"
#include "forms/texte/sorties.h"

namespace Ui {
class Principal;
}

namespace quelvar::forms {

struct EntreeDAffichage;

// What lies outside the program, given at the start: the tests put their own in its place.
struct Environnement {
  Chemin repertoireProgramme;
  Reglages reglages;
  QString dossierAide;  // directory of QuelvarAide.html and of the method notes
  // Starts a program of ours beside this one and does not wait for it.
  std::function<bool(const QString& programme, const QStringList& arguments)> demarrer;
  // Opens a document or a page in the program that the user has for it.
  std::function<bool(const QUrl& adresse)> ouvrir;
  QString dossierDeSecours = {};  // of the recovery copies of the editor; none without it
};

class Principal : public QMainWindow {
  Q_OBJECT
 public:
  explicit Principal(Environnement environnement);
  ~Principal() override;

  // What the forms work with; it lives as long as the window. The tests open forms by it that no entry opens.
  Services& ServicesDesFormes() { return services_; }
  Editeurs& TextesOuverts() { return *editeurs_; }

 protected:
  void closeEvent(QCloseEvent* evenement) override;

 private:
  // --- what the window is made of ---
  void GarnirLaBarreDEtat();
  void PreparerLesTextes();
  void RelierMenus();
  void RelierControles();
  void RelierEditeur();
  // What a handler of the window does: whatever fails in it is told, and the window stays.
  Gestes Garde(Gestes gestes) const;
  void Relier(const char* action, const Gestes& effet);
  QAction* Action(const QString& nom) const;
  bool ProgrammeExiste(const QString& action) const;
  void FixerTailleDEcran(const QString& action);

  // --- the session (session.cpp) ---
  void Demarrer();
  void CommencerLaSession();
  void OuvrirEtRapporter();
  bool OuvrirInitialisation(const Chemin& initialisation);
  void ChercherInitialisation();
  void ReconstruireRecents();
  void ProposerGeneriques(const std::vector<std::string>& noms);
  bool AccepterGenerique(const QString& saisi);
  void ChoisirGenerique(const QString& choisi);
  void AdopterGenerique(std::string_view generique);
  void ChangerNiveau(int niveau);
  void NouvelleDemande();
  void MontrerNouvelleUtilisation(bool nouvelle);
  void MontrerSession();

  // --- runs, results and texts ---
  Dialogue EcranDesRuns();
  void PermettreEnregistrement(bool permis);
  void PreparerMenuAffichage();
  void AfficherResultat(const EntreeDAffichage& entree);
  void EditerFichierDuGenerique(const char* extension);
  QString ChoisirFichier(const QString& titre);
  bool DemarrerLecteur(const QString& fichier);
  void Annoncer(const QString& texte);

  Environnement environnement_;
  std::unique_ptr<Ui::Principal> ui_;
  QLabel* repertoire_ = nullptr;
  QLabel* iteration_ = nullptr;
  QProgressBar* progression_ = nullptr;
  Session session_;
  Dialogue dialogue_;
  Formes formes_;
  Lanceur lanceur_;
  PagesDAide aide_;
  Services services_;
  std::unique_ptr<Resultats> resultats_;
  std::unique_ptr<SortiesTexte> sorties_;
  std::unique_ptr<Editeurs> editeurs_;
};

}  // namespace quelvar::forms
