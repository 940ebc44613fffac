// Where the text that Text1 shows goes to: another file, the printer, a PDF file.
#pragma once

#include <QString>
#include <functional>

#include "core/programme/dialogue.h"
#include "core/session/session.h"
#include "forms/texte/resultats.h"

namespace quelvar::forms {

class SortiesTexte {
 public:
  // `annoncer` tells the user in passing where the text has gone.
  SortiesTexte(QWidget& fenetre, Resultats& resultats, const Session& session, Dialogue& ecran,
               std::function<void(const QString& phrase)> annoncer);

  void EnregistrerSous();
  void DemanderImpression();
  void DemanderPdf();

 private:
  bool PeutRemplacer(const Chemin& fichier);
  QString DansLeRepertoire(const QString& nom) const;

  QWidget& fenetre_;
  Resultats& resultats_;
  const Session& session_;
  Dialogue& ecran_;
  std::function<void(const QString&)> annoncer_;
};

}  // namespace quelvar::forms
