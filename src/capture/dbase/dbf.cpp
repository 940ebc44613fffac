#include "capture/dbase/dbf.h"

#include <algorithm>
#include <utility>

#include "core/fichiers/systeme/morceaux.h"
#include "core/panne/erreur.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kDescription = 32;  // bytes of the description of a field
constexpr std::size_t kLettresDuNom = 5;
constexpr unsigned char kPremierePermise = ' ';  // of the bytes of a name
constexpr unsigned char kDernierePermise = 'z';
constexpr std::size_t kMots = std::size_t{1} << 16;  // values of two bytes: the longest header, too
constexpr char kFinDesChamps = '\r';

// Places in the header, from 0.
constexpr std::size_t kPlaceNombre = 4;
constexpr std::size_t kPlaceEntete = 8;
constexpr std::size_t kPlaceEnregistrement = 10;
constexpr std::size_t kPlaceLangue = 29;
// Places in the description of a field.
constexpr std::size_t kPlaceType = 11;
constexpr std::size_t kPlaceLargeur = 16;

constexpr std::size_t Octet(std::string_view octets, std::size_t place) {
  return static_cast<unsigned char>(octets[place]);
}

constexpr std::size_t Mot(std::string_view octets, std::size_t place) {
  constexpr std::size_t kOctets = 256;  // values of one byte
  return Octet(octets, place) + kOctets * Octet(octets, place + 1);
}

std::string NomDeChamp(std::string_view description) {
  std::string nom(description.substr(0, kLettresDuNom));
  for (char& c : nom)
    if (static_cast<unsigned char>(c) < kPremierePermise || static_cast<unsigned char>(c) > kDernierePermise) c = ' ';
  return nom;
}

// The bytes of ASCII from the blank on need no look.
constexpr unsigned char kDernierAscii = 0x7F;
constexpr unsigned char kImprimables = kDernierAscii + 1 - ' ';

bool Coupe(char c) { return c == '\r' || c == '\n' || c == '\x1A'; }

}  // namespace

bool EnteteDbf::VersionConnue() const {
  // Those whose fields are told in 32 bytes from the thirty-third on; dBase II and dBase 7 have other headers.
  constexpr std::string_view connues("\x03\x05\x30\x31\x32\x43\x63\x7B\x83\x87\x8B\x8E\xCB\xE5\xF5\xFB", 16);
  return connues.find(static_cast<char>(version)) != std::string_view::npos;
}

EnteteDbf LireEnteteDbf(std::string_view octets) {
  if (octets.size() < kEnteteMinimal) throw Erreur(kFinDeFichierDepassee);
  EnteteDbf entete;
  entete.version = static_cast<unsigned char>(octets[0]);
  entete.annonces = Mot(octets, kPlaceNombre) + std::uint64_t{kMots} * Mot(octets, kPlaceNombre + 2);
  entete.longueurEntete = Mot(octets, kPlaceEntete);
  entete.longueurEnregistrement = Mot(octets, kPlaceEnregistrement);
  entete.page = PageDeLangue(static_cast<unsigned char>(octets[kPlaceLangue]));
  // The first 32 bytes of the header are not a field, and what is left behind the last one is its end mark.
  const std::size_t fin = std::min(octets.size(), entete.longueurEntete / kDescription * kDescription);
  std::size_t position = 1;
  for (std::size_t place = kDescription; place + kDescription <= fin; place += kDescription) {
    const std::string_view description = octets.substr(place, kDescription);
    if (description[0] == kFinDesChamps) break;
    const std::size_t largeur = Octet(description, kPlaceLargeur);
    if (largeur == 0) {
      entete.sansLargeur.push_back(NomDeChamp(description));
      continue;
    }
    entete.champs.push_back({NomDeChamp(description), description[kPlaceType], position, largeur});
    position += largeur;
  }
  return entete;
}

EnteteDbf LireEnteteDuFichier(const Chemin& chemin) {
  return Situer([&] { return Lieu{TexteDe(chemin.filename())}; },
                [&] {
                  const std::string octets = LireMorceau(chemin, 0, kMots);
                  EnteteDbf entete = LireEnteteDbf(octets);
                  if (octets.size() < entete.longueurEntete) throw Erreur(kFinDeFichierDepassee);
                  return entete;
                });
}

std::uint64_t EnregistrementsEntiers(const EnteteDbf& entete, std::uintmax_t taille) {
  if (entete.longueurEnregistrement == 0) return std::min(entete.annonces, kEnregistrementsVides);
  const std::uintmax_t donnees = taille > entete.longueurEntete ? taille - entete.longueurEntete : 0;
  return std::min<std::uint64_t>(entete.annonces, donnees / entete.longueurEnregistrement);
}

LecteurDbf::LecteurDbf(Chemin chemin, const EnteteDbf& entete)
    : chemin_(std::move(chemin)),
      taille_(LongueurFichier(chemin_)),
      longueur_(entete.longueurEnregistrement),
      enregistrements_(EnregistrementsEntiers(entete, taille_)),
      place_(entete.longueurEntete) {}

bool LecteurDbf::Lire(std::string_view& enregistrement) {
  if (donnes_ == enregistrements_) return false;
  ++donnes_;
  if (longueur_ == 0) {
    enregistrement = {};
    return true;
  }
  if (debut_ == morceau_.size()) {
    morceau_ =
        Situer([&] { return Ou(); },
               [&] { return LireMorceau(chemin_, place_, std::max(longueur_, kMorceau / longueur_ * longueur_)); });
    place_ += morceau_.size();
    debut_ = 0;
  }
  if (morceau_.size() - debut_ < longueur_) throw Erreur(kFinDeFichierDepassee).Situer(Ou());
  enregistrement = std::string_view(morceau_).substr(debut_, longueur_);
  debut_ += longueur_;
  return true;
}

ConvertisseurDbf::ConvertisseurDbf(const EnteteDbf& entete)
    : table_(TableDePage(entete.page)),
      autrePage_(entete.page == PageDeCode::Dos437 || entete.page == PageDeCode::Dos850) {
  const std::size_t longueur = entete.LongueurLigne();
  for (const ChampDbf& champ : entete.champs) {
    if (champ.position > longueur) break;
    Ajouter(std::min(champ.position + champ.largeur - 1, longueur), autrePage_ && champ.type == 'C');
  }
  if (longueur > 0) Ajouter(longueur, false);
}

// Lengthens the last stretch, or begins another one behind it.
void ConvertisseurDbf::Ajouter(std::size_t fin, bool texte) {
  const std::size_t debut = troncons_.empty() ? 0 : troncons_.back().fin;
  if (!troncons_.empty() && troncons_.back().texte == texte) troncons_.back().fin = fin;
  else if (fin > debut) troncons_.push_back({debut, fin, texte});
}

void ConvertisseurDbf::Convertir(std::string_view enregistrement, char* ligne) {
  if (enregistrement.empty()) return;
  const char* octets = enregistrement.data() + 1;
  for (const Troncon& troncon : troncons_) {
    for (std::size_t i = troncon.debut; i < troncon.fin; ++i) {
      const char octet = octets[i];
      ligne[i] = octet;
      if (static_cast<unsigned char>(octet - ' ') < kImprimables) continue;
      if (Coupe(octet)) {
        ligne[i] = ' ';
        ++coupants_;
      } else if (troncon.texte && static_cast<unsigned char>(octet) > kDernierAscii) {
        ligne[i] = table_[static_cast<unsigned char>(octet)];
        ++convertis_;
        if (ligne[i] == '?') ++inconnus_;
      }
    }
  }
}

}  // namespace quelvar::capture
