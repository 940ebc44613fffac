#include "capture/dbase/tableau.h"

#include <utility>
#include <vector>

#include "capture/compterendu/fichiers.h"
#include "capture/dbase/lecturedetableau.h"
#include "capture/dbase/presence.h"
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

void EcrireMod(Ecrivain& mod, const Contexte& contexte, const std::vector<std::string>& noms, std::int64_t lignes,
               std::size_t largeur) {
  mod.Ligne(contexte.generique);
  mod.Ligne(LigneDeParametres({{"IMAX=", lignes}, {"JMAX=", noms.size()}, {"FMT=", largeur}}));
  for (const std::string& nom : noms) mod.Ligne(LigneModalite(nom, false, {}));
}

void Importer(Rapport& rapport, const Contexte& contexte) {
  const FichiersDeTableau fichiers = TrouverFichiersDeTableau(contexte);
  const std::optional<Chemin>& dbf = fichiers.dbf;
  TableauLu lu;
  std::optional<Erreur> echec;
  if (dbf) echec = EchecDe([&] { LireTableau(*dbf, lu); });
  ImprimerBandeau(rapport, "Importation de tableau quelconque");
  ImprimerPresence(rapport, contexte, fichiers, !echec);
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".IMP")});
  const auto& [entete, taille, lignes, tableau, noms] = lu;
  if (echec && taille == 0 && echec->Numero() != kArretAnnonce) throw *echec;
  ExigerEntete(rapport, entete, contexte.Nom(".DBF"));
  ExigerLongueur(rapport, entete, contexte.Nom(".DBF"));
  rapport.Ligne({"Nombre d'individus dans le fichier dBase=", NombreNu(lignes)});
  rapport.Ligne({"La longueur d'un enregistrement est de ", NombreNu(entete.longueurEnregistrement)});
  if (echec) throw *echec;

  Remarques remarques;
  const std::vector<std::string> colonnes = NommerColonnes(tableau, remarques);
  const std::vector<std::string> designees = Situer([&] { return Lieu{TexteDe(dbf->filename())}; },
                                                    [&] { return DesignerParRang(lu.noms, "Lignes", remarques); });
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  Ecrivain& brt = sorties.Ouvrir(contexte.Nom(".BRT"), Nature::Refaisable);
  const PassageDbf passage = EcrireBrt(brt, *dbf, lu, designees);
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
