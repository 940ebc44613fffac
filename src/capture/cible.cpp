#include "capture/cible.h"

#include "capture/compterendu/fichiers.h"
#include "core/session/generique.h"
#include "core/session/generiquelibre.h"
#include "core/texte/caracteres.h"
#include "core/texte/texte.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kLongueurDuGenerique = 12;

// A letter without its accent, 0 for what no generic holds.
char LettreDeGenerique(char c) {
  static constexpr std::string_view kAvec = "ÀÂÄÇÉÈÊËÎÏÔÖÙÛÜŸ"_w;
  static constexpr std::string_view kSans = "AAACEEEEIIOOUUUY";
  const char grande = Majuscule(c);
  if (const std::size_t place = kAvec.find(grande); place != std::string_view::npos) return kSans[place];
  const bool garde = (grande >= 'A' && grande <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
  return garde ? grande : '\0';
}

}  // namespace

std::string GeneriquePropose(const Chemin& repertoire, const Chemin& fichier) {
  std::string propose;
  for (const char c : TexteDe(fichier.stem()))
    if (const char lettre = LettreDeGenerique(c); lettre != '\0' && propose.size() < kLongueurDuGenerique)
      propose += lettre;
  if (propose.empty()) propose = "ENQ";
  while (GeneriqueOccupe(repertoire, propose, fichier)) propose = GeneriqueLibre(repertoire, propose);
  return propose;
}

bool GeneriqueOccupe(const Chemin& repertoire, std::string_view generique, const Chemin& fichier) {
  // A .TXT or .CSV is no survey when it is what is imported.
  for (const std::string_view extension : {".CSV", ".TXT"})
    if (const auto la = ChercherFichier(repertoire, Joindre({generique, extension}));
        la && !EstLeMemeFichier(*la, fichier))
      return true;
  for (const std::string_view extension : {".POS", ".DAT", ".MOD", ".BRT", ".CDG", ".TRG", ".DES"})
    if (ChercherFichier(repertoire, Joindre({generique, extension}))) return true;
  return false;
}

std::string RefusDuGenerique(std::string_view generique) {
  if (Rogner(generique).empty()) return std::string(kPasDeNom);
  if (!PeutNommerDesFichiers(generique) || generique.find_first_of(":*?\"<>|") != std::string_view::npos)
    return Joindre({"Un générique est un nom sans / \\ : * ? \" < > |"_w});
  return {};
}

}  // namespace quelvar::capture
