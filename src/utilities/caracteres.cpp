#include "utilities/caracteres.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "core/programme/place.h"
#include "utilities/utilitaires.h"

namespace quelvar::utilities {

namespace {

constexpr std::size_t kParBloc = 14;
constexpr std::size_t kLargeur = 4;                                  // columns of a byte
constexpr std::size_t kOctetsDUnBloc = 6 + 2 * kParBloc * kLargeur;  // as it is written, with its line ends
constexpr std::size_t kMorceau = std::size_t{14} << 14;              // bytes read at a time, whole blocks
constexpr unsigned kPremierImprimable = 32;

struct Colonnes {
  std::array<std::array<char, kLargeur>, 256> codes;
  std::array<std::array<char, kLargeur>, 256> signes;
};

Colonnes DresserColonnes() {
  Colonnes colonnes;
  for (unsigned octet = 0; octet < 256; ++octet) {
    const std::string code = EntierDroit(static_cast<int>(octet), static_cast<int>(kLargeur));
    code.copy(colonnes.codes[octet].data(), kLargeur);
    colonnes.signes[octet] = {' ', ' ', ' ', octet < kPremierImprimable ? '.' : static_cast<char>(octet)};
  }
  return colonnes;
}

// Writes the bytes in blocks of two lines behind an empty one.
class Listage {
 public:
  explicit Listage(Rapport& rapport) : rapport_(rapport), colonnes_(DresserColonnes()) {}

  void Lister(std::string_view octets) {
    for (; !octets.empty(); octets.remove_prefix(std::min(kParBloc, octets.size()))) Bloc(octets.substr(0, kParBloc));
  }

 private:
  void Bloc(std::string_view octets) {
    char* place = bloc_.data();
    const auto poser = [&](std::string_view texte) { place += texte.copy(place, texte.size()); };
    poser("\r\n");
    for (const char octet : octets) poser({colonnes_.codes[static_cast<unsigned char>(octet)].data(), kLargeur});
    poser("\r\n");
    for (const char octet : octets) poser({colonnes_.signes[static_cast<unsigned char>(octet)].data(), kLargeur});
    poser("\r\n");
    rapport_.Suite(std::string_view(bloc_.data(), static_cast<std::size_t>(place - bloc_.data())));
  }

  Rapport& rapport_;
  Colonnes colonnes_;
  std::array<char, kOctetsDUnBloc> bloc_;
};

std::string CodesImprimables() {
  std::string codes(256 - kPremierImprimable, ' ');
  std::iota(codes.begin(), codes.end(), static_cast<char>(kPremierImprimable));
  return codes;
}

void ListerFichier(const Contexte& contexte, const Chemin& chemin, Listage& listage) {
  const std::uintmax_t longueur = LongueurFichier(chemin);
  AvancementOctets avancement(contexte, longueur);
  for (std::uintmax_t place = 0; place < longueur;) {
    const std::string octets = LireMorceau(chemin, place, kMorceau);
    if (octets.empty()) break;
    listage.Lister(octets);
    place += octets.size();
    avancement.Avancer(octets.size());
  }
}

}  // namespace

std::string ManqueCaracteres(const Contexte& contexte, const OptionsCaracteres& options) {
  if (options.a.empty()) return "Vous devez entrer le nom du fichier A";
  return EntreeEcrasee(contexte, {options.a});
}

Fin ListerCaracteres(const Contexte& contexte, const OptionsCaracteres& options) {
  return ExecuterProgramme(contexte, NomDuRapport(contexte), LibellesSansTexte(), [&](Rapport& rapport) {
    const Entree a = ChercherEntree(contexte, options.a);
    ExigerEntrees(rapport, contexte, {a});
    ExigerPlace(contexte, rapport, {0, LongueurFichier(*a.chemin) * kOctetsDUnBloc / kParBloc});
    ImprimerBandeau(rapport, "Affichage d'un fichier caractère par caracactère"_w);
    rapport.Ligne({"Le nom du fichier d'entrée est "_w, a.nom});
    rapport.Ligne("Tables  : code décimal et charactères imprimables "_w);
    Listage listage(rapport);
    listage.Lister(CodesImprimables());
    rapport.Ligne("Texte à analyser"_w);
    ListerFichier(contexte, *a.chemin, listage);
    rapport.Ligne("Fin normale du programme");
  });
}

}  // namespace quelvar::utilities
