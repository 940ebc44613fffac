// Whether the files of a plane belong together: links, tree, report and coordinates that were made from another state
// of the table are found, and nothing of them stands on the wrong point.
#pragma once

#include <optional>

#include "core/programme/programme.h"
#include "factor/plan/etrangers.h"
#include "factor/plan/plan.h"

namespace quelvar::factor {

// Adds to the `etrangers` of the plane what does not belong to it, and takes it out where its elements are not those of
// the plane. Returns what stops the run: a tree that was asked for and is another table's. Raises the failures of
// reading.
std::optional<Etranger> EcarterEtrangers(const Contexte& contexte, const ExigencesGraphe& exigences,
                                         DonneesPlan& donnees);

}  // namespace quelvar::factor
