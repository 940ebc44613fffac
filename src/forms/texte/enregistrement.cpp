#include "forms/texte/enregistrement.h"

#include <QDir>

#include "core/programme/erreur.h"
#include "core/programme/lieunomme.h"
#include "forms/texte/impression.h"
#include "forms/texte/texte_qt.h"

namespace quelvar::forms {

bool EcrireOuDire(QWidget* fenetre, const Chemin& fichier, const std::function<void()>& ecrire,
                  std::string_view consolation) {
  try {
    ecrire();
    return true;
  } catch (const Erreur& erreur) {
    const std::string texte = Joindre({"Le fichier ", DepuisQt(QDir::toNativeSeparators(CheminVersQt(fichier))),
                                       " ne peut pas être écrit : "_w, TexteErreurDuFichierNomme(erreur), consolation});
    DemanderReponse(fenetre, VersQt(texte).remove(u'\r'), Boutons::Ok);
    return false;
  }
}

std::optional<Chemin> EnregistrerSous(QWidget* fenetre, const Enregistrement& enregistrement) {
  const QString choisi = ChoisirAEcrire(fenetre, enregistrement.demande);
  if (choisi.isEmpty()) return std::nullopt;
  const Chemin fichier = CheminDepuisQt(choisi);
  bool permis = true;
  const bool ecrit = EcrireOuDire(
      fenetre, fichier,
      [&] {
        permis = !enregistrement.permis || enregistrement.permis(fichier);
        if (permis) enregistrement.ecrire(fichier);
      },
      enregistrement.consolation);
  return ecrit && permis ? std::optional(fichier) : std::nullopt;
}

void EcrireTexte(const Chemin& fichier, std::string_view octets) {
  Remplacement remplacement(fichier, Nature::Unique);
  remplacement.Fichier().Ecrire(octets);
  remplacement.Valider();
}

std::optional<QString> EnregistrerEnPdf(QWidget* fenetre, const QString& propose, const QString& texte,
                                        const QString& titre) {
  const std::optional<Chemin> ecrit = EnregistrerSous(
      fenetre, {{QStringLiteral("Imprimer dans un fichier PDF"), propose, QStringLiteral("Fichiers PDF *.pdf|*.pdf")},
                {},
                [&](const Chemin& fichier) {
                  if (!EcrirePdf(CheminVersQt(fichier), texte, titre)) throw Erreur(kAccesFichier);
                }});
  return ecrit ? std::optional(CheminVersQt(*ecrit)) : std::nullopt;
}

}  // namespace quelvar::forms
