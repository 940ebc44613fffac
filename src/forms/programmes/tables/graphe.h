// The triangular graph: moves of its texts, sides, sizes, what is shown, saving and printing.
#pragma once

#include <array>
#include <memory>

#include "forms/services/brouillon.h"
#include "forms/services/services.h"
#include "tables/triangle/triang.h"

class QRadioButton;

namespace Ui {
class Graphe;
}

namespace quelvar::forms {

class Graphe : public Forme {
  Q_OBJECT
 public:
  Graphe(Services& services, tables::FichierTrg trg, Brouillon rapport);
  ~Graphe() override;

 private:
  // The buttons of the marks, in the order of their numbers.
  using Marques = std::array<QRadioButton*, tables::kDerniereMarque + 1>;
  Marques MarquesDuPoint() const;

  void RelierTextes();
  void RelierReglages();
  void RelierTailles();
  void MontrerReglages();
  // The chosen text's own settings.
  void MontrerPoint();
  void Choisir(int rang);
  void Dessiner();

  tables::EtatTriangle etat_;
  bool remplissage_ = false;  // the controls are being set from the state
  std::unique_ptr<Ui::Graphe> ui_;
};

// Prepares the graph and shows the form, in place of the one that is open.
void OuvrirTriang(Services& services);

}  // namespace quelvar::forms
