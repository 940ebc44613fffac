#include "forms/programmes/factor/frmsitrie.h"

#include "factor/analyse/anecar_options.h"
#include "forms/qt/texte.h"
#include "ui_frmsitrie.h"

namespace quelvar::forms {

namespace {

int SeuilDe(const QLineEdit& champ) { return factor::SeuilTape(DepuisQt(champ.text().trimmed())); }

}  // namespace

frmSiTrié::frmSiTrié(QWidget& parent, QWidget& avant) : QWidget(&parent), ui_(std::make_unique<Ui::frmSiTrié>()) {
  ui_->setupUi(this);
  for (QLineEdit* seuil : {ui_->TextBoxCTRL, ui_->TextBoxCTRC})
    seuil->setMaxLength(static_cast<int>(factor::kMotDeLaMoyenne.size()));
  QWidget::setTabOrder(&avant, ui_->CaseLignes);
  QWidget::setTabOrder(ui_->CaseLignes, ui_->TextBoxCTRL);
  QWidget::setTabOrder(ui_->TextBoxCTRL, ui_->TextBoxCTRC);
}

frmSiTrié::~frmSiTrié() = default;

void frmSiTrié::Ouvrir(bool avecCaseLignes) {
  ui_->CaseLignes->setVisible(avecCaseLignes);
  for (QLineEdit* seuil : {ui_->TextBoxCTRL, ui_->TextBoxCTRC}) seuil->setText(VersQt(factor::kMotDeLaMoyenne));
  show();
}

int frmSiTrié::SeuilLignes() const { return SeuilDe(*ui_->TextBoxCTRL); }
int frmSiTrié::SeuilColonnes() const { return SeuilDe(*ui_->TextBoxCTRC); }

}  // namespace quelvar::forms
