// Rows of a table merged by hand, with the sorts that help to choose them.
#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "forms/services/forme.h"
#include "forms/services/services.h"
#include "text/gestion/agregation.h"

namespace Ui {
class TabMotAgreg;
}

namespace quelvar::forms {

class TabMotAgreg : public Forme {
  Q_OBJECT
 public:
  explicit TabMotAgreg(Services& services);
  ~TabMotAgreg() override;
  bool ATravail() const override { return ouverte_.agregation.modifiee; }

 private:
  void RelierTri();
  void MontrerLignes();
  void Marquer();
  void Dire(std::string_view texte);
  void NoterLAgregation();
  void EnregistrerLigne();
  void Trier();
  void Terminer();
  bool eventFilter(QObject* objet, QEvent* evenement) override;
  void LireLeMot(int ligne);
  void MontrerConcordance();

  text::AgregationOuverte ouverte_;
  std::vector<int> choisies_;       // rows that were marked before the last press of the mouse
  bool doubleClicEnCours_ = false;  // until its button is released
  std::optional<text::OptionsTabMotAgreg> gestes_{std::in_place};  // what was done; nothing once no name tells a row
  std::unique_ptr<Ui::TabMotAgreg> ui_;
};

void OuvrirTabMotAgreg(Services& services);

}  // namespace quelvar::forms
