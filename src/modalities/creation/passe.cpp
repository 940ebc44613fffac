#include "modalities/creation/passe.h"

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/datfile.h"
#include "core/panne/erreur.h"
#include "core/programme/programme.h"
#include "core/programme/rapport.h"

namespace quelvar::modalities {

namespace {

std::vector<Champ> ChampsDuPlan(const FichierPos& pos, const PlanModalites& plan) {
  std::vector<Champ> champs;
  for (const QuestionChoisie& choisie : plan.questions) {
    const Question& question = pos.questions[choisie.rang];
    if (question.position < 1) throw ChampImpossible(pos, choisie.rang);
    champs.push_back(ChampDe(question));
  }
  return champs;
}

}  // namespace

// The name of an individual stands in the columns of the name of a modality.
CodageLogique::CodageLogique(Ecrivain& fichier, std::size_t modalites, const NomsDIndividus& noms)
    : fichier_(fichier), noms_(noms), codage_(kLargeurDeModalite, ' ') {
  codage_.append(modalites, '0');
}

void CodageLogique::Ecrire(std::int64_t numero, std::string_view ligneDeDonnees,
                           std::span<const std::uint32_t> presentes) {
  std::string nom;
  bool court = true;
  if (noms_.dansDonnees) {
    const int debut = noms_.debut.value_or(0);
    if (debut < 1 || noms_.largeur < 0) throw Erreur(kArgumentIncorrect);
    nom = Milieu(ligneDeDonnees, static_cast<std::size_t>(debut), static_cast<std::size_t>(noms_.largeur));
    court = static_cast<std::size_t>(noms_.largeur) <= kLargeurDeModalite;
  } else {
    nom = Nombre(numero);
    court = nom.size() <= kLargeurDeModalite;
  }
  codage_.replace(0, kLargeurDeModalite,
                  CadreGauche(court ? std::string_view(nom) : std::string_view{}, kLargeurDeModalite));
  for (const std::uint32_t modalite : presentes) codage_[kLargeurDeModalite + modalite] = '1';
  fichier_.Ecrire(codage_);
  fichier_.Ligne(court ? std::string_view{} : std::string_view(nom));
  for (const std::uint32_t modalite : presentes) codage_[kLargeurDeModalite + modalite] = '0';
}

std::int64_t PasserLesDonnees(const FichierPos& pos, const PlanModalites& plan, const DemandeDePasse& demande,
                              TableBurt& burt, const Dialogue& dialogue) {
  const std::vector<Champ> champs = ChampsDuPlan(pos, plan);
  LecteurIndividus lecteur(demande.donnees, LongueurUtile(champs));
  Progression progression(dialogue, demande.individus);
  std::vector<std::uint32_t> presentes;
  presentes.reserve(champs.size());
  const int premierCode = plan.codesZero ? 0 : 1;

  const std::int64_t lus = Parcourir(lecteur, demande.individus, [&](const char* ligne, std::int64_t numero) {
    presentes.clear();
    for (std::size_t q = 0; q < champs.size(); ++q) {
      const QuestionChoisie& question = plan.questions[q];
      int code = LireChampInterieur(ligne, champs[q]);
      if (code > question.codeMax) {
        if (demande.signaler) demande.signaler({pos.questions[question.rang].nom, numero, code});
        code = 0;
      }
      if (code < 0) code = 0;
      if (code >= premierCode) presentes.push_back(question.premiere + static_cast<std::uint32_t>(code - premierCode));
    }
    burt.Compter(presentes);
    if (demande.codage != nullptr) demande.codage->Ecrire(numero, lecteur.Ligne(), presentes);
    progression.Avancer();
  });
  burt.Achever();
  return lus;
}

}  // namespace quelvar::modalities
