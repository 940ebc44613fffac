#include "forms/programmes/text/concord.h"

#include <QFileDialog>
#include <QFontDatabase>

#include "forms/pieces/commande.h"
#include "forms/texte/texte_qt.h"
#include "text/concordance/concord_options.h"
#include "ui_concord.h"

namespace quelvar::forms {

Concord::Concord(Services& services, text::Concordances concordances)
    : Forme(services), concordances_(std::move(concordances)), ui_(std::make_unique<Ui::Concord>()) {
  ui_->setupUi(this);
  ui_->TextInfo->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  for (QRadioButton* ordre : {ui_->OptFichier, ui_->OptGauche, ui_->OptDroite})
    connect(ordre, &QRadioButton::toggled, this, [this](bool choisi) {
      if (choisi) MontrerTexte();
    });
  connect(ui_->BoutEnregS, &QPushButton::clicked, this, &Concord::Enregistrer);
  RelierCommande(*ui_->BoutEnregS, text::DescriptionConcordance(), contexte_, [this] {
    return text::OptionsConcordance{concordances_.mots, Ordre(), {}};
  });
  RelierQuitter(*ui_->BoutQuitter);
  MontrerTexte();
}

Concord::~Concord() = default;

text::OrdreDeConcordance Concord::Ordre() const {
  if (ui_->OptGauche->isChecked()) return text::OrdreDeConcordance::Gauche;
  return ui_->OptDroite->isChecked() ? text::OrdreDeConcordance::Droite : text::OrdreDeConcordance::Fichier;
}

void Concord::MontrerTexte() {
  QString texte = VersQt(text::TexteDeConcordances(concordances_, Ordre()));
  texte.remove('\r');
  ui_->TextInfo->setPlainText(texte);
}

void Concord::Enregistrer() {
  const QString fichier = QFileDialog::getSaveFileName(
      this, QStringLiteral("Enregistrer la concordance"),
      CheminVersQt(contexte_.repertoire / CheminDe(contexte_.Nom("-concordance.txt"))), QStringLiteral("*.txt"));
  if (fichier.isEmpty()) return;
  try {
    Remplacement copie(CheminDepuisQt(fichier));
    copie.Fichier().Ecrire(DepuisQt(ui_->TextInfo->toPlainText().replace('\n', QStringLiteral("\r\n"))));
    copie.Valider();
  } catch (const Erreur& erreur) {
    services_.ecran.demander(TexteErreur(erreur), Boutons::Ok);
  }
}

void OuvrirConcord(Services& services, const std::vector<std::string>& mots) {
  if (mots.empty() || !FairePlace<Concord>(services)) return;
  try {
    Montrer<Concord>(services, text::ChercherConcordances(services.ContexteEnCours(), mots));
  } catch (const Erreur& erreur) {
    services.ecran.demander(TexteErreur(erreur), Boutons::Ok);
  }
}

}  // namespace quelvar::forms
