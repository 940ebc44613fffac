#include "core/enquete/modfile.h"

#include "core/enquete/listemod.h"
#include "core/programme/rapport.h"

namespace quelvar {

Modalite LireLigneModalite(std::string_view ligne) {
  Modalite modalite;
  modalite.nom = CadreGauche(NomDeTexte(ligne), kLargeurDeModalite);
  modalite.marque = MarqueDeTexte(ligne);
  modalite.supplementaire = EstSupplementaire(ligne);
  modalite.intitule = IntituleDeTexte(ligne);
  return modalite;
}

bool FinitLesModalites(std::string_view ligne) {
  const std::string_view tete = NomDeTexte(ligne);
  return Rogner(tete).empty() || tete.find(kFinDeListe) != std::string_view::npos;
}

FichierMod LireMod(const Chemin& chemin) {
  FichierMod mod;
  LecteurLignes lecteur(chemin);
  mod.titre = lecteur.LireObligatoire();
  mod.lignes.push_back(mod.titre);
  mod.parametres = lecteur.LireObligatoire();
  mod.lignes.push_back(mod.parametres);
  bool dansLaListe = true;
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (dansLaListe && FinitLesModalites(ligne)) {
      mod.premiereApres = mod.lignes.size();
      dansLaListe = false;
    }
    if (dansLaListe) mod.modalites.push_back(LireLigneModalite(ligne));
    mod.lignes.emplace_back(ligne);
  }
  if (dansLaListe) mod.premiereApres = mod.lignes.size();
  return mod;
}

std::string LigneModalite(std::string_view nom, bool supplementaire, std::string_view intitule) {
  return TexteDeModalite(nom, supplementaire ? kMarqueSupplementaire : kMarqueActive,
                         intitule.substr(0, kIntituleDeModaliteAuPlus));
}

std::optional<Chemin> ChercherMod(const Chemin& repertoire, std::string_view nom) {
  std::optional<Chemin> chemin = ChercherFichier(repertoire, nom);
  if (chemin && LongueurFichier(*chemin) < kModVide) chemin.reset();
  return chemin;
}

const std::string* IntitulesModalites::Chercher(std::string_view nom) const {
  const auto ligne = intitules_.find(std::string(nom));
  return ligne == intitules_.end() ? nullptr : &ligne->second;
}

IntitulesModalites LireIntitules(const Chemin& chemin) {
  IntitulesModalites intitules;
  LecteurLignes lecteur(chemin);
  std::string_view ligne;
  if (!lecteur.Lire(ligne) || !lecteur.Lire(ligne)) return intitules;
  while (lecteur.Lire(ligne)) intitules.Ajouter(NomDeTexte(ligne), IntituleDeTexte(ligne));
  return intitules;
}

}  // namespace quelvar
