#include "utilities/exportcsv/exportcsv.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "capture/apercu/octets/cellule.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/enquete/datfile.h"
#include "core/enquete/noms.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/jeu.h"
#include "core/fichiers/sauvegarde.h"
#include "core/programme/libelles.h"
#include "core/programme/place.h"
#include "core/texte/listes.h"
#include "utilities/entrees/avancement.h"
#include "utilities/entrees/exigences.h"
#include "utilities/exportcsv/ligne.h"
#include "utilities/exportcsv/textes.h"

namespace quelvar::utilities {

namespace {

constexpr std::size_t kPlace = std::size_t{1} << 16;  // what the buffer of the file gives in one piece

void EcrireTitres(Ecrivain& csv, const FichierPos& pos, const Tableur& tableur, const OptionsExportCsv& options) {
  if (tableur.Utf8()) csv.Ecrire(kMarqueUtf8);
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
                                options.codes ? "0" : capture::kNonReponse, " : ", Nombre(valeurs.nombre),
                                ", la première : "_w, valeurs.premiere}));
}

// A spreadsheet holds no blanks around a text.
void PrevenirDesCadrages(const Contexte& contexte, const std::vector<QuestionEnTextes>& questions,
                         const LigneCsv& ligne) {
  std::vector<std::string_view> noms;
  for (std::size_t i = 0; i < questions.size(); ++i)
    if (ligne.CadrageDe(i).SePerd()) noms.push_back(questions[i].nom);
  if (!noms.empty())
    Prevenir(contexte, Joindre({"Questions alphabétiques dont des textes commencent par des blancs : "_w,
                                Enumerer(noms), ". Une importation remettra tous leurs textes au début du champ"_w}));
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

// What the codes of each question are in the spreadsheet, and the columns that write them.
struct Colonnes {
  std::vector<QuestionEnTextes> questions;
  std::vector<ColonneCsv> cellules;
  std::vector<Champ> champs;  // as wide as the columns read them
};

// `champs`: of the questions.
Colonnes DresserColonnes(const FichierPos& pos, std::vector<Champ> champs, const IntitulesDesCodes& intitules,
                         const Tableur& tableur, const OptionsExportCsv& options) {
  Colonnes colonnes{{}, {}, std::move(champs)};
  for (std::size_t i = 0; i < pos.questions.size(); ++i) {
    const Question& question = pos.questions[i];
    colonnes.questions.push_back({question.nom, TitreDe(question, options), question.intitule, question.codeMax,
                                  TextesDesCodes(question, intitules.parQuestion[i], options)});
    colonnes.cellules.push_back(DresserColonne(question, colonnes.questions.back().textes, tableur));
    colonnes.champs[i] = colonnes.cellules.back().champ;
  }
  return colonnes;
}

void PrevenirDesPartages(const Contexte& contexte, const IntitulesDesCodes& intitules) {
  if (intitules.partages.empty()) return;
  Prevenir(contexte, Joindre({"Noms de modalités qui peuvent être ceux de plusieurs questions : "_w,
                              Nombre(intitules.partages.size()), ", le premier ", intitules.partages.front(),
                              ". Leur intitulé est donné à tous ces codes : changez le nom d'une des questions"_w}));
}

void EcrireCsv(Rapport& rapport, const Contexte& contexte, const OptionsExportCsv& options) {
  const Sources sources = TrouverSources(rapport, contexte);
  const FichierPos pos = LirePos(*sources.pos);
  ExigerParentheses(pos.taille, contexte.Ecran());
  ExigerNomsDifferents(pos);
  std::vector<Champ> champs = ChampsDe(pos);
  IntitulesDesCodes intitules{std::vector<std::vector<std::string>>(pos.questions.size()), {}};
  if (!options.codes) intitules = LireIntitulesDesCodes(*sources.modalites, pos);
  const Tableur tableur(options);
  Colonnes colonnes = DresserColonnes(pos, std::move(champs), intitules, tableur, options);
  ExigerPlaceDuCsv(rapport, contexte, colonnes.cellules, *sources.donnees, pos.taille);
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  for (const Chemin& ancien : Anciens(contexte, options)) Sauvegarder(sorties, ancien, TexteDe(ancien.filename()));
  Ecrivain& csv = sorties.Ouvrir(contexte.Nom(".csv"), Nature::Refaisable);
  EcrireTitres(csv, pos, tableur, options);
  LigneCsv ligne(colonnes.cellules, tableur);
  const Effectifs effectifs =
      EcrireIndividus(contexte, csv, *sources.donnees, ligne, LongueurUtile(colonnes.champs), pos.taille.individus);
  std::vector<QuestionEnTextes>& questions = colonnes.questions;
  for (std::size_t i = 0; i < questions.size(); ++i) questions[i].aDroite = ligne.CadrageDe(i).ADroite();
  if (options.choix) sorties.Ouvrir(contexte.Nom(".IMC"), Nature::Refaisable).Ecrire(ChoixDeLImport(questions));
  sorties.Valider();
  PrevenirDesReserves(contexte, effectifs, ligne.SansCode(), options);
  PrevenirDesPartages(contexte, intitules);
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
  return ExecuterProgramme(contexte, kRapportSansNom, LibellesSansTexte(),
                           [&](Rapport& rapport) { EcrireCsv(rapport, contexte, options); });
}

}  // namespace quelvar::utilities
