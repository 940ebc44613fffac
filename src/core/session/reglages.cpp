#include "core/session/reglages.h"

#include <map>
#include <memory>

#include "core/texte/nombres.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace {

std::string Cle(int rang) { return "RecentFile" + Nombre(rang); }

}  // namespace

Reglages ReglagesEnMemoire() {
  const auto table = std::make_shared<std::map<std::string, std::string>>();
  const auto nom = [](std::string_view application, std::string_view section, std::string_view cle) {
    return std::string(application) + '\n' + std::string(section) + '\n' + std::string(cle);
  };
  Reglages reglages;
  reglages.lire = [table, nom](std::string_view application, std::string_view section, std::string_view cle) {
    const auto trouve = table->find(nom(application, section, cle));
    return trouve == table->end() ? std::string() : trouve->second;
  };
  reglages.ecrire = [table, nom](std::string_view application, std::string_view section, std::string_view cle,
                                 std::string_view valeur) {
    if (valeur.empty()) table->erase(nom(application, section, cle));
    else (*table)[nom(application, section, cle)] = std::string(valeur);
  };
  return reglages;
}

std::string LireRecent(const Reglages& reglages, const ListeRecents& liste, int rang) {
  return reglages.lire(liste.application, liste.section, Cle(rang));
}

void AjouterRecent(const Reglages& reglages, const ListeRecents& liste, std::string_view valeur) {
  for (int rang = 1; rang <= liste.capacite; ++rang)
    if (LireRecent(reglages, liste, rang) == valeur) return;
  for (int rang = liste.capacite; rang > 1; --rang)
    reglages.ecrire(liste.application, liste.section, Cle(rang), LireRecent(reglages, liste, rang - 1));
  reglages.ecrire(liste.application, liste.section, Cle(1), valeur);
}

std::string MajusculesUtf8(std::string_view utf8) {
  std::string resultat;
  while (!utf8.empty()) {
    const detail::PointUtf8 lu = detail::DecoderUtf8(utf8);
    const std::size_t longueur = lu.longueur == 0 ? 1 : lu.longueur;
    const int octet = lu.longueur == 0 ? -1 : detail::OctetDe(lu.point);
    if (octet < 0) resultat += utf8.substr(0, longueur);
    else resultat += VersUtf8(std::string(1, Majuscule(static_cast<char>(octet))));
    utf8.remove_prefix(longueur);
  }
  return resultat;
}

}  // namespace quelvar
