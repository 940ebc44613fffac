#include "capture/import_csv.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

#include "capture/nomscourts.h"
#include "capture/presence.h"
#include "capture/tableur.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/jeu.h"
#include "core/texte/nombres.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kLignesDeVerification = 10;  // lines of the .DAT shown in the report
constexpr std::size_t kPositionMaximale = 9999;    // last column that .POS can tell

struct FichiersImport {
  std::string nomSource;
  std::optional<Chemin> source;
  std::optional<Chemin> pos;
  bool datPresent = false;
};

// A column as it goes into .DAT and .POS.
struct ColonneImportee {
  std::string intitule;
  std::string nomCourt;      // empty when it stays out of .POS
  std::size_t position = 1;  // in .DAT, from 1
  std::size_t largeur = 0;
  double codeMax = 0;   // 0 for a column that holds no codes
  bool numero = false;  // identifies the individuals

  bool EstEtroite() const { return largeur > 0 && largeur <= kLargeurCodes; }
  bool HorsDePortee() const { return position > kPositionMaximale; }
  bool DansPos() const { return codeMax > 0 && !numero && !HorsDePortee(); }
};

FichiersImport TrouverFichiers(const Contexte& contexte) {
  FichiersImport fichiers;
  fichiers.source = contexte.Chercher(".CSV");
  fichiers.nomSource = contexte.Nom(fichiers.source ? ".CSV" : ".TXT");
  if (!fichiers.source) fichiers.source = contexte.Chercher(".TXT");
  fichiers.pos = contexte.Chercher(".POS");
  if (fichiers.pos && LongueurFichier(*fichiers.pos) < kPosVide) fichiers.pos.reset();
  fichiers.datPresent = contexte.Chercher(".DAT").has_value();
  return fichiers;
}

// A former copy that says something else goes on under the first number that is free (.PO3).
void GarderSauvegarde(Rapport& rapport, const Contexte& contexte, const Chemin& pos, const std::string& sauvegarde,
                      JeuDeFichiers& sorties) {
  const std::optional<Chemin> ancienne = ChercherFichier(contexte.repertoire, sauvegarde);
  if (!ancienne) return;
  const std::string contenu = LireOctets(*ancienne);
  if (contenu == LireOctets(pos)) return;
  std::string nom = sauvegarde;
  for (nom.back() = '3'; nom.back() < '9'; ++nom.back()) {
    const std::optional<Chemin> occupant = ChercherFichier(contexte.repertoire, nom);
    if (!occupant) break;
    if (LireOctets(*occupant) == contenu) return;
  }
  sorties.Ouvrir(nom, Nature::Unique).Ecrire(contenu);
  rapport.Ligne({"L'ancienne sauvegarde "_w, sauvegarde, " est conservée sous le nom "_w, nom});
}

// The copies are there whatever the import comes to: the report says so.
void SauvegarderPos(Rapport& rapport, const Contexte& contexte, const OptionsImportCsv& options, const Chemin& pos) {
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  const std::string nom = contexte.Nom(".POS");
  const std::string sauvegarde = NomDeSauvegarde(nom);
  rapport.Ligne({"Le fichier ", nom, " existe déjà"_w});
  GarderSauvegarde(rapport, contexte, pos, sauvegarde, sorties);
  CopierLignes(pos, sorties.Ouvrir(sauvegarde, Nature::Unique));
  sorties.Valider();
  rapport.Ligne({"Il est sauvegardé sous le nom "_w, sauvegarde,
                 options.sansIntitules ? " et il est effacé "_w : std::string_view{}});
}

