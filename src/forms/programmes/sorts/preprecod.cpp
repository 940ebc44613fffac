#include "forms/programmes/sorts/preprecod.h"

#include "core/enquete/colonnes.h"
#include "core/panne/erreur.h"
#include "core/programme/rapport.h"
#include "forms/pieces/commande.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"
#include "forms/services/sauvegarde.h"
#include "sorts/preparation/preprecod_options.h"
#include "ui_preprecod.h"

namespace quelvar::forms {

namespace {

// The line of a question in the list; its rule shows whole in the tool tip too.
QString LigneDe(const Question& question) {
  const std::string regle = question.regle.empty() ? std::string() : "  [" + question.regle + "]";
  return VersQt(Joindre({CadreGauche(question.nom, kLargeurDeQuestion), "  ", question.intitule, regle}));
}

QString Voisine(const sorts::EtatPrepRecod& etat, const char* titre, std::ptrdiff_t pas) {
  if (!etat.courante) return {};
  const std::ptrdiff_t rang = static_cast<std::ptrdiff_t>(*etat.courante) + pas;
  if (rang < 0 || rang >= std::ssize(etat.questions)) return {};
  const Question& question = etat.questions[static_cast<std::size_t>(rang)].question;
  return QString::fromUtf8(titre) + VersQt(Joindre({question.nom, " ", question.intitule}));
}

// A choice that was given up stands as if it had not been made.
void Relever(QRadioButton& bouton) {
  bouton.setAutoExclusive(false);
  bouton.setChecked(false);
  bouton.setAutoExclusive(true);
}

}  // namespace

PrepRecod::PrepRecod(Services& services, sorts::EtatPrepRecod etat)
    : Forme(services), etat_(std::move(etat)), ouvert_(etat_), ui_(std::make_unique<Ui::PrepRecod>()) {
  ui_->setupUi(this);
  setWindowTitle(VersQt(sorts::kTitrePrepRecod));
  const QFont fixe = PoliceFixe();
  for (QWidget* texte : std::initializer_list<QWidget*>{ui_->ListPos, ui_->TextMod, ui_->TextFiltre, ui_->TextVIT})
    texte->setFont(fixe);
  for (const sorts::QuestionPreparee& preparee : etat_.questions) {
    ui_->ListPos->addItem(LigneDe(preparee.question));
    ui_->ListPos->item(ui_->ListPos->count() - 1)->setToolTip(LigneDe(preparee.question));
  }
  (etat_.maximum ? ui_->OptEffMax : ui_->OptEffReduit)->setChecked(true);
  RelierQuestions();
  RelierPonderation();
  RelierFiltre();
  RelierVit();
  RelierAides();
  connect(ui_->BoutEnreg, &QPushButton::clicked, this, &PrepRecod::Enregistrer);
  RelierQuitter(*ui_->BoutQuitter);
  RelierCommande(*ui_->BoutEnreg, sorts::DescriptionPrepRecod(), contexte_,
                 [this] { return sorts::OptionsDeLEtat(ouvert_, EtatAEnregistrer()); });
  MontrerQuestion();
  Montrer();
  ui_->ListPos->setFocus();
}

PrepRecod::~PrepRecod() = default;

void PrepRecod::RelierQuestions() {
  // The list has a current row as soon as it gets the focus: only a row that is marked has been chosen.
  connect(ui_->ListPos, &QListWidget::itemSelectionChanged, this, [this] {
    const QList<QListWidgetItem*> choisies = ui_->ListPos->selectedItems();
    if (choisies.isEmpty()) return;
    const int voulue = ui_->ListPos->row(choisies.first());
    if (RegleTapee() && static_cast<std::size_t>(voulue) != *etat_.courante && !ValiderLaRegle()) {
      const QSignalBlocker silence(ui_->ListPos);  // the question whose rule is refused stays the current one
      ui_->ListPos->setCurrentRow(static_cast<int>(*etat_.courante));
      return;
    }
    sorts::ChoisirQuestion(etat_, static_cast<std::size_t>(voulue));
    MontrerQuestion();
  });
  connect(ui_->ListPos, &QListWidget::itemClicked, this, [this] { ui_->TextMod->setFocus(); });
  const auto valider = [this] {
    if (ValiderLaRegle()) ui_->ListPos->setFocus();
  };
  connect(ui_->BoutEnCours, &QPushButton::clicked, this, valider);
  connect(ui_->TextMod, &QLineEdit::returnPressed, this, valider);
  connect(ui_->BoutEffEnCours, &QPushButton::clicked, this, [this] {
    Agir([this] { sorts::EffacerRegle(etat_); });
    MontrerLigneEnCours();
    MontrerQuestion();
  });
}

void PrepRecod::RelierPonderation() {
  connect(ui_->ValidPond, &QPushButton::clicked, this, [this] { Agir([this] { sorts::ValiderPonderation(etat_); }); });
  connect(ui_->EffacePond, &QPushButton::clicked, this, [this] { Agir([this] { sorts::EffacerPonderation(etat_); }); });
  connect(ui_->OptEffMax, &QRadioButton::toggled, this,
          [this](bool maximum) { Agir([=, this] { sorts::ChoisirEffectif(etat_, maximum); }); });
}

void PrepRecod::RelierFiltre() {
  const auto choisir = [this](QRadioButton* bouton, sorts::SensFiltre sens) {
    connect(bouton, &QRadioButton::clicked, this, [=, this] {
      ui_->ComboGen->clear();
      Agir([=, this] { sorts::ChoisirSens(etat_, sens); });
    });
  };
  choisir(ui_->OptIncl, sorts::SensFiltre::Inclure);
  choisir(ui_->OptExcl, sorts::SensFiltre::Exclure);
  choisir(ui_->OptNini, sorts::SensFiltre::Aucun);
  connect(ui_->ChoixFiltre, &QPushButton::clicked, this, [this] {
    bool attend = false;
    Agir([&] { attend = sorts::AjouterQuestionAuFiltre(etat_); });
    ui_->LabelFiltre->setText(attend ? VersQt(sorts::kChoixCodeFiltre) : QString());
    ProposerCodes(*ui_->ComboGen, attend ? sorts::CodesPourFiltre(etat_) : std::vector<int>());
  });
  connect(ui_->ComboGen, &QComboBox::activated, this, [this](int rang) {
    Agir([=, this] { sorts::AjouterCodeAuFiltre(etat_, ui_->ComboGen->itemData(rang).toInt()); });
  });
  connect(ui_->Ajout, &QPushButton::clicked, this, [this] {
    Agir([this] { sorts::AjouterExpression(etat_); });
    ui_->ComboGen->clear();
    ui_->ListPos->setFocus();
  });
  connect(ui_->ValidFiltre, &QPushButton::clicked, this, [this] { Agir([this] { sorts::ValiderFiltre(etat_); }); });
}

void PrepRecod::RelierVit() {
  connect(ui_->OptVITNouv, &QRadioButton::clicked, this, &PrepRecod::NommerVit);
  connect(ui_->OptVITModif, &QRadioButton::clicked, this, [this] {
    Agir([this] { sorts::CorrigerVit(etat_); });
    ui_->TextVIT->setReadOnly(false);
    ui_->TextVIT->setFocus();
  });
  connect(ui_->OptVITSupp, &QRadioButton::clicked, this, &PrepRecod::EffacerVit);
  connect(ui_->ChoixVIT, &QPushButton::clicked, this, [this] {
    bool attend = false;
    Agir([&] { attend = sorts::AjouterQuestionALaVit(etat_); });
    ui_->LabelVIT->setText(attend ? VersQt(sorts::kChoixCodeVit) : QString());
    ProposerCodes(*ui_->ComboVIT, attend ? sorts::CodesPourVit(etat_) : std::vector<int>());
  });
  connect(ui_->ComboVIT, &QComboBox::activated, this, &PrepRecod::ChoisirCodeDeVit);
  connect(ui_->AjoutVIT, &QPushButton::clicked, this, [this] {
    Agir([this] { sorts::CommencerElementDeVit(etat_); });
    ui_->ComboVIT->clear();
    ui_->ListPos->setFocus();
  });
  connect(ui_->ValidVIT, &QPushButton::clicked, this, [this] {
    Agir([this] { sorts::ValiderVit(etat_); });
    ui_->TextVIT->setReadOnly(true);
  });
}

void PrepRecod::RelierAides() {
  const auto aider = [this](QPushButton* bouton, sorts::SujetAide sujet) {
    connect(bouton, &QPushButton::clicked, this,
            [=, this] { Agir([=, this] { etat_.message = sorts::AidePrepRecod(sujet); }); });
  };
  aider(ui_->BoutAide, sorts::SujetAide::Recodage);
  aider(ui_->AidePond, sorts::SujetAide::Ponderation);
  aider(ui_->AideFiltre, sorts::SujetAide::Filtre);
  aider(ui_->AideVIT, sorts::SujetAide::Vit);
}

void PrepRecod::Agir(const std::function<void()>& action) {
  ReprendreLeTexte(etat_);
  action();
  Montrer();
}

void PrepRecod::Montrer() {
  ui_->TextMsg->setPlainText(VersQt(etat_.message));
  ui_->LabelPond->setText(etat_.ponderation.empty() ? QStringLiteral("Pas de pondération")
                                                    : QStringLiteral("Pondération : ") + VersQt(etat_.ponderation));
  ui_->TextFiltre->setText(VersQt(etat_.filtreAffiche));
  const sorts::SensFiltre sens = sorts::SensAffiche(etat_);
  (sens == sorts::SensFiltre::Inclure   ? ui_->OptIncl
   : sens == sorts::SensFiltre::Exclure ? ui_->OptExcl
                                        : ui_->OptNini)
      ->setChecked(true);
  for (QPushButton* bouton : {ui_->ChoixFiltre, ui_->Ajout}) bouton->setEnabled(sens != sorts::SensFiltre::Aucun);
  ui_->ComboGen->setEnabled(ui_->ComboGen->count() > 0);
  const QString vit = VersQt(sorts::TexteVit(etat_)).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  if (ui_->TextVIT->toPlainText() != vit) ui_->TextVIT->setPlainText(vit);
  for (QPushButton* bouton : {ui_->ChoixVIT, ui_->AjoutVIT}) bouton->setEnabled(!etat_.vitAffichee.empty());
  ui_->ComboVIT->setEnabled(ui_->ComboVIT->count() > 0);
}

void PrepRecod::MontrerQuestion() {
  ui_->LabelEnCours->setText(VersQt(sorts::LibelleEnCours(etat_)));
  ui_->Precedente->setText(Voisine(etat_, "Précédente : ", -1));
  ui_->Suivante->setText(Voisine(etat_, "Suivante : ", 1));
  const Question* question = etat_.courante ? &etat_.questions[*etat_.courante].question : nullptr;
  ui_->TextMod->setText(question == nullptr ? QString() : VersQt(question->regle));
  ui_->LabelQuestion->setText(question == nullptr ? QString()
                                                  : QStringLiteral("%1   code-max %2   %3")
                                                        .arg(VersQt(question->nom))
                                                        .arg(question->codeMax)
                                                        .arg(VersQt(question->intitule)));
}

void PrepRecod::MontrerLigneEnCours() {
  if (!etat_.courante) return;
  const QString ligne = LigneDe(etat_.questions[*etat_.courante].question);
  QListWidgetItem* place = ui_->ListPos->item(static_cast<int>(*etat_.courante));
  place->setText(ligne);
  place->setToolTip(ligne);
}

void PrepRecod::ProposerCodes(QComboBox& codes, const std::vector<int>& offerts) {
  codes.clear();
  for (const int code : offerts) codes.addItem(QString::number(code), code);
  codes.setCurrentIndex(-1);
  codes.setEnabled(codes.count() > 0);
  if (!codes.isEnabled()) return;
  codes.setFocus();
  codes.showPopup();
}

void PrepRecod::NommerVit() {
  const std::optional<std::string> nom = services_.DemanderTexte(sorts::kDemandeNomVit);
  if (nom) Agir([&] { sorts::CommencerVit(etat_, *nom); });
  else Relever(*ui_->OptVITNouv);
}

void PrepRecod::ChoisirCodeDeVit(int rang) {
  std::optional<std::string> score;
  if (ui_->ChkVITAv->isChecked()) {
    score = services_.DemanderTexte(sorts::kDemandeScoreVit);
    if (!score) {  // neither the code nor the score
      ui_->ComboVIT->setCurrentIndex(-1);
      return;
    }
  }
  Agir([=, this] { sorts::AjouterCodeALaVit(etat_, ui_->ComboVIT->itemData(rang).toInt()); });
  if (score) Agir([&] { sorts::AjouterScoreALaVit(etat_, *score); });
}

void PrepRecod::EffacerVit() {
  if (services_.ecran.demander(sorts::kConfirmerSuppressionVit, Boutons::OuiNon) != Reponse::Oui) {
    Relever(*ui_->OptVITSupp);
    return;
  }
  ui_->ComboVIT->clear();
  ui_->TextVIT->setReadOnly(true);
  Agir([this] { sorts::SupprimerVit(etat_); });
}

// Whether a rule was typed for the current question and not validated.
bool PrepRecod::RegleTapee() const {
  return etat_.courante && Rogner(DepuisQt(ui_->TextMod->text())) != etat_.questions[*etat_.courante].question.regle;
}

bool PrepRecod::ATravail() const {
  if (etat_.modifie || RegleTapee()) return true;
  sorts::EtatPrepRecod presente = etat_;
  ReprendreLeTexte(presente);
  return sorts::ResteAValider(presente);
}

// The VIT as it stands in its editor.
void PrepRecod::ReprendreLeTexte(sorts::EtatPrepRecod& etat) const {
  if (!ui_->TextVIT->isReadOnly()) sorts::ReprendreTexteVit(etat, DepuisQt(ui_->TextVIT->toPlainText()));
}

// What is typed and shown taken in, as far as it is right.
sorts::EtatPrepRecod PrepRecod::EtatAEnregistrer() const {
  sorts::EtatPrepRecod etat = etat_;
  if (RegleTapee()) sorts::ValiderRegle(etat, DepuisQt(ui_->TextMod->text()));
  ReprendreLeTexte(etat);
  sorts::ValiderLAffiche(etat);
  return etat;
}

bool PrepRecod::ValiderLaRegle() {
  bool juste = false;
  Agir([&] { juste = sorts::ValiderRegle(etat_, DepuisQt(ui_->TextMod->text())); });
  if (juste) MontrerLigneEnCours();
  return juste;
}

// What was typed or is shown goes along, or keeps the form open.
void PrepRecod::Enregistrer() {
  if (RegleTapee() && !ValiderLaRegle()) {
    services_.ecran.biper();
    ui_->TextMod->setFocus();
    return;
  }
  bool valide = false;
  Agir([&] { valide = sorts::ValiderLAffiche(etat_); });
  if (!valide) {
    services_.ecran.biper();
    return;
  }
  bool enregistre = false;
  Agir([&] {
    const Sauvegarde sauvegarde = SauverSur(services_, contexte_, ".POS", [&](const Contexte& sur) {
      enregistre = sorts::EnregistrerPrepRecod(etat_, sur);
    });
    if (sauvegarde.echec) etat_.message = TexteErreur(*sauvegarde.echec);  // the form stays, with all that was typed
  });
  if (enregistre) accept();
}

void OuvrirPrepRecod(Services& services) {
  if (Revenir<PrepRecod>(services)) return;
  std::optional<sorts::EtatPrepRecod> etat;
  services.Lancer([&](const Contexte& contexte) { etat = sorts::PreparerRecodage(contexte); });
  if (etat) Montrer<PrepRecod>(services, std::move(*etat));
}

}  // namespace quelvar::forms
