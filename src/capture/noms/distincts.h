// Names made different from one another, so that none hides another or ends the list that it stands in.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quelvar::capture {

// Replaces every name that is impossible or that others have too by its `rechange`, until all are different; these
// must differ from one another. Names are compared without the blanks around them. Returns the names replaced, by
// index.
std::vector<std::size_t> DistinguerNoms(std::vector<std::string>& noms,
                                        const std::function<bool(std::string_view)>& impossible,
                                        const std::function<std::string(std::size_t)>& rechange);

// The names of that width behind those of the numbers that it can hold: with 3 columns 0 is "A00", 2600 "AA0". Raises
// kIndiceHorsSelection beyond the last of them.
std::string NomAvecLettres(std::size_t rang, std::size_t largeur);

}  // namespace quelvar::capture