// Lines on the files found; stops the run when there is no source.
void EcrirePresence(Rapport& rapport, const Contexte& contexte, const FichiersImport& fichiers) {
  const std::string dat = contexte.Nom(".DAT");
  const std::string pos = contexte.Nom(".POS");
  const auto presence = [&](const std::string& nom, std::string_view etat) {
    rapport.Ligne({"Le fichier ", nom, etat});
  };
  const auto existe = [](bool present) { return std::string_view(present ? " existe" : " n'existe pas"); };
  if (!fichiers.source) {
    presence(fichiers.nomSource, existe(false));
    presence(dat, existe(fichiers.datPresent));
    presence(pos, existe(fichiers.pos.has_value()));
    rapport.Ligne();
    rapport.Ligne(fichiers.pos || fichiers.datPresent ? "Arrêt du programme car il n'y a pas de données"_w
                                                      : "Arrêt du programme car aucun fichier n'existe"_w);
    throw Erreur(kArretAnnonce);
  }
  presence(fichiers.nomSource, existe(true));
  if (fichiers.datPresent) {
    presence(dat, " existait déjà et a été remplacé"_w);
  } else if (fichiers.pos) {
    presence(dat, " n'existe pas et sera cree");
  } else {
    presence(dat, " n'existe pas et sera créé"_w);
    presence(pos, " n'existe pas et sera créé"_w);
    rapport.Ligne();
    rapport.Ligne("Tous les champs du fichier seront examinés"_w);
  }
}

// The columns of the files to make. Raises 13 for a text in a column of codes.
std::vector<ColonneImportee> PlacerColonnes(const FaitsTableur& faits) {
  std::vector<ColonneImportee> colonnes;
  std::size_t position = 1;
  for (std::size_t j = 0; j < faits.colonnes.size(); ++j) {
    const FaitsColonne& fait = faits.colonnes[j];
    if (fait.texte) throw Erreur(kIncompatibiliteType);
    colonnes.push_back({faits.intitules[j], {}, position, fait.largeur, fait.codeMax, false});
    position += fait.largeur;
  }
  ColonneImportee& premiere = colonnes.front();
  premiere.numero = premiere.intitule == "NUM" || premiere.codeMax == static_cast<double>(faits.individus);
  return colonnes;
}

// Gives the columns of .POS their names; returns those whose name is not that of their title.
std::vector<std::size_t> NommerColonnes(std::vector<ColonneImportee>& colonnes) {
  std::vector<std::size_t> rangs;
  std::vector<std::string> intitules;
  for (std::size_t j = 0; j < colonnes.size(); ++j) {
    if (!colonnes[j].DansPos()) continue;
    rangs.push_back(j);
    intitules.push_back(colonnes[j].intitule);
  }
  std::vector<NomCourt> noms = NomsCourts(intitules);
  std::vector<std::size_t> changees;
  for (std::size_t i = 0; i < rangs.size(); ++i) {
    colonnes[rangs[i]].nomCourt = std::move(noms[i].nom);
    if (noms[i].distingue) changees.push_back(rangs[i]);
  }
  return changees;
}

std::string LigneDeColonne(const ColonneImportee& colonne, std::size_t numero) {
  const bool nomme = !colonne.intitule.empty();
  std::string_view statut = "NON         ";
  std::string nomCourt(3, ' ');
  std::string_view intitule = nomme ? std::string_view(colonne.intitule) : "pas d'intitulé"_w;
  if (colonne.numero) {
    statut = "NON (numéro)"_w;
    intitule = colonne.intitule;
  } else if (colonne.DansPos()) {
    statut = "OUI         ";
    nomCourt = colonne.nomCourt;
  }
  return Joindre({NombreFixe(static_cast<double>(numero), 4, 0), std::string(4, ' '), NombreFixe(colonne.codeMax, 4, 0),
                  std::string(10, ' '), NombreFixe(static_cast<double>(colonne.position), 4, 0), std::string(8, ' '),
                  NombreFixe(static_cast<double>(colonne.largeur), 4, 0), std::string(6, ' '), nomCourt,
                  std::string(7, ' '), statut, " ", intitule});
}

