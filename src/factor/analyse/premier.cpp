#include "factor/analyse/premier.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "core/calcul/hachage.h"
#include "core/chiffres/nombres.h"
#include "factor/analyse/produits.h"

namespace quelvar::factor {

namespace {

using Vecteur = std::vector<double>;

constexpr std::size_t kBaseMaximale = 48;       // directions kept at once
constexpr std::size_t kBaseReprise = 12;        // those that a restart keeps
constexpr std::size_t kBaseMinimale = 8;        // directions before the check may end
constexpr std::size_t kProduitsMaximum = 3000;  // with the table: far fewer than the iteration that is checked may take
constexpr double kPrecision = 1e-9;             // of an eigenvalue, relative
constexpr double kVoisinage = 1e-6;             // residual of a second eigenvalue that is known well enough
constexpr double kEcart = 1e-8;                 // an eigenvalue larger by that part is another one
constexpr double kBruit = 1e-12;                // part of the inertia below which there is only rounding

double Produit(const Vecteur& x, const Vecteur& y) { return std::inner_product(x.begin(), x.end(), y.begin(), 0.0); }

void Ajouter(Vecteur& y, double c, const Vecteur& x) {
  for (std::size_t i = 0; i < y.size(); ++i) y[i] += c * x[i];
}

// The symmetric form of the deviations over the columns: G = C^(-1/2) d' R^(-1) d C^(-1/2), whose eigenvalues are those
// of the table. A weight of 0 stands for 1, as in the iteration.
class Operateur {
 public:
  Operateur(const Matrice& d, const Ecarts& ecarts) : d_(d), lignes_(d.Lignes()) {
    for (std::size_t j = 0; j < d.Colonnes(); ++j) racines_.push_back(std::sqrt(NonNul(ecarts.colonnes.poids[j])));
    for (std::size_t i = 0; i < d.Lignes(); ++i) poids_.push_back(NonNul(ecarts.lignes.poids[i]));
  }

  std::size_t Taille() const { return racines_.size(); }

  Vecteur operator()(const Vecteur& u) const {
    // Both products of a few rows while the processor holds them.
    constexpr std::size_t kLignes = 8;
    const Vecteur b = VersColonnes(u);
    Vecteur a(lignes_);
    Vecteur y(Taille());
    for (std::size_t debut = 0; debut < lignes_; debut += kLignes) {
      const std::size_t fin = std::min(debut + kLignes, lignes_);
      LignesParVecteur(d_, debut, fin, b.data(), a.data());
      for (std::size_t i = debut; i < fin; ++i) a[i] /= poids_[i];
      AjouterLignes(d_, debut, fin, a.data(), y.data());
    }
    for (std::size_t j = 0; j < y.size(); ++j) y[j] /= racines_[j];
    return y;
  }

  // Between the vectors of the form and the vectors b of the columns.
  Vecteur VersColonnes(const Vecteur& u) const {
    Vecteur b(u);
    for (std::size_t j = 0; j < b.size(); ++j) b[j] /= racines_[j];
    return b;
  }
  Vecteur DepuisColonnes(const Vecteur& b) const {
    Vecteur u(b);
    for (std::size_t j = 0; j < u.size(); ++j) u[j] *= racines_[j];
    return u;
  }

  // The pair of singular vectors that b stands for, brought to norm 1.
  VecteursSinguliers Paire(const Vecteur& u) const {
    VecteursSinguliers paire;
    paire.colonnes = VersColonnes(u);
    double s2 = 0;
    for (std::size_t i = 0; i < lignes_; ++i) {
      const std::span<const double> ligne = d_.Ligne(i);
      const double a = std::inner_product(ligne.begin(), ligne.end(), paire.colonnes.begin(), 0.0);
      paire.lignes.push_back(a / poids_[i]);
      s2 += a * a / poids_[i];
    }
    paire.valeur = std::sqrt(s2);
    if (paire.valeur != 0)
      for (double& a : paire.lignes) a /= paire.valeur;
    return paire;
  }

 private:
  static double NonNul(double poids) { return poids == 0 ? 1 : poids; }

  const Matrice& d_;
  std::size_t lignes_;
  Vecteur racines_;  // of the column weights
  Vecteur poids_;    // of the rows
};

constexpr double kRienDeNeuf = 1e-10;  // left of a direction of length 1 when what is known is taken off

// The space in use: orthonormal directions, their images, and the best eigenpairs in it.
class Espace {
 public:
  explicit Espace(const Operateur& operateur) : operateur_(operateur) {}

  std::size_t Dimension() const { return base_.size(); }
  std::size_t Produits() const { return produits_; }
  double Valeur(std::size_t rang) const { return ritz_.valeurs[rang]; }
  Vecteur Vecteurs(std::size_t rang) const { return Combiner(base_, rang); }

