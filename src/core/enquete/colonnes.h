// The columns of the lines of .POS and .MOD, and what stands in them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quelvar {

// Names: of a question, and of a modality, which has its code behind the question.
inline constexpr int kLargeurDeQuestion = 3;
inline constexpr int kLargeurDeModalite = 4;
// The mark behind the name of a modality: active, or supplementary.
inline constexpr int kLargeurDeMarque = 3;
inline constexpr std::string_view kMarqueActive = "   ";
inline constexpr std::string_view kMarqueSupplementaire = " S ";
// Where the label of a modality begins, from 1, and the characters of it that a program writes.
inline constexpr int kColonneDIntitule = kLargeurDeModalite + kLargeurDeMarque + 1;
inline constexpr int kIntituleDeModaliteAuPlus = 25;
// What ends both lists.
inline constexpr std::string_view kFinDeListe = "**";
// The line of the file, from 1, of an element of either list: behind the title and line 2.
constexpr std::int64_t LigneDansLaListe(std::size_t rang) { return static_cast<std::int64_t>(rang) + 3; }
// The last column of a data line that four columns of .POS can tell.
inline constexpr int kDernierePosition = 9999;

}  // namespace quelvar
