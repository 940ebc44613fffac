#include "capture/tableur/examen.h"

#include <algorithm>
#include <utility>

#include "capture/encodage/utf8.h"
#include "capture/tableur/cellules.h"
#include "capture/tableur/codes.h"
#include "capture/tableur/lecteur.h"
#include "core/chiffres/nombres.h"
#include "core/panne/annonce.h"
#include "core/texte/caracteres.h"

namespace quelvar::capture {

namespace {

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
};

// The cell without its leading zeros; "0" keeps one.
std::string_view SansZeros(std::string_view cellule) {
  return cellule.substr(std::min(cellule.find_first_not_of('0'), cellule.size() - 1));
}

void Retenir(FaitsColonne& colonne, std::string_view cellule, std::int64_t ligne) {
  colonne.largeurLue = std::max(colonne.largeurLue, cellule.size());
  if (cellule.empty() || colonne.largeurCode > kLargeurCodes) return;
  const std::string_view chiffres = SansZeros(cellule);
  if (const int valeur = ValeurDesChiffres(chiffres); valeur >= 0) {
    colonne.largeurCode = std::max(colonne.largeurCode, chiffres.size());
    colonne.codeMax = std::max<double>(colonne.codeMax, valeur);
    return;
  }
  if (const std::optional<std::string> code = ChiffresDuCode(cellule)) {
    colonne.largeurCode = std::max(colonne.largeurCode, code->size());
    colonne.codeMax = std::max(colonne.codeMax, ValeurDe(*code));
    if (ValeurDe(cellule) < 0) ++colonne.negatives;
    return;
  }
  colonne.largeurCode = std::max(colonne.largeurCode, cellule.size());
  if (EstDecimale(cellule)) {
    ++colonne.decimales;
  } else if (!std::exchange(colonne.texte, true)) {
    colonne.ligneDuTexte = ligne;
  }
}

// A column of numbers whose digits are few holds codes, and its width is that of its code-max.
void Mesurer(FaitsColonne& colonne, bool avecCodes) {
  colonne.largeur = colonne.largeurLue;
  const bool codes =
      avecCodes && colonne.largeurCode <= kLargeurCodes && (!colonne.texte || colonne.largeurLue <= kLargeurCodes);
  if (!codes) {
    colonne.codeMax = 0;
    colonne.negatives = colonne.decimales = 0;
    colonne.texte = false;
  } else if (!colonne.texte) {
    colonne.largeur = colonne.codeMax > 0 ? Nombre(colonne.codeMax).size() : colonne.largeurCode;
  }
}

// One reading of the source under a supposed separator and encoding.
struct ExamenDeTableur {
  FaitsTableur faits;
  Separateurs separateurs;
  IndicesDUtf8 encodage;
  std::int64_t blanches = 0;            // blank lines met since the last row
  std::vector<unsigned char> chiffres;  // by column: the largest cell of one digit, as a character; 0 without any

  void LireIntitules(std::string_view ligne) {
    LigneDeTableur cellules(ligne, faits.separateur);
    for (std::string_view cellule; cellules.Suivante(cellule);) {
      faits.intitules.emplace_back(cellule);
      AssurerColonnes(faits.intitules.size());
    }
    separateurs.CompterHorsGuillemets(ligne);
    AssurerColonnes(faits.intitules.size());
  }

  // A blank line counts once a row stands behind it; one of separators tells how many columns there are.
  void LireLigneVide(std::string_view ligne) {
    if (LigneBlanche(ligne)) {
      ++blanches;
      return;
    }
    faits.lignesVides += std::exchange(blanches, 0) + 1;
    std::size_t colonne = 0;
    LigneDeTableur cellules(ligne, faits.separateur);
    for (std::string_view cellule; cellules.Suivante(cellule);) ++colonne;
    AssurerColonnes(colonne);
    separateurs.CompterHorsGuillemets(ligne);
  }

