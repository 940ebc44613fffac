#include "capture/dbase/tableau.h"

#include <algorithm>
#include <vector>

#include "capture/dbase/dbf.h"
#include "capture/dbase/remarques.h"
#include "capture/fichiers.h"
#include "capture/noms.h"
#include "core/enquete/modfile.h"
#include "core/enquete/parametres.h"
#include "core/fichiers/jeu.h"
#include "core/programme/report.h"
#include "core/texte/nombres.h"

namespace quelvar::capture {

namespace {

constexpr int kLargeurNom = 4;

// The table as its header describes it.
struct Tableau {
  ChampDbf noms;
  std::vector<ChampDbf> colonnes;
  ChampDbf nomsLongs;
  std::size_t largeur = 0;  // of every cell in .BRT
};

Tableau DecouperTableau(const EnteteDbf& entete) {
  if (entete.champs.size() < 3) throw Erreur(kIndiceHorsSelection);
  Tableau tableau{entete.champs.front(), {entete.champs.begin() + 1, entete.champs.end() - 1}, entete.champs.back()};
  for (const ChampDbf& colonne : tableau.colonnes) tableau.largeur = std::max(tableau.largeur, colonne.largeur);
  return tableau;
}

void EcrirePresence(Rapport& rapport, const Contexte& contexte, bool dbf) {
  const std::string brt = contexte.Nom(".BRT");
  const std::string mod = contexte.Nom(".MOD");
  const bool brtPresent = contexte.Chercher(".BRT").has_value();
  const bool modPresent = contexte.Chercher(".MOD").has_value();
  EcrireEtat(rapport, contexte.Nom(".DBF"), dbf ? kExiste : kNExistePas);
  if (!dbf) {
    EcrireEtat(rapport, brt, brtPresent ? kExiste : kNExistePas);
    EcrireEtat(rapport, mod, modPresent ? kExiste : kNExistePas);
    rapport.Ligne();
    rapport.Ligne(brtPresent || modPresent ? "Arrêt du programme car il n'y a pas de données"_w
                                           : "Arrêt du programme car aucun fichier n'existe"_w);
    throw Erreur(kArretAnnonce);
  }
  EcrireEtatDeSortie(rapport, brt, brtPresent);
  EcrireEtatDeSortie(rapport, mod, modPresent);
  rapport.Ligne();
  rapport.Ligne("Toutes les positions sont examinées selon les largeurs de *.DBF"_w);
}

// A number right-aligned in the width of the table; a cell that holds nothing stays blank. Raises kIncompatibiliteType
// for a word.
void EcrireCellule(Ecrivain& brt, std::string_view texte, std::size_t largeur) {
  texte = Rogner(texte);
  if (!texte.empty() && !EstNombre(texte)) throw Erreur(kIncompatibiliteType);
  for (std::size_t i = texte.size(); i < largeur; ++i) brt.Ecrire(' ');
  brt.Ecrire(texte);
}

PassageDbf EcrireBrt(Ecrivain& brt, LecteurDbf& lecteur, const EnteteDbf& entete, const Tableau& tableau) {
  std::string ligne(std::max(entete.LongueurLigne(), entete.LongueurChamps()), ' ');
  const auto champ = [&](const ChampDbf& de) { return std::string_view(ligne).substr(de.position - 1, de.largeur); };
  ConvertisseurDbf convertisseur(entete);
  PassageDbf passage;
  for (std::string_view enregistrement; lecteur.Lire(enregistrement);) {
    passage.Voir(enregistrement);
    convertisseur.Convertir(enregistrement, ligne.data());
    brt.Ecrire(CadreGauche(champ(tableau.noms), kLargeurNom));
    for (const ChampDbf& colonne : tableau.colonnes) EcrireCellule(brt, champ(colonne), tableau.largeur);
    brt.Ligne(champ(tableau.nomsLongs));
  }
  passage.Prendre(convertisseur);
  return passage;
}

// The names of the columns in four characters; those that are blank, end the list or are equal take their rank.
std::vector<std::string> NommerColonnes(const Tableau& tableau, Remarques& remarques) {
  std::vector<std::string> noms;
  for (const ChampDbf& colonne : tableau.colonnes) noms.push_back(CadreGauche(colonne.nom, kLargeurNom));
  const std::vector<std::string> propres = noms;
  const auto rang = [](std::size_t j) { return CadreGauche(Nombre(j + 1), kLargeurNom); };
  std::string renommees;
  for (const std::size_t j : DistinguerNoms(noms, FinitLesModalites, rang))
    renommees +=
        Joindre({std::string_view(renommees.empty() ? "" : ", "), Rogner(propres[j]), " -> ", Rogner(noms[j])});
  if (!renommees.empty())
    remarques.push_back(
        Joindre({"Colonnes sans nom ou de même nom sur 4 caractères, désignées par leur rang : "_w, renommees}));
  return noms;
}

void EcrireMod(Ecrivain& mod, const Contexte& contexte, const std::vector<std::string>& noms, std::int64_t lignes,
               std::size_t largeur) {
  mod.Ligne(contexte.generique);
  mod.Ligne(LigneDeParametres({{"IMAX=", lignes}, {"JMAX=", noms.size()}, {"FMT=", largeur}}));
  for (const std::string& nom : noms) mod.Ligne(LigneModalite(nom, false, {}));
}

void Importer(Rapport& rapport, const Contexte& contexte) {
  const std::optional<Chemin> dbf = contexte.Chercher(".DBF");
  EcrireBandeau(rapport, "Importation de tableau quelconque");
  EcrirePresence(rapport, contexte, dbf.has_value());
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".IMP")});

  const EnteteDbf entete = ExigerEntete(rapport, *dbf, contexte.Nom(".DBF"));
  LecteurDbf lecteur(*dbf, entete);
  const auto lignes = static_cast<std::int64_t>(lecteur.Enregistrements());
  rapport.Ligne({"Nombre d'individus dans le fichier dBase=", NombreNu(lignes)});
  rapport.Ligne({"La longueur d'un enregistrement est de ", NombreNu(entete.longueurEnregistrement)});
  if (lignes == 0) throw Erreur(kFinDeFichierDepassee);
  const Tableau tableau = DecouperTableau(entete);

  Remarques remarques;
  const std::vector<std::string> noms = NommerColonnes(tableau, remarques);
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  Ecrivain& brt = sorties.Ouvrir(contexte.Nom(".BRT"), Nature::Refaisable);
  const PassageDbf passage = EcrireBrt(brt, lecteur, entete, tableau);
  EcrireMod(sorties.Ouvrir(contexte.Nom(".MOD"), Nature::Unique), contexte, noms, lignes, tableau.largeur);
  EcrireFinDImport(rapport, contexte.niveau);
  RemarquerDbf(remarques, entete, lecteur.Taille(), passage);
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
