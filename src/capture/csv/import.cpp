#include "capture/csv/import.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <vector>

#include "capture/colonnes/colonne.h"
#include "capture/colonnes/compterendu.h"
#include "capture/colonnes/metteur.h"
#include "capture/compterendu/fichiers.h"
#include "capture/tableur/cellules.h"
#include "capture/tableur/examen.h"
#include "capture/tableur/lecteur.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/posfile.h"
#include "core/fichiers/jeu.h"
#include "core/panne/attention.h"
#include "core/programme/alerte.h"
#include "core/texte/listes.h"

namespace quelvar::capture {

namespace {

struct FichiersImport {
  std::string nomSource;
  std::optional<Chemin> source;
  std::optional<Chemin> pos;
  bool datPresent = false;
};

FichiersImport TrouverFichiers(const Contexte& contexte) {
  FichiersImport fichiers;
  fichiers.source = contexte.Chercher(".CSV");
  fichiers.nomSource = contexte.Nom(fichiers.source ? ".CSV" : ".TXT");
  if (!fichiers.source) fichiers.source = contexte.Chercher(".TXT");
  fichiers.pos = ChercherPos(contexte.repertoire, contexte.Nom(".POS"));
  fichiers.datPresent = contexte.Chercher(".DAT").has_value();
  return fichiers;
}

// The columns of the files to make. Raises kIncompatibiliteType for a text in a column of codes, with the place of the
// first one.
std::vector<ColonneImportee> PlacerColonnes(const FaitsTableur& faits, const Chemin& source) {
  std::vector<ColonneImportee> colonnes;
  std::size_t position = 1;
  for (std::size_t j = 0; j < faits.colonnes.size(); ++j) {
    const FaitsColonne& fait = faits.colonnes[j];
    if (fait.texte)
      throw Erreur(kIncompatibiliteType)
          .Situer({TexteDe(source.filename()), fait.ligneDuTexte, static_cast<int>(j + 1)});
    colonnes.push_back({faits.intitules[j], {}, position, fait.largeur, fait.codeMax, false, false, j + 1});
    position += fait.largeur;
  }
  ColonneImportee& premiere = colonnes.front();
  premiere.numero = premiere.intitule == kTitreNumero || premiere.codeMax == static_cast<double>(faits.individus);
  return colonnes;
}

// What the import left out or changed in what it read; nothing for a source that is clean.
std::vector<std::string> Remarquer(const FaitsTableur& faits, const std::vector<ColonneImportee>& colonnes,
                                   const std::vector<std::size_t>& nomsChanges) {
  std::vector<std::string> remarques;
  if (faits.lignesVides > 0) remarques.push_back(RemarqueLignesVides(faits.lignesVides));
  for (std::size_t j = 0; j < colonnes.size(); ++j)
    if (const std::int64_t nombre = faits.colonnes[j].negatives; nombre > 0)
      remarques.push_back(RemarqueNegatives(nombre, colonnes[j].rang, colonnes[j].intitule));
  RemarquerNoms(remarques, colonnes, nomsChanges);
  return remarques;
}

// The report is that of a clean source: what its columns of codes can't hold is told in a box.
void PrevenirDesDecimales(const Contexte& contexte, const FaitsTableur& faits,
                          const std::vector<ColonneImportee>& colonnes) {
  std::vector<std::string> dites;
  for (std::size_t j = 0; j < colonnes.size(); ++j)
    if (const std::int64_t nombre = faits.colonnes[j].decimales; nombre > 0)
      dites.push_back(Joindre({Nombre(nombre), " dans la colonne ", Nombre(j + 1), " (", colonnes[j].intitule, ")"}));
  if (dites.empty()) return;
  AlerterEnBoite(
      contexte.Ecran(),
      Joindre({kAttention, "des nombres décimaux comptent pour 0 dans des colonnes de codes : "_w, Enumerer(dites)}));
}

// Lines that end in CR alone are one line for the reader.
void PrevenirDesCrSeuls(const Contexte& contexte, const Chemin& source, std::int64_t individus) {
  LecteurLignes lecteur(source);
  std::string_view ligne;
  if (individus > 0 || !lecteur.Lire(ligne) || ligne.find('\r') == std::string_view::npos) return;
  AlerterEnBoite(contexte.Ecran(),
                 Joindre({kAttention, "les lignes de "_w, TexteDe(source.filename()),
                          " finissent par un retour chariot seul, et aucun individu n'est lu : enregistrez ce fichier "
                          "avec des fins de ligne ordinaires, ou employez l'importation d'un nouveau fichier"_w}));
}

// The copies are there whatever the import comes to: the report says so.
void SauvegarderAncienPos(Rapport& rapport, const Contexte& contexte, const OptionsImportCsv& options,
                          const Chemin& pos) {
  JeuDeFichiers sauvegardes(contexte.repertoire, contexte.generique);
  SauvegarderAncien(rapport, contexte.Nom(".POS"), pos, sauvegardes,
                    options.sansIntitules ? " et il est effacé "_w : std::string_view{});
  sauvegardes.Valider();
}

// Writes the lines of .DAT; returns the first ones, for the report.
std::vector<std::string> EcrireDat(Ecrivain& dat, const Chemin& source, const FaitsTableur& faits,
                                   const OptionsImportCsv& options, const std::vector<ColonneImportee>& colonnes,
                                   Progression& progression) {
  std::vector<std::string> premieres;
  MetteurEnColonnes metteur(colonnes, !options.sansIntitules);
  LecteurTableur lecteur(source, faits.separateur);
  std::string_view ligne;
  if (!options.sansIntitules)
    while (lecteur.Lire(ligne, faits.utf8) && LigneBlanche(ligne)) {
    }
  while (lecteur.Lire(ligne, faits.utf8)) {
    if (LigneSansValeur(ligne, faits.separateur)) continue;
    const std::string_view individu = metteur.Mettre(LigneDeTableur(ligne, faits.separateur));
    if (premieres.size() < kLignesDeVerification) premieres.emplace_back(individu);
    dat.Ligne(individu);
    progression.Avancer();
  }
  return premieres;
}

void Importer(Rapport& rapport, const Contexte& contexte, const OptionsImportCsv& options) {
  const FichiersImport fichiers = TrouverFichiers(contexte);
  ImprimerBandeau(rapport, fichiers.nomSource.ends_with(".CSV") ? "Compte rendu d'importation de données en CSV"_w
                                                                : "Compte rendu d'importation de données en TXT"_w);
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  if (fichiers.source && fichiers.pos) SauvegarderAncienPos(rapport, contexte, options, *fichiers.pos);
  ImprimerPresence(rapport, contexte, fichiers.nomSource,
                   {fichiers.source.has_value(), fichiers.datPresent, fichiers.pos.has_value()});
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".IMP")});

  const FaitsTableur faits = ExaminerTableur(*fichiers.source, !options.sansIntitules);
  std::vector<ColonneImportee> colonnes = PlacerColonnes(faits, *fichiers.source);
  const std::vector<std::size_t> nomsChanges = NommerColonnes(colonnes);
  ImprimerColonnes(rapport, colonnes, colonnes.size(), options.sansIntitules);
  ImprimerRemarques(rapport, Remarquer(faits, colonnes, nomsChanges));

  Ecrivain& dat = sorties.Ouvrir(contexte.Nom(".DAT"), Nature::Refaisable);
  std::vector<std::string> premieres;
  {
    Progression progression(contexte.Ecran(), faits.individus);
    premieres = EcrireDat(dat, *fichiers.source, faits, options, colonnes, progression);
  }
  const std::string pos = contexte.Nom(".POS");
  if (!options.sansIntitules)
    EcrirePos(sorties.Ouvrir(pos, Nature::Unique), contexte.generique, colonnes, faits.individus);
  else if (fichiers.pos) sorties.Effacer(pos);
  ImprimerVerification(rapport, faits.individus, premieres, options.sansIntitules);
  PrevenirDesDecimales(contexte, faits, colonnes);
  PrevenirDesCrSeuls(contexte, *fichiers.source, faits.individus);
  PrevenirDesTableaux(contexte, sorties);
  sorties.Valider();
}

}  // namespace

Fin ImportCsv(const Contexte& contexte, const OptionsImportCsv& options) {
  return ExecuterProgramme(contexte, contexte.Nom(".IMP"), LibellesErreur{},
                           [&](Rapport& rapport) { Importer(rapport, contexte, options); });
}

}  // namespace quelvar::capture
