// Utilities on files and tables: the choice of one, its files and settings, and the start of its program.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "forms/cadre/services.h"
#include "utilities/exportation.h"
#include "utilities/fusion/fusion.h"
#include "utilities/tri/trifichier.h"

namespace Ui {
class Utilitaires;
}

namespace quelvar::forms {

class Utilitaires : public Forme {
  Q_OBJECT
 public:
  explicit Utilitaires(Services& services);
  ~Utilitaires() override;

 private:
  void RelierFichiers();
  void MontrerChoix();
  void ChoisirEntree(std::string& fichier, const QString& titre);
  void ChoisirResultat();
  void MontrerFichiers();

  utilities::OptionsTriFichier OptionsDuTri() const;
  utilities::OptionsExportation OptionsDeLExport() const;
  utilities::OptionsFusion OptionsDeLaFusion() const;
  // The line of quelvar-batch for the utility that is chosen.
  std::string Commande() const;

  void LancerChoix();
  void LancerTri();
  void LancerExport();
  void LancerListage();
  void LancerFusion();
  void LancerSurUnTableau();
  void LancerGendat();
  void LancerInversion();
  // Shows what a launch lacks; true when nothing is missing.
  bool Complet(std::string_view manque);
  // A run that came to its normal end closes the form.
  void Finir(std::optional<Fin> fin);

  std::string a_, b_, c_;  // as chosen; a file of the working directory by its name
  std::unique_ptr<Ui::Utilitaires> ui_;
};

void OuvrirUtilitaires(Services& services);

}  // namespace quelvar::forms
