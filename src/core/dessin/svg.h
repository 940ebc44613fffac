// A picture as an SVG text, one group a layer.
#pragma once

#include <string>

#include "core/dessin/dessin.h"
#include "core/fichiers/fichiers.h"
#include "core/fichiers/jeu.h"

namespace quelvar {

// UTF-8, lines ended by LF, coordinates in points with two decimals. An element number becomes the attribute
// "data-id".
std::string TexteSvg(const Dessin& dessin);

// Whether a file of that name may hold it: ".svg" behind a name, in any case.
bool EstNomDeSvg(std::string_view nom);

// The picture as a file of the directory, whole or not at all. Another extension than ".svg" is refused with a sentence
// (kNomFichierIncorrect): a picture never takes the place of data. Raises the errors of Remplacement.
void EcrireSvg(const Chemin& repertoire, std::string_view nom, const Dessin& dessin);
// The same as one of the files of a set.
void EcrireSvg(JeuDeFichiers& sorties, std::string_view nom, const Dessin& dessin);

}  // namespace quelvar
