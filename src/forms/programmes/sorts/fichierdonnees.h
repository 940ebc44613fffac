// The box "Changer de fichier *.DAT" of the flat sort and the recoding.
#pragma once

#include <QCheckBox>
#include <optional>
#include <string>

#include "forms/pieces/commande.h"
#include "forms/services/services.h"

namespace quelvar::forms {

// The other data file that the user chooses, by its name alone when it is in the working directory; empty when none is
// asked for, nothing when the choice is cancelled.
std::optional<std::string> ChoisirFichierDeDonnees(const Services& services, bool autre);

// "Voir la commande" of a form whose file is chosen when its run starts, if the box asks for another one: what is still
// to be said stands behind the line.
template <class O, class F>
void RelierCommandeAvecFichier(QPushButton& lancer, const Description<O>& programme, const Contexte& contexte,
                               F options, const QCheckBox& autre) {
  AjouterVoirLaCommande(lancer, [&programme, &contexte, options, &autre] {
    std::string ligne = CommandeEquivalente(programme, contexte.generique, contexte.niveau, options());
    if (autre.isChecked()) ligne += "  # et donnees=FICHIER, le fichier choisi au lancement";
    return ligne;
  });
}

}  // namespace quelvar::forms
