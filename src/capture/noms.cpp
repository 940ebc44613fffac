#include "capture/noms.h"

#include <algorithm>
#include <unordered_map>

namespace quelvar::capture {

std::vector<std::size_t> DistinguerNoms(std::vector<std::string>& noms,
                                        const std::function<bool(std::string_view)>& impossible,
                                        const std::function<std::string(std::size_t)>& rechange) {
  std::vector<bool> remplaces(noms.size(), false);
  // A name given in exchange may be the own name of another one: as long as there are such, these give way too.
  for (bool change = true; change;) {
    change = false;
    std::unordered_map<std::string, std::size_t> porteurs;
    for (const std::string& nom : noms) ++porteurs[nom];
    for (std::size_t i = 0; i < noms.size(); ++i) {
      if (remplaces[i] || (!impossible(noms[i]) && porteurs[noms[i]] == 1)) continue;
      remplaces[i] = change = true;
      noms[i] = rechange(i);
    }
  }
  std::vector<std::size_t> indices;
  for (std::size_t i = 0; i < noms.size(); ++i)
    if (remplaces[i]) indices.push_back(i);
  return indices;
}

}  // namespace quelvar::capture
