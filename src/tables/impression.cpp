#include "tables/impression.h"

#include <optional>
#include <string>

#include "core/programme/erreur.h"
#include "core/texte/nombres.h"

namespace quelvar::tables {

namespace {

constexpr int kLargeurLigne = 4;  // of a row label
constexpr std::size_t kRetraitDesDeuxPremiers = 5;
constexpr std::size_t kRetrait = 7;

std::string Blancs(std::size_t nombre) { return std::string(nombre, ' '); }

std::string_view SuiteDeLaPhrase(OrdresTries tries) {
  if (tries.lignes && tries.colonnes)
    return "'ordre des lignes et des colonnes est celui du premier facteur de l'AFC du tableau";
  if (tries.colonnes) return "'ordre d'origine des lignes du tableau a été conservé"_w;
  if (tries.lignes) return "'ordre d'origine des colonnes du tableau a été conservé"_w;
  return "'ordre d'origine des lignes et des colonnes du tableau a été conservé"_w;
}

// Lines of one table: the labels once, and the width of its numbers.
class Lignes {
 public:
  Lignes(Rapport& rapport, const Presentation& presentation, int decimales)
      : rapport_(rapport), presentation_(presentation), decimales_(decimales) {}

  void Entete(std::size_t retrait, Texte fin = "") {
    rapport_.Suite(Blancs(retrait));
    for (const std::string_view colonne : presentation_.colonnes) rapport_.Suite(CadreGauche(colonne, Largeur()));
    rapport_.Ligne(fin);
  }
  // A row without its end of line.
  void Debut(std::string_view intitule, std::span<const double> valeurs) {
    rapport_.Suite(CadreGauche(intitule, kLargeurLigne));
    for (const double valeur : valeurs) rapport_.Suite(Nombre(valeur));
  }
  std::string Nombre(double valeur) const { return NombreFixe(valeur, Largeur(), decimales_); }

  void SansTotaux(const Matrice& cellules) {
    Entete(kRetrait);
    for (std::size_t i = 0; i < cellules.Lignes(); ++i) {
      Debut(presentation_.lignes[i], cellules.Ligne(i));
      rapport_.Ligne();
    }
  }
  void AvecTotaux(std::size_t retrait, const Matrice& cellules, const crosstab::TableauCompte& totaux) {
    Entete(retrait, " TOT.");
    for (std::size_t i = 0; i < cellules.Lignes(); ++i) {
      Debut(presentation_.lignes[i], cellules.Ligne(i));
      rapport_.Ligne({" ", Nombre(totaux.marges.lignes[i])});
    }
    Debut("TOT.", totaux.marges.colonnes);
    rapport_.Ligne({" ", Nombre(totaux.marges.total)});
  }

 private:
  int Largeur() const { return presentation_.largeur + 1; }

