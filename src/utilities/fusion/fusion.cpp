#include "utilities/fusion/fusion.h"

#include <algorithm>
#include <utility>

#include "core/chiffres/nombres.h"
#include "core/panne/attention.h"
#include "core/programme/alerte.h"
#include "core/programme/libelles.h"
#include "core/programme/place.h"
#include "core/texte/listes.h"
#include "utilities/entrees/exigences.h"
#include "utilities/fusion/edition.h"
#include "utilities/fusion/jonction.h"
#include "utilities/fusion/travail.h"

namespace quelvar::utilities {

namespace {

// What the .POS of the result can't tell by itself; its lines are those of A and B.
void PrevenirDuPos(const TravailDeFusion& travail) {
  if (!travail.pos) PrevenirDeLAncienPos(travail);
  if (!travail.options.pos) return;
  const std::string pos = NomAffiche(NomDuPos(travail.options.c));
  if (!travail.pos) {
    Prevenir(travail.contexte,
             Joindre({"Le fichier ", pos, " n'a pas été fait : "_w, NomAffiche(NomDuPos(travail.options.a)), " ou ",
                      NomAffiche(NomDuPos(travail.options.b)), " manque ou n'a pas de question"}));
    return;
  }
  if (travail.options.type == TypeFusion::ALaSuite) {
    if (const std::size_t rang = PremiereDifference(travail.pos->a, travail.pos->b); rang > 0)
      Prevenir(travail.contexte,
               Joindre({"Les questions de B ne sont pas celles de A, à partir de la question "_w, Nombre(rang), " : ",
                        pos, " a celles de A, qui vont donc lire les individus de B à d'autres places"_w}));
    return;
  }
  const std::vector<std::string> communs = NomsCommuns(travail.pos->a, travail.pos->b);
  if (communs.empty()) return;
  Prevenir(travail.contexte, Joindre({"Questions de même nom dans A et dans B : "_w, Nombre(communs.size()), " (",
                                      Enumerer(communs), "). ", pos,
                                      " les porte deux fois : donnez d'autres noms à l'une des deux avant "
                                      "d'analyser, un programme s'arrête sur un nom que deux questions partagent"_w}));
}

void FusionnerFichiers(Rapport& rapport, const Contexte& contexte, const OptionsFusion& options) {
  EntreeChoisie a = ChercherEntree(contexte, options.a);
  EntreeChoisie b = ChercherEntree(contexte, options.b);
  ExigerEntrees(rapport, contexte, {a, b});
  ImprimerTeteDeFusion(rapport, a, b, NomAffiche(options.c));
  const TravailDeFusion travail{
      contexte, options, rapport, Mesurer(std::move(a)), Mesurer(std::move(b)), LirePaireDePos(contexte, options)};
  // With questions to find again every line takes the room of the longest, and so does what stands in for B.
  const bool auLarge = travail.pos || options.type == TypeFusion::Appareillement;
  const std::uint64_t lignes = static_cast<std::uint64_t>(std::max(travail.a.lignes, travail.b.lignes));
  const std::uint64_t large = auLarge ? lignes * (travail.a.plusLongue + travail.b.plusLongue) : 0;
  ExigerPlace(contexte, rapport, {0, std::max<std::uint64_t>(travail.a.octets + travail.b.octets, large)});
  switch (options.type) {
    case TypeFusion::CoteACote: FusionnerCoteACote(travail); break;
    case TypeFusion::ALaSuite: FusionnerALaSuite(travail); break;
    case TypeFusion::Appareillement: FusionnerParNumero(travail); break;
    case TypeFusion::Aucun: throw Erreur(kArgumentIncorrect);
  }
  PrevenirDuPos(travail);
  rapport.Ligne("Programme normalement terminé"_w);
}

// The three boxes of a verification; false when one is cancelled.
bool DemanderIdentifiants(const Contexte& contexte, OptionsFusion& options) {
  const auto demander = [&](std::string_view question, std::string& valeur) {
    valeur = Rogner(contexte.Ecran().saisir(question, valeur));
    return !valeur.empty();
  };
  return demander("Entrez la position initiale du numéro (ou du nom) d'individu du premier fichier dit A "_w,
                  options.positionA) &&
         demander("Entrez la position initiale du numéro (ou du nom) d'individu du deuxième fichier dit B "_w,
                  options.positionB) &&
         demander("Entrez la largeur commune aux numéro (ou nom) des deux fichiers"_w, options.largeur);
}

}  // namespace

std::string ManqueFusion(const Contexte& contexte, const OptionsFusion& options) {
  if (options.a.empty()) return "Vous devez entrer le nom du fichier A";
  if (options.b.empty()) return "Vous devez entrer le nom du fichier B";
  if (options.c.empty()) return std::string("Vous devez entrer le nom du fichier résultant"_w);
  if (MemeFichier(contexte, options.c, options.a) || MemeFichier(contexte, options.c, options.b))
    return std::string("Le fichier résultant ne peut être un des deux fichiers d'entrée"_w);
  if (options.type == TypeFusion::Aucun) return "Vous devez choisir un type de fusion";
  if (options.type == TypeFusion::Appareillement) {
    const auto position = [](std::string_view fichier) {
      return Joindre({"Vous devez entrer la position de l'identificateur dans le fichier ", fichier});
    };
    if (options.positionA.empty()) return position("A");
    if (options.positionB.empty()) return position("B");
    if (options.largeur.empty())
      return std::string("Vous devez entrer la largeur de l'identificateur commune à A et B"_w);
  }
  if (options.pos) {
    const std::string pos = NomDuPos(options.c);
    for (const std::string& entree : {options.a, options.b})
      if (MemeFichier(contexte, pos, NomDuPos(entree)) || MemeFichier(contexte, pos, entree))
        return Joindre({"Le fichier de positions du résultat, "_w, NomAffiche(pos),
                        ", est celui d'un des deux fichiers d'entrée : donnez un autre nom au fichier C"_w});
  }
  return EntreeEcrasee(contexte, {options.a, options.b, options.c});
}

Fin Fusionner(const Contexte& contexte, const OptionsFusion& options) {
  if (MemeFichier(contexte, options.a, options.b) &&
      contexte.Ecran().demander(
          Joindre({kAttention, "les fichiers A et B sont un seul et même fichier, "_w, NomAffiche(options.a),
                   " : le résultat contiendra deux fois ses données. L'acceptez-vous ?"_w}),
          Boutons::OuiNon) != Reponse::Oui)
    return Fin::Arret;
  const std::string pos = NomDuPos(options.c);
  if (options.pos && ChercherFichier(contexte.repertoire, pos) &&
      !PeutEtreRemplace(contexte.Ecran(), NomAffiche(pos), Boutons::OuiNon))
    return Fin::Arret;
  OptionsFusion demandees = options;
  if (options.type == TypeFusion::CoteACote && options.verifier && !DemanderIdentifiants(contexte, demandees))
    return Fin::Arret;
  return ExecuterProgramme(contexte, NomDuRapport(contexte), LibellesSansTexte(),
                           [&](Rapport& rapport) { FusionnerFichiers(rapport, contexte, demandees); });
}

}  // namespace quelvar::utilities
