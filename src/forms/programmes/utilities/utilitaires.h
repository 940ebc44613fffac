// Utilities on files and tables: the choice of one, its files and settings, and the start of its program.
#pragma once

#include <QRadioButton>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/services/services.h"
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
  // One of the programs: the button that chooses it, what the form says of it, its equivalent command, its launch.
  struct Utilitaire {
    QRadioButton* choix;
    QString aide;
    std::function<std::string()> commande;
    std::function<void()> lancer;
  };
  void Recenser();
  const Utilitaire& Choisi() const;

  void RelierFichiers();
  void MontrerChoix();
  void ChoisirEntree(std::string& fichier, const QString& titre);
  void ChoisirResultat();
  void MontrerFichiers();

  utilities::OptionsTriFichier OptionsDuTri() const;
  utilities::OptionsExportation OptionsDeLExport() const;
  utilities::OptionsFusion OptionsDeLaFusion() const;

  void LancerTri();
  void LancerExport();
  void LancerListage();
  void LancerFusion();
  void LancerGendat();
  void LancerInversion();
  void LancerEcapem();
  // The programs on a table have no file of their own to be chosen.
  bool AUnGenerique();
  // Shows what a launch lacks; true when nothing is missing.
  bool Complet(std::string_view manque);
  // A run that came to its normal end closes the form.
  void Finir(std::optional<Fin> fin);

  std::vector<Utilitaire> utilitaires_;
  std::string a_, b_, c_;  // as chosen; a file of the working directory by its name
  std::unique_ptr<Ui::Utilitaires> ui_;
};

void OuvrirUtilitaires(Services& services);

}  // namespace quelvar::forms
