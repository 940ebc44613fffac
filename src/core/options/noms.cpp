#include "core/options/noms.h"

#include "core/enquete/colonnes.h"
#include "core/options/option.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace {

constexpr std::string_view kEntreNoms = ",";
constexpr std::string_view kEntreNomEtTexte = "=";
constexpr char kProtection = '\\';

bool EstProtege(char c, std::string_view signes) {
  return c == kProtection || signes.find(c) != std::string_view::npos;
}

// Whether the "\" that stands there takes the sign behind it along.
bool Protege(std::string_view texte, std::size_t place, std::string_view signes) {
  return texte[place] == kProtection && place + 1 < texte.size() && EstProtege(texte[place + 1], signes);
}

}  // namespace

std::string Proteger(std::string_view texte, std::string_view signes) {
  std::string protege;
  for (const char c : texte) {
    if (EstProtege(c, signes)) protege += kProtection;
    protege += c;
  }
  return protege;
}

std::string SansProtection(std::string_view partie, std::string_view signes) {
  std::string texte;
  for (std::size_t i = 0; i < partie.size(); ++i) {
    if (Protege(partie, i, signes)) ++i;
    texte += partie[i];
  }
  return texte;
}

std::size_t PlaceDuSigne(std::string_view texte, std::string_view signes) {
  for (std::size_t i = 0; i < texte.size(); ++i) {
    if (Protege(texte, i, signes)) ++i;
    else if (signes.find(texte[i]) != std::string_view::npos) return i;
  }
  return std::string_view::npos;
}

std::vector<std::string_view> Parties(std::string_view texte, char signe) {
  std::vector<std::string_view> parties;
  while (true) {
    const std::size_t place = PlaceDuSigne(texte, {&signe, 1});
    parties.push_back(texte.substr(0, place));
    if (place == std::string_view::npos) return parties;
    texte.remove_prefix(place + 1);
  }
}

std::string PartiesJointes(const std::vector<std::string>& parties, char signe) {
  std::string texte;
  for (const std::string& partie : parties) {
    if (&partie != &parties.front()) texte += signe;
    texte += partie;
  }
  return texte;
}

std::vector<std::string_view> PartiesDeListe(std::string_view texte) {
  if (texte.empty()) return {};
  std::vector<std::string_view> parties = Parties(texte, kEntreNoms.front());
  for (std::string_view& partie : parties) partie = Rogner(partie);
  return parties;
}

std::vector<std::string> NomsSepares(std::string_view texte) {
  std::vector<std::string> noms;
  for (const std::string_view partie : PartiesDeListe(texte)) noms.push_back(SansProtection(partie, kSignesDesNoms));
  return noms;
}

std::string NomsJoints(const std::vector<std::string>& noms) {
  std::vector<std::string> parties;
  for (const std::string& nom : noms) parties.push_back(Proteger(nom, kEntreNoms));
  const bool vide = parties.size() == 1 && parties.front().empty();
  return vide ? " " : PartiesJointes(parties, kEntreNoms.front());  // an empty text is no name at all
}

std::pair<std::string, std::string> LireCouple(std::string_view option, std::string_view valeur,
                                               std::string_view attendu) {
  const std::size_t egal = PlaceDuSigne(valeur, kEntreNomEtTexte);
  if (egal == std::string_view::npos) RefuserValeur(option, attendu, valeur);
  return {SansProtection(valeur.substr(0, egal), kSignesDesNoms), std::string(valeur.substr(egal + 1))};
}

std::string NomDuCouple(std::string_view valeur) {
  const std::string_view nom = valeur.substr(0, PlaceDuSigne(valeur, kEntreNomEtTexte));
  return std::string(Rogner(SansProtection(nom, kSignesDesNoms)));
}

std::string EcrireCouple(std::string_view nom, std::string_view texte) {
  return Joindre({Proteger(nom, kEntreNomEtTexte), kEntreNomEtTexte, texte});
}

std::pair<std::string, std::string> NomEtTexte(std::string_view option, std::string_view valeur) {
  std::pair<std::string, std::string> couple = LireCouple(option, valeur);
  if (couple.first.empty() || couple.first.size() > kLargeurDeModalite) RefuserValeur(option, "NOM=TEXTE", valeur);
  return couple;
}

}  // namespace quelvar
