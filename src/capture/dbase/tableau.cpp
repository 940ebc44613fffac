#include "capture/dbase/tableau.h"

#include <algorithm>
#include <vector>

#include "capture/compterendu/fichiers.h"
#include "capture/dbase/dbf.h"
#include "capture/dbase/remarques.h"
#include "capture/noms/distincts.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/fichiers/jeu.h"
#include "core/programme/rapport.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kChampsAuMoins = 3;  // names, a column, long names

// The table as its header describes it.
struct TableauDBase {
  ChampDbf noms;
  std::vector<ChampDbf> colonnes;
  ChampDbf nomsLongs;
  std::size_t largeur = 0;  // of every cell in .BRT
};

TableauDBase DecouperTableau(const EnteteDbf& entete) {
  TableauDBase tableau{
      entete.champs.front(), {entete.champs.begin() + 1, entete.champs.end() - 1}, entete.champs.back()};
  for (const ChampDbf& colonne : tableau.colonnes) tableau.largeur = std::max(tableau.largeur, colonne.largeur);
  return tableau;
}

void ImprimerPresence(Rapport& rapport, const Contexte& contexte, bool dbf, bool lisible) {
  const std::string brt = contexte.Nom(".BRT");
  const std::string mod = contexte.Nom(".MOD");
  const bool brtPresent = contexte.Chercher(".BRT").has_value();
  const bool modPresent = contexte.Chercher(".MOD").has_value();
  ImprimerEtat(rapport, contexte.Nom(".DBF"), dbf ? kExiste : kNExistePas);
  if (!dbf) {
    ImprimerEtat(rapport, brt, brtPresent ? kExiste : kNExistePas);
    ImprimerEtat(rapport, mod, modPresent ? kExiste : kNExistePas);
    ArreterSansSource(rapport, brtPresent || modPresent);
  }
  ImprimerEtatDeSortie(rapport, brt, brtPresent, lisible);
  ImprimerEtatDeSortie(rapport, mod, modPresent, lisible);
  rapport.Ligne();
  rapport.Ligne(kSelonLesLargeursDuDbf);
}

// Gives each record as a line of the fields, with its number from 1; a failure of the work gets the place of the
// record.
template <class Travail>
PassageDbf ParcourirEnregistrements(const Chemin& dbf, const EnteteDbf& entete, Travail&& travail) {
  LecteurDbf lecteur(dbf, entete);
  std::string ligne(entete.LongueurLigne(), ' ');
  ConvertisseurDbf convertisseur(entete);
  PassageDbf passage;
  Situer([&] { return lecteur.Ou(); },
         [&] {
           for (std::string_view enregistrement; lecteur.Lire(enregistrement);) {
             passage.Voir(enregistrement);
             convertisseur.Convertir(enregistrement, ligne.data());
             travail(std::string_view(ligne));
           }
         });
  passage.Prendre(convertisseur);
  return passage;
}

std::string_view Morceau(std::string_view ligne, const ChampDbf& champ) {
  return ligne.substr(champ.position - 1, champ.largeur);
}

// A cell holds a number or nothing. Raises kIncompatibiliteType for a word.
void ExigerNombre(std::string_view ligne, const ChampDbf& colonne) {
  const std::string_view texte = Rogner(Morceau(ligne, colonne));
  if (!texte.empty() && !EstNombre(texte))
    throw Erreur(kIncompatibiliteType).Situer({{}, 0, static_cast<int>(colonne.position)});
}

// A number right-aligned in the width of the table; a cell that holds nothing stays blank.
void EcrireCellule(Ecrivain& brt, std::string_view ligne, const ChampDbf& colonne, std::size_t largeur) {
  const std::string_view texte = Rogner(Morceau(ligne, colonne));
  for (std::size_t i = texte.size(); i < largeur; ++i) brt.Ecrire(' ');
  brt.Ecrire(texte);
}

PassageDbf EcrireBrt(Ecrivain& brt, const Chemin& dbf, const EnteteDbf& entete, const TableauDBase& tableau,
                     const std::vector<std::string>& noms) {
  std::size_t rang = 0;
  return ParcourirEnregistrements(dbf, entete, [&](std::string_view ligne) {
    brt.Ecrire(noms[rang++]);
    for (const ChampDbf& colonne : tableau.colonnes) EcrireCellule(brt, ligne, colonne, tableau.largeur);
    brt.Ligne(Morceau(ligne, tableau.nomsLongs));
  });
}

// The name of a row or column that has none of its own: its rank. Raises kIndiceHorsSelection, with the number of the
// row, behind the last name; columns are never so many.
std::string NomDeRang(std::size_t i) {
  constexpr std::size_t kEnChiffres = 9999;
  if (i < kEnChiffres) return CadreGauche(Nombre(i + 1), kLargeurDeModalite);
  return Situer(
      [i] {
        return Lieu{{}, static_cast<std::int64_t>(i) + 1};
      },
      [i] { return NomAvecLettres(i - kEnChiffres, kLargeurDeModalite); });
}

// Names in four characters; those that are blank, end a list or are equal take their rank, which `quoi` tells.
std::vector<std::string> DesignerParRang(std::vector<std::string> noms, std::string_view quoi, Remarques& remarques) {
  const std::vector<std::string> propres = noms;
  std::vector<Renommage> renommages;
  for (const std::size_t i : DistinguerNoms(noms, FinitLesModalites, NomDeRang))
    if (noms[i] != propres[i]) renommages.push_back({propres[i], noms[i]});
  RemarquerRenommages(remarques,
                      Joindre({quoi, " sans nom ou de même nom sur 4 caractères, désignées par leur rang : "_w}),
                      renommages);
  return noms;
}

