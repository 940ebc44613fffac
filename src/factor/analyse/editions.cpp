#include "factor/analyse/editions.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "core/programme/erreur.h"
#include "core/resultats/largeurfixe.h"
#include "core/texte/nombres.h"
#include "factor/analyse/tri.h"

namespace quelvar::factor {

namespace {

constexpr int kDecimalesAuPlus = 99;
constexpr std::size_t kLignesSurTroisChiffres = 1000;

// One dimension of the table with the results on it.
struct Dimension {
  const ElementsAnecar& elements;
  const std::vector<std::int16_t>& qlt;
  CoteFacteur FacteurAnecar::*cote;
};

Dimension DimensionLignes(const TableauAnecar& tableau, const AnalyseAnecar& analyse) {
  return {tableau.lignes, analyse.qltLignes, &FacteurAnecar::lignes};
}

Dimension DimensionColonnes(const PlanAnecar& plan, const AnalyseAnecar& analyse) {
  return {plan.colonnes, analyse.qltColonnes, &FacteurAnecar::colonnes};
}

std::string Repeter(std::string_view debut, std::string_view motif, std::size_t fois, std::string_view fin) {
  std::string texte(debut);
  for (std::size_t i = 0; i < fois; ++i) texte += motif;
  texte += fin;
  return texte;
}

}  // namespace

void ImprimerDimensions(Rapport& rapport, const PlanAnecar& plan, const SeuilsAnecar& seuils) {
  rapport.Ligne();
  rapport.Ligne({"Le nombre total de  lignes  du tableau est de ", NombreNu(plan.lignes)});
  rapport.Ligne({"Le nombre total de colonnes du tableau est de ", NombreNu(plan.colonnes.Nombre())});
  rapport.Ligne({"Le nombre de  lignes  supplementaires est de ", NombreNu(plan.LignesSup())});
  rapport.Ligne({"Le nombre de colonnes supplementaires est de ", NombreNu(plan.colonnes.Supplementaires())});
  rapport.Ligne({"Le nombre de  lignes  actives est de ", NombreNu(plan.lignesActives)});
  rapport.Ligne({"Le nombre de colonnes actives est de ", NombreNu(plan.colonnes.actifs)});
  if (seuils.lignes) rapport.Ligne({"Le seuil d'edition des lignes est de ", NombreNu(*seuils.lignes)});
  if (seuils.colonnes) rapport.Ligne({"Le seuil d'edition des colonnes est de ", NombreNu(*seuils.colonnes)});
  if (plan.genre != GenreTableau::BurtCarre) return;
  rapport.Ligne();
  rapport.Ligne(" Cas d'un tableau de BURT : on ne   ");
  rapport.Ligne("calcule pas les ISUP symetriques des JSUP");
}

void ImprimerTitre(Rapport& rapport, const AnalyseAnecar& analyse) {
  const bool acp = analyse.type == TypeAnalyse::Acp;
  rapport.Ligne();
  rapport.Ligne(std::string_view(acp ? "ACP : Analyse en composantes principales des ecarts"
                                     : "AFC : Analyse des correspondances"));
  rapport.Ligne(std::string(acp ? 51 : 33, '*'));
  rapport.Ligne();
  rapport.Ligne({acp ? "La somme des carrés est de :"_w : "Le phi-deux est de :"_w,
                 NombreFixe(analyse.ecarts.Inertie(analyse.type), 7, 6)});
  rapport.Ligne();
}

void ImprimerNombreDeFacteurs(Rapport& rapport, int nombre) {
  rapport.Ligne();
  rapport.Ligne({"Le nombre de facteurs a extraire est de  ", Nombre(nombre)});
  rapport.Ligne();
}

void ImprimerDebutDeFacteur(Rapport& rapport, std::size_t k) {
  rapport.Ligne();
  rapport.Ligne({"Facteur ", EntierDroit(static_cast<std::int64_t>(k), 3)});
}

namespace {

constexpr int kLargeurValeurPropre = 9;
constexpr int kLargeurPourcentage = 5;

// Eigenvalue and share, as report and files show them.
std::vector<Cellule> ValeurPropre(const FacteurAnecar& facteur) {
  return {{facteur.valeurPropre, Unite::Nombre, 6, facteur.converge ? "" : "*"},
          {facteur.pourcentage, Unite::Pourcent, 1}};
}

}  // namespace

void ImprimerFacteur(Rapport& rapport, const FacteurAnecar& facteur) {
  const std::vector<Cellule> cellules = ValeurPropre(facteur);
  if (!facteur.converge)
    rapport.Ligne({"*** Attention : le facteur n'a pas convergé après"_w, NombreNu(facteur.tours),
                   "itérations, il est gardé en l'état"_w});
  rapport.Ligne();
  rapport.Ligne({"Valeur propre = ", TexteEnColonne(cellules[0], kLargeurValeurPropre)});
  rapport.Ligne({"Pourcentage du total =", TexteEnColonne(cellules[1], kLargeurPourcentage)});
  rapport.Ligne();
}

void ImprimerEchelle(Rapport& rapport, double echelle) {
  if (echelle == 1) return;
  rapport.Ligne({"Les coordonnées sont multipliées par "_w, Nombre(static_cast<std::int64_t>(echelle)),
                 " : la plus grande a moins de trois chiffres en millièmes"_w});
}

void ImprimerFacteursNuls(Rapport& rapport, const AnalyseAnecar& analyse) {
  if (std::ranges::none_of(analyse.facteurs, &FacteurAnecar::arrondi)) return;
  const auto propres =
      std::ranges::count_if(analyse.facteurs, [](const FacteurAnecar& f) { return f.valeurPropre > 0; });
  rapport.Ligne({"*** Attention : le tableau a "_w, Nombre(static_cast<std::int64_t>(propres)),
                 " facteur(s), les suivants sont nuls"});
}

TableauEdite ValeursPropres(const AnalyseAnecar& analyse) {
  TableauEdite tableau;
  tableau.titres = {"Valeurs propres"};
  tableau.coin = "Facteur";
  tableau.colonnes = {{"Valeur propre"}, {"Pourcentage du total"}};
  for (std::size_t k = 0; k < analyse.facteurs.size(); ++k)
    tableau.rangees.push_back({Nombre(k + 1), {}, ValeurPropre(analyse.facteurs[k])});
  return tableau;
}

namespace {

// What tells the listing of rows from that of columns.
struct MotsListe {
  std::string_view enTete;
  std::string_view actifs;
  std::string_view supplementaires;
  int largeurIndice;
};

// Elements of a range of positions, in the order of their CPF signed like their coordinate.
void ImprimerElementsTries(Rapport& rapport, const ElementsAnecar& elements, const CoteFacteur& cote, std::size_t debut,
                           std::size_t fin, int seuil, int largeurIndice) {
  std::vector<int> cles;
  cles.reserve(fin - debut);
  for (std::size_t i = debut; i < fin; ++i) {
    const double f = cote.coordonnees[i];
    cles.push_back(f > 0 ? cote.cpf[i] : f < 0 ? -cote.cpf[i] : 0);
  }
  for (const std::size_t rang : OrdreParEchanges(cles)) {
    const std::size_t i = debut + rang;
    if (cote.cpf[i] < seuil) continue;
    rapport.Ligne({EntierDroit(static_cast<std::int64_t>(i + 1), largeurIndice), " ", CadreGauche(elements.noms[i], 5),
                   NombreFixe(cote.coordonnees[i], 7, 0), EntierDroit(cote.cpf[i], 5), "    ", elements.intitules[i]});
  }
}

std::string LigneFacteur(std::size_t k, std::string_view suite) {
  return Joindre({"Facteur ", EntierDroit(static_cast<std::int64_t>(k), 2), suite});
}

void ImprimerActifsTries(Rapport& rapport, const ElementsAnecar& elements, const CoteFacteur& cote, std::size_t k,
                         int seuil, const MotsListe& mots) {
  if (elements.actifs == 0) return;
  rapport.Ligne(LigneFacteur(k, mots.actifs));
  rapport.Ligne(mots.enTete);
  ImprimerElementsTries(rapport, elements, cote, 0, elements.actifs, seuil, mots.largeurIndice);
}

}  // namespace

void ImprimerLignesTriees(Rapport& rapport, const TableauAnecar& tableau, const CoteFacteur& cote, std::size_t k,
                          int seuil) {
  const ElementsAnecar& lignes = tableau.lignes;
  const MotsListe mots{"  I NOM Coor.fac. CPF         Intitule long", " Impression des lignes   actives du tableau",
                       " Impression des lignes   suppl.   du tableau",
                       lignes.Nombre() > kLignesSurTroisChiffres ? 4 : 3};
  ImprimerActifsTries(rapport, lignes, cote, k, seuil, mots);
  if (lignes.Supplementaires() == 0) return;
  rapport.Ligne(" ");
  rapport.Ligne(mots.supplementaires);
  ImprimerElementsTries(rapport, lignes, cote, lignes.actifs, lignes.Nombre(), seuil, mots.largeurIndice);
}

void ImprimerColonnesTriees(Rapport& rapport, const ElementsAnecar& colonnes, const CoteFacteur& cote, std::size_t k,
                            int seuil) {
  const MotsListe mots{"  J NOM Coor.fac. CPF         Intitule long", " Impression des colonnes actives du tableau",
                       " Impression des colonnes suppl.   du tableau", 3};
  ImprimerActifsTries(rapport, colonnes, cote, k, seuil, mots);
  if (colonnes.Supplementaires() == 0) return;
  rapport.Ligne();
  rapport.Ligne(LigneFacteur(k, mots.supplementaires));
  ImprimerElementsTries(rapport, colonnes, cote, colonnes.actifs, colonnes.Nombre(), seuil, mots.largeurIndice);
}

namespace {

// Eight blanks, then the names of the active columns over their cells.
std::string EnTeteDesEcarts(const ElementsAnecar& colonnes, int decimales) {
  if (decimales > kDecimalesAuPlus) throw Erreur(kArgumentIncorrect);
  std::string ligne(8, ' ');
  for (std::size_t j = 0; j < colonnes.actifs; ++j) {
    ligne += CadreGauche(colonnes.noms[j], 5);
    ligne.append(static_cast<std::size_t>(decimales) + 1, ' ');
  }
  return ligne;
}

std::string DebutDeLigne(const TableauAnecar& tableau, std::size_t i) {
  return CadreGauche(tableau.lignes.noms[i], 4) + ' ';
}

}  // namespace

void ImprimerEcartsRestants(Rapport& rapport, const TableauAnecar& tableau, const ElementsAnecar& colonnes,
                            const Ecarts& ecarts, int decimales) {
  rapport.Ligne("Ecarts à l'indépendance restants"_w);
  rapport.Ligne(EnTeteDesEcarts(colonnes, decimales));
  for (std::size_t i = 0; i < tableau.actives.Lignes(); ++i) {
    std::string ligne = DebutDeLigne(tableau, i);
    for (const double d : tableau.actives.Ligne(i)) ligne += NombreFixe(ecarts.effectif * d, 5, decimales);
    rapport.Ligne(ligne);
  }
}

void ImprimerReconstitution(Rapport& rapport, const TableauAnecar& tableau, const ElementsAnecar& colonnes,
                            const Reconstitution& reconstitution, int decimales) {
  const auto cellule = [&](double valeur) { return NombreFixe(valeur, 5, decimales); };
  const std::string blancs(static_cast<std::size_t>(decimales), ' ');

  rapport.Ligne("Reconstitution des écarts à l'indépendance restants"_w);
  rapport.Ligne({EnTeteDesEcarts(colonnes, decimales), " PI  ", blancs, "  FI ", blancs, " SemiCalNonPond"});
  for (std::size_t i = 0; i < tableau.actives.Lignes(); ++i) {
    std::string ligne = DebutDeLigne(tableau, i);
    for (const double effectif : reconstitution.effectifs.Ligne(i)) ligne += cellule(effectif);
    const ElementReconstitue& element = reconstitution.lignes[i];
    rapport.Ligne({ligne, cellule(element.part), cellule(element.coordonnee), cellule(element.semi)});
  }
  std::string pj = " PJ  ";
  std::string fj = " FJ  ";
  std::string semiJ = "Semi ";
  for (const ElementReconstitue& element : reconstitution.colonnes) {
    pj += cellule(element.part);
    fj += cellule(element.coordonnee);
    semiJ += cellule(element.semi);
  }
  rapport.Ligne({pj, "    100=", NombreFixe(reconstitution.effectif, 4, 0)});
  rapport.Ligne({fj, "    Ksi=", NombreFixe(reconstitution.valeurSinguliere, 1, 7)});
  rapport.Ligne(semiJ);
}

namespace {

// "F=" and the number of each factor in the place that one or two digits leave, between `debut` and `suite`.
std::string TeteDesFacteurs(std::string_view titre, std::size_t facteurs, std::string_view debut,
                            std::string_view suite) {
  std::string ligne(titre);
  for (std::size_t k = 1; k <= facteurs; ++k) {
    ligne += k > 9 ? debut.substr(0, debut.size() - 1) : debut;
    ligne += "F=" + EntierDroit(static_cast<std::int64_t>(k), k > 9 ? 2 : 1);
    ligne += suite;
  }
  return ligne;
}

void ImprimerLignesCompactes(Rapport& rapport, const Dimension& dimension, const AnalyseAnecar& analyse,
                             std::size_t debut, std::size_t fin) {
  for (std::size_t i = debut; i < fin; ++i) {
    std::string ligne = CadreGauche(dimension.elements.noms[i], 4);
    for (const FacteurAnecar& facteur : analyse.facteurs) {
      const CoteFacteur& cote = facteur.*dimension.cote;
      ligne += NombreFixe(analyse.echelle * cote.coordonnees[i], 7, 0) + EntierDroit(cote.cpf[i], 5);
    }
    rapport.Ligne({ligne, "   ", dimension.elements.intitules[i]});
  }
}

void ImprimerLignesEtendues(Rapport& rapport, const Dimension& dimension, const AnalyseAnecar& analyse,
                            std::size_t debut, std::size_t fin) {
  for (std::size_t i = debut; i < fin; ++i) {
    std::string ligne = CadreGauche(dimension.elements.noms[i], 4) + EntierDroit(dimension.qlt[i], 5);
    for (const FacteurAnecar& facteur : analyse.facteurs) {
      const CoteFacteur& cote = facteur.*dimension.cote;
      ligne += '!' + NombreFixe(analyse.echelle * cote.coordonnees[i], 6, 0) + EntierDroit(cote.cos2[i], 5) +
               EntierDroit(cote.cpf[i], 5);
    }
    rapport.Ligne({ligne, "! ", dimension.elements.intitules[i]});
  }
}

// The frame of a table of coordinates: active elements, a line on them all, supplementary ones if there are any.
struct CadreDeTable {
  std::string regle;
  std::string actifs, ensemble, supplementaires;  // heads, and the line on all active elements
  void (*lignes)(Rapport& rapport, const Dimension& dimension, const AnalyseAnecar& analyse, std::size_t debut,
                 std::size_t fin);
};

void ImprimerTable(Rapport& rapport, const CadreDeTable& cadre, const Dimension& dimension,
                   const AnalyseAnecar& analyse) {
  const ElementsAnecar& elements = dimension.elements;
  rapport.Ligne(cadre.regle);
  rapport.Ligne(cadre.actifs);
  rapport.Ligne(cadre.regle);
  cadre.lignes(rapport, dimension, analyse, 0, elements.actifs);
  rapport.Ligne(cadre.regle);
  rapport.Ligne(cadre.ensemble);
  rapport.Ligne(cadre.regle);
  if (elements.Supplementaires() == 0) return;
  rapport.Ligne(cadre.supplementaires);
  rapport.Ligne(cadre.regle);
  cadre.lignes(rapport, dimension, analyse, elements.actifs, elements.Nombre());
  rapport.Ligne(cadre.regle);
}

void ImprimerTableCompacte(Rapport& rapport, const Dimension& dimension, const AnalyseAnecar& analyse) {
  const std::size_t facteurs = analyse.facteurs.size();
  ImprimerTable(rapport,
                {Repeter("*---", "*------*----", facteurs, "*"), TeteDesFacteurs("ACT.", facteurs, "    ", "  CPF"),
                 Repeter("*   ", "*      *1000", facteurs, "*"), TeteDesFacteurs("SUP.", facteurs, "    ", "  CPF"),
                 ImprimerLignesCompactes},
                dimension, analyse);
  rapport.Ligne();
}

void ImprimerTableEtendue(Rapport& rapport, const Dimension& dimension, const AnalyseAnecar& analyse) {
  const std::size_t facteurs = analyse.facteurs.size();
  const std::string cpfMoyen = EntierDroit(Entier16(1000 / static_cast<double>(dimension.elements.actifs)), 5);
  std::string moyenne = "Moy." + EntierDroit(analyse.sommeParts, 5);
  for (const FacteurAnecar& facteur : analyse.facteurs) moyenne += "!      " + EntierDroit(facteur.part, 5) + cpfMoyen;
  ImprimerTable(rapport,
                {Repeter("*---*----", "*------*----*----", facteurs, "*"),
                 TeteDesFacteurs("ACT.  QLT", facteurs, "!   ", " COS2  CPF") + "!", moyenne + "!",
                 TeteDesFacteurs("SUP.  QLT", facteurs, "!   ", " COS2  CPF") + "!", ImprimerLignesEtendues},
                dimension, analyse);
}

}  // namespace

void ImprimerTablesCompactes(Rapport& rapport, const PlanAnecar& plan, const TableauAnecar& tableau,
                             const AnalyseAnecar& analyse) {
  rapport.Ligne("Coordonnees factorielles (F= ) et  contributions pour le facteur (CPF)");
  if (plan.burt < 1) {
    rapport.Ligne("Lignes du tableau");
    ImprimerTableCompacte(rapport, DimensionLignes(tableau, analyse), analyse);
  }
  rapport.Ligne("Modalites en colonne");
  ImprimerTableCompacte(rapport, DimensionColonnes(plan, analyse), analyse);
}

void ImprimerTablesEtendues(Rapport& rapport, const PlanAnecar& plan, const TableauAnecar& tableau,
                            const AnalyseAnecar& analyse) {
  rapport.Ligne("Somme des Cos2 pour le facteurs affichés (QLT)"_w);
  rapport.Ligne("Coordonnees factorielles (F= )");
  rapport.Ligne("Contributions pour la variable(COS2) et contributions pour le facteur(CPF)");
  rapport.Ligne("Lignes du tableau");
  ImprimerTableEtendue(rapport, DimensionLignes(tableau, analyse), analyse);
  rapport.Ligne("Modalites en colonne");
  ImprimerTableEtendue(rapport, DimensionColonnes(plan, analyse), analyse);
}

}  // namespace quelvar::factor
