// The file behind the editor: opening, saving, what another program does to it meanwhile, recent files.
#include <QDir>
#include <QFileInfo>

#include "core/document/parties.h"
#include "core/panne/erreur.h"
#include "core/programme/lieunomme.h"
#include "forms/editeur/frmsdi.h"
#include "forms/qt/dialogue.h"
#include "forms/qt/texte.h"
#include "forms/texte/enregistrement.h"
#include "ui_frmsdi.h"

namespace quelvar::forms {

namespace {

constexpr std::size_t kLigneLecteur = 10'000;  // longer lines are broken in the viewer

QString Filtre() {
  return QStringLiteral("Fichiers d'enquête|*.des;*.pos;*.trg;*.mod;*.dat;*.csv;*.txt;*.brt|Tous fichiers *.*|*.*");
}

}  // namespace

bool frmSDI::Perdre() {
  if (genre_ == Genre::Lecteur || !isWindowModified()) return true;
  switch (DemanderReponse(this,
                          QStringLiteral("Le texte « %1 » a été modifié.\nVoulez-vous l'enregistrer ?").arg(Nom()),
                          Boutons::OuiNonAnnuler)) {
    case Reponse::Oui: return Enregistrer();
    case Reponse::Non: return true;
    default: return false;
  }
}

// --- opening ---

bool frmSDI::Ouvrir(const QString& fichier) {
  if (!Perdre()) return false;
  const QString chemin = QFileInfo(fichier).absoluteFilePath();
  try {
    return genre_ == Genre::Lecteur ? LireLecteur(chemin) : LireEditeur(chemin);
  } catch (const Erreur& erreur) {
    DemanderReponse(this,
                    QStringLiteral("Impossible d'ouvrir le fichier %1\n%2")
                        .arg(QDir::toNativeSeparators(chemin), VersQt(TexteErreurDuFichierNomme(erreur))),
                    Boutons::Ok);
  }
  return false;
}

bool frmSDI::OuvrirParDialogue() {
  const QString fichier = ChoisirAOuvrir(this, {QStringLiteral("Ouvrir un fichier"), DossierDeDepart(), Filtre()});
  return !fichier.isEmpty() && Ouvrir(fichier);
}

bool frmSDI::LireEditeur(const QString& fichier) {
  FichierOuvert ouvert;
  if (QFileInfo::exists(fichier)) {
    const Capacite capacite;
    ouvert = OuvrirDocument(CheminDepuisQt(fichier), capacite);
    if (!Contient(capacite, ouvert.mesure)) {
      const QString phrase = VersQt(TexteCapacite(DepuisQt(QFileInfo(fichier).fileName()), ouvert.mesure, capacite)) +
                             QStringLiteral("\nVoulez-vous le voir dans le lecteur ?");
      if (DemanderReponse(this, phrase, Boutons::OuiNon) == Reponse::Oui && !services_.lecteur(fichier))
        DemanderReponse(this, QStringLiteral("Le lecteur n'a pas pu être lancé"), Boutons::Ok);
      return false;
    }
    empreinte_ = ouvert.empreinte;
  } else {
    empreinte_.reset();
  }
  fichier_ = fichier;
  formeTexte_ = ouvert.document.forme;
  ui_->TexteEd->Charger(std::move(ouvert.document.texte), formeTexte_.encodage);
  if (empreinte_) RetenirRecent();
  else Dire(QStringLiteral("Nouveau fichier : il sera créé à l'enregistrement"));
  MontrerTitre();
  MontrerForme();
  return true;
}

bool frmSDI::LireLecteur(const QString& fichier) {
  const std::uintmax_t longueur = LongueurFichier(CheminDepuisQt(fichier));
  if (!QFileInfo(fichier).isFile()) throw Erreur(kAccesFichier);
  fichier_ = fichier;
  parties_ = NombreDeParties(longueur, kTaillePartie);
  LirePartieDuFichier(0);
  return true;
}

void frmSDI::LirePartieDuFichier(std::size_t rang) {
  const Chemin chemin = CheminDepuisQt(fichier_);
  try {
    const std::string octets = LirePartie(chemin, rang, kTaillePartie);
    empreinte_ = EmpreinteSansContenu(chemin);
    DocumentTexte document = DecoderTexte(octets);
    formeTexte_ = document.forme;
    partie_ = rang;
    ui_->TexteEd->Charger(CouperLignesLongues(std::move(document.texte), kLigneLecteur), formeTexte_.encodage);
  } catch (const Erreur& erreur) {
    DemanderReponse(this,
                    QStringLiteral("Impossible de lire %1\n%2").arg(Nom(), VersQt(TexteErreurDuFichierNomme(erreur))),
                    Boutons::Ok);
  }
  MontrerTitre();
  MontrerForme();
}

void frmSDI::Nouveau() {
  if (!Perdre()) return;
  fichier_.clear();
  empreinte_.reset();
  formeTexte_ = {};
  ui_->TexteEd->Charger({}, formeTexte_.encodage);
  MontrerTitre();
  MontrerForme();
}

bool frmSDI::Recharger() {
  const int ligne = ui_->TexteEd->Ligne();
  const std::size_t partie = partie_;
  if (!Ouvrir(fichier_)) return false;
  if (partie > 0) LirePartieDuFichier(std::min(partie, parties_ - 1));
  ui_->TexteEd->AllerALigne(ligne);
  return true;
}

// --- saving ---

int frmSDI::Revision() const { return ui_->TexteEd->document()->revision(); }

bool frmSDI::Enregistrer() {
  if (fichier_.isEmpty()) return EnregistrerSous();
  return PeutRemplacer() && Ecrire(fichier_);
}

bool frmSDI::EnregistrerSous() {
  const QString propose = fichier_.isEmpty() ? DossierDeDepart() : fichier_;
  const QString fichier = ChoisirAEcrire(this, {QStringLiteral("Enregistrer sous"), propose, Filtre()});
  return !fichier.isEmpty() && Ecrire(fichier);
}

// Asks before the work of another program is written over.
bool frmSDI::PeutRemplacer() {
  const Chemin chemin = CheminDepuisQt(fichier_);
  const bool change =
      empreinte_ ? ComparerAvecDisque(chemin, *empreinte_, true) == SurDisque::Modifie : QFileInfo::exists(fichier_);
  if (!change) return true;
  RetenirSignalement();
  switch (DemanderReponse(this,
                          QStringLiteral("Le fichier %1 a été changé par un autre programme.\n"
                                         "Le remplacer par le texte de l'éditeur ?\n\n"
                                         "Non : l'enregistrer sous un autre nom")
                              .arg(Nom()),
                          Boutons::OuiNonAnnuler)) {
    case Reponse::Oui: return true;
    case Reponse::Non: EnregistrerSous(); return false;
    default: return false;
  }
}

bool frmSDI::Ecrire(const QString& fichier) {
  const Chemin chemin = CheminDepuisQt(fichier);
  const auto enregistrer = [&] { empreinte_ = EnregistrerDocument(chemin, ui_->TexteEd->TexteComplet(), formeTexte_); };
  if (!EcrireOuDire(this, chemin, enregistrer, "\r\nLe texte reste dans l'éditeur."_w)) return false;
  fichier_ = QFileInfo(fichier).absoluteFilePath();
  ui_->TexteEd->document()->setModified(false);
  RetenirRecent();
  MontrerTitre();
  Dire(QStringLiteral("Enregistré"));
  return true;
}

// --- the disk meanwhile ---

void frmSDI::SurveillerLeDisque() {
  if (surveille_ || !empreinte_ || QApplication::activeModalWidget() != nullptr) return;
  const SurDisque etat = ComparerAvecDisque(CheminDepuisQt(fichier_), *empreinte_, false);
  if (etat == SurDisque::Inchange || (etat == SurDisque::Modifie && DejaSignale())) return;
  surveille_ = true;
  if (etat == SurDisque::Disparu) {
    empreinte_.reset();
    ui_->TexteEd->document()->setModified(genre_ == Genre::Editeur);
    DemanderReponse(this, QStringLiteral("Le fichier %1 n'est plus sur le disque.\nLe texte reste ici.").arg(Nom()),
                    Boutons::Ok);
  } else {
    RetenirSignalement();
    QString phrase = QStringLiteral("Le fichier %1 a été changé par un autre programme.\nVoulez-vous le relire ?");
    if (isWindowModified()) phrase += QStringLiteral("\nVos modifications seront perdues.");
    if (DemanderReponse(this, phrase.arg(Nom()), Boutons::OuiNon) == Reponse::Oui) {
      ui_->TexteEd->document()->setModified(false);
      if (!Recharger()) ui_->TexteEd->document()->setModified(genre_ == Genre::Editeur);
    } else {
      ui_->TexteEd->document()->setModified(genre_ == Genre::Editeur);
    }
  }
  surveille_ = false;
}

bool frmSDI::DejaSignale() const {
  if (!signale_) return false;
  std::error_code code;
  const Chemin chemin = CheminDepuisQt(fichier_);
  return std::filesystem::file_size(chemin, code) == signale_->taille &&
         std::filesystem::last_write_time(chemin, code) == signale_->instant;
}

// The user is told of this state of the file once; a save still asks.
void frmSDI::RetenirSignalement() {
  std::error_code code;
  const Chemin chemin = CheminDepuisQt(fichier_);
  signale_ = Empreinte{std::filesystem::file_size(chemin, code), std::filesystem::last_write_time(chemin, code), {}};
}

// --- recent files ---

void frmSDI::RetenirRecent() { AjouterRecent(services_.reglages, kRecentsEditeur, fichier_.toStdString()); }

void frmSDI::PreparerRecents() {
  ui_->mnuRecents->clear();
  for (int rang = 1; rang <= kRecentsEditeur.capacite; ++rang) {
    const QString fichier = QString::fromStdString(LireRecent(services_.reglages, kRecentsEditeur, rang));
    if (fichier.isEmpty()) continue;
    QString texte = QDir::toNativeSeparators(fichier);
    QAction* action =
        ui_->mnuRecents->addAction(QStringLiteral("&%1  %2").arg(rang).arg(texte.replace(u'&', QStringLiteral("&&"))));
    action->setEnabled(QFileInfo::exists(fichier));
    connect(action, &QAction::triggered, this, [this, fichier] { Ouvrir(fichier); });
  }
  if (ui_->mnuRecents->isEmpty()) ui_->mnuRecents->addAction(QStringLiteral("(aucun)"))->setEnabled(false);
}

}  // namespace quelvar::forms
