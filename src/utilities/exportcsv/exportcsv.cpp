#include "utilities/exportcsv/exportcsv.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <optional>

#include "core/enquete/datfile.h"
#include "core/enquete/exigences.h"
#include "core/enquete/noms.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/jeu.h"
#include "core/fichiers/sauvegarde.h"
#include "core/programme/place.h"
#include "core/texte/nombres.h"
#include "utilities/exportcsv/textes.h"
#include "utilities/utilitaires.h"

namespace quelvar::utilities {

namespace {

constexpr std::string_view kRapport = "$$$.prt";
constexpr std::string_view kNonReponse = "nr";
constexpr std::size_t kCourte = 16;  // bytes of a cell copied in one go
constexpr std::size_t kPlace = std::size_t{1} << 16;

// Writes texts of the code page as cells.
class Tableur {
 public:
  explicit Tableur(const OptionsExportCsv& options)
      : separateur_(options.tabulation ? '\t' : ';'),
        aProteger_(options.choix ? kSeparateurs : std::string{separateur_}),
        utf8_(options.utf8) {
    aProteger_ += '"';
  }

  char Separateur() const { return separateur_; }
  bool Utf8() const { return utf8_; }

  // A cell that holds the separator or a quote is quoted, its quotes doubled; in a file that is to be imported again,
  // also one that holds what an import might take for the separator.
  std::string Cellule(std::string_view texte) const {
    std::string cellule(texte);
    if (texte.find_first_of(aProteger_) != std::string_view::npos) {
      for (std::size_t i = cellule.find('"'); i != std::string::npos; i = cellule.find('"', i + 2))
        cellule.insert(i, 1, '"');
      cellule = '"' + cellule + '"';
    }
    return utf8_ ? VersUtf8(cellule) : cellule;
  }

 private:
  static constexpr const char* kSeparateurs = ";,\t|";  // that an import knows
  char separateur_;
  std::string aProteger_;
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
  std::string nom;
  Champ champ;
  bool texte = false;
  int codeMax = 0;
  std::vector<CelluleFaite> cellules;           // by code; the last one, that of 0 again, for what is no code
  std::array<std::uint8_t, 256> parOctet = {};  // place in the cells of a field of one byte
  std::size_t plusLongue = 0;

  std::size_t PasUnCode() const { return cellules.size() - 1; }
  // Place in the cells of a field that lies inside the line.
  std::size_t PlaceDe(const char* individu) const {
    const char* octets = individu + champ.debut;
    if (champ.largeur == 1) return parOctet[static_cast<unsigned char>(*octets)];
    const int valeur = LireChampInterieur(individu, champ);
    if (valeur < 0 || valeur > codeMax) return PasUnCode();
    const bool chiffres =
        std::all_of(octets, octets + champ.largeur, [](char c) { return c == ' ' || (c >= '0' && c <= '9'); });
    return chiffres || EstNombre({octets, champ.largeur}) ? static_cast<std::size_t>(valeur) : PasUnCode();
  }
};

// Values that are no code of their question, and where the first one stands.
struct ValeursSansCode {
  std::int64_t nombre = 0;
  std::string premiere;
};

std::string TexteDuCode(int code, const std::vector<std::string>& intitules, const OptionsExportCsv& options) {
  if (options.codes) return Nombre(code);
  if (code == 0) return std::string(kNonReponse);
  if (const auto rang = static_cast<std::size_t>(code); rang < intitules.size() && !intitules[rang].empty())
    return intitules[rang];
  return Nombre(code);
}

// The texts of the codes of a question, from 0 on; none for a question of texts.
std::vector<std::string> TextesDesCodes(const Question& question, const std::vector<std::string>& intitules,
                                        const OptionsExportCsv& options) {
  std::vector<std::string> textes;
  for (int code = 0; !question.alphabetique && code <= std::max(question.codeMax, 0); ++code)
    textes.push_back(TexteDuCode(code, intitules, options));
  return textes;
}

ColonneCsv DresserColonne(const Question& question, const std::vector<std::string>& textes, const Tableur& tableur) {
  ColonneCsv colonne;
  colonne.nom = question.nom;
  colonne.champ = ChampDe(question);
  colonne.texte = question.alphabetique;
  if (colonne.texte) {
    // Columns 8-9 of a text are its width.
    colonne.champ.largeur = static_cast<std::uint32_t>(question.codeMax == 999 ? 3 : std::max(question.codeMax, 1));
    colonne.plusLongue = colonne.champ.largeur * std::size_t{6} + 3;
    return colonne;
  }
  colonne.codeMax = std::max(question.codeMax, 0);
  for (std::size_t code = 0; code <= textes.size(); ++code) {
    std::string cellule = tableur.Cellule(textes[code < textes.size() ? code : 0]);
    cellule += tableur.Separateur();
    colonne.plusLongue = std::max(colonne.plusLongue, std::max(cellule.size(), kCourte));
    colonne.cellules.emplace_back(cellule);
  }
  for (std::size_t octet = 0; octet < 256; ++octet) {
    const std::uint8_t valeur = ValeursDUnOctet()[octet];
    const bool code = octet == ' ' || (octet >= '0' && octet <= '9' && valeur <= colonne.codeMax);
    if (colonne.champ.largeur == 1)
      colonne.parOctet[octet] = code ? valeur : static_cast<std::uint8_t>(colonne.PasUnCode());
  }
  return colonne;
}

// The title of a question: its label or name; for codes, the name and the label unless this one begins with it.
std::string TitreDe(const Question& question, const OptionsExportCsv& options) {
  if (question.intitule.empty()) return question.nom;
  if (!options.codes || question.intitule.starts_with(question.nom)) return question.intitule;
  return Joindre({question.nom, " ", question.intitule});
}

// Where the texts of a question stand in their field.
struct Cadrage {
  bool decales = false;    // some begin behind its start
  bool inacheves = false;  // some end before its end
  bool ADroite() const { return decales && !inacheves; }
  bool SePerd() const { return decales && inacheves; }

