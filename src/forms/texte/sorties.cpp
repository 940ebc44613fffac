#include "forms/texte/sorties.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <utility>

#include "core/fichiers/fichiers.h"
#include "core/programme/lieunomme.h"
#include "forms/cadre/dialogue_qt.h"
#include "forms/texte/impression.h"
#include "forms/texte/texte_qt.h"

namespace quelvar::forms {

SortiesTexte::SortiesTexte(QWidget& fenetre, Resultats& resultats, const Session& session, Dialogue& ecran,
                           std::function<void(const QString&)> annoncer)
    : fenetre_(fenetre), resultats_(resultats), session_(session), ecran_(ecran), annoncer_(std::move(annoncer)) {}

QString SortiesTexte::DansLeRepertoire(const QString& nom) const {
  return QDir(CheminVersQt(session_.repertoire)).filePath(nom);
}

// Asks before a file loses what the text box does not show.
bool SortiesTexte::PeutRemplacer(const Chemin& fichier) {
  if (fichier != resultats_.Fichier()) return true;
  const std::string nom = TexteDe(fichier.filename());
  if (resultats_.Partiel())
    return ecran_.demander(Joindre({"Le texte ne montre que le début du fichier "_w, nom,
                                    " : remplacer le fichier par ce texte ?"}),
                           Boutons::OuiNon) == Reponse::Oui;
  if (ComparerAvecDisque(fichier, resultats_.EtatDuFichier(), false) != SurDisque::Modifie) return true;
  return ecran_.demander(Joindre({"Le fichier ", nom, " a été modifié depuis son affichage : le remplacer ?"_w}),
                         Boutons::OuiNon) == Reponse::Oui;
}

void SortiesTexte::EnregistrerSous() {
  const QString choisi = QFileDialog::getSaveFileName(&fenetre_, QStringLiteral("Enregistrer sous"),
                                                      DansLeRepertoire(VersQt(session_.fichierAffiche)),
                                                      FiltreQt(QStringLiteral("Tous fichiers *.*|*.*")));
  if (choisi.isEmpty()) return;
  const Chemin fichier = CheminDepuisQt(choisi);
  try {
    if (!PeutRemplacer(fichier)) return;
    const std::string octets = resultats_.Texte().Octets();
    Remplacement remplacement(fichier, Nature::Unique);
    remplacement.Fichier().Ecrire(octets);
    remplacement.Valider();
    resultats_.NoterEnregistre(fichier, octets);
    annoncer_(QStringLiteral("Enregistré sous ") + choisi);
  } catch (const Erreur& erreur) {
    ecran_.demander(Joindre({"Le fichier ", DepuisQt(choisi), " ne peut pas être écrit : "_w,
                             TexteErreurDuFichierNomme(erreur), "\r\nLe texte affiché est conservé."_w}),
                    Boutons::Ok);
  }
}

void SortiesTexte::Imprimer() {
  if (!ImprimerParDialogue(&fenetre_, resultats_.Texte().toPlainText(), VersQt(session_.fichierAffiche)))
    ecran_.demander("Pas d'imprimante disponible (ou annulation)", Boutons::Ok);
}

void SortiesTexte::ImprimerEnPdf() {
  const QString nom = VersQt(session_.fichierAffiche);
  const QString propose = QFileInfo(nom).completeBaseName() + u'_' + QFileInfo(nom).suffix() + QStringLiteral(".pdf");
  const QString choisi =
      QFileDialog::getSaveFileName(&fenetre_, QStringLiteral("Imprimer dans un fichier PDF"),
                                   DansLeRepertoire(nom.isEmpty() ? QStringLiteral("Quelvar.pdf") : propose),
                                   FiltreQt(QStringLiteral("Fichiers PDF *.pdf|*.pdf")));
  if (choisi.isEmpty()) return;
  if (!EcrirePdf(choisi, resultats_.Texte().toPlainText(), nom)) {
    ecran_.demander(Joindre({"Le fichier ", DepuisQt(choisi), " ne peut pas être écrit"_w}), Boutons::Ok);
    return;
  }
  annoncer_(QStringLiteral("Enregistré sous ") + choisi);
}

}  // namespace quelvar::forms
