#include "factor/analyse/facteurs.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "factor/analyse/premier.h"
#include "factor/analyse/tri.h"
#include "factor/fichiers/coordonnees.h"

namespace quelvar::factor {

namespace {

// Thousandths as they are kept: rows in double, columns in single precision.
double MillemeLigne(double f) { return kMilliemesParUnite * f; }
double MillemeColonne(double g) { return static_cast<double>(Simple(kMilliemesParUnite * g)); }

CoteFacteur DresserCote(const std::vector<double>& coordonnees, const MargesDesEcarts& marges, double valeurPropre,
                        double (*milleme)(double), std::vector<std::int16_t>& qlt) {
  CoteFacteur cote;
  const std::size_t nombre = coordonnees.size();
  cote.coordonnees.reserve(nombre);
  cote.cpf.reserve(nombre);
  cote.cos2.reserve(nombre);
  for (std::size_t i = 0; i < nombre; ++i) {
    cote.coordonnees.push_back(milleme(coordonnees[i]));
    cote.cpf.push_back(Contribution(marges.poids[i], coordonnees[i], valeurPropre));
    cote.cos2.push_back(Cos2(marges.poids[i], coordonnees[i], marges.inertie[i]));
    qlt[i] = Entier16(qlt[i] + cote.cos2.back());
  }
  return cote;
}

double PartDe(double fois, double valeurPropre, double inertie) {
  return inertie == 0 ? 0 : fois * valeurPropre / inertie;
}

}  // namespace

Reconstitution ReconstituerEcarts(const TableauAnecar& tableau, const Ecarts& ecarts, const FacteurCourant& facteur) {
  const double n = ecarts.effectif;
  const double s = facteur.valeurSinguliere;
  if (n < 0) throw Erreur(kArgumentIncorrect);
  Reconstitution rendue{Matrice(tableau.actives.Lignes(), tableau.actives.Colonnes()), {}, {}, n, s};
  const auto element = [&](double poids, double coordonnee) {
    return ElementReconstitue{100 * poids, kMilliemesParUnite * coordonnee,
                              s == 0 ? 0 : std::sqrt(n) * poids * coordonnee / std::sqrt(s)};
  };
  for (std::size_t i = 0; i < rendue.effectifs.Lignes(); ++i) {
    const double poids = ecarts.lignes.poids[i];
    rendue.lignes.push_back(element(poids, facteur.f[i]));
    for (std::size_t j = 0; j < rendue.effectifs.Colonnes(); ++j)
      rendue.effectifs(i, j) = s == 0 ? 0 : n * poids * ecarts.colonnes.poids[j] * facteur.f[i] * facteur.g[j] / s;
  }
  for (std::size_t j = 0; j < rendue.effectifs.Colonnes(); ++j)
    rendue.colonnes.push_back(element(ecarts.colonnes.poids[j], facteur.g[j]));
  return rendue;
}

AnalyseAnecar CommencerAnalyse(TableauAnecar& tableau, TypeAnalyse type) {
  AnalyseAnecar analyse;
  analyse.type = type;
  analyse.ecarts = CalculerEcarts(tableau.actives, type);
  if (tableau.lignesSup)
    tableau.lignesSup->Modifier(
        [&](std::size_t, std::span<float> ligne) { CalculerEcartsLigneSup(ligne, type, analyse.ecarts); });
  CalculerEcartsColonnesSup(tableau.colonnesSup, type, analyse.ecarts);
  analyse.qltLignes.assign(analyse.ecarts.lignes.poids.size(), 0);
  analyse.qltColonnes.assign(analyse.ecarts.colonnes.poids.size(), 0);
  return analyse;
}

FacteurCourant ExtraireFacteur(TableauAnecar& tableau, AnalyseAnecar& analyse,
                               const std::function<void(std::int64_t)>& suivre) {
  const Ecarts& ecarts = analyse.ecarts;
  const std::size_t actives = tableau.actives.Lignes();
  const VecteursSinguliers vecteurs =
      PremierePaire(tableau.actives, ecarts, ecarts.Inertie(analyse.type),
                    Iterer(tableau.actives, ecarts, ToursAuPlus(tableau.actives), suivre));
  FacteurCourant courant{vecteurs.lignes, vecteurs.colonnes, vecteurs.valeur};

  const std::vector<double> sup = ProjeterColonnesSup(tableau.colonnesSup, ecarts, vecteurs);
  courant.g.insert(courant.g.end(), sup.begin(), sup.end());
  if (tableau.lignesSup)
    tableau.lignesSup->Parcourir([&](std::size_t rang, std::span<const float> ligne) {
      courant.f.push_back(ProjeterLigneSup(ligne, ecarts, vecteurs, actives + rang));
    });
  for (double& f : courant.f) f *= vecteurs.valeur;
  for (double& g : courant.g) g *= vecteurs.valeur;

  FacteurAnecar facteur;
  facteur.valeurPropre = vecteurs.valeur * vecteurs.valeur;
  const double inertie = ecarts.Inertie(analyse.type);
  facteur.pourcentage = PartDe(100, facteur.valeurPropre, inertie);
  facteur.part = Entier16(PartDe(kMilliemesParUnite, facteur.valeurPropre, inertie));
  facteur.tours = vecteurs.tours;
  facteur.converge = vecteurs.converge;
  facteur.lignes = DresserCote(courant.f, ecarts.lignes, facteur.valeurPropre, MillemeLigne, analyse.qltLignes);
  facteur.colonnes = DresserCote(courant.g, ecarts.colonnes, facteur.valeurPropre, MillemeColonne, analyse.qltColonnes);
  analyse.sommeParts += facteur.part;
  analyse.facteurs.push_back(std::move(facteur));
  return courant;
}

namespace {

// Those of the positions from `premier` to before `fin`.
std::vector<std::size_t> PositionsTriees(const CoteFacteur& cote, std::size_t premier, std::size_t fin, int seuil) {
  std::vector<int> cles;
  cles.reserve(fin - premier);
  for (std::size_t i = premier; i < fin; ++i) {
    const double f = cote.coordonnees[i];
    cles.push_back(f > 0 ? cote.cpf[i] : f < 0 ? -cote.cpf[i] : 0);
  }
  std::vector<std::size_t> positions;
  for (const std::size_t rang : OrdreParEchanges(cles))
    if (cote.cpf[premier + rang] >= seuil) positions.push_back(premier + rang);
  return positions;
}

}  // namespace

ListeTriee TrierElements(const ElementsAnecar& elements, CoteFacteur cote, double echelle, int seuil) {
  for (double& coordonnee : cote.coordonnees) coordonnee *= echelle;
  ListeTriee liste{elements, std::move(cote), {}, {}};
  liste.actifs = PositionsTriees(liste.cote, 0, elements.actifs, seuil);
  liste.supplementaires = PositionsTriees(liste.cote, elements.actifs, elements.Nombre(), seuil);
  return liste;
}

std::int16_t CpfMoyen(std::size_t actifs) { return Entier16(kMilliemesParUnite / static_cast<double>(actifs)); }

double EchelleDesCoordonnees(const AnalyseAnecar& analyse) {
  constexpr double kTroisChiffres = 100;  // of the largest coordinate
  constexpr double kPlusGrande = 1e15;    // coordinates that need more are the rounding of doubles
  double maximum = 0;
  for (const FacteurAnecar& facteur : analyse.facteurs)
    for (const CoteFacteur* cote : {&facteur.lignes, &facteur.colonnes})
      for (const double coordonnee : cote->coordonnees) maximum = std::max(maximum, std::fabs(coordonnee));
  double echelle = 1;
  if (analyse.type != TypeAnalyse::Acp || maximum == 0) return echelle;
  while (ArrondirPair(maximum * echelle) < kTroisChiffres && echelle < kPlusGrande) echelle *= 10;
  return echelle;
}

void DeflaterActives(TableauAnecar& tableau, AnalyseAnecar& analyse, const FacteurCourant& facteur) {
  Deflater(tableau.actives, analyse.ecarts, facteur.EnComposante());
  analyse.ecarts.temoin = LigneTemoin(tableau.actives);
}

void DeflaterSupplementaires(TableauAnecar& tableau, const AnalyseAnecar& analyse, const FacteurCourant& facteur) {
  const Composante composante = facteur.EnComposante();
  const std::size_t actives = tableau.actives.Lignes();
  if (tableau.lignesSup)
    tableau.lignesSup->Modifier([&](std::size_t rang, std::span<float> ligne) {
      DeflaterLigneSup(ligne, analyse.ecarts, composante, actives + rang);
    });
  Deflater(tableau.colonnesSup, analyse.ecarts, composante, tableau.actives.Colonnes());
}

}  // namespace quelvar::factor
