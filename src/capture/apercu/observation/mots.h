// Words that tell what a column is: answers that were not given, usual answers, titles of numbers.
#pragma once

#include <string>
#include <string_view>

namespace quelvar::capture {

// In lower case and without accents, as words are compared.
std::string Pliee(std::string_view texte);
// The same with one blank for any run of them: texts that one hand has written in two ways.
std::string SansEcriture(std::string_view texte);

// Alphabetic order as a French reader expects it: case and accents count only between texts equal without them;
// numbers come first, by size.
bool AvantParOrdre(std::string_view a, std::string_view b);

// "Oui", "x", "checked", "1"... and "Non", "unchecked", "0"...: an answer that was ticked, and one that was not.
bool EstOui(std::string_view texte);
bool EstNon(std::string_view texte);
// "NSP", "N/A", "sans réponse"...
bool EstManque(std::string_view texte);
// One that comes back in any larger survey: a column that holds it has no names of individuals.
bool EstReponseUsuelle(std::string_view texte);
// A title that says that its numbers are those of the individuals.
bool EstTitreDeNumero(std::string_view intitule);
// "5 %", "12 €", "$3.50".
bool EstNombreAvecUnite(std::string_view cellule);

}  // namespace quelvar::capture
