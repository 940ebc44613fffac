// The generic that a program makes: the next one by the rule of names, or a free one when that name is taken.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "core/programme/programme.h"

namespace quelvar {

// Whether a file stands under that generic, whatever its extension: data, tables, reports, coordinates.
bool GeneriqueExiste(const Chemin& repertoire, std::string_view generique);
// Whether nothing stands under that generic but the report of a run of that title (its banner) that stopped before it
// moved there: the name is as good as free. Raises the failures of reading of that report.
bool NAQueLeRapportDUnArret(const Chemin& repertoire, std::string_view generique, std::string_view titre);
// The first generic behind this one, by the rule of names, that is free.
std::string GeneriqueLibre(const Chemin& repertoire, std::string_view generique);

// The next generic if it is free. Else an input box proposes a free one; a name that is taken too is confirmed by a
// box, whose default is no. With `remplacer` the next generic is taken, there or not. Nothing when the user gives up;
// an empty name without a current generic.
std::optional<std::string> DemanderGeneriqueLibre(const Contexte& contexte, bool remplacer = false);
// Whether the files of a generic may be replaced: true when there are none, else the answer to a box, by default no.
bool PeutEtreRemplace(const Contexte& contexte, std::string_view generique);
// That question, for files that are known to be there.
bool DemanderRemplacement(const Dialogue& ecran, std::string_view generique);

// The line of a report on a generic whose files, one of these when any are named, the run replaces; nothing without
// them. To be written before the files are.
void ImprimerRemplacementDuGenerique(Rapport& rapport, const Contexte& contexte, std::string_view nouveau,
                                     std::initializer_list<std::string_view> extensions = {});

// The sentence that names the tables and coordinates of a generic when other data take the place of those that they
// were computed from: `nouvelles` are the ones that its .DAT will hold. Empty without them, without a .DAT, or when it
// keeps its bytes. Raises a failure of reading.
std::string RemarqueSurLesTableaux(const Contexte& contexte, std::string_view generique, const Chemin& nouvelles);

// The lines of a report on the move to another generic, on request with a blank one below the first.
void ImprimerChangementDeGenerique(Rapport& rapport, const Contexte& contexte, std::string_view nouveau,
                                   bool aere = false);

}  // namespace quelvar
