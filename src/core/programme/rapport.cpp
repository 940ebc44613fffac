#include "core/programme/rapport.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "core/chiffres/nombres.h"
#include "core/fichiers/systeme/morceaux.h"
#include "core/programme/version.h"

namespace quelvar {

namespace {

std::size_t BlancsManquants(std::size_t longueur, int largeur) {
  return largeur > 0 && static_cast<std::size_t>(largeur) > longueur ? static_cast<std::size_t>(largeur) - longueur : 0;
}

// Right-aligned in the width, whole when longer.
std::string AlignerDroite(std::string_view texte, int largeur) {
  std::string resultat(BlancsManquants(texte.size(), largeur), ' ');
  resultat += texte;
  return resultat;
}

// Digits of v times 10^d rounded, with a zero for each missing place before the point: 5 with 2 decimals gives "005".
// Only for magnitudes that hold in 15 digits, where they are those of the rounded quotient.
std::string ChiffresEchelonnes(std::int64_t echelonne, int decimales) {
  std::array<char, 24> tampon{};
  const auto [fin, _] = std::to_chars(tampon.data(), tampon.data() + tampon.size(), echelonne);
  std::string chiffres(tampon.data(), fin);
  const auto minimum = static_cast<std::size_t>(decimales) + 1;
  if (chiffres.size() < minimum) chiffres.insert(0, minimum - chiffres.size(), '0');
  return chiffres;
}

struct PartiesFixes {
  std::string entiere;
  std::string fraction;
};

PartiesFixes Decouper(double valeur, int decimales) {
  if (decimales >= 0 && static_cast<std::size_t>(decimales) < kPuissancesDeDix.size()) {
    const double echelonne = ArrondirPair(valeur * kPuissancesDeDix[static_cast<std::size_t>(decimales)]);
    if (std::fabs(echelonne) < kPuissancesDeDix.back()) {
      std::string chiffres = ChiffresEchelonnes(static_cast<std::int64_t>(std::fabs(echelonne)), decimales);
      const std::size_t coupe = chiffres.size() - static_cast<std::size_t>(decimales);
      return {(echelonne < 0 ? "-" : "") + chiffres.substr(0, coupe), chiffres.substr(coupe)};
    }
  }
  const std::string texte = Nombre(Arrondir(valeur, decimales));
  const std::size_t point = texte.find('.');
  if (point == std::string::npos) return {texte, {}};
  return {texte.substr(0, point), texte.substr(point + 1)};
}

}  // namespace

std::string CadreGauche(std::string_view texte, int largeur) {
  std::string resultat(texte.substr(0, static_cast<std::size_t>(std::max(largeur, 0))));
  resultat.append(BlancsManquants(resultat.size(), largeur), ' ');
  return resultat;
}

std::string CadreDroit(std::string_view texte, int largeur) {
  return AlignerDroite(texte.substr(0, static_cast<std::size_t>(std::max(largeur, 0))), largeur);
}

std::string EntierDroit(double valeur, int largeur) { return AlignerDroite(Nombre(valeur), largeur); }
std::string EntierDroit(std::int64_t valeur, int largeur) { return AlignerDroite(Nombre(valeur), largeur); }

std::string NombreFixe(double valeur, int largeurEntiere, int decimales) {
  if (!std::isfinite(valeur)) return Nombre(valeur);  // raises the fitting number
  PartiesFixes parties = Decouper(valeur, decimales);
  std::string resultat = AlignerDroite(parties.entiere, largeurEntiere);
  if (decimales > 0) {
    parties.fraction.resize(static_cast<std::size_t>(decimales), '0');
    resultat += '.';
    resultat += parties.fraction;
  }
  if (static_cast<int>(resultat.size()) > largeurEntiere + decimales + 1) resultat.insert(resultat.begin(), '$');
  return resultat;
}

Rapport::Rapport(const Chemin& chemin, ModeEcriture mode)
    : fichier_(std::in_place, chemin), ecrivain_(fichier_->Fichier()) {
  std::error_code code;
  if (mode == ModeEcriture::Neuf || !std::filesystem::exists(chemin, code)) return;
  ParMorceaux(chemin, [&](std::string_view octets) { ecrivain_.Ecrire(octets); });
}

Rapport::Rapport(EnMemoire texte) : memoire_(std::in_place, texte), ecrivain_(*memoire_) {}

void ImprimerBandeau(Rapport& rapport, Texte titre) {
  constexpr int kMilieu = 28;  // the column that titles are centred on
  constexpr int kLigneBlanche = 27;
  const auto retrait =
      static_cast<std::size_t>(std::max(0.0, kMilieu - ArrondirPair(static_cast<double>(titre.Vue().size()) / 2)));
  rapport.Ligne({"          QUELVAR Version ", kVersion, " - Mai 2017"});
  rapport.Ligne(std::string(kLigneBlanche, ' '));
  rapport.Ligne("          Atelier statistique pour l'analyse des enquêtes"_w);
  rapport.Ligne("          Aide et mode d'emploi : menu Aide du programme");
  rapport.Ligne("          Assistance technique : documentation jointe au programme");
  rapport.Ligne({std::string(retrait, ' '), titre});
  rapport.Ligne();
}

}  // namespace quelvar
