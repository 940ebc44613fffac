// What the preview of an import says of the file as a whole: whether it can be imported, what stands in the way, and
// where its files will go.
#include <QPalette>
#include <algorithm>

#include "forms/programmes/capture/import/apercu.h"
#include "forms/programmes/capture/import/nombres_fr.h"
#include "forms/texte/texte_qt.h"
#include "ui_apercu.h"

namespace quelvar::forms {

namespace {

const QColor kFondBon(221, 242, 221);
const QColor kFondAVoir(255, 243, 205);
const QColor kFondFautif(250, 218, 218);

// How many columns become what.
struct Compte {
  std::int64_t questions = 0;
  std::int64_t numeros = 0;
  std::int64_t ecartees = 0;
  std::int64_t autres = 0;  // to be coded or classed
};

Compte CompterLesChoix(const std::vector<capture::ChoixDeColonne>& choix) {
  const auto nombre = [&](capture::Genre genre) {
    return static_cast<std::int64_t>(std::ranges::count(choix, genre, &capture::ChoixDeColonne::genre));
  };
  Compte compte{nombre(capture::Genre::Codes), nombre(capture::Genre::Numero), nombre(capture::Genre::Ecartee)};
  compte.autres = static_cast<std::int64_t>(choix.size()) - compte.questions - compte.numeros - compte.ecartees;
  return compte;
}

QString PhraseBonne(const Compte& compte, const QString& individus) {
  return QStringLiteral("Tout va bien : %1%2, %3. Entrée importe.")
      .arg(Pluriel(compte.questions, "colonne de codes", "colonnes de codes"),
           compte.numeros > 0 ? QStringLiteral(" et le numéro de l'individu") : QString(), individus);
}

QString PhraseAVoir(const Compte& compte, const QString& individus) {
  return QStringLiteral(
             "%1 : %2 de codes, %3 à coder ou à classer, %4. Voyez ce que chacune devient, "
             "puis Entrée importe.")
      .arg(individus, NombreFr(compte.questions), NombreFr(compte.autres),
           Pluriel(compte.ecartees, "écartée", "écartées"));
}

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

QString ApercuImport::TexteDuBilan() const {
  if (!echec_.isEmpty()) return QStringLiteral("Ce fichier ne peut pas être importé ainsi : voyez ci-dessous.");
  if (!preparation_.Refus().empty())
    return QStringLiteral(
        "À corriger avant d'importer : les cellules en rouge, dites ci-dessous une à une. Changez ce que "
        "devient leur colonne, ou corrigez le fichier.");
  const capture::FaitsDeTable& faits = preparation_.Vue().faits;
  const QString individus = preparation_.Vue().entier ? Pluriel(faits.individus, "individu", "individus")
                                                      : QStringLiteral("le compte des individus est en cours");
  const Compte compte = CompterLesChoix(preparation_.Choix());
  return preparation_.ToutVaBien() ? PhraseBonne(compte, individus) : PhraseAVoir(compte, individus);
}

QString ApercuImport::TexteDuPied() const {
  if (attend_) return QStringLiteral("L'importation suivra la fin de l'examen du fichier (Échap y renonce)...");
  if (!preparation_.Vue().entier) return QStringLiteral("Examen du fichier entier en cours...");
  const capture::FaitsDeTable& faits = preparation_.Vue().faits;
  QString pied = QStringLiteral("%1 lues").arg(Pluriel(faits.individus + faits.lignesVides, "ligne", "lignes"));
  if (faits.lignesVides > 0)
    pied += QStringLiteral(", dont %1 vides, laissées de côté").arg(NombreFr(faits.lignesVides));
  return pied;
}

void ApercuImport::MontrerBilan() {
  const bool fautif = !echec_.isEmpty() || !preparation_.Refus().empty();
  const bool bon = echec_.isEmpty() && preparation_.ToutVaBien();
  ui_->LabelBilan->setText(TexteDuBilan());
  QPalette palette = ui_->FrBilan->palette();
  palette.setColor(QPalette::Window, fautif ? kFondFautif : bon ? kFondBon : kFondAVoir);
  palette.setColor(QPalette::WindowText, Qt::black);
  ui_->FrBilan->setPalette(palette);
  MontrerFautes();
  ui_->Lancer->setEnabled(!fautif && !attend_);
  ui_->LabelCompte->setText(TexteDuPied() + QStringLiteral("   —   les fichiers iront dans ") +
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
