#include "capture/tableur.h"

#include <algorithm>
#include <cstring>

#include "core/texte/nombres.h"

namespace quelvar::capture {

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

std::int64_t Occurrences(std::string_view ligne, char signe) {
  std::int64_t nombre = 0;  // a hop a sign: the one looked for is rare
  for (std::size_t i = ligne.find(signe); i != std::string_view::npos; i = ligne.find(signe, i + 1)) ++nombre;
  return nombre;
}

// Counts of the two possible separators outside quotes.
struct Separateurs {
  std::int64_t pointsVirgules = 0;
  std::int64_t tabulations = 0;

  // A line whose cells were counted under the separator.
  void Compter(std::string_view ligne, char separateur, std::int64_t cellules, bool avecGuillemets) {
    if (avecGuillemets) return CompterHorsGuillemets(ligne);
    const bool virgules = separateur == ';';
    (virgules ? pointsVirgules : tabulations) += cellules - 1;
    (virgules ? tabulations : pointsVirgules) += Occurrences(ligne, virgules ? '\t' : ';');
  }
  // A quote opens where a field starts, whichever sign starts it.
  void CompterHorsGuillemets(std::string_view ligne) {
    bool debut = true;
    for (std::size_t i = 0; i < ligne.size(); ++i) {
      if (debut && ligne[i] == '"') {
        i = FinDesGuillemets(ligne, i);
        debut = false;
        continue;
      }
      debut = ligne[i] == ';' || ligne[i] == '\t';
      if (ligne[i] == ';') ++pointsVirgules;
      if (ligne[i] == '\t') ++tabulations;
    }
  }
  char Choix() const { return tabulations > pointsVirgules ? '\t' : ';'; }

 private:
  // Place of the quote that closes the one at `i`; the end of the line when none does.
  static std::size_t FinDesGuillemets(std::string_view ligne, std::size_t i) {
    for (++i; i < ligne.size(); ++i) {
      if (ligne[i] != '"') continue;
      if (i + 1 == ligne.size() || ligne[i + 1] != '"') break;
      ++i;
    }
    return i;
  }
};

// A number with a sign, digits and an exponent only; nothing between its characters.
bool EstCode(std::string_view cellule) {
  const std::size_t debut = cellule.find_first_not_of(" \t");
  if (debut == std::string_view::npos) return false;
  const std::size_t fin = cellule.find_last_not_of(" \t");
  const std::string_view nombre = cellule.substr(debut, fin - debut + 1);
  return nombre.find_first_of(" \t") == std::string_view::npos && EstNombre(nombre);
}

// Value of a cell of one to three digits, what most of them are; -1 for any other.
int ValeurDesChiffres(std::string_view cellule) {
  int valeur = 0;
  for (const char c : cellule) {
    if (c < '0' || c > '9') return -1;
    valeur = valeur * 10 + (c - '0');
  }
  return valeur;
}

void Retenir(FaitsColonne& colonne, std::string_view cellule) {
  colonne.largeur = std::max(colonne.largeur, cellule.size());
  if (cellule.empty() || colonne.largeur > kLargeurCodes) return;
  if (const int valeur = ValeurDesChiffres(cellule); valeur >= 0) {
    colonne.codeMax = std::max<double>(colonne.codeMax, valeur);
    return;
  }
  if (EstDecimale(cellule)) return;
  if (EstCode(cellule)) {
    colonne.codeMax = std::max(colonne.codeMax, ValeurDe(cellule));
  } else {
    colonne.texte = true;
  }
}

// One reading of the source under a supposed separator and encoding.
struct Examen {
  FaitsTableur faits;
  Separateurs separateurs;
  Encodage encodage;
  std::vector<unsigned char> chiffres;  // by column: the largest cell of one digit, as a character; 0 without any

  void LireIntitules(std::string_view ligne) {
    LigneDeTableur cellules(ligne, faits.separateur);
    for (std::string_view cellule; cellules.Suivante(cellule);) faits.intitules.emplace_back(cellule);
    separateurs.CompterHorsGuillemets(ligne);
    AssurerColonnes(faits.intitules.size());
  }

  void LireLigne(std::string_view ligne) {
    std::size_t colonne = 0;
    LigneDeTableur cellules(ligne, faits.separateur);
    const char* octets = nullptr;
    std::string_view cellule;
    do {
      while (const unsigned nombre = cellules.ChiffresSuivants(octets)) {
        AssurerColonnes(colonne + nombre);
        unsigned char* maxima = chiffres.data() + colonne;
        for (unsigned i = 0; i < nombre; ++i)
          maxima[i] = std::max(maxima[i], static_cast<unsigned char>(octets[i * std::size_t{2}]));
        colonne += nombre;
      }
      if (!cellules.Suivante(cellule)) break;
      AssurerColonnes(++colonne);
      Retenir(faits.colonnes[colonne - 1], cellule);
    } while (true);
    separateurs.Compter(ligne, faits.separateur, static_cast<std::int64_t>(colonne), cellules.AvecGuillemets());
  }

  // Brings the cells of one digit into the facts of their columns.
  void Achever() {
    for (std::size_t j = 0; j < chiffres.size(); ++j) {
      if (chiffres[j] == 0) continue;
      FaitsColonne& colonne = faits.colonnes[j];
      colonne.largeur = std::max<std::size_t>(colonne.largeur, 1);
      colonne.codeMax = std::max<double>(colonne.codeMax, chiffres[j] - '0');
    }
    faits.intitules.resize(faits.colonnes.size());
  }

 private:
  void AssurerColonnes(std::size_t nombre) {
    if (nombre <= chiffres.size()) return;
    chiffres.resize(nombre);
    faits.colonnes.resize(nombre);
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
    if (utf8 && !ResteEnAscii(ligne)) {
      converti = DepuisUtf8(ligne);
      ligne = converti;
    }
    if (avecIntitules && examen.faits.lignes == 0) examen.LireIntitules(ligne);
    else examen.LireLigne(ligne);
  }
  if (examen.faits.colonnes.empty()) examen.faits.colonnes.emplace_back();
  examen.Achever();
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
    premiers.CompterHorsGuillemets(ligne);
  } else if (avecIntitules) {
    throw Erreur(kFinDeFichierDepassee);
  }
  Examen examen = Examiner(source, avecIntitules, premiers.Choix(), premier.Utf8());
  const char separateur = examen.separateurs.Choix();
  const bool utf8 = examen.encodage.Utf8();
  if (separateur != examen.faits.separateur || utf8 != examen.faits.utf8)
    examen = Examiner(source, avecIntitules, separateur, utf8);
  return std::move(examen.faits);
}

}  // namespace quelvar::capture
