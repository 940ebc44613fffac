// Options of the flat sort and of the recoding, and the choice of the working directory.
#pragma once

#include <QDialog>
#include <memory>

#include "forms/cadre/principal.h"

namespace Ui {
class Principal2;
}

namespace quelvar::forms {

class Principal2 : public QDialog {
  Q_OBJECT
 public:
  enum class Usage { Repertoires, Triapl, Recodage };
  Principal2(Principal& principal, Usage usage);
  ~Principal2() override;

 private:
  void MontrerRepertoires();
  void MontrerOptionsTriapl();
  void MontrerOptionsRecodage();
  void Reinitialiser();
  void LancerTriapl();
  void LancerRecodage();
  // The other data file when CaseDat is ticked; nothing when its choice is cancelled.
  std::optional<std::string> FichierDeDonnees();
  void ListerInitialisations();

  Principal& principal_;
  std::unique_ptr<Ui::Principal2> ui_;
};

void OuvrirRepertoires(Principal& principal);
// At level 1 they run the program at once, else they show its options.
void OuvrirTriapl(Principal& principal);
void OuvrirOutils(Principal& principal);

}  // namespace quelvar::forms
