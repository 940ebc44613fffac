// A matrix of doubles, contiguous by rows, indexed from 0.
#pragma once

#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace quelvar {

class Matrice {
 public:
  Matrice() = default;
  Matrice(std::size_t lignes, std::size_t colonnes, double valeur = 0)
      : lignes_(lignes), colonnes_(colonnes), valeurs_(lignes * colonnes, valeur) {}
  // Takes the values row by row; there must be one for each place.
  Matrice(std::size_t lignes, std::size_t colonnes, std::vector<double> valeurs)
      : lignes_(lignes), colonnes_(colonnes), valeurs_(std::move(valeurs)) {}

  std::size_t Lignes() const { return lignes_; }
  std::size_t Colonnes() const { return colonnes_; }

  double& operator()(std::size_t i, std::size_t j) { return valeurs_[i * colonnes_ + j]; }
  double operator()(std::size_t i, std::size_t j) const { return valeurs_[i * colonnes_ + j]; }
  std::span<double> Ligne(std::size_t i) { return std::span(valeurs_).subspan(i * colonnes_, colonnes_); }
  std::span<const double> Ligne(std::size_t i) const { return std::span(valeurs_).subspan(i * colonnes_, colonnes_); }
  // All rows, one behind the other.
  std::span<double> Valeurs() { return valeurs_; }
  std::span<const double> Valeurs() const { return valeurs_; }

 private:
  std::size_t lignes_ = 0;
  std::size_t colonnes_ = 0;
  std::vector<double> valeurs_;
};

}  // namespace quelvar
