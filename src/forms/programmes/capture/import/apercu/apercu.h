// The preview of an import: how the file is read, its first rows, what its columns hold and become; nothing is written
// before "Importer".
#pragma once

#include <memory>

#include "capture/preparation.h"
#include "forms/programmes/capture/import/apercu/examendefond.h"
#include "forms/programmes/capture/import/apercu/modeles.h"
#include "forms/services/services.h"

namespace Ui {
class ApercuImport;
}

namespace quelvar::forms {

class ApercuImport : public Forme {
  Q_OBJECT
 public:
  // Where the files of the survey go, and under which generic; `remplacer`: its files were told to be replaced.
  struct Cible {
    Chemin repertoire;
    std::string generique;
    bool remplacer = false;
  };
  ApercuImport(Services& services, capture::PreparationDImport preparation, Cible cible);
  ~ApercuImport() override;

 private:
  // --- the file and its reading ---
  void PreparerLaLecture();
  void RelierLesControles();
  void ReprendreLesChoix();
  void ChangerFeuille(int rang);
  void ChangerLecture();
  void MontrerLecture();
  void Examiner();
  void PrendreLesFaits(const capture::FaitsDeTable& faits);
  void MontrerEchec(const QString& phrase);
  void MontrerTout();
  void MontrerBilan();
  void MontrerFautes();
  void MontrerGenerique();
  QString TexteDesFautes() const;

  // --- the column that is chosen ---
  void PreparerLaColonne();
  void RelierLaColonne();
  std::size_t Colonne() const;
  bool ColonneChoisie() const;
  void MontrerColonne();
  void MontrerTextes();
  void MontrerTextesComptes();
  void AjouterTexte(const QString& libelle, const std::string& texte, bool coche);
  void MontrerClasses();
  void MontrerLibelles();
  void Renommer(std::size_t colonne, const QString& nom);
  void ChangerOrdre();
  void LireTextes();
  void DeplacerTexte(int pas);
  void LireClasses();
  void ChoixChange();

  // --- the run ---
  std::string Generique() const;
  std::string Commande() const;
  void Importer();
  void LancerImport();

  capture::PreparationDImport preparation_;
  Cible cible_;
  std::unique_ptr<Ui::ApercuImport> ui_;
  LignesDApercu* lignes_;
  ColonnesDApercu* colonnes_;
  QString repris_;       // what was taken up of an earlier import
  QString echec_;        // why the file cannot be read any more; empty when it can
  bool attend_ = false;  // "Importer" was asked before the file is examined
  bool montre_ = false;  // controls are being filled: what they signal is no choice
  // The last member: its thread reads the text of the preparation and goes first.
  ExamenDeFond examen_;
};

}  // namespace quelvar::forms
