#include "core/panne/erreur.h"

#include <cerrno>
#include <new>
#include <stdexcept>
#include <system_error>

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

Erreur& Erreur::Situer(const Lieu& lieu) {
  if (numero_ == kArretAnnonce) return *this;
  if (lieu_.fichier.empty()) lieu_.fichier = lieu.fichier;
  if (lieu_.ligne == 0) lieu_.ligne = lieu.ligne;
  if (lieu_.colonne == 0) lieu_.colonne = lieu.colonne;
  return *this;
}

Erreur& Erreur::Imputer(std::string_view propos) {
  fauteDuProgramme_ = true;
  propos_ = propos;
  return *this;
}

std::string TexteDuLieu(const Erreur& erreur) {
  if (erreur.fauteDuProgramme_) return Joindre({"faute du programme et non des données : "_w, erreur.propos_});
  std::string texte = erreur.lieu_.fichier;
  const auto ajouter = [&](std::string_view quoi, std::int64_t numero) {
    if (numero > 0) texte += Joindre({std::string_view(texte.empty() ? "" : ", "), quoi, std::to_string(numero)});
  };
  ajouter("ligne ", erreur.lieu_.ligne);
  ajouter("colonne ", erreur.lieu_.colonne);
  return texte;
}

std::string TexteErreur(const Erreur& erreur) {
  std::string texte(erreur.Phrase().empty() ? TexteErreur(erreur.Numero()) : std::string_view(erreur.Phrase()));
  if (texte.empty()) texte = erreur.annonce_;
  if (const std::string lieu = TexteDuLieu(erreur); !lieu.empty()) texte += Joindre({" (", lieu, ")"});
  return texte;
}

Erreur ErreurEnCours() {
  try {
    throw;
  } catch (const Erreur& erreur) {
    return erreur;
  } catch (const std::bad_alloc&) {
    return Erreur(kMemoireInsuffisante);
  } catch (const std::system_error& erreur) {
    return Erreur(NumeroDErrno(erreur.code().value()));
  } catch (const std::length_error&) {
    return Erreur(kMemoireInsuffisante);
  } catch (const std::out_of_range& faute) {
    return Erreur(kIndiceHorsSelection).Imputer(faute.what());
  } catch (const std::exception& faute) {
    return Erreur(kArgumentIncorrect).Imputer(faute.what());
  } catch (...) {
    return Erreur(kArgumentIncorrect).Imputer("exception inconnue");
  }
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
