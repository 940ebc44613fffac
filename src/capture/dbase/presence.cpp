#include "capture/dbase/presence.h"

#include "capture/compterendu/fichiers.h"
#include "core/enquete/posfile.h"

namespace quelvar::capture {

FichiersDBase TrouverFichiersDBase(const Contexte& contexte) {
  return {contexte.Chercher(".DBF"), contexte.Chercher(".DAT"), ChercherPos(contexte.repertoire, contexte.Nom(".POS"))};
}

void ImprimerPresence(Rapport& rapport, const Contexte& contexte, const FichiersDBase& fichiers, bool lisible) {
  const std::string dat = contexte.Nom(".DAT");
  const std::string pos = contexte.Nom(".POS");
  const std::string dbf = contexte.Nom(".DBF");
  if (fichiers.dbf) {
    ImprimerEtat(rapport, dbf, kExiste);
    ImprimerEtatDeSortie(rapport, dat, fichiers.dat.has_value(), lisible);
    ImprimerEtatDeSortie(rapport, pos, fichiers.pos.has_value(), lisible);
    rapport.Ligne();
    rapport.Ligne(kSelonLesLargeursDuDbf);
  } else if (fichiers.dat) {
    ImprimerEtat(rapport, dat, kExiste);
    ImprimerEtat(rapport, pos, fichiers.pos ? kExiste : kSeraCreeSansAccents);
    rapport.Ligne();
    rapport.Ligne(fichiers.pos ? "Toutes les positions sont examinées selon les largeurs de *.POS"_w
                               : "Toutes les positions sont examinées l'une apres l'autre"_w);
  } else {
    ImprimerEtat(rapport, dbf, kNExistePas);
    ImprimerEtat(rapport, dat, kNExistePas);
    ImprimerEtat(rapport, pos, fichiers.pos ? kExiste : kNExistePas);
    ArreterSansSource(rapport, fichiers.pos.has_value());
  }
}

void ImprimerAvis(Rapport& rapport) {
  rapport.Ligne("   +------------------------------------------------------------+");
  rapport.Ligne("   + Le nom du  champ dBase  est repris uniquement  dans le cas +");
  rapport.Ligne("   + des champs de largeur 1 ou 2. Les autres sont  decoupés en +"_w);
  rapport.Ligne("   + positions de largeur 1 et nommés par leur position dans le +"_w);
  rapport.Ligne("   + fichier *.POS                                              +");
}

FichiersDeTableau TrouverFichiersDeTableau(const Contexte& contexte) {
  return {contexte.Chercher(".DBF"), contexte.Chercher(".BRT").has_value(), contexte.Chercher(".MOD").has_value()};
}

void ImprimerPresence(Rapport& rapport, const Contexte& contexte, const FichiersDeTableau& fichiers, bool lisible) {
  const std::string brt = contexte.Nom(".BRT");
  const std::string mod = contexte.Nom(".MOD");
  ImprimerEtat(rapport, contexte.Nom(".DBF"), fichiers.dbf ? kExiste : kNExistePas);
  if (!fichiers.dbf) {
    ImprimerEtat(rapport, brt, fichiers.brt ? kExiste : kNExistePas);
    ImprimerEtat(rapport, mod, fichiers.mod ? kExiste : kNExistePas);
    ArreterSansSource(rapport, fichiers.brt || fichiers.mod);
  }
  ImprimerEtatDeSortie(rapport, brt, fichiers.brt, lisible);
  ImprimerEtatDeSortie(rapport, mod, fichiers.mod, lisible);
  rapport.Ligne();
  rapport.Ligne(kSelonLesLargeursDuDbf);
}

}  // namespace quelvar::capture
