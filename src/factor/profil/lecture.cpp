#include "factor/profil/lecture.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "core/chiffres/nombres.h"
#include "core/enquete/brtfile.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/datfile.h"
#include "factor/fichiers/cellules.h"

namespace quelvar::factor {

namespace {

constexpr std::size_t kOctets = 256;

// The field of a question that modalities ask for, and its counts by value: of fields of one byte by byte.
struct QuestionAuComptoir {
  Champ champ;
  int codeMax = 0;
  std::size_t premiere = 0;  // of its counts
  std::size_t places = kOctets;
};

class Comptoir {
 public:
  Comptoir(const FichierPos& pos, const std::vector<CodeDeModalite>& codes) : rangs_(pos.questions.size(), kAucune) {
    for (const CodeDeModalite& code : codes) {
      if (rangs_[code.question] != kAucune) continue;
      const Question& question = pos.questions[code.question];
      if (question.position < 1) throw ChampImpossible(pos, code.question);
      rangs_[code.question] = questions_.size();
      questions_.push_back({ChampDe(question), question.codeMax, places_,
                            question.largeur == 1 ? kOctets : static_cast<std::size_t>(question.codeMax) + 2});
      champs_.push_back(questions_.back().champ);
      places_ += questions_.back().places;
    }
  }

  std::size_t Longueur() const { return LongueurUtile(champs_); }
  std::size_t Places() const { return places_; }
  std::size_t QuestionDe(const CodeDeModalite& modalite) const { return rangs_[modalite.question]; }
  std::size_t Questions() const { return questions_.size(); }

  // Where the code that a line has at a question is counted.
  std::size_t Place(const char* ligne, std::size_t question) const { return Place(ligne, questions_[question]); }

  // The places that count for a modality.
  template <class Prendre>
  void PourChaquePlace(const CodeDeModalite& modalite, const Prendre& prendre) const {
    const QuestionAuComptoir& question = questions_[QuestionDe(modalite)];
    if (modalite.code > question.codeMax) return;
    if (question.champ.largeur > 1) return prendre(question.premiere + static_cast<std::size_t>(modalite.code));
    for (std::size_t octet = 0; octet < kOctets; ++octet)
      if (ValeursDUnOctet()[octet] == modalite.code) prendre(question.premiere + octet);
  }

  // Adds the codes of a line to counts that start at 0.
  void Compter(const char* ligne, std::uint32_t* comptes) const {
    for (const QuestionAuComptoir& question : questions_) ++comptes[Place(ligne, question)];
  }

  // What the counts hold for a code.
  double Effectif(const std::uint32_t* comptes, const CodeDeModalite& modalite) const {
    double effectif = 0;
    PourChaquePlace(modalite, [&](std::size_t place) { effectif += comptes[place]; });
    return effectif;
  }

 private:
  static constexpr std::size_t kAucune = static_cast<std::size_t>(-1);

  static std::size_t Place(const char* ligne, const QuestionAuComptoir& question) {
    if (question.champ.largeur == 1) return question.premiere + static_cast<unsigned char>(ligne[question.champ.debut]);
    return question.premiere + PlaceDe(LireChampInterieur(ligne, question.champ), question.codeMax);
  }

  // The last place is that of the values that are no code.
  static std::size_t PlaceDe(int valeur, int codeMax) {
    return static_cast<std::size_t>(valeur < 0 || valeur > codeMax ? codeMax + 1 : valeur);
  }

  std::vector<std::size_t> rangs_;  // by question of the .POS
  std::vector<QuestionAuComptoir> questions_;
  std::vector<Champ> champs_;
  std::size_t places_ = 0;
};

// The chosen modalities of a line, found by its codes: thousands may be chosen.
class Choisies {
 public:
  Choisies(const Comptoir& comptoir, const std::vector<CodeDeModalite>& codes, const std::vector<std::size_t>& choisies)
      : comptoir_(comptoir), parPlace_(comptoir.Places()) {
    std::vector<bool> vues(comptoir.Questions());
    for (std::size_t k = 0; k < choisies.size(); ++k) {
      const CodeDeModalite& code = codes[choisies[k]];
      comptoir.PourChaquePlace(code, [&](std::size_t place) { parPlace_[place].push_back(k); });
      if (vues[comptoir.QuestionDe(code)]) continue;
      vues[comptoir.QuestionDe(code)] = true;
      questions_.push_back(comptoir.QuestionDe(code));
    }
  }

  template <class Traiter>
  void PourChacune(const char* ligne, const Traiter& traiter) const {
    for (const std::size_t question : questions_)
      for (const std::size_t k : parPlace_[comptoir_.Place(ligne, question)]) traiter(k);
  }

