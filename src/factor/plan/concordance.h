// Whether the files of a plane belong together: links, tree, report and coordinates that were made from another state
// of the table are told with what to run again, and nothing of them stands on the wrong point.
#pragma once

#include "factor/plan/lecture.h"

namespace quelvar::factor {

// Keeps in the remarks of `donnees` what does not belong to the plane, and takes it out where its elements are not
// those of the plane. A tree that was asked for and is another table's stops the run: its lines are returned.
ArretDeLecture EcarterEtrangers(const Contexte& contexte, const ExigencesGraphe& exigences, DonneesPlan& donnees);

// What is to be told when these files are drawn, besides what holds for the plane itself.
std::vector<std::string> RemarquesDesFichiers(const DonneesPlan& donnees, const ExigencesGraphe& fichiers);

// In the report, and in one box.
void DireLesRemarques(Rapport& rapport, const Contexte& contexte, const std::vector<std::string>& remarques);

}  // namespace quelvar::factor
