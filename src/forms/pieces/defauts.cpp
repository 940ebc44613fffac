#include "forms/pieces/defauts.h"

#include <QAbstractButton>
#include <QLineEdit>

#include "forms/texte/texte_qt.h"

namespace quelvar::forms {

namespace {

// A number that stands for none given is not shown.
void Montrer(QLineEdit& champ, const Option& option, const std::string& valeur) {
  if (option.genre != Option::Genre::Entier) return;
  champ.setMaxLength(static_cast<int>(std::to_string(option.maximum).size()));
  if (valeur != "0") champ.setText(VersQt(valeur));
}

}  // namespace

void PoserDefaut(const QWidget& formulaire, const Option& option, const std::string& valeur) {
  QAbstractButton* premier = nullptr;  // of the radio buttons, and whether one of them is ticked
  bool choisi = false;
  for (const Controle& controle : option.controles) {
    auto* const place = formulaire.findChild<QWidget*>(VersQt(controle.nom));
    if (auto* const bouton = qobject_cast<QAbstractButton*>(place); bouton != nullptr && !controle.valeur.empty()) {
      const bool coche = controle.valeur == valeur;
      if (coche || !bouton->autoExclusive()) bouton->setChecked(coche);
      if (bouton->autoExclusive() && premier == nullptr) premier = bouton;
      choisi = choisi || coche;
    } else if (auto* const champ = qobject_cast<QLineEdit*>(place); champ != nullptr) {
      Montrer(*champ, option, valeur);
    }
  }
  if (premier != nullptr && !choisi) premier->setChecked(true);
}

}  // namespace quelvar::forms