  // Image less eigenvalue times vector.
  Vecteur Residu(std::size_t rang) const {
    Vecteur r = Combiner(images_, rang);
    Ajouter(r, -Valeur(rang), Vecteurs(rang));
    return r;
  }

  // Adds what is new in a direction; false when there is nothing.
  bool Etendre(Vecteur v) {
    const double norme = std::sqrt(Produit(v, v));
    if (!(norme > 0)) return false;
    for (double& x : v) x /= norme;
    for (int tour = 0; tour < 2; ++tour)
      for (const Vecteur& q : base_) Ajouter(v, -Produit(q, v), q);
    const double reste = std::sqrt(Produit(v, v));
    if (!(reste > kRienDeNeuf)) return false;
    for (double& x : v) x /= reste;
    base_.push_back(std::move(v));
    images_.push_back(operateur_(base_.back()));
    ++produits_;
    return true;
  }

  void Resoudre() {
    Matrice t(base_.size(), base_.size());
    for (std::size_t i = 0; i < base_.size(); ++i)
      for (std::size_t j = 0; j <= i; ++j) t(i, j) = t(j, i) = Produit(base_[i], images_[j]);
    ritz_ = DiagonaliserSymetrique(std::move(t));
  }

  // Keeps the best pairs only.
  void Reprendre(std::size_t nombre) {
    std::vector<Vecteur> base;
    std::vector<Vecteur> images;
    for (std::size_t rang = 0; rang < nombre; ++rang) {
      base.push_back(Combiner(base_, rang));
      images.push_back(Combiner(images_, rang));
    }
    base_ = std::move(base);
    images_ = std::move(images);
    Resoudre();
  }

 private:
  Vecteur Combiner(const std::vector<Vecteur>& vecteurs, std::size_t rang) const {
    Vecteur somme(operateur_.Taille());
    for (std::size_t i = 0; i < vecteurs.size(); ++i) Ajouter(somme, ritz_.vecteurs(i, rang), vecteurs[i]);
    return somme;
  }

