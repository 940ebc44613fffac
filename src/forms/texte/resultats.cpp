#include "forms/texte/resultats.h"

#include <utility>

#include "core/programme/lieunomme.h"
#include "core/programme/programme.h"
#include "forms/qt/texte.h"

namespace quelvar::forms {

namespace {

constexpr int kColonnesDeNom = 4;  // row and modality names

}  // namespace

Resultats::Resultats(Controles controles, Session& session, Dialogue& ecran, Formes& formes,
                     std::function<bool(const QString&)> lecteur, QObject* parent)
    : QObject(parent),
      controles_(controles),
      session_(session),
      ecran_(ecran),
      formes_(formes),
      lecteur_(std::move(lecteur)) {
  connect(&controles_.verrouLignes, &QCheckBox::toggled, this,
          [this](bool fige) { controles_.texte.FigerLignes(fige ? lignesDeRegle_ : 0); });
  connect(&controles_.verrouColonnes, &QCheckBox::toggled, this,
          [this](bool fige) { controles_.texte.FigerColonnes(fige ? kColonnesDeNom : 0); });
}

void Resultats::Remplacer(std::string_view texte) {
  Poser(texte, {}, true);
  controles_.texte.PoserPhrases(texte);
}

void Resultats::Ajouter(std::string_view texte) {
  if (!texte.empty()) controles_.texte.AjouterTexte(texte);
}

void Resultats::Poser(std::string_view texte, const std::string& nomFichier, bool alaFin) {
  MontrerVerrous(0);
  fichier_.reset();
  partiel_ = false;
  controles_.texte.PoserTexte(texte, alaFin);
  session_.fichierAffiche = nomFichier;
  controles_.fichier.setText(VersQt(TexteFichAff(nomFichier)));
  controles_.fichier.setToolTip(VersQt(nomFichier));
  emit Change(!nomFichier.empty());
}

// The two locks of a partial display: the ruler of that many lines at the top, the names at the left.
void Resultats::MontrerVerrous(int lignesDeRegle) {
  lignesDeRegle_ = lignesDeRegle;
  for (QCheckBox* verrou : {&controles_.verrouLignes, &controles_.verrouColonnes}) {
    verrou->setChecked(false);
    verrou->setVisible(lignesDeRegle > 0);
  }
}

void Resultats::Presenter(const Affichage& affichage) {
  if (affichage.ou == Affichage::Ou::Rien) return;
  Poser(affichage.texte, affichage.nomRapport, true);
  if (affichage.ou == Affichage::Ou::Lecteur) {
    formes_.FermerCellesQuiPeuvent();
    if (!affichage.rapport.empty()) LireAilleurs(CheminDe(affichage.rapport));
  }
  if (!affichage.panne.empty()) ecran_.demander(affichage.panne, Boutons::Ok);
}

void Resultats::LireAilleurs(const Chemin& fichier) {
  if (lecteur_(CheminVersQt(fichier))) return;
  Ajouter("\r\nLe lecteur de fichiers longs (quelvar-lecteur) n'a pas pu être lancé\r\n"_w);
}

void Resultats::MontrerEntier(const Chemin& fichier) {
  try {
    MontrerVerrous(0);
    const ResultatLu resultat = LireResultat(fichier);
    if (resultat.etat == ResultatLu::Etat::Vide) {
      if (ecran_.demander(resultat.texte, Boutons::OuiNon) == Reponse::Oui) EffacerFichier(fichier);
      return;
    }
    session_.titre = TitreDe(session_);
    emit TitreChange();
    Poser(resultat.texte, TexteDe(fichier.filename()), false);
    if (resultat.etat == ResultatLu::Etat::TropLong) LireAilleurs(fichier);
    else Retenir(fichier, resultat.texte);
  } catch (const Erreur& erreur) {
    MontrerEchec(fichier, erreur);
  }
}

void Resultats::MontrerPartiel(const Chemin& fichier, bool avecRegle) {
  try {
    if (LongueurFichier(fichier) == 0) {
      MontrerEntier(fichier);
      return;
    }
    const AffichagePartiel partiel = LirePartiel(fichier, avecRegle);
    Poser(partiel.texte, TexteDe(fichier.filename()), false);
    fichier_ = fichier;
    partiel_ = avecRegle || !partiel.entier;
    MontrerVerrous(static_cast<int>(partiel.lignesDeRegle));
  } catch (const Erreur& erreur) {
    MontrerEchec(fichier, erreur);
  }
}

void Resultats::MontrerEchec(const Chemin& fichier, const Erreur& erreur) {
  ecran_.biper();
  Remplacer(Joindre({"Le fichier ", TexteDe(fichier.filename()), " ne peut pas être affiché : "_w,
                     TexteErreurDuFichierNomme(erreur), "\r\n"}));
}

void Resultats::MontrerEchec(const Erreur& erreur) {
  std::string texte;
  for (const std::string& ligne : LignesDErreur(erreur, {})) texte += Joindre({ligne, "\r\n"});
  Remplacer(texte);
  if (!TexteDuLieu(erreur).empty()) ecran_.demander(TexteErreur(erreur), Boutons::Ok);
}

void Resultats::Retenir(const Chemin& fichier, std::string_view octets) {
  fichier_ = fichier;
  empreinte_ = EmpreinteDe(fichier, octets);
}

void Resultats::NoterEnregistre(const Chemin& fichier, std::string_view octets) {
  if (fichier_ == fichier) Retenir(fichier, octets);
  partiel_ = false;
}

}  // namespace quelvar::forms