  void Voir(std::string_view champ) {
    decales = decales || champ.front() == ' ';
    inacheves = inacheves || champ.back() == ' ';
  }
};

// Fills one line in a place that holds the longest one.
class LigneCsv {
 public:
  LigneCsv(const std::vector<ColonneCsv>& colonnes, const Tableur& tableur)
      : colonnes_(colonnes), tableur_(tableur), cadrages_(colonnes.size()) {
    plusLongue_ = 2;
    for (const ColonneCsv& colonne : colonnes) plusLongue_ += colonne.plusLongue;
  }
  std::size_t PlusLongue() const { return plusLongue_; }

  // Returns the end of what is written; the last separator gives way to the end of the line.
  char* Ecrire(const char* individu, char* place) {
    std::size_t fautes = 0;
    for (const ColonneCsv& colonne : colonnes_) {
      if (colonne.texte) {
        place = EcrireTexte({individu + colonne.champ.debut, colonne.champ.largeur},
                            cadrages_[static_cast<std::size_t>(&colonne - colonnes_.data())], place);
        continue;
      }
      const std::size_t rang = colonne.PlaceDe(individu);
      fautes += rang == colonne.PasUnCode() ? 1U : 0U;
      place = colonne.cellules[rang].Copier(place);
    }
    ++individus_;
    if (fautes > 0) Noter(individu, fautes);
    if (!colonnes_.empty()) --place;
    *place++ = '\r';
    *place++ = '\n';
    return place;
  }
  const ValeursSansCode& SansCode() const { return sansCode_; }
  const Cadrage& CadrageDe(std::size_t colonne) const { return cadrages_[colonne]; }

 private:
  char* EcrireTexte(std::string_view champ, Cadrage& cadrage, char* place) const {
    const std::string_view texte = Rogner(champ);
    if (!texte.empty()) cadrage.Voir(champ);
    const std::string cellule = tableur_.Cellule(texte);
    place += cellule.copy(place, cellule.size());
    *place++ = tableur_.Separateur();
    return place;
  }

  void Noter(const char* individu, std::size_t fautes) {
    sansCode_.nombre += static_cast<std::int64_t>(fautes);
    if (!sansCode_.premiere.empty()) return;
    for (const ColonneCsv& colonne : colonnes_) {
      if (colonne.texte || colonne.PlaceDe(individu) != colonne.PasUnCode()) continue;
      sansCode_.premiere =
          Joindre({"individu ", Nombre(individus_), ", question ", colonne.nom, " (",
                   Rogner(std::string_view(individu + colonne.champ.debut, colonne.champ.largeur)), ")"});
      return;
    }
  }

