#include "forms/programmes/factor/frmsitrie.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "core/texte/nombres.h"
#include "factor/analyse/anecar.h"
#include "forms/texte/texte_qt.h"
#include "ui_frmsitrie.h"

namespace quelvar::forms {

namespace {

const QString kMoyenne = QStringLiteral("Moyenne");

int SeuilDe(const QLineEdit& champ) {
  const QString texte = champ.text().trimmed();
  if (texte.compare(kMoyenne, Qt::CaseInsensitive) == 0) return factor::kSeuilMoyen;
  using Limites = std::numeric_limits<std::int16_t>;
  return Entier16(std::clamp<double>(ValeurDe(DepuisQt(texte)), Limites::min(), Limites::max()));
}

}  // namespace

frmSiTrié::frmSiTrié(QWidget& parent, QWidget& avant) : QWidget(&parent), ui_(std::make_unique<Ui::frmSiTrié>()) {
  ui_->setupUi(this);
  for (QLineEdit* seuil : {ui_->TextBoxCTRL, ui_->TextBoxCTRC}) seuil->setMaxLength(static_cast<int>(kMoyenne.size()));
  QWidget::setTabOrder(&avant, ui_->CaseLignes);
  QWidget::setTabOrder(ui_->CaseLignes, ui_->TextBoxCTRL);
  QWidget::setTabOrder(ui_->TextBoxCTRL, ui_->TextBoxCTRC);
}

frmSiTrié::~frmSiTrié() = default;

void frmSiTrié::Ouvrir(bool avecCaseLignes) {
  ui_->CaseLignes->setVisible(avecCaseLignes);
  for (QLineEdit* seuil : {ui_->TextBoxCTRL, ui_->TextBoxCTRC}) seuil->setText(kMoyenne);
  show();
}

int frmSiTrié::SeuilLignes() const { return SeuilDe(*ui_->TextBoxCTRL); }
int frmSiTrié::SeuilColonnes() const { return SeuilDe(*ui_->TextBoxCTRC); }

}  // namespace quelvar::forms
