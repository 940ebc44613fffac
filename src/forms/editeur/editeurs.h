// The windows of the editor: one a file, which of them hold what is not saved, and the question before a program reads
// a file that one of them has changed.
#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <functional>

#include "core/fichiers/fichiers.h"
#include "forms/editeur/frmsdi.h"

namespace quelvar::forms {

class Editeurs : public QObject {
  Q_OBJECT
 public:
  Editeurs(QWidget& fenetre, ServicesEditeur services);
  ~Editeurs() override;

  // Shows the editor on a file, the one that is open when there is one.
  void Ouvrir(const QString& fichier);
  // Closes all of them; false when the user keeps one of the texts open.
  bool Fermer();

  // Before a program reads the files of a generic, or one file: asks about the texts of them that are not saved. False
  // when the program is not to start. A text that is to stay as it is is asked about once until it changes again.
  bool PermettreDeLire(const Chemin& repertoire, std::string_view generique);
  bool PermettreDeLire(const QString& fichier);

 private:
  bool Permettre(const std::function<bool(const QString& fichier)>& lu);
  void Presenter(frmSDI& editeur);

  QWidget& fenetre_;
  ServicesEditeur services_;
  QList<QPointer<frmSDI>> editeurs_;
  QHash<const frmSDI*, int> laisses_;  // state of a text that the user lets a program read without
};

}  // namespace quelvar::forms
