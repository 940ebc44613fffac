// What Text1 shows and where it goes: the report of a run, a result file, the printer, another file, the help.
#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QUrl>
#include <algorithm>

#include "core/programme/erreur.h"
#include "forms/cadre/dialogue_qt.h"
#include "forms/cadre/menus.h"
#include "forms/cadre/principal.h"
#include "forms/texte/impression.h"
#include "forms/texte/texte_qt.h"
#include "ui_principal.h"

namespace quelvar::forms {

// --- the text box ---

void Principal::AfficherTexte(std::string_view texte) { MontrerTexte(texte, {}, true); }

void Principal::AjouterTexte(std::string_view texte) {
  if (!texte.empty()) ui_->Text1->AjouterTexte(texte);
}

void Principal::MontrerTexte(std::string_view texte, const std::string& nomFichier, bool alaFin) {
  MontrerVerrous(0);
  affiche_.reset();
  partiel_ = false;
  ui_->Text1->PoserTexte(texte, alaFin);
  session_.fichierAffiche = nomFichier;
  ui_->FichAff->setText(VersQt(TexteFichAff(nomFichier)));
  ui_->FichAff->setToolTip(VersQt(nomFichier));
  PermettreEnregistrement(!nomFichier.empty());
}

void Principal::PermettreEnregistrement(bool permis) {
  Action(QStringLiteral("mnuEnregSous"))->setEnabled(permis);
  ui_->BoutonEnregS->setEnabled(permis);
}

// The two locks of a partial display: the ruler of that many lines at the top, the names at the left.
void Principal::MontrerVerrous(int lignesDeRegle) {
  lignesDeRegle_ = lignesDeRegle;
  for (QCheckBox* verrou : {ui_->VerrouLignes, ui_->VerrouColonnes}) {
    verrou->setChecked(false);
    verrou->setVisible(lignesDeRegle > 0);
  }
}

void Principal::Afficher(const Affichage& affichage) {
  if (affichage.ou == Affichage::Ou::Rien) return;
  MontrerTexte(affichage.texte, affichage.nomRapport, true);
  if (affichage.ou != Affichage::Ou::Lecteur) return;
  formes_.FermerCellesQuiPeuvent();
  if (!affichage.rapport.empty()) DemarrerLecteur(CheminDe(affichage.rapport));
}

void Principal::DemarrerLecteur(const Chemin& fichier) {
  if (environnement_.demarrer(QStringLiteral("quelvar-lecteur"), {CheminVersQt(fichier)})) return;
  AjouterTexte("\r\nLe lecteur de fichiers longs (quelvar-lecteur) n'a pas pu être lancé\r\n"_w);
}

// --- result files ---

void Principal::PreparerMenuAffichage() {
  const Contexte contexte = ContexteEnCours();
  for (const EntreeDAffichage& entree : EntreesDAffichage())
    Action(QString::fromLatin1(entree.nom))
        ->setEnabled(!session_.generique.empty() && contexte.Chercher(entree.extension).has_value());
}

void Principal::AfficherResultat(const EntreeDAffichage& entree) {
  const Contexte contexte = ContexteEnCours();
  const std::optional<Chemin> fichier = contexte.Chercher(entree.extension);
  if (!fichier) {
    AfficherEchec(CheminDe(contexte.Nom(entree.extension)), Erreur(kFichierIntrouvable));
    return;
  }
  if (entree.genre == GenreDAffichage::Entier) AfficherEntier(*fichier);
  else AfficherPartiel(*fichier, entree.genre == GenreDAffichage::SousRegle);
}

void Principal::AfficherEntier(const Chemin& fichier) {
  try {
    MontrerVerrous(0);
    const Resultat resultat = LireResultat(fichier);
    if (resultat.etat == Resultat::Etat::Vide) {
      if (dialogue_.demander(resultat.texte, Boutons::OuiNon) == Reponse::Oui) EffacerFichier(fichier);
      return;
    }
    session_.titre = TitreDe(session_);
    MontrerSession();
    MontrerTexte(resultat.texte, TexteDe(fichier.filename()), false);
    if (resultat.etat == Resultat::Etat::TropLong) DemarrerLecteur(fichier);
    else Retenir(fichier, resultat.texte);
  } catch (const Erreur& erreur) {
    AfficherEchec(fichier, erreur);
  }
}

void Principal::AfficherPartiel(const Chemin& fichier, bool avecRegle) {
  try {
    if (LongueurFichier(fichier) == 0) {
      AfficherEntier(fichier);
      return;
    }
    const AffichagePartiel partiel = LirePartiel(fichier, avecRegle);
    MontrerTexte(partiel.texte, TexteDe(fichier.filename()), false);
    affiche_ = fichier;
    partiel_ = avecRegle || !partiel.entier;
    MontrerVerrous(static_cast<int>(partiel.lignesDeRegle));
  } catch (const Erreur& erreur) {
    AfficherEchec(fichier, erreur);
  }
}

void Principal::AfficherQuelconque() {
  const QString chemin =
      QFileDialog::getOpenFileName(this, QStringLiteral("Affichage partiel"), CheminVersQt(session_.repertoire),
                                   FiltreQt(QStringLiteral("Tous fichiers *.*|*.*")));
  if (!chemin.isEmpty()) AfficherPartiel(CheminDepuisQt(chemin), false);
}

void Principal::AfficherEchec(const Chemin& fichier, const Erreur& erreur) {
  dialogue_.biper();
  AfficherTexte(Joindre(
      {"Le fichier ", TexteDe(fichier.filename()), " ne peut pas être affiché : "_w, TexteErreur(erreur), "\r\n"}));
}

void Principal::Retenir(const Chemin& fichier, std::string_view octets) {
  affiche_ = fichier;
  empreinte_ = EmpreinteDe(fichier, octets);
}

// --- saving and printing ---

// Asks before a file loses what the text box does not show.
bool Principal::PeutRemplacer(const Chemin& fichier) {
  if (!affiche_ || fichier != *affiche_) return true;
  const std::string nom = TexteDe(fichier.filename());
  if (partiel_)
    return dialogue_.demander(Joindre({"Le texte ne montre que le début du fichier "_w, nom,
                                       " : remplacer le fichier par ce texte ?"}),
                              Boutons::OuiNon) == Reponse::Oui;
  if (ComparerAvecDisque(fichier, empreinte_, false) != SurDisque::Modifie) return true;
  return dialogue_.demander(Joindre({"Le fichier ", nom, " a été modifié depuis son affichage : le remplacer ?"_w}),
                            Boutons::OuiNon) == Reponse::Oui;
}

void Principal::EnregistrerSous() {
  const QString propose = QDir(CheminVersQt(session_.repertoire)).filePath(VersQt(session_.fichierAffiche));
  const QString choisi = QFileDialog::getSaveFileName(this, QStringLiteral("Enregistrer sous"), propose,
                                                      FiltreQt(QStringLiteral("Tous fichiers *.*|*.*")));
  if (choisi.isEmpty()) return;
  const Chemin fichier = CheminDepuisQt(choisi);
  try {
    if (!PeutRemplacer(fichier)) return;
    const std::string octets = ui_->Text1->Octets();
    Remplacement remplacement(fichier, Nature::Unique);
    remplacement.Fichier().Ecrire(octets);
    remplacement.Valider();
    if (affiche_ == fichier) Retenir(fichier, octets);
    partiel_ = false;
    Annoncer(QStringLiteral("Enregistré sous ") + choisi);
  } catch (const Erreur& erreur) {
    dialogue_.demander(Joindre({"Le fichier ", DepuisQt(choisi), " ne peut pas être écrit : "_w, TexteErreur(erreur),
                                "\r\nLe texte affiché est conservé."_w}),
                       Boutons::Ok);
  }
}

void Principal::Imprimer() {
  if (!ImprimerParDialogue(this, ui_->Text1->toPlainText(), VersQt(session_.fichierAffiche)))
    dialogue_.demander("Pas d'imprimante disponible (ou annulation)", Boutons::Ok);
}

void Principal::ImprimerEnPdf() {
  const QString nom = VersQt(session_.fichierAffiche);
  const QString propose = QFileInfo(nom).completeBaseName() + u'_' + QFileInfo(nom).suffix() + QStringLiteral(".pdf");
  QString choisi = QFileDialog::getSaveFileName(
      this, QStringLiteral("Imprimer dans un fichier PDF"),
      QDir(CheminVersQt(session_.repertoire)).filePath(nom.isEmpty() ? QStringLiteral("Quelvar.pdf") : propose),
      FiltreQt(QStringLiteral("Fichiers PDF *.pdf|*.pdf")));
  if (choisi.isEmpty()) return;
  if (!EcrirePdf(choisi, ui_->Text1->toPlainText(), nom)) {
    dialogue_.demander(Joindre({"Le fichier ", DepuisQt(choisi), " ne peut pas être écrit"_w}), Boutons::Ok);
    return;
  }
  Annoncer(QStringLiteral("Enregistré sous ") + choisi);
}

void Principal::Annoncer(const QString& texte) {
  constexpr int duree = 8000;  // milliseconds
  ui_->BarreDEtat->showMessage(texte, duree);
}

}  // namespace quelvar::forms
