// A picture on a painter, in a file and on paper.
#pragma once

#include <QPainter>
#include <QString>
#include <QWidget>

#include "core/dessin/dessin.h"

namespace quelvar::forms {

// Paints the page, whose unit is the point, at the scale of the painter; marks outside `zone` (points) are left out.
void PeindreDessin(QPainter& peintre, const Dessin& dessin, const Zone& zone);

inline constexpr int kResolution = 200;  // dots an inch, when nobody chooses
inline constexpr int kResolutionLaPlusBasse = 50;
inline constexpr int kResolutionLaPlusHaute = 1200;  // that of a fine printer
inline constexpr int kPasDeResolution = 50;

// Writes BMP, PNG, SVG or PDF after the extension of the name; false when it can't, and a file of that name then stays
// what it was. `resolution` is that of BMP and PNG, dots an inch.
bool EnregistrerDessin(const QString& fichier, const Dessin& dessin, int resolution = kResolution);

// Asks for the printer and prints the picture on one page, as large as it goes; false when there is no printer or the
// user gave up.
bool ImprimerDessin(QWidget* parent, const Dessin& dessin);

}  // namespace quelvar::forms
