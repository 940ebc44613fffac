// The menu "Editeur": windows of the editor over the files of the generic or any other, and the viewer.
#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <algorithm>
#include <array>

#include "forms/cadre/dialogue_qt.h"
#include "forms/cadre/principal.h"
#include "forms/editeur/frmsdi.h"
#include "forms/texte/texte_qt.h"

namespace quelvar::forms {

namespace {

struct EntreeDEditeur {
  const char* nom;  // of the action
  const char* extension;
};

constexpr std::array kEntreesDEditeur = {EntreeDEditeur{"mnuEdDES", ".DES"}, EntreeDEditeur{"mnuEdPOS", ".POS"},
                                         EntreeDEditeur{"mnuEdTRG", ".TRG"}, EntreeDEditeur{"mnuEdMOD", ".MOD"}};

constexpr const char* kTousFichiers = "Tous fichiers *.*|*.*";

}  // namespace

void Principal::RelierEditeur() {
  for (const EntreeDEditeur& entree : kEntreesDEditeur)
    Relier(entree.nom, [this, &entree] { EditerFichierDuGenerique(entree.extension); });
  Relier("mnuEdAutres", [this] { EditerFichierChoisi(); });
  Relier("mnuEdWordpad", [this] { LireFichierChoisi(); });
  connect(findChild<QMenu*>(QStringLiteral("mnuEditeur")), &QMenu::aboutToShow, this, [this] {
    for (const EntreeDEditeur& entree : kEntreesDEditeur)
      Action(QString::fromLatin1(entree.nom))->setEnabled(!session_.generique.empty());
  });
}

void Principal::Editer(const QString& fichier) {
  editeurs_.removeIf([](const QPointer<frmSDI>& editeur) { return editeur.isNull(); });
  const QString chemin = QFileInfo(fichier).absoluteFilePath();
  const auto ouvert = std::find_if(editeurs_.begin(), editeurs_.end(),
                                   [&](const QPointer<frmSDI>& editeur) { return editeur->Fichier() == chemin; });
  frmSDI* editeur = ouvert == editeurs_.end() ? nullptr : ouvert->data();
  if (editeur == nullptr) {
    editeur = new frmSDI(
        {environnement_.reglages, [this] { aide_.Ouvrir(QStringLiteral("mnuAEdAf")); },
         [this](const QString& long_) { return environnement_.demarrer(QStringLiteral("quelvar-lecteur"), {long_}); }});
    editeur->setAttribute(Qt::WA_DeleteOnClose);
    if (!editeur->Ouvrir(chemin)) {
      delete editeur;
      return;
    }
    editeurs_.append(editeur);
  }
  editeur->show();
  editeur->raise();
  editeur->activateWindow();
}

void Principal::EditerFichierDuGenerique(const char* extension) {
  const Contexte contexte = ContexteEnCours();
  const std::string nom = contexte.Nom(extension);
  Editer(CheminVersQt(CheminDEcriture(contexte.repertoire, nom)));
}

void Principal::EditerFichierChoisi() {
  const QString chemin =
      QFileDialog::getOpenFileName(this, QStringLiteral("Ouvrir dans l'éditeur"), CheminVersQt(session_.repertoire),
                                   FiltreQt(QString::fromLatin1(kTousFichiers)));
  if (!chemin.isEmpty()) Editer(chemin);
}

void Principal::LireFichierChoisi() {
  const QString chemin =
      QFileDialog::getOpenFileName(this, QStringLiteral("Ouvrir dans le lecteur"), CheminVersQt(session_.repertoire),
                                   FiltreQt(QString::fromLatin1(kTousFichiers)));
  if (!chemin.isEmpty()) DemarrerLecteur(CheminDepuisQt(chemin));
}

// False when the user keeps one of the texts open.
bool Principal::FermerEditeurs() {
  return std::all_of(editeurs_.begin(), editeurs_.end(),
                     [](const QPointer<frmSDI>& editeur) { return editeur.isNull() || editeur->close(); });
}

}  // namespace quelvar::forms