std::string LigneDeColonneSansIntitules(const ColonneImportee& colonne, std::size_t numero) {
  return Joindre({NombreFixe(static_cast<double>(numero), 4, 0), std::string(14, ' '),
                  NombreFixe(static_cast<double>(colonne.position), 4, 0), std::string(10, ' '),
                  NombreFixe(static_cast<double>(colonne.largeur), 4, 0)});
}

void EcrireColonnes(Rapport& rapport, const std::vector<ColonneImportee>& colonnes, const OptionsImportCsv& options) {
  rapport.Ligne();
  const std::string nombre = NombreNu(colonnes.size());
  if (options.sansIntitules) {
    rapport.Ligne({"Examen du fichier  importé qui comporte "_w, nombre, " colonnes"});
    rapport.Ligne("C'est un fichier quelconque, il ne génère pas un fichier *.POS mais seulement un fichier *.DAT\""_w);
  } else {
    rapport.Ligne({"Examen du fichier importé qui comporte "_w, nombre, " colonnes"});
  }
  rapport.Ligne();
  rapport.Ligne("Résultat de l'importation pour chaque colonne"_w);
  rapport.Ligne();
  if (options.sansIntitules) {
    rapport.Ligne("Numéro         1ère position      Largeur  "_w);
    rapport.Ligne("colonne     dans données *.DAT             "_w);
  } else {
    rapport.Ligne("Numéro   Code      1ère position  Largeur  Nom    Pris en compte   Intitulé de"_w);
    rapport.Ligne("colonne  maximum  dans données *.DAT       court    dans *.POS     la colonne"_w);
  }
  for (std::size_t j = 0; j < colonnes.size(); ++j)
    rapport.Ligne(options.sansIntitules ? LigneDeColonneSansIntitules(colonnes[j], j + 1)
                                        : LigneDeColonne(colonnes[j], j + 1));
}

std::string NumeroEtIntitule(const ColonneImportee& colonne, std::size_t rang) {
  return Joindre({NombreNu(rang + 1), colonne.intitule});
}

// What the import left out or changed in what it read; nothing for a source that is clean.
void EcrireRemarques(Rapport& rapport, const FaitsTableur& faits, const std::vector<ColonneImportee>& colonnes,
                     const std::vector<std::size_t>& nomsChanges) {
  std::vector<std::string> remarques;
  if (faits.lignesVides > 0) {
    remarques.push_back(Joindre({"*** Attention :", NombreNu(faits.lignesVides),
                                 "ligne(s) sans aucune valeur, non comptée(s) parmi les individus"_w}));
  }
  for (std::size_t j = 0; j < colonnes.size(); ++j) {
    if (faits.colonnes[j].negatives == 0) continue;
    remarques.push_back(
        Joindre({"*** Attention :", NombreNu(faits.colonnes[j].negatives),
                 "valeur(s) négative(s) comptée(s) pour 0 à la colonne"_w, NumeroEtIntitule(colonnes[j], j)}));
  }
  if (!nomsChanges.empty())
    remarques.emplace_back("*** Attention : noms courts choisis pour qu'ils soient tous différents"_w);
  for (const std::size_t j : nomsChanges)
    remarques.push_back(Joindre({"    ", colonnes[j].nomCourt, " pour la colonne", NumeroEtIntitule(colonnes[j], j)}));
  const auto loin = std::ranges::find_if(colonnes, &ColonneImportee::HorsDePortee);
  if (loin != colonnes.end()) {
    remarques.push_back(Joindre({"*** Attention : à partir de la colonne"_w, NombreNu(loin - colonnes.begin() + 1),
                                 "la position dépasse 9999, les colonnes restent hors du fichier *.POS"_w}));
  }
  if (remarques.empty()) return;
  rapport.Ligne();
  for (const std::string& remarque : remarques) rapport.Ligne(remarque);
}

