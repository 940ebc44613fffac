#include "forms/images/sortiesdessin.h"

#include <QFileInfo>

#include "forms/cadre/dialogue_qt.h"
#include "forms/images/rendudessin.h"
#include "forms/texte/impression.h"
#include "forms/texte/texte_qt.h"

namespace quelvar::forms {

namespace {

void Enregistrer(QWidget& forme, Services& services, const QString& fichier, const Dessin& dessin, int resolution) {
  if (!EnregistrerDessin(fichier, dessin, resolution)) {
    services.ecran.demander(Joindre({"Le graphique n'a pas pu être enregistré sous le nom : "_w, DepuisQt(fichier)}),
                            Boutons::Ok);
    return;
  }
  const std::string nom = TexteDe(CheminDepuisQt(fichier).filename());
  forme.setWindowTitle(VersQt(nom));
  services.ecran.demander(Joindre({"Graphique enregistré sous le nom : "_w, nom}), Boutons::Ok);
}

// Empty when the user gave up.
QString FichierChoisi(QWidget& forme, const QString& propose) {
  QString choisi;
  const QString fichier = ChoisirAEcrire(
      &forme,
      {QStringLiteral("Enregistrer le graphique"), propose, QStringLiteral("PNG|*.png|SVG|*.svg|PDF|*.pdf|BMP|*.bmp")},
      &choisi);
  if (fichier.isEmpty() || !QFileInfo(fichier).suffix().isEmpty()) return fichier;
  return fichier + u'.' + choisi.left(3).toLower();
}

}  // namespace

void RelierSorties(QWidget& forme, Services& services, const VueDessin& vue, const Contexte& contexte,
                   std::string_view suffixe, const BoutonsDessin& boutons, std::function<int()> resolution) {
  const std::string usuel = contexte.Nom(Joindre({suffixe, ".bmp"}));
  const Chemin propose = contexte.repertoire / CheminDe(contexte.Nom(Joindre({suffixe, ".png"})));
  const auto enregistrer = [&forme, &services, &vue, resolution = std::move(resolution)](const QString& fichier) {
    Enregistrer(forme, services, fichier, vue.Contenu(), resolution());
  };
  QObject::connect(&boutons.enregistrer, &QAbstractButton::clicked, &forme,
                   [enregistrer, usuel, repertoire = contexte.repertoire] {
                     enregistrer(CheminVersQt(CheminDEcriture(repertoire, usuel)));
                   });
  QObject::connect(&boutons.enregistrerSous, &QAbstractButton::clicked, &forme, [enregistrer, &forme, propose] {
    const QString fichier = FichierChoisi(forme, CheminVersQt(propose));
    if (!fichier.isEmpty()) enregistrer(fichier);
  });
  QObject::connect(&boutons.imprimer, &QAbstractButton::clicked, &forme, [&forme, &services, &vue] {
    if (!ImprimerDessin(&forme, vue.Contenu())) services.ecran.demander(kPasDImprimante, Boutons::Ok);
  });
}

}  // namespace quelvar::forms
