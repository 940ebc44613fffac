#include "regression/varint/edition.h"

#include <algorithm>
#include <span>

#include "core/resultats/rangees.h"
#include "regression/varint/resultats.h"

namespace quelvar::regression {

namespace {

constexpr std::size_t kParBloc = 16;  // questions on a line of the short edition
constexpr int kLargeurNom = 5;        // columns of a name, and of a PEM
constexpr PlaceEnRangee kSousSonNom{.entiers = kLargeurNom, .titre = TitreDeColonne::AGauche};
constexpr PlaceEnRangee kEnTete{.entiers = kLargeurNom, .titre = TitreDeColonne::AGauche, .avantTitre = " "};

}  // namespace

void ImprimerTeteDesProfils(const Contexte& contexte, Rapport& rapport) {
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
                    {.titre = kLargeurNom,
                     .places = {{.entiers = kLargeurNom, .avantTitre = "    "}, {.avant = " ", .avantTitre = "  "}}});
    return;
  }
  for (std::size_t debut = 0; debut < liens.size(); debut += kParBloc)
    ImprimerRangees(rapport, TableauCourt(pos, liens.subspan(debut, std::min(kParBloc, liens.size() - debut))),
                    {.titre = 1, .places = {kEnTete, kSousSonNom}});
}

}  // namespace quelvar::regression
