#include "forms/editeur/frmfind.h"

#include "ui_frmfind.h"

namespace quelvar::forms {

frmFind::frmFind(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::frmFind>()) {
  ui_->setupUi(this);
  connect(ui_->BoutSuivant, &QPushButton::clicked, this, [this] { emit Cherche(false); });
  connect(ui_->BoutPrecedent, &QPushButton::clicked, this, [this] { emit Cherche(true); });
  connect(ui_->BoutRemplacer, &QPushButton::clicked, this, &frmFind::Remplace);
  connect(ui_->BoutToutRemplacer, &QPushButton::clicked, this, &frmFind::RemplaceTout);
  connect(ui_->BoutFermer, &QPushButton::clicked, this, &frmFind::close);
  const auto permettre = [this] {
    const bool possible = !ui_->TextCherche->text().isEmpty();
    for (QPushButton* bouton : {ui_->BoutSuivant, ui_->BoutPrecedent, ui_->BoutRemplacer, ui_->BoutToutRemplacer})
      bouton->setEnabled(possible);
    Dire({});
  };
  connect(ui_->TextCherche, &QLineEdit::textChanged, this, permettre);
  permettre();
}

frmFind::~frmFind() = default;

OptionsRecherche frmFind::Options() const {
  return {ui_->TextCherche->text(), ui_->ChkCasse->isChecked(), ui_->ChkMot->isChecked()};
}

QString frmFind::Remplacement() const { return ui_->TextRemplace->text(); }

bool frmFind::Boucle() const { return ui_->ChkBoucle->isChecked(); }

void frmFind::Ouvrir(const QString& motif, bool remplacer) {
  setWindowTitle(remplacer ? QStringLiteral("Rechercher et remplacer") : QStringLiteral("Rechercher"));
  for (QWidget* controle : std::initializer_list<QWidget*>{ui_->LibelleRemplace, ui_->TextRemplace, ui_->BoutRemplacer,
                                                           ui_->BoutToutRemplacer})
    controle->setVisible(remplacer);
  if (!motif.isEmpty()) ui_->TextCherche->setText(motif);
  Dire({});
  adjustSize();
  show();
  raise();
  activateWindow();
  ui_->TextCherche->setFocus();
  ui_->TextCherche->selectAll();
}

void frmFind::Dire(const QString& phrase) { ui_->LabelResultat->setText(phrase); }

}  // namespace quelvar::forms
