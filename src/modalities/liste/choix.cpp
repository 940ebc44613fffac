#include "modalities/liste/choix.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/noms.h"
#include "core/programme/rapport.h"

namespace quelvar::modalities {

namespace {

constexpr std::int64_t kModalitesAuPlus = 3500;  // of a table of Burt, which then has twelve million cells
constexpr std::size_t kAvantMarques = 9;         // columns of a question line that no mark touches

std::size_t PlaceDeMarque(std::string_view ligne, std::size_t depuis) {
  return std::min(ligne.find(MarqueDe(Statut::Actif), depuis), ligne.find(MarqueDe(Statut::Supplementaire), depuis));
}

// Takes out the mark at a place together with the blank before it.
void OterMarque(std::string& ligne, std::size_t place) {
  const bool avecBlanc = place > kAvantMarques && ligne[place - 1] == ' ';
  ligne.erase(place - (avecBlanc ? 1 : 0), MarqueDe(Statut::Actif).size() + (avecBlanc ? 1 : 0));
}

Statut StatutSelonMode(Statut marque, ModePosmod mode) {
  if (marque == Statut::Aucun || mode == ModePosmod::Afc) return marque;
  if (mode == ModePosmod::Regr) return Statut::Actif;
  return marque == Statut::Actif ? Statut::Actif : Statut::Aucun;
}

}  // namespace

std::size_t ChoixQuestions::Nombre(Statut statut) const {
  return static_cast<std::size_t>(std::count(statuts.begin(), statuts.end(), statut));
}

std::vector<std::size_t> ChoixQuestions::Rangs(Statut statut) const {
  std::vector<std::size_t> rangs;
  for (std::size_t i = 0; i < statuts.size(); ++i)
    if (statuts[i] == statut) rangs.push_back(i);
  return rangs;
}

ChoixQuestions ChoixDesMarques(const FichierPos& pos, ModePosmod mode) {
  ChoixQuestions choix;
  for (const Question& question : pos.questions) choix.statuts.push_back(StatutSelonMode(question.statut, mode));
  return choix;
}

ChoixQuestions ChoixDesNoms(const FichierPos& pos, ModePosmod mode, const std::vector<std::string>& actives,
                            const std::vector<std::string>& supplementaires, std::vector<std::string>& fautes) {
  ChoixQuestions choix;
  choix.statuts.assign(pos.questions.size(), Statut::Aucun);
  const auto placer = [&](const std::vector<std::string>& noms, Statut statut) {
    for (const std::string& nom : noms) {
      const std::vector<std::size_t> rangs = RangsDuNom(pos.questions, nom);
      if (rangs.size() > 1) fautes.push_back(FauteHomonymes(nom, pos.questions, rangs));
      else if (rangs.empty() || choix.statuts[rangs.front()] != Statut::Aucun)
        fautes.push_back(FauteQuestionAbsente(nom));
      else choix.statuts[rangs.front()] = statut;
    }
  };
  placer(actives, Statut::Actif);
  placer(supplementaires, mode == ModePosmod::Afc ? Statut::Supplementaire : Statut::Actif);
  return choix;
}

std::int64_t CompterModalites(const FichierPos& pos, const ChoixQuestions& choix, Statut statut, bool codesZero) {
  std::int64_t modalites = 0;
  for (const std::size_t rang : choix.Rangs(statut)) modalites += pos.questions[rang].codeMax + (codesZero ? 1 : 0);
  return std::max<std::int64_t>(modalites, 0);
}

std::string TexteQuestion(const FichierPos& pos, std::size_t rang) {
  return LibelleDeQuestion(pos.lignes.at(rang + 2));
}

std::string LigneDeListe(const FichierPos& pos, std::size_t rang) {
  return Joindre({TexteQuestion(pos, rang), " ", pos.questions.at(rang).intitule});
}

std::string TexteNombres(std::int64_t actives, std::int64_t supplementaires) {
  return Joindre({"Le nombre de modalités actives est de "_w, Nombre(actives),
                  "\nLe nombre de modalités supplémentaires est de "_w, Nombre(supplementaires)});
}

std::string TexteNombreUnique(std::int64_t modalites) {
  return Joindre({"Le nombre de modalités est de "_w, Nombre(std::max<std::int64_t>(modalites, 0))});
}

std::string TexteSansNonReponses(std::int64_t modalites) {
  return Joindre(
      {"*** Attention ***\nCette option suppose qu'il n'y ait pas de non-réponses ou qu'elles aient été "
       "recodées. Est-ce bien le cas ?\n"_w,
       TexteNombreUnique(modalites)});
}

std::string RefusDeLancer(bool individus, const NomsDIndividus& noms, std::int64_t actives,
                          std::int64_t supplementaires) {
  if (individus && noms.dansDonnees && !noms.debut) return std::string("Pas de position de début définie"_w);
  if (individus && noms.dansDonnees && noms.largeur < 1) return std::string("Pas de largeur du numéro définie"_w);
  if (actives + supplementaires == 0) return std::string("Pas de modalités définies"_w);
  if (actives == 0) return std::string("Pas de modalités actives définies"_w);
  if (actives + supplementaires > kModalitesAuPlus)
    return Joindre({"Trop de modalités définies (Act+Sup>"_w, Nombre(kModalitesAuPlus), ")"});
  return {};
}

std::string_view RefusDeNommer(std::int64_t modalites) {
  return modalites == 0 ? "Attention : pas de modalités définies"_w : std::string_view{};
}

std::string LigneAvecMarque(std::string_view ligne, Statut statut) {
  std::string resultat(ligne);
  std::size_t place = PlaceDeMarque(resultat, kAvantMarques);
  if (statut != Statut::Aucun) {
    const std::string_view marque = MarqueDe(statut);
    if (place == std::string::npos) {
      // A mark that reached into the columns of the code-max would not be read back.
      resultat.resize(std::max(resultat.size(), kAvantMarques - 1), ' ');
      resultat += ' ';
      return resultat.append(marque);
    }
    resultat.replace(place, marque.size(), marque);
    place = PlaceDeMarque(resultat, place + marque.size());
  }
  for (; place != std::string::npos; place = PlaceDeMarque(resultat, std::max(kAvantMarques, place - 1)))
    OterMarque(resultat, place);
  return resultat;
}

}  // namespace quelvar::modalities
