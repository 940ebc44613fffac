// The column that is chosen in the preview of an import: its name, what it becomes, and the parameters of that.
#include <QHeaderView>
#include <QSignalBlocker>

#include "capture/apercu/choix/devenir.h"
#include "capture/apercu/choix/proposition.h"
#include "capture/apercu/choix/reglages.h"
#include "capture/apercu/choix/textes.h"
#include "capture/apercu/sorties/classes.h"
#include "forms/programmes/capture/import/apercu/apercu.h"
#include "forms/qt/texte.h"
#include "ui_apercu.h"

namespace quelvar::forms {

namespace {

using capture::ChoixDeColonne;
using capture::FaitsDeColonne;
using capture::Genre;
using capture::Ordre;

constexpr int kTexteDeLaLigne = Qt::UserRole;

struct OrdreOffert {
  Ordre ordre;
  const char* legende;
};
// As ComboOrdre has them; the order of the list comes with a move in it.
constexpr OrdreOffert kOrdres[] = {{Ordre::Alphabetique, "alphabétique"},
                                   {Ordre::Frequence, "par fréquence"},
                                   {Ordre::Donne, "celui de la liste"}};
constexpr int kCeluiDeLaListe = 2;
static_assert(kOrdres[kCeluiDeLaListe].ordre == Ordre::Donne);

// Characters of a heading, but for the title, which takes what is left of the window.
constexpr int kLargeurs[ColonnesDApercu::kRubriques] = {0, 7, 24, 10, 8, 24};
constexpr int kLargeurAuMoins = 6;
// Pixels of the rows over the columns, and of the columns beside the one that is chosen, when the window opens.
constexpr int kHauteurDesLignes = 180;
constexpr int kHauteurDesColonnes = 280;
constexpr int kLargeurDesColonnes = 640;
constexpr int kLargeurDeLaColonne = 320;

}  // namespace

void ApercuImport::PreparerLaColonne() {
  ui_->TextNom->setMaxLength(static_cast<int>(capture::kNomCourtLePlusLong));
  ui_->SpinGroupes->setRange(capture::kGroupesAuMoins, capture::kGroupesAuPlus);
  const int pas = fontMetrics().averageCharWidth();
  for (int rubrique = ColonnesDApercu::Nom; rubrique < ColonnesDApercu::kRubriques; ++rubrique)
    ui_->Colonnes->setColumnWidth(rubrique, kLargeurs[rubrique] * pas);
  auto& entete = *ui_->Colonnes->horizontalHeader();
  entete.setSectionResizeMode(ColonnesDApercu::Intitule, QHeaderView::Stretch);
  entete.setMinimumSectionSize(kLargeurAuMoins * pas);
  ui_->Partage->setSizes({kHauteurDesLignes, kHauteurDesColonnes});
  ui_->PartageColonnes->setSizes({kLargeurDesColonnes, kLargeurDeLaColonne});
  for (const OrdreOffert& offert : kOrdres) ui_->ComboOrdre->addItem(QString::fromUtf8(offert.legende));
}

void ApercuImport::RelierLaColonne() {
  connect(ui_->Colonnes->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &ApercuImport::MontrerColonne);
  connect(colonnes_, &ColonnesDApercu::Renomme, this,
          [this](int colonne, const QString& nom) { Renommer(static_cast<std::size_t>(colonne), nom); });
  connect(ui_->TextNom, &QLineEdit::editingFinished, this, [this] {
    if (ColonneChoisie() && ui_->TextNom->isModified()) Renommer(Colonne(), ui_->TextNom->text());
  });
  connect(ui_->ComboGenre, &QComboBox::activated, this, [this](int rang) {
    if (!ColonneChoisie()) return;
    preparation_.ChangerGenre(Colonne(), static_cast<Genre>(ui_->ComboGenre->itemData(rang).toInt()));
    ChoixChange();
    MontrerColonne();
  });
  connect(ui_->ComboOrdre, &QComboBox::activated, this, &ApercuImport::ChangerOrdre);
  connect(ui_->CheckFondus, &QCheckBox::clicked, this, [this](bool fondus) {
    if (!ColonneChoisie()) return;
    ChoixDeColonne choix = preparation_.Choix()[Colonne()];
    choix.fondus = fondus;
    preparation_.ChangerChoix(Colonne(), std::move(choix));
    ChoixChange();
    MontrerColonne();
  });
  connect(ui_->ListTextes, &QListWidget::itemChanged, this, &ApercuImport::LireTextes);
  // The model tells of a move before the list is as it will be.
  connect(
      ui_->ListTextes->model(), &QAbstractItemModel::rowsMoved, this,
      [this] {
        ui_->ComboOrdre->setCurrentIndex(kCeluiDeLaListe);
        LireTextes();
      },
      Qt::QueuedConnection);
  connect(ui_->BoutMonter, &QPushButton::clicked, this, [this] { DeplacerTexte(-1); });
  connect(ui_->BoutDescendre, &QPushButton::clicked, this, [this] { DeplacerTexte(1); });
  connect(ui_->OptGroupes, &QRadioButton::clicked, this, &ApercuImport::LireClasses);
  connect(ui_->OptBornes, &QRadioButton::clicked, this, &ApercuImport::LireClasses);
  connect(ui_->SpinGroupes, &QSpinBox::valueChanged, this, [this] {
    if (!montre_) ui_->OptGroupes->setChecked(true);
    LireClasses();
  });
  connect(ui_->TextBornes, &QLineEdit::textEdited, this, [this] {
    ui_->OptBornes->setChecked(true);
    LireClasses();
  });
}

bool ApercuImport::ColonneChoisie() const {
  const int ligne = ui_->Colonnes->currentIndex().row();
  return ligne >= 0 && static_cast<std::size_t>(ligne) < preparation_.Choix().size();
}

std::size_t ApercuImport::Colonne() const { return static_cast<std::size_t>(ui_->Colonnes->currentIndex().row()); }

void ApercuImport::MontrerColonne() {
  ui_->FrColonne->setEnabled(ColonneChoisie());
  if (!ColonneChoisie()) return;
  montre_ = true;
  const FaitsDeColonne& colonne = preparation_.Colonnes()[Colonne()];
  const ChoixDeColonne& choix = preparation_.Choix()[Colonne()];
  const QString titre = TitreDeColonne(colonne, Colonne());
  constexpr int kTitreAuPlus = 40;
  ui_->FrColonne->setTitle(fontMetrics()
                               .elidedText(titre, Qt::ElideRight, kTitreAuPlus * fontMetrics().averageCharWidth())
                               .replace(u'&', QStringLiteral("&&")));
  ui_->TextNom->setText(VersQt(Rogner(choix.nom)));
  ui_->TextNom->setEnabled(!choix.nom.empty());
  ui_->ComboGenre->clear();
  for (const Genre genre : capture::GenresPossibles(colonne))
    ui_->ComboGenre->addItem(VersQt(capture::LibelleGenre(genre)), static_cast<int>(genre));
  ui_->ComboGenre->setCurrentIndex(ui_->ComboGenre->findData(static_cast<int>(choix.genre)));
  ui_->LabelDevenir->setText(VersQt(capture::Devenir(choix, colonne)));
  if (choix.genre == Genre::Textes) MontrerTextes();
  if (choix.genre == Genre::Classes) MontrerClasses();
  const bool comptes = !capture::TextesComptes(choix, colonne).empty();
  ui_->CheckFondus->setChecked(choix.fondus);
  ui_->CheckFondus->setVisible(choix.genre == Genre::Textes && !capture::EcrituresProches(choix, colonne).empty());
  if (comptes) MontrerTextesComptes();
  for (QWidget* deLOrdre : {static_cast<QWidget*>(ui_->LibelleComboOrdre), static_cast<QWidget*>(ui_->ComboOrdre),
                            static_cast<QWidget*>(ui_->BoutMonter), static_cast<QWidget*>(ui_->BoutDescendre)})
    deLOrdre->setVisible(choix.genre == Genre::Textes);
  ui_->Reglages->setCurrentWidget(choix.genre == Genre::Textes || comptes ? ui_->PageTextes
                                  : choix.genre == Genre::Classes         ? ui_->PageClasses
                                                                          : ui_->PageSans);
  montre_ = false;
  if (!ui_->Lignes->selectionModel()) return;
  ui_->Lignes->scrollTo(lignes_->index(0, ui_->Colonnes->currentIndex().row()));
}

void ApercuImport::MontrerTextes() {
  const QSignalBlocker silence(ui_->ListTextes);
  const ChoixDeColonne& choix = preparation_.Choix()[Colonne()];
  ui_->ComboOrdre->setCurrentIndex(static_cast<int>(choix.ordre));
  ui_->ListTextes->clear();
  for (const capture::TexteCode& code : capture::TextesCodes(choix, preparation_.Colonnes()[Colonne()])) {
    AjouterTexte(QStringLiteral("%1   %2   (%3)").arg(code.code).arg(VersQt(code.texte)).arg(code.effectif), code.texte,
                 code.code != 0);
  }
}

// Answers that are 1, or cells that are no numbers: those that are not ticked count as 0.
void ApercuImport::MontrerTextesComptes() {
  const QSignalBlocker silence(ui_->ListTextes);
  ui_->ListTextes->clear();
  for (const capture::TexteCompte& texte :
       capture::TextesComptes(preparation_.Choix()[Colonne()], preparation_.Colonnes()[Colonne()]))
    AjouterTexte(QStringLiteral("%1   (%2)").arg(VersQt(texte.texte)).arg(texte.effectif), texte.texte, texte.compte);
}

void ApercuImport::AjouterTexte(const QString& libelle, const std::string& texte, bool coche) {
  auto* ligne = new QListWidgetItem(libelle, ui_->ListTextes);
  ligne->setData(kTexteDeLaLigne, VersQt(texte));
  ligne->setFlags((ligne->flags() | Qt::ItemIsUserCheckable) & ~Qt::ItemIsDropEnabled);
  ligne->setCheckState(coche ? Qt::Checked : Qt::Unchecked);
}

void ApercuImport::MontrerClasses() {
  const ChoixDeColonne& choix = preparation_.Choix()[Colonne()];
  (choix.bornes.empty() ? ui_->OptGroupes : ui_->OptBornes)->setChecked(true);
  ui_->SpinGroupes->setValue(choix.groupes);
  ui_->TextBornes->setText(VersQt(capture::TexteDesBornes(choix.bornes)));
  MontrerLibelles();
}

void ApercuImport::MontrerLibelles() {
  QStringList libelles;
  int code = 0;
  for (const std::string& libelle :
       capture::LibellesDesClasses(preparation_.Choix()[Colonne()], preparation_.Colonnes()[Colonne()]))
    libelles << QStringLiteral("%1  %2").arg(++code).arg(VersQt(libelle));
  ui_->LabelClasses->setText(libelles.join(u'\n'));
}

void ApercuImport::Renommer(std::size_t colonne, const QString& nom) {
  const std::string refus = preparation_.Renommer(colonne, DepuisQt(nom));
  ui_->TextNom->setModified(false);
  if (!refus.empty()) {
    services_.ecran.biper();
    ui_->LabelDevenir->setText(VersQt(refus));
    ui_->TextNom->setText(VersQt(Rogner(preparation_.Choix()[Colonne()].nom)));
    return;
  }
  ChoixChange();
}

void ApercuImport::ChangerOrdre() {
  if (!ColonneChoisie()) return;
  const Ordre ordre = kOrdres[ui_->ComboOrdre->currentIndex()].ordre;
  preparation_.ChangerChoix(
      Colonne(), capture::AvecOrdre(preparation_.Choix()[Colonne()], preparation_.Colonnes()[Colonne()], ordre));
  ChoixChange();
  MontrerColonne();
}

// The list as the user has left it: its order, and the texts that are no answers.
void ApercuImport::LireTextes() {
  if (montre_ || !ColonneChoisie()) return;
  const ChoixDeColonne choix = preparation_.Choix()[Colonne()];
  std::vector<capture::TexteCompte> textes;
  for (int i = 0; i < ui_->ListTextes->count(); ++i) {
    const QListWidgetItem& ligne = *ui_->ListTextes->item(i);
    textes.push_back({DepuisQt(ligne.data(kTexteDeLaLigne).toString()), 0, ligne.checkState() == Qt::Checked});
  }
  preparation_.ChangerChoix(
      Colonne(), choix.genre == Genre::Textes
                     ? capture::AvecTextesCodes(choix, kOrdres[ui_->ComboOrdre->currentIndex()].ordre, textes)
                     : capture::AvecTextesComptes(choix, textes));
  ChoixChange();
  const int courante = ui_->ListTextes->currentRow();
  const QString gardee = courante < 0 ? QString() : ui_->ListTextes->item(courante)->data(kTexteDeLaLigne).toString();
  MontrerColonne();
  for (int i = 0; i < ui_->ListTextes->count(); ++i)
    if (ui_->ListTextes->item(i)->data(kTexteDeLaLigne).toString() == gardee) ui_->ListTextes->setCurrentRow(i);
}

void ApercuImport::DeplacerTexte(int pas) {
  const int ligne = ui_->ListTextes->currentRow();
  const int cible = ligne + pas;
  if (ligne < 0 || cible < 0 || cible >= ui_->ListTextes->count()) return;
  {
    const QSignalBlocker silence(ui_->ListTextes);
    ui_->ListTextes->insertItem(cible, ui_->ListTextes->takeItem(ligne));
    ui_->ListTextes->setCurrentRow(cible);
    ui_->ComboOrdre->setCurrentIndex(kCeluiDeLaListe);
  }
  LireTextes();
}

void ApercuImport::LireClasses() {
  if (montre_ || !ColonneChoisie()) return;
  ChoixDeColonne choix = preparation_.Choix()[Colonne()];
  choix.bornes.clear();
  choix.groupes = 0;
  if (ui_->OptGroupes->isChecked()) {
    choix.groupes = ui_->SpinGroupes->value();
  } else {
    // Without bounds the import is refused: those of an earlier keystroke are not what the field says.
    choix.bornes = capture::BornesDe(DepuisQt(ui_->TextBornes->text())).value_or(std::vector<double>{});
  }
  const bool sansBornes = choix.bornes.empty() && choix.groupes == 0;
  preparation_.ChangerChoix(Colonne(), std::move(choix));
  ChoixChange();
  if (sansBornes) ui_->LabelClasses->setText(QStringLiteral("Entrez des nombres croissants : 15 25 35 50"));
  else MontrerLibelles();
}

void ApercuImport::ChoixChange() {
  colonnes_->Rafraichir();
  lignes_->Relire();
  if (ColonneChoisie())
    ui_->LabelDevenir->setText(
        VersQt(capture::Devenir(preparation_.Choix()[Colonne()], preparation_.Colonnes()[Colonne()])));
  MontrerBilan();
}

}  // namespace quelvar::forms
