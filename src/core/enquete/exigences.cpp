#include "core/enquete/exigences.h"

#include "core/programme/erreur.h"

namespace quelvar {

std::string_view MessageParentheses() {
  return "Il y a des incohérences dans les parenthèses de ligne 2 du fichier *.POS, corrigez et relancez "_w;
}

void ExigerParentheses(const LigneTaille& taille, const Dialogue& dialogue) {
  if (!taille.parenthesesFautives) return;
  dialogue.demander(MessageParentheses(), Boutons::Ok);
  throw Erreur(kArretAnnonce);
}

}  // namespace quelvar
