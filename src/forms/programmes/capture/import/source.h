// The way into every import: the files of the directory, any other file, and the imports that have no preview.
#pragma once

#include <memory>

#include "forms/services/services.h"

namespace Ui {
class SourceImport;
}

namespace quelvar::forms {

class SourceImport : public Forme {
  Q_OBJECT
 public:
  explicit SourceImport(Services& services);
  ~SourceImport() override;

 private:
  void Remplir();
  void Prendre(const Chemin& fichier);
  void PrendreChoisi();

  std::unique_ptr<Ui::SourceImport> ui_;
};

// The file dialog of an import; an empty path when it is given up.
Chemin ChoisirFichierAImporter(Services& services);
// The form, or the file dialog at once in a directory that has nothing to import.
void OuvrirSourceImport(Services& services);

}  // namespace quelvar::forms
