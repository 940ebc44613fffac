// What the preview of an import says of the file as a whole: whether it can be imported, what stands in the way, and
// where its files will go.
#include <QPalette>
#include <algorithm>

#include "forms/programmes/capture/import/apercu/apercu.h"
#include "forms/qt/texte.h"
#include "ui_apercu.h"

namespace quelvar::forms {

namespace {

using capture::EtatDeTable;

const QColor kFondBon(221, 242, 221);
const QColor kFondAVoir(255, 243, 205);
const QColor kFondFautif(250, 218, 218);

// The code page has no narrow space to set thousands apart.
QString PhraseVersQt(const std::string& phrase) { return VersQt(phrase).replace(u'\u00A0', u'\u202F'); }

}  // namespace

// What stands in the way, then what is only to be known.
QString ApercuImport::TexteDesFautes() const {
  QStringList lignes;
  if (!echec_.isEmpty()) lignes << echec_;
  for (const std::string& refus : preparation_.Refus()) lignes << VersQt(refus);
  for (const std::string& doute : preparation_.Doutes()) lignes << VersQt(doute);
  for (const std::string& remarque : preparation_.Remarques()) lignes << VersQt(remarque);
  if (!repris_.isEmpty()) lignes << repris_;
  return lignes.join(u'\n');
}

void ApercuImport::MontrerBilan() {
  const EtatDeTable etat = echec_.isEmpty() ? preparation_.Etat() : EtatDeTable::Illisible;
  const bool fautif = etat == EtatDeTable::Illisible || etat == EtatDeTable::ACorriger;
  ui_->LabelBilan->setText(PhraseVersQt(capture::DireEtat(etat, preparation_.Choix(), preparation_.Vue())));
  QPalette palette = ui_->FrBilan->palette();
  palette.setColor(QPalette::Window, fautif ? kFondFautif : etat == EtatDeTable::ToutEnCodes ? kFondBon : kFondAVoir);
  palette.setColor(QPalette::WindowText, Qt::black);
  ui_->FrBilan->setPalette(palette);
  MontrerFautes();
  ui_->Lancer->setEnabled(!fautif && !attend_);
  ui_->LabelCompte->setText(PhraseVersQt(capture::DireExamen(preparation_.Vue(), attend_)) +
                            QStringLiteral("   —   les fichiers iront dans ") +
                            VersQt(TexteRepertoire(cible_.repertoire)));
}

void ApercuImport::MontrerFautes() {
  constexpr qsizetype kLignesAuPlus = 7;
  constexpr int kBords = 12;  // pixels of the frame above and below
  const QString fautes = TexteDesFautes();
  ui_->TextFautes->setPlainText(fautes);
  ui_->TextFautes->setVisible(!fautes.isEmpty());
  const auto lignes = static_cast<int>(std::min(fautes.count(u'\n') + 1, kLignesAuPlus));
  ui_->TextFautes->setFixedHeight(lignes * fontMetrics().lineSpacing() + kBords);
}

}  // namespace quelvar::forms
