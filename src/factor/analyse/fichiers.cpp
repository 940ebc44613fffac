#include "factor/analyse/fichiers.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"
#include "factor/fichiers/coordonnees.h"

namespace quelvar::factor {

namespace {

enum class Intitule { Aucun, Colle, ApresUnBlanc };

// What one file shows of one dimension of the table.
struct FormatCoordonnees {
  std::string_view extension;
  Precision precision;
  Intitule intitule;
};

struct CoteAEcrire {
  const ElementsAnecar& elements;
  const MargesDesEcarts& marges;
  CoteFacteur FacteurAnecar::*cote;
};

void EcrireFichier(Ecrivain& fichier, const AnalyseAnecar& analyse, const CoteAEcrire& source,
                   const std::vector<double>& signes, const std::vector<std::size_t>& ordre,
                   const FormatCoordonnees& format) {
  const double total = analyse.ecarts.Inertie(analyse.type);
  // Four decimals tell small coordinates as they are.
  const double echelle = format.precision == Precision::Milliemes ? analyse.echelle : 1;
  std::string ligne;
  for (const std::size_t i : ordre) {
    ligne = DebutDeLigne(source.elements.noms[i], InertiePourMille(source.marges.inertie[i], total));
    for (std::size_t k = 0; k < analyse.facteurs.size(); ++k) {
      const CoteFacteur& cote = analyse.facteurs[k].*source.cote;
      AjouterFacteur(ligne, echelle * cote.coordonnees[i] * signes[k], cote.cpf[i], format.precision);
    }
    if (format.intitule == Intitule::ApresUnBlanc) ligne += ' ';
    if (format.intitule != Intitule::Aucun) ligne += source.elements.intitules[i];
    fichier.Ligne(ligne);
  }
}

std::vector<double> SignesDesFacteurs(std::size_t facteurs, const InversionsDeFacteurs& inversions,
                                      bool classification) {
  std::vector<double> signes(facteurs, 1);
  if (facteurs > inversions.size() && !classification) return signes;
  for (std::size_t k = 0; k < std::min(facteurs, inversions.size()); ++k)
    if (inversions[k]) signes[k] = -1;
  return signes;
}

}  // namespace

std::string_view DerniereAnalyse(const Contexte& contexte) {
  const std::optional<Chemin> afc = contexte.Chercher(".AFC");
  const std::optional<Chemin> acp = contexte.Chercher(".ACP");
  if (!acp) return ".AFC";
  if (!afc) return ".ACP";
  std::error_code sansAcp;
  std::error_code sansAfc;
  const auto dateAcp = std::filesystem::last_write_time(*acp, sansAcp);
  const auto dateAfc = std::filesystem::last_write_time(*afc, sansAfc);
  // A report that has gone since it was found is no analysis.
  if (sansAcp || sansAfc) return sansAcp ? ".AFC" : ".ACP";
  return dateAcp > dateAfc ? ".ACP" : ".AFC";
}

std::vector<double> LireValeursPropres(const Chemin& rapport) {
  double annoncees = 0;
  std::vector<double> valeurs;
  LecteurLignes lecteur(rapport);
  Situer(lecteur, [&] {
    for (std::string_view ligne; lecteur.Lire(ligne);) {
      if (ligne.starts_with(kNombreDeFacteurs)) annoncees = ValeurDe(ligne.substr(kNombreDeFacteurs.size()));
      if (!ligne.starts_with(kValeurPropre) || static_cast<double>(valeurs.size()) >= annoncees) continue;
      valeurs.push_back(ValeurDe(ligne.substr(kValeurPropre.size())));
      if (valeurs.back() < 0) throw Erreur(kArgumentIncorrect);
    }
  });
  return valeurs;
}

std::vector<double> LireParts(const Chemin& rapport) {
  std::vector<double> parts;
  LecteurLignes lecteur(rapport);
  Situer(lecteur, [&] {
    for (std::string_view ligne; lecteur.Lire(ligne);)
      if (ligne.starts_with(kPourcentage)) parts.push_back(ValeurDe(ligne.substr(kPourcentage.size())));
  });
  return parts;
}

double InertiePourMille(double inertie, double total) {
  constexpr double kInertieMaximale = 99999;  // five columns
  return total == 0 ? 0 : std::min(kMilliemesParUnite * inertie / total, kInertieMaximale);
}

void EcrireCoordonnees(const Contexte& contexte, JeuDeFichiers& sorties, const PlanAnecar& plan,
                       const TableauAnecar& tableau, const AnalyseAnecar& analyse,
                       const InversionsDeFacteurs& inversions, bool classification) {
  const std::vector<double> signes = SignesDesFacteurs(analyse.facteurs.size(), inversions, classification);
  const auto ecrire = [&](const CoteAEcrire& cote, const std::vector<std::size_t>& ordre,
                          const FormatCoordonnees& format) {
    EcrireFichier(sorties.Ouvrir(contexte.Nom(format.extension), Nature::Refaisable), analyse, cote, signes, ordre,
                  format);
  };
  const CoteAEcrire colonnes{plan.colonnes, analyse.ecarts.colonnes, &FacteurAnecar::colonnes};
  const CoteAEcrire lignes{tableau.lignes, analyse.ecarts.lignes, &FacteurAnecar::lignes};
  const auto enOrdre = [](std::size_t nombre) {
    std::vector<std::size_t> ordre(nombre);
    std::iota(ordre.begin(), ordre.end(), std::size_t{0});
    return ordre;
  };
  const std::vector<std::size_t> ordreColonnes = enOrdre(plan.colonnes.Nombre());
  const std::vector<std::size_t> ordreLignes = enOrdre(tableau.lignes.Nombre());
  ecrire(colonnes, ordreColonnes, {".FAJ", Precision::Milliemes, Intitule::Aucun});
  ecrire(colonnes, plan.positions, {".FJ2", Precision::Fine, Intitule::ApresUnBlanc});
  ecrire(lignes, ordreLignes, {".FAI", Precision::Milliemes, Intitule::Colle});
  ecrire(lignes, ordreLignes, {".FI2", Precision::Fine, Intitule::Aucun});
}

}  // namespace quelvar::factor
