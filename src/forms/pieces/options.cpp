#include "forms/pieces/options.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QMap>
#include <QTabWidget>
#include <algorithm>

#include "core/chiffres/nombres.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

namespace {

template <class W>
W* ControleDe(const QWidget& formulaire, const Controle& controle) {
  return formulaire.findChild<W*>(VersQt(controle.nom));
}

// A number that stands for none given is not shown.
void MontrerNombre(QLineEdit& champ, const Option& option, const std::string& valeur) {
  champ.setMaxLength(static_cast<int>(std::to_string(option.maximum).size()));
  if (valeur != "0") champ.setText(VersQt(valeur));
}

// The radio buttons of one frame: the first one, and whether one of them is ticked.
struct Groupe {
  QAbstractButton* premier = nullptr;
  bool choisi = false;
};

// Whether the values of the boxes stand side by side, separated by commas: every option that is no choice of one word.
bool EstUneListe(const Option& option) {
  return option.genre == Option::Genre::Noms || option.genre == Option::Genre::Libre;
}

// Whether a button that stands for `sienne` is ticked when the option has that value.
bool EstCoche(const Option& option, const std::string& sienne, const std::string& valeur) {
  if (!EstUneListe(option)) return sienne == valeur;
  const std::vector<std::string> valeurs = NomsSepares(valeur);
  return std::ranges::find(valeurs, sienne) != valeurs.end();
}

// The tabs whose page this is; nullptr of any other control.
const QTabWidget* OngletsDe(const QWidget& page) {
  const QWidget* const pile = page.parentWidget();
  return pile == nullptr ? nullptr : qobject_cast<const QTabWidget*>(pile->parentWidget());
}

// A page that lies behind another one can be seen, unless its tab is hidden.
bool PeutSeVoir(const QWidget& controle, const QWidget& formulaire) {
  for (const QWidget* ici = &controle; ici != nullptr && ici != &formulaire; ici = ici->parentWidget()) {
    const QTabWidget* const onglets = OngletsDe(*ici);
    const int page = onglets == nullptr ? -1 : onglets->indexOf(ici);
    if (page >= 0 ? !onglets->isTabVisible(page) : ici->isHidden()) return false;
  }
  return true;
}

bool Parle(const QWidget& formulaire, const QWidget& controle) {
  return PeutSeVoir(controle, formulaire) && controle.isEnabledTo(&formulaire);
}

// A box that is ticked by default says, when it is not, the first other word of its option.
std::optional<std::string> SansSaCoche(const Option& option, const std::string& sienne, const std::string& defaut) {
  if (sienne != defaut) return std::nullopt;
  const auto autre =
      std::ranges::find_if(option.mots, [&](const std::string& mot) { return !EgalSansCasse(mot, sienne); });
  return autre == option.mots.end() ? std::nullopt : std::optional(*autre);
}

// What a field that holds a number or a text says; an empty one, of an option that need not be given, nothing. The name
// of a file keeps its blanks.
std::optional<std::string> ValeurDuChamp(const QLineEdit& champ, const Option& option, const std::string& defaut) {
  const bool fichier = option.etrangers == Option::Etrangers::Gardes;
  const std::string texte = DepuisQt(fichier ? champ.text() : champ.text().trimmed());
  if (texte.empty() && defaut.empty()) return std::nullopt;
  if (option.genre == Option::Genre::Entier) return Nombre(EntierDuChamp(champ, option));
  return option.genre == Option::Genre::Texte ? std::optional(texte) : std::nullopt;
}

}  // namespace

void PoserOption(const QWidget& formulaire, const Option& option, const std::string& valeur) {
  QMap<const QWidget*, Groupe> groupes;
  for (const Controle& controle : option.controles) {
    auto* const bouton = ControleDe<QAbstractButton>(formulaire, controle);
    if (bouton != nullptr && !controle.valeur.empty()) {
      const bool coche = EstCoche(option, controle.valeur, valeur);
      if (coche || !bouton->autoExclusive()) bouton->setChecked(coche);
      if (!bouton->autoExclusive()) continue;
      Groupe& groupe = groupes[bouton->parentWidget()];
      if (groupe.premier == nullptr) groupe.premier = bouton;
      groupe.choisi = groupe.choisi || coche;
    } else if (auto* const champ = ControleDe<QLineEdit>(formulaire, controle); champ != nullptr) {
      if (option.genre == Option::Genre::Entier) MontrerNombre(*champ, option, valeur);
    } else if (auto* const liste = ControleDe<QComboBox>(formulaire, controle); liste != nullptr) {
      liste->setCurrentText(VersQt(valeur));
    }
  }
  if (option.defaut.empty()) return;  // one that the user has to choose
  for (const Groupe& groupe : groupes)
    if (!groupe.choisi) groupe.premier->setChecked(true);
}

std::optional<std::string> ValeurMontree(const QWidget& formulaire, const Option& option, const std::string& defaut) {
  std::optional<std::string> valeur;
  for (const Controle& controle : option.controles) {
    const auto* const place = ControleDe<QWidget>(formulaire, controle);
    if (place == nullptr || !Parle(formulaire, *place)) continue;
    if (const auto* const bouton = qobject_cast<const QAbstractButton*>(place); bouton != nullptr) {
      if (controle.valeur.empty()) {  // a box that opens a choice: none is made before it is ticked
        if (!bouton->isChecked()) return std::nullopt;
        continue;
      }
      if (bouton->isChecked())
        valeur = valeur && EstUneListe(option) ? Joindre({*valeur, ",", controle.valeur}) : controle.valeur;
      else if (!bouton->autoExclusive() && !valeur) valeur = SansSaCoche(option, controle.valeur, defaut);
    } else if (const auto* const champ = qobject_cast<const QLineEdit*>(place); champ != nullptr) {
      valeur = ValeurDuChamp(*champ, option, defaut);
    } else if (const auto* const liste = qobject_cast<const QComboBox*>(place); liste != nullptr) {
      valeur = DepuisQt(liste->currentText());
    }
  }
  return valeur;
}

void RelierBoutons(const QWidget& formulaire, const std::vector<Option>& options, const std::function<void()>& effet) {
  for (const Option& option : options)
    for (const Controle& controle : option.controles)
      if (const auto* const bouton = ControleDe<QAbstractButton>(formulaire, controle);
          bouton != nullptr && !controle.valeur.empty())
        QObject::connect(bouton, &QAbstractButton::toggled, bouton, effet);
}

double NombreDuChamp(const QLineEdit& champ, const Option& option) {
  const auto minimum = static_cast<double>(option.minimum);
  const auto maximum = static_cast<double>(option.maximum);
  return std::clamp(ValeurDe(DepuisQt(champ.text())), minimum, maximum);
}

int EntierDuChamp(const QLineEdit& champ, const Option& option) {
  return static_cast<int>(NombreDuChamp(champ, option));
}

}  // namespace quelvar::forms