 private:
  const Comptoir& comptoir_;
  std::vector<std::size_t> questions_;              // that have a chosen modality
  std::vector<std::vector<std::size_t>> parPlace_;  // ranks in the choice
};

// The sum of the diagonal over the modalities of each question, in the order of their first modalities.
std::vector<double> ReponsesParQuestion(const std::vector<Modalite>& modalites, const std::vector<double>& effectifs) {
  std::vector<double> reponses;
  std::unordered_map<std::string_view, std::size_t> rangs;
  for (std::size_t j = 0; j < modalites.size(); ++j) {
    const std::string_view question = std::string_view(modalites[j].nom).substr(0, kLargeurDeQuestion);
    const std::size_t rang = rangs.try_emplace(question, reponses.size()).first->second;
    if (rang == reponses.size()) reponses.push_back(0);
    reponses[rang] += effectifs[j];
  }
  return reponses;
}

}  // namespace

FichiersDeProfil TrouverFichiers(const Contexte& contexte) {
  return {contexte.Chercher(".DAT"), contexte.Chercher(".POS"), contexte.Chercher(".MOD"), contexte.Chercher(".BRT")};
}

std::vector<std::string> PhrasesDesAbsents(const Contexte& contexte, const FichiersDeProfil& fichiers) {
  std::vector<std::string> phrases;
  const auto absent = [&](std::string_view extension) { phrases.push_back(PhraseDAbsence(contexte.Nom(extension))); };
  if (!fichiers.donnees && !fichiers.brt)
    phrases.push_back(Joindre({"Ni le fichier des données, ni le tableau de Burt n'existent"_w}));
  if (fichiers.donnees && !fichiers.pos) absent(".POS");
  if (!fichiers.mod) absent(".MOD");
  return phrases;
}

ComptesDeProfil CompterDonnees(const Chemin& donnees, const FichierPos& pos, const std::vector<CodeDeModalite>& codes,
                               const std::vector<std::size_t>& choisies, const Dialogue& dialogue) {
  const Comptoir comptoir(pos, codes);
  // Those who have the chosen one, and the others; of several, all of them besides.
  std::vector<std::vector<std::uint32_t>> ensemble(choisies.size(), std::vector<std::uint32_t>(comptoir.Places(), 0));
  std::vector<std::uint32_t> autres(comptoir.Places(), 0);
  const bool seule = choisies.size() == 1;
  const Choisies desLignes(comptoir, codes, choisies);
  LecteurIndividus lecteur(donnees, comptoir.Longueur());
  Progression progression(dialogue, pos.taille.individus);
  const std::int64_t maximum =
      pos.taille.individus == 0 ? std::numeric_limits<std::int64_t>::max() : pos.taille.individus;
  const std::int64_t lus = Parcourir(lecteur, maximum, [&](const char* ligne, std::int64_t) {
    bool compte = false;
    desLignes.PourChacune(ligne, [&](std::size_t k) {
      comptoir.Compter(ligne, ensemble[k].data());
      compte = seule;
    });
    if (!compte) comptoir.Compter(ligne, autres.data());
    progression.Avancer();
  });
  ComptesDeProfil comptes;
  comptes.individus = static_cast<double>(lus);
  if (lus == pos.taille.individus)
    while (lecteur.Lire() != nullptr) ++comptes.laisses;
  for (const CodeDeModalite& code : codes)
    comptes.effectifs.push_back(comptoir.Effectif(autres.data(), code) +
                                (seule ? comptoir.Effectif(ensemble.front().data(), code) : 0));
  for (const std::vector<std::uint32_t>& avec : ensemble) {
    comptes.ensemble.emplace_back();
    for (const CodeDeModalite& code : codes) comptes.ensemble.back().push_back(comptoir.Effectif(avec.data(), code));
  }
  return comptes;
}

bool LignesSontLesColonnes(const Chemin& brt, const std::vector<Modalite>& modalites) {
  LecteurLignes lecteur(brt);
  std::string_view ligne;
  for (const Modalite& modalite : modalites) {
    if (!lecteur.Lire(ligne)) return true;
    if (Rogner(ligne.substr(0, modalite.nom.size())) != Rogner(modalite.nom)) return false;
  }
  return true;
}

ComptesDeProfil LireBurt(const Chemin& brt, const FichierMod& mod, const ParametresMod& parametres,
                         const std::vector<std::size_t>& choisies, double annonces) {
  const auto largeur = static_cast<std::size_t>(parametres.largeur);
  ComptesDeProfil comptes;
  comptes.ensemble.resize(choisies.size());
  const std::size_t nombre = mod.modalites.size();
  std::vector<std::vector<std::size_t>> demandes(nombre);  // ranks in the choice, by modality
  for (std::size_t k = 0; k < choisies.size(); ++k) demandes[choisies[k]].push_back(k);
  LecteurLignes lecteur(brt);
  const auto lireLigne = [&](std::size_t i) {
    const std::string_view ligne = lecteur.LireObligatoire();
    const auto cellule = [&](std::size_t j) { return CelluleDeLigne(ligne, j, largeur); };
    const auto verifier = [&](std::size_t j) {
      if (EstEffectif(cellule(j), largeur) || comptes.douteuses++ > 0) return;
      comptes.premiereDouteuse =
          Joindre({"ligne ", Nombre(i + 1), ", colonne ", Nombre(j + 1), " (", Rogner(cellule(j)), ")"});
    };
    comptes.effectifs.push_back(ValeurDe(cellule(i)));
    if (demandes[i].empty()) verifier(i);
    else
      for (std::size_t j = 0; j < nombre; ++j) verifier(j);
    for (const std::size_t k : demandes[i])
      for (std::size_t j = 0; j < nombre; ++j) comptes.ensemble[k].push_back(ValeurDe(cellule(j)));
  };
  Situer(lecteur, [&] {
    for (std::size_t i = 0; i < nombre; ++i) lireLigne(i);
  });
  comptes.individus = annonces > 0 ? annonces : parametres.burt == 1 ? parametres.lignesSup : 0;
  if (comptes.individus > 0) return comptes;
  const std::vector<double> reponses = ReponsesParQuestion(mod.modalites, comptes.effectifs);
  comptes.individus = reponses.front();
  comptes.plusGrandeQuestion = *std::ranges::max_element(reponses);
  return comptes;
}

}  // namespace quelvar::factor
