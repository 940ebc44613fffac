#include "text/decoupage/apercu.h"

#include <algorithm>
#include <optional>

#include "core/document/affichage.h"
#include "core/panne/annonce.h"
#include "core/texte/lignes.h"
#include "text/commun/lignedemot.h"
#include "text/commun/source.h"

namespace quelvar::text {

namespace {

constexpr int kLignesMontrees = 10;
constexpr int kLargeurFrequence = 8;

// The head of the text as the program will read it, converted.
std::string TeteDuTexte(const Chemin& chemin) {
  constexpr std::size_t kTete = std::size_t{1} << 16;
  std::string octets = LireMorceau(chemin, 0, kTete);
  const std::optional<Utf16> seize = EstUtf16(octets);
  // A head that is cut ends with its last whole line: a letter of several bytes is not cut.
  if (const std::size_t saut = octets.rfind('\n'); !seize && octets.size() == kTete && saut != std::string::npos)
    octets.resize(saut + 1);
  if (!seize && !EstUtf8(octets)) return octets;
  if (seize) octets = Utf8DepuisUtf16(octets, *seize);
  std::string_view utf8 = octets;
  OterMarqueUtf8(utf8);
  return DepuisUtf8(utf8);
}

MotCompte Montrer(const std::string& champ, std::int64_t frequence) {
  const std::string mot(RognerDroite(champ));
  return {Joindre({CadreGauche(champ, kLargeurMot), EntierDroit(frequence, kLargeurFrequence)}), mot};
}

}  // namespace

ApercuDuTexte ApercevoirTexte(const Contexte& contexte) {
  ApercuDuTexte apercu;
  const std::optional<Chemin> chemin = contexte.Chercher(".TXT");
  if (!chemin) {
    apercu.faute = Joindre({kArretDuProgramme, "le fichier ", contexte.Nom(".TXT"), " n'existe pas"});
    return apercu;
  }
  const std::string tete = TeteDuTexte(*chemin);
  std::string lignes;
  std::size_t longueur = 0;
  LignesDuTexte lecteur(tete);
  std::string_view ligne;
  for (int i = 0; i < kLignesMontrees && lecteur.Lire(ligne); ++i) {
    const std::string_view montree = ligne.substr(0, kRegleMaximum);
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
