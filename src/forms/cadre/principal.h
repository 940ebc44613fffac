// The main form: menu, session, the text of the results, and the frame in which every program runs.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QPointer>
#include <QProgressBar>
#include <QStringList>
#include <functional>
#include <memory>
#include <utility>

#include "core/document/affichage.h"
#include "core/document/empreinte.h"
#include "core/programme/erreur.h"
#include "core/programme/programme.h"
#include "core/session/session.h"

namespace Ui {
class Principal;
}

namespace quelvar::forms {

struct EntreeDAffichage;
class frmSDI;

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
  // Shows the form of that class: the one that is open on the present generic, else a new one made with this window and
  // the arguments.
  template <class Forme, class... Arguments>
  Forme& Montrer(Arguments&&... arguments) {
    Forme* forme = Ouverte<Forme>();
    if (forme != nullptr && !EstDuGenerique(*forme)) std::exchange(forme, nullptr)->close();
    if (forme == nullptr) forme = new Forme(*this, std::forward<Arguments>(arguments)...);
    Presenter(*forme);
    return *forme;
  }
  // The open form of that class, or nullptr.
  template <class Forme>
  Forme* Ouverte() const {
    for (const QPointer<QWidget>& ouverte : formes_)
      if (auto* forme = qobject_cast<Forme*>(ouverte.data()); forme != nullptr && forme->isVisible()) return forme;
    return nullptr;
  }
  // Closes every form that Montrer has opened and hides the progress display.
  void FermerFormes();
  // A program has moved the data set to another generic; Text1 keeps the report.
  void AdopterGenerique(std::string_view generique);
  // A program has made files of the current generic: Qvr2.ini is written and the count of individuals read anew.
  void RelireGenerique() { AdopterGenerique(std::string(session_.generique)); }
  // Replaces what Text1 holds by lines that belong to no file.
  void AfficherTexte(std::string_view texte);
  void AjouterTexte(std::string_view texte);
  // By the name of an entry of the menu "Aide".
  bool AideExiste(const QString& action) const;
  void OuvrirAide(const QString& action);
  // By the name of an entry of the menu: whether a program is behind it, and running it.
  bool ProgrammeExiste(const QString& action) const;
  void OuvrirProgramme(const QString& action);

  // --- moves of the session ---

  void OuvrirRepertoire(const Chemin& repertoire);
  void OuvrirInitialisation(const Chemin& initialisation);
  // A first use: the title says so until a generic is accepted, and entry and import wait for it.
  void CommencerNouvelleUtilisation();
  // What CmdGenOui does with a typed name; false when the name is refused.
  bool AccepterGenerique(const QString& saisi);

 protected:
  void closeEvent(QCloseEvent* evenement) override;
  bool eventFilter(QObject* objet, QEvent* evenement) override;

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
  // Whether the form was opened on the present generic.
  bool EstDuGenerique(const QWidget& forme) const;
  void SupprimerFermees();

  void RelierEditeur();
  void Editer(const QString& fichier);
  void EditerFichierDuGenerique(const char* extension);
  void EditerFichierChoisi();
  void LireFichierChoisi();
  bool FermerEditeurs();

  void Afficher(const Affichage& affichage);
  void MontrerTexte(std::string_view texte, const std::string& nomFichier, bool alaFin);
  void MontrerVerrous(int lignesDeRegle);
  void PermettreEnregistrement(bool permis);
  void DemarrerLecteur(const Chemin& fichier);
  void PreparerMenuAffichage();
  void PreparerMenuAide();
  void AfficherResultat(const EntreeDAffichage& entree);
  void AfficherEntier(const Chemin& fichier);
  void AfficherPartiel(const Chemin& fichier, bool avecRegle);
  void AfficherQuelconque();
  void AfficherEchec(const Chemin& fichier, const Erreur& erreur);
  void Retenir(const Chemin& fichier, std::string_view octets);
  bool PeutRemplacer(const Chemin& fichier);
  void EnregistrerSous();
  void Imprimer();
  void ImprimerEnPdf();
  void Annoncer(const QString& texte);

  Environnement environnement_;
  std::unique_ptr<Ui::Principal> ui_;
  QLabel* repertoire_ = nullptr;
  QLabel* iteration_ = nullptr;
  QProgressBar* progression_ = nullptr;
  Session session_;
  Dialogue dialogue_;
  QList<QPointer<QWidget>> formes_;   // shown by Montrer
  QList<QPointer<QWidget>> fermees_;  // closed, deleted as soon as none of their handlers can be running
  QList<QPointer<frmSDI>> editeurs_;
  bool enCours_ = false;  // a program runs
  int lignesDeRegle_ = 0;
  std::optional<Chemin> affiche_;  // the file that Text1 shows, as it was then
  Empreinte empreinte_;
  bool partiel_ = false;  // Text1 does not hold the whole of it
};

}  // namespace quelvar::forms
