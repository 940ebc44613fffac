#include "modalities/correction/nomquest.h"

#include <algorithm>

#include "core/enquete/noms.h"
#include "core/enquete/posfile.h"
#include "core/panne/annonce.h"
#include "core/programme/arret.h"

namespace quelvar::modalities {

namespace {

constexpr std::size_t kColonnesDeQuestion = 8;  // columns that a label never enters, less the blank before it

// The question that a line of the list stands for: that of the same rank, or, in a file that has changed, the first of
// the same name.
std::size_t RangDansFichier(const FichierPos& pos, const std::vector<NomDeQuestion>& questions, std::size_t rang) {
  const std::string& nom = questions[rang].nom;
  if (rang < pos.questions.size() && pos.questions[rang].nom == nom) return rang;
  const std::vector<std::size_t> rangs = RangsDuNom(pos.questions, nom);
  return rangs.empty() ? pos.questions.size() : rangs.front();
}

}  // namespace

EtatNomQuest ChargerNomQuest(const Contexte& contexte) {
  EtatNomQuest etat;
  try {
    const std::optional<Chemin> chemin = contexte.Chercher(".POS");
    if (!chemin) {
      etat.message = {std::string(kTitreAttention),
                      std::string("Le fichier des noms de questions n'existe pas, appuyez sur 'Annuler'")};
      return etat;
    }
    for (const Question& question : LirePos(*chemin).questions)
      etat.questions.push_back({question.nom, question.intitule});
  } catch (const Erreur& erreur) {
    etat.message = {std::string(kTitreAttention), std::string(TexteErreur(erreur))};
  }
  return etat;
}

std::string TexteDeRecapitulatif(const NomDeQuestion& question) {
  return Joindre({question.nom, " ", question.intitule});
}

std::string_view NommerQuestion(NomDeQuestion& question, std::string_view intitule) {
  if (intitule == question.intitule) return {};
  if (intitule.size() > kLongueurDeNomMaximum) return kNomTropLong;
  if (intitule.find('$') != std::string_view::npos) return "un intitulé ne peut pas contenir le signe $"_w;
  question.intitule = intitule;
  question.modifie = true;
  return {};
}

std::string LigneAvecIntitule(std::string_view ligne, std::string_view intitule) {
  std::string resultat(ligne);
  const std::size_t premier = resultat.find('$');
  const std::size_t second = premier == std::string::npos ? premier : resultat.find('$', premier + 1);
  if (second != std::string::npos) return resultat.replace(premier + 1, second - premier - 1, intitule);
  if (intitule.empty()) return resultat;
  // Readers take the first two "$": a lone one has to come behind them.
  if (premier != std::string::npos) return resultat.insert(premier, EntreDollars(intitule) + " ");
  resultat.resize(std::max(resultat.size(), kColonnesDeQuestion), ' ');
  return resultat + " " + EntreDollars(intitule);
}

void SauverNomQuest(const Contexte& contexte, const std::vector<NomDeQuestion>& questions) {
  FichierPos pos = LirePos(contexte.Exiger(".POS"));
  for (std::size_t i = 0; i < questions.size(); ++i) {
    const std::size_t rang = RangDansFichier(pos, questions, i);
    if (!questions[i].modifie || rang == pos.questions.size()) continue;
    std::string& ligne = pos.lignes[rang + 2];
    ligne = LigneAvecIntitule(ligne, questions[i].intitule);
  }
  Remplacement fichier(contexte.repertoire, contexte.Nom(".POS"), Nature::Unique);
  for (const std::string& ligne : pos.lignes) fichier.Fichier().Ligne(ligne);
  fichier.Valider();
}

Fin EnregistrerNomQuest(const Contexte& contexte, const std::vector<NomDeQuestion>& questions) {
  return RendreCompte(
      contexte, kIntitulesSauvegardes, [&] { SauverNomQuest(contexte, questions); }, kRapportSansNom);
}

OptionsDites<OptionsNomQuest> OptionsDeNomQuest(const std::vector<NomDeQuestion>& ouvertes,
                                                const std::vector<NomDeQuestion>& questions) {
  OptionsNomQuest options;
  for (std::size_t i = 0; i < questions.size(); ++i) {
    if (questions[i].intitule == ouvertes[i].intitule) continue;
    if (RangsDuNom(questions, questions[i].nom).size() > 1) return {.raison = "deux questions ont le même nom"_w};
    options.intitules.emplace_back(Rogner(questions[i].nom), questions[i].intitule);
  }
  return {.options = std::move(options)};
}

Fin NommerQuestions(const Contexte& contexte, const OptionsNomQuest& options) {
  return ExecuterProgramme(contexte, kRapportSansNom, LibellesErreur{}, [&](Rapport& rapport) {
    EtatNomQuest etat = ChargerNomQuest(contexte);
    ArreterSi(rapport, etat.message);
    for (const auto& [nom, intitule] : options.intitules) {
      const std::vector<std::size_t> rangs = RangsDuNom(etat.questions, nom);
      const std::string_view refus = rangs.empty() ? "la question n'est pas dans le fichier de positions"
                                     : rangs.size() > 1
                                         ? "plusieurs questions ont ce nom, donnez-leur des noms différents"_w
                                         : NommerQuestion(etat.questions[rangs.front()], intitule);
      if (refus.empty()) continue;
      Arreter(rapport, Joindre({nom, " : ", refus}));
    }
    SauverNomQuest(contexte, etat.questions);
    rapport.Ligne(kIntitulesSauvegardes);
  });
}

}  // namespace quelvar::modalities
