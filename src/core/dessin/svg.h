// A picture as an SVG text, one group a visible layer.
#pragma once

#include <string>

#include "core/dessin/dessin.h"

namespace quelvar {

// UTF-8, lines ended by LF, coordinates in points with two decimals. An element number becomes the attribute
// "data-id".
std::string TexteSvg(const Dessin& dessin);

}  // namespace quelvar
