#include "modalities/regroupement/regroupement.h"

#include <algorithm>

#include "core/chiffres/nombres.h"
#include "core/enquete/brtfile.h"
#include "core/enquete/colonnes.h"
#include "core/panne/erreur.h"
#include "core/programme/rapport.h"

namespace quelvar::modalities {

namespace {

bool Marque(const std::vector<char>& marques) { return std::find(marques.begin(), marques.end(), 1) != marques.end(); }

// A row after the columns have been grouped.
class RangeeRegroupee {
 public:
  RangeeRegroupee(const PlanDeRegroupement& plan, int largeur, CellulesDouteuses& douteuses)
      : plan_(plan), largeur_(largeur), avecGroupe_(plan.AvecColonnes()), douteuses_(douteuses) {
    cellules_ =
        static_cast<std::size_t>(std::count(plan.colonnes.begin(), plan.colonnes.end(), 0)) + (avecGroupe_ ? 1 : 0);
  }

  // Builds the row of that rank; false when the sum of its marked cells does not fit. All cells of a marked one are
  // added up.
  bool Lire(std::string_view ligne, std::int64_t rang, bool ligneMarquee) {
    const auto ancienne = static_cast<std::size_t>(plan_.ancienneLargeur);
    const auto largeur = static_cast<std::size_t>(largeur_);
    texte_ = CadreGauche(ligne, kLargeurDeModalite);
    double somme = 0;
    std::size_t colonne = kLargeurDeModalite;
    std::size_t numero = 0;
    for (const char marquee : plan_.colonnes) {
      const std::string_view cellule = colonne < ligne.size() ? ligne.substr(colonne, ancienne) : std::string_view{};
      colonne += ancienne;
      ++numero;
      if ((marquee != 0 || ligneMarquee) && !EstEffectif(cellule, ancienne) && douteuses_.nombre++ == 0)
        douteuses_.premiere =
            Joindre({"ligne ", Nombre(rang + 1), ", colonne ", Nombre(numero), " (", Rogner(cellule), ")"});
      if (marquee != 0) {
        somme += ValeurDe(cellule);
      } else {
        texte_.append(largeur - ancienne, ' ');
        texte_ += cellule;
        texte_.append(ancienne - cellule.size(), ' ');
      }
    }
    if (avecGroupe_) {
      const std::string groupe = NombreFixe(somme, largeur_, 0);
      if (groupe.size() > largeur) return false;
      texte_ += groupe;
    }
    if (colonne < ligne.size()) texte_ += ligne.substr(colonne);
    return true;
  }

  const std::string& Texte() const { return texte_; }
  std::string Nom() const { return texte_.substr(0, kLargeurDeModalite); }
  std::size_t Cellules() const { return cellules_; }
  double Cellule(std::size_t j) const {
    return ValeurDe(std::string_view(texte_).substr(kLargeurDeModalite + j * static_cast<std::size_t>(largeur_),
                                                    static_cast<std::size_t>(largeur_)));
  }
  double Frequence() const {
    if (cellules_ == 0) return 0;
    return Cellule(avecGroupe_ ? cellules_ - 1 : 0);
  }

 private:
  const PlanDeRegroupement& plan_;
  int largeur_;
  bool avecGroupe_;
  CellulesDouteuses& douteuses_;
  std::size_t cellules_ = 0;
  std::string texte_;
};

// The sums of the marked rows.
struct LigneDuGroupe {
  std::vector<double> sommes;

  void Ajouter(const RangeeRegroupee& rangee) {
    sommes.resize(rangee.Cellules(), 0);
    for (std::size_t j = 0; j < sommes.size(); ++j) sommes[j] += rangee.Cellule(j);
  }
  // Its row; nothing when a sum does not fit.
  std::optional<std::string> Ligne(const std::string& nom, int largeur) const {
    std::string ligne = nom;
    for (const double somme : sommes) {
      const std::string cellule = NombreFixe(somme, largeur, 0);
      if (cellule.size() > static_cast<std::size_t>(largeur)) return std::nullopt;
      ligne += cellule;
    }
    return ligne;
  }
};

}  // namespace

bool PlanDeRegroupement::AvecColonnes() const { return Marque(colonnes); }
bool PlanDeRegroupement::AvecLignes() const { return Marque(lignes); }

std::vector<char>::const_iterator PlanDeRegroupement::FinDesActives() const {
  const auto actives = std::min(lignes.size(), static_cast<std::size_t>(lignesActives));
  return lignes.begin() + static_cast<std::ptrdiff_t>(actives);
}

bool PlanDeRegroupement::GroupeActif() const {
  return std::find(lignes.begin(), FinDesActives(), 1) != FinDesActives();
}

BilanDeRegroupement Regrouper(const Chemin& brt, const PlanDeRegroupement& plan, int largeur, Ecrivain& sortie) {
  if (plan.ancienneLargeur < 1) throw Erreur(kArgumentIncorrect);
  BilanDeRegroupement bilan;
  RangeeRegroupee rangee(plan, largeur, bilan.douteuses);
  LigneDuGroupe groupe;
  const bool groupeActif = plan.GroupeActif();
  bool groupeEcrit = !plan.AvecLignes();
  const auto derniereMarquee =
      static_cast<std::int64_t>(plan.lignes.rend() - std::find(plan.lignes.rbegin(), plan.lignes.rend(), 1)) - 1;
  std::string suite;  // supplementary rows before the last marked one: they follow the group's
  const auto ecrireGroupe = [&] {
    groupeEcrit = true;
    const std::optional<std::string> ligne = groupe.Ligne(plan.nomCourt, largeur);
    bilan.ligneTropLarge = !ligne;
    if (ligne) sortie.Ligne(*ligne);
    sortie.Ecrire(suite);
    ++bilan.rangees;
  };
  std::int64_t rang = 0;
  LecteurLignes lecteur(brt);
  for (std::string_view ligne; lecteur.Lire(ligne); ++rang) {
    if (Rogner(ligne).empty()) continue;
    const bool active = rang < plan.lignesActives;
    if (!active && groupeActif && !groupeEcrit && rang > derniereMarquee) ecrireGroupe();
    const bool marquee =
        static_cast<std::size_t>(rang) < plan.lignes.size() && plan.lignes[static_cast<std::size_t>(rang)] != 0;
    if (!rangee.Lire(ligne, rang, marquee)) {
      bilan.colonneTropLarge = true;
      return bilan;
    }
    if (marquee) {
      groupe.Ajouter(rangee);
      bilan.lignes.push_back({rangee.Nom(), rangee.Frequence()});
      bilan.frequence += bilan.lignes.back().frequence;
      continue;
    }
    if (!active && groupeActif && !groupeEcrit) suite += rangee.Texte() + "\r\n";
    else sortie.Ligne(rangee.Texte());
    ++bilan.rangees;
    if (!active) ++bilan.lignesSup;
  }
  if (groupeEcrit) return bilan;
  ecrireGroupe();
  if (!groupeActif) ++bilan.lignesSup;
  return bilan;
}

}  // namespace quelvar::modalities
