#include "capture/apercu/choix/devenir.h"

#include <algorithm>

#include "capture/apercu/choix/refus.h"
#include "capture/apercu/choix/textes.h"
#include "core/chiffres/nombres.h"

namespace quelvar::capture {

namespace {

constexpr std::int64_t kPartRare = 5;  // one in so many cells is rare

// ", NSP et NR comptent pour 0".
std::string DireZeros(const ChoixDeColonne& choix) {
  std::string noms;
  for (const std::string& texte : choix.nonReponses) noms.append(noms.empty() ? ", " : " et ").append(texte);
  if (noms.empty()) return {};
  return noms + (choix.nonReponses.size() > 1 ? " comptent pour 0" : " compte pour 0");
}

std::string DevenirTextes(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  const std::int64_t nombre = TextesACoder(choix, colonne);
  if (nombre == 1) return Joindre({"1 texte devient le code 1, avec son intitulé"_w});
  std::string phrase = Joindre({Nombre(nombre), " textes deviennent des codes, "});
  phrase += choix.ordre == Ordre::Alphabetique ? std::string("dans l'ordre alphabétique"_w)
            : choix.ordre == Ordre::Frequence  ? Joindre({"du plus fréquent au plus rare"_w})
                                               : Joindre({"dans l'ordre donné"_w});
  return Joindre({phrase, ", avec leurs intitulés"_w});
}

}  // namespace

std::string_view NomGenre(Genre genre) {
  switch (genre) {
    case Genre::Codes: return "codes";
    case Genre::Textes: return "textes";
    case Genre::Classes: return "classes";
    case Genre::Nombres: return "nombres";
    case Genre::Multiple: return "multiple";
    case Genre::Longs: return "longs";
    case Genre::Numero: return "numero";
    case Genre::Ecartee: return "ecartee";
    case Genre::Alphabetique: return "alphabetique";
  }
  return {};
}

std::string_view LibelleGenre(Genre genre) {
  switch (genre) {
    case Genre::Codes: return "codes";
    case Genre::Textes: return "textes en codes";
    case Genre::Classes: return "nombres en classes";
    case Genre::Nombres: return "nombres gardés"_w;
    case Genre::Multiple: return "réponses multiples"_w;
    case Genre::Longs: return "textes longs";
    case Genre::Numero: return "numéro de l'individu"_w;
    case Genre::Ecartee: return "laissée de côté"_w;
    case Genre::Alphabetique: return "textes tels quels"_w;
  }
  return {};
}

std::string Devenir(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  switch (choix.genre) {
    case Genre::Codes:
      if (FautesRestantes(choix, colonne) > 0)
        return Joindre(
            {Nombre(FautesRestantes(choix, colonne)), " cellules ne sont pas des codes : l'import s'arrête"_w});
      return "codes repris tels quels";
    case Genre::Textes: return DevenirTextes(choix, colonne);
    case Genre::Classes:
      if (SansBornes(choix)) return std::string("classes sans bornes : l'import s'arrête"_w);
      return choix.bornes.empty()
                 ? Joindre({"nombres rangés en "_w, Nombre(choix.groupes), " groupes égaux"_w})
                 : Joindre({"nombres rangés en classes selon "_w, Nombre(choix.bornes.size()), " bornes"});
    case Genre::Nombres:
      if (FautesRestantes(choix, colonne) > 0)
        return Joindre(
            {Nombre(FautesRestantes(choix, colonne)), " cellules ne sont pas des nombres : l'import s'arrête"_w});
      if (colonne.avecDecimales > 0 && colonne.avecDecimales * kPartRare <= colonne.remplies)
        return Joindre({"nombres gardés tels quels, sous le générique suivi de N ("_w, Nombre(colonne.avecDecimales),
                        " seulement avec décimales : fautes de frappe ?)"_w});
      return Joindre({"nombres gardés tels quels, sous le générique suivi de N"_w});
    case Genre::Multiple:
      return choix.liste != '\0'
                 ? Joindre({"une question de 1 et 0 pour chacune des ", Nombre(colonne.elements.size()), " réponses"_w})
                 : Joindre({"une question : 1 pour la réponse, 0 sans elle"_w, DireZeros(choix)});
    case Genre::Longs: return Joindre({"textes mis dans le fichier .TXT, pour le découpage en mots"_w});
    case Genre::Numero: return Joindre({"numéro de l'individu : dans .DAT, pas dans .POS"_w});
    case Genre::Alphabetique: return Joindre({"textes gardés tels quels : une question alphabétique"_w});
    case Genre::Ecartee:
      switch (colonne.contenu) {
        case Contenu::Vide: return Joindre({"vide : laissée de côté"_w});
        case Contenu::Dates: return Joindre({"dates : laissée de côté"_w});
        case Contenu::TextesUniques: return Joindre({"textes tous différents : laissée de côté"_w});
        default: return Joindre({"laissée de côté"_w});
      }
  }
  return {};
}

bool ToutEstCodes(const std::vector<ChoixDeColonne>& choix) {
  return std::ranges::all_of(choix, [](const ChoixDeColonne& c) {
    return c.nonReponses.empty() && (c.genre == Genre::Codes || c.genre == Genre::Numero);
  });
}

}  // namespace quelvar::capture
