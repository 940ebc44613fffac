#include "text/tableau/edition.h"

#include "core/chiffres/nombres.h"
#include "core/enquete/datfile.h"

namespace quelvar::text {

void ImprimerNoms(Rapport& rapport, const Contexte& contexte) {
  rapport.Ligne({"Le nom du fichier d'entrée est "_w, contexte.Nom(".DAT")});
  rapport.Ligne({"Le nom du fichier de paramètres de position est "_w, contexte.Nom(".POS")});
  rapport.Ligne({"Les impressions se font sur ", contexte.Nom(".PRT")});
  rapport.Ligne({"Le nom du fichier des noms de modalités est "_w, contexte.Nom(".MOD")});
  rapport.Ligne({"Le nom du fichier des données en tableau lexical des questions est "_w, contexte.Nom(".BRT")});
}

void ImprimerQuestions(Rapport& rapport, const FichierPos& pos, std::int64_t individus,
                       const std::vector<std::size_t>& actives) {
  rapport.Ligne("Liste des questions retenues");
  rapport.Ligne({"Il y a ", NombreNu(actives.size()), " questions"});
  rapport.Ligne(LigneDesIndividus(individus));
  for (const std::size_t rang : actives) rapport.Ligne({pos.questions[rang].nom, " ", pos.questions[rang].intitule});
}

void ImprimerBilan(Rapport& rapport, int niveau, const OptionsTabMot& options, const TableLexicale& table) {
  constexpr int kEntiersDUneFrequence = 4;
  rapport.Ligne(options.codesZero ? "Les codes zéro sont pris en compte"_w : "Les codes zéro sont ignorés"_w);
  rapport.Ligne(
      {"La fréquence minimum requise est de "_w, NombreFixe(options.FrequenceExigee(), kEntiersDUneFrequence, 0)});
  if (niveau == kNiveauSimple) rapport.Ligne("Ces paramètres peuvent être modifiés en niveau 2 d'utilisateur"_w);
  rapport.Ligne();
  rapport.Ligne({"Nombre de mots lus en entrée "_w, NombreNu(table.motsLus)});
  rapport.Ligne({"Nombre de mots écrits en sortie "_w, NombreNu(table.lignes.size())});
}

void ImprimerFin(Rapport& rapport) {
  rapport.Ligne("Programme normalement terminé"_w);
  rapport.Ligne();
  rapport.Ligne("Vous pouvez maintenant lancer les étapes suivantes de l'analyse factorielle"_w);
  rapport.Ligne("2) Modification  modalités (si besoin est)"_w);
  rapport.Ligne("3) Profil de modalités (Pour calculer les PEM entre mots et modalités)"_w);
  rapport.Ligne("4) Calcul des facteurs ");
  rapport.Ligne("5) Graphiques factoriels ");
}

}  // namespace quelvar::text
