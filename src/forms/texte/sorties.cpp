#include "forms/texte/sorties.h"

#include <QDir>
#include <QFileInfo>
#include <utility>

#include "core/fichiers/fichiers.h"
#include "forms/qt/imprimante.h"
#include "forms/qt/texte.h"
#include "forms/services/sauvegarde.h"
#include "forms/texte/enregistrement.h"
#include "forms/texte/impression.h"

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
  const std::string octets = resultats_.Texte().Octets();
  const std::optional<Chemin> ecrit = forms::EnregistrerSous(
      &fenetre_, {{QStringLiteral("Enregistrer sous"), DansLeRepertoire(VersQt(session_.fichierAffiche)),
                   QStringLiteral("Tous fichiers *.*|*.*")},
                  [this](const Chemin& fichier) { return PeutRemplacer(fichier); },
                  [&](const Chemin& fichier) {
                    RemplacerFichier(fichier, octets, Nature::Unique);
                    resultats_.NoterEnregistre(fichier, octets);
                  },
                  std::string("\r\nLe texte affiché est conservé."_w)});
  if (ecrit) annoncer_(QStringLiteral("Enregistré sous ") + CheminVersQt(*ecrit));
}

void SortiesTexte::DemanderImpression() {
  if (!DemanderImpressionDuTexte(&fenetre_, resultats_.Texte().toPlainText(), VersQt(session_.fichierAffiche)))
    ecran_.demander(kPasDImprimante, Boutons::Ok);
}

void SortiesTexte::DemanderPdf() {
  const QString nom = VersQt(session_.fichierAffiche);
  const QString propose = QFileInfo(nom).completeBaseName() + u'_' + QFileInfo(nom).suffix() + QStringLiteral(".pdf");
  const std::optional<QString> ecrit =
      EnregistrerEnPdf(&fenetre_, DansLeRepertoire(nom.isEmpty() ? QStringLiteral("Quelvar.pdf") : propose),
                       resultats_.Texte().toPlainText(), nom);
  if (ecrit) annoncer_(QStringLiteral("Enregistré sous ") + *ecrit);
}

}  // namespace quelvar::forms
