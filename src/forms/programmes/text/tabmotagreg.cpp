#include "forms/programmes/text/tabmotagreg.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <iterator>

#include "forms/pieces/commande.h"
#include "forms/pieces/editionliste.h"
#include "forms/pieces/options.h"
#include "forms/programmes/text/concord.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"
#include "text/gestion/nomsdeslignes.h"
#include "text/gestion/options.h"
#include "ui_tabmotagreg.h"

namespace quelvar::forms {

namespace {

constexpr std::string_view kAideFacteur =
    "Le tri se fait par ordre décroissant des contributions du côté négatif du facteur, puis croissant du côté positif "
    "(ou l'inverse selon le choix de tri)\r\n"
    "Les intitulés sans valeur numérique correspondent à des lignes non existante dans le facteur"_w;

}  // namespace

TabMotAgreg::TabMotAgreg(Services& services)
    : Forme(services), ouverte_(text::OuvrirAgregation(contexte_)), ui_(std::make_unique<Ui::TabMotAgreg>()) {
  ui_->setupUi(this);
  ui_->ListLignSuppl->setFont(PoliceFixe());
  ui_->TextMsg->setText(EnUnTexte(ouverte_.message));
  for (QWidget* commande : std::initializer_list<QWidget*>{ui_->BtEnreg, ui_->BtTri, ui_->BtFin, ui_->BtConcord})
    commande->setEnabled(ouverte_.ouverte);
  ui_->OptFac->setEnabled(ouverte_.agregation.facteurs.has_value());
  ui_->TextNum->setEnabled(false);
  RelierTri();
  connect(ui_->ListLignSuppl, &QListWidget::itemSelectionChanged, this, &TabMotAgreg::Marquer);
  ui_->ListLignSuppl->viewport()->installEventFilter(this);
  connect(ui_->BtConcord, &QPushButton::clicked, this, &TabMotAgreg::MontrerConcordance);
  connect(ui_->BtEnreg, &QPushButton::clicked, this, &TabMotAgreg::EnregistrerLigne);
  connect(ui_->BtFin, &QPushButton::clicked, this, &TabMotAgreg::Terminer);
  ui_->BtEnreg->setDefault(true);
  RelierCommandeDite(*ui_->BtFin, text::DescriptionTabMotAgreg(), contexte_, [this] {
    return OptionsDites<text::OptionsTabMotAgreg>{gestes_, text::kLignesDuMemeNom};
  });
  RelierQuitter(*ui_->BtAnnuler);
  AuDepartDireLArret();
  RelierAide(*ui_->BoutAide, "mnuATabMotAgreg");
  MontrerLignes();
}

TabMotAgreg::~TabMotAgreg() = default;

void TabMotAgreg::RelierTri() {
  PoserDefauts(*this, text::DescriptionTriDeLignes());
  connect(ui_->OptFac, &QRadioButton::toggled, this, [this](bool choisi) {
    ui_->TextNum->setEnabled(choisi);
    ui_->TextAideTri->setText(choisi ? VersQt(kAideFacteur) : QString());
  });
  connect(ui_->BtTri, &QPushButton::clicked, this, &TabMotAgreg::Trier);
}

void TabMotAgreg::Dire(std::string_view texte) { ui_->TextMsg->setText(VersQt(texte)); }

void TabMotAgreg::MontrerLignes() {
  const QSignalBlocker silence(ui_->ListLignSuppl);
  ui_->ListLignSuppl->clear();
  for (text::LigneDeTable& ligne : ouverte_.agregation.table.lignes) {
    ligne.marquee = false;
    ui_->ListLignSuppl->addItem(VersQt(text::TexteDeRangee(ligne)));
  }
}

// The marks are the selection of the list.
void TabMotAgreg::Marquer() {
  std::vector<text::LigneDeTable>& lignes = ouverte_.agregation.table.lignes;
  for (int i = 0; i < ui_->ListLignSuppl->count(); ++i) {
    QListWidgetItem* element = ui_->ListLignSuppl->item(i);
    text::LigneDeTable& ligne = lignes[static_cast<std::size_t>(i)];
    if (ligne.marquee == element->isSelected()) continue;
    ligne.marquee = element->isSelected();
    element->setText(VersQt(text::TexteDeRangee(ligne)));
  }
}

void TabMotAgreg::NoterLAgregation() {
  const text::TableGeree& table = ouverte_.agregation.table;
  text::OptionsTabMotAgreg::Action geste{std::nullopt, DepuisQt(ui_->TextModLign->text()), {}};
  const text::NomsDesLignes noms(table.lignes);
  for (std::size_t i = 0; gestes_ && i < table.lignes.size(); ++i) {
    if (!table.lignes[i].marquee) continue;
    if (const std::optional<std::string> nom = noms.NomDe(i, table.lignes[i].intitule)) geste.lignes.push_back(*nom);
    else gestes_.reset();
  }
  if (gestes_) gestes_->actions.push_back(std::move(geste));
}

void TabMotAgreg::EnregistrerLigne() {
  // A demand without a row stands in the account; one without a name is not taken.
  if (!ui_->TextModLign->text().trimmed().isEmpty() || ui_->ListLignSuppl->selectedItems().isEmpty())
    NoterLAgregation();
  const std::string_view refus = text::Agreger(ouverte_.agregation, DepuisQt(ui_->TextModLign->text()));
  if (!refus.empty()) services_.ecran.biper();
  Dire(refus);
  if (!refus.empty()) return;
  ui_->TextModLign->clear();
  MontrerLignes();
  ui_->ListLignSuppl->scrollToBottom();
}

void TabMotAgreg::Trier() {
  const auto tri = OptionsDesControles(*this, text::DescriptionTriDeLignes());
  const std::vector<std::string> fautes = text::TrierLignes(ouverte_.agregation, tri, contexte_);
  ui_->TextMsg->setText(EnUnTexte(fautes));
  if (!fautes.empty()) return services_.ecran.biper();
  if (gestes_) gestes_->actions.push_back({tri, {}, {}});
  MontrerLignes();
}

void TabMotAgreg::Terminer() {
  const std::string refus = text::RefusDeTerminer(contexte_, ouverte_.agregation);
  if (!refus.empty()) {
    services_.ecran.biper();
    Dire(refus);
    return;
  }
  std::string nouveau;
  const std::optional<Fin> fin =
      LancerEtape([&](const Contexte& sur) { return text::TerminerAgregation(sur, ouverte_.agregation, nouveau); });
  if (fin != Fin::Normale) return;
  ouverte_.agregation.modifiee = false;
  Services& services = services_;
  accept();
  services.adopterGenerique(nouveau);
}

// A double click reads a word and leaves the choice of rows as it was before its first press.
bool TabMotAgreg::eventFilter(QObject* objet, QEvent* evenement) {
  const QEvent::Type type = evenement->type();
  if (objet != ui_->ListLignSuppl->viewport()) return Forme::eventFilter(objet, evenement);
  if (type == QEvent::MouseButtonPress) {
    choisies_.clear();
    for (int i = 0; i < ui_->ListLignSuppl->count(); ++i)
      if (ui_->ListLignSuppl->item(i)->isSelected()) choisies_.push_back(i);
  }
  if (type == QEvent::MouseButtonDblClick) {
    const auto place = static_cast<const QMouseEvent&>(*evenement).position().toPoint();
    const int ligne = ui_->ListLignSuppl->indexAt(place).row();
    doubleClicEnCours_ = ligne >= 0;
    if (ligne >= 0) LireLeMot(ligne);
    return doubleClicEnCours_;
  }
  if (type == QEvent::MouseButtonRelease && doubleClicEnCours_) {
    doubleClicEnCours_ = false;
    return true;
  }
  return Forme::eventFilter(objet, evenement);
}

void TabMotAgreg::LireLeMot(int ligne) {
  {
    const QSignalBlocker silence(ui_->ListLignSuppl);
    ui_->ListLignSuppl->clearSelection();
    for (const int choisie : choisies_) ui_->ListLignSuppl->item(choisie)->setSelected(true);
  }
  Marquer();
  OuvrirConcord(services_,
                {text::CherchesDeLaLigne(ouverte_.agregation.table.lignes[static_cast<std::size_t>(ligne)])});
}

// Of the rows that are marked, or else of the current one.
void TabMotAgreg::MontrerConcordance() {
  std::vector<text::MotsCherches> cherches;
  const std::vector<text::LigneDeTable>& lignes = ouverte_.agregation.table.lignes;
  for (const text::LigneDeTable& ligne : lignes)
    if (ligne.marquee) cherches.push_back(text::CherchesDeLaLigne(ligne));
  const int courante = ui_->ListLignSuppl->currentRow();
  if (cherches.empty() && courante >= 0)
    cherches.push_back(text::CherchesDeLaLigne(lignes[static_cast<std::size_t>(courante)]));
  OuvrirConcord(services_, std::move(cherches));
}

void OuvrirTabMotAgreg(Services& services) {
  if (FairePlace<TabMotAgreg>(services)) Montrer<TabMotAgreg>(services);
}

}  // namespace quelvar::forms
