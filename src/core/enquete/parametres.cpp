#include "core/enquete/parametres.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace {

enum class Parametre { Lignes, Colonnes, LignesSup, ColonnesSup, Largeur, Burt, Mod, De, Cdg };

// The order matters: the first code that occurs anywhere in the key wins.
constexpr std::array<std::pair<std::string_view, Parametre>, 18> kCodesDeCle = {{{"IM", Parametre::Lignes},
                                                                                 {"LI", Parametre::Lignes},
                                                                                 {"JM", Parametre::Colonnes},
                                                                                 {"CO", Parametre::Colonnes},
                                                                                 {"IS", Parametre::LignesSup},
                                                                                 {"LS", Parametre::LignesSup},
                                                                                 {"JS", Parametre::ColonnesSup},
                                                                                 {"CS", Parametre::ColonnesSup},
                                                                                 {"FM", Parametre::Largeur},
                                                                                 {"FO", Parametre::Largeur},
                                                                                 {"LA", Parametre::Largeur},
                                                                                 {"LR", Parametre::Largeur},
                                                                                 {"BR", Parametre::Burt},
                                                                                 {"BU", Parametre::Burt},
                                                                                 {"MO", Parametre::Mod},
                                                                                 {"EF", Parametre::De},
                                                                                 {"DE", Parametre::De},
                                                                                 {"CD", Parametre::Cdg}}};

struct Paire {
  std::string cle;
  std::string valeur;
};

// Blanks for the separators, and no blank on either side of "=".
std::string Normaliser(std::string_view ligne) {
  std::string texte(Rogner(ligne));
  std::replace_if(
      texte.begin(), texte.end(), [](char c) { return std::string_view(",:;/.").find(c) != std::string_view::npos; },
      ' ');
  std::string serre;
  for (std::size_t i = 0; i < texte.size();) {
    const std::size_t suite = std::min(texte.find_first_not_of(' ', i), texte.size());
    const bool avantEgal = suite < texte.size() && texte[suite] == '=';
    const bool apresEgal = !serre.empty() && serre.back() == '=';
    if (!avantEgal && !apresEgal) serre.append(texte, i, suite - i);
    if (suite < texte.size()) serre += texte[suite];
    i = suite + 1;
  }
  return serre;
}

// The pairs of the line, or nothing when a token lacks its "=".
std::optional<std::vector<Paire>> Decouper(const std::string& texte) {
  std::vector<Paire> paires;
  for (std::size_t i = texte.find_first_not_of(' '); i != std::string::npos; i = texte.find_first_not_of(' ', i)) {
    const std::size_t egal = texte.find('=', i);
    if (egal == std::string::npos) return std::nullopt;
    const std::size_t fin = std::min(texte.find(' ', egal), texte.size());
    paires.push_back({Majuscules(texte.substr(i, egal - i)), texte.substr(egal + 1, fin - egal - 1)});
    i = fin;
  }
  return paires;
}

void Retenir(const Paire& paire, ParametresMod& parametres) {
  const auto ligne = std::find_if(kCodesDeCle.begin(), kCodesDeCle.end(),
                                  [&](const auto& code) { return paire.cle.find(code.first) != std::string::npos; });
  if (ligne == kCodesDeCle.end()) return;
  if (ligne->second == Parametre::Mod) {
    parametres.modPresent = true;
    parametres.mod = RognerDroite(paire.valeur);
    return;
  }
  const double valeur = ValeurDe(paire.valeur);
  switch (ligne->second) {
    case Parametre::Lignes: parametres.lignes = valeur; break;
    case Parametre::Colonnes: parametres.colonnes = valeur; break;
    case Parametre::LignesSup: parametres.lignesSup = valeur; break;
    case Parametre::ColonnesSup: parametres.colonnesSup = Entier16(valeur); break;
    case Parametre::Largeur: parametres.largeur = Entier16(valeur); break;
    case Parametre::Burt: parametres.burt = Entier16(valeur); break;
    case Parametre::De: parametres.de = Entier32(valeur); break;
    case Parametre::Cdg: parametres.cdg = valeur; break;
    case Parametre::Mod: break;
  }
}

}  // namespace

std::string LigneDeParametres(std::span<const CleDeParametre> cles) {
  std::string ligne;
  for (const CleDeParametre& cle : cles) ligne += Joindre({" ", cle.cle, cle.valeur});
  return ligne + " ";
}

ParametresMod LireParametres(std::string_view ligne, std::string_view nomMod) {
  ParametresMod parametres;
  const std::optional<std::vector<Paire>> paires = Decouper(Normaliser(ligne));
  if (!paires) {
    parametres.remarques.emplace_back("Arret : manque signe = dans ligne 2 de *.MOD");
    return parametres;
  }
  Situer([&] { return Lieu{.fichier = std::string(nomMod), .ligne = kLigneDesParametres}; },
         [&] {
           for (const Paire& paire : *paires) Retenir(paire, parametres);
         });
  return parametres;
}

FauteSituee FauteDeFormat(std::string_view nomMod, MotsDuFormat mots) {
  return {mots == MotsDuFormat::AvecLeFichier ? Joindre({"Erreur : pas de parametre FMT= dans le fichier ", nomMod})
                                              : std::string("Erreur : pas de FMT="),
          {std::string(nomMod), kLigneDesParametres}};
}

}  // namespace quelvar
