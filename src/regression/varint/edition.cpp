#include "regression/varint/edition.h"

#include <algorithm>
#include <span>
#include <string>

#include "core/resultats/rangees.h"

namespace quelvar::regression {

namespace {

constexpr std::size_t kParBloc = 16;  // questions on a line of the short edition
constexpr int kLargeurNom = 5;        // columns of a name, and of a PEM
constexpr PlaceEnRangee kPlaceDuPem{.entiers = kLargeurNom, .titre = TitreDeColonne::AGauche};

Cellule Pem(const LienDeProfil& lien) { return {lien.pem, Unite::Pourcent, 0, {}}; }

// A row for each link.
TableauEdite TableauLong(const FichierPos& pos, std::span<const LienDeProfil> liens) {
  TableauEdite tableau;
  tableau.titres = {Joindre({"Nom    PEM  Nom long éventuel"_w})};
  tableau.colonnes.resize(1);
  for (const LienDeProfil& lien : liens) {
    const Question& question = pos.questions[lien.question];
    tableau.rangees.push_back({question.nom, question.intitule, {Pem(lien)}});
  }
  return tableau;
}

// A column for each link, in one row.
TableauEdite TableauCourt(const FichierPos& pos, std::span<const LienDeProfil> liens) {
  TableauEdite tableau;
  tableau.coin = " ";
  Rangee& rangee = tableau.rangees.emplace_back(Rangee{" ", {}, {}});
  for (const LienDeProfil& lien : liens) {
    tableau.colonnes.push_back({pos.questions[lien.question].nom});
    rangee.cellules.push_back(Pem(lien));
  }
  return tableau;
}

}  // namespace

void ImprimerNomsDeFichiers(const Contexte& contexte, Rapport& rapport) {
  ImprimerBandeau(rapport, "Profils de variables d'intérêt"_w);
  rapport.Ligne({"Le nom par défaut du fichier d'entrée est "_w, contexte.Nom(".DAT")});
  rapport.Ligne({"Le nom du fichier de paramètres de position est "_w, contexte.Nom(".POS")});
  rapport.Ligne({"Le nom du fichier de modalités  est  "_w, contexte.Nom(".MOD")});
  rapport.Ligne("     ce fichier sera utilisé dans le calcul des facteurs"_w);
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".TRF")});
}

void ImprimerTitreDesProfils(Rapport& rapport) {
  rapport.Ligne("  ");
  rapport.Ligne("          Edition des profils de questions ");
  rapport.Ligne("          ******************************** ");
}

void ImprimerProfil(Rapport& rapport, const FichierPos& pos, const Profil& profil, EditionVarint edition) {
  const Question& question = pos.questions[profil.question];
  const std::span<const LienDeProfil> liens(profil.liens);
  rapport.Ligne();
  rapport.Ligne({"Edition du profil de la question ", question.nom, " ", question.intitule});
  rapport.Ligne();
  if (edition == EditionVarint::Longue) {
    ImprimerRangees(rapport, TableauLong(pos, liens),
                    {.titre = kLargeurNom, .places = {kPlaceDuPem}, .avantIntitule = " "});
    return;
  }
  for (std::size_t debut = 0; debut < liens.size(); debut += kParBloc)
    ImprimerRangees(rapport, TableauCourt(pos, liens.subspan(debut, std::min(kParBloc, liens.size() - debut))),
                    {.places = {kPlaceDuPem}});
}

}  // namespace quelvar::regression
