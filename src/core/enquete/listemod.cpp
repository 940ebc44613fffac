#include "core/enquete/listemod.h"

#include <algorithm>

#include "core/enquete/modfile.h"
#include "core/enquete/noms.h"
#include "core/enquete/posfile.h"
#include "core/panne/annonce.h"
#include "core/panne/erreur.h"
#include "core/programme/rapport.h"

namespace quelvar {

ListeModalites LireListeModalites(const Chemin& chemin) {
  ListeModalites liste;
  LecteurLignes lecteur(chemin);
  std::string_view ligne;
  if (lecteur.Lire(ligne)) liste.titre = ligne;
  if (lecteur.Lire(ligne)) liste.parametres = ligne;
  while (lecteur.Lire(ligne)) {
    if (!liste.suite.empty() || FinitLesModalites(ligne)) {
      liste.suite.emplace_back(ligne);
    } else {
      const Modalite lue = LireLigneModalite(ligne);
      liste.textes.push_back(TexteDeModalite(lue.nom, lue.marque, lue.intitule));
    }
  }
  return liste;
}

void EcrireListeModalites(const Chemin& repertoire, std::string_view nom, const ListeModalites& liste) {
  Remplacement fichier(repertoire, nom, Nature::Unique);
  EcrireListeModalites(fichier.Fichier(), liste);
  fichier.Valider();
}

void EcrireListeModalites(Ecrivain& fichier, const ListeModalites& liste) {
  fichier.Ligne(liste.titre);
  fichier.Ligne(liste.parametres);
  for (const std::string& texte : liste.textes) fichier.Ligne(texte);
  for (const std::string& ligne : liste.suite) fichier.Ligne(ligne);
}

void ExigerMemesModalites(std::string_view nom, const ListeModalites& liste, const std::vector<std::string>& textes) {
  const auto memeNom = [](std::string_view a, std::string_view b) { return NomDeTexte(a) == NomDeTexte(b); };
  if (std::equal(liste.textes.begin(), liste.textes.end(), textes.begin(), textes.end(), memeNom)) return;
  throw Erreur(kAccesFichier, Joindre({"Les modalités de "_w, nom,
                                       " ont changé depuis l'ouverture de cette fenêtre : rien n'est enregistré, "
                                       "fermez-la et ouvrez-la de nouveau"_w}));
}

void RemplacerModalites(const Chemin& repertoire, std::string_view nom, const std::vector<std::string>& textes) {
  const std::optional<Chemin> chemin = ChercherFichier(repertoire, nom);
  if (!chemin) throw Erreur(kFichierIntrouvable).Situer({.fichier = std::string(nom)});
  ListeModalites liste = LireListeModalites(*chemin);
  ExigerMemesModalites(nom, liste, textes);
  liste.textes = textes;
  EcrireListeModalites(repertoire, nom, liste);
}

ListeOuverte OuvrirListe(const Contexte& contexte) {
  try {
    const std::optional<Chemin> chemin = ChercherMod(contexte.repertoire, contexte.Nom(".MOD"));
    if (chemin) return {.textes = LireListeModalites(*chemin).textes};
    return {.message = {std::string(kTitreErreur), PhraseDEtapeOmise(kFichierDeModalites)}};
  } catch (const Erreur& erreur) {
    return {.message = {std::string(kTitreErreur), std::string(TexteErreur(erreur))}};
  }
}

std::optional<bool> NommeDesQuestions(const Contexte& contexte) {
  const std::optional<Chemin> mod = contexte.Chercher(".MOD");
  const std::optional<Chemin> pos = contexte.Chercher(".POS");
  if (!mod || !pos) return std::nullopt;
  try {
    const std::vector<Question> questions = LirePos(*pos).questions;
    return std::ranges::all_of(LireMod(*mod).modalites,
                               [&](const Modalite& m) { return !RangsDuNom(questions, m.nom).empty(); });
  } catch (const Erreur&) {
    return std::nullopt;
  }
}

std::string PhraseDEtapeOmise(std::string_view quoi) {
  return Joindre(
      {quoi, " n'a pas été créé auparavant : revenir à l'étape antérieure en utilisant la touche 'Annuler'"_w});
}

std::string TexteDeModalite(std::string_view nom, std::string_view marque, std::string_view intitule) {
  return Joindre({CadreGauche(nom, kLargeurDeModalite), CadreGauche(marque, kLargeurDeMarque), intitule});
}

void PoserMarque(std::string& texte, std::string_view marque) {
  texte.replace(kLargeurDeModalite, kLargeurDeMarque, CadreGauche(marque, kLargeurDeMarque));
}

void PoserIntitule(std::string& texte, std::string_view intitule) {
  texte.resize(kColonneDIntitule - 1, ' ');
  texte += intitule;
}

bool EstSupplementaire(std::string_view texte) {
  return MarqueDeTexte(texte).find_first_of("Ss") != std::string_view::npos;
}

bool EstSeule(const std::vector<std::string>& textes, std::string_view nom) {
  return std::count_if(textes.begin(), textes.end(),
                       [&](const std::string& texte) { return Rogner(NomDeTexte(texte)) == Rogner(nom); }) == 1;
}

std::size_t RangDeModalite(const std::vector<std::string>& textes, std::string_view nom) {
  const std::string_view cherche = Rogner(nom);
  std::size_t rang = textes.size();
  std::size_t suivant = rang;
  std::size_t trouvees = 0;
  for (std::size_t i = textes.size(); i-- > 0;) {
    if (Rogner(NomDeTexte(textes[i])) != cherche) continue;
    suivant = rang;
    rang = i;
    ++trouvees;
  }
  if (trouvees > 1)
    throw Erreur(kIncompatibiliteType, FauteModalitesHomonymes(cherche, trouvees))
        .Situer({{}, LigneDansLaListe(suivant)});
  return rang;
}

}  // namespace quelvar
