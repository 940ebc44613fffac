// The recovery copy of a text that is not saved: kept in the state directory of the platform, beside nothing of the
// user's, and taken over by the next program when the one that wrote it is gone.
#pragma once

#include <QDateTime>
#include <QString>
#include <memory>
#include <vector>

#include "core/document/texteedite.h"

namespace quelvar::forms {

struct TexteDeSecours {
  QString fichier;  // empty for a text without a name
  FormeTexte forme;
  QString texte;  // as the editor shows it
};

// Where copies are kept: $XDG_STATE_HOME, or .local/state of the user, and quelvar/editeur in it.
QString DossierDeSecours();

class Secours {
 public:
  // Nothing is on the disk before the first copy. Without a directory there are no copies.
  explicit Secours(QString dossier);
  // A copy that was not removed stays for the next program.
  ~Secours();
  Secours(const Secours&) = delete;
  Secours& operator=(const Secours&) = delete;

  // Replaces the copy; false when it can't be written, the former one is then still there.
  bool Ecrire(const TexteDeSecours& texte);
  void Effacer();
  // The copy as it stands; nothing for one that is not whole.
  std::optional<TexteDeSecours> Lire() const;
  QDateTime Instant() const;

  // The copies of programs that are gone. They are held as long as the objects live, so that no other program offers
  // them too.
  static std::vector<std::unique_ptr<Secours>> Abandonnes(const QString& dossier);

 private:
  Secours(QString dossier, QString nom) : dossier_(std::move(dossier)), nom_(std::move(nom)) {}
  bool Tenir();
  void Relacher();
  QString Chemin(const char* extension) const;

  QString dossier_;
  QString nom_;      // of the copy, without its extension
  int verrou_ = -1;  // the lock, held as long as the process lives
};

}  // namespace quelvar::forms
