#include "core/options/option.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "core/chiffres/nombres.h"
#include "core/dessin/svg.h"
#include "core/panne/erreur.h"
#include "core/programme/programme.h"
#include "core/texte/caracteres.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace {

const AutreNom* AutreNomDe(const Option& option, std::string_view nom) {
  const auto trouve = std::find_if(option.autresNoms.begin(), option.autresNoms.end(),
                                   [&](const AutreNom& autre) { return autre.nom == nom; });
  return trouve == option.autresNoms.end() ? nullptr : &*trouve;
}

std::string ValeursDe(const AutreNom& autre) {
  std::string valeurs;
  for (const auto& mot : autre.mots) valeurs += (valeurs.empty() ? "" : "|") + mot.first;
  return valeurs;
}

OptionTrouvee Traduire(std::size_t rang, const AutreNom* autre, const std::string& valeur) {
  if (autre == nullptr || autre->mots.empty()) return {rang, valeur};
  for (const auto& [mot, traduit] : autre->mots)
    if (EgalSansCasse(mot, valeur)) return {rang, traduit, traduit.empty()};
  RefuserValeur(autre->nom, ValeursDe(*autre), valeur);
}

// The options whose name begins so; without one, the names with words of their own that do.
struct Commencement {
  std::size_t rang;
  const AutreNom* autre;
};

std::vector<Commencement> Commencements(const std::vector<Option>& options, const std::string& debut) {
  std::vector<Commencement> trouves;
  if (debut.empty()) return trouves;
  for (std::size_t i = 0; i < options.size(); ++i)
    if (options[i].nom.starts_with(debut)) trouves.push_back({i, nullptr});
  if (!trouves.empty()) return trouves;
  for (std::size_t i = 0; i < options.size(); ++i)
    for (const AutreNom& autre : options[i].autresNoms)
      if (!autre.mots.empty() && autre.nom.starts_with(debut)) trouves.push_back({i, &autre});
  return trouves;
}

// A sign that a shell takes as it stands.
bool SansDanger(char c) {
  constexpr std::string_view kSignes = "_.,:/=+-@%";
  return EstChiffre(c) || (Minuscule(c) >= 'a' && Minuscule(c) <= 'z') || kSignes.find(c) != std::string_view::npos;
}

// A word that a POSIX shell takes whole and as it stands.
std::string PourLInterprete(std::string_view mot) {
  if (!mot.empty() && std::all_of(mot.begin(), mot.end(), SansDanger)) return std::string(mot);
  std::string protege = "'";
  for (const char c : mot) {
    if (c == '\'') protege += "'\\''";
    else protege += c;
  }
  return protege + "'";
}

}  // namespace

OptionTrouvee TrouverOption(const std::vector<Option>& options, const ValeurDOption& typee,
                            std::string_view programme) {
  const auto& [nom, valeur] = typee;
  for (std::size_t i = 0; i < options.size(); ++i) {
    if (options[i].nom == nom) return {i, valeur};
    if (const AutreNom* autre = AutreNomDe(options[i], nom)) return Traduire(i, autre, valeur);
  }
  const std::vector<Commencement> commencements = Commencements(options, nom);
  if (commencements.size() == 1) return Traduire(commencements.front().rang, commencements.front().autre, valeur);
  throw UsageIncorrect(Joindre({std::string_view(commencements.empty() ? "option inconnue : " : "option ambigue : "),
                                nom, " (voir : quelvar-batch ", programme, " --aide)"}));
}

void RefuserDeuxValeurs(const Option& option, const OptionTrouvee& avant, const OptionTrouvee& apres) {
  if (avant.rang != apres.rang || option.repetable || avant.valeur == apres.valeur) return;
  throw UsageIncorrect(
      Joindre({"l'option ", option.nom, " est donnée deux fois : \""_w, avant.valeur, "\" et \"", apres.valeur, "\""}));
}

void RefuserValeur(std::string_view nom, std::string_view attendu, std::string_view valeur) {
  throw UsageIncorrect(Joindre({"l'option ", nom, " attend ", attendu, " et non \"", valeur, "\""}));
}

bool LireOuiNon(std::string_view nom, std::string_view valeur) {
  const std::string mot = Minuscules(valeur);
  if (mot != "oui" && mot != "non") RefuserValeur(nom, "oui|non", valeur);
  return mot == "oui";
}

int LireEntier(std::string_view nom, std::string_view valeur, int minimum, int maximum) {
  constexpr std::size_t kChiffresDUnEntier = 9;  // an int holds any number of them
  const std::string_view chiffres = valeur.substr(valeur.starts_with('-') ? 1 : 0);
  const bool entier = SontChiffres(chiffres) && chiffres.size() <= kChiffresDUnEntier;
  const double nombre = entier ? ValeurDe(valeur) : 0;
  if (!entier || nombre < minimum || nombre > maximum)
    RefuserValeur(nom, Joindre({"un nombre entier (", Nombre(minimum), "..", Nombre(maximum), ")"}), valeur);
  return static_cast<int>(nombre);
}

double LireReel(std::string_view nom, std::string_view valeur, double plusPetit, double plusGrand) {
  const bool borne = std::isfinite(plusPetit) && std::isfinite(plusGrand);
  const auto refuser = [&] {
    RefuserValeur(nom, borne ? Joindre({"un nombre (", Nombre(plusPetit), "..", Nombre(plusGrand), ")"}) : "un nombre",
                  valeur);
  };
  if (!EstNombre(valeur)) refuser();
  double nombre = 0;
  try {
    nombre = ValeurDe(valeur);
  } catch (const Erreur&) {  // beyond a double
    refuser();
  }
  if (nombre < plusPetit || nombre > plusGrand) refuser();
  return nombre;
}

std::string EcrireReel(double valeur) {
  char octets[32];
  const std::to_chars_result fin = std::to_chars(octets, octets + sizeof octets, valeur);
  return {octets, fin.ptr};
}

void ExigerSvg(std::string_view nom, std::string_view valeur) {
  if (!EstNomDeSvg(valeur)) RefuserValeur(nom, "un nom en .svg", valeur);
}

std::string CommandeEcrite(std::string_view programme, std::string_view generique, int niveau,
                           const LigneDOptions& ligne) {
  std::string commande = "quelvar-batch ";
  if (niveau >= kNiveauAvance) commande += Joindre({"--niveau ", Nombre(niveau), " "});
  commande += Joindre({programme, " ", PourLInterprete(generique)});
  for (const auto& [nom, valeur] : ligne) commande += " " + PourLInterprete(Joindre({nom, "=", valeur}));
  return commande;
}

}  // namespace quelvar
