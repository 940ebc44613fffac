#include "core/session/generiquelibre.h"

#include <algorithm>
#include <filesystem>

#include "core/fichiers/sauvegarde.h"
#include "core/panne/attention.h"
#include "core/session/generique.h"
#include "core/texte/listes.h"

namespace quelvar {

namespace {

constexpr int kPasDUnTour = 26;  // the rule of names goes round the letters

constexpr std::string_view kChangement = "*** Attention, changement de nom générique ***"_w;

// The files under a generic but those that a run under way writes, which bear a "~".
std::vector<Chemin> FichiersDuGenerique(const Chemin& repertoire, std::string_view generique) {
  std::vector<Chemin> fichiers;
  const std::string debut = Majuscules(Joindre({generique, "."}));
  std::error_code code;
  const Chemin ou = repertoire.empty() ? Chemin(".") : repertoire;
  for (std::filesystem::directory_iterator i(ou, code), fin; !code && i != fin; i.increment(code)) {
    const std::string nom = Majuscules(TexteDe(i->path().filename()));
    if (nom.starts_with(debut) && nom.find_first_of(".~", debut.size()) == std::string::npos)
      fichiers.push_back(i->path());
  }
  return fichiers;
}

}  // namespace

bool GeneriqueExiste(const Chemin& repertoire, std::string_view generique) {
  return !FichiersDuGenerique(repertoire, generique).empty();
}

bool NAQueLeRapportDUnArret(const Chemin& repertoire, std::string_view generique, std::string_view titre) {
  constexpr std::uintmax_t kAuPlus = 100000;  // bytes: a run that stops before its files are made writes far fewer
  const std::vector<Chemin> fichiers = FichiersDuGenerique(repertoire, generique);
  if (fichiers.size() != 1) return false;
  const Chemin& rapport = fichiers.front();
  if (!EgalSansCasse(TexteDe(rapport.filename()), Joindre({generique, ".PRT"}))) return false;
  if (LongueurFichier(rapport) > kAuPlus) return false;
  const std::string texte = LireOctets(rapport);
  return texte.find(titre) != std::string::npos && texte.find(kChangement) == std::string::npos;
}

std::string GeneriqueLibre(const Chemin& repertoire, std::string_view generique) {
  std::string base(generique);
  for (;; base += 'A') {
    std::string libre = base;
    for (int pas = 0; pas < kPasDUnTour; ++pas) {
      libre = GeneriqueSuivant(libre);
      if (!GeneriqueExiste(repertoire, libre)) return libre;
    }
  }
}

std::optional<std::string> DemanderGeneriqueLibre(const Contexte& contexte, bool remplacer) {
  if (contexte.generique.empty()) return std::string();
  const std::string suivant = GeneriqueSuivant(contexte.generique);
  if (remplacer || !GeneriqueExiste(contexte.repertoire, suivant)) return suivant;
  const std::string saisi = contexte.Ecran().saisir(
      Joindre({"Le générique "_w, suivant,
               " existe déjà dans ce répertoire. Entrez le générique qui recevra les nouveaux fichiers"_w}),
      GeneriqueLibre(contexte.repertoire, contexte.generique));
  const std::string nom(Rogner(std::string_view(saisi).substr(0, saisi.find('.'))));
  if (nom.empty()) return std::nullopt;
  if (EgalSansCasse(nom, contexte.generique)) {
    contexte.Ecran().demander("Le nouveau générique ne peut être celui en cours"_w, Boutons::Ok);
    return std::nullopt;
  }
  if (!PeutNommerDesFichiers(nom) || !PeutEtreRemplace(contexte, nom)) return std::nullopt;
  return nom;
}

bool PeutEtreRemplace(const Contexte& contexte, std::string_view generique) {
  return !GeneriqueExiste(contexte.repertoire, generique) || DemanderRemplacement(contexte.Ecran(), generique);
}

bool DemanderRemplacement(const Dialogue& ecran, std::string_view generique) {
  return ecran.demander(Joindre({"Le générique "_w, generique,
                                 " existe déjà : ses fichiers seront remplacés. L'acceptez-vous ?"_w}),
                        Boutons::NonOui) == Reponse::Oui;
}

void ImprimerRemplacementDuGenerique(Rapport& rapport, const Contexte& contexte, std::string_view nouveau,
                                     std::initializer_list<std::string_view> extensions) {
  const auto existe = [&](std::string_view extension) {
    return ChercherFichier(contexte.repertoire, Joindre({nouveau, extension})).has_value();
  };
  if (extensions.size() == 0 ? GeneriqueExiste(contexte.repertoire, nouveau) : std::ranges::any_of(extensions, existe))
    rapport.Ligne({"*** Attention, le générique "_w, nouveau, " existait déjà, ses fichiers sont remplacés"_w});
}

std::string RemarqueSurLesTableaux(const Contexte& contexte, std::string_view generique, const Chemin& nouvelles) {
  // What the programs of tables, factors and classifications read of each other.
  constexpr std::string_view kCalcules[] = {".BRT", ".CDG", ".PEM", ".PEL", ".FAJ", ".FAI", ".CAH"};
  std::vector<std::string> presents;
  for (const std::string_view extension : kCalcules)
    if (std::string nom = Joindre({generique, extension}); ChercherFichier(contexte.repertoire, nom))
      presents.push_back(std::move(nom));
  const std::optional<Chemin> anciennes = ChercherFichier(contexte.repertoire, Joindre({generique, ".DAT"}));
  if (presents.empty() || !anciennes || MemesOctets(*anciennes, nouvelles)) return {};
  return Joindre(
      {kAttention, "calculés sur les anciennes données, à refaire avant de s'en servir : "_w, Enumerer(presents)});
}

void ImprimerChangementDeGenerique(Rapport& rapport, const Contexte& contexte, std::string_view nouveau, bool aere) {
  rapport.Ligne(kChangement);
  if (aere) rapport.Ligne();
  rapport.Ligne({"    L'ancien générique était : "_w, contexte.generique});
  rapport.Ligne({"    le nouveau est désormais : "_w, nouveau});
}

}  // namespace quelvar
