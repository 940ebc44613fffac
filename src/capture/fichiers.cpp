#include "capture/fichiers.h"

#include <string>

#include "capture/presence.h"
#include "core/fichiers/sauvegarde.h"

namespace quelvar::capture {

void ConserverSauvegarde(Rapport& rapport, const Contexte& contexte, const Chemin& fichier,
                         const std::string& sauvegarde, JeuDeFichiers& sorties) {
  const std::optional<Chemin> ancienne = ChercherFichier(contexte.repertoire, sauvegarde);
  if (!ancienne || MemesOctets(*ancienne, fichier)) return;
  std::string nom = sauvegarde;
  for (nom.back() = '3'; nom.back() < '9'; ++nom.back()) {
    const std::optional<Chemin> occupant = ChercherFichier(contexte.repertoire, nom);
    if (!occupant) break;
    if (MemesOctets(*occupant, *ancienne)) return;
  }
  sorties.Copier(*ancienne, nom, Nature::Unique);
  rapport.Ligne({"L'ancienne sauvegarde "_w, sauvegarde, " est conservée sous le nom "_w, nom});
}

void EcrireEtat(Rapport& rapport, std::string_view nom, Texte etat) { rapport.Ligne({"Le fichier ", nom, etat}); }

void EcrireEtatDeSortie(Rapport& rapport, std::string_view nom, bool present) {
  EcrireEtat(rapport, nom, present ? kRemplace : kSeraCree);
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
  std::string deja = NomDeSauvegarde(nom);
  for (; deja < copie; ++deja.back())
    if (MemesOctets(ancien, CheminDEcriture(contexte.repertoire, deja))) return {};
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
