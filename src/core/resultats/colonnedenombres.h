// Columns of numbers that widen for what does not fit them, so that no figure runs into the next one.
#pragma once

#include <string>

#include "core/programme/rapport.h"

namespace quelvar {

// From here on a number has no short decimal text without an exponent: a column writes it with all its digits.
inline constexpr double kSansExposant = 1e15;

// What stands directly in front of a column: a number, from which a blank must part it, or a text.
enum class Voisin { Texte, Nombre };

// A column of `NombreFixe`: the width that it is made with holds as long as every value seen fits.
class ColonneDeNombres {
 public:
  ColonneDeNombres(int entiers, int decimales, Voisin voisin = Voisin::Texte)
      : entiers_(entiers), prevus_(entiers), decimales_(decimales), voisin_(voisin) {}

  // To be called for the values of the column, or for the smallest and the largest, before any is written.
  void Voir(double valeur);
  std::string operator()(double valeur) const;
  // The same at the end of a line, for tables of millions of them.
  void Ajouter(std::string& ligne, double valeur) const;
  // Columns of the sign and the digits before the point, with the blank that parts them from a number.
  int Entiers() const { return entiers_; }
  // Blanks that a heading needs in front to stand where it stood.
  std::string Ajout() const { return CadreGauche("", entiers_ - prevus_); }

 private:
  int entiers_;
  int prevus_;
  int decimales_;
  Voisin voisin_;
};

// A single figure in that format, wider where it must.
std::string Figure(double valeur, int entiers, int decimales);

}  // namespace quelvar
