// What Text1 shows: the report of a run, a result file, the help.
#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>
#include <QUrlQuery>

#include "core/erreur.h"
#include "forms/dialogue_qt.h"
#include "forms/menus.h"
#include "forms/principal.h"
#include "forms/texte_qt.h"
#include "ui_principal.h"

namespace quelvar {

void Principal::AfficherTexte(std::string_view texte) {
  session_.fichierAffiche.clear();
  ui_->FichAff->clear();
  ui_->Text1->PoserTexte(texte, true);
}

void Principal::AjouterTexte(std::string_view texte) { ui_->Text1->AjouterTexte(texte); }

void Principal::Afficher(const Affichage& affichage) {
  ui_->Text1->PoserTexte(affichage.texte, true);
  session_.fichierAffiche = affichage.nomRapport;
  ui_->FichAff->setText(VersQt(TexteFichAff(affichage.nomRapport)));
  if (affichage.ou != Affichage::Ou::Lecteur) return;
  FermerFormes();
  if (!affichage.rapport.empty())
    environnement_.demarrer(QStringLiteral("quelvar-lecteur"), {QString::fromStdString(affichage.rapport)});
}

void Principal::PreparerMenuAffichage() {
  for (const EntreeDAffichage& entree : EntreesDAffichage())
    Action(QString::fromLatin1(entree.nom))
        ->setEnabled(!session_.generique.empty() && ContexteEnCours().Chercher(entree.extension).has_value());
}

void Principal::AfficherResultat(const QString& extension) {
  const std::optional<Chemin> fichier = ContexteEnCours().Chercher(DepuisQt(extension));
  if (!fichier) return;
  try {
    ui_->Text1->PoserTexte(LireOctets(*fichier));
    session_.fichierAffiche = TexteDe(fichier->filename());
    ui_->FichAff->setText(VersQt(TexteFichAff(session_.fichierAffiche)));
  } catch (const Erreur& erreur) {
    AfficherTexte(TexteErreur(erreur.Numero()));
  }
}

void Principal::PreparerMenuAide() {
  for (const EntreeDAide& entree : EntreesDAide())
    Action(QString::fromUtf8(entree.nom))
        ->setEnabled(QFileInfo::exists(QDir(environnement_.dossierAide).filePath(QString::fromUtf8(entree.document))));
}

void Principal::OuvrirAide(const QString& document, const QString& ancre) {
  QUrl adresse = QUrl::fromLocalFile(QDir(environnement_.dossierAide).filePath(document));
  adresse.setFragment(ancre);
  environnement_.ouvrir(adresse);
}

}  // namespace quelvar
