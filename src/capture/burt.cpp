#include "capture/burt.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "capture/dbase/tableau.h"
#include "capture/fichiers.h"
#include "capture/utf8.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/fichiers/jeu.h"
#include "core/programme/report.h"
#include "core/texte/caracteres.h"
#include "core/texte/nombres.h"

namespace quelvar::capture {

namespace {

constexpr std::string_view kBlancs = " \t";

// The words of a row that are its counts, and the label before them.
struct Rangee {
  std::string_view intitule;
  std::vector<std::string_view> effectifs;
};

bool EstVide(std::string_view ligne) { return ligne.find_first_not_of(kBlancs) == std::string_view::npos; }

// The last `nombre` words of the line. Raises kIndiceHorsSelection when it has not as many, kIncompatibiliteType when
// one of them is not a number, with its column.
void LireRangee(std::string_view ligne, std::size_t nombre, Rangee& rangee) {
  rangee.effectifs.resize(nombre);
  std::string_view reste = ligne;
  for (std::size_t j = nombre; j-- > 0;) {
    reste = reste.substr(0, reste.find_last_not_of(kBlancs) + 1);
    if (reste.empty()) throw Erreur(kIndiceHorsSelection);
    const std::size_t avant = reste.find_last_of(kBlancs);
    const std::size_t debut = avant == std::string_view::npos ? 0 : avant + 1;
    const std::string_view mot = reste.substr(debut);
    if (!EstNombre(mot)) throw Erreur(kIncompatibiliteType).Situer({{}, 0, static_cast<int>(debut) + 1});
    rangee.effectifs[j] = mot;
    reste = reste.substr(0, debut);
  }
  const std::size_t debut = reste.find_first_not_of(kBlancs);
  rangee.intitule = debut == std::string_view::npos ? std::string_view{}
                                                    : reste.substr(debut, reste.find_last_not_of(kBlancs) + 1 - debut);
}

// What the letters of a source come to in the code page.
struct Conversion {
  bool utf8 = false;
  std::int64_t accents = 0;  // characters of several bytes
  std::int64_t perdus = 0;   // of these, the ones that the code page lacks
  std::int64_t ligne = 0;    // the first line with one of them
};

std::int64_t Interrogations(std::string_view texte) { return std::ranges::count(texte, '?'); }

Conversion ExaminerConversion(const Chemin& source) {
  Conversion conversion;
  IndicesDUtf8 indices;
  LecteurLignes lecteur(source);
  std::int64_t numero = 0;
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (++numero == 1) indices.marque = OterMarqueUtf8(ligne);
    if (EstAscii(ligne)) continue;
    indices.Voir(ligne);
    conversion.accents += std::ranges::count_if(ligne, [](char c) { return (c & 0xC0) == 0xC0; });
    const std::int64_t perdus = Interrogations(DepuisUtf8(ligne)) - Interrogations(ligne);
    if (conversion.perdus == 0 && perdus > 0) conversion.ligne = numero;
    conversion.perdus += perdus;
  }
  conversion.utf8 = indices.EstUtf8();
  return conversion;
}

// The rows of a source as texts of the code page, those that hold nothing but blanks left out.
class LecteurDeBurt {
 public:
  LecteurDeBurt(const Chemin& chemin, bool utf8) : lecteur_(chemin), utf8_(utf8) {}
  bool Lire(std::string_view& ligne) {
    while (lecteur_.Lire(ligne)) {
      if (utf8_) {
        if (std::exchange(premiere_, false)) OterMarqueUtf8(ligne);
        convertie_ = DepuisUtf8(ligne);
        ligne = convertie_;
      }
      if (!EstVide(ligne)) return true;
    }
    return false;
  }
  // Gives the next row to the work, whose failure gets its place.
  bool Lire(std::size_t nombre, Rangee& rangee) {
    std::string_view ligne;
    if (!Lire(ligne)) return false;
    Situer(lecteur_, [&] { LireRangee(ligne, nombre, rangee); });
    return true;
  }

 private:
  LecteurLignes lecteur_;
  bool utf8_;
  bool premiere_ = true;
  std::string convertie_;
};

struct FaitsBurt {
  std::size_t rangees = 0;
  std::size_t largeur = 0;  // characters of the longest count
  double diagonale = 0;     // individuals times questions
  double total = 0;         // of all the cells
  std::vector<std::string> intitules;

