// The profile of chosen modalities: the choice, the labels, the run, and the picture beside the report.
#pragma once

#include <QStringList>
#include <memory>

#include "factor/profil/profilmod.h"
#include "forms/cadre/services.h"
#include "forms/pieces/editionliste.h"

namespace Ui {
class ProfilMod;
class ImageProfil;
}  // namespace Ui

namespace quelvar::forms {

class ProfilMod : public Forme {
  Q_OBJECT
 public:
  explicit ProfilMod(Services& services);
  ~ProfilMod() override;

 private:
  void Remplir();
  void Filtrer(const QString& texte);
  // Names of the selected modalities, in the order of the list.
  std::vector<std::string> Choisies() const;
  void MontrerChoix();
  void Enregistrer();

  factor::EtatProfil etat_;
  std::unique_ptr<Ui::ProfilMod> ui_;
  EditionListe* edition_ = nullptr;
};

// The bars of the profiles of one run.
class ImageProfil : public Forme {
  Q_OBJECT
 public:
  ImageProfil(Services& services, const Contexte& contexte, std::vector<factor::ProfilDeModalite> profils);
  ~ImageProfil() override;

 private:
  void Dessiner();

  std::vector<factor::ProfilDeModalite> profils_;
  std::unique_ptr<Ui::ImageProfil> ui_;
};

void OuvrirProfilMod(Services& services);

}  // namespace quelvar::forms
