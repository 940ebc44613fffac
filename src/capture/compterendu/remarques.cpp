#include "capture/compterendu/remarques.h"

namespace quelvar::capture {

std::string EnLignes(const Remarques& remarques) {
  std::string texte;
  for (const std::string& remarque : remarques) texte += (texte.empty() ? "" : "\r\n") + remarque;
  return texte;
}

void MontrerRemarques(const Dialogue& dialogue, const Remarques& remarques) {
  if (!remarques.empty()) dialogue.demander(EnLignes(remarques), Boutons::Ok);
}

}  // namespace quelvar::capture
