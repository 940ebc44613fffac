#include "capture/fichiers.h"

#include <string>

#include "capture/presence.h"
#include "core/fichiers/sauvegarde.h"

namespace quelvar::capture {

std::string NomPourAncienneSauvegarde(const Contexte& contexte, const Chemin& fichier, const std::string& sauvegarde) {
  const std::optional<Chemin> ancienne = ChercherFichier(contexte.repertoire, sauvegarde);
  if (!ancienne || MemesOctets(*ancienne, fichier)) return {};
  // The first of the further names that is free, unless one of those before it says the same.
  for (int numero = 3; numero <= kSauvegardes; ++numero) {
    const std::optional<Chemin> occupant = ChercherFichier(contexte.repertoire, NomDeSauvegarde(sauvegarde, numero));
    if (!occupant) break;
    if (MemesOctets(*occupant, *ancienne)) return {};
  }
  return NomDeSauvegardeLibre(contexte.repertoire, sauvegarde);
}

std::string ConserverSauvegarde(const Contexte& contexte, const Chemin& fichier, const std::string& sauvegarde,
                                JeuDeFichiers& sorties) {
  std::string nom = NomPourAncienneSauvegarde(contexte, fichier, sauvegarde);
  const std::optional<Chemin> ancienne = ChercherFichier(contexte.repertoire, sauvegarde);
  if (ancienne && !nom.empty()) sorties.Copier(*ancienne, nom, Nature::Unique);
  return nom;
}

void ConserverSauvegarde(Rapport& rapport, const Contexte& contexte, const Chemin& fichier,
                         const std::string& sauvegarde, JeuDeFichiers& sorties) {
  const std::string nom = ConserverSauvegarde(contexte, fichier, sauvegarde, sorties);
  if (!nom.empty()) rapport.Ligne({"L'ancienne sauvegarde "_w, sauvegarde, " est conservée sous le nom "_w, nom});
}

void EcrireEtat(Rapport& rapport, std::string_view nom, Texte etat) { rapport.Ligne({"Le fichier ", nom, etat}); }

void EcrireEtatDeSortie(Rapport& rapport, std::string_view nom, bool present, bool lisible) {
  EcrireEtat(rapport, nom, !present ? kSeraCree : lisible ? kRemplace : kExiste);
}

std::optional<Chemin> ChercherPos(const Contexte& contexte) {
  std::optional<Chemin> pos = contexte.Chercher(".POS");
  if (pos && LongueurFichier(*pos) < kPosVide) pos.reset();
  return pos;
}

void SauvegarderAncien(Rapport& rapport, const Contexte& contexte, std::string_view nom, const Chemin& fichier,
                       JeuDeFichiers& sauvegardes) {
  const std::string sauvegarde = NomDeSauvegarde(nom);
  EcrireEtat(rapport, nom, " existe déjà"_w);
  ConserverSauvegarde(rapport, contexte, fichier, sauvegarde, sauvegardes);
  CopierLignes(fichier, sauvegardes.Ouvrir(sauvegarde, Nature::Unique));
  rapport.Ligne({"Il est sauvegardé sous le nom "_w, sauvegarde});
}

std::string GarderRemplace(const Contexte& contexte, const Chemin& ancien, const Chemin& nouveau,
                           JeuDeFichiers& sorties) {
  if (MemesOctets(ancien, nouveau)) return {};
  const std::string nom = TexteDe(ancien.filename());
  const std::string copie = NomDeSauvegardeLibre(contexte.repertoire, nom);
  for (int numero = 2; NomDeSauvegarde(nom, numero) != copie; ++numero)
    if (MemesOctets(ancien, CheminDEcriture(contexte.repertoire, NomDeSauvegarde(nom, numero)))) return {};
  sorties.Copier(ancien, copie, Nature::Unique);
  return copie;
}

void EcrireFinDImport(Rapport& rapport, int niveau) {
  if (niveau != 1) {
    rapport.Ligne("Fin normale du programme");
    return;
  }
  rapport.Ligne("   +----------------------------------------------------------------+");
  rapport.Ligne("   +    Fin normale du programme.  Vous disposez  maintenant d'un   +");
  rapport.Ligne("   +    ensemble  cohérent  de  fichiers *.DAT (données)  et *.POS  +"_w);
  rapport.Ligne("   + (noms, positions et codes-max) ainsi que du tri à plat relatif +"_w);
  rapport.Ligne("   +    à ces données *.IMP où * représente votre générique.        +"_w);
}

}  // namespace quelvar::capture