  // `numero`: of the line in the source.
  void LireLigne(std::string_view ligne, std::int64_t numero) {
    if (LigneSansValeur(ligne, faits.separateur)) [[unlikely]]
      return LireLigneVide(ligne);
    ++faits.individus;
    faits.lignesVides += std::exchange(blanches, 0);
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
      Situer(
          [&] {
            return Lieu{{}, numero, static_cast<int>(colonne)};
          },
          [&] { Retenir(faits.colonnes[colonne - 1], cellule, numero); });
    } while (true);
    separateurs.Compter(ligne, faits.separateur, static_cast<std::int64_t>(colonne), cellules.AvecGuillemets());
  }

  // Brings the cells of one digit into the facts of their columns.
  void Achever(bool avecCodes) {
    for (std::size_t j = 0; j < chiffres.size(); ++j) {
      if (chiffres[j] == 0) continue;
      FaitsColonne& colonne = faits.colonnes[j];
      colonne.largeurLue = std::max<std::size_t>(colonne.largeurLue, 1);
      colonne.largeurCode = std::max<std::size_t>(colonne.largeurCode, 1);
      colonne.codeMax = std::max<double>(colonne.codeMax, chiffres[j] - '0');
    }
    for (FaitsColonne& colonne : faits.colonnes) Mesurer(colonne, avecCodes);
    faits.intitules.resize(faits.colonnes.size());
  }

 private:
  void AssurerColonnes(std::size_t nombre) {
    if (nombre <= chiffres.size()) return;
    if (nombre > kColonnesAuPlus)
      throw Erreur(
          kDepassementCapacite,
          Joindre({kArretDuProgrammeSansAccents, "la ligne ", Nombre(faits.individus + 1), " du fichier a plus de ",
                   Nombre(kColonnesAuPlus), " colonnes ; vérifiez le séparateur et les lignes vides"_w}));
    chiffres.resize(nombre);
    faits.colonnes.resize(nombre);
  }
};

ExamenDeTableur Examiner(const Chemin& source, bool avecIntitules, char separateur, bool utf8) {
  ExamenDeTableur examen;
  examen.faits.separateur = separateur;
  examen.faits.utf8 = utf8;
  LecteurTableur lecteur(source, separateur);
  std::string converti;
  bool intitules = avecIntitules;
  Situer(
      [&] {
        return Lieu{TexteDe(source.filename()), lecteur.Ligne()};
      },
      [&] {
        for (std::string_view ligne; lecteur.LireOctetsDeLigne(ligne);) {
          examen.encodage.Voir(ligne);
          if (utf8 && !EstAscii(ligne)) {
            converti = DepuisUtf8(ligne);
            ligne = converti;
          }
          if (intitules && !LigneBlanche(ligne)) {
            examen.LireIntitules(ligne);
            intitules = false;
          } else {
            examen.LireLigne(ligne, lecteur.Ligne());
          }
        }
      });
  examen.encodage.marque = lecteur.AvecMarqueUtf8();
  if (examen.faits.colonnes.empty()) examen.faits.colonnes.emplace_back();
  examen.Achever(avecIntitules);
  return examen;
}

}  // namespace

FaitsTableur ExaminerTableur(const Chemin& source, bool avecIntitules) {
  Separateurs premiers;
  IndicesDUtf8 premier;
  std::string_view ligne;
  if (LecteurTableur lecteur(source, '\0'); lecteur.LireOctetsDeLigne(ligne)) {
    premier.marque = lecteur.AvecMarqueUtf8();
    premier.Voir(ligne);
    premiers.CompterHorsGuillemets(ligne);
  } else if (avecIntitules) {
    throw Erreur(kFinDeFichierDepassee).Situer({TexteDe(source.filename())});
  }
  ExamenDeTableur examen = Examiner(source, avecIntitules, premiers.Choix(), premier.EstUtf8());
  const char separateur = examen.separateurs.Choix();
  const bool utf8 = examen.encodage.EstUtf8();
  if (separateur != examen.faits.separateur || utf8 != examen.faits.utf8)
    examen = Examiner(source, avecIntitules, separateur, utf8);
  return std::move(examen.faits);
}

}  // namespace quelvar::capture
