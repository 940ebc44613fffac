#include "utilities/exportcsv.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <optional>

#include "core/enquete/datfile.h"
#include "core/enquete/exigences.h"
#include "core/enquete/modfile.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/jeu.h"
#include "core/fichiers/sauvegarde.h"
#include "core/texte/nombres.h"
#include "utilities/utilitaires.h"

namespace quelvar::utilities {

namespace {

constexpr std::string_view kRapport = "$$$.prt";
constexpr std::string_view kNonReponse = "nr";
constexpr int kCodeEnDeuxChiffres = 36;
constexpr int kCodeNomme = 99;       // last code that has a modality
constexpr std::size_t kCourte = 16;  // bytes of a cell copied in one go
constexpr std::size_t kPlace = std::size_t{1} << 16;

// Writes texts of the code page as cells.
class Tableur {
 public:
  explicit Tableur(const OptionsExportCsv& options)
      : separateur_(options.tabulation ? '\t' : ';'), utf8_(options.utf8) {}

  char Separateur() const { return separateur_; }
  bool Utf8() const { return utf8_; }

  // A cell that holds the separator or a quote is quoted, its quotes doubled.
  std::string Cellule(std::string_view texte) const {
    std::string cellule(texte);
    if (texte.find(separateur_) != std::string_view::npos || texte.find('"') != std::string_view::npos) {
      for (std::size_t i = cellule.find('"'); i != std::string::npos; i = cellule.find('"', i + 2))
        cellule.insert(i, 1, '"');
      cellule = '"' + cellule + '"';
    }
    return utf8_ ? VersUtf8(cellule) : cellule;
  }

 private:
  char separateur_;
  bool utf8_;
};

// A cell with its separator, ready to be copied.
struct CelluleFaite {
  std::array<char, kCourte> octets = {};
  std::uint32_t longueur = 0;
  std::string longue;  // the whole cell when it is longer

  explicit CelluleFaite(const std::string& texte)
      : longueur(static_cast<std::uint32_t>(texte.size())), longue(texte.size() > kCourte ? texte : std::string()) {
    texte.copy(octets.data(), kCourte);
  }
  char* Copier(char* place) const {
    if (longueur <= kCourte) std::memcpy(place, octets.data(), kCourte);
    else std::memcpy(place, longue.data(), longueur);
    return place + longueur;
  }
};

// How the field of a question becomes a cell.
struct ColonneCsv {
  Champ champ;
  bool texte = false;
  int codeMax = 0;
  std::vector<CelluleFaite> cellules;           // by code; the one of 0 also stands for what is no code
  std::array<std::uint8_t, 256> parOctet = {};  // code of a field of one byte
  std::size_t plusLongue = 0;

  const CelluleFaite& DuCode(int valeur) const {
    return cellules[valeur < 0 || valeur > codeMax ? 0 : static_cast<std::size_t>(valeur)];
  }
};

std::string NomDuCode(const Question& question, int code) {
  return Joindre({CadreGauche(question.nom, code < kCodeEnDeuxChiffres ? 3 : 2), CodeCaractere(code)});
}

std::string TexteDuCode(const Question& question, int code, const IntitulesModalites& intitules,
                        const OptionsExportCsv& options) {
  if (options.codes) return Nombre(code);
  if (code == 0) return std::string(kNonReponse);
  if (code <= kCodeNomme)
    if (const std::string* intitule = intitules.Chercher(NomDuCode(question, code)); intitule != nullptr)
      if (const std::string_view rogne = Rogner(*intitule); !rogne.empty()) return std::string(rogne);
  return Nombre(code);
}

ColonneCsv DresserColonne(const Question& question, const IntitulesModalites& intitules, const Tableur& tableur,
                          const OptionsExportCsv& options) {
  ColonneCsv colonne;
  colonne.champ = ChampDe(question);
  colonne.texte = question.alphabetique;
  if (colonne.texte) {
    // Columns 8-9 of a text are its width.
    colonne.champ.largeur = static_cast<std::uint32_t>(question.codeMax == 999 ? 3 : std::max(question.codeMax, 1));
    colonne.plusLongue = colonne.champ.largeur * std::size_t{6} + 3;
    return colonne;
  }
  colonne.codeMax = std::max(question.codeMax, 0);
  for (int code = 0; code <= colonne.codeMax; ++code) {
    std::string cellule = tableur.Cellule(TexteDuCode(question, code, intitules, options));
    cellule += tableur.Separateur();
    colonne.plusLongue = std::max(colonne.plusLongue, std::max(cellule.size(), kCourte));
    colonne.cellules.emplace_back(cellule);
  }
  for (std::size_t octet = 0; octet < 256; ++octet) {
    const std::uint8_t valeur = ValeursDUnOctet()[octet];
    colonne.parOctet[octet] = valeur > colonne.codeMax ? std::uint8_t{0} : valeur;
  }
  return colonne;
}

// The title of a question: its label or name; for codes, the name and the label unless this one begins with it.
std::string TitreDe(const Question& question, const OptionsExportCsv& options) {
  if (question.intitule.empty()) return question.nom;
  if (!options.codes || question.intitule.starts_with(question.nom)) return question.intitule;
  return Joindre({question.nom, " ", question.intitule});
}

// Fills one line in a place that holds the longest one.
class LigneCsv {
 public:
  LigneCsv(const std::vector<ColonneCsv>& colonnes, const Tableur& tableur) : colonnes_(colonnes), tableur_(tableur) {
    plusLongue_ = 2;
    for (const ColonneCsv& colonne : colonnes) plusLongue_ += colonne.plusLongue;
  }
  std::size_t PlusLongue() const { return plusLongue_; }

