#include "forms/programmes/text/suplmot.h"

#include <QGuiApplication>
#include <QMouseEvent>

#include "forms/pieces/clavier.h"
#include "forms/pieces/commande.h"
#include "forms/qt/policefixe.h"
#include "forms/qt/texte.h"
#include "text/gestion/motsdeslignes.h"
#include "text/gestion/options.h"
#include "ui_suplmot.h"

namespace quelvar::forms {

namespace {

std::size_t Rang(int ligne) { return static_cast<std::size_t>(ligne); }

}  // namespace

SuplMot::SuplMot(Services& services)
    : Forme(services),
      ouverte_(text::OuvrirSuplMot(contexte_)),
      desFichiers_(ouverte_.table),
      ui_(std::make_unique<Ui::SuplMot>()) {
  ui_->setupUi(this);
  PreparerEdition();
  for (QListWidget* liste : {ui_->ListColSuppl, ui_->ListLignSuppl}) liste->setFont(PoliceFixe());
  connect(ui_->ListColSuppl, &QListWidget::itemClicked, this, &SuplMot::BasculerColonnes);
  // A click flips its row, with the Shift key the rows up to it; a list that the mouse is drawn over flips at its
  // release.
  connect(ui_->ListLignSuppl, &QListWidget::itemClicked, this, [this](const QListWidgetItem* element) {
    if (QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier)) BasculerLigne(*element);
    else BasculerLignes();
  });
  ui_->ListLignSuppl->viewport()->installEventFilter(this);
  RelierTouches(*ui_->ListColSuppl, {Qt::Key_Space}, [this] { BasculerColonnes(); });
  RelierTouches(*ui_->ListLignSuppl, {Qt::Key_Space}, [this] { BasculerLignes(); });
  connect(ui_->BoutEnreg, &QPushButton::clicked, this, &SuplMot::Enregistrer);
  RelierCommandeDite(*ui_->BoutEnreg, text::DescriptionSuplMot(), contexte_,
                     [this] { return text::OptionsDeLaTable(desFichiers_, ouverte_.table); });
  RelierQuitter(*ui_->BoutQuitter);
  AuDepartDireLArret();
  RelierAide(*ui_->BoutAide, "mnuASupLignes");
  const bool ouvert = ouverte_.message.empty();
  ui_->TextMsg->setText(EnUnTexte(ouverte_.message));
  ui_->TextMsg->setVisible(!ouvert);
  for (QPushButton* bouton : {ui_->BoutEnreg, ui_->BoutSuivant, ui_->BoutSuivantLigne}) bouton->setEnabled(ouvert);
  for (std::size_t i = 0; ouvert && i < ouverte_.table.Colonnes(); ++i)
    ui_->ListColSuppl->addItem(VersQt(text::TexteDeColonne(ouverte_.table, i)));
  for (std::size_t i = 0; ouvert && i < ouverte_.table.lignes.size(); ++i)
    ui_->ListLignSuppl->addItem(VersQt(text::TexteDeLigne(ouverte_.table, i)));
  if (!ouvert) return;
  colonnes_->Remplir();
  lignes_->Remplir();
}

SuplMot::~SuplMot() = default;

void SuplMot::PreparerEdition() {
  text::TableGeree& table = ouverte_.table;
  colonnes_ = new EditionListe(*this, *ui_->ListRecapCol, *ui_->TextModCol, *ui_->BoutSuivant,
                               {[&table] { return static_cast<int>(table.Colonnes()); },
                                [&table](int i) { return VersQt(text::TexteDeColonne(table, Rang(i))); },
                                [&table](int i) { return VersQt(IntituleDeTexte(table.mod.textes[Rang(i)])); },
                                [this, &table](int i, const QString& intitule) {
                                  std::string& texte = table.mod.textes[Rang(i)];
                                  texte = TexteDeModalite(NomDeTexte(texte), MarqueDeTexte(texte), DepuisQt(intitule));
                                  modifie_ = true;
                                  MontrerColonne(i);
                                  return QString();
                                }});
  lignes_ = new EditionListe(*this, *ui_->ListRecapLign, *ui_->TextModLign, *ui_->BoutSuivantLigne,
                             {[&table] { return static_cast<int>(table.lignes.size()); },
                              [&table](int i) { return VersQt(text::TexteDeLigne(table, Rang(i))); },
                              [&table](int i) { return VersQt(table.lignes[Rang(i)].intitule); },
                              [this, &table](int i, const QString& intitule) {
                                text::RenommerLigne(table.lignes[Rang(i)], DepuisQt(intitule));
                                modifie_ = true;
                                MontrerLigne(i);
                                return QString();
                              }});
  ui_->BoutSuivant->setDefault(true);
}

void SuplMot::MontrerColonne(int colonne) {
  ui_->ListColSuppl->item(colonne)->setText(VersQt(text::TexteDeColonne(ouverte_.table, Rang(colonne))));
}

void SuplMot::MontrerLigne(int ligne) {
  ui_->ListLignSuppl->item(ligne)->setText(VersQt(text::TexteDeLigne(ouverte_.table, Rang(ligne))));
}

void SuplMot::BasculerColonnes() {
  const int colonne = ui_->ListColSuppl->currentRow();
  if (colonne < 0) return;
  text::BasculerColonne(ouverte_.table, Rang(colonne));
  modifie_ = true;
  MontrerColonne(colonne);
  colonnes_->Montrer(colonne);
}

void SuplMot::BasculerLigne(const QListWidgetItem& element) {
  const int ligne = ui_->ListLignSuppl->row(&element);
  text::BasculerLigne(ouverte_.table, Rang(ligne));
  modifie_ = true;
  MontrerLigne(ligne);
  lignes_->Montrer(ligne);
}

void SuplMot::BasculerLignes() {
  for (const QListWidgetItem* element : ui_->ListLignSuppl->selectedItems()) BasculerLigne(*element);
}

bool SuplMot::eventFilter(QObject* objet, QEvent* evenement) {
  const QEvent::Type type = evenement->type();
  if (objet == ui_->ListLignSuppl->viewport() &&
      (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease)) {
    const auto& souris = static_cast<const QMouseEvent&>(*evenement);
    const QListWidgetItem* sous = ui_->ListLignSuppl->itemAt(souris.position().toPoint());
    if (type == QEvent::MouseButtonPress) appuyee_ = sous;
    else if (souris.button() == Qt::LeftButton && appuyee_ != nullptr && sous != appuyee_) BasculerLignes();
  }
  return Forme::eventFilter(objet, evenement);
}

void SuplMot::Enregistrer() {
  if (!colonnes_->Ranger() || !lignes_->Ranger()) return;
  if (const std::string refus = text::RefusDeTableChangee(contexte_, desFichiers_); !refus.empty()) {
    ui_->TextMsg->setText(VersQt(refus));
    ui_->TextMsg->setVisible(true);
    return services_.ecran.biper();
  }
  const text::TableGeree table = ouverte_.table;
  if (LancerEtape([&](const Contexte& sur) { return text::EnregistrerSuplMot(sur, table); }) != Fin::Normale) return;
  modifie_ = false;
  accept();
}

void OuvrirSuplMot(Services& services) {
  if (FairePlace<SuplMot>(services)) Montrer<SuplMot>(services);
}

}  // namespace quelvar::forms