  Rapport& rapport_;
  const Presentation& presentation_;
  int decimales_;
};

void ImprimerPourcentages(Rapport& rapport, Lignes lignes, const Presentation& presentation,
                          const crosstab::DetailsDuTableau& details) {
  rapport.Ligne(Blancs(7));
  rapport.Ligne("Pourcentages en lignes et des marges ");
  lignes.Entete(kRetraitDesDeuxPremiers, "   TOT.");
  for (std::size_t i = 0; i < presentation.lignes.size(); ++i) {
    lignes.Debut(presentation.lignes[i], details.pourcentages.Ligne(i));
    rapport.Ligne({"  100 ", lignes.Nombre(details.partsLignes[i])});
  }
  lignes.Debut("TOT.", details.partsColonnes);
  rapport.Ligne("  100   100");
}

// One line of coordinates or the labels above it.
void ImprimerAxe(Rapport& rapport, std::span<const std::string_view> intitules, std::span<const double> coordonnees,
                 int largeur) {
  rapport.Suite(Blancs(5));
  for (const std::string_view intitule : intitules) rapport.Suite(CadreDroit(intitule, largeur));
  rapport.Ligne();
  rapport.Suite(Blancs(2));
  for (const double coordonnee : coordonnees) rapport.Suite(NombreFixe(1000 * coordonnee, largeur, 0));
  rapport.Ligne();
  rapport.Ligne();
}

}  // namespace

void ImprimerFacteur(Rapport& rapport, const Presentation& presentation, const crosstab::PremierFacteur& facteur) {
  const int largeur = presentation.largeur + 3;
  rapport.Ligne("Coordonnées factorielles du premier facteur de l'analyse des correspondances"_w);
  ImprimerAxe(rapport, presentation.colonnes, facteur.colonnes, largeur);
  ImprimerAxe(rapport, presentation.lignes, facteur.lignes, largeur);
  rapport.Ligne({"Première valeur propre="_w, NombreFixe(facteur.valeurPropre, presentation.largeur, 4)});
}

void ImprimerTableaux(Rapport& rapport, const Presentation& presentation, const TableauxAEditer& tableaux,
                      OrdresTries tries) {
  const crosstab::DetailsDuTableau& details = tableaux.details;
  Lignes entiers(rapport, presentation, 0);
  Lignes dixiemes(rapport, presentation, 1);

  if (tries.lignes || tries.colonnes) rapport.Ligne({"Impression du tableau de données : l"_w, SuiteDeLaPhrase(tries)});
  else rapport.Ligne("Impression du tableau de données dans l'ordre d'origine des lignes et des colonnes"_w);
  entiers.AvecTotaux(kRetraitDesDeuxPremiers, tableaux.table.effectifs, tableaux.table);
  rapport.Ligne();
  ImprimerPourcentages(rapport, dixiemes, presentation, details);
  rapport.Ligne();
  rapport.Ligne(Blancs(7));
  rapport.Ligne("Différence au pourcentage moyen"_w);
  dixiemes.SansTotaux(details.differences);
  rapport.Ligne();
  rapport.Ligne(Blancs(6));
  rapport.Ligne("Impression des effectifs théoriques"_w);
  dixiemes.AvecTotaux(kRetrait, details.theoriques, tableaux.table);
  rapport.Ligne();
  rapport.Ligne("Impression des écarts à l'indépendance"_w);
  dixiemes.SansTotaux(details.ecarts);
  rapport.Ligne();
  rapport.Ligne("Impression du tableau diagonalisé (diagonale chargée au maximum)"_w);
  entiers.AvecTotaux(kRetrait, tableaux.maximum, tableaux.table);
  rapport.Ligne();
  rapport.Ligne("Impression des contributions au Khi-deux ");
  dixiemes.SansTotaux(details.contributions);
  rapport.Ligne();
  rapport.Ligne("Impression des PEM  ");
  dixiemes.SansTotaux(tableaux.attractions.pem);
  rapport.Ligne();
  rapport.Ligne("Impression des Khi-deux relatifs à chaque PEM "_w);
  dixiemes.SansTotaux(tableaux.attractions.khi2);
}

void ImprimerPartDuFacteur(Rapport& rapport, const PartDuFacteur& part, int largeur) {
  const auto nombre = [&](double valeur) { return NombreFixe(valeur, largeur, 1); };
  rapport.Ligne({" qui représente "_w, nombre(part.duPhi2), "% du Phi-deux total"});
  rapport.Ligne({"soit un khi-deux de ", nombre(part.khi2)});
  rapport.Ligne({" sur un total du khi-deux du tableau d'origine de ", nombre(part.khi2Total)});
}

void ImprimerIndices(Rapport& rapport, const IndicesGlobaux& indices, OrdresTries tries, int largeur) {
  const auto quotient = [](const std::optional<double>& valeur, int largeurEntiere, int decimales) {
    if (!valeur) throw Erreur(kDivisionParZero);
    return NombreFixe(*valeur, largeurEntiere, decimales);
  };
  const auto somme = [&](double valeur) { return NombreFixe(valeur, largeur + 1, 2); };
  if (!tries.lignes || !tries.colonnes) {
    rapport.Ligne("*** Attention, le PEM, le Khideux max et le Gamma n'ont de sens que si");
    rapport.Ligne("    le tableau a été maximisé dans l'ordre du premier facteur d'une AFC ***"_w);
  }
  rapport.Ligne({"Somme des écarts positifs = "_w, somme(indices.observe.positifs)});
  rapport.Ligne({"Somme des écarts positifs dans le cas du tableau diagonalisé= "_w, somme(indices.maximum.positifs)});
  rapport.Ligne({"*** PEM global du tableau   =", quotient(indices.pem, 3, 2)});
  rapport.Ligne({"*** Khideux du tableau= ", somme(indices.observe.khi2)});
  rapport.Ligne({"Khideux dans le cas du tableau diagonalisé= "_w, somme(indices.maximum.khi2)});
  rapport.Ligne({"Khideux/khideux max en %=", quotient(indices.khi2SurMaximum, 3, 2)});
  rapport.Ligne({"Plus petite dimension du tableau = ", NombreNu(indices.plusPetiteDimension)});
  rapport.Ligne({"Effectif du tableau = ", NombreNu(indices.effectif)});
  rapport.Ligne({"Rapport de Cramér en %="_w, quotient(indices.rapportCramer, 3, 2)});
  rapport.Ligne({"*** V de Cramér = "_w, quotient(indices.vCramer, 1, 3)});
}

void ImprimerOrdre(Rapport& rapport, OrdresTries tries) { rapport.Ligne({"L", SuiteDeLaPhrase(tries)}); }

void ImprimerNombreDeLiens(Rapport& rapport, std::size_t liens, SeuilAnnonce seuil, OrigineDesLiens origine) {
  if (liens == 0) return;
  const std::string nombre = NombreNu(liens);
  switch (seuil) {
    case SeuilAnnonce::Aucun:
    case SeuilAnnonce::Gendat:
      rapport.Ligne(
          {std::string_view(origine == OrigineDesLiens::Burt ? "Nombre total de PEM (significatifs ou non) ="
                                                             : "Nombre total de PEM positifs (significatifs ou non) ="),
           nombre});
      rapport.Ligne("(Seuil à 10%=2,7 ; à 5%=3,8 ; à 1%=6,6)"_w);
      return;
    case SeuilAnnonce::DixPourCent: rapport.Ligne({"Nombre de PEM significatifs au seuil de 10% =", nombre}); break;
    case SeuilAnnonce::CinqPourCent: rapport.Ligne({"Nombre de PEM significatifs au seuil de 5% =", nombre}); break;
    case SeuilAnnonce::UnPourCent: rapport.Ligne({"Nombre de PEM significatifs au seuil de 1% =", nombre}); break;
  }
  rapport.Ligne();
}

}  // namespace quelvar::tables