  // Returns the end of what is written; the last separator gives way to the end of the line.
  char* Ecrire(const char* individu, char* place) const {
    for (const ColonneCsv& colonne : colonnes_) {
      if (colonne.texte) {
        place = EcrireTexte({individu + colonne.champ.debut, colonne.champ.largeur}, place);
      } else if (colonne.champ.largeur == 1) {
        const auto octet = static_cast<unsigned char>(individu[colonne.champ.debut]);
        place = colonne.cellules[colonne.parOctet[octet]].Copier(place);
      } else {
        place = colonne.DuCode(LireChampInterieur(individu, colonne.champ)).Copier(place);
      }
    }
    if (!colonnes_.empty()) --place;
    *place++ = '\r';
    *place++ = '\n';
    return place;
  }

 private:
  char* EcrireTexte(std::string_view texte, char* place) const {
    const std::string cellule = tableur_.Cellule(Rogner(texte));
    place += cellule.copy(place, cellule.size());
    *place++ = tableur_.Separateur();
    return place;
  }

  const std::vector<ColonneCsv>& colonnes_;
  const Tableur& tableur_;
  std::size_t plusLongue_;
};

void EcrireTitres(Ecrivain& csv, const FichierPos& pos, const Tableur& tableur, const OptionsExportCsv& options) {
  if (tableur.Utf8()) csv.Ecrire("\xEF\xBB\xBF");
  bool premier = true;
  for (const Question& question : pos.questions) {
    if (!premier) csv.Ecrire(tableur.Separateur());
    premier = false;
    csv.Ecrire(tableur.Cellule(TitreDe(question, options)));
  }
  csv.FinDeLigne();
}

void EcrireIndividus(const Contexte& contexte, Ecrivain& csv, const Chemin& donnees, const LigneCsv& ligne,
                     std::size_t longueurUtile, std::int64_t annonces) {
  AvancementOctets avancement(contexte, LongueurFichier(donnees));
  LecteurIndividus lecteur(donnees, longueurUtile);
  std::unique_ptr<char[]> tampon;
  if (ligne.PlusLongue() > kPlace) tampon = std::make_unique<char[]>(ligne.PlusLongue());
  for (std::int64_t lus = 0; annonces == 0 || lus < annonces; ++lus) {
    const char* individu = lecteur.Lire();
    if (individu == nullptr) return;
    if (tampon) {
      const char* fin = ligne.Ecrire(individu, tampon.get());
      csv.Ecrire(std::string_view(tampon.get(), static_cast<std::size_t>(fin - tampon.get())));
    } else {
      char* place = csv.Place(kPlace);
      csv.Avancer(static_cast<std::size_t>(ligne.Ecrire(individu, place) - place));
    }
    avancement.Avancer(longueurUtile);
  }
}

struct Sources {
  std::optional<Chemin> donnees, pos, modalites;
};

Sources TrouverSources(Rapport& rapport, const Contexte& contexte) {
  Sources sources{contexte.Chercher(".dat"), contexte.Chercher(".pos"), contexte.Chercher(".mod")};
  ExigerEntrees(rapport, contexte,
                {{contexte.Nom(".dat"), sources.donnees},
                 {contexte.Nom(".pos"), sources.pos},
                 {contexte.Nom(".mod"), sources.modalites}});
  return sources;
}

void EcrireCsv(Rapport& rapport, const Contexte& contexte, const OptionsExportCsv& options) {
  const Sources sources = TrouverSources(rapport, contexte);
  const FichierPos pos = LirePos(*sources.pos);
  ExigerParentheses(pos.taille, contexte.Ecran());
  std::vector<Champ> champs = ChampsDe(pos);
  const IntitulesModalites intitules = LireIntitules(*sources.modalites);
  const Tableur tableur(options);
  std::vector<ColonneCsv> colonnes;
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    colonnes.push_back(DresserColonne(pos.questions[i], intitules, tableur, options));
    champs[i] = colonnes.back().champ;
  }
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  // A former .csv may be the source of the data set.
  if (const std::optional<Chemin> ancien = contexte.Chercher(".csv"))
    Sauvegarder(sorties, *ancien, TexteDe(ancien->filename()));
  Ecrivain& csv = sorties.Ouvrir(contexte.Nom(".csv"), Nature::Refaisable);
  EcrireTitres(csv, pos, tableur, options);
  EcrireIndividus(contexte, csv, *sources.donnees, LigneCsv(colonnes, tableur), LongueurUtile(champs),
                  pos.taille.individus);
  sorties.Valider();
}

}  // namespace

Fin ExporterCsv(const Contexte& contexte, const OptionsExportCsv& options) {
  const std::optional<Chemin> ancien = contexte.Chercher(".csv");
  if (ancien &&
      contexte.Ecran().demander(
          Joindre({"Le fichier ", TexteDe(ancien->filename()),
                   " existe déjà : il va être remplacé, et conservé sous le nom "_w,
                   NomDeSauvegardeLibre(contexte.repertoire, TexteDe(ancien->filename())), ". L'acceptez-vous ?"}),
          Boutons::OuiNon) != Reponse::Oui)
    return Fin::Arret;
  return ExecuterProgramme(contexte, kRapport, Libelles(),
                           [&](Rapport& rapport) { EcrireCsv(rapport, contexte, options); });
}

}  // namespace quelvar::utilities
