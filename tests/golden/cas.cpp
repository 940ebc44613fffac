#include "golden/cas.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "core/fichiers/fichiers.h"
#include "support/environnement.h"

namespace fs = std::filesystem;

namespace golden {

using quelvar::LireOctets;

namespace {

std::vector<std::string> DecouperArguments(const std::string& ligne) {
  std::vector<std::string> mots;
  std::string mot;
  bool dansMot = false;
  char guillemet = 0;
  for (const char c : ligne) {
    if (guillemet != 0) {
      if (c == guillemet) guillemet = 0;
      else mot += c;
    } else if (c == '"' || c == '\'') {
      guillemet = c;
      dansMot = true;
    } else if (c != ' ') {
      mot += c;
      dansMot = true;
    } else if (dansMot) {
      mots.push_back(std::exchange(mot, {}));
      dansMot = false;
    }
  }
  if (guillemet != 0) throw std::runtime_error("commande: a quote is not closed: " + ligne);
  if (dansMot) mots.push_back(mot);
  return mots;
}

std::map<std::string, std::string> LireDossier(const fs::path& dossier) {
  std::map<std::string, std::string> fichiers;
  if (!fs::exists(dossier)) return fichiers;
  for (const auto& entree : fs::recursive_directory_iterator(dossier)) {
    if (entree.is_regular_file()) fichiers[fs::relative(entree.path(), dossier).string()] = LireOctets(entree);
  }
  return fichiers;
}

// Blanks as middle dots, accents of the code page as UTF-8, any other control byte as \xNN.
std::string RendreVisible(std::string_view octets) {
  static constexpr char kChiffres[] = "0123456789ABCDEF";
  std::string visible;
  for (const char c : octets) {
    const auto o = static_cast<unsigned char>(c);
    if (o == ' ') visible += "·";
    else if (o > ' ' && o < 0x7F) visible += c;
    else if (o >= 0xA0) {
      visible += static_cast<char>(0xC0 | (o >> 6));
      visible += static_cast<char>(0x80 | (o & 0x3F));
    } else if (o == '\r') visible += "\\r";
    else if (o == '\n') visible += "\\n";
    else (visible += "\\x") += {kChiffres[o >> 4], kChiffres[o & 15]};
  }
  return visible;
}

std::string LigneAutour(std::string_view texte, std::size_t position) {
  const std::size_t debut = position == 0 ? 0 : texte.rfind('\n', position - 1) + 1;
  if (debut >= texte.size()) return "<end of file>";
  const std::size_t fin = texte.find('\n', debut);
  return RendreVisible(texte.substr(debut, fin == std::string_view::npos ? fin : fin - debut + 1));
}

std::string PremiereDifference(const std::string& nom, std::string_view attendu, std::string_view obtenu) {
  const auto [a, o] = std::mismatch(attendu.begin(), attendu.end(), obtenu.begin(), obtenu.end());
  const auto position = static_cast<std::size_t>(a - attendu.begin());
  const auto ligne = std::count(attendu.begin(), a, '\n') + 1;
  const std::size_t debut = position == 0 ? 0 : attendu.rfind('\n', position - 1) + 1;
  std::ostringstream texte;
  texte << nom << " differs at line " << ligne << ", column " << position - debut + 1 << " (" << attendu.size()
        << " bytes expected, " << obtenu.size() << " found)\n"
        << "  expected: " << LigneAutour(attendu, position) << "\n"
        << "  found:    " << LigneAutour(obtenu, position);
  return texte.str();
}

// The content that each file must have at the end of the runs.
std::map<std::string, std::string> EtatAttendu(const Cas& cas) {
  auto etat = LireDossier(cas.dossier / "entree");
  for (const std::string& nom : cas.effaces) etat.erase(nom);
  for (auto& [nom, octets] : LireDossier(cas.dossier / "attendu")) etat[nom] = std::move(octets);
  return etat;
}

void ComparerFichiers(const Cas& cas, const Constat& constat, std::vector<std::string>& differences) {
  const auto etat = EtatAttendu(cas);
  for (const auto& [nom, octets] : etat) {
    const auto trouve = constat.fichiers.find(nom);
    if (trouve == constat.fichiers.end()) differences.push_back(nom + " is missing after the run");
    else if (trouve->second != octets) differences.push_back(PremiereDifference(nom, octets, trouve->second));
  }
  for (const auto& [nom, octets] : constat.fichiers) {
    if (!etat.contains(nom)) differences.push_back(nom + " is not expected:\n" + RendreVisible(octets.substr(0, 400)));
  }
}

void ComparerTexte(const fs::path& fichier, const std::string& obtenu, std::vector<std::string>& differences) {
  if (!fs::exists(fichier)) return;
  const std::string attendu = LireOctets(fichier);
  if (attendu != obtenu) differences.push_back(PremiereDifference(fichier.filename(), attendu, obtenu));
}

}  // namespace

std::vector<fs::path> ListerCas(const fs::path& racine) {
  std::vector<fs::path> cas;
  for (const auto& programme : fs::directory_iterator(racine)) {
    if (!programme.is_directory()) continue;
    for (const auto& dossier : fs::directory_iterator(programme)) {
      if (dossier.is_directory()) cas.push_back(dossier);
    }
  }
  std::sort(cas.begin(), cas.end());
  return cas;
}

Cas LireCas(const fs::path& dossier) {
  Cas cas{dossier, {}, {}};
  std::istringstream flux(LireOctets(dossier / "commande"));
  bool statutDonne = false;
  for (std::string ligne; std::getline(flux, ligne);) {
    if (ligne.empty() || ligne[0] == '#') continue;
    if (ligne.starts_with("efface: ")) {
      cas.effaces.insert(ligne.substr(8));
      continue;
    }
    Execution execution{DecouperArguments(ligne), 0};
    if (!execution.arguments.empty() && execution.arguments[0].starts_with("statut=")) {
      execution.statut = std::stoi(execution.arguments[0].substr(7));
      execution.arguments.erase(execution.arguments.begin());
      statutDonne = true;
    }
    cas.executions.push_back(std::move(execution));
  }
  if (cas.executions.empty()) throw std::runtime_error("commande holds no run");
  const bool attenduVide = LireDossier(dossier / "attendu").empty();
  if (attenduVide && !statutDonne) throw std::runtime_error("attendu/ is empty and no statut= is given");
  return cas;
}

std::vector<std::string> Differences(const Cas& cas, const Constat& constat) {
  std::vector<std::string> differences;
  for (std::size_t i = 0; i < cas.executions.size(); ++i) {
    if (constat.statuts[i] == cas.executions[i].statut) continue;
    differences.push_back("run " + std::to_string(i + 1) + " ended with status " + std::to_string(constat.statuts[i]) +
                          ", expected " + std::to_string(cas.executions[i].statut) + "; it said:\n" + constat.boites);
  }
  ComparerFichiers(cas, constat, differences);
  ComparerTexte(cas.dossier / "sortie", constat.sortie, differences);
  ComparerTexte(cas.dossier / "boites", constat.boites, differences);
  return differences;
}

std::vector<std::string> Reecrire(const Cas& cas, const Constat& constat) {
  std::vector<std::string> remarques;
  const auto entree = LireDossier(cas.dossier / "entree");
  fs::remove_all(cas.dossier / "attendu");
  for (const auto& [nom, octets] : constat.fichiers) {
    const auto avant = entree.find(nom);
    if (avant != entree.end() && avant->second == octets) continue;
    const fs::path fichier = cas.dossier / "attendu" / nom;
    fs::create_directories(fichier.parent_path());
    essai::EcrireOctets(fichier, octets);
    if (cas.effaces.contains(nom)) remarques.push_back("take out the line \"efface: " + nom + "\"");
  }
  for (const auto& [nom, octets] : entree) {
    if (!constat.fichiers.contains(nom) && !cas.effaces.contains(nom))
      remarques.push_back("add the line \"efface: " + nom + "\"");
  }
  for (std::size_t i = 0; i < cas.executions.size(); ++i) {
    if (constat.statuts[i] != cas.executions[i].statut)
      remarques.push_back("run " + std::to_string(i + 1) + " ends with statut=" + std::to_string(constat.statuts[i]));
  }
  if (fs::exists(cas.dossier / "sortie")) essai::EcrireOctets(cas.dossier / "sortie", constat.sortie);
  if (fs::exists(cas.dossier / "boites")) essai::EcrireOctets(cas.dossier / "boites", constat.boites);
  return remarques;
}

std::vector<std::string> LireListe(std::string_view sortie) {
  std::vector<std::string> noms;
  std::istringstream flux{std::string(sortie)};
  for (std::string ligne; std::getline(flux, ligne);) {
    const std::string nom = ligne.substr(0, ligne.find(' '));
    if (!nom.empty()) noms.push_back(nom);
  }
  return noms;
}

}  // namespace golden
