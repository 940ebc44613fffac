#include "core/programme/constats.h"

#include "core/programme/programme.h"

namespace quelvar {

void Constats::Dire(Rapport& rapport, const Dialogue& ecran) const {
  for (const Fait& fait : faits_) {
    switch (fait.maniere) {
      case Maniere::Ligne: rapport.Ligne(fait.texte); break;
      case Maniere::Alerte: Avertir(rapport, ecran, fait.texte); break;
      case Maniere::Boite: ecran.demander(fait.texte, Boutons::Ok); break;
    }
  }
}

}  // namespace quelvar
