// The factor plane: axes, points, size and place, links, classes and ellipses, marks, saving and printing.
#pragma once

#include <memory>

#include "factor/coupe/coupe.h"
#include "factor/plan/graphe.h"
#include "forms/services/brouillon.h"
#include "forms/services/services.h"
#include "modalities/regroupement/modifburt.h"

class QLineEdit;

namespace Ui {
class Graphe3;
}

namespace quelvar::forms {

class Graphe3 : public Forme {
  Q_OBJECT
 public:
  Graphe3(Services& services, factor::DonneesPlan donnees, Brouillon rapport);
  ~Graphe3() override;
  void done(int resultat) override;

 private:
  // --- the state, its controls and its picture ---
  void PoserBornes();
  void PoserReglages();
  void LireReglages();
  void MontrerReglages();
  void Recaler();
  void RefaireEllipses();
  void DireLesDiscordances();
  // After a change of settings; after a change of the limits alone, which no control tells.
  void Redessiner();
  void Dessiner();
  // Tells under the picture what could not be done; where the failure was met, when it is known, also in a box.
  void Refuser(const Erreur& erreur, const QString& quoi = {});

  // --- what the controls do (controles.cpp) ---
  void RelierAxes();
  void RelierPoints();
  void RelierTaille();
  void RelierLiens();
  void RelierCah();
  void ChangerAxe(QLineEdit& texte, factor::AxePlan& axe);
  void FixerNiveauCpf(int niveau);
  void FixerEcMin(double limite);
  void FixerEcSup(double limite);
  void FixerProgression(std::int64_t liens);
  void FixerNiveauCah(std::int64_t niveau);

  // --- the mouse and the marks (image.cpp) ---
  void RelierImage();
  void Informer(const QPointF& page);
  QString Infobulle(const QPointF& page) const;
  void Marquer(const QPointF& page);
  // The marks by the names of their elements, as shown and as typed.
  void MontrerMarques();
  void PrendreMarques();
  void RefaireMarques();

  // --- files (fichiers.cpp) ---
  void RelierFichiers();
  void EcrireLeReseau();
  factor::OptionsCoupe Coupe() const;
  void CouperLaClassification();
  // Merges the marked elements into a new generic, told and confirmed first.
  modalities::OptionsModifBurt Association() const;
  void Associer();

  factor::EtatPlan etat_;
  std::shared_ptr<Brouillon> rapport_;  // goes on once something is launched that the report tells
  std::shared_ptr<factor::BilanEllipses> ellipses_ = std::make_shared<factor::BilanEllipses>();  // those of the picture
  std::vector<std::string> dites_;  // of the files that were drawn
  std::uint32_t tirages_ = 0;       // times that the colours were drawn at random
  std::unique_ptr<Ui::Graphe3> ui_;
};

// Prepares the graph and shows the form, in place of the one that is open.
void OuvrirGraphe3(Services& services);

}  // namespace quelvar::forms
