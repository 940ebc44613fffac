#include "factor/analyse/extraction.h"

#include <algorithm>
#include <cmath>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "factor/analyse/produits.h"
#include "factor/fichiers/coordonnees.h"

namespace quelvar::factor {

namespace {

// What one cell adds to the inertia of its row and of its column.
double InertieDeCellule(double d, double e, TypeAnalyse type) {
  if (type == TypeAnalyse::Acp) return d * d;
  return e == 0 ? 0 : d * d / e;
}

void AjouterElement(MargesDesEcarts& marges, double profil, TypeAnalyse type, double inertie) {
  marges.profil.push_back(profil);
  marges.poids.push_back(type == TypeAnalyse::Afc ? profil : 1);
  marges.inertie.push_back(inertie);
}

double DiviserSiPossible(double valeur, double diviseur) { return diviseur == 0 ? valeur : valeur / diviseur; }

// Divides the vector by its weights, then by its norm; returns the norm. Raises kArgumentIncorrect when there is none.
double Normer(std::vector<double>& vecteur, const std::vector<double>& poids) {
  double s2 = 0;
  for (std::size_t i = 0; i < vecteur.size(); ++i) {
    const double t = DiviserSiPossible(vecteur[i], poids[i]);
    s2 += t * vecteur[i];
    vecteur[i] = t;
  }
  if (!(s2 >= 0)) throw Erreur(kArgumentIncorrect);
  const double s = std::sqrt(s2);
  if (s != 0)
    for (double& v : vecteur) v /= s;
  return s;
}

}  // namespace

double EffectifTotal(const Matrice& actives) {
  double total = 0;
  for (const double cellule : actives.Valeurs()) total += cellule;
  return total;
}

Ecarts CalculerEcarts(Matrice& actives, TypeAnalyse type) {
  const std::size_t n = actives.Lignes();
  const std::size_t p = actives.Colonnes();
  Ecarts ecarts;
  ecarts.effectif = EffectifTotal(actives);
  if (!std::isfinite(ecarts.effectif)) throw Erreur(kDepassementCapacite);

  std::vector<double> profilLignes(n);
  std::vector<double> profilColonnes(p);
  for (std::size_t i = 0; i < n; ++i)
    for (std::size_t j = 0; j < p; ++j) {
      profilLignes[i] += actives(i, j);
      profilColonnes[j] += actives(i, j);
    }
  for (double& profil : profilLignes) profil /= ecarts.effectif;
  for (double& profil : profilColonnes) profil /= ecarts.effectif;

  std::vector<double> inertieColonnes(p);
  for (std::size_t i = 0; i < n; ++i) {
    double inertieLigne = 0;
    for (std::size_t j = 0; j < p; ++j) {
      const double e = profilLignes[i] * profilColonnes[j];
      const double d = actives(i, j) / ecarts.effectif - e;
      actives(i, j) = d;
      if (e != 0) ecarts.phiDeux += d * d / e;
      ecarts.sommeCarres += d * d;
      const double inertie = InertieDeCellule(d, e, type);
      inertieLigne += inertie;
      inertieColonnes[j] += inertie;
    }
    AjouterElement(ecarts.lignes, profilLignes[i], type, inertieLigne);
  }
  for (std::size_t j = 0; j < p; ++j) AjouterElement(ecarts.colonnes, profilColonnes[j], type, inertieColonnes[j]);
  ecarts.temoin = LigneTemoin(actives);
  return ecarts;
}

void CalculerEcartsColonnesSup(Matrice& colonnes, TypeAnalyse type, Ecarts& ecarts) {
  for (std::size_t j = 0; j < colonnes.Colonnes(); ++j) {
    double profil = 0;
    for (std::size_t i = 0; i < colonnes.Lignes(); ++i) profil += colonnes(i, j);
    profil /= ecarts.effectif;
    double inertie = 0;
    for (std::size_t i = 0; i < colonnes.Lignes(); ++i) {
      const double e = ecarts.lignes.profil[i] * profil;
      colonnes(i, j) = colonnes(i, j) / ecarts.effectif - e;
      inertie += InertieDeCellule(colonnes(i, j), e, type);
    }
    AjouterElement(ecarts.colonnes, profil, type, inertie);
  }
}

void CalculerEcartsLigneSup(std::span<float> ligne, TypeAnalyse type, Ecarts& ecarts) {
  double profil = 0;
  for (const float cellule : ligne) profil += static_cast<double>(cellule);
  profil /= ecarts.effectif;
  double inertie = 0;
  for (std::size_t j = 0; j < ligne.size(); ++j) {
    const double e = profil * ecarts.colonnes.profil[j];
    ligne[j] = Simple(static_cast<double>(ligne[j]) / ecarts.effectif - e);
    inertie += InertieDeCellule(static_cast<double>(ligne[j]), e, type);
  }
  AjouterElement(ecarts.lignes, profil, type, inertie);
}

std::size_t LigneTemoin(const Matrice& d) {
  double plusGrand = 0;
  std::size_t temoin = 0;
  for (std::size_t i = 0; i < d.Lignes(); ++i)
    for (const double cellule : d.Ligne(i))
      if (std::fabs(cellule) > plusGrand) {
        plusGrand = std::fabs(cellule);
        temoin = i;
      }
  return temoin;
}

std::int64_t ToursAuPlus(const Matrice& d) {
  constexpr std::int64_t kCellules = 200'000'000'000;      // looked at in all rounds: some minutes
  constexpr std::int64_t kToursAuMoins = 50'000;           // part eigenvalues that differ by three in ten thousand
  constexpr std::int64_t kToursToujoursAssez = 1'000'000;  // and by two in a hundred thousand
  const auto cellules = static_cast<std::int64_t>(std::max<std::size_t>(d.Valeurs().size(), 1));
  return std::clamp<std::int64_t>(kCellules / cellules, kToursAuMoins, kToursToujoursAssez);
}

VecteursSinguliers Iterer(const Matrice& d, const Ecarts& ecarts, std::int64_t toursAuPlus,
                          const std::function<void(std::int64_t)>& suivre) {
  constexpr double kEchelle = 1'000'000;  // the iteration ends where the witness changes by less than a millionth
  VecteursSinguliers v;
  v.lignes.assign(d.Lignes(), 1);
  v.colonnes.assign(d.Colonnes(), 0);
  for (std::size_t i = 0; i < d.Lignes(); ++i)
    if (d(i, 0) < 0) v.lignes[i] = -1;

  double changement = 0;
  for (;;) {
    suivre(++v.tours);
    const double avant = kEchelle * v.lignes[ecarts.temoin];
    const double changementPrecedent = changement;
    ProduitParColonnes(d, v.lignes.data(), v.colonnes.data());
    Normer(v.colonnes, ecarts.colonnes.poids);
    ProduitParLignes(d, v.colonnes.data(), v.lignes.data());
    v.valeur = Normer(v.lignes, ecarts.lignes.poids);
    changement = std::fabs(kEchelle * v.lignes[ecarts.temoin] - avant);
    if (std::fabs(changementPrecedent - changement) <= 1 && changement <= 1) return v;
    if (v.tours >= toursAuPlus) {
      v.converge = false;
      return v;
    }
  }
}

std::vector<double> ProjeterColonnesSup(const Matrice& colonnes, const Ecarts& ecarts,
                                        const VecteursSinguliers& vecteurs) {
  std::vector<double> b(colonnes.Colonnes());
  ProduitParColonnes(colonnes, vecteurs.lignes.data(), b.data());
  const std::size_t actives = vecteurs.colonnes.size();
  for (std::size_t j = 0; j < b.size(); ++j)
    b[j] = DiviserSiPossible(DiviserSiPossible(b[j], ecarts.colonnes.poids[actives + j]), vecteurs.valeur);
  return b;
}

double ProjeterLigneSup(std::span<const float> ligne, const Ecarts& ecarts, const VecteursSinguliers& vecteurs,
                        std::size_t rang) {
  double somme = 0;
  for (std::size_t j = 0; j < ligne.size(); ++j) somme += static_cast<double>(ligne[j]) * vecteurs.colonnes[j];
  return DiviserSiPossible(DiviserSiPossible(somme, ecarts.lignes.poids[rang]), vecteurs.valeur);
}

void Deflater(Matrice& d, const Ecarts& ecarts, const Composante& composante, std::size_t colonne) {
  if (composante.valeur == 0) return;
  const double* __restrict w = ecarts.colonnes.poids.data() + colonne;
  const double* __restrict g = composante.g.data() + colonne;
  for (std::size_t i = 0; i < d.Lignes(); ++i) {
    const double poids = ecarts.lignes.poids[i];
    const double f = composante.f[i];
    double* __restrict ligne = d.Ligne(i).data();
    for (std::size_t j = 0; j < d.Colonnes(); ++j) ligne[j] -= poids * w[j] * f * g[j] / composante.valeur;
  }
}

void DeflaterLigneSup(std::span<float> ligne, const Ecarts& ecarts, const Composante& composante, std::size_t rang) {
  for (std::size_t j = 0; j < ligne.size(); ++j)
    ligne[j] = Simple(static_cast<double>(ligne[j]) - Reconstituer(ecarts, composante, rang, j));
}

namespace {

// What rounding alone brings above 1000 is 1000.
std::int16_t PourMille(double valeur) {
  constexpr double kArrondi = 1e-9;
  constexpr std::int16_t kLePlusMontre = 999;  // of what is above for another reason
  return valeur > kMilliemesParUnite * (1 + kArrondi) ? kLePlusMontre : Entier16(valeur);
}

}  // namespace

std::int16_t Contribution(double poids, double coordonnee, double valeurPropre) {
  return valeurPropre == 0 ? std::int16_t{0}
                           : PourMille(kMilliemesParUnite * poids * (coordonnee * coordonnee) / valeurPropre);
}

std::int16_t Cos2(double poids, double coordonnee, double inertie) {
  return inertie > 0 ? PourMille(kMilliemesParUnite * poids * (coordonnee * coordonnee) / inertie) : std::int16_t{0};
}

}  // namespace quelvar::factor
