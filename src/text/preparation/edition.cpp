#include "text/preparation/edition.h"

#include "core/chiffres/nombres.h"

namespace quelvar::text {

namespace {

constexpr std::size_t kOctetsParBloc = 20;
constexpr int kLargeurDeCode = 3;
constexpr int kPremierImprimable = 32;

// Codes of a block in fields of three, then its characters below them.
void ImprimerBloc(Rapport& rapport, std::string_view octets) {
  std::string codes;
  std::string caracteres;
  for (const char c : octets) {
    if (!codes.empty()) {
      codes += ' ';
      caracteres += ' ';
    }
    const int code = static_cast<unsigned char>(c);
    codes += EntierDroit(code, kLargeurDeCode);
    caracteres += Joindre({"  ", std::string(1, code < kPremierImprimable ? '.' : c)});
  }
  rapport.Ligne(codes);
  rapport.Ligne(caracteres);
}

}  // namespace

void ImprimerCodes(Rapport& rapport, std::string_view anciens, std::string_view nouveaux) {
  rapport.Ligne("Code décimal et charactères imprimables : anciens, nouveaux"_w);
  for (std::size_t debut = 0; debut < anciens.size(); debut += kOctetsParBloc) {
    ImprimerBloc(rapport, anciens.substr(debut, kOctetsParBloc));
    ImprimerBloc(rapport, nouveaux.substr(debut, kOctetsParBloc));
  }
}

void ImprimerExtrait(Rapport& rapport, std::string_view quoi, std::string_view nom, const Extrait& extrait,
                     std::string_view sens) {
  rapport.Ligne({"Impression des 10 premières lignes du fichier "_w, quoi, " ", nom});
  rapport.Lignes(extrait.lignes);
  rapport.Ligne({"Le nombre de lignes en ", sens, " est de ", NombreNu(extrait.nombre)});
}

}  // namespace quelvar::text
