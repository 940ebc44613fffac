#include "capture/dbase/lecturedetableau.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kChampsAuMoins = 3;  // names, a column, long names

TableauDBase DecouperTableau(const EnteteDbf& entete) {
  TableauDBase tableau{
      entete.champs.front(), {entete.champs.begin() + 1, entete.champs.end() - 1}, entete.champs.back()};
  for (const ChampDbf& colonne : tableau.colonnes) tableau.largeur = std::max(tableau.largeur, colonne.largeur);
  return tableau;
}

// Gives each record as a line of the fields, with its number from 1; a failure of the work gets the place of the
// record.
template <class Faire>
PassageDbf ParcourirEnregistrements(const Chemin& dbf, const EnteteDbf& entete, Faire&& faire) {
  LecteurDbf lecteur(dbf, entete);
  std::string ligne(entete.LongueurLigne(), ' ');
  ConvertisseurDbf convertisseur(entete);
  PassageDbf passage;
  Situer([&] { return lecteur.Ou(); },
         [&] {
           for (std::string_view enregistrement; lecteur.Lire(enregistrement);) {
             passage.Voir(enregistrement);
             convertisseur.Convertir(enregistrement, ligne.data());
             faire(std::string_view(ligne));
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

}  // namespace

void LireTableau(const Chemin& dbf, TableauLu& lu) {
  const EnteteDbf& entete = lu.entete = LireEnteteDuFichier(dbf);
  if (!entete.DonneLesEnregistrements() || !entete.ContientLesChamps()) throw Erreur(kArretAnnonce);
  lu.taille = LongueurFichier(dbf);
  lu.lignes = static_cast<std::int64_t>(EnregistrementsEntiers(entete, lu.taille));
  const Lieu fichier{TexteDe(dbf.filename())};
  if (lu.lignes == 0) throw Erreur(kFinDeFichierDepassee).Situer(fichier);
  if (entete.champs.size() < kChampsAuMoins) throw Erreur(kIndiceHorsSelection).Situer(fichier);
  const TableauDBase& tableau = lu.tableau = DecouperTableau(entete);
  ParcourirEnregistrements(dbf, entete, [&](std::string_view ligne) {
    lu.noms.push_back(CadreGauche(Morceau(ligne, tableau.noms), kLargeurDeModalite));
    for (const ChampDbf& colonne : tableau.colonnes) ExigerNombre(ligne, colonne);
  });
}

PassageDbf EcrireBrt(Ecrivain& brt, const Chemin& dbf, const TableauLu& lu, const std::vector<std::string>& noms) {
  std::size_t rang = 0;
  return ParcourirEnregistrements(dbf, lu.entete, [&](std::string_view ligne) {
    brt.Ecrire(noms[rang++]);
    for (const ChampDbf& colonne : lu.tableau.colonnes) EcrireCellule(brt, ligne, colonne, lu.tableau.largeur);
    brt.Ligne(Morceau(ligne, lu.tableau.nomsLongs));
  });
}

}  // namespace quelvar::capture
