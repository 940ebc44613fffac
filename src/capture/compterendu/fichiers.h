// The files that an import finds and makes, as its report tells them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/fichiers/jeu.h"
#include "core/fichiers/sauvegarde.h"
#include "core/programme/anciennecopie.h"
#include "core/programme/programme.h"
#include "core/programme/rapport.h"

namespace quelvar::capture {

// "Le fichier ENQ.DAT existe", with the state that the text gives.
void ImprimerEtat(Rapport& rapport, std::string_view nom, Texte etat);
// The state of a file to be made: to be created, or replaced; a source that can't be read replaces nothing.
void ImprimerEtatDeSortie(Rapport& rapport, std::string_view nom, bool present, bool lisible);
inline constexpr std::string_view kExiste = " existe";
inline constexpr std::string_view kNExistePas = " n'existe pas";
inline constexpr std::string_view kSeraCree = " n'existe pas et sera créé"_w;
inline constexpr std::string_view kSeraCreeSansAccents = " n'existe pas et sera cree";
inline constexpr std::string_view kRemplace = " existait déjà et a été remplacé"_w;

// What is looked at, with a .DBF.
inline constexpr std::string_view kSelonLesLargeursDuDbf =
    "Toutes les positions sont examinées selon les largeurs de *.DBF"_w;

// The end of a run that has no source (kArretAnnonce): its line tells whether any other file of the generic is there.
[[noreturn]] void ArreterSansSource(Rapport& rapport, bool autres);

// Copies a former file of the generic under its backup name, an older copy kept, and tells it; `suite` ends the
// sentence. Where the report says that the copies are there whatever the import comes to, they are a set of their own.
void SauvegarderAncien(Rapport& rapport, std::string_view nom, const Chemin& fichier, JeuDeFichiers& sauvegardes,
                       Texte suite = "");

// Tells in a box which tables and coordinates of the generic were computed from other data than those of the set; to be
// called before the commit. Raises a failure of reading.
void PrevenirDesTableaux(const Contexte& contexte, JeuDeFichiers& sorties);

// What the work stops with; none when it comes to its end.
template <class Faire>
std::optional<Erreur> EchecDe(Faire&& faire) {
  try {
    faire();
  } catch (const Erreur& erreur) {
    return erreur;
  }
  return std::nullopt;
}

// What ends the report of an import: the frame that tells what there is now, or one line at level 2.
void ImprimerFinDImport(Rapport& rapport, int niveau);

}  // namespace quelvar::capture
