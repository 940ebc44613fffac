#include "forms/editeur/editeurs.h"

#include <QApplication>
#include <QFileInfo>
#include <algorithm>
#include <utility>

#include "forms/qt/dialogue.h"
#include "forms/qt/ecran.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

Editeurs::Editeurs(QWidget& fenetre, ServicesEditeur services)
    : QObject(&fenetre), fenetre_(fenetre), services_(std::move(services)) {}

Editeurs::~Editeurs() {
  for (const QPointer<frmSDI>& editeur : editeurs_) delete editeur.data();
}

void Editeurs::Ouvrir(const QString& fichier) {
  editeurs_.removeIf([](const QPointer<frmSDI>& editeur) { return editeur.isNull(); });
  const QString chemin = QFileInfo(fichier).absoluteFilePath();
  const auto ouvert = std::find_if(editeurs_.begin(), editeurs_.end(),
                                   [&](const QPointer<frmSDI>& editeur) { return editeur->Fichier() == chemin; });
  if (ouvert != editeurs_.end()) {
    Presenter(**ouvert);
    return;
  }
  frmSDI* editeur = Nouvel();
  if (!editeur->Ouvrir(chemin)) {
    delete editeur;
    return;
  }
  editeurs_.append(editeur);
  Presenter(*editeur);
}

frmSDI* Editeurs::Nouvel() const {
  auto* editeur = new frmSDI(services_);
  editeur->setAttribute(Qt::WA_DeleteOnClose);
  return editeur;
}

void Editeurs::ProposerLesSecours() {
  for (std::unique_ptr<Secours>& secours : Secours::Abandonnes(services_.dossierDeSecours)) {
    const std::optional<TexteDeSecours> texte = secours->Lire();
    if (!texte) continue;
    QString question = QStringLiteral("Le texte de %1 n'était pas enregistré quand le programme s'est arrêté (%2).\n")
                           .arg(texte->fichier.isEmpty() ? QStringLiteral("« Sans nom »") : texte->fichier,
                                secours->Instant().toString(QStringLiteral("dd/MM/yyyy à HH:mm:ss")));
    if (QFileInfo(texte->fichier).lastModified() > secours->Instant())
      question += QStringLiteral("Le fichier a été changé depuis sur le disque.\n");
    question += QStringLiteral("Voulez-vous le reprendre dans l'éditeur ?\n\nNon : le texte est perdu");
    const Reponse reponse = DemanderReponse(&fenetre_, question, Boutons::OuiNonAnnuler);
    if (reponse == Reponse::Non) secours->Effacer();
    if (reponse != Reponse::Oui) continue;
    frmSDI* editeur = Nouvel();
    if (!editeur->Reprendre(std::move(secours))) {
      delete editeur;
      continue;
    }
    editeurs_.append(editeur);
    Presenter(*editeur);
  }
}

void Editeurs::MettreASauf() {
  for (const QPointer<frmSDI>& editeur : editeurs_)
    if (!editeur.isNull()) editeur->EcrireSecours();
}

void Editeurs::Presenter(frmSDI& editeur) {
  editeur.show();
  TenirDansLEcran(editeur);
  editeur.raise();
  editeur.activateWindow();
}

bool Editeurs::Fermer() {
  return std::all_of(editeurs_.begin(), editeurs_.end(),
                     [](const QPointer<frmSDI>& editeur) { return editeur.isNull() || editeur->close(); });
}

bool Editeurs::PermettreDeLire(const Chemin& repertoire, std::string_view generique) {
  const QFileInfo dossier(CheminVersQt(repertoire));
  const QString nom = VersQt(generique);
  return Permettre([&](const QString& fichier) {
    const QFileInfo lu(fichier);
    return !nom.isEmpty() && QFileInfo(lu.absolutePath()) == dossier &&
           lu.completeBaseName().compare(nom, Qt::CaseInsensitive) == 0;
  });
}

bool Editeurs::PermettreDeLire(const QString& fichier) {
  return Permettre([lu = QFileInfo(fichier)](const QString& ouvert) { return QFileInfo(ouvert) == lu; });
}

bool Editeurs::Permettre(const std::function<bool(const QString&)>& lu) {
  const QList<QPointer<frmSDI>> editeurs = editeurs_;
  for (const QPointer<frmSDI>& editeur : editeurs) {
    if (editeur.isNull() || !editeur->isVisible() || !editeur->isWindowModified() || !lu(editeur->Fichier())) continue;
    if (laisses_.value(editeur, -1) == editeur->Revision()) continue;
    const QString question = QStringLiteral(
        "Le texte de %1 a été modifié dans l'éditeur et n'est pas enregistré.\n"
        "Voulez-vous l'enregistrer avant que le programme le lise ?\n\n"
        "Non : le programme lit le fichier tel qu'il est sur le disque");
    QWidget* devant = QApplication::activeWindow();
    switch (DemanderReponse(devant == nullptr ? &fenetre_ : devant,
                            question.arg(QFileInfo(editeur->Fichier()).fileName()), Boutons::OuiNonAnnuler)) {
      case Reponse::Oui:
        if (!editeur->Enregistrer()) return false;
        break;
      case Reponse::Non: laisses_[editeur] = editeur->Revision(); break;
      default: return false;
    }
  }
  return true;
}

}  // namespace quelvar::forms
