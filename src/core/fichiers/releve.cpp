#include "core/fichiers/releve.h"

#include <sys/stat.h>

#include <array>
#include <charconv>

#include "core/fichiers/provisoire.h"
#include "core/fichiers/systeme/appels.h"
#include "core/fichiers/systeme/condense.h"
#include "core/panne/erreur.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace {

constexpr std::string_view kTitre = "Quelvar : jeu de fichiers, 1";
constexpr int kLignesDeTete = 2;              // title, start of the system
constexpr std::size_t kChampsDUneEntree = 9;  // as TexteDuReleve writes them
constexpr std::array<std::string_view, 4> kGenres = {"nouveau", "remplace", "efface", "allonge"};
constexpr std::array<std::string_view, 2> kNatures = {"unique", "refaisable"};

// Names may hold any byte: the separators of the record are escaped.
std::string Echapper(std::string_view nom) {
  constexpr std::string_view kChiffres = "0123456789ABCDEF";
  std::string texte;
  for (const char c : nom) {
    const auto octet = static_cast<unsigned char>(c);
    if (octet < ' ' || c == '%') texte.append({'%', kChiffres[octet >> 4], kChiffres[octet & 15]});
    else texte += c;
  }
  return texte;
}

std::string Retablir(std::string_view texte) {
  std::string nom;
  for (std::size_t i = 0; i < texte.size(); ++i) {
    unsigned octet = 0;
    if (texte[i] == '%' && i + 2 < texte.size() &&
        std::from_chars(texte.data() + i + 1, texte.data() + i + 3, octet, 16).ec == std::errc()) {
      nom += static_cast<char>(octet);
      i += 2;
    } else {
      nom += texte[i];
    }
  }
  return nom;
}

template <typename Nombre>
Nombre LireNombre(std::string_view texte) {
  Nombre nombre = 0;
  std::from_chars(texte.data(), texte.data() + texte.size(), nombre);
  return nombre;
}

template <typename Valeur, std::size_t N>
Valeur LireMot(std::string_view mot, const std::array<std::string_view, N>& mots) {
  std::size_t rang = 0;
  while (rang + 1 < N && mots[rang] != mot) ++rang;
  return static_cast<Valeur>(rang);
}

std::vector<std::string_view> Champs(std::string_view ligne) {
  std::vector<std::string_view> champs;
  for (;;) {
    const std::size_t fin = ligne.find('\t');
    champs.push_back(ligne.substr(0, fin));
    if (fin == std::string_view::npos) return champs;
    ligne.remove_prefix(fin + 1);
  }
}

std::string Condenser(std::string_view texte) {
  CondenseDOctets condense;
  condense.Ajouter(texte);
  return std::to_string(condense.Valeur());
}

std::string TexteDuReleve(const Releve& releve) {
  std::string texte = std::string(kTitre) + "\r\n";
  texte += releve.amorce + "\r\n";
  for (const EntreeDeReleve& e : releve.entrees) {
    texte += std::string(kGenres[static_cast<std::size_t>(e.genre)]) + '\t' +
             std::string(kNatures[static_cast<std::size_t>(e.nature)]);
    for (const std::uint64_t nombre : {e.taille, e.empreinte, e.ancienne, e.noeud})
      texte += '\t' + std::to_string(nombre);
    texte += '\t' + std::to_string(e.instant) + '\t' + Echapper(e.cible.native()) + '\t' +
             Echapper(e.provisoire.native()) + "\r\n";
  }
  return texte;
}

// Names stand in the record without the directory that holds it: a directory may be moved.
Chemin SansDossier(const Chemin& chemin, const Chemin& dossier) {
  return chemin.parent_path() == dossier ? chemin.filename() : chemin;
}

Chemin Prefixer(const std::string& nom, const Chemin& dossier) { return dossier / Chemin(nom); }

}  // namespace

Chemin CheminDeReleve(const Chemin& repertoire, std::string_view generique) {
  return repertoire / CheminDe(Joindre({".", Majuscules(generique), ".jeu"}));
}

std::optional<Releve> LireReleve(const Chemin& chemin) {
  if (!appels::Existe(chemin.c_str())) return std::nullopt;
  const std::string octets = LireOctets(chemin);
  const std::size_t fin = octets.rfind("fin\t");
  if (fin == std::string::npos || octets.substr(fin) != "fin\t" + Condenser(octets.substr(0, fin)) + "\r\n")
    return std::nullopt;
  Releve releve;
  std::size_t debut = 0;
  for (int numero = 0; debut < fin; ++numero) {
    const std::size_t saut = octets.find("\r\n", debut);
    const std::vector<std::string_view> champs = Champs(std::string_view(octets).substr(debut, saut - debut));
    debut = saut + 2;
    if (numero == 1) releve.amorce = champs[0];
    if (numero < kLignesDeTete || champs.size() != kChampsDUneEntree) continue;
    releve.entrees.push_back({LireMot<GenreDEntree>(champs[0], kGenres), LireMot<Nature>(champs[1], kNatures),
                              LireNombre<std::uint64_t>(champs[2]), LireNombre<std::uint64_t>(champs[3]),
                              LireNombre<std::uint64_t>(champs[4]), LireNombre<std::uint64_t>(champs[5]),
                              LireNombre<std::int64_t>(champs[6]), Prefixer(Retablir(champs[7]), chemin.parent_path()),
                              champs[8].empty() ? Chemin() : Prefixer(Retablir(champs[8]), chemin.parent_path())});
  }
  return releve;
}

void EcrireReleve(const Chemin& chemin, const Releve& releve, bool synchroniser) {
  Releve relatif = releve;
  for (EntreeDeReleve& entree : relatif.entrees) {
    entree.cible = SansDossier(entree.cible, chemin.parent_path());
    entree.provisoire = SansDossier(entree.provisoire, chemin.parent_path());
  }
  const std::string texte = TexteDuReleve(relatif);
  Provisoire fichier(chemin, synchroniser ? Nature::Unique : Nature::Refaisable);
  fichier.Fichier().Ecrire(texte);
  fichier.Fichier().Ligne("fin\t" + Condenser(texte));
  fichier.Achever();
  if (synchroniser) fichier.Synchroniser();
  fichier.Placer();
}

void EffacerReleve(const Chemin& repertoire, std::string_view generique) {
  const Chemin chemin = CheminDeReleve(repertoire, generique);
  appels::Exiger(appels::Effacer(chemin.c_str()), chemin);
}

void RetirerAjout(const EntreeDeReleve& entree) {
  const Chemin& cible = entree.cible;
  if (!appels::Existe(cible.c_str())) return;
  const std::uintmax_t longueur = LongueurFichier(cible);
  if (longueur > entree.ancienne && longueur <= entree.taille)
    appels::Exiger(appels::Raccourcir(cible.c_str(), entree.ancienne), cible);
}

bool NoterEtat(const Chemin& chemin, std::uint64_t& noeud, std::int64_t& instant) {
  struct stat etat {};
  if (::stat(chemin.c_str(), &etat) != 0) return false;
  noeud = etat.st_ino;
  instant = appels::InstantDEcriture(etat);
  return true;
}

}  // namespace quelvar
