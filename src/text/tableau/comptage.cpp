#include "text/tableau/comptage.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <unordered_set>

#include "core/enquete/nomdemodalite.h"
#include "text/commun/lignedemot.h"

namespace quelvar::text {

namespace {

constexpr std::size_t kTexteDeLigne = kLargeurCode + kLargeurMot;

// Value of a code character: 1 to 9, then 10 to 35 for A to Z; 0 for all others.
std::array<std::uint8_t, 256> ValeursDesCodes() {
  std::array<std::uint8_t, 256> valeurs{};
  for (unsigned c = '1'; c <= '9'; ++c) valeurs[c] = static_cast<std::uint8_t>(c - '0');
  for (unsigned c = 'A'; c <= 'Z'; ++c) valeurs[c] = static_cast<std::uint8_t>(c - 'A' + 10);
  return valeurs;
}

// The word in progress and its counts.
class MotEnCours {
 public:
  MotEnCours(TableLexicale& table, std::int64_t frequenceMin)
      : table_(table), frequenceMin_(frequenceMin), comptes_(table.colonnes) {}

  bool Est(const char* mot) const {
    return frequence_ > 0 && std::memcmp(texte_.data() + kLargeurCode, mot, kLargeurMot) == 0;
  }

  void Ouvrir(std::string_view texte) {
    Fermer();
    if (texte.substr(kLargeurCode) < std::string_view(texte_).substr(std::min(kLargeurCode, texte_.size())))
      table_.montante = false;
    texte_ = texte;
    ++table_.motsLus;
    table_.themes = table_.themes && texte[kLargeurCode] == '_';
  }

  // Writes the row of a word that is frequent enough.
  void Fermer() {
    if (frequence_ >= frequenceMin_ && frequence_ > 0) {
      table_.lignes.push_back({texte_, frequence_});
      table_.cellules.insert(table_.cellules.end(), comptes_.begin(), comptes_.end());
      for (const std::uint32_t compte : comptes_) table_.plusGrande = std::max(table_.plusGrande, compte);
    }
    std::fill(comptes_.begin(), comptes_.end(), 0U);
    frequence_ = 0;
  }

  void Compter() { ++frequence_; }
  void CompterColonne(std::size_t colonne) { ++comptes_[colonne]; }

 private:
  TableLexicale& table_;
  std::int64_t frequenceMin_;
  std::vector<std::uint32_t> comptes_;
  std::string texte_;
  std::int64_t frequence_ = 0;
};

}  // namespace

PlanLexical PlanifierTable(const FichierPos& pos, const std::vector<std::size_t>& actives, bool codesZero) {
  PlanLexical plan;
  plan.codesZero = codesZero;
  for (const std::size_t rang : actives) {
    const Question& question = pos.questions[rang];
    plan.groupes.push_back({rang, question.position, question.codeMax, plan.noms.size()});
    for (int code = codesZero ? 0 : 1; code <= question.codeMax; ++code)
      plan.noms.push_back(NomDeModalite(question.nom, code));
  }
  return plan;
}

std::uint64_t CompterMotsFrequents(const Chemin& donnees, const ConsignesDeComptage& consignes) {
  std::uint64_t frequents = 0;
  std::int64_t frequence = 0;
  std::string dernier;
  LecteurLignes lecteur(donnees);
  for (std::string_view ligne; lecteur.Lire(ligne); ++frequence) {
    const std::string_view mot = Milieu(ligne, consignes.caracteristiques + kLargeurCode + 1, kLargeurMot);
    if (mot == dernier) continue;
    if (frequence >= consignes.frequenceMin) ++frequents;
    dernier = mot;
    frequence = 0;
  }
  return frequents + (frequence >= consignes.frequenceMin ? 1 : 0);
}

TableLexicale CompterMots(const Chemin& donnees, const PlanLexical& plan, const ConsignesDeComptage& consignes,
                          const Dialogue& ecran) {
  static const std::array<std::uint8_t, 256> valeurs = ValeursDesCodes();
  TableLexicale table;
  table.colonnes = plan.noms.size();
  MotEnCours enCours(table, consignes.frequenceMin);
  const std::size_t c = consignes.caracteristiques;
  Progression progression(ecran, consignes.individus);
  LecteurLignes lecteur(donnees);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (table.individus == consignes.individus) {
      table.suite = true;
      break;
    }
    ++table.individus;
    if (ligne.size() < c + kTexteDeLigne + kFinDeMot.size() ||
        std::memcmp(ligne.data() + c + kTexteDeLigne, kFinDeMot.data(), kFinDeMot.size()) != 0)
      consignes.horsFormat(table.individus);
    if (!enCours.Est(ligne.data() + c + kLargeurCode)) enCours.Ouvrir(ligne.substr(c, kTexteDeLigne));
    enCours.Compter();
    for (const PlanLexical::Groupe& groupe : plan.groupes) {
      int valeur = valeurs[static_cast<unsigned char>(ligne[static_cast<std::size_t>(groupe.position - 1)])];
      if (valeur > groupe.codeMax) {
        consignes.depassement(groupe.question, table.individus, valeur);
        valeur = 0;
      }
      if (plan.codesZero) enCours.CompterColonne(groupe.debut + static_cast<std::size_t>(valeur));
      else if (valeur > 0) enCours.CompterColonne(groupe.debut + static_cast<std::size_t>(valeur) - 1);
    }
    progression.Avancer();
  }
  enCours.Fermer();
  table.themes = table.themes && table.motsLus > 0;
  return table;
}

std::optional<MotRevenu> ChercherMotRevenu(const Chemin& donnees, std::size_t caracteristiques) {
  std::unordered_set<std::string> vus;
  std::string dernier;
  std::int64_t numero = 0;
  LecteurLignes lecteur(donnees);
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    ++numero;
    const std::string_view mot = Milieu(ligne, caracteristiques + kLargeurCode + 1, kLargeurMot);
    if (numero > 1 && mot == dernier) continue;
    dernier = mot;
    if (!vus.insert(dernier).second) return MotRevenu{std::string(RognerDroite(mot)), numero};
  }
  return std::nullopt;
}

void ReduireAuxThemes(TableLexicale& table, std::int64_t seuil) {
  for (std::size_t i = 0; i < table.lignes.size(); ++i) {
    std::uint32_t* const debut = table.Ligne(i);
    std::uint32_t* const fin = debut + table.colonnes;
    std::int64_t presentes = 0;
    for (std::uint32_t* cellule = debut; cellule != fin; ++cellule) {
      *cellule = *cellule > 0 ? 1 : 0;
      presentes += *cellule;
    }
    if (presentes <= seuil) continue;
    for (std::uint32_t* cellule = debut; cellule != fin; ++cellule) *cellule = 1 - *cellule;
    table.lignes[i].texte = std::string(RognerDroite(table.lignes[i].texte)) + '*';
  }
}

}  // namespace quelvar::text
