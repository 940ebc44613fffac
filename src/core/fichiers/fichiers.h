// Files as programs see them: names looked up without regard to case, line reading and writing through one large
// buffer, replacement that leaves the old file or the new one and never half of either.
#pragma once

#include "core/fichiers/remplacement.h"
#include "core/fichiers/systeme/chemins.h"
#include "core/fichiers/systeme/echecs.h"
#include "core/fichiers/systeme/ecriture.h"
#include "core/fichiers/systeme/lecture.h"
#include "core/fichiers/travail.h"