void EcrirePos(Ecrivain& pos, const Contexte& contexte, const std::vector<ColonneImportee>& colonnes,
               std::int64_t individus) {
  pos.Ligne(contexte.generique);
  pos.Ligne(NombreNu(individus));
  for (const ColonneImportee& colonne : colonnes) {
    if (!colonne.DansPos()) continue;
    const std::string intitule = colonne.intitule.size() >= 4 ? Joindre({" $", colonne.intitule, "$"}) : std::string();
    pos.Ligne(LigneDeQuestion(colonne.nomCourt, static_cast<std::int64_t>(colonne.position),
                              TexteCodeMax(static_cast<int>(colonne.codeMax)), intitule));
  }
}

// Lays the cells of a line in fixed columns, a row at a time.
class MetteurEnColonnes {
 public:
  MetteurEnColonnes(const std::vector<ColonneImportee>& colonnes, const OptionsImportCsv& options) : options_(options) {
    std::size_t alignees = colonnes.size();  // behind the last column of codes the texts are not aligned
    while (alignees > 0 && !colonnes[alignees - 1].EstEtroite()) --alignees;
    alignees_ = alignees;
    for (const ColonneImportee& colonne : colonnes) places_.push_back({colonne.position - 1, colonne.largeur});
    largeurAlignee_ = alignees == 0 ? 0 : places_[alignees - 1].debut + places_[alignees - 1].largeur;
  }

  // The line of .DAT, as a view that lives until the next call.
  std::string_view Mettre(LigneDeTableur cellules) {
    ligne_.assign(largeurAlignee_, ' ');
    std::size_t j = 0;
    const char* octets = nullptr;
    std::string_view cellule;
    do {
      while (const unsigned nombre = cellules.ChiffresSuivants(octets)) {
        for (unsigned i = 0; i < nombre; ++i) PlacerChiffre(j + i, octets[i * std::size_t{2}]);
        j += nombre;
      }
      if (!cellules.Suivante(cellule)) break;
      Placer(j++, cellule);
    } while (true);
    for (j = std::max(j, alignees_); j < places_.size(); ++j) ligne_ += ' ';
    return RognerDroite(ligne_);
  }

 private:
  struct Place {
    std::size_t debut;
    std::size_t largeur;
  };

  void PlacerChiffre(std::size_t j, char chiffre) {
    if (j < alignees_ && places_[j].largeur == 1) ligne_[places_[j].debut] = chiffre;
    else Placer(j, std::string_view(&chiffre, 1));
  }

  void Placer(std::size_t j, std::string_view cellule) {
    if (j < alignees_) Aligner(places_[j], cellule);
    else ligne_.append(Rogner(cellule)).append(1, ' ');
  }

  void Aligner(const Place& place, std::string_view cellule) {
    if (cellule.empty()) return;
    char* champ = ligne_.data() + place.debut;
    if (!options_.sansIntitules && place.largeur <= kLargeurCodes) {
      if (cellule.size() > place.largeur || !std::ranges::all_of(cellule, EstChiffre)) cellule = Code(cellule);
      std::memset(champ, '0', place.largeur);
    }
    cellule = cellule.substr(0, place.largeur);
    cellule.copy(champ + (place.largeur - cellule.size()), cellule.size());
  }

  static bool EstChiffre(char c) { return c >= '0' && c <= '9'; }

  std::string_view Code(std::string_view cellule) {
    code_ = ChiffresDuCode(cellule).value_or("0");
    return code_;
  }

  const OptionsImportCsv& options_;
  std::size_t alignees_ = 0;  // columns up to the last one of codes
  std::size_t largeurAlignee_ = 0;
  std::vector<Place> places_;
  std::string ligne_;
  std::string code_;
};

