// The letters by which the Alt key leads to the controls of a window.
#pragma once

#include <QString>
#include <QWidget>

namespace quelvar::forms {

// Whether a caption has a letter at all: signs and numbers have none.
bool AUneLettre(const QString& texte);

// One letter each: a caption without one, and the later one of two that are seen together and answer to the same Alt
// key, takes one that is free, if need be one of what is taken off the window now, or none when all of it are taken.
// For a caption that has changed; what comes up in the window or leaves it, TenirLesLettres sees.
void DonnerLesLettres(QWidget& fenetre);

// Gives the letters, and again whenever the window reveals or hides a control, as long as it lives.
void TenirLesLettres(QWidget& fenetre);

}  // namespace quelvar::forms
