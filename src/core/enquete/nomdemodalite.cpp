#include "core/enquete/nomdemodalite.h"

#include <algorithm>
#include <vector>

#include "core/programme/rapport.h"
#include "core/texte/caracteres.h"

namespace quelvar {

namespace {

// Letters of the question before two digits of code; one sign of code leaves it all of its own.
constexpr int kLettresAvantDeuxChiffres = kLargeurDeModalite - 2;

// The letters go on behind the digits.
constexpr int kCodeDeA = 10;

// What a name may stand for.
struct Lectures {
  std::vector<CodeDeModalite> possibles;
  std::optional<CodeDeModalite> tropGrande;  // of three characters, but beyond the code-max
};

// The readings of a name by so many letters of the question and that code.
void Ajouter(Lectures& lectures, const FichierPos& pos, std::string_view nom, int lettres, int code) {
  const std::string_view debut = Milieu(nom, 1, static_cast<std::size_t>(lettres));
  const bool entier = lettres == kLargeurDeQuestion;
  for (std::size_t q = 0; q < pos.questions.size(); ++q) {
    if (Milieu(pos.questions[q].nom, 1, static_cast<std::size_t>(lettres)) != debut) continue;
    if (pos.questions[q].codeMax >= code) lectures.possibles.push_back({q, code});
    else if (entier && !lectures.tropGrande) lectures.tropGrande = CodeDeModalite{q, code};
    // Questions of one name are another fault.
    if (entier && !lectures.possibles.empty()) return;
  }
}

// The reading that goes on from the modality before.
std::optional<CodeDeModalite> LectureQuiSuit(const std::vector<CodeDeModalite>& possibles,
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
  return Joindre({CadreGauche(nomQuestion, code < kPremierCodeDouble ? kLargeurDeQuestion : kLettresAvantDeuxChiffres),
                  CodeCaractere(code)});
}

FauteDeNom LireNomDeModalite(const FichierPos& pos, std::string_view nom, std::optional<CodeDeModalite> precedente,
                             CodeDeModalite& lu) {
  const char signe = nom[kLargeurDeModalite - 1];
  const bool lettre = signe >= 'A' && signe <= 'Z';
  const bool chiffre = EstChiffre(signe);
  Lectures lectures;
  if (lettre || chiffre)
    Ajouter(lectures, pos, nom, kLargeurDeQuestion, lettre ? kCodeDeA + (signe - 'A') : signe - '0');
  if (const char dizaine = nom[kLargeurDeModalite - 2]; chiffre && EstChiffre(dizaine))
    if (const int code = 10 * (dizaine - '0') + (signe - '0'); code >= kPremierCodeDouble)
      Ajouter(lectures, pos, nom, kLettresAvantDeuxChiffres, code);
  if (lectures.possibles.empty()) {
    if (!lettre && !chiffre) return FauteDeNom::HorsNorme;
    if (!lectures.tropGrande) return FauteDeNom::Inconnue;
    lu = *lectures.tropGrande;
    return FauteDeNom::Aucune;
  }
  const std::optional<CodeDeModalite> lecture = LectureQuiSuit(lectures.possibles, precedente);
  if (lecture) lu = *lecture;
  return lecture ? FauteDeNom::Aucune : FauteDeNom::Partagee;
}

}  // namespace quelvar
