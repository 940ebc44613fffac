#include "modalities/correction/modifmod.h"

#include <algorithm>

#include "core/enquete/colonnes.h"
#include "core/programme/arret.h"
#include "modalities/liste/codes.h"
#include "modalities/liste/modalites.h"

namespace quelvar::modalities {

namespace {

void PoserStatut(std::string& texte, bool supplementaire) {
  PoserMarque(texte, supplementaire ? kMarqueSupplementaire : kMarqueActive);
}

// The question of each modality, by its name and place; empty where several are possible. What the .POS does not know
// has the question of the line before, for two digits, else the one that its first characters name.
std::vector<std::string> QuestionsDesModalites(const FichierPos& pos, const std::vector<std::string>& textes) {
  std::vector<std::string> questions;
  LecteurDeCodes codes(pos);
  std::string avant;
  for (const std::string& texte : textes) {
    const std::string_view nom = NomDeTexte(texte);
    const CodeLu lu = codes.Lire(nom);
    if (lu.certitude == Certitude::Sure) avant = lu.question;
    else if (lu.certitude == Certitude::Douteuse) avant.clear();
    else if (!EstEnDeuxChiffres(nom) || avant.empty() || !nom.starts_with(avant.substr(0, kLettresDUnCodeDouble)))
      avant = nom.substr(0, kLargeurDeQuestion);
    questions.push_back(avant);
  }
  return questions;
}

// The questions of the set; none without a .POS.
FichierPos PosDe(const Contexte& contexte) {
  const std::optional<Chemin> chemin = contexte.Chercher(".POS");
  return chemin ? LirePos(*chemin) : FichierPos{};
}

// The modalities of a question. One that may be another question's stops the run.
std::vector<std::size_t> RangsDeLaQuestion(const std::vector<std::string>& questions,
                                           const std::vector<std::string>& textes, std::string_view nom,
                                           Rapport& rapport) {
  std::vector<std::size_t> rangs;
  const std::string lettres = CadreGauche(nom, kLettresDUnCodeDouble);
  for (std::size_t i = 0; !Rogner(nom).empty() && i < textes.size(); ++i) {
    if (questions[i].empty() && textes[i].starts_with(lettres))
      Arreter(rapport, Joindre({"La modalité "_w, NomDeTexte(textes[i]), " peut être d'une autre question que "_w, nom,
                                " : nommez les modalités une à une"_w}));
    if (Rogner(questions[i]) == Rogner(nom)) rangs.push_back(i);
  }
  return rangs;
}

// The status asked for, as ranks: those of questions, then those of single modalities.
struct Statuts {
  std::vector<std::pair<std::size_t, bool>> questions;
  std::vector<std::pair<std::size_t, bool>> modalites;
};

void DemanderStatut(Statuts& statuts, const Contexte& contexte, const std::vector<std::string>& textes,
                    const std::vector<std::string>& noms, bool supplementaire, Rapport& rapport) {
  std::vector<std::string> questions;
  for (const std::string& nom : noms) {
    const std::size_t rang = RangDeModalite(textes, nom);
    if (rang < textes.size()) {
      statuts.modalites.emplace_back(rang, supplementaire);
      continue;
    }
    if (questions.empty()) questions = QuestionsDesModalites(PosDe(contexte), textes);
    const std::vector<std::size_t> rangs = RangsDeLaQuestion(questions, textes, nom, rapport);
    if (rangs.empty()) Arreter(rapport, PhraseInconnue(nom));
    for (const std::size_t r : rangs) statuts.questions.emplace_back(r, supplementaire);
  }
}

void Appliquer(const Contexte& contexte, std::vector<std::string>& textes, const OptionsModifMod& options,
               Rapport& rapport) {
  for (const std::string& nom : options.actives)
    if (std::find(options.supplementaires.begin(), options.supplementaires.end(), nom) != options.supplementaires.end())
      Arreter(rapport, Joindre({nom, " est demandé à la fois actif et supplémentaire"_w}));
  Statuts statuts;
  DemanderStatut(statuts, contexte, textes, options.supplementaires, true, rapport);
  DemanderStatut(statuts, contexte, textes, options.actives, false, rapport);
  for (const auto& demandes : {statuts.questions, statuts.modalites})
    for (const auto& [rang, supplementaire] : demandes) PoserStatut(textes[rang], supplementaire);
  for (const auto& [nom, intitule] : options.intitules) {
    const std::size_t rang = RangDeModalite(textes, nom);
    if (rang == textes.size()) Arreter(rapport, PhraseInconnue(nom));
    PoserIntitule(textes[rang], intitule);
  }
}

constexpr std::string_view kEnregistre = "Fin normale des modifications de modalités, passer à l'étape suivante"_w;

void Enregistrer(const Contexte& contexte, std::vector<std::string> textes) {
  for (std::string& texte : textes) PoserStatut(texte, EstSupplementaire(texte));
  RemplacerModalites(contexte.repertoire, contexte.Nom(".MOD"), textes);
}

}  // namespace

void BasculerStatut(std::string& texte) { PoserStatut(texte, !EstSupplementaire(texte)); }

Fin EnregistrerModifMod(const Contexte& contexte, const std::vector<std::string>& textes) {
  return RendreCompte(
      contexte, kEnregistre, [&] { Enregistrer(contexte, textes); }, kRapportSansNom);
}

OptionsDites<OptionsModifMod> OptionsDeModifMod(const std::vector<std::string>& ouverts,
                                                const std::vector<std::string>& textes) {
  OptionsModifMod options;
  for (std::size_t i = 0; i < textes.size(); ++i) {
    if (textes[i] == ouverts[i]) continue;
    const std::string nom(Rogner(NomDeTexte(textes[i])));
    if (!EstSeule(textes, nom)) return {.raison = "deux modalités ont le même nom"_w};
    if (EstSupplementaire(textes[i]) != EstSupplementaire(ouverts[i]))
      (EstSupplementaire(textes[i]) ? options.supplementaires : options.actives).push_back(nom);
    if (IntituleDeTexte(textes[i]) != IntituleDeTexte(ouverts[i]))
      options.intitules.emplace_back(nom, IntituleDeTexte(textes[i]));
  }
  return {.options = std::move(options)};
}

Fin ModifierModalites(const Contexte& contexte, const OptionsModifMod& options) {
  return ExecuterProgramme(contexte, kRapportSansNom, LibellesErreur{}, [&](Rapport& rapport) {
    ListeOuverte etat = OuvrirListe(contexte);
    ArreterSi(rapport, etat.message);
    Appliquer(contexte, etat.textes, options, rapport);
    Enregistrer(contexte, etat.textes);
    rapport.Ligne(kEnregistre);
  });
}

}  // namespace quelvar::modalities
