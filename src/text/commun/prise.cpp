#include "text/commun/prise.h"

#include <utility>

#include "core/chiffres/nombres.h"
#include "core/panne/annonce.h"
#include "core/panne/attention.h"
#include "core/programme/arret.h"

namespace quelvar::text {

namespace {

// What the box says of the letters that take more than one byte.
std::string DireLesLettres(const SourceDeTexte& source) {
  if (source.codage == Codage::Utf16) return Joindre({" : chaque lettre y occupe deux caractères"_w});
  const LettresLongues lettres = CompterLettresLongues(source.octets);
  if (lettres.nombre == 0) return {};  // only the mark is there
  return Joindre({" : "_w, Nombre(lettres.nombre),
                  " lettre(s) y occupent plusieurs caractères, la première à la ligne "_w,
                  Nombre(lettres.premiereLigne)});
}

}  // namespace

std::string PrendreTexte(Rapport& rapport, const Dialogue& ecran, std::string_view nom, SourceDeTexte source) {
  if (source.codage == Codage::PageDeCode) return std::move(source.octets);
  const std::string_view codage = source.codage == Codage::Utf16 ? "UTF-16" : "UTF-8";
  const Reponse reponse = ecran.demander(
      Joindre({"Le fichier ", nom, " est en ", codage, DireLesLettres(source),
               ".\r\nIl va être converti à la lecture (le fichier lui-même reste comme il est). L'acceptez-vous ?"_w}),
      Boutons::OuiNon);
  if (reponse != Reponse::Oui) Arreter(rapport, Joindre({kArretDuProgramme, "le fichier ", nom, " est en ", codage}));
  TexteConverti converti = Convertir(source.octets);
  if (converti.perdus > 0)
    rapport.Ligne({kAttention, Nombre(converti.perdus), " caractère(s) de "_w, nom,
                   " n'existent pas dans la page de code et deviennent \"?\" (le premier à la ligne "_w,
                   Nombre(converti.premiereLigne), ")"});
  return std::move(converti.octets);
}

}  // namespace quelvar::text
