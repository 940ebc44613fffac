#include "text/decoupage/edition.h"

#include <string_view>

#include "core/chiffres/nombres.h"
#include "core/resultats/rangees.h"
#include "text/commun/lignedemot.h"

namespace quelvar::text {

void ImprimerNoms(Rapport& rapport, const Contexte& contexte, const OptionsSaisieMot& options) {
  constexpr std::string_view kEntree = "       et servira d'entrée pour la création du tableau lexical des questions"_w;
  if (options.auxiliaires) {
    rapport.Ligne({"Le fichier de sortie mots longs non triés est  "_w, contexte.Nom(".NT1")});
    rapport.Ligne({"Le fichier de sortie mots longs triés est  "_w, contexte.Nom(".TR1")});
    rapport.Ligne({"Le fichier de sortie mots courts+longs+fréquence est "_w, contexte.Nom(".EDI")});
  }
  rapport.Ligne({"Le fichier de sortie mots triés est  "_w, contexte.Nom(".DAT")});
  rapport.Ligne(kEntree);
  rapport.Ligne({"Le fichier de position en sortie sera  ", contexte.Nom(".POS")});
  rapport.Ligne(kEntree);
  rapport.Ligne({"Le fichier d'impression est ", contexte.Nom(".IMP")});
  rapport.Ligne({"Position de fin des caractéristiques  "_w, NombreNu(options.position)});
  rapport.Ligne({"Nombre de lignes maximum par individu ", NombreNu(options.lignesMax)});
}

void ImprimerMode(Rapport& rapport, const OptionsSaisieMot& options) {
  switch (options.mode) {
    case ModeStimulus::Aucun: rapport.Ligne("Traitement de mots de question ouverte"); return;
    case ModeStimulus::CaracteristiqueReportee:
    case ModeStimulus::Caracteristique:
      rapport.Ligne({"Le stimulus est dans les caractéristiques à la position "_w, NombreNu(options.positionStimulus)});
      rapport.Ligne(options.mode == ModeStimulus::CaracteristiqueReportee
                        ? "   il sera reporté en fin de mot"_w
                        : "   il ne sera pas reporté en fin de mot"_w);
      return;
    case ModeStimulus::FinDeMot:
    case ModeStimulus::FinDeMotSupprimee: break;
  }
  rapport.Ligne("Le stimulus est en fin de mot et sera reporté"_w);
  rapport.Ligne({"  en fin de caractéristiques à la position "_w, NombreNu(options.position + 1)});
  rapport.Ligne(options.mode == ModeStimulus::FinDeMot ? "   il sera laissé en fin de mot"_w
                                                       : "   il sera supprimé en fin de mot"_w);
}

void ImprimerMotLong(Rapport& rapport, const Concordance& mot, ModeStimulus mode, bool premier) {
  if (premier) rapport.Ligne("*** ATTENTION : mot plus long que 10 caractères"_w);
  char champ[kLargeurMot];
  mot.EcrireMotLu(champ);
  rapport.Suite({std::string_view(champ, sizeof champ), " ", mot.Caracteristiques()});
  if (mode != ModeStimulus::Aucun) rapport.Suite({" ", mot.Stimulus()});
  rapport.Ligne();
}

void ImprimerBilan(Rapport& rapport, const BilanDeCoupe& bilan) {
  rapport.Ligne({"Nombre de lignes lues en entrée "_w, NombreNu(bilan.lignes)});
  rapport.Ligne({"Nombre de mots écrits en sortie "_w, NombreNu(bilan.mots)});
  rapport.Ligne({"Nombre de mots de longueur supérieure à 10 ="_w, NombreNu(bilan.motsLongs)});
  if (bilan.motsLongs > kMotsLongsMontres) rapport.Ligne(" seuls les 10 premiers sont été imprimés "_w);
}

void ImprimerMots(Rapport& rapport, const std::vector<MotDistinct>& distincts, std::size_t entres) {
  constexpr int kLargeurFrequence = 4;
  constexpr std::size_t kMotsParLigne = 5;
  rapport.Ligne("Impression de la liste des mots");
  // A frequency never touches the word of the item before it.
  ImprimerRangees(rapport, TableauDesMots(distincts),
                  {.places = {{"", kLargeurFrequence, Elargissement::DerriereUnNombre}},
                   .avantIntitule = " ",
                   .parLigne = kMotsParLigne});
  rapport.Ligne({"Nombre de mots entrés"_w, NombreNu(entres)});
  rapport.Ligne({"Nombre de mots différents"_w, NombreNu(distincts.size())});
}

}  // namespace quelvar::text
