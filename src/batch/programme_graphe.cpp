#include "batch/programmes.h"
#include "factor/plan/graphe.h"

namespace quelvar::batch {

namespace {

using O = factor::OptionsGraphe;

void PoserFichier(O& options, const std::string& valeur) {
  if (!Minuscules(valeur).ends_with(".svg"))
    throw UsageIncorrect(Joindre({"l'option fichier attend un nom en .svg et non \"", valeur, "\""}));
  options.fichier = valeur;
}

Description<O>::Poser PoserAxe(std::string nom, std::string O::*membre) {
  return [nom = std::move(nom), membre](O& options, const std::string& valeur) {
    const std::string_view chiffres = std::string_view(valeur).substr(Majuscules(valeur).starts_with("C") ? 1 : 0);
    if (valeur.empty() || chiffres.size() > 3 || chiffres.find_first_not_of("0123456789") != std::string_view::npos)
      throw UsageIncorrect(Joindre(
          {"l'option ", nom, " attend le numéro d'un facteur, C ou C et ce numéro, et non \""_w, valeur, "\""}));
    options.*membre = valeur;
  };
}

double LireLimite(const std::string& nom, const std::string& valeur) {
  if (!EstNombre(valeur))
    throw UsageIncorrect(Joindre({"l'option ", nom, " attend un nombre et non \"", valeur, "\""}));
  return ValeurDe(valeur);
}

void PoserEllipses(O& options, const std::string& valeur) {
  options.ellipses.clear();
  for (const std::string& nom : NomsSepares(Minuscules(valeur))) {
    const std::string_view complet = nom;
    bool connue = false;
    for (const std::string_view genre : {"concentration", "mediane", "indicatrice"})
      if (!nom.empty() && genre.starts_with(complet)) {
        options.ellipses += genre.front();
        connue = true;
      }
    if (!connue)
      throw UsageIncorrect(
          Joindre({"l'option ellipses attend concentration, mediane, indicatrice et non \"", nom, "\""}));
  }
}

void DecrirePoints(Description<O>& description) {
  description.Libre("fichier", "NOM.svg", "GENERIQUEFac.svg", "le graphique, en SVG", PoserFichier)
      .Libre("horizontal", "N|C|CN", "1", "facteur en abscisse ; C : son CPF", PoserAxe("horizontal", &O::horizontal))
      .Alias({"textfh"})
      .Libre("vertical", "N|C|CN", "2", "facteur en ordonnée ; C : son CPF"_w, PoserAxe("vertical", &O::vertical))
      .Alias({"textfv"})
      .OuiNon("inverserx", &O::inverserX, "renverse l'axe horizontal")
      .Alias({"checkinvx"})
      .OuiNon("inversery", &O::inverserY, "renverse l'axe vertical")
      .Alias({"checkinvy"})
      .OuiNon("echanger", &O::echanger, "échange les deux axes"_w)
      .Alias({"invxy"})
      .OuiNon("pointexact", &O::pointExact, "marque la place exacte, l'intitulé à côté"_w)
      .OuiNon("contributions", &O::contributions, "taille selon la contribution")
      .Alias({"checkcontrib"})
      .OuiNon("longs", &O::longs, "intitulés longs"_w)
      .Alias({"checklong"})
      .OuiNon("information", &O::information, "ligne d'information sous le graphique")
      .Alias({"checkinfo"})
      .OuiNon("individus", &O::individus, "place aussi les individus (BRT=1)")
      .Alias({"checkindiv"})
      .Choix<factor::EnsemblePoints>("points", &O::ensemble,
                                     {{"tous", factor::EnsemblePoints::Tous},
                                      {"actifs", factor::EnsemblePoints::Actifs},
                                      {"supplementaires", factor::EnsemblePoints::Supplementaires}},
                                     "actifs et supplémentaires, ou les uns seulement"_w)
      .Entier("niveaucpf", &O::niveauCpf, 0, 1000, "CPF minimum d'un point")
      .Alias({"textboxval"})
      .Choix<factor::TailleTexte>("caracteres", &O::taille,
                                  {{"moyens", factor::TailleTexte::Moyenne},
                                   {"petits", factor::TailleTexte::Petite},
                                   {"grands", factor::TailleTexte::Grande}},
                                  "taille des caractères"_w)
      .OuiNon("gras", &O::gras, "caractères gras"_w)
      .Alias({"check1"});
}

void DecrireCadre(Description<O>& description) {
  description.Entier("zoomlargeur", &O::zoomLargeur, 10, 10000, "agrandissement en largeur, %")
      .Entier("zoomhauteur", &O::zoomHauteur, 10, 10000, "agrandissement en hauteur, %")
      .Entier("page", &O::page, 50, 400, "taille de la page autour du graphique, %")
      .Entier("droite", &O::versLaDroite, -5000, 5000, "déplace l'image vers la droite, millièmes de sa largeur"_w)
      .Entier("haut", &O::versLeHaut, -5000, 5000, "déplace l'image vers le haut, millièmes de sa hauteur"_w);
}

void DecrireLiens(Description<O>& description) {
  description.OuiNon("pem", &O::liens, "liens du fichier .PEM")
      .Alias({"checkpem"})
      .OuiNon("lignes", &O::liensDeLignes, "liens entre lignes, du fichier .PEL")
      .Alias({"chklgnpem"})
      .Entier("progressif", &O::progressif, 0, 999999999, "nombre de liens montrés, 0 pour tous"_w)
      .Alias({"checkprog"})
      .OuiNon("value", &O::values, "écrit la valeur des liens"_w)
      .Alias({"btval"})
      .Libre("ecmin", "NOMBRE", "0, ou 90 pour les liens entre lignes", "valeur minimum des liens",
             [](O& options, const std::string& valeur) { options.ecMin = LireLimite("ecmin", valeur); })
      .Alias({"ecminval"})
      .Libre("ecsup", "NOMBRE", "100", "valeur maximum des liens",
             [](O& options, const std::string& valeur) { options.ecSup = LireLimite("ecsup", valeur); })
      .Alias({"ecsupval"})
      .Libre("mode", "0|1|2", "selon points",
             "liens : 0 tous, 1 sauf entre supplémentaires, 2 sauf avec un supplémentaire"_w,
             [](O& options, const std::string& valeur) {
               if (valeur.size() != 1 || valeur[0] < '0' || valeur[0] > '2')
                 throw UsageIncorrect(Joindre({"l'option mode attend 0|1|2 et non \"", valeur, "\""}));
               options.mode = static_cast<factor::ModeArbre>(valeur[0] - '0');
             })
      .OuiNon("arbre", &O::arbre, "arbre maximum des liens")
      .Alias({"checkarbrmin"})
      .OuiNon("pajek", &O::pajek, "écrit les liens dans le fichier Pajek .net"_w)
      .Alias({"fichpajek"});
}

}  // namespace

Programme ProgrammeGraphe() {
  Description<O> description("graphe", "Graphique factoriel : points, liens, classes et ellipses (SVG, rapport .PRT)"_w,
                             factor::Graphe);
  DecrirePoints(description);
  DecrireLiens(description);
  description
      .Choix<factor::CahDuGraphe>("cah", &O::cah,
                                  {{"non", factor::CahDuGraphe::Aucune},
                                   {"lignes", factor::CahDuGraphe::Lignes},
                                   {"couleurs", factor::CahDuGraphe::Couleurs}},
                                  "arbre de la classification, ou ses classes en couleurs")
      .Alias({"checkcah"})
      .Libre("niveau", "N", "toutes les étapes"_w, "nombre d'étapes de la classification"_w,
             [](O& options, const std::string& valeur) {
               if (valeur.empty() || valeur.size() > 6 || valeur.find_first_not_of("0123456789") != std::string::npos)
                 throw UsageIncorrect(Joindre({"l'option niveau attend un nombre entier et non \"", valeur, "\""}));
               options.niveauCah = static_cast<int>(ValeurDe(valeur));
             })
      .Alias({"valcah"})
      .Entier("classes", &O::classes, 0, 99999, "niveau qui laisse tant de classes, 0 : celui de niveau="_w)
      .Alias({"valncla"})
      .Libre("ellipses", "concentration,mediane,indicatrice", "aucune", "ellipses des modalités marquées"_w,
             PoserEllipses)
      .Libre("marques", "NOM,NOM...", "aucune", "éléments marqués, par leurs noms"_w,
             [](O& options, const std::string& valeur) { options.marques = NomsSepares(valeur); });
  DecrireCadre(description);
  return description;
}

}  // namespace quelvar::batch
