// Names within the value of an option: beside each other in a list, or in front of a text. A sign that parts them
// stands within a name behind a "\", and so does a "\" itself; a "\" before any other sign is one like all others.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quelvar {

// What every name takes behind a "\", whether it stands in a list or in front of a text.
inline constexpr std::string_view kSignesDesNoms = ",=";

// A text as it stands where these signs part it from others, and the text that such a part stands for.
std::string Proteger(std::string_view texte, std::string_view signes);
std::string SansProtection(std::string_view partie, std::string_view signes);

// Place of the first of the signs that is not protected; npos without one.
std::size_t PlaceDuSigne(std::string_view texte, std::string_view signes);

// The parts between the signs as they stand, one at least; and the parts behind each other.
std::vector<std::string_view> Parties(std::string_view texte, char signe);
std::string PartiesJointes(const std::vector<std::string>& parties, char signe);

// The parts of a list between commas, without the blanks around them; no part in an empty text.
std::vector<std::string_view> PartiesDeListe(std::string_view texte);
// The names of a list. Blanks around a name are none of it.
std::vector<std::string> NomsSepares(std::string_view texte);
std::string NomsJoints(const std::vector<std::string>& noms);

// "SEX1=Homme" in two, and from two: the name and all that stands behind the sign. Raises UsageIncorrect without "=".
std::pair<std::string, std::string> LireCouple(std::string_view option, std::string_view valeur,
                                               std::string_view attendu = "NOM=TEXTE");
// The name alone, trimmed; the whole of a value that has no "=".
std::string NomDuCouple(std::string_view valeur);
std::string EcrireCouple(std::string_view nom, std::string_view texte);
// The same with a name of one to four characters. Raises UsageIncorrect.
std::pair<std::string, std::string> NomEtTexte(std::string_view option, std::string_view valeur);

}  // namespace quelvar
