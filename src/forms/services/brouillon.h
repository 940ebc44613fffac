// The report that a preparation has begun: it stays in memory until something is launched, and the former report stays
// in its place.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "core/programme/programme.h"
#include "forms/services/services.h"

namespace quelvar::forms {

class Brouillon {
 public:
  // What the preparation has written of the report (generic and extension).
  Brouillon(const Contexte& contexte, std::string_view extension, std::string prepare);

  // Lines that the report goes on with, as soon as it is in the directory.
  void Ajouter(std::string_view lignes) { etat_.ajouts += lignes; }
  // Runs a program that goes on with the report. False when it was not run or given up; the directory is then as
  // before.
  bool Continuer(Lanceur& lanceur, const Programme& programme);
  // Before a launch that goes on with it: the report of the preparation takes its place, with the lines added since.
  void Poser();
  // After that launch, when it was given up: out of the directory again.
  void Reprendre();
  // Whether something launched has gone on with it.
  bool Commence() const { return etat_.commence; }
  // Shows the report as it stands, in the directory or not; at the end of a form it is not kept when nothing was
  // launched.
  void Montrer(const Contexte& contexte) const;

 private:
  struct Etat {
    std::optional<std::string> prepare = {};  // not in the directory yet, as the lines that go behind it
    std::string ajouts = {};
    bool commence = false;
  };
  struct Avant {
    Etat etat;
    std::optional<std::string> fichier;
  };
  // What the directory holds under the name of the report.
  std::optional<std::string> Fichier() const;

  Chemin chemin_;
  std::string nom_;
  Etat etat_;
  std::optional<Avant> avant_;  // the last launch that has changed the directory
};

// What a form opens on, and the report that making it ready has begun.
template <class T>
struct Preparation {
  T donnees;
  Brouillon rapport;
};

// Runs the preparation on the current data set with its report (generic and extension) in memory: nothing is written
// before a launch. Nothing when it has stopped, which its report has told.
template <class F>
auto Preparer(Services& services, std::string_view extension, const F& preparation) {
  decltype(preparation(std::declval<const Contexte&>())) donnees;
  std::string rapport;
  Contexte enMemoire = services.ContexteEnCours();
  enMemoire.brouillon = &rapport;
  services.Lancer([&](const Contexte&) { donnees = preparation(enMemoire); });
  using T = Preparation<typename decltype(donnees)::value_type>;
  return donnees ? std::optional<T>(T{*std::move(donnees), Brouillon(enMemoire, extension, std::move(rapport))})
                 : std::nullopt;
}

}  // namespace quelvar::forms
