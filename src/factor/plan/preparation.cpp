// The preparation of the factor graph: its files as a plane, and the report on them.
#include "core/chiffres/nombres.h"
#include "core/panne/annonce.h"
#include "core/panne/attention.h"
#include "factor/plan/concordance.h"
#include "factor/plan/graphe.h"
#include "factor/plan/lecture.h"

namespace quelvar::factor {

namespace {

void ExigerFichiersDuGraphe(Rapport& rapport, const Contexte& contexte, const ExigencesGraphe& exigences) {
  std::vector<FichierObligatoire> fichiers = {Obligatoire(contexte, ".MOD", "*** Le fichier des modalites")};
  if (exigences.liens) fichiers.push_back(Obligatoire(contexte, ".PEM", "*** Le fichier des PEM"));
  if (exigences.cah) fichiers.push_back(Obligatoire(contexte, ".CAH", "*** Le fichier de CAH"));
  fichiers.push_back(Obligatoire(contexte, ".FAJ", "*** Le fichier des coordonnees factorielles"));
  if (!ImprimerLesAbsents(rapport, fichiers)) return;
  rapport.Ligne();
  AvertirEtArreter(rapport, contexte.Ecran(), "*** Arret du programme du a l'absence d'un ou de plusieurs fichiers");
}

void ImprimerNoms(Rapport& rapport, const Contexte& contexte) {
  ImprimerBandeau(rapport, "Graphique factoriel");
  rapport.Ligne({"Le nom du fichier des modalites est ", contexte.Nom(".MOD")});
  rapport.Ligne({"Le nom du fichier de PEM est  ", contexte.Nom(".PEM")});
  rapport.Ligne({"Le nom du fichier de CAH est  ", contexte.Nom(".CAH")});
  rapport.Ligne({"Le nom du fichier des coordonnes  est  ", contexte.Nom(".FAJ")});
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".PRT")});
}

struct NombresDeModalites {
  std::size_t actives = 0;
  std::size_t supplementaires = 0;
};

NombresDeModalites CompterModalites(const DonneesPlan& donnees) {
  NombresDeModalites nombres;
  for (std::size_t i = 0; i < donnees.colonnes; ++i)
    ++(donnees.points[i].supplementaire ? nombres.supplementaires : nombres.actives);
  return nombres;
}

void ImprimerNombresDeModalites(Rapport& rapport, const NombresDeModalites& nombres) {
  rapport.Ligne({"Il y a ", NombreNu(nombres.actives + nombres.supplementaires), " modalites en tout"});
  rapport.Ligne({"Il y a ", NombreNu(nombres.actives), " modalites actives"});
  rapport.Ligne({"Il y a ", NombreNu(nombres.supplementaires), " modalites supplementaires"});
}

// In the report, and in one box.
void PrevenirDesRemarques(Rapport& rapport, const Dialogue& ecran, const std::vector<std::string>& remarques) {
  if (remarques.empty()) return;
  std::string boite;
  for (const std::string& remarque : remarques) {
    rapport.Ligne({kAttention, remarque});
    boite += (boite.empty() ? "" : "\r\n") + remarque;
  }
  ecran.demander(boite, Boutons::Ok);
}

void Preparer(Rapport& rapport, const Contexte& contexte, const ExigencesGraphe& exigences, DonneesPlan& donnees) {
  ExigerFichiersDuGraphe(rapport, contexte, exigences);
  ImprimerNoms(rapport, contexte);
  const FichierMod mod = LireMod(contexte.Exiger(".MOD"));
  const ParametresMod parametres = LireParametres(mod.parametres, contexte.Nom(".MOD"));
  rapport.Lignes(parametres.remarques);
  if (parametres.burt == 1 && !contexte.Chercher(".FAI"))
    AvertirEtArreter(rapport, contexte.Ecran(), "*** Arret du programme, fichier *.FAI absent");
  ArreterSi(rapport, contexte.Ecran(), DeclarerColonnes(contexte, mod, parametres, donnees));
  ArreterSi(rapport, contexte.Ecran(), PlacerElements(contexte, parametres, donnees));
  AffinerCoordonnees(contexte, donnees);
  ImprimerNombresDeModalites(rapport, CompterModalites(donnees));
  LireAutourDuPlan(contexte, exigences, donnees);
  const std::optional<Discordance> arret = ReleverDiscordances(contexte, exigences, donnees);
  std::vector<std::string> remarques = RemarquesDuPlan(donnees.discordances);
  for (std::string& remarque : RemarquesDesFichiers(donnees.discordances, exigences))
    remarques.push_back(std::move(remarque));
  PrevenirDesRemarques(rapport, contexte.Ecran(), remarques);
  if (arret) AvertirEtArreter(rapport, contexte.Ecran(), Joindre({kArretDuProgrammeSansAccents, PhraseDe(*arret)}));
}

}  // namespace

std::optional<DonneesPlan> PrepGraphe(const Contexte& contexte, const ExigencesGraphe& exigences) {
  DonneesPlan donnees;
  if (!PreparerProgramme(contexte, contexte.Nom(".PRT"), LibellesErreur{},
                         [&](Rapport& rapport) { Preparer(rapport, contexte, exigences, donnees); }))
    return std::nullopt;
  return donnees;
}

}  // namespace quelvar::factor
