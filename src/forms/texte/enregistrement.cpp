#include "forms/texte/enregistrement.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include "core/panne/erreur.h"
#include "core/programme/lieunomme.h"
#include "forms/qt/texte.h"
#include "forms/services/sauvegarde.h"
#include "forms/texte/impression.h"

namespace quelvar::forms {

namespace {

// A chosen name, and whether the box of the choice has asked about the file that bears it.
struct NomChoisi {
  Chemin fichier;
  bool demande = true;
};

// `filtre` as Qt writes it: "PNG (*.png *.PNG)".
NomChoisi Completer(const QString& choisi, const QString& filtre, SansExtension regle) {
  static const QRegularExpression premiere(QStringLiteral("\\(\\*(\\.\\w+)"));
  const QRegularExpressionMatch extension = premiere.match(filtre);
  if (regle == SansExtension::Rien || !QFileInfo(choisi).suffix().isEmpty() || !extension.hasMatch())
    return {CheminDepuisQt(choisi)};
  return {CheminDepuisQt(choisi + extension.captured(1)), false};
}

bool AccepteDeRemplacer(QWidget* fenetre, const Chemin& fichier) {
  std::error_code absent;
  if (!std::filesystem::exists(fichier, absent)) return true;
  return DemanderReponse(fenetre,
                         QStringLiteral("Le fichier %1 existe déjà : le remplacer ?")
                             .arg(QDir::toNativeSeparators(CheminVersQt(fichier))),
                         Boutons::OuiNon) == Reponse::Oui;
}

}  // namespace

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
  QString filtre;
  const QString choisi = ChoisirAEcrire(fenetre, enregistrement.demande, &filtre);
  if (choisi.isEmpty()) return std::nullopt;
  const NomChoisi nom = Completer(choisi, filtre, enregistrement.sansExtension);
  if (!nom.demande && !AccepteDeRemplacer(fenetre, nom.fichier)) return std::nullopt;
  bool permis = true;
  const auto ecrire = [&] {
    permis = !enregistrement.permis || enregistrement.permis(nom.fichier);
    if (permis) enregistrement.ecrire(nom.fichier);
  };
  const bool ecrit = EcrireOuDire(fenetre, nom.fichier, ecrire, enregistrement.consolation);
  return ecrit && permis ? std::optional(nom.fichier) : std::nullopt;
}

std::optional<QString> EnregistrerEnPdf(QWidget* fenetre, const QString& propose, const QString& texte,
                                        const QString& titre) {
  const std::optional<Chemin> ecrit = EnregistrerSous(
      fenetre,
      {{QStringLiteral("Imprimer dans un fichier PDF"), propose, QStringLiteral("Fichiers PDF *.pdf|*.pdf")},
       {},
       [&](const Chemin& fichier) { RemplacerFichier(fichier, PdfDuTexte(texte, titre), Nature::Refaisable); }});
  return ecrit ? std::optional(CheminVersQt(*ecrit)) : std::nullopt;
}

}  // namespace quelvar::forms
