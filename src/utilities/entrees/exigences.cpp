#include "utilities/entrees/exigences.h"

#include <string>
#include <vector>

#include "core/fichiers/jeu.h"
#include "core/fichiers/sauvegarde.h"
#include "core/panne/attention.h"
#include "core/programme/arret.h"

namespace quelvar::utilities {

namespace {

constexpr std::string_view kArretSansFichiers = "*** Arrêt du programme dû à l'absence d'un ou de plusieurs fichiers"_w;

}  // namespace

void ExigerEntrees(Rapport& rapport, const Contexte& contexte, std::initializer_list<EntreeChoisie> entrees) {
  std::vector<FichierObligatoire> fichiers;
  for (const EntreeChoisie& entree : entrees)
    fichiers.push_back({entree.nom, entree.chemin.has_value(), kLeFichierEnRelief});
  if (ImprimerLesAbsents(rapport, fichiers)) AvertirEtArreter(rapport, contexte.Ecran(), kArretSansFichiers);
}

void ExigerTableau(Rapport& rapport, const Contexte& contexte) {
  const std::vector<std::string> manques = FichiersManquants(contexte);
  rapport.Lignes(manques);
  if (!manques.empty()) AvertirEtArreter(rapport, contexte.Ecran(), kArretSansFichiers);
}

void ExigerFormat(Rapport& rapport, const Contexte& contexte, const TableauDuGenerique& tableau) {
  rapport.Lignes(tableau.parametres.remarques);
  if (tableau.AUnFormat()) return;
  const FauteSituee faute = FauteDeFormat(contexte.Nom(".MOD"), MotsDuFormat::SansLeFichier);
  contexte.Ecran().demander(Joindre({faute.phrase, " : il faut corriger le fichier *.MOD"}), Boutons::Ok);
  if (tableau.parametres.remarques.empty()) throw Erreur(kArretAnnonce);  // one box is enough
  throw Erreur(FauteSituee{tableau.parametres.remarques.back(), faute.lieu});
}

void GarderDuJeuDeDonnees(const Contexte& contexte, const Chemin& cible, const Chemin& resultat) {
  if (contexte.generique.empty()) return;
  constexpr std::string_view kQueNulNeRefait[] = {".DAT", ".POS", ".MOD", ".DES"};
  for (const std::string_view extension : kQueNulNeRefait) {
    const std::optional<Chemin> ancien = contexte.Chercher(extension);
    if (!ancien || !EstLeMemeFichier(*ancien, cible)) continue;
    JeuDeFichiers copies(contexte.repertoire, contexte.generique);
    const std::string copie = GarderRemplace(copies, *ancien, resultat);
    copies.Valider();
    if (!copie.empty())
      Prevenir(contexte, Joindre({kAttention, "le fichier "_w, TexteDe(ancien->filename()), " du jeu de données "_w,
                                  contexte.generique, " est remplacé, il est sauvegardé sous le nom "_w, copie}));
  }
}

}  // namespace quelvar::utilities
