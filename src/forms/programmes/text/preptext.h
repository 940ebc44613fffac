// Preparation of a text: what becomes of its characters, and which file it is.
#pragma once

#include <memory>
#include <string_view>

#include "forms/services/forme.h"
#include "forms/services/services.h"
#include "text/preparation/preptext.h"

namespace Ui {
class PrepText;
}

namespace quelvar::forms {

class PrepText : public Forme {
  Q_OBJECT
 public:
  explicit PrepText(Services& services);
  ~PrepText() override;

 private:
  text::OptionsPrepText Options() const;
  void ChoisirFichier();
  void Expliquer(std::string_view texte);
  void LancerPrepText();

  std::unique_ptr<Ui::PrepText> ui_;
  bool fichierDat_ = false;
  std::string fichier_;
};

void OuvrirPrepText(Services& services);

}  // namespace quelvar::forms
