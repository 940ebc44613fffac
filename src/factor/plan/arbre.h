// Maximum spanning tree of the links of a .PEM file, links kept by value and status, and the network file of Pajek.
//
// J. B. Kruskal, "On the Shortest Spanning Subtree of a Graph and the Traveling Salesman Problem", Proceedings of the
// American Mathematical Society 7 (1956), on decreasing values: of two equal links the first one of the file enters.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "tables/liens/liens.h"

namespace quelvar::factor {

// Which links are left out: none ("0"), those between two supplementary elements ("1"), those with any ("2").
enum class ModeArbre : std::uint8_t { TousLesLiens = 0, SaufEntreSupplementaires = 1, SaufSupplementaires = 2 };

// An element of the graph, in the order in which the links number them.
struct SommetArbre {
  bool supplementaire = false;
  bool choisi = false;             // has a colour: as soon as one has, only links with an end among them are drawn
  std::int16_t cpfHorizontal = 0;  // per mille, on the factors shown
  std::int16_t cpfVertical = 0;
  bool montre = true;  // the tree is that of the elements shown
};

struct OptionsArbre {
  ModeArbre mode = ModeArbre::TousLesLiens;
  double ecMin = 0;                                        // EcMinVal: the reading stops at the first link below
  double ecSup = std::numeric_limits<double>::infinity();  // EcSupVal: links above are left out
  bool arbre = false;                                      // CheckArbrMin: only the links of the tree are drawn
  bool pajek = false;                                      // FichPajek: the links read are kept for the network file
  std::optional<std::size_t> progressif = {};              // only so many links are read
  int niveauCpf = 0;                                       // smallest CPF of a shown point
  // The tree is complete with so many elements; left out, with all. Individuals have no links.
  std::optional<std::size_t> aCouvrir = {};
};

struct LiensDuGraphe {
  std::vector<tables::Lien> traces;  // to be drawn, in the order of the file
  std::vector<bool> atteints;        // by element: an end of a link kept, drawn or below the CPF level
  std::size_t lus = 0;               // links read
  std::vector<tables::Lien> pajek;   // the links read, when the network file is wanted
  bool complet = false;              // links were left when the tree had every element: "Arbre Maximum complet"
};

// Goes through the links in the order of the file, that of decreasing value. The reading stops at the first negative
// link. A link to an element that the graph does not have is left out.
LiensDuGraphe ArbreMaximum(std::span<const tables::Lien> liens, std::span<const SommetArbre> sommets,
                           const OptionsArbre& options);

inline constexpr std::string_view kArbreComplet = "Arbre Maximum complet";

// The network file (generic and ".net"). One name or label for each element, put in quotes.
void EcrirePajek(Ecrivain& fichier, std::span<const std::string> intitules, std::span<const tables::Lien> liens);

}  // namespace quelvar::factor
