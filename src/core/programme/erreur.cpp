#include "core/programme/erreur.h"

#include <cerrno>

namespace quelvar {

std::string_view TexteErreur(int numero) {
  switch (numero) {
    case kArgumentIncorrect: return "Argument ou appel de procédure incorrect"_w;
    case kDepassementCapacite: return "Dépassement de capacité"_w;
    case kMemoireInsuffisante: return "Mémoire insuffisante"_w;
    case kIndiceHorsSelection: return "L'indice n'appartient pas à la sélection"_w;
    case kDivisionParZero: return "Division par zéro"_w;
    case kIncompatibiliteType: return "Incompatibilité de type"_w;
    case kNomFichierIncorrect: return "Nom ou numéro de fichier incorrect"_w;
    case kFichierIntrouvable: return "Fichier introuvable";
    case kErreurPeripherique: return "Erreur d'entrée/sortie de périphérique"_w;
    case kDisquePlein: return "Disque plein";
    case kFinDeFichierDepassee: return "L'entrée dépasse la fin de fichier"_w;
    case kPermissionRefusee: return "Permission refusée"_w;
    case kAccesFichier: return "Erreur d'accès chemin/fichier"_w;
    case kCheminIntrouvable: return "Chemin d'accès introuvable"_w;
    default: return {};
  }
}

std::string_view TexteErreur(const Erreur& erreur) {
  return erreur.Phrase().empty() ? TexteErreur(erreur.Numero()) : std::string_view(erreur.Phrase());
}

int NumeroDErrno(int codeErrno) {
  switch (codeErrno) {
    case ENOENT: return kFichierIntrouvable;
    case EACCES:
    case EPERM:
    case EROFS: return kPermissionRefusee;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return kDisquePlein;
    case ENOTDIR: return kCheminIntrouvable;
    case ENAMETOOLONG:
    case EINVAL: return kNomFichierIncorrect;
    case EIO: return kErreurPeripherique;
    case ENOMEM: return kMemoireInsuffisante;
    default: return kAccesFichier;
  }
}

}  // namespace quelvar
