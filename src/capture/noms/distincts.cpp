#include "capture/noms/distincts.h"

#include <unordered_map>

#include "core/panne/erreur.h"
#include "core/texte/texte.h"

namespace quelvar::capture {

namespace {
constexpr std::size_t kLettres = 'Z' - 'A' + 1;
constexpr std::size_t kChiffres = 10;
}  // namespace

std::vector<std::size_t> DistinguerNoms(std::vector<std::string>& noms,
                                        const std::function<bool(std::string_view)>& impossible,
                                        const std::function<std::string(std::size_t)>& rechange) {
  std::unordered_map<std::string, std::vector<std::size_t>> porteurs;
  for (std::size_t i = 0; i < noms.size(); ++i) porteurs[std::string(Rogner(noms[i]))].push_back(i);
  std::vector<std::size_t> aRemplacer;
  for (std::size_t i = 0; i < noms.size(); ++i)
    if (impossible(noms[i]) || porteurs[std::string(Rogner(noms[i]))].size() > 1) aRemplacer.push_back(i);
  std::vector<bool> remplaces(noms.size(), false);
  while (!aRemplacer.empty()) {
    const std::size_t i = aRemplacer.back();
    aRemplacer.pop_back();
    if (remplaces[i]) continue;
    remplaces[i] = true;
    noms[i] = rechange(i);
    // A name given in exchange may be the own name of another one, which gives way too.
    if (const auto autres = porteurs.find(std::string(Rogner(noms[i]))); autres != porteurs.end())
      aRemplacer.insert(aRemplacer.end(), autres->second.begin(), autres->second.end());
  }
  std::vector<std::size_t> indices;
  for (std::size_t i = 0; i < noms.size(); ++i)
    if (remplaces[i]) indices.push_back(i);
  return indices;
}

std::string NomAvecLettres(std::size_t rang, std::size_t largeur) {
  for (std::size_t lettres = 1; lettres < largeur; ++lettres) {
    std::size_t nombre = 1;  // of the names with that many letters
    for (std::size_t k = 0; k < largeur; ++k) nombre *= k < lettres ? kLettres : kChiffres;
    if (rang >= nombre) {
      rang -= nombre;
      continue;
    }
    std::string nom(largeur, ' ');
    for (std::size_t k = largeur; k-- > 0;) {
      const std::size_t base = k < lettres ? kLettres : kChiffres;
      nom[k] = static_cast<char>((k < lettres ? 'A' : '0') + static_cast<char>(rang % base));
      rang /= base;
    }
    return nom;
  }
  throw Erreur(kIndiceHorsSelection);
}

}  // namespace quelvar::capture