  const Operateur& operateur_;
  std::vector<Vecteur> base_;
  std::vector<Vecteur> images_;
  ValeursEtVecteurs ritz_;
  std::size_t produits_ = 0;
};

// A direction that has a part in every factor of any table met; always the same.
Vecteur DirectionQuelconque(std::size_t taille) {
  // The linear congruential generator of D. E. Knuth (MMIX), as 53 bits after the point.
  constexpr std::uint64_t kMultiplicateur = 6364136223846793005ULL;
  constexpr std::uint64_t kIncrement = 1442695040888963407ULL;
  constexpr int kBitsDeMantisse = 53;
  constexpr double kPasParUnite = 9007199254740992.0;  // 2^53
  Vecteur v(taille);
  std::uint64_t etat = kNombreDOr;  // any start
  for (double& x : v) {
    etat = etat * kMultiplicateur + kIncrement;
    x = static_cast<double>(etat >> (64 - kBitsDeMantisse)) / kPasParUnite - 0.5;
  }
  return v;
}

// Grows the space until its first eigenvalue is known and no other can pass it.
void Explorer(Espace& espace, std::size_t taille) {
  espace.Resoudre();
  while (espace.Dimension() < taille && espace.Produits() < kProduitsMaximum) {
    const double premiere = espace.Valeur(0);
    const Vecteur r0 = espace.Residu(0);
    const double n0 = Produit(r0, r0);
    Vecteur suivante = r0;
    if (espace.Dimension() > 1) {
      const Vecteur r1 = espace.Residu(1);
      const double seconde = espace.Valeur(1);
      const double ecart = premiere - seconde;
      const bool connue = ecart > 0 ? n0 <= kPrecision * premiere * ecart : std::sqrt(n0) <= kPrecision * premiere;
      const bool ecartee =
          seconde + std::sqrt(Produit(r1, r1)) < premiere || std::sqrt(Produit(r1, r1)) <= kVoisinage * premiere;
      if (connue && ecartee && espace.Dimension() >= std::min(taille, kBaseMinimale)) return;
      if (connue) suivante = r1;
    }
    if (espace.Dimension() >= kBaseMaximale) espace.Reprendre(kBaseReprise);
    if (!espace.Etendre(std::move(suivante)) && !espace.Etendre(espace.Residu(espace.Dimension() > 1 ? 1 : 0)) &&
        !espace.Etendre(DirectionQuelconque(taille)))
      return;
    espace.Resoudre();
  }
}

// Sign of the part that the start of the iteration has in the factor; of the row that tells most when it has none.
bool EstRenverse(const Matrice& d, const Ecarts& ecarts, const VecteursSinguliers& paire) {
  double part = 0;
  double grandeur = 0;
  std::size_t marquante = 0;
  for (std::size_t i = 0; i < paire.lignes.size(); ++i) {
    const double terme = ecarts.lignes.poids[i] * paire.lignes[i];
    part += d(i, 0) < 0 ? -terme : terme;
    grandeur += std::fabs(terme);
    if (std::fabs(paire.lignes[i]) > std::fabs(paire.lignes[marquante]) * (1 + kPrecision)) marquante = i;
  }
  if (std::fabs(part) > kPrecision * grandeur) return part < 0;
  return (d(marquante, 0) < 0) != (paire.lignes[marquante] < 0);
}

bool EstLaMemeValeur(double trouvee, double plusGrande, double inertie) {
  if (plusGrande <= kBruit * inertie) return true;
  return plusGrande - trouvee <= kEcart * plusGrande &&
         Arrondir(trouvee, kDecimalesDesValeursPropres) == Arrondir(plusGrande, kDecimalesDesValeursPropres);
}

// A rotation of two coordinates by the angle of that cosine and sine.
void Tourner(double& x, double& y, double cosinus, double sinus) {
  const double avant = x;
  x = cosinus * avant - sinus * y;
  y = sinus * avant + cosinus * y;
}

// The diagonal of m in descending order, with the columns of v in the same.
ValeursEtVecteurs Ranger(const Matrice& m, const Matrice& v) {
  const std::size_t n = m.Lignes();
  std::vector<std::size_t> ordre(n);
  std::iota(ordre.begin(), ordre.end(), std::size_t{0});
  std::ranges::stable_sort(ordre, [&](std::size_t a, std::size_t b) { return m(a, a) > m(b, b); });
  ValeursEtVecteurs resultat{{}, Matrice(n, n)};
  for (std::size_t rang = 0; rang < n; ++rang) {
    resultat.valeurs.push_back(m(ordre[rang], ordre[rang]));
    for (std::size_t i = 0; i < n; ++i) resultat.vecteurs(i, rang) = v(i, ordre[rang]);
  }
  return resultat;
}

}  // namespace

ValeursEtVecteurs DiagonaliserSymetrique(Matrice m) {
  constexpr int kToursMaximum = 60;       // some ten do, each squaring what is left; more only end a loop
  constexpr double kNegligeable = 1e-32;  // of squares: the relative rounding of a double, squared
  const std::size_t n = m.Lignes();
  Matrice v(n, n);
  for (std::size_t i = 0; i < n; ++i) v(i, i) = 1;
  for (int tour = 0; tour < kToursMaximum; ++tour) {
    double hors = 0;
    double diagonale = 0;
    for (std::size_t i = 0; i < n; ++i) {
      diagonale += m(i, i) * m(i, i);
      for (std::size_t j = 0; j < i; ++j) hors += m(i, j) * m(i, j);
    }
    if (!(hors > kNegligeable * diagonale)) break;
    for (std::size_t p = 0; p + 1 < n; ++p)
      for (std::size_t q = p + 1; q < n; ++q) {
        if (m(p, q) == 0) continue;
        const double theta = (m(q, q) - m(p, p)) / (2 * m(p, q));
        const double t = (theta < 0 ? -1 : 1) / (std::fabs(theta) + std::sqrt(theta * theta + 1));
        const double c = 1 / std::sqrt(t * t + 1);
        const double s = t * c;
        for (std::size_t k = 0; k < n; ++k) Tourner(m(k, p), m(k, q), c, s);
        for (std::size_t k = 0; k < n; ++k) Tourner(m(p, k), m(q, k), c, s);
        for (std::size_t k = 0; k < n; ++k) Tourner(v(k, p), v(k, q), c, s);
      }
  }
  return Ranger(m, v);
}

VecteursSinguliers PremierePaire(const Matrice& d, const Ecarts& ecarts, double inertie, VecteursSinguliers trouvee) {
  const auto negatif = [](double poids) { return poids < 0; };
  const auto lignes = ecarts.lignes.poids.begin();
  const auto colonnes = ecarts.colonnes.poids.begin();
  if (std::any_of(lignes, lignes + static_cast<std::ptrdiff_t>(d.Lignes()), negatif) ||
      std::any_of(colonnes, colonnes + static_cast<std::ptrdiff_t>(d.Colonnes()), negatif))
    return trouvee;
  const Operateur operateur(d, ecarts);
  Espace espace(operateur);
  espace.Etendre(operateur.DepuisColonnes(trouvee.colonnes));
  espace.Etendre(DirectionQuelconque(d.Colonnes()));
  if (espace.Dimension() == 0) return trouvee;
  Explorer(espace, d.Colonnes());
  const double valeur = trouvee.valeur * trouvee.valeur;
  if (EstLaMemeValeur(valeur, espace.Valeur(0), inertie)) return trouvee;

  VecteursSinguliers paire = operateur.Paire(espace.Vecteurs(0));
  paire.tours = trouvee.tours;
  if (EstRenverse(d, ecarts, paire)) {
    for (double& a : paire.lignes) a = -a;
    for (double& b : paire.colonnes) b = -b;
  }
  return paire;
}

}  // namespace quelvar::factor
