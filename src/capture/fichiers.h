// The files that an import finds and makes, as its report tells them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/fichiers/jeu.h"
#include "core/programme/programme.h"
#include "core/programme/report.h"

namespace quelvar::capture {

// "Le fichier ENQ.DAT existe", with the state that the text gives.
void EcrireEtat(Rapport& rapport, std::string_view nom, Texte etat);
// The state of a file to be made: to be created, or replaced; a source that can't be read replaces nothing.
void EcrireEtatDeSortie(Rapport& rapport, std::string_view nom, bool present, bool lisible);
inline constexpr std::string_view kExiste = " existe";
inline constexpr std::string_view kNExistePas = " n'existe pas";
inline constexpr std::string_view kSeraCree = " n'existe pas et sera créé"_w;
inline constexpr std::string_view kSeraCreeSansAccents = " n'existe pas et sera cree";
inline constexpr std::string_view kRemplace = " existait déjà et a été remplacé"_w;

// The .POS of the generic; one too short to be one counts as absent.
std::optional<Chemin> ChercherPos(const Contexte& contexte);

// The first number that is free (.PO3), for an older copy that says something else than the file to be saved; empty
// when there is none, or when another copy says the same. Raises kAccesFichier when no number is free.
std::string NomPourAncienneSauvegarde(const Contexte& contexte, const Chemin& fichier, const std::string& sauvegarde);
// That older copy goes on under that name, which is returned, among the outputs.
std::string ConserverSauvegarde(const Contexte& contexte, const Chemin& fichier, const std::string& sauvegarde,
                                JeuDeFichiers& sorties);
// The same, and the report tells it.
void ConserverSauvegarde(Rapport& rapport, const Contexte& contexte, const Chemin& fichier,
                         const std::string& sauvegarde, JeuDeFichiers& sorties);
// Copies a former file of the generic under its backup name, an older copy kept, and tells it. The report says that the
// copies are there whatever the import comes to: they are a set of their own.
void SauvegarderAncien(Rapport& rapport, const Contexte& contexte, std::string_view nom, const Chemin& fichier,
                       JeuDeFichiers& sauvegardes);

// Keeps a file that another one is about to replace under the first backup name that is free, as one of the outputs;
// not when that one, or a copy that is there, has the same bytes. Returns the name of the copy, empty without one.
std::string GarderRemplace(const Contexte& contexte, const Chemin& ancien, const Chemin& nouveau,
                           JeuDeFichiers& sorties);

// What the work stops with; none when it comes to its end.
template <class Travail>
std::optional<Erreur> EchecDe(Travail&& travail) {
  try {
    travail();
  } catch (const Erreur& erreur) {
    return erreur;
  }
  return std::nullopt;
}

// What ends the report of an import: the frame that tells what there is now, or one line at level 2.
void EcrireFinDImport(Rapport& rapport, int niveau);

}  // namespace quelvar::capture
