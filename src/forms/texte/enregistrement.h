// Saving as it stands everywhere, for texts and pictures: a name is asked for, the bytes take the place of the file in
// one rename, a failure is told in one sentence.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "forms/qt/dialogue.h"

namespace quelvar::forms {

// Writes; false behind a box that says which file, why, and what `consolation` adds, when `ecrire` raised a failure.
bool EcrireOuDire(QWidget* fenetre, const Chemin& fichier, const std::function<void()>& ecrire,
                  std::string_view consolation = {});

// What stands behind a name that was chosen without extension.
enum class SansExtension {
  Rien,
  CelleDuFiltre,  // the first one of the filter under which it was chosen; a file of that name is not replaced unasked
};

struct Enregistrement {
  DemandeDeFichier demande;
  // Whether that file may be written, which may be asked or refused in a box.
  std::function<bool(const Chemin& fichier)> permis;
  // Raises the failures of writing.
  std::function<void(const Chemin& fichier)> ecrire;
  std::string consolation = {};
  SansExtension sansExtension = SansExtension::Rien;
};
// The file written; nothing when the user gave up, the file was not permitted, or writing failed.
std::optional<Chemin> EnregistrerSous(QWidget* fenetre, const Enregistrement& enregistrement);

// Asks for a PDF file of a text and writes it; `propose` is the path that the box begins with. Returns as
// EnregistrerSous.
std::optional<QString> EnregistrerEnPdf(QWidget* fenetre, const QString& propose, const QString& texte,
                                        const QString& titre);

}  // namespace quelvar::forms
