#include "modalities/edition/modifmod.h"

#include "core/enquete/listemod.h"
#include "core/enquete/modfile.h"

namespace quelvar::modalities {

namespace {

constexpr std::string_view kActive = "   ";
constexpr std::string_view kSupplementaire = " S ";
constexpr std::size_t kLargeurQuestion = 3;

void PoserStatut(std::string& texte, bool supplementaire) {
  texte.replace(4, 3, supplementaire ? kSupplementaire : kActive);
}

// The ranks that a name stands for: one modality, or those of a question.
std::vector<std::size_t> RangsDe(const std::vector<std::string>& textes, std::string_view nom, bool questionAdmise) {
  const std::size_t rang = RangDeModalite(textes, nom);
  if (rang < textes.size()) return {rang};
  std::vector<std::size_t> rangs;
  for (std::size_t i = 0; questionAdmise && !Rogner(nom).empty() && i < textes.size(); ++i)
    if (Rogner(Milieu(textes[i], 1, kLargeurQuestion)) == Rogner(nom)) rangs.push_back(i);
  return rangs;
}

void Appliquer(std::vector<std::string>& textes, const OptionsModifMod::Action& action, Rapport& rapport) {
  using Genre = OptionsModifMod::Action::Genre;
  const std::vector<std::size_t> rangs = RangsDe(textes, action.nom, action.genre != Genre::Intitule);
  if (rangs.empty()) {
    rapport.Ligne({"La modalité "_w, action.nom, " n'est pas dans le fichier de modalités"_w});
    throw Erreur(kArretAnnonce);
  }
  for (const std::size_t rang : rangs) {
    if (action.genre == Genre::Intitule) PoserIntitule(textes[rang], action.intitule);
    else PoserStatut(textes[rang], action.genre == Genre::Supplementaire);
  }
}

constexpr std::string_view kEnregistre = "Fin normale des modifications de modalités, passer à l'étape suivante"_w;

void Enregistrer(const Contexte& contexte, std::vector<std::string> textes) {
  for (std::string& texte : textes) PoserStatut(texte, EstSupplementaire(texte));
  RemplacerModalites(contexte.repertoire, contexte.Nom(".MOD"), textes);
}

}  // namespace

EtatModifMod ChargerModifMod(const Contexte& contexte) {
  EtatModifMod etat;
  try {
    const std::optional<Chemin> chemin = contexte.Chercher(".MOD");
    if (chemin && LongueurFichier(*chemin) >= kModVide) {
      etat.textes = LireListeModalites(*chemin).textes;
    } else {
      etat.message = {"*** Erreur ***",
                      std::string("Le fichier de modalités n'a pas été créé auparavant : revenir à l'étape antérieure "
                                  "en utilisant la touche 'Annuler'"_w)};
    }
  } catch (const Erreur& erreur) {
    etat.message = {"*** Erreur ***", std::string(TexteErreur(erreur))};
  }
  return etat;
}

void BasculerStatut(std::string& texte) { PoserStatut(texte, !EstSupplementaire(texte)); }

void PoserIntitule(std::string& texte, std::string_view intitule) {
  texte.resize(7, ' ');
  texte += intitule;
}

std::size_t LigneSuivante(std::size_t ligne, std::size_t lignes) { return ligne + 1 < lignes ? ligne + 1 : 0; }

Fin EnregistrerModifMod(const Contexte& contexte, const std::vector<std::string>& textes) {
  return RendreCompte(contexte, kEnregistre, [&] { Enregistrer(contexte, textes); });
}

Fin AbandonnerEdition(const Contexte& contexte) { return RendreCompte(contexte, "Arrêt volontaire du programme"_w); }

Fin ModifierModalites(const Contexte& contexte, const OptionsModifMod& options) {
  return ExecuterProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{}, [&](Rapport& rapport) {
    EtatModifMod etat = ChargerModifMod(contexte);
    for (const std::string& ligne : etat.message) rapport.Ligne(ligne);
    if (!etat.message.empty()) throw Erreur(kArretAnnonce);
    for (const OptionsModifMod::Action& action : options.actions) Appliquer(etat.textes, action, rapport);
    Enregistrer(contexte, etat.textes);
    rapport.Ligne(kEnregistre);
  });
}

}  // namespace quelvar::modalities
