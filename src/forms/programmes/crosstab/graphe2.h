// The picture of one crosstab: moves of its texts, sizes, saving and printing.
#pragma once

#include <memory>
#include <string>

#include "crosstab/graphe/graphe2.h"
#include "forms/services/services.h"

namespace Ui {
class Graphe2;
}

namespace quelvar::forms {

class Graphe2 : public Forme {
  Q_OBJECT
 public:
  // `commande` draws the same picture without the form (code page).
  Graphe2(Services& services, const Contexte& contexte, const crosstab::DonneesGraphe2& donnees, std::string commande);
  ~Graphe2() override;

 private:
  void RelierGestes();
  void RelierFichiers();
  void Dessiner();

  crosstab::EtatGraphe2 etat_;
  std::string commande_;
  bool retouche_ = false;  // the picture is no longer as it came
  std::unique_ptr<Ui::Graphe2> ui_;
};

// Opens the form on a new picture, in place of the one that is open.
void OuvrirGraphe2(Services& services, const Contexte& contexte, const crosstab::DonneesGraphe2& donnees,
                   const std::string& commande);

}  // namespace quelvar::forms
