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
#include "forms/cadre/services.h"

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

  // What the forms work with; it lives as long as the window.
  Services& ServicesDesFormes() { return services_; }

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

  Contexte ContexteEnCours() { return {session_.repertoire, session_.generique, session_.niveau, &dialogue_}; }
  void MontrerEchec(const Erreur& erreur);
  bool ProgrammeExiste(const QString& action) const;
  bool OuvrirInitialisation(const Chemin& initialisation);
  bool AccepterGenerique(const QString& saisi);
  void ChoisirGenerique(const QString& choisi);
  void AdopterGenerique(std::string_view generique);
  void MontrerNouvelleUtilisation(bool nouvelle);
  void AfficherTexte(std::string_view texte);
  void AjouterTexte(std::string_view texte);

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
  Formes formes_;
  Lanceur lanceur_;
  PagesDAide aide_;
  Services services_;
  QList<QPointer<frmSDI>> editeurs_;
  int lignesDeRegle_ = 0;
  std::optional<Chemin> affiche_;  // the file that Text1 shows, as it was then
  Empreinte empreinte_;
  bool partiel_ = false;  // Text1 does not hold the whole of it
};

}  // namespace quelvar::forms
