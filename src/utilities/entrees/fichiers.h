// What the programs of the form Utilitaires share: files A, B and C as the user names them, the report, what is missing
// of the inputs.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "core/programme/libelles.h"
#include "core/programme/programme.h"

namespace quelvar::utilities {

// Report of the utilities: generic and ".prt", or the report that is deleted once shown.
std::string NomDuRapport(const Contexte& contexte);

// Last component of a file name, as reports print it.
std::string NomAffiche(std::string_view fichier);

// An input as it was chosen: its name, and its path when it exists.
struct EntreeChoisie {
  std::string nom;  // as printed
  std::optional<Chemin> chemin;
};
EntreeChoisie ChercherEntree(const Contexte& contexte, std::string_view fichier);

// Writes a line for each input that is missing and stops the run (kArretAnnonce) when there is one.
void ExigerEntrees(Rapport& rapport, const Contexte& contexte, std::initializer_list<EntreeChoisie> entrees);
inline constexpr std::string_view kArretSansFichiers =
    "*** Arrêt du programme dû à l'absence d'un ou de plusieurs fichiers"_w;

struct TableauDuGenerique;

// Writes what is missing of the table and stops the run (kArretAnnonce).
void ExigerTableau(Rapport& rapport, const Contexte& contexte);
// Tells the remarks on the parameters; without a format a box says so and the run stops (kArretAnnonce).
void ExigerFormat(Rapport& rapport, const Contexte& contexte, const TableauDuGenerique& tableau);

// Whether two names stand for one file, by whatever path.
bool MemeFichier(const Contexte& contexte, std::string_view a, std::string_view b);

// Asked before a sort whose result takes the place of its input.
inline constexpr std::string_view kTriSurPlace =
    "*** Attention : le résultat du tri sera mis dans le fichier d'origine, c'est possible mais fait perdre "
    "l'ordre d'origine. L'acceptez-vous ?"_w;

// Why a run can't write its report or its result without losing a file that it reads; empty when it can.
std::string EntreeEcrasee(const Contexte& contexte, std::initializer_list<std::string_view> entrees);

// Tells in a box what the report has no words for.
inline void Prevenir(const Contexte& contexte, Texte message) { contexte.Ecran().demander(message, Boutons::Ok); }

// A position or a width as typed; one beyond every line is the largest.
std::int64_t NombreTape(std::string_view texte);

// Moves the progress display by the bytes of the file that is read.
class AvancementOctets {
 public:
  AvancementOctets(const Contexte& contexte, std::uintmax_t total) : dialogue_(contexte.Ecran()) {
    dialogue_.montrerProgression(static_cast<std::int64_t>(total / kPas + 1));
  }
  ~AvancementOctets() { dialogue_.montrerProgression(0); }
  AvancementOctets(const AvancementOctets&) = delete;
  AvancementOctets& operator=(const AvancementOctets&) = delete;

  void Avancer(std::size_t octets) {
    attente_ += octets;
    if (attente_ < kPas) return;
    pas_ += static_cast<std::int64_t>(attente_ / kPas);
    attente_ %= kPas;
    dialogue_.progresser(pas_);
  }

 private:
  static constexpr std::uintmax_t kPas = std::uintmax_t{1} << 20;
  const Dialogue& dialogue_;
  std::uintmax_t attente_ = 0;
  std::int64_t pas_ = 0;
};

}  // namespace quelvar::utilities