  const std::vector<ColonneCsv>& colonnes_;
  const Tableur& tableur_;
  std::size_t plusLongue_;
  std::int64_t individus_ = 0;
  ValeursSansCode sansCode_;
  std::vector<Cadrage> cadrages_;  // of the questions of texts
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

// What .POS announces and what .DAT holds.
struct Effectifs {
  std::int64_t annonces = 0;  // 0: all of them
  std::int64_t lus = 0;
  std::int64_t laisses = 0;  // lines past the announced ones
};

Effectifs EcrireIndividus(const Contexte& contexte, Ecrivain& csv, const Chemin& donnees, LigneCsv& ligne,
                          std::size_t longueurUtile, std::int64_t annonces) {
  AvancementOctets avancement(contexte, LongueurFichier(donnees));
  LecteurIndividus lecteur(donnees, longueurUtile);
  std::unique_ptr<char[]> tampon;
  if (ligne.PlusLongue() > kPlace) tampon = std::make_unique<char[]>(ligne.PlusLongue());
  Effectifs effectifs{annonces, 0, 0};
  for (; annonces == 0 || effectifs.lus < annonces; ++effectifs.lus) {
    const char* individu = lecteur.Lire();
    if (individu == nullptr) return effectifs;
    if (tampon) {
      const char* fin = ligne.Ecrire(individu, tampon.get());
      csv.Ecrire(std::string_view(tampon.get(), static_cast<std::size_t>(fin - tampon.get())));
    } else {
      char* place = csv.Place(kPlace);
      csv.Avancer(static_cast<std::size_t>(ligne.Ecrire(individu, place) - place));
    }
    avancement.Avancer(longueurUtile);
  }
  while (lecteur.Lire() != nullptr) ++effectifs.laisses;
  return effectifs;
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

// Former outputs, which may be the source of the data set or somebody's work.
std::vector<Chemin> Anciens(const Contexte& contexte, const OptionsExportCsv& options) {
  std::vector<Chemin> anciens;
  for (const std::string_view extension : {".csv", ".IMC"})
    if (const std::optional<Chemin> ancien = contexte.Chercher(extension);
        ancien && (extension == ".csv" || options.choix))
      anciens.push_back(*ancien);
  return anciens;
}

std::string CopieDe(const Contexte& contexte, const Chemin& ancien) {
  return NomDeSauvegardeLibre(contexte.repertoire, TexteDe(ancien.filename()));
}

void PrevenirDesReserves(const Contexte& contexte, const Effectifs& effectifs, const ValeursSansCode& valeurs,
                         const OptionsExportCsv& options) {
  if (effectifs.laisses > 0 || effectifs.lus < effectifs.annonces)
    Prevenir(contexte, Joindre({contexte.Nom(".POS"), " annonce ", Nombre(effectifs.annonces), " individus et ",
                                contexte.Nom(".DAT"), " en a ", Nombre(effectifs.lus + effectifs.laisses),
                                " : le tableur en reçoit "_w, Nombre(effectifs.lus)}));
  if (valeurs.nombre > 0)
    Prevenir(contexte, Joindre({"Valeurs qui ne sont pas des codes de leur question, exportées sous la forme "_w,
                                options.codes ? "0" : kNonReponse, " : ", Nombre(valeurs.nombre), ", la première : "_w,
                                valeurs.premiere}));
}

// A spreadsheet holds no blanks around a text.
void PrevenirDesCadrages(const Contexte& contexte, const std::vector<QuestionEnTextes>& questions,
                         const LigneCsv& ligne) {
  std::string noms;
  for (std::size_t i = 0; i < questions.size(); ++i)
    if (ligne.CadrageDe(i).SePerd()) noms += (noms.empty() ? "" : ", ") + questions[i].nom;
  if (!noms.empty())
    Prevenir(contexte, Joindre({"Questions alphabétiques dont des textes commencent par des blancs : "_w, noms,
                                ". Une importation remettra tous leurs textes au début du champ"_w}));
}

// The cells at their longest, for the individuals that are announced and that the file can hold.
void ExigerPlaceDuCsv(Rapport& rapport, const Contexte& contexte, const std::vector<ColonneCsv>& colonnes,
                      const Chemin& donnees, const LigneTaille& taille) {
  const std::uint64_t lignes =
      std::min<std::uint64_t>(static_cast<std::uint64_t>(std::max<std::int64_t>(AnnoncesOuComptes(taille, donnees), 0)),
                              LongueurFichier(donnees));
  std::uint64_t ligne = 2;
  for (const ColonneCsv& colonne : colonnes) ligne += colonne.plusLongue + 1;
  ExigerPlace(contexte, rapport, {0, lignes * ligne});
}

void EcrireCsv(Rapport& rapport, const Contexte& contexte, const OptionsExportCsv& options) {
  const Sources sources = TrouverSources(rapport, contexte);
  const FichierPos pos = LirePos(*sources.pos);
  ExigerParentheses(pos.taille, contexte.Ecran());
  ExigerNomsDifferents(pos.questions);
  std::vector<Champ> champs = ChampsDe(pos);
  IntitulesDesCodes intitules{std::vector<std::vector<std::string>>(pos.questions.size()), {}};
  if (!options.codes) intitules = LireIntitulesDesCodes(*sources.modalites, pos);
  const Tableur tableur(options);
  std::vector<ColonneCsv> colonnes;
  std::vector<QuestionEnTextes> questions;
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    const Question& question = pos.questions[i];
    questions.push_back({question.nom, TitreDe(question, options), question.intitule, question.codeMax,
                         TextesDesCodes(question, intitules.parQuestion[i], options)});
    colonnes.push_back(DresserColonne(question, questions.back().textes, tableur));
    champs[i] = colonnes.back().champ;
  }
  ExigerPlaceDuCsv(rapport, contexte, colonnes, *sources.donnees, pos.taille);
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  for (const Chemin& ancien : Anciens(contexte, options)) Sauvegarder(sorties, ancien, TexteDe(ancien.filename()));
  Ecrivain& csv = sorties.Ouvrir(contexte.Nom(".csv"), Nature::Refaisable);
  EcrireTitres(csv, pos, tableur, options);
  LigneCsv ligne(colonnes, tableur);
  const Effectifs effectifs =
      EcrireIndividus(contexte, csv, *sources.donnees, ligne, LongueurUtile(champs), pos.taille.individus);
  for (std::size_t i = 0; i < questions.size(); ++i) questions[i].aDroite = ligne.CadrageDe(i).ADroite();
  if (options.choix) sorties.Ouvrir(contexte.Nom(".IMC"), Nature::Refaisable).Ecrire(ChoixDeLImport(questions));
  sorties.Valider();
  PrevenirDesReserves(contexte, effectifs, ligne.SansCode(), options);
  if (!intitules.partages.empty())
    Prevenir(contexte, Joindre({"Noms de modalités qui peuvent être ceux de plusieurs questions : "_w,
                                Nombre(intitules.partages.size()), ", le premier ", intitules.partages.front(),
                                ". Leur intitulé est donné à tous ces codes : changez le nom d'une des questions"_w}));
  if (options.choix) {
    PrevenirDesCadrages(contexte, questions, ligne);
    if (const std::string perdu = CeQuiNePassePas(contexte.generique, pos, *sources.modalites); !perdu.empty())
      Prevenir(contexte, perdu);
  }
  if (const std::string confondus = CodesConfondus(questions); !confondus.empty()) Prevenir(contexte, confondus);
}

bool RemplacementAccepte(const Contexte& contexte, const OptionsExportCsv& options) {
  const std::vector<Chemin> anciens = Anciens(contexte, options);
  return std::all_of(anciens.begin(), anciens.end(), [&](const Chemin& ancien) {
    return contexte.Ecran().demander(Joindre({"Le fichier ", TexteDe(ancien.filename()),
                                              " existe déjà : il va être remplacé, et conservé sous le nom "_w,
                                              CopieDe(contexte, ancien), ". L'acceptez-vous ?"}),
                                     Boutons::OuiNon) == Reponse::Oui;
  });
}

}  // namespace

Fin ExporterCsv(const Contexte& contexte, const OptionsExportCsv& options) {
  if (!RemplacementAccepte(contexte, options)) return Fin::Arret;
  return ExecuterProgramme(contexte, kRapport, Libelles(),
                           [&](Rapport& rapport) { EcrireCsv(rapport, contexte, options); });
}

}  // namespace quelvar::utilities
