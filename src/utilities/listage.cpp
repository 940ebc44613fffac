#include "utilities/listage.h"

#include <string>

namespace quelvar::utilities {

Listage::Listage(Rapport& rapport) : rapport_(rapport) {
  for (unsigned octet = 0; octet < codes_.size(); ++octet) {
    const std::string code = EntierDroit(static_cast<int>(octet), static_cast<int>(kColonnesDUnOctet));
    code.copy(codes_[octet].data(), kColonnesDUnOctet);
    signes_[octet] = {' ', ' ', ' ', octet < kPremierImprimable ? '.' : static_cast<char>(octet)};
  }
}

void Listage::Imprimer(std::string_view octets) {
  if (enReste_ > 0) {
    const std::size_t pris = octets.copy(reste_.data() + enReste_, kOctetsDUnBloc - enReste_);
    octets.remove_prefix(pris);
    enReste_ += pris;
    if (enReste_ < kOctetsDUnBloc) return;
    Finir();
  }
  for (; octets.size() >= kOctetsDUnBloc; octets.remove_prefix(kOctetsDUnBloc)) Bloc(octets.substr(0, kOctetsDUnBloc));
  enReste_ = octets.copy(reste_.data(), octets.size());
}

void Listage::Finir() {
  if (enReste_ > 0) Bloc({reste_.data(), enReste_});
  enReste_ = 0;
}

void Listage::Bloc(std::string_view octets) {
  char* place = ecrit_.data();
  const auto poser = [&](std::string_view texte) { place += texte.copy(place, texte.size()); };
  poser("\r\n");
  for (const char octet : octets) poser({codes_[static_cast<unsigned char>(octet)].data(), kColonnesDUnOctet});
  poser("\r\n");
  for (const char octet : octets) poser({signes_[static_cast<unsigned char>(octet)].data(), kColonnesDUnOctet});
  poser("\r\n");
  rapport_.Suite(std::string_view(ecrit_.data(), static_cast<std::size_t>(place - ecrit_.data())));
}

}  // namespace quelvar::utilities
