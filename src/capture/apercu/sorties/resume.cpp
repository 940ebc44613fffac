#include "capture/apercu/sorties/resume.h"

#include <algorithm>

#include "capture/apercu/octets/cellule.h"
#include "core/chiffres/nombres.h"

namespace quelvar::capture {

namespace {

std::string AvecMilliers(std::int64_t nombre) {
  constexpr std::size_t kGroupe = 3;
  std::string texte = Nombre(nombre);
  const std::size_t premier = texte.starts_with('-') ? 1 : 0;
  for (std::size_t place = texte.size(); place > premier + kGroupe;) {
    place -= kGroupe;
    texte.insert(place, 1, kInsecable);
  }
  return texte;
}

std::string Compte(std::int64_t nombre, std::string_view un, std::string_view plusieurs) {
  return Joindre({AvecMilliers(nombre), " ", nombre < 2 ? un : plusieurs});
}

// How many columns become what.
struct Devenirs {
  std::int64_t codes = 0;
  std::int64_t numeros = 0;
  std::int64_t ecartees = 0;
  std::int64_t autres = 0;  // to be coded or classed
};

Devenirs CompterLesDevenirs(const std::vector<ChoixDeColonne>& choix) {
  const auto nombre = [&](Genre genre) { return std::ranges::count(choix, genre, &ChoixDeColonne::genre); };
  Devenirs devenirs{nombre(Genre::Codes), nombre(Genre::Numero), nombre(Genre::Ecartee)};
  devenirs.autres = static_cast<std::int64_t>(choix.size()) - devenirs.codes - devenirs.numeros - devenirs.ecartees;
  return devenirs;
}

}  // namespace

std::string DireEtat(EtatDeTable etat, const std::vector<ChoixDeColonne>& choix, const Apercu& vue) {
  if (etat == EtatDeTable::Illisible)
    return std::string("Ce fichier ne peut pas être importé ainsi : voyez ci-dessous."_w);
  if (etat == EtatDeTable::ACorriger)
    return std::string(
        "À corriger avant d'importer : les cellules en rouge, dites ci-dessous une à une. Changez ce que devient leur "
        "colonne, ou corrigez le fichier."_w);
  const std::string individus = vue.entier ? Compte(vue.faits.individus, "individu", "individus")
                                           : std::string("le compte des individus est en cours");
  const Devenirs devenirs = CompterLesDevenirs(choix);
  if (etat == EtatDeTable::ToutEnCodes)
    return Joindre({"Tout va bien : ", Compte(devenirs.codes, "colonne de codes", "colonnes de codes"),
                    devenirs.numeros > 0 ? " et le numéro de l'individu"_w : std::string_view{}, ", ", individus,
                    ". Entrée importe."_w});
  return Joindre({individus, " : ", AvecMilliers(devenirs.codes), " de codes, ", AvecMilliers(devenirs.autres),
                  " à coder ou à classer, "_w, Compte(devenirs.ecartees, "écartée"_w, "écartées"_w),
                  ". Voyez ce que chacune devient, puis Entrée importe."_w});
}

std::string DireExamen(const Apercu& vue, bool attendue) {
  if (attendue) return std::string("L'importation suivra la fin de l'examen du fichier (Échap y renonce)..."_w);
  if (!vue.entier) return "Examen du fichier entier en cours...";
  std::string phrase = Compte(vue.faits.individus + vue.faits.lignesVides, "ligne", "lignes") + " lues";
  if (vue.faits.lignesVides > 0)
    phrase += Joindre({", dont ", AvecMilliers(vue.faits.lignesVides), " vides, laissées de côté"_w});
  return phrase;
}

std::string DireReconnue(const SourceDeTable& source, const Lecture& detectee, const Lecture& enCours) {
  std::string phrase = "Reconnu dans le fichier : " + DireLecture(source, detectee);
  if (!phrase.ends_with('.')) phrase += '.';
  if (enCours != detectee) phrase += " Vous avez changé cette lecture."_w;
  return phrase;
}

std::string DireReprise(std::string_view fichier, std::size_t colonnes, std::string_view refus) {
  if (!refus.empty())
    return Joindre({"Les choix de la dernière importation ("_w, fichier, ") ne sont pas repris : ", refus});
  if (colonnes == 0) return {};
  return Joindre({"Les choix de la dernière importation ("_w, fichier, ") sont repris pour ",
                  Compte(static_cast<std::int64_t>(colonnes), "colonne", "colonnes"), "."});
}

}  // namespace quelvar::capture
