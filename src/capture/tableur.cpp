#include "capture/tableur.h"

#include <algorithm>
#include <cstring>

#include "core/nombres.h"

namespace quelvar {

namespace {

constexpr std::string_view kMarqueUtf8 = "\xEF\xBB\xBF";

bool ResteEnAscii(std::string_view ligne) {
  std::uint64_t hauts = 0;
  std::size_t i = 0;
  for (; i + 8 <= ligne.size(); i += 8) {
    std::uint64_t mot = 0;
    std::memcpy(&mot, ligne.data() + i, 8);
    hauts |= mot;
  }
  for (; i < ligne.size(); ++i) hauts |= static_cast<unsigned char>(ligne[i]);
  return (hauts & 0x8080808080808080ULL) == 0;
}

// The encoding, judged line by line.
struct Encodage {
  bool marque = false;    // a byte-order mark starts the file
  bool multiple = false;  // valid multi-byte sequences were met
  bool invalide = false;  // an invalid one was met

  void Examiner(std::string_view ligne) {
    if (ResteEnAscii(ligne)) return;
    (EstUtf8MultiOctet(ligne) ? multiple : invalide) = true;
  }
  bool Utf8() const { return marque || (multiple && !invalide); }
};

// Counts of the two possible separators outside quotes.
struct Separateurs {
  std::int64_t pointsVirgules = 0;
  std::int64_t tabulations = 0;

  void Compter(std::string_view ligne) {
    if (ligne.find('"') != std::string_view::npos) return CompterHorsGuillemets(ligne);
    pointsVirgules += std::count(ligne.begin(), ligne.end(), ';');
    tabulations += std::count(ligne.begin(), ligne.end(), '\t');
  }
  // A quote opens where a field starts, whichever sign starts it.
  void CompterHorsGuillemets(std::string_view ligne) {
    bool debut = true;
    for (std::size_t i = 0; i < ligne.size(); ++i) {
      if (debut && ligne[i] == '"') {
        for (++i; i < ligne.size(); ++i) {
          if (ligne[i] != '"') continue;
          if (i + 1 < ligne.size() && ligne[i + 1] == '"') ++i;
          else break;
        }
        debut = false;
        continue;
      }
      debut = ligne[i] == ';' || ligne[i] == '\t';
      if (ligne[i] == ';') ++pointsVirgules;
      if (ligne[i] == '\t') ++tabulations;
    }
  }
  char Choix() const { return tabulations > pointsVirgules ? '\t' : ';'; }
};

// A number with a sign, digits and an exponent only; nothing between its characters.
bool EstCode(std::string_view cellule) {
  const std::size_t debut = cellule.find_first_not_of(" \t");
  if (debut == std::string_view::npos) return false;
  const std::size_t fin = cellule.find_last_not_of(" \t");
  const std::string_view nombre = cellule.substr(debut, fin - debut + 1);
  return nombre.find_first_of(" \t") == std::string_view::npos && EstNombre(nombre);
}

void Retenir(FaitsColonne& colonne, std::string_view cellule) {
  if (cellule.size() == 1) {  // nearly every cell of a survey
    const auto chiffre = static_cast<unsigned char>(cellule.front()) - unsigned{'0'};
    if (chiffre < 10) {
      if (colonne.largeur == 0) colonne.largeur = 1;
      if (colonne.codeMax < chiffre) colonne.codeMax = chiffre;
      return;
    }
  }
  colonne.largeur = std::max(colonne.largeur, cellule.size());
  if (cellule.empty() || colonne.largeur > kLargeurCodes || EstDecimale(cellule)) return;
  if (EstCode(cellule)) colonne.codeMax = std::max(colonne.codeMax, ValeurDe(cellule));
  else colonne.texte = true;
}

// One reading of the source under a supposed separator and encoding.
struct Examen {
  FaitsTableur faits;
  Separateurs separateurs;
  Encodage encodage;

  void LireLigne(std::string_view ligne, bool intitules) {
    std::size_t colonne = 0;
    LigneDeTableur cellules(ligne, faits.separateur);
    for (std::string_view cellule; cellules.Suivante(cellule); ++colonne) {
      if (colonne == faits.colonnes.size()) faits.colonnes.emplace_back();
      if (intitules) faits.intitules.emplace_back(cellule);
      else Retenir(faits.colonnes[colonne], cellule);
    }
  }
};

Examen Examiner(const Chemin& source, bool avecIntitules, char separateur, bool utf8) {
  Examen examen;
  examen.faits.separateur = separateur;
  examen.faits.utf8 = utf8;
  LecteurLignes lecteur(source);
  std::string converti;
  for (std::string_view ligne; lecteur.Lire(ligne); ++examen.faits.lignes) {
    if (examen.faits.lignes == 0 && ligne.starts_with(kMarqueUtf8)) {
      examen.encodage.marque = true;
      ligne.remove_prefix(kMarqueUtf8.size());
    }
    examen.encodage.Examiner(ligne);
    examen.separateurs.Compter(ligne);
    if (utf8 && !ResteEnAscii(ligne)) {
      converti = DepuisUtf8(ligne);
      ligne = converti;
    }
    examen.LireLigne(ligne, avecIntitules && examen.faits.lignes == 0);
  }
  return examen;
}

}  // namespace

std::string_view LigneDeTableur::LireEntreGuillemets() {
  tampon_.clear();
  std::size_t i = 1;
  for (; i < reste_.size(); ++i) {
    if (reste_[i] != '"') {
      tampon_ += reste_[i];
    } else if (i + 1 < reste_.size() && reste_[i + 1] == '"') {
      tampon_ += '"';
      ++i;
    } else {
      ++i;
      break;
    }
  }
  while (i < reste_.size() && reste_[i] != separateur_) tampon_ += reste_[i++];
  Passer(i);
  return tampon_;
}

bool LecteurTableur::Lire(std::string_view& ligne) {
  if (!lecteur_.Lire(ligne)) return false;
  if (premiere_ && ligne.starts_with(kMarqueUtf8)) ligne.remove_prefix(kMarqueUtf8.size());
  premiere_ = false;
  if (utf8_ && !ResteEnAscii(ligne)) {
    converti_ = DepuisUtf8(ligne);
    ligne = converti_;
  }
  return true;
}

FaitsTableur ExaminerTableur(const Chemin& source, bool avecIntitules) {
  Separateurs premiers;
  Encodage premier;
  std::string_view ligne;
  if (LecteurLignes lecteur(source); lecteur.Lire(ligne)) {
    premier.marque = ligne.starts_with(kMarqueUtf8);
    premier.Examiner(ligne);
    premiers.Compter(ligne);
  } else if (avecIntitules) {
    throw Erreur(kFinDeFichierDepassee);
  }
  Examen examen = Examiner(source, avecIntitules, premiers.Choix(), premier.Utf8());
  const char separateur = examen.separateurs.Choix();
  const bool utf8 = examen.encodage.Utf8();
  if (separateur != examen.faits.separateur || utf8 != examen.faits.utf8)
    examen = Examiner(source, avecIntitules, separateur, utf8);
  FaitsTableur faits = std::move(examen.faits);
  if (faits.colonnes.empty()) faits.colonnes.emplace_back();
  faits.intitules.resize(faits.colonnes.size());
  return faits;
}

}  // namespace quelvar
