// What of the files of a plane is not of the present state of the table, and the words on it: what is wrong with which
// file, and what to run again.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quelvar::factor {

// What a file is for: the plane, its coordinates (which ellipses do without), what is drawn over the points.
enum class SujetDuPlan : std::uint8_t { Plan, Coordonnees, Liens, LiensDeLignes, Arbre };

enum class Discordance : std::uint8_t {
  SansPlace,          // `nombre` modalities of the first file are not in the second one
  PlusAncien,         // the first file is older than the second one, which it was made of
  AutreTableau,       // coordinates that are not those of the table and of the statuses that the others hold
  AutresLiens,        // links that are not those of the table
  AutreArbre,         // a tree that is not that of the table
  AutresCoordonnees,  // a tree that was made of other coordinates
  Illisible,          // `propos` tells why
};

struct Etranger {
  SujetDuPlan sujet = SujetDuPlan::Plan;
  Discordance discordance = Discordance::PlusAncien;
  std::vector<std::string> fichiers = {};  // names, in the order of the sentence
  std::int64_t nombre = 0;
  std::string propos = {};
};

// The files beside those of the points: what a plane draws, or can't do without.
struct ExigencesGraphe {
  bool liens = false;   // .PEM
  bool lignes = false;  // .PEL; a plane without it has no links of rows
  bool cah = false;     // .CAH
};

bool Concerne(std::span<const Etranger> etrangers, SujetDuPlan sujet);

std::string PhraseDe(const Etranger& etranger);
// What is to be told of every plane; of the ellipses on it; besides, when these files are drawn.
std::vector<std::string> RemarquesDuPlan(std::span<const Etranger> etrangers);
std::vector<std::string> RemarquesDesEllipses(std::span<const Etranger> etrangers);
std::vector<std::string> RemarquesDesFichiers(std::span<const Etranger> etrangers, const ExigencesGraphe& fichiers);

}  // namespace quelvar::factor
