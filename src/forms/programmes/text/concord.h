// Window of a concordance: the lines of words, sorted as the user asks, to be copied or saved.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "forms/services/forme.h"
#include "forms/services/services.h"
#include "text/concordance/concord.h"

namespace Ui {
class Concord;
}

namespace quelvar::forms {

class Concord : public Forme {
  Q_OBJECT
 public:
  Concord(Services& services, text::Concordances concordances);
  ~Concord() override;

 private:
  text::OrdreDeConcordance Ordre() const;
  std::vector<std::uint32_t> Rangs() const;  // of the lines, in that order
  void MontrerTexte();
  QString Mots() const;   // as the field of the words shows them
  QString Texte() const;  // all lines
  void Chercher();
  void Enregistrer();

  text::Concordances concordances_;
  std::unique_ptr<Ui::Concord> ui_;
};

// Opens the window on these words of the last cutting, in place of the one that is open.
void OuvrirConcord(Services& services, std::vector<text::MotsCherches> cherches);

}  // namespace quelvar::forms
