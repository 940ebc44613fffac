// A picture on a painter, in a file and on paper.
#pragma once

#include <QPainter>
#include <QWidget>
#include <string>
#include <string_view>

#include "core/dessin/dessin.h"
#include "core/fichiers/fichiers.h"

namespace quelvar::forms {

// Paints the page, whose unit is the point, at the scale of the painter; marks outside `zone` (points) are left out.
void PeindreDessin(QPainter& peintre, const Dessin& dessin, const Zone& zone);

inline constexpr double kPointsParPouce = 72;
inline constexpr int kResolution = 200;  // dots an inch, when nobody chooses
inline constexpr int kResolutionLaPlusBasse = 50;
inline constexpr int kResolutionLaPlusHaute = 1200;  // that of a fine printer
inline constexpr int kPasDeResolution = 50;

// The filters of a box that asks for the file of a picture, and the picture as the bytes of a file of that name: PNG,
// SVG, PDF or BMP after its extension. `resolution` is that of PNG and BMP, dots an inch. Raises a sentence
// (kNomFichierIncorrect) for another extension, kMemoireInsuffisante for a picture that no memory holds.
inline constexpr std::string_view kFiltresDesImages = "PNG|*.png|SVG|*.svg|PDF|*.pdf|BMP|*.bmp";
std::string OctetsDuDessin(const Chemin& fichier, const Dessin& dessin, int resolution = kResolution);

// Asks for the printer and prints the picture on one page, as large as it goes; false when there is no printer or the
// user gave up.
bool DemanderImpressionDuDessin(QWidget* parent, const Dessin& dessin);

}  // namespace quelvar::forms
