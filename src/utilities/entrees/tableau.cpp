#include "utilities/entrees/tableau.h"

#include "core/chiffres/nombres.h"
#include "core/enquete/coherence.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"
#include "core/panne/attention.h"

namespace quelvar::utilities {

namespace {

std::int64_t CompterRangees(const Chemin& brt) {
  std::int64_t lues = 0;
  std::int64_t pleines = 0;
  LecteurLignes lecteur(brt);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    ++lues;
    if (!Rogner(ligne).empty()) pleines = lues;
  }
  return pleines;
}

std::int64_t LignesDUnBloc(const ParametresMod& parametres, std::int64_t lignesDuFichier) {
  if (parametres.burt > 1) return parametres.burt;
  return parametres.lignes >= 1 ? Entier64(parametres.lignes) : lignesDuFichier;
}

}  // namespace

void CellulesAPart::Noter(std::int64_t ligne, std::size_t colonne, std::string_view cellule) {
  if (nombre++ > 0) return;
  premiere = Joindre(
      {"la première à la ligne "_w, Nombre(ligne), ", colonne ", Nombre(colonne), " ("_w, Rogner(cellule), ")"});
}

void CellulesAPart::Dire(Texte sorte, std::vector<std::string>& remarques) const {
  if (nombre > 0) remarques.push_back(Joindre({kAttention, "cellules ", sorte, " :", NombreNu(nombre), premiere}));
}

void CellulesSansNombre::Voir(const LigneDeTableau& ligne) {
  if (ligne.courte && courtes_++ == 0) premiereCourte_ = ligne.rang;
  for (std::size_t j = 0; j < ligne.cellules.size(); ++j)
    if (!Rogner(ligne.cellules[j]).empty() && !EstNombre(ligne.cellules[j]))
      textes_.Noter(ligne.rang, j + 1, ligne.cellules[j]);
}

std::vector<std::string> CellulesSansNombre::Remarques() const {
  std::vector<std::string> remarques;
  textes_.Dire("qui ne sont pas des nombres, lues jusqu'au premier signe de trop ou comptées pour 0"_w, remarques);
  if (courtes_ > 0)
    remarques.push_back(
        Joindre({kAttention, "lignes plus courtes que leurs cellules, dont ce qui manque compte pour 0 :"_w,
                 NombreNu(courtes_), "la première est la ligne "_w, Nombre(premiereCourte_)}));
  return remarques;
}

std::vector<std::string> FichiersManquants(const Contexte& contexte) {
  std::vector<std::string> manques;
  if (!contexte.Chercher(".BRT")) manques.push_back(PhraseDAbsence(contexte.Nom(".BRT"), "*** Le tableau de Burt"));
  if (!contexte.Chercher(".MOD")) manques.push_back(PhraseDAbsence(contexte.Nom(".MOD"), kLeFichierEnRelief));
  return manques;
}

TableauDuGenerique LireTableau(const Contexte& contexte) {
  const Chemin chemin = contexte.Exiger(".MOD");
  const FichierMod mod = LireMod(chemin);
  TableauDuGenerique tableau;
  tableau.brt = contexte.Exiger(".BRT");
  tableau.titre = mod.titre;
  tableau.parametres = LireParametres(mod.parametres, TexteDe(chemin.filename()));
  if (!tableau.AUnFormat()) return tableau;
  if (tableau.parametres.largeur < 0)
    throw Erreur(kArgumentIncorrect).Situer({TexteDe(chemin.filename()), kLigneDesParametres});
  for (const Modalite& modalite : mod.modalites)
    tableau.colonnes.push_back(
        {modalite.nom, modalite.intitule.substr(0, kIntituleDeModaliteAuPlus), modalite.supplementaire});
  ExigerTableDuMod(tableau.brt, mod, tableau.parametres);
  tableau.lignesDuFichier = CompterRangees(tableau.brt);
  tableau.lignes = LignesDUnBloc(tableau.parametres, tableau.lignesDuFichier);
  return tableau;
}

void ParcourirTableau(const TableauDuGenerique& tableau, std::int64_t lignes,
                      const std::function<void(const LigneDeTableau&)>& recevoir) {
  const auto largeur = static_cast<std::size_t>(tableau.parametres.largeur);
  LigneDeTableau rangee;
  rangee.cellules.resize(tableau.colonnes.size());
  LecteurLignes lecteur(tableau.brt);
  const std::size_t longueur = kLargeurDeModalite + tableau.colonnes.size() * largeur;
  for (rangee.rang = 1; rangee.rang <= lignes; ++rangee.rang) {
    const std::string_view ligne = lecteur.LireObligatoire();
    rangee.courte = ligne.size() < longueur;
    rangee.nom = CadreGauche(ligne, kLargeurDeModalite);
    std::size_t colonne = kLargeurDeModalite + 1;
    for (std::string_view& cellule : rangee.cellules) {
      cellule = Milieu(ligne, colonne, largeur);
      colonne += largeur;
    }
    rangee.intitule = Rogner(Milieu(ligne, colonne)).substr(0, kIntituleDeModaliteAuPlus);
    recevoir(rangee);
  }
}

}  // namespace quelvar::utilities