  // Number of questions, if the table is one of a whole number of them.
  std::optional<double> Questions() const {
    if (diagonale <= 0) return std::nullopt;
    const double questions = total / diagonale;
    return questions >= 1 && questions == std::floor(questions) ? std::optional(questions) : std::nullopt;
  }
};

FaitsBurt Examiner(const Chemin& source, bool utf8) {
  FaitsBurt faits;
  std::string_view ligne;
  for (LecteurDeBurt lecteur(source, utf8); lecteur.Lire(ligne);) ++faits.rangees;
  if (faits.rangees == 0) throw Erreur(kFinDeFichierDepassee).Situer({TexteDe(source.filename())});
  Rangee rangee;
  for (LecteurDeBurt lecteur(source, utf8); lecteur.Lire(faits.rangees, rangee);) {
    const std::size_t i = faits.intitules.size();
    faits.diagonale += ValeurDe(rangee.effectifs[i]);
    for (const std::string_view mot : rangee.effectifs) {
      faits.largeur = std::max(faits.largeur, mot.size());
      faits.total += ValeurDe(mot);
    }
    faits.intitules.emplace_back(rangee.intitule);
  }
  return faits;
}

// Short and long name of a row.
struct Modalite {
  std::string nom;
  std::string intitule;
};

std::vector<Modalite> Nommer(const FaitsBurt& faits, NomsCourts noms) {
  std::vector<Modalite> modalites;
  for (std::size_t i = 0; i < faits.rangees; ++i) {
    const std::string& intitule = faits.intitules[i];
    if (noms == NomsCourts::Automatiques)
      modalites.push_back({CadreGauche(Nombre(i + 1), kLargeurDeModalite), intitule});
    else
      modalites.push_back(
          {CadreGauche(intitule, kLargeurDeModalite), std::string(Milieu(intitule, kLargeurDeModalite + 1))});
  }
  return modalites;
}

// Short names given by the user must let every row be found: stops the run for one that ends the list of modalities or
// that two rows share.
void ExigerNoms(Rapport& rapport, const std::vector<Modalite>& modalites) {
  std::unordered_map<std::string_view, std::size_t> rangs;
  for (std::size_t i = 0; i < modalites.size(); ++i) {
    const std::string& nom = modalites[i].nom;
    if (FinitLesModalites(nom)) {
      rapport.Ligne({"Le nom court de la ligne "_w, Nombre(i + 1), " (\"", nom,
                     "\") n'est pas possible : il terminerait la liste des modalités"_w});
      throw Erreur(kArretAnnonce);
    }
    if (const auto [deja, neuf] = rangs.emplace(nom, i); !neuf) {
      rapport.Ligne(
          {"Les lignes "_w, Nombre(deja->second + 1), " et ", Nombre(i + 1), " ont le même nom court (\""_w, nom,
           "\") : donnez-leur des noms différents sur 4 caractères, ou prenez les noms courts automatiques"_w});
      throw Erreur(kArretAnnonce);
    }
  }
}

// Asks the size of the survey until the number of questions that it gives is agreed to.
double DemanderEffectif(Rapport& rapport, const Contexte& contexte, const FaitsBurt& faits) {
  const std::optional<double> questions = faits.Questions();
  const std::string propose = questions ? Nombre(faits.diagonale / *questions) : std::string();
  const std::string demande = questions ? Joindre({"Entrez l'effectif de l'enquête si différent de "_w, propose})
                                        : std::string("Entrez l'effectif de l'enquête  "_w);
  for (;;) {
    std::string reponse = contexte.Ecran().saisir(demande, propose);
    if (Rogner(reponse).empty()) reponse = propose;
    if (reponse.empty()) {  // nothing is proposed and nothing was typed: the box was closed
      rapport.Ligne("Importation abandonnée : l'effectif de l'enquête n'est pas donné"_w);
      throw Erreur(kArretAnnonce);
    }
    const double effectif = ValeurDe(reponse);
    if (effectif <= 0) continue;
    const Reponse coherent = contexte.Ecran().demander(
        Joindre(
            {"le nombre de questions est de ", Nombre(faits.diagonale / effectif),
             " : est-ce cohérent ? (une valeur fractionnaire est incohérente). En cas d'incertitude, répondez oui : "
             "vous pourrez ultérieurement corriger la valeur de l'effectif dans la deuxième ligne du fichier *.POS "
             "en utilisant l'éditeur. "_w}),
        Boutons::OuiNon);
    if (coherent != Reponse::Non) return effectif;
  }
}

void SauvegarderAnciens(Rapport& rapport, const Contexte& contexte, JeuDeFichiers& sauvegardes) {
  for (const std::string_view extension : {".BRT", ".MOD", ".POS"})
    if (const std::optional<Chemin> ancien = contexte.Chercher(extension))
      SauvegarderAncien(rapport, contexte.Nom(extension), *ancien, sauvegardes);
}

void SignalerIntitulesCoupes(const Dialogue& dialogue, const std::vector<Modalite>& modalites) {
  const auto coupes = std::count_if(modalites.begin(), modalites.end(), [](const auto& modalite) {
    return modalite.intitule.size() > std::size_t{kIntituleDeModaliteAuPlus};
  });
  if (coupes > 0)
    dialogue.demander(Joindre({"Intitulés de plus de "_w, Nombre(kIntituleDeModaliteAuPlus),
                               " caractères, coupés dans *.MOD : "_w, Nombre(static_cast<std::int64_t>(coupes))}),
                      Boutons::Ok);
}

void SignalerConversion(const Dialogue& dialogue, std::string_view nom, const Conversion& conversion) {
  if (!conversion.utf8 || conversion.accents == 0) return;
  std::string texte = Joindre(
      {"Le fichier ", nom, " est en UTF-8. Caractères convertis à la lecture : "_w, Nombre(conversion.accents)});
  if (conversion.perdus > 0)
    texte +=
        Joindre({", dont "_w, Nombre(conversion.perdus),
                 " sans équivalent, remplacés par \"?\" (le premier à la ligne "_w, Nombre(conversion.ligne), ")"});
  dialogue.demander(texte, Boutons::Ok);
}

void EcrireMod(Ecrivain& mod, const Contexte& contexte, const FaitsBurt& faits,
               const std::vector<Modalite>& modalites) {
  mod.Ligne(contexte.generique);
  mod.Ligne(LigneDeParametres({{"BRT=", faits.rangees}, {"FMT=", faits.largeur}}));
  for (const Modalite& modalite : modalites) mod.Ligne(LigneModalite(modalite.nom, false, modalite.intitule));
}

// The rows of .BRT, written to the file and to the report.
void EcrireRangees(Ecrivain& brt, Rapport& rapport, LecteurDeBurt lecteur, const FaitsBurt& faits,
                   const std::vector<Modalite>& modalites) {
  Rangee rangee;
  std::string texte;
  for (std::size_t i = 0; i < faits.rangees && lecteur.Lire(faits.rangees, rangee); ++i) {
    texte = modalites[i].nom;
    for (const std::string_view mot : rangee.effectifs) texte.append(faits.largeur - mot.size(), ' ').append(mot);
    brt.Ligne(texte);
    rapport.Ligne(texte);
  }
}

// What is known of the table before anything is written.
struct Preparation {
  bool utf8 = false;
  FaitsBurt faits;
  std::vector<Modalite> modalites;
  double effectif = 0;
};

Preparation Preparer(Rapport& rapport, const Contexte& contexte, const Chemin& source, NomsCourts noms) {
  const Conversion conversion = ExaminerConversion(source);
  FaitsBurt faits = Examiner(source, conversion.utf8);
  std::vector<Modalite> modalites = Nommer(faits, noms);
  ExigerNoms(rapport, modalites);
  SignalerConversion(contexte.Ecran(), TexteDe(source.filename()), conversion);
  SignalerIntitulesCoupes(contexte.Ecran(), modalites);
  const double effectif = DemanderEffectif(rapport, contexte, faits);
  return {conversion.utf8, std::move(faits), std::move(modalites), effectif};
}

// The copies of the former files stay when the table can't be read, as the report tells; one who gives up in the
// question on the size leaves no trace.
Preparation SauvegarderEtPreparer(Rapport& rapport, const Contexte& contexte, const Chemin& source, NomsCourts noms) {
  JeuDeFichiers sauvegardes(contexte.repertoire, contexte.generique);
  SauvegarderAnciens(rapport, contexte, sauvegardes);
  Preparation preparation;
  const std::optional<Erreur> echec = EchecDe([&] { preparation = Preparer(rapport, contexte, source, noms); });
  sauvegardes.Valider();
  if (echec) throw *echec;
  return preparation;
}

void Importer(Rapport& rapport, const Contexte& contexte, const OptionsImportBurt& options) {
  const std::optional<Chemin> source = ChercherFichier(contexte.repertoire, options.fichier);
  const std::string nomSource = TexteDe(CheminDe(options.fichier).filename());
  ExigerFichiers(rapport, contexte.Ecran(), {{nomSource, source.has_value()}}, kArretAbsence);
  ImprimerBandeau(rapport, "Importation d'un tableau de Burt");
  const auto [utf8, faits, modalites, effectif] = SauvegarderEtPreparer(rapport, contexte, *source, options.noms);

  rapport.Ligne({"Le tableau de burt ", nomSource, " a été importé et est enregistré sous le nom "_w,
                 contexte.Nom(".BRT"), " imprimé ci-dessous et qu'il faut vérifier "_w});
  rapport.Ligne({"Les caractéristiques du tableau de burt sont dans le fichier "_w, contexte.Nom(".MOD")});
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  EcrireRangees(sorties.Ouvrir(contexte.Nom(".BRT"), Nature::Refaisable), rapport, LecteurDeBurt(*source, utf8), faits,
                modalites);
  EcrireMod(sorties.Ouvrir(contexte.Nom(".MOD"), Nature::Unique), contexte, faits, modalites);
  Ecrivain& pos = sorties.Ouvrir(contexte.Nom(".POS"), Nature::Unique);
  pos.Ligne(contexte.generique);
  pos.Ligne(NombreNu(effectif));
  rapport.Ligne({"L'effectif de la population de l'enquête est de "_w, NombreNu(effectif), " individus"});
  rapport.Ligne({"Il est enregistré dans le fichier "_w, contexte.Nom(".POS")});
  rapport.Ligne("Fin normale du programme");
  sorties.Valider();
}

}  // namespace

std::string_view RefusDImporterBurt(const OptionsImportBurt& options) {
  return options.fichier.empty() ? "Vous devez définir le fichier Burt issu de SAS"_w : std::string_view{};
}

Fin ImportBurt(const Contexte& contexte, const OptionsImportBurt& options) {
  return ExecuterProgramme(contexte, contexte.Nom(".IMP"), LibellesDesTableaux(),
                           [&](Rapport& rapport) { Importer(rapport, contexte, options); });
}

}  // namespace quelvar::capture
