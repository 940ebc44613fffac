#include "forms/programmes/capture/saisiedes.h"

#include "core/programme/alerte.h"
#include "core/programme/horspage.h"
#include "forms/qt/lettres.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"
#include "ui_saisiedes.h"

namespace quelvar::forms {

SaisieDes::SaisieDes(Services& services) : Forme(services), ui_(std::make_unique<Ui::SaisieDes>()) {
  ui_->setupUi(this);
  ui_->TextMod->setMaxLength(capture::kLongueurDuNom);
  for (int code = 1; code <= kLargeurAlphaAuPlus; ++code) ui_->CodeMax->addItem(QString::number(code));
  ui_->CodeMax->setCurrentIndex(-1);
  ui_->ListVar->setFont(PoliceFixe());
  for (QRadioButton* genre : {ui_->OptNum, ui_->OptAlpha, ui_->OptNum2})
    connect(genre, &QRadioButton::toggled, this, &SaisieDes::ChangerGenre);
  connect(ui_->BoutCont, &QPushButton::clicked, this, [this] { Valider(); });
  connect(ui_->ListVar, &QListWidget::itemClicked, this, [this] { Reprendre(ui_->ListVar->currentRow()); });
  connect(ui_->ListVar, &QListWidget::itemActivated, this, [this] { Reprendre(ui_->ListVar->currentRow()); });
  connect(ui_->BoutEnreg, &QPushButton::clicked, this, &SaisieDes::EnregistrerEtQuitter);
  connect(ui_->BoutSaisie, &QPushButton::clicked, this, &SaisieDes::PasserALaSaisie);
  // Its caption says that nothing is saved: it does not ask.
  connect(ui_->BoutArret, &QPushButton::clicked, this, [this] {
    sansEnregistrer_ = true;
    reject();
  });
  RelierAide(*ui_->BoutAide, "mnuASaisie");
  Montrer({}, {}, GenreDescription::NumeriqueCourte);
  ChangerGenre();
  MontrerListe();
}

SaisieDes::~SaisieDes() = default;

GenreDescription SaisieDes::Genre() const {
  if (ui_->OptAlpha->isChecked()) return GenreDescription::Alphabetique;
  return ui_->OptNum2->isChecked() ? GenreDescription::NumeriqueLongue : GenreDescription::NumeriqueCourte;
}

void SaisieDes::ChangerGenre() {
  ui_->LibelleCodeMax->setText(VersQt(capture::LibelleCodeMax(Genre())));
  DonnerLesLettres(*this);
  // The Tab key would stay with the one that was clicked last, from where the arrows no longer choose.
  for (QRadioButton* genre : {ui_->OptNum, ui_->OptAlpha, ui_->OptNum2})
    genre->setFocusPolicy(genre->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

void SaisieDes::Montrer(const QString& nom, const QString& codeMax, GenreDescription genre) {
  ui_->TextMod->setText(nom);
  ui_->CodeMax->setCurrentIndex(-1);
  ui_->CodeMax->setEditText(codeMax);
  QRadioButton* const genres[] = {ui_->OptNum, ui_->OptAlpha, ui_->OptNum2};
  genres[static_cast<std::size_t>(genre)]->setChecked(true);
  ui_->TextMod->setFocus();
  ui_->TextMod->selectAll();
}

// Whether the fields hold something that was not validated.
bool SaisieDes::EnCours() const {
  const QString nom = ui_->TextMod->text();
  const QString codeMax = ui_->CodeMax->currentText();
  if (!etat_.corrigee) return !nom.trimmed().isEmpty() || !codeMax.trimmed().isEmpty();
  const capture::DefinitionDeQuestion& question = etat_.questions[*etat_.corrigee];
  return nom != VersQt(question.nom) || codeMax != QString::number(question.nombre) || Genre() != question.genre;
}

// False for a question that is refused: the keyboard is back where the fault is.
bool SaisieDes::Valider() {
  const std::string codeMax = DepuisQt(ui_->CodeMax->currentText());
  const std::string nom = ui_->TextMod->text().toStdString();
  std::string refus = RefusHorsPage(nom);
  if (refus.empty()) refus = capture::ValiderQuestion(etat_, DepuisUtf8(nom), codeMax, Genre());
  if (!refus.empty()) {
    AlerterEnBoite(services_.ecran, refus);
    const bool nomComplet = ui_->TextMod->text().size() == ui_->TextMod->maxLength();
    if (nomComplet && capture::NombreEnFaute(codeMax, Genre())) ui_->CodeMax->setFocus();
    else ui_->TextMod->setFocus();
    return false;
  }
  change_ = true;
  MontrerListe();
  Montrer({}, {}, GenreDescription::NumeriqueCourte);
  return true;
}

// What was typed and not validated is not left out of what is made of the questions.
bool SaisieDes::ValiderLEnCours() { return !EnCours() || Valider(); }

void SaisieDes::Reprendre(int ligne) {
  if (ligne < 0) return;
  const auto rang = static_cast<std::size_t>(ligne);
  // The line under correction gives its own values back; another one would take the place of what is typed.
  if (etat_.corrigee != rang && !ValiderLEnCours()) return;
  etat_.corrigee = rang;
  const capture::DefinitionDeQuestion& question = etat_.questions[rang];
  Montrer(VersQt(question.nom), QString::number(question.nombre), question.genre);
}

void SaisieDes::MontrerListe() {
  ui_->ListVar->clear();
  for (const capture::DefinitionDeQuestion& question : etat_.questions)
    ui_->ListVar->addItem(VersQt(capture::LigneDuDescripteur(question)));
  ui_->ListVar->scrollToBottom();
  ui_->LabelNombre->setText(QString::number(etat_.questions.size()));
  for (QPushButton* bouton : {ui_->BoutEnreg, ui_->BoutSaisie}) bouton->setEnabled(!etat_.questions.empty());
}

bool SaisieDes::Enregistrer() {
  if (!ValiderLEnCours()) return false;
  const auto enregistrer = [this](const Contexte& sur) {
    capture::EnregistrerDescripteur(sur, etat_);
    return Fin::Normale;
  };
  if (LancerEtape(enregistrer) != Fin::Normale) return false;
  change_ = false;
  return true;
}

void SaisieDes::EnregistrerEtQuitter() {
  if (Enregistrer()) accept();
}

void SaisieDes::PasserALaSaisie() {
  if (!Enregistrer()) return;
  accept();
  services_.ouvrirProgramme(QStringLiteral("mnuSaisie"));
}

}  // namespace quelvar::forms
