#include "text/decoupage/apercu.h"

#include <algorithm>
#include <optional>

#include "core/document/affichage.h"
#include "text/decoupage/mots.h"
#include "text/tableau/comptage.h"

namespace quelvar::text {

namespace {

constexpr int kLignesMontrees = 10;
constexpr int kLargeurFrequence = 8;

MotCompte Montrer(const std::string& champ, std::int64_t frequence) {
  const std::string mot(RognerDroite(champ));
  return {Joindre({CadreGauche(champ, kLargeurMot), EntierDroit(frequence, kLargeurFrequence)}), mot};
}

}  // namespace

ApercuDuTexte ApercevoirTexte(const Contexte& contexte) {
  ApercuDuTexte apercu;
  const std::optional<Chemin> chemin = contexte.Chercher(".TXT");
  if (!chemin) {
    apercu.faute = Joindre({"*** Arrêt du programme : le fichier "_w, contexte.Nom(".TXT"), " n'existe pas"});
    return apercu;
  }
  std::string lignes;
  std::size_t longueur = 0;
  LecteurLignes lecteur(*chemin);
  std::string_view ligne;
  for (int i = 0; i < kLignesMontrees && lecteur.Lire(ligne); ++i) {
    // As the program will read it, converted.
    const bool utf8 = EstUtf8(ligne);
    if (utf8) OterMarqueUtf8(ligne);
    const std::string lue = utf8 ? DepuisUtf8(ligne) : std::string(ligne);
    const std::string_view montree = std::string_view(lue).substr(0, kRegleMaximum);
    longueur = std::max(longueur, montree.size());
    lignes += Joindre({montree, "\r\n"});
  }
  apercu.texte = RegleDesPositions(longueur) + lignes;
  return apercu;
}

std::vector<MotCompte> MotsDuDecoupage(const Contexte& contexte) {
  std::vector<MotCompte> mots;
  const std::optional<Chemin> chemin = contexte.Chercher(".DAT");
  if (!chemin) return mots;
  std::optional<std::size_t> largeur;
  std::string champ;
  std::int64_t frequence = 0;
  LecteurLignes lecteur(*chemin);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (!largeur) largeur = LargeurDesCaracteristiques(ligne);
    if (!largeur) return {};
    const std::string_view mot = Milieu(ligne, *largeur + kLargeurCode + 1, kLargeurMot);
    if (frequence > 0 && mot != champ) {
      mots.push_back(Montrer(champ, frequence));
      frequence = 0;
    }
    champ = mot;
    ++frequence;
  }
  if (frequence > 0) mots.push_back(Montrer(champ, frequence));
  return mots;
}

}  // namespace quelvar::text
