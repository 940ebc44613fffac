// The lines of a text held in memory, by the rules of LecteurLignes.
#pragma once

#include <string_view>
#include <vector>

namespace quelvar {

class LignesDuTexte {
 public:
  explicit LignesDuTexte(std::string_view octets) : reste_(octets) {
    if (reste_.ends_with('\x1A')) reste_.remove_suffix(1);
  }

  // The next line without its end, as a view on the text; false behind the last one.
  bool Lire(std::string_view& ligne) {
    if (reste_.empty()) return false;
    const std::size_t saut = reste_.find('\n');
    ligne = reste_.substr(0, saut);
    reste_.remove_prefix(saut == std::string_view::npos ? reste_.size() : saut + 1);
    if (ligne.ends_with('\r')) ligne.remove_suffix(1);
    return true;
  }

 private:
  std::string_view reste_;
};

inline std::vector<std::string_view> ToutesLesLignes(std::string_view octets) {
  std::vector<std::string_view> lignes;
  LignesDuTexte texte(octets);
  for (std::string_view ligne; texte.Lire(ligne);) lignes.push_back(ligne);
  return lignes;
}

}  // namespace quelvar
