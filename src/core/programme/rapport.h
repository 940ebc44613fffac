// The report of a program: the helpers that lay texts and numbers in columns, and the file they go to.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "core/texte/texte.h"

namespace quelvar {

// The first `largeur` characters, padded with blanks on the right.
std::string CadreGauche(std::string_view texte, int largeur);
// The first `largeur` characters, padded with blanks on the left.
std::string CadreDroit(std::string_view texte, int largeur);

// The shortest decimal form, right-aligned; a longer one is not cut.
std::string EntierDroit(double valeur, int largeur);
std::string EntierDroit(std::int64_t valeur, int largeur);
inline std::string EntierDroit(int valeur, int largeur) {
  return EntierDroit(static_cast<std::int64_t>(valeur), largeur);
}

// Fixed-point text: integer part padded to `largeurEntiere`, `decimales` digits, "$" in front when longer than both
// and the point. The integer part is never cut. Raises kArgumentIncorrect or kDepassementCapacite for a value that is
// not finite.
std::string NombreFixe(double valeur, int largeurEntiere, int decimales);
// An integer part of that width takes any number: fifteen digits and a sign, beyond which an exponent shortens it.
inline constexpr int kEntiersDeToutNombre = 16;

// A report under construction: it lies under a scratch name, and the former report stays whole until Valider; or it
// stays in memory. Raises the failures of writing.
class Rapport {
 public:
  // Suite: the lines go behind those of the former report.
  explicit Rapport(const Chemin& chemin, ModeEcriture mode = ModeEcriture::Neuf);
  // The text has all the lines once Achever was called.
  explicit Rapport(EnMemoire texte);

  void Ligne() { ecrivain_.FinDeLigne(); }
  void Ligne(Texte texte) {
    Suite(texte);
    ecrivain_.FinDeLigne();
  }
  void Ligne(std::initializer_list<Texte> morceaux) {
    Suite(morceaux);
    ecrivain_.FinDeLigne();
  }
  void Lignes(const std::vector<std::string>& lignes) {
    for (const std::string& ligne : lignes) Ligne(ligne);
  }
  // Text that the line goes on behind.
  void Suite(Texte texte) {
    if (nomsEtrangers_) ecrivain_.Ecrire(NomMontrable(texte.Vue()));
    else ecrivain_.Ecrire(texte.Vue());
  }
  void Suite(std::initializer_list<Texte> morceaux) {
    for (const Texte& morceau : morceaux) Suite(morceau);
  }
  // The lines name files whose names the code page cannot hold: they show what they can.
  void MontrerLesNomsEtrangers() { nomsEtrangers_ = true; }
  // Ends the report.
  void Achever() { ecrivain_.Fermer(); }
  // Where a file that is ended lies: it is shown from here when it takes no place.
  const Chemin& CheminProvisoire() const { return fichier_->CheminProvisoire(); }
  // Takes the place of the former report.
  void Valider() { fichier_->Valider(); }

 private:
  std::optional<Remplacement> fichier_;  // nothing in memory
  std::optional<Ecrivain> memoire_;
  Ecrivain& ecrivain_;
  bool nomsEtrangers_ = false;
};

// The banner of every report.
void ImprimerBandeau(Rapport& rapport, Texte titre);

}  // namespace quelvar
