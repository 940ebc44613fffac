#include "core/enquete/nomdemodalite.h"

#include <algorithm>
#include <vector>

#include "core/programme/report.h"
#include "core/texte/caracteres.h"

namespace quelvar {

namespace {

constexpr std::size_t kLargeurNom = kLargeurDeModalite;

// What a name may stand for.
struct Lectures {
  std::vector<CodeDeModalite> possibles;
  std::optional<CodeDeModalite> tropGrande;  // of three characters, but beyond the code-max
};

void Ajouter(Lectures& lectures, const FichierPos& pos, std::string_view nom, std::size_t largeur, int code) {
  for (std::size_t q = 0; q < pos.questions.size(); ++q) {
    if (std::string_view(pos.questions[q].nom).substr(0, largeur) != nom.substr(0, largeur)) continue;
    if (pos.questions[q].codeMax >= code) lectures.possibles.push_back({q, code});
    else if (largeur == kLargeurNom - 1 && !lectures.tropGrande) lectures.tropGrande = CodeDeModalite{q, code};
    // Questions of one name are another fault.
    if (largeur == kLargeurNom - 1 && !lectures.possibles.empty()) return;
  }
}

// The reading that goes on from the modality before.
std::optional<CodeDeModalite> Suite(const std::vector<CodeDeModalite>& possibles,
                                    const std::optional<CodeDeModalite>& precedente) {
  if (possibles.size() == 1) return possibles.front();
  if (!precedente) return std::nullopt;
  std::optional<CodeDeModalite> autre;
  for (const CodeDeModalite& possible : possibles) {
    if (possible.question != precedente->question) continue;
    if (possible.code > precedente->code) return possible;
    autre = possible;
  }
  return autre;
}

}  // namespace

std::string NomDeModalite(std::string_view nomQuestion, int code) {
  return Joindre({CadreGauche(nomQuestion, code < kPremierCodeDouble ? 3 : 2), CodeCaractere(code)});
}

FauteDeNom LireNomDeModalite(const FichierPos& pos, std::string_view nom, std::optional<CodeDeModalite> precedente,
                             CodeDeModalite& lu) {
  const char signe = nom[kLargeurNom - 1];
  const bool lettre = signe >= 'A' && signe <= 'Z';
  const bool chiffre = EstChiffre(signe);
  Lectures lectures;
  if (lettre || chiffre) Ajouter(lectures, pos, nom, kLargeurNom - 1, lettre ? signe - 'A' + 10 : signe - '0');
  if (const char dizaine = nom[kLargeurNom - 2]; chiffre && EstChiffre(dizaine))
    if (const int code = 10 * (dizaine - '0') + (signe - '0'); code >= kPremierCodeDouble)
      Ajouter(lectures, pos, nom, kLargeurNom - 2, code);
  if (lectures.possibles.empty()) {
    if (!lettre && !chiffre) return FauteDeNom::HorsNorme;
    if (!lectures.tropGrande) return FauteDeNom::Inconnue;
    lu = *lectures.tropGrande;
    return FauteDeNom::Aucune;
  }
  const std::optional<CodeDeModalite> suite = Suite(lectures.possibles, precedente);
  if (suite) lu = *suite;
  return suite ? FauteDeNom::Aucune : FauteDeNom::Partagee;
}

}  // namespace quelvar
