#include "sorts/triapl/tableau.h"

#include <algorithm>
#include <cmath>

#include "core/texte/nombres.h"

namespace quelvar::sorts {

namespace {

constexpr std::size_t kColonnesParBloc = 15;
constexpr int kLargeurColonne = 5;
constexpr int kCodeMaxSansModalites = 36;  // from this code-max on a question has no modalities

void PoserIntitules(const Question& question, const IntitulesModalites& intitules, std::size_t codes,
                    TableauPlat& tableau) {
  auto colonne = tableau.colonnes.begin();
  for (std::size_t code = 0; code < codes; ++code) {
    const std::string nom = Joindre({question.nom, CodeCaractere(static_cast<int>(code))});
    const std::string* intitule = intitules.Chercher(nom);
    if (colonne == tableau.colonnes.end() || colonne->code != static_cast<int>(code)) continue;
    if (intitule) {
      tableau.etiquete = true;
      colonne->texte = Rogner(*intitule).empty() ? nom : *intitule;
      colonne->largeur = std::max(kLargeurColonne, static_cast<int>(colonne->texte.size()) + 1);
    }
    ++colonne;
  }
}

int Chiffres(double effectif) { return static_cast<int>(Nombre(ArrondirPair(effectif)).size()); }

void Elargir(TableauPlat& tableau) {
  for (ColonneCode& colonne : tableau.colonnes) {
    if (colonne.effectif <= 9999) continue;
    colonne.largeur = std::max(colonne.largeur, Chiffres(colonne.effectif) + 1);
    tableau.elargi = true;
  }
  if (tableau.total <= 9999) return;
  const int supplement = Chiffres(tableau.total) - tableau.largeurTotal;
  tableau.prefixe.assign(static_cast<std::size_t>(supplement), ' ');
  tableau.budget -= supplement;
  tableau.largeurTotal += supplement;
  tableau.elargi = true;
}

TableauPlat RetenirPresents(const std::vector<double>& effectifs, std::size_t premierCode, double total) {
  TableauPlat tableau;
  tableau.total = total;
  for (std::size_t code = premierCode; code < effectifs.size(); ++code)
    if (effectifs[code] > 0)
      tableau.colonnes.push_back(
          {static_cast<int>(code), effectifs[code], PartEnDixiemes(effectifs[code], total), {}, kLargeurColonne});
  return tableau;
}

}  // namespace

std::int64_t PartEnDixiemes(double effectif, double total) {
  return total == 0 ? 0 : Entier64(std::floor(1000 * effectif / total + 0.5));
}

TableauPlat DresserTableau(const Question& question, const std::vector<double>& effectifs, double total,
                           const IntitulesModalites* intitules) {
  TableauPlat tableau = RetenirPresents(effectifs, 0, total);
  if (intitules && question.codeMax < kCodeMaxSansModalites)
    PoserIntitules(question, *intitules, effectifs.size(), tableau);
  Elargir(tableau);
  return tableau;
}

TableauPlat DresserCumul(const std::vector<double>& effectifs, double total) {
  return RetenirPresents(effectifs, 1, total);
}

std::vector<Bloc> DecouperEnBlocs(const TableauPlat& tableau) {
  std::vector<Bloc> blocs;
  const bool parLargeur = tableau.etiquete || tableau.elargi;
  int somme = 0;
  for (std::size_t i = 0; i < tableau.colonnes.size(); ++i) {
    somme += tableau.colonnes[i].largeur;
    const bool plein = parLargeur ? somme > tableau.budget : i % kColonnesParBloc == 0;
    if (blocs.empty() || plein) {
      blocs.push_back({i, i});
      somme = tableau.colonnes[i].largeur;
    }
    blocs.back().fin = i + 1;
  }
  return blocs;
}

EffectifsTriangle TriangleDe(const std::vector<double>& effectifs) {
  EffectifsTriangle triangle{};
  for (std::size_t code = 1; code <= triangle.size() && code < effectifs.size(); ++code)
    triangle[code - 1] = effectifs[code];
  return triangle;
}

}  // namespace quelvar::sorts
