#include "forms/images/sortiesdessin.h"

#include <utility>

#include "forms/images/rendudessin.h"
#include "forms/qt/imprimante.h"
#include "forms/qt/texte.h"
#include "forms/services/sauvegarde.h"
#include "forms/texte/enregistrement.h"

namespace quelvar::forms {

namespace {

void Annoncer(QWidget& forme, const Services& services, const Chemin& fichier) {
  const std::string nom = TexteDe(fichier.filename());
  forme.setWindowTitle(VersQt(nom));
  services.ecran.demander(Joindre({"Graphique enregistré sous le nom : "_w, nom}), Boutons::Ok);
}

}  // namespace

void RelierSorties(QWidget& forme, Services& services, const VueDessin& vue, const Contexte& contexte,
                   std::string_view suffixe, const BoutonsDessin& boutons, std::function<int()> resolution) {
  const auto ecrire = [&vue, resolution = std::move(resolution)](const Chemin& fichier) {
    RemplacerFichier(fichier, OctetsDuDessin(fichier, vue.Contenu(), resolution()), Nature::Refaisable);
  };
  const auto enregistrer = [&forme, &services, ecrire, repertoire = contexte.repertoire,
                            usuel = contexte.Nom(Joindre({suffixe, ".bmp"}))] {
    const Chemin fichier = CheminDEcriture(repertoire, usuel);
    if (EcrireOuDire(&forme, fichier, [&] { ecrire(fichier); })) Annoncer(forme, services, fichier);
  };
  const auto enregistrerSous = [&forme, &services, ecrire,
                                propose = contexte.repertoire / CheminDe(contexte.Nom(Joindre({suffixe, ".png"})))] {
    Enregistrement enregistrement{
        {QStringLiteral("Enregistrer le graphique"), CheminVersQt(propose), VersQt(kFiltresDesImages)}, {}, ecrire};
    enregistrement.sansExtension = SansExtension::CelleDuFiltre;
    if (const auto fichier = EnregistrerSous(&forme, enregistrement)) Annoncer(forme, services, *fichier);
  };
  const auto imprimer = [&forme, &services, &vue] {
    if (!DemanderImpressionDuDessin(&forme, vue.Contenu())) services.ecran.demander(kPasDImprimante, Boutons::Ok);
  };
  QObject::connect(&boutons.enregistrer, &QAbstractButton::clicked, &forme, enregistrer);
  QObject::connect(&boutons.enregistrerSous, &QAbstractButton::clicked, &forme, enregistrerSous);
  QObject::connect(&boutons.imprimer, &QAbstractButton::clicked, &forme, imprimer);
}

}  // namespace quelvar::forms
