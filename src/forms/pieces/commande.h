// The button "Voir la commande" of an option form: the line of quelvar-batch that would do what the form is about to
// do.
#pragma once

#include <QPushButton>
#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "core/options/description.h"
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

// The same for a form that can do what no options say: `options()` then gives none, and the line says so.
template <class O, class F>
void RelierCommandeDite(QPushButton& lancer, const Description<O>& programme, const Contexte& contexte, F options) {
  AjouterVoirLaCommande(lancer, [&programme, &contexte, options] {
    const std::optional<O> dites = options();
    if (!dites) return std::string("(aucune : deux lignes ont le même nom, ou un codage n'est pas complet)"_w);
    return CommandeEquivalente(programme, contexte.generique, contexte.niveau, *dites);
  });
}

}  // namespace quelvar::forms