std::vector<std::string> NommerColonnes(const TableauDBase& tableau, Remarques& remarques) {
  std::vector<std::string> noms;
  for (const ChampDbf& colonne : tableau.colonnes) noms.push_back(CadreGauche(colonne.nom, kLargeurDeModalite));
  return DesignerParRang(std::move(noms), "Colonnes", remarques);
}

// The source, read as far as it can be.
struct TableauLu {
  EnteteDbf entete;
  std::uintmax_t taille = 0;
  std::int64_t lignes = 0;
  TableauDBase tableau;
  std::vector<std::string> noms;  // of the rows, as they stand
};

// Reads all that can go wrong before anything is written. Raises kIndiceHorsSelection for fewer than three fields,
// kIncompatibiliteType for a word among the counts, kFinDeFichierDepassee without rows, and what LireEnteteDuFichier
// raises.
void LireSource(const Chemin& dbf, TableauLu& lecture) {
  const EnteteDbf& entete = lecture.entete = LireEnteteDuFichier(dbf);
  if (!entete.DonneLesEnregistrements() || !entete.ContientLesChamps()) throw Erreur(kArretAnnonce);
  lecture.taille = LongueurFichier(dbf);
  lecture.lignes = static_cast<std::int64_t>(EnregistrementsEntiers(entete, lecture.taille));
  const Lieu fichier{TexteDe(dbf.filename())};
  if (lecture.lignes == 0) throw Erreur(kFinDeFichierDepassee).Situer(fichier);
  if (entete.champs.size() < kChampsAuMoins) throw Erreur(kIndiceHorsSelection).Situer(fichier);
  const TableauDBase& tableau = lecture.tableau = DecouperTableau(entete);
  ParcourirEnregistrements(dbf, entete, [&](std::string_view ligne) {
    lecture.noms.push_back(CadreGauche(Morceau(ligne, tableau.noms), kLargeurDeModalite));
    for (const ChampDbf& colonne : tableau.colonnes) ExigerNombre(ligne, colonne);
  });
}

void EcrireMod(Ecrivain& mod, const Contexte& contexte, const std::vector<std::string>& noms, std::int64_t lignes,
               std::size_t largeur) {
  mod.Ligne(contexte.generique);
  mod.Ligne(LigneDeParametres({{"IMAX=", lignes}, {"JMAX=", noms.size()}, {"FMT=", largeur}}));
  for (const std::string& nom : noms) mod.Ligne(LigneModalite(nom, false, {}));
}

void Importer(Rapport& rapport, const Contexte& contexte) {
  const std::optional<Chemin> dbf = contexte.Chercher(".DBF");
  TableauLu lecture;
  std::optional<Erreur> echec;
  if (dbf) echec = EchecDe([&] { LireSource(*dbf, lecture); });
  ImprimerBandeau(rapport, "Importation de tableau quelconque");
  ImprimerPresence(rapport, contexte, dbf.has_value(), !echec);
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".IMP")});
  const auto& [entete, taille, lignes, tableau, noms] = lecture;
  if (echec && taille == 0 && echec->Numero() != kArretAnnonce) throw *echec;
  ExigerEntete(rapport, entete, contexte.Nom(".DBF"));
  ExigerLongueur(rapport, entete, contexte.Nom(".DBF"));
  rapport.Ligne({"Nombre d'individus dans le fichier dBase=", NombreNu(lignes)});
  rapport.Ligne({"La longueur d'un enregistrement est de ", NombreNu(entete.longueurEnregistrement)});
  if (echec) throw *echec;

  Remarques remarques;
  const std::vector<std::string> colonnes = NommerColonnes(tableau, remarques);
  const std::vector<std::string> designees = Situer([&] { return Lieu{TexteDe(dbf->filename())}; },
                                                    [&] { return DesignerParRang(lecture.noms, "Lignes", remarques); });
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  Ecrivain& brt = sorties.Ouvrir(contexte.Nom(".BRT"), Nature::Refaisable);
  const PassageDbf passage = EcrireBrt(brt, *dbf, entete, tableau, designees);
  EcrireMod(sorties.Ouvrir(contexte.Nom(".MOD"), Nature::Unique), contexte, colonnes, lignes, tableau.largeur);
  ImprimerFinDImport(rapport, contexte.niveau);
  RemarquerDbf(remarques, entete, taille, passage);
  MontrerRemarques(contexte.Ecran(), remarques);
  sorties.Valider();
}

}  // namespace

LibellesErreur LibellesDesTableaux() {
  return {.imprevue = " Erreur non prévue : si après verification l'erreur persiste"_w,
          .numero = " notez le numero suivant : ERREUR NUMERO =",
          .avecTexte = false,
          .avecAsterisques = false,
          .assistance = " et prevenez l'assistance technique"};
}

Fin ImportTableau(const Contexte& contexte, const OptionsImportTableau&) {
  return ExecuterProgramme(contexte, contexte.Nom(".IMP"), LibellesDesTableaux(),
                           [&](Rapport& rapport) { Importer(rapport, contexte); });
}

}  // namespace quelvar::capture
