#include "capture/saisie/touches.h"

#include <algorithm>
#include <optional>

#include "core/chiffres/nombres.h"
#include "core/texte/caracteres.h"

namespace quelvar::capture {

namespace {

constexpr int kRepetitionsAuPlus = 10000;  // of one key by "*", so that a slip does not type for hours

struct NomEcrit {
  std::string_view nom;
  Touche touche;
};

constexpr NomEcrit kNoms[] = {
    {"Entree", {NomDeTouche::Entree}},
    {"Echap", {NomDeTouche::Echappement}},
    {"Tab", {NomDeTouche::Tabulation}},
    {"Fin", {NomDeTouche::Fin}},
    {"PageSuivante", {NomDeTouche::PageSuivante}},
    {"PagePrecedente", {NomDeTouche::PagePrecedente}},
    {"Bas", {NomDeTouche::Bas}},
    {"Haut", {NomDeTouche::Haut}},
    {"Gauche", {NomDeTouche::Gauche}},
    {"Droite", {NomDeTouche::Droite}},
    {"Retour", {NomDeTouche::Retour}},
    {"Suppr", {NomDeTouche::Suppr}},
    {"VerrMaj", {NomDeTouche::VerrMaj}},
    {"Espace", {NomDeTouche::Caractere, ' '}},
};

std::optional<Touche> TrouverTouche(std::string_view mot) {
  if (mot.size() == 1) return Touche{NomDeTouche::Caractere, mot.front()};
  for (const NomEcrit& nom : kNoms)
    if (EgalSansCasse(nom.nom, mot)) return nom.touche;
  return std::nullopt;
}

// A count small enough to be read as one.
bool EstCompte(std::string_view texte) {
  constexpr std::size_t kChiffresAuPlus = 9;
  return texte.size() <= kChiffresAuPlus && SontChiffres(texte);
}

// Takes a text between quotes from the start of `reste`; false when its end is not there.
bool PrendreTexte(std::string_view& reste, std::vector<Frappe>& frappes) {
  for (std::size_t i = 1; i < reste.size(); ++i) {
    if (reste[i] == '"' && (i + 1 == reste.size() || reste[i + 1] != '"')) {
      reste.remove_prefix(i + 1);
      return true;
    }
    if (reste[i] == '"') ++i;
    frappes.push_back({{NomDeTouche::Caractere, reste[i]}, 0});
  }
  return false;
}

bool PrendreMot(std::string_view mot, std::vector<Frappe>& frappes) {
  constexpr std::string_view kEnregistrement = "ENREGISTREMENT=";
  if (mot.size() > kEnregistrement.size() && EgalSansCasse(mot.substr(0, kEnregistrement.size()), kEnregistrement)) {
    const std::string_view numero = mot.substr(kEnregistrement.size());
    if (!EstCompte(numero) || ValeurDe(numero) < 1) return false;
    frappes.push_back({{}, static_cast<std::int64_t>(ValeurDe(numero))});
    return true;
  }
  int fois = 1;
  if (const std::size_t etoile = mot.rfind('*'); etoile != std::string_view::npos && etoile > 0) {
    const std::string_view nombre = mot.substr(etoile + 1);
    if (!EstCompte(nombre) || ValeurDe(nombre) > kRepetitionsAuPlus) return false;
    fois = static_cast<int>(ValeurDe(nombre));
    mot = mot.substr(0, etoile);
  }
  const std::optional<Touche> touche = TrouverTouche(mot);
  if (touche) frappes.insert(frappes.end(), static_cast<std::size_t>(fois), {*touche, 0});
  return touche.has_value();
}

// A question that has no answer keeps none.
void Passer(EtatSaisie& etat, Passage& passage) {
  const std::vector<std::string> donnees = etat.reponses;
  while (!etat.SurFin()) Frapper(etat, {NomDeTouche::Bas});
  for (std::size_t i = 0; i < donnees.size(); ++i) {
    const DescriptionDeQuestion& question = etat.questions[i];
    const std::string_view nom = RognerDroite(question.nom);
    if (donnees[i].empty()) etat.reponses[i].clear();
    if (passage.recrite.empty() && RognerDroite(etat.reponses[i]) != RognerDroite(donnees[i])) passage.recrite = nom;
    if (passage.sautee.empty() && etat.sautees[i] != 0 && !EstVide(question, donnees[i])) passage.sautee = nom;
  }
}

}  // namespace

LigneDeTouches LireTouches(std::string_view ligne) {
  LigneDeTouches lue;
  for (std::string_view reste = RognerGauche(ligne); !reste.empty(); reste = RognerGauche(reste)) {
    const std::string_view mot = reste.substr(0, reste.find(' '));
    bool bon = false;
    if (reste.front() == '"') {
      bon = PrendreTexte(reste, lue.frappes);
    } else {
      bon = PrendreMot(mot, lue.frappes);
      reste.remove_prefix(mot.size());
    }
    if (bon) continue;
    lue.faute = mot;
    lue.frappes.clear();
    break;
  }
  return lue;
}

std::string PrendreReponses(EtatSaisie& etat, std::string_view ligne, Passage& passage) {
  const std::size_t donnees =
      ligne.empty() ? 0 : static_cast<std::size_t>(std::count(ligne.begin(), ligne.end(), ';')) + 1;
  if (donnees != etat.questions.size())
    return Joindre({"il y a "_w, Nombre(donnees), " réponses pour "_w, Nombre(etat.questions.size()), " questions"});
  for (std::size_t i = 0; i < etat.questions.size(); ++i) {
    const std::size_t fin = std::min(ligne.find(';'), ligne.size());
    const std::string_view reponse = ligne.substr(0, fin);
    ligne.remove_prefix(std::min(fin + 1, ligne.size()));
    if (Repondre(etat, i, reponse)) continue;
    const DescriptionDeQuestion& question = etat.questions[i];
    const std::string_view attendu = EstCourte(question)   ? "un code de 0 à "_w
                                     : EstLongue(question) ? "un nombre de chiffres d'au plus "_w
                                                           : "un texte de longueur au plus "_w;
    return Joindre({"la question ", RognerDroite(question.nom), " attend ", attendu, Nombre(question.nombre),
                    " et non \"", reponse, "\""});
  }
  Passer(etat, passage);
  return {};
}

std::string NomsDesTouches() {
  std::string noms;
  for (const NomEcrit& nom : kNoms) noms += Joindre({std::string_view(noms.empty() ? "" : " "), nom.nom});
  return noms;
}

}  // namespace quelvar::capture
