#include "core/programme/place.h"

#include <sys/statvfs.h>

#include <limits>

#include "core/chiffres/nombres.h"
#include "core/panne/annonce.h"

namespace quelvar {

namespace {

// Bytes that nobody is asked for, and the part of what is free from which on he is: the rest is for the other programs
// of the machine.
constexpr std::uint64_t kPeu = std::uint64_t{256} << 20;
constexpr std::uint64_t kPartSansDemande = 4;
constexpr std::uint64_t kSansLimite = std::numeric_limits<std::uint64_t>::max();

std::uint64_t MemoireLibre() {
  try {
    LecteurLignes lecteur("/proc/meminfo");
    for (std::string_view ligne; lecteur.Lire(ligne);) {
      constexpr std::string_view kMot = "MemAvailable:";
      constexpr std::uint64_t kKibioctet = 1024;  // the unit of that line
      if (ligne.starts_with(kMot)) return static_cast<std::uint64_t>(ValeurDe(ligne.substr(kMot.size()))) * kKibioctet;
    }
  } catch (const Erreur&) {  // no such file on this system
  }
  return kSansLimite;
}

bool EstBeaucoup(std::uint64_t besoin, std::uint64_t libre) {
  return besoin > kPeu && besoin > libre / kPartSansDemande;
}

std::string Bilan(std::string_view quoi, std::uint64_t besoin, std::uint64_t libre) {
  std::string texte = Joindre({Nombre(besoin), " octets ", quoi});
  if (libre != kSansLimite) texte += Joindre({" (", Nombre(libre), " sont libres)"});
  return texte;
}

}  // namespace

Place PlaceLibre(const Chemin& repertoire) {
  struct statvfs etat {};
  const Chemin lieu = repertoire.empty() ? Chemin(".") : repertoire;
  const bool connu = ::statvfs(lieu.c_str(), &etat) == 0;
  return {MemoireLibre(), connu ? std::uint64_t{etat.f_bavail} * etat.f_frsize : kSansLimite};
}

void ExigerPlace(const Contexte& contexte, Rapport& rapport, const Place& besoin, bool demander) {
  if (!demander && besoin.memoire <= kPeu && besoin.disque <= kPeu) return;
  const Place libre = PlaceLibre(contexte.repertoire);
  const bool memoire = EstBeaucoup(besoin.memoire, libre.memoire);
  const bool disque = demander || EstBeaucoup(besoin.disque, libre.disque);
  if (!memoire && !disque) return;
  std::string bilan;
  if (memoire) bilan = Bilan("de mémoire"_w, besoin.memoire, libre.memoire);
  if (disque)
    bilan += Joindre({std::string_view(memoire ? " et " : ""), Bilan("sur le disque", besoin.disque, libre.disque)});
  const std::string question = Joindre({"Ce programme va prendre ", bilan, ". Continuer ?"});
  if (contexte.Ecran().demander(question, Boutons::NonOui) == Reponse::Oui) return;
  rapport.Ligne({kArretDuProgrammeSansAccents, "il prendrait ", bilan, ", rien n'est écrit"_w});
  throw Erreur(kArretAnnonce);
}

}  // namespace quelvar
