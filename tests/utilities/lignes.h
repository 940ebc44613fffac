// Lines to be cut, joined and listed.
#pragma once

#include <random>
#include <string>

namespace essai {

// Lines of one length, of any characters but those that end a line.
inline std::string Lignes(std::size_t nombre, std::size_t largeur, unsigned graine) {
  std::mt19937 hasard(graine);
  std::string texte;
  for (std::size_t i = 0; i < nombre; ++i) {
    for (std::size_t j = 0; j < largeur; ++j) texte += static_cast<char>(32 + hasard() % 224);
    texte += "\r\n";
  }
  return texte;
}

}  // namespace essai
