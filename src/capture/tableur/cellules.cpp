#include "capture/tableur/cellules.h"

namespace quelvar::capture {

std::string_view LigneDeTableur::LireEntreGuillemets() {
  tampon_.clear();
  std::size_t i = 1;
  for (; i < reste_.size(); ++i) {
    if (reste_[i] != '"') {
      tampon_ += reste_[i];
    } else if (i + 1 < reste_.size() && reste_[i + 1] == '"') {
      tampon_ += '"';
      ++i;
    } else {
      ++i;
      break;
    }
  }
  while (i < reste_.size() && reste_[i] != separateur_) tampon_ += reste_[i++];
  Passer(i);
  return tampon_;
}

}  // namespace quelvar::capture
