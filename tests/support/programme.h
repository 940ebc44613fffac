// A program run in a directory of its own, before a screen that answers as the test says and remembers what it saw.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/fichiers/fichiers.h"
#include "core/programme/programme.h"
#include "support/environnement.h"

namespace essai {

class RunDeProgramme : public testing::Test {
 protected:
  explicit RunDeProgramme(int niveau = 1) : contexte_{dossier_.Chemin(), "ENQ", niveau, &dialogue_} {
    dialogue_.afficher = [this](const quelvar::Affichage& affichage) { montre_ = affichage.texte; };
    dialogue_.biper = [this] { ++bips_; };
    dialogue_.saisir = [this](std::string_view, std::string_view propose) {
      return saisie_.value_or(std::string(propose));
    };
    dialogue_.demander = [this](std::string_view texte, quelvar::Boutons boutons) {
      boites_.emplace_back(texte);
      return boutons == quelvar::Boutons::Ok ? quelvar::Reponse::Ok : bouton_;
    };
  }

  void Ecrire(const std::string& nom, std::string_view octets) const { EcrireOctets(dossier_.Chemin() / nom, octets); }
  std::string Lire(const std::string& nom) const { return quelvar::LireOctets(dossier_.Chemin() / nom); }
  bool Existe(const std::string& nom) const { return std::filesystem::exists(dossier_.Chemin() / nom); }
  void Effacer(const std::string& nom) const { std::filesystem::remove(dossier_.Chemin() / nom); }
  bool Dit(std::string_view texte) const { return montre_.find(texte) != std::string::npos; }
  // Every file of the directory but that one and the record of the last set, by name.
  std::map<std::string, std::string> Fichiers(std::string_view sauf = {}) const {
    std::map<std::string, std::string> fichiers;
    for (const auto& entree : std::filesystem::directory_iterator(dossier_.Chemin()))
      if (const std::string nom = entree.path().filename(); nom != sauf && !nom.ends_with(".jeu"))
        fichiers[nom] = quelvar::LireOctets(entree);
    return fichiers;
  }

  DossierTemporaire dossier_;
  quelvar::Dialogue dialogue_;
  quelvar::Contexte contexte_;
  std::optional<std::string> saisie_;                // what is typed; the proposed text without it
  quelvar::Reponse bouton_ = quelvar::Reponse::Oui;  // the answer to a question
  std::vector<std::string> boites_;                  // the texts of the boxes
  std::string montre_;                               // what was shown at the end of the run
  int bips_ = 0;
};

}  // namespace essai
