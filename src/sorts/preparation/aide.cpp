#include "sorts/preparation/preprecod.h"

namespace quelvar::sorts {

namespace {

constexpr std::string_view kRecodage =
    "Recodage : une règle est une suite d'ordres séparés par / ; chaque ordre dit quels anciens codes, à gauche du "
    "signe égal, prennent le nouveau code écrit à droite.\r\n"
    "    1-2=1/3-4=2     regroupe quatre codes en deux\r\n"
    "    1,3,5=0         met trois codes en non-réponse\r\n"
    "    1-3=1/R=0       met tous les autres codes à 0, les non-réponses comprises (R ou * : le reste)\r\n"
    "    S               garde la question et ses codes\r\n"
    "Un code qui n'est pas nommé garde sa valeur. Une question alphabétique ne se recode pas.\r\n"
    "Validez par la touche Entrée."_w;

constexpr std::string_view kPonderation =
    "Pondération : chaque individu est écrit autant de fois que le dit sa réponse à la question choisie ; le poids 0 "
    "l'enlève du fichier.\r\n"
    "Effectif réduit : le fichier obtenu est ramené à environ dix fois l'effectif de départ ; les tris divisent "
    "ensuite les effectifs pour revenir aux individus.\r\n"
    "Effectif maximum : tous les exemplaires sont gardés.\r\n"
    "Un éventuel recodage de la question de pondération est fait avant."_w;

constexpr std::string_view kFiltre =
    "Filtre : choisissez Inclure ou Exclure, puis une question dans la liste, prenez-la comme élément du filtre et "
    "sélectionnez sa modalité.\r\n"
    "Plusieurs expressions sont reliées par un \"et\" : l'individu doit les satisfaire toutes. Pour prendre plusieurs "
    "codes d'une même question, regroupez-les d'abord par un recodage, qui est fait avant le filtre.\r\n"
    "Validez l'ensemble du filtre, puis enregistrez."_w;

constexpr std::string_view kVit =
    "VIT : une variable idéale-typique compte, pour chaque individu, les réponses qu'il a en commun avec un "
    "portrait.\r\n"
    "Insérez une VIT, donnez-lui un nom, puis ajoutez ses éléments : une question et une de ses modalités. Chaque "
    "réponse trouvée vaut 1, ou le score demandé si la case VIT Avancée est cochée.\r\n"
    "    $$CUL           nom de la VIT\r\n"
    "    CIN     1       cinéma : oui compte pour 1\r\n"
    "    LEC     1 2     lecture : oui compte pour 2\r\n"
    "Pour additionner les réponses elles-mêmes, donnez le score + à tous les éléments : il prend la place du code en "
    "colonne 9.\r\n"
    "Validez la VIT, puis enregistrez."_w;

}  // namespace

std::string_view AidePrepRecod(SujetAide sujet) {
  switch (sujet) {
    case SujetAide::Recodage: return kRecodage;
    case SujetAide::Ponderation: return kPonderation;
    case SujetAide::Filtre: return kFiltre;
    case SujetAide::Vit: break;
  }
  return kVit;
}

}  // namespace quelvar::sorts
