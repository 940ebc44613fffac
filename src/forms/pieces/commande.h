// The button "Voir la commande" of an option form: the line of quelvar-batch that would do what the form is about to
// do.
#pragma once

#include <QPushButton>
#include <QString>
#include <functional>
#include <string>

#include "core/options/description.h"
#include "core/options/dites.h"
#include "core/programme/programme.h"

namespace quelvar::forms {

// Adds the button beside the one that launches. `commande` gives the line as the controls stand (code page). A form
// that launches several programs names the button and its caption for each.
struct BoutonDeCommande {
  QString nom = QStringLiteral("BoutCommande");
  QString texte = QStringLiteral("Voir la commande");
};
QPushButton& AjouterVoirLaCommande(QPushButton& lancer, std::function<std::string()> commande,
                                   const BoutonDeCommande& bouton = {});

// The same for the options of one program: `options()` gives them; the data set lives as long as the form.
template <class O, class F>
void RelierCommande(QPushButton& lancer, const Description<O>& programme, const Contexte& contexte, F options,
                    const BoutonDeCommande& bouton = {}) {
  AjouterVoirLaCommande(
      lancer,
      [&programme, &contexte, options] {
        return CommandeEquivalente(programme, contexte.generique, contexte.niveau, options());
      },
      bouton);
}

// The same for a form that can do what no options say: `options()` then gives the reason, which the line tells.
template <class O, class F>
void RelierCommandeDite(QPushButton& lancer, const Description<O>& programme, const Contexte& contexte, F options) {
  AjouterVoirLaCommande(lancer, [&programme, &contexte, options] {
    const OptionsDites<O> dites = options();
    if (!dites.options) return Joindre({"(aucune : ", dites.raison, ")"});
    return CommandeEquivalente(programme, contexte.generique, contexte.niveau, *dites.options);
  });
}

}  // namespace quelvar::forms