// Writes the lines of .DAT; returns the first ones, for the report.
std::vector<std::string> EcrireDat(Ecrivain& dat, const Chemin& source, const FaitsTableur& faits,
                                   const OptionsImportCsv& options, const std::vector<ColonneImportee>& colonnes,
                                   Progression& progression) {
  std::vector<std::string> premieres;
  MetteurEnColonnes metteur(colonnes, options);
  LecteurTableur lecteur(source, faits.separateur);
  std::string_view ligne;
  if (!options.sansIntitules) lecteur.Lire(ligne, faits.utf8);
  while (lecteur.Lire(ligne, faits.utf8)) {
    if (LigneSansValeur(ligne, faits.separateur)) continue;
    const std::string_view individu = metteur.Mettre(LigneDeTableur(ligne, faits.separateur));
    if (premieres.size() < kLignesDeVerification) premieres.emplace_back(individu);
    dat.Ligne(individu);
    progression.Avancer();
  }
  return premieres;
}

void EcrireVerification(Rapport& rapport, std::int64_t individus, const std::vector<std::string>& premieres,
                        const OptionsImportCsv& options) {
  rapport.Ligne();
  rapport.Ligne({"Le nombre d'individus est de ", NombreNu(individus)});
  rapport.Ligne();
  rapport.Ligne("Impression des premières lignes du fichier créé *.DAT pour vérification"_w);
  rapport.Ligne();
  for (const std::string& ligne : premieres) rapport.Ligne(ligne);
  rapport.Ligne();
  rapport.Ligne("En principe la partie des données numériques est alignée alors que la partie texte ne l'est pas"_w);
  rapport.Ligne();
  rapport.Ligne("Si la répartition se fait mal, on peut forcer la séparation entre partie numérique et"_w);
  rapport.Ligne(
      "  partie texte en insérant (entre les deux parties), un zéro dans toute une colonne du fichier Excel "_w);
  rapport.Ligne();
  if (options.sansIntitules) {
    rapport.Ligne("Fin normale du programme");
  } else {
    rapport.Ligne("Si tout est ok, lancez le tri à plat et passez à la suite"_w);
    rapport.Ligne("sinon corrigez le fichier ou modifiez le fichier *.POS");
  }
}

void Importer(Rapport& rapport, const Contexte& contexte, const OptionsImportCsv& options) {
  const FichiersImport fichiers = TrouverFichiers(contexte);
  EcrireBandeau(rapport, fichiers.nomSource.ends_with(".CSV") ? "Compte rendu d'importation de données en CSV"_w
                                                              : "Compte rendu d'importation de données en TXT"_w);
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  if (fichiers.source && fichiers.pos) SauvegarderPos(rapport, contexte, options, *fichiers.pos);
  EcrirePresence(rapport, contexte, fichiers);
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".IMP")});

  const FaitsTableur faits = ExaminerTableur(*fichiers.source, !options.sansIntitules);
  std::vector<ColonneImportee> colonnes = PlacerColonnes(faits);
  const std::vector<std::size_t> nomsChanges = NommerColonnes(colonnes);
  EcrireColonnes(rapport, colonnes, options);
  EcrireRemarques(rapport, faits, colonnes, nomsChanges);

  Ecrivain& dat = sorties.Ouvrir(contexte.Nom(".DAT"), Nature::Refaisable);
  std::vector<std::string> premieres;
  {
    Progression progression(contexte.Ecran(), faits.individus);
    premieres = EcrireDat(dat, *fichiers.source, faits, options, colonnes, progression);
  }
  const std::string pos = contexte.Nom(".POS");
  if (!options.sansIntitules) EcrirePos(sorties.Ouvrir(pos, Nature::Unique), contexte, colonnes, faits.individus);
  else if (fichiers.pos) sorties.Effacer(pos);
  EcrireVerification(rapport, faits.individus, premieres, options);
  sorties.Valider();
}

}  // namespace

Fin ImportCsv(const Contexte& contexte, const OptionsImportCsv& options) {
  return ExecuterProgramme(contexte, contexte.Nom(".IMP"), LibellesErreur{},
                           [&](Rapport& rapport) { Importer(rapport, contexte, options); });
}

}  // namespace quelvar::capture
