// The rows of a table found by the names that a user gives them: one look-up a name, however many rows there are.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "text/gestion/table.h"

namespace quelvar::text {

// The only row of a name, or why there is none: a line for the report, empty with a row.
struct LigneTrouvee {
  std::size_t rang = 0;
  std::string faute{};
};

// A row is named by its whole label, or else by its word without the code in front, with or without the star of an
// inverted theme.
class NomsDesLignes {
 public:
  explicit NomsDesLignes(const std::vector<LigneDeTable>& lignes);

  LigneTrouvee Trouver(std::string_view nom) const;
  // A name by which Trouver finds the row of that rank and label: its word if that is enough, else its label; nothing
  // when several rows have it, which is why no options say what is done to it.
  std::optional<std::string> NomDe(std::size_t rang, std::string_view intitule) const;
  // The row of that rank has another label.
  void Renommer(std::size_t rang, std::string_view avant, std::string_view apres);

 private:
  // Of one row the sum is its rank.
  struct Rangs {
    std::size_t nombre = 0;
    std::size_t somme = 0;
  };
  using ParNom = std::unordered_map<std::string, Rangs>;

  // Puts the row under the names that its label gives it, or takes it away from them.
  void Inscrire(std::size_t rang, std::string_view intitule);
  void Rayer(std::size_t rang, std::string_view intitule);
  Rangs Chercher(std::string_view nom) const;

  ParNom parIntitule_;
  ParNom parMot_;
};

inline constexpr std::string_view kLignesDuMemeNom = "deux lignes ont le même nom"_w;

}  // namespace quelvar::text
