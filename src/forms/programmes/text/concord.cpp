#include "forms/programmes/text/concord.h"

#include <QClipboard>
#include <QGuiApplication>

#include "forms/pieces/commande.h"
#include "forms/pieces/options.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"
#include "forms/services/sauvegarde.h"
#include "forms/texte/enregistrement.h"
#include "text/commun/intitule.h"
#include "text/concordance/concord_options.h"
#include "text/concordance/edition.h"
#include "text/concordance/ordre.h"
#include "ui_concord.h"

namespace quelvar::forms {

namespace {

constexpr std::size_t kLignesMontrees = 50000;  // more take seconds to lay out

}  // namespace

Concord::Concord(Services& services, text::Concordances concordances)
    : Forme(services), concordances_(std::move(concordances)), ui_(std::make_unique<Ui::Concord>()) {
  ui_->setupUi(this);
  PoserDefauts(*this, text::DescriptionConcordance());
  ui_->TextInfo->setFont(PoliceFixe());
  for (QRadioButton* ordre : {ui_->OptFichier, ui_->OptGauche, ui_->OptDroite})
    connect(ordre, &QRadioButton::toggled, this, [this](bool choisi) {
      if (choisi) MontrerTexte();
    });
  connect(ui_->TextMots, &QLineEdit::returnPressed, this, &Concord::Chercher);
  connect(ui_->BoutChercher, &QPushButton::clicked, this, &Concord::Chercher);
  connect(ui_->BoutCopier, &QPushButton::clicked, this, [this] { QGuiApplication::clipboard()->setText(Texte()); });
  connect(ui_->BoutEnregS, &QPushButton::clicked, this, &Concord::Enregistrer);
  AjouterVoirLaCommande(*ui_->BoutEnregS, [this] {
    std::vector<std::string> mots;
    for (const text::MotTrouve& trouve : concordances_.mots) mots.push_back(trouve.mot);
    return CommandeEquivalente(text::DescriptionConcordance(), contexte_.generique, contexte_.niveau,
                               text::OptionsConcordance{.mots = mots, .ordre = Ordre()});
  });
  RelierQuitter(*ui_->BoutQuitter);
  ui_->TextMots->setText(Mots());
  ui_->TextInfo->setFocus();
  MontrerTexte();
}

Concord::~Concord() = default;

text::OrdreDeConcordance Concord::Ordre() const {
  return OptionsDesControles(*this, text::DescriptionConcordance()).ordre;
}

std::vector<std::uint32_t> Concord::Rangs() const { return text::RangsDansLOrdre(concordances_, Ordre()); }

void Concord::MontrerTexte() {
  QString texte = VersQt(text::TexteDeConcordances(concordances_, Rangs(), kLignesMontrees));
  texte.remove('\r');
  ui_->TextInfo->setPlainText(texte);
}

QString Concord::Texte() const {
  QString texte = VersQt(text::TexteDeConcordances(concordances_, Rangs()));
  return texte.remove('\r');
}

QString Concord::Mots() const {
  QStringList mots;
  for (const text::MotTrouve& trouve : concordances_.mots) mots << VersQt(trouve.mot);
  return mots.join(u' ');
}

void Concord::Chercher() {
  // A word that came from a list, as it stands there, may hold a comma.
  const QString tapes = ui_->TextMots->text();
  std::vector<text::MotsCherches> cherches =
      tapes == Mots() ? concordances_.cherches : text::CherchesDesMots(text::MotsSepares(DepuisQt(tapes), " ,"));
  if (cherches.empty()) return services_.ecran.biper();
  try {
    concordances_ = text::ChercherConcordances(contexte_, std::move(cherches));
    MontrerTexte();
  } catch (const Erreur& erreur) {
    services_.ecran.demander(TexteErreur(erreur), Boutons::Ok);
  }
}

void Concord::Enregistrer() {
  EnregistrerSous(this, {{QStringLiteral("Enregistrer la concordance"),
                          CheminVersQt(contexte_.repertoire / CheminDe(contexte_.Nom("-concordance.txt"))),
                          QStringLiteral("Textes *.txt|*.txt")},
                         [this](const Chemin& fichier) {
                           const std::string refus = text::RefusDEnregistrer(contexte_, fichier);
                           if (!refus.empty()) services_.ecran.demander(refus, Boutons::Ok);
                           return refus.empty();
                         },
                         [this](const Chemin& fichier) {
                           RemplacerFichier(fichier, text::TexteDeConcordances(concordances_, Rangs()), Nature::Unique);
                         }});
}

void OuvrirConcord(Services& services, std::vector<text::MotsCherches> cherches) {
  if (cherches.empty() || !FairePlace<Concord>(services)) return;
  try {
    Montrer<Concord>(services, text::ChercherConcordances(services.ContexteEnCours(), std::move(cherches)));
  } catch (const Erreur& erreur) {
    services.ecran.demander(TexteErreur(erreur), Boutons::Ok);
  }
}

}  // namespace quelvar::forms
