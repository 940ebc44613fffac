#include "core/resultats/fichiers.h"

#include <algorithm>

#include "core/fichiers/fichiers.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace {

std::string Html(std::string_view texte) {
  std::string protege;
  for (const char c : texte) {
    if (c == '&') protege += "&amp;";
    else if (c == '<') protege += "&lt;";
    else if (c == '>') protege += "&gt;";
    else protege += c;
  }
  return protege;
}

// Title and label of a row or a column.
std::string Nom(const std::string& titre, const std::string& intitule) {
  if (intitule.empty() || titre.empty()) return titre + intitule;
  return Joindre({titre, " ", intitule});
}

std::string Cellules(const Rangee& rangee) {
  std::string texte;
  for (const Cellule& cellule : rangee.cellules)
    texte += Joindre({"<td>", TexteDeCellule(cellule), std::string_view(cellule.unite == Unite::Pourcent ? " %" : ""),
                      std::string_view(cellule.marque.empty() ? "" : " "), Html(cellule.marque), "</td>"});
  return texte;
}

std::string TableHtml(const TableauEdite& tableau) {
  std::string page = "<table>\n";
  std::string titres;
  for (const std::string& titre : tableau.titres) titres += (titres.empty() ? "" : "<br>") + Html(Rogner(titre));
  if (!titres.empty()) page += Joindre({"<caption>", titres, "</caption>\n"});
  page += Joindre({"<tr><th>", Html(tableau.coin), "</th>"});
  for (const Colonne& colonne : tableau.colonnes)
    page += Joindre({"<th>", Html(Nom(colonne.titre, colonne.intitule)), "</th>"});
  page += "</tr>\n";
  for (const Rangee& rangee : tableau.rangees)
    page += Joindre({"<tr><th>", Html(Nom(rangee.titre, rangee.intitule)), "</th>", Cellules(rangee), "</tr>\n"});
  return page + "</table>\n";
}

// A text that holds the separator, a quote or a line end stands between quotes, which are doubled.
std::string Champ(std::string_view texte, char separateur) {
  const bool entoure = texte.find_first_of("\"\r\n") != std::string_view::npos || texte.find(separateur) != texte.npos;
  if (!entoure) return std::string(texte);
  std::string champ = "\"";
  for (const char c : texte) {
    if (c == '"') champ += c;
    champ += c;
  }
  return champ + "\"";
}

std::string ChampDeCellule(const Cellule& cellule, SortieDeTableaux sortie) {
  std::string texte = TexteDeCellule(cellule);
  if (sortie == SortieDeTableaux::Csv) std::replace(texte.begin(), texte.end(), '.', ',');
  return cellule.marque.empty() ? texte : Joindre({texte, " ", cellule.marque});
}

void AjouterSepare(std::string& texte, const TableauEdite& tableau, SortieDeTableaux sortie) {
  const char separateur = sortie == SortieDeTableaux::Csv ? ';' : '\t';
  for (const std::string& titre : tableau.titres) texte += Champ(Rogner(titre), separateur) + "\r\n";
  texte += Champ(tableau.coin, separateur);
  for (const Colonne& colonne : tableau.colonnes)
    texte += separateur + Champ(Nom(colonne.titre, colonne.intitule), separateur);
  texte += "\r\n";
  for (const Rangee& rangee : tableau.rangees) {
    texte += Champ(Nom(rangee.titre, rangee.intitule), separateur);
    for (const Cellule& cellule : rangee.cellules)
      texte += separateur + Champ(ChampDeCellule(cellule, sortie), separateur);
    texte += "\r\n";
  }
}

}  // namespace

std::string PageHtml(std::string_view titre, std::span<const TableauEdite> tableaux) {
  std::string page =
      Joindre({"<!DOCTYPE html>\n<html lang=\"fr\">\n<head>\n<meta charset=\"utf-8\">\n<title>", Html(titre),
               "</title>\n<style>table{border-collapse:collapse;margin:1em 0}caption{text-align:left}"
               "th,td{border:1px solid;padding:0.2em 0.5em}td{text-align:right}</style>\n</head>\n<body>\n<h1>",
               Html(titre), "</h1>\n"});
  for (const TableauEdite& tableau : tableaux) page += TableHtml(tableau);
  return VersUtf8(page) + "</body>\n</html>\n";
}

std::string TexteSepare(std::span<const TableauEdite> tableaux, SortieDeTableaux sortie) {
  std::string texte;
  for (const TableauEdite& tableau : tableaux) {
    if (!texte.empty()) texte += "\r\n";
    AjouterSepare(texte, tableau, sortie);
  }
  return std::string(sortie == SortieDeTableaux::Csv ? kMarqueUtf8 : std::string_view()) + VersUtf8(texte);
}

std::string_view ExtensionDe(SortieDeTableaux sortie) {
  switch (sortie) {
    case SortieDeTableaux::Html: return ".html";
    case SortieDeTableaux::Tsv: return ".tsv";
    case SortieDeTableaux::Csv: return ".csv";
    case SortieDeTableaux::Aucune: break;
  }
  return {};
}

void EcrireTableaux(JeuDeFichiers& sorties, std::string_view nomRapport, std::span<const TableauEdite> tableaux,
                    SortieDeTableaux sortie) {
  if (sortie == SortieDeTableaux::Aucune) return;
  sorties.Ouvrir(Joindre({nomRapport, ExtensionDe(sortie)}), Nature::Refaisable)
      .Ecrire(sortie == SortieDeTableaux::Html ? PageHtml(nomRapport, tableaux) : TexteSepare(tableaux, sortie));
}

void EcrireTableaux(const Contexte& contexte, std::string_view nomRapport, std::span<const TableauEdite> tableaux,
                    SortieDeTableaux sortie) {
  JeuDeFichiers sorties(contexte.repertoire, contexte.generique);
  EcrireTableaux(sorties, nomRapport, tableaux, sortie);
  sorties.Valider();
}

}  // namespace quelvar
