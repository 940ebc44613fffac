// Saving as it stands everywhere: a name is asked for, the file is written in one rename, a failure is told.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/fichiers/fichiers.h"
#include "forms/cadre/dialogue_qt.h"

namespace quelvar::forms {

// Writes; false behind a box that says which file, why, and what `consolation` adds, when `ecrire` raised a failure.
bool EcrireOuDire(QWidget* fenetre, const Chemin& fichier, const std::function<void()>& ecrire,
                  std::string_view consolation = {});

struct Enregistrement {
  DemandeDeFichier demande;
  // Whether that file may be written, which may be asked or refused in a box.
  std::function<bool(const Chemin& fichier)> permis;
  // Raises the failures of writing.
  std::function<void(const Chemin& fichier)> ecrire;
  std::string consolation = {};
};
// The file written; nothing when the user gave up, the file was not permitted, or writing failed.
std::optional<Chemin> EnregistrerSous(QWidget* fenetre, const Enregistrement& enregistrement);

// Replaces a file by these bytes. Raises a failure of writing: the file then stays what it was.
void EcrireTexte(const Chemin& fichier, std::string_view octets);

// The same with a PDF file of a text; `propose` is the path that the box begins with.
std::optional<QString> EnregistrerEnPdf(QWidget* fenetre, const QString& propose, const QString& texte,
                                        const QString& titre);

}  // namespace quelvar::forms
