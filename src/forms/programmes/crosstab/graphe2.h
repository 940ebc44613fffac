// The picture of one crosstab: moves of its texts, sizes, saving and printing.
#pragma once

#include <memory>

#include "crosstab/graphe/graphe2.h"
#include "forms/cadre/services.h"

namespace Ui {
class Graphe2;
}

namespace quelvar::forms {

class Graphe2 : public Forme {
  Q_OBJECT
 public:
  Graphe2(Services& services, const Contexte& contexte, const crosstab::DonneesGraphe2& donnees);
  ~Graphe2() override;

 private:
  void RelierGestes();
  void RelierFichiers();
  void Dessiner();

  crosstab::EtatGraphe2 etat_;
  std::unique_ptr<Ui::Graphe2> ui_;
};

// Opens the form on a new picture, in place of the one that is open.
void OuvrirGraphe2(Services& services, const Contexte& contexte, const crosstab::DonneesGraphe2& donnees);

}  // namespace quelvar::forms
