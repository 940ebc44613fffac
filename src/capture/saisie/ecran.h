// What the window of an entry shows of its state: the questions around the current one, their answers, the help lines.
#pragma once

#include <string>
#include <string_view>

#include "capture/saisie/etat.h"
#include "core/enquete/modfile.h"

namespace quelvar::capture {

// Name and answer of the question `decalage` places behind the current one (before it when negative); "FIN" for the end
// mark, nothing beyond both ends.
std::string TexteDeQuestion(const EtatSaisie& etat, int decalage, const IntitulesModalites& intitules);
// Name and answer of the current one, each for its own place; the name of the end mark is "FIN".
std::string NomCourant(const EtatSaisie& etat);
std::string ReponseCourante(const EtatSaisie& etat);

// The label that a .MOD gives to the answer of a short numeric question, empty without one.
std::string_view IntituleDeReponse(const EtatSaisie& etat, std::size_t question, const IntitulesModalites& intitules);

// The type of the current question, and what to do with its answer.
std::string TypeCourant(const EtatSaisie& etat);
std::string_view ConseilCourant(const EtatSaisie& etat);
std::string_view TexteDesMajuscules(bool majuscules);

}  // namespace quelvar::capture
