// The recovery copy of the editor: when it is written, when it goes, and how a text comes back from one.
#include <QFileInfo>

#include "forms/editeur/frmsdi.h"
#include "forms/qt/texte.h"
#include "ui_frmsdi.h"

namespace quelvar::forms {

void frmSDI::PreparerSecours() {
  secours_ = std::make_unique<Secours>(services_.dossierDeSecours);
  if (services_.dossierDeSecours.isEmpty() || genre_ == Genre::Lecteur) return;
  cadence_.setInterval(services_.cadenceDeSecours);
  connect(&cadence_, &QTimer::timeout, this, &frmSDI::EcrireSecours);
  connect(ui_->TexteEd, &QPlainTextEdit::modificationChanged, this, [this](bool modifie) {
    if (modifie) cadence_.start();
    else EffacerSecours();
  });
}

void frmSDI::EcrireSecours() {
  if (genre_ == Genre::Lecteur || !isWindowModified() || ui_->TexteEd->EnChargement() || copiee_ == Revision()) return;
  const TexteDeSecours texte{fichier_, formeTexte_, QString::fromStdU16String(ui_->TexteEd->TexteComplet())};
  if (secours_->Ecrire(texte)) copiee_ = Revision();
  else if (!copieRefusee_)
    Dire(QStringLiteral("La copie de secours ne peut pas être écrite : enregistrez votre texte"));
  copieRefusee_ = copiee_ != Revision();
}

void frmSDI::EffacerSecours() {
  cadence_.stop();
  secours_->Effacer();
  copiee_ = -1;
}

bool frmSDI::Reprendre(std::unique_ptr<Secours> secours) {
  const std::optional<TexteDeSecours> texte = secours->Lire();
  if (!texte || (!texte->fichier.isEmpty() && !Ouvrir(texte->fichier))) return false;
  formeTexte_ = texte->forme;
  ui_->TexteEd->Charger(texte->texte.toStdU16String(), formeTexte_.encodage);
  ui_->TexteEd->AcheverChargement();
  secours_ = std::move(secours);
  ui_->TexteEd->document()->setModified(true);
  copiee_ = Revision();
  cadence_.start();
  MontrerTitre();
  MontrerForme();
  Dire(QStringLiteral("Texte repris de sa copie de secours : il reste à l'enregistrer"));
  return true;
}

}  // namespace quelvar::forms
