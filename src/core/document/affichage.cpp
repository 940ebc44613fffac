#include "core/document/affichage.h"

#include <algorithm>

#include "core/programme/programme.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace {

constexpr std::size_t kLignesDeRegle = 5;  // of RegleDesPositions

}  // namespace

std::string RegleDesPositions(std::size_t longueur) {
  const std::size_t colonnes = std::min(longueur, kRegleMaximum);
  std::string centaines(colonnes, ' ');
  std::string dizaines(colonnes, ' ');
  std::string unites(colonnes, ' ');
  for (std::size_t colonne = 1; colonne <= colonnes; ++colonne) {
    const auto chiffre = [&](std::size_t rang) { return static_cast<char>('0' + colonne / rang % 10); };
    if (colonne % 100 == 0) centaines[colonne - 1] = chiffre(100);
    if (colonne % 10 == 0) dizaines[colonne - 1] = chiffre(10);
    unites[colonne - 1] = chiffre(1);
  }
  const std::string_view annonce = longueur > kRegleMaximum
                                       ? "Longueur supérieur à 1024, renvoi à la ligne après cette valeur"_w
                                       : std::string_view("Positions : lignes des centaines, dizaines, unités"_w);
  return Joindre(
      {annonce, "\r\n", centaines, "\r\n", dizaines, "\r\n", unites, "\r\n", std::string(colonnes, '-'), "\r\n"});
}

namespace {

// Breaks the lines that are longer than a ruler.
std::string RenvoyerALaLigne(std::string_view texte) {
  std::string resultat;
  std::size_t colonne = 0;
  for (const char c : texte) {
    const bool fin = c == '\n' || c == '\r';
    if (!fin && colonne == kRegleMaximum) {
      resultat += "\r\n";
      colonne = 0;
    }
    resultat += c;
    colonne = fin ? 0 : colonne + 1;
  }
  return resultat;
}

}  // namespace

AffichagePartiel LirePartiel(const Chemin& chemin, bool avecRegle) {
  AffichagePartiel partiel;
  std::string tete = LireMorceau(chemin, 0, kAffichagePartiel + 1);
  partiel.entier = tete.size() <= kAffichagePartiel;
  if (!partiel.entier) tete.resize(avecRegle ? kAffichageSousRegle : kAffichagePartiel);
  if (avecRegle) {
    std::string_view premiere = std::string_view(tete).substr(0, tete.find('\n'));
    if (premiere.ends_with('\r')) premiere.remove_suffix(1);
    partiel.texte = RegleDesPositions(premiere.size());
    partiel.lignesDeRegle = kLignesDeRegle;
    if (premiere.size() > kRegleMaximum) tete = RenvoyerALaLigne(tete);
  }
  partiel.texte += tete;
  return partiel;
}

ResultatLu LireResultat(const Chemin& chemin) {
  const std::string nom = TexteDe(chemin.filename());
  const std::uintmax_t longueur = LongueurFichier(chemin);
  if (longueur == 0) return {ResultatLu::Etat::Vide, Joindre({"Le fichier ", nom, " est vide : vous devez l'effacer"})};
  if (longueur > kAffichageEntier) return {ResultatLu::Etat::TropLong, TexteTropLong(nom)};
  return {ResultatLu::Etat::Montre, LireOctets(chemin)};
}

}  // namespace quelvar
