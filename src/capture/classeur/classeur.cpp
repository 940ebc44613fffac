#include "capture/classeur/classeur.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "capture/classeur/ods.h"
#include "capture/classeur/rangees.h"
#include "capture/classeur/xlsx.h"
#include "core/chiffres/nombres.h"
#include "core/texte/listes.h"

namespace quelvar::capture {

namespace {

using namespace classeur;

// The workbook and its sheets, whichever of the two it is.
struct Ouvert {
  Ouvert(const Chemin& chemin, const SuiviDArchive& suivi)
      : fichier(TexteDe(chemin.filename())), archive(chemin, suivi) {
    if (EstXlsx(archive)) {
      xlsx = OuvrirXlsx(archive);
      for (const FeuilleXlsx& feuille : xlsx->feuilles) noms.push_back(DepuisUtf8(feuille.nom));
    } else if (EstOds(archive)) {
      for (const std::string& nom : FeuillesOds(archive)) noms.push_back(DepuisUtf8(nom));
    } else {
      RefuserClasseur("ce n'est pas un fichier .ods ou .xlsx");
    }
    if (noms.empty()) RefuserClasseur("il n'a pas de feuille de calcul");
    cachees.resize(noms.size());
    if (!xlsx || std::ranges::all_of(xlsx->feuilles, &FeuilleXlsx::cachee)) return;
    for (std::size_t i = 0; i < noms.size(); ++i) cachees[i] = xlsx->feuilles[i].cachee;
  }

  std::string fichier;  // its name without directory
  Archive archive;
  std::optional<ClasseurXlsx> xlsx;
  std::vector<std::string> noms;
  std::vector<bool> cachees;  // never all of them
};

std::size_t PremiereVisible(const Ouvert& ouvert) {
  return static_cast<std::size_t>(std::ranges::find(ouvert.cachees, false) - ouvert.cachees.begin());
}

// Numbers and names of the sheets that `voulue` takes.
template <typename Voulue>
std::string EnumererFeuilles(const std::vector<std::string>& noms, Voulue&& voulue) {
  constexpr std::size_t kCitees = 20;
  std::vector<std::string> citees;
  for (std::size_t i = 0; i < noms.size(); ++i) {
    if (!voulue(i)) continue;
    if (citees.size() == kCitees) return Enumerer(citees) + "...";
    citees.push_back(Joindre({Nombre(i + 1), " \"", noms[i], "\""}));
  }
  return Enumerer(citees);
}

std::size_t RangDe(const Ouvert& ouvert, std::string_view feuille) {
  if (feuille.empty()) return PremiereVisible(ouvert);
  const auto rang = [&](auto trouve) -> std::optional<std::size_t> {
    if (trouve == ouvert.noms.end()) return std::nullopt;
    return static_cast<std::size_t>(trouve - ouvert.noms.begin());
  };
  if (const auto exact = rang(std::ranges::find(ouvert.noms, feuille))) return *exact;
  if (const auto proche = rang(std::ranges::find_if(
          ouvert.noms, [&](const std::string& nom) { return EgalSansCasse(Rogner(nom), Rogner(feuille)); })))
    return *proche;
  std::size_t numero = 0;
  const char* fin = feuille.data() + feuille.size();
  if (std::from_chars(feuille.data(), fin, numero).ptr == fin && numero >= 1 && numero <= ouvert.noms.size())
    return numero - 1;
  throw Erreur(kIncompatibiliteType, Joindre({"Ce classeur n'a pas de feuille \"", feuille,
                                              "\". Ses feuilles sont : ", ListeDesFeuilles(ouvert.noms), "."}));
}

// A failure that knows its row gets the name of the workbook.
void LireLaFeuille(const Ouvert& ouvert, std::size_t rang, const RecevoirLigne& recevoir) {
  Rangees rangees(recevoir);
  try {
    if (ouvert.xlsx) LireXlsx(ouvert.archive, *ouvert.xlsx, rang, rangees);
    else LireOds(ouvert.archive, rang, rangees);
  } catch (Erreur& erreur) {
    if (erreur.Ou().ligne > 0) erreur.Situer({ouvert.fichier});
    throw;
  }
}

// What an import could take for a separator is quoted, so that counting them tells the right one.
void EcrireCellule(std::string_view cellule, std::string& ligne) {
  const bool entreGuillemets =
      cellule.find_first_of("\";,\t|") != std::string_view::npos || cellule.front() == ' ' || cellule.back() == ' ';
  if (entreGuillemets) ligne += '"';
  for (const char c : cellule) {
    if (c == '"') ligne += '"';
    ligne += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
  }
  if (entreGuillemets) ligne += '"';
}

constexpr std::int64_t kRangeesDeTable = 2;  // titles, and an individual

// Blanks, what is written as one, and no-break spaces.
bool EstBlanche(std::string_view cellule) {
  constexpr std::string_view kInsecable = "\xC2\xA0";
  while (!cellule.empty()) {
    const bool insecable = cellule.starts_with(kInsecable);
    if (!insecable && static_cast<unsigned char>(cellule.front()) > ' ') return false;
    cellule.remove_prefix(insecable ? kInsecable.size() : 1);
  }
  return true;
}

// The rows that hold something.
std::int64_t EcrireUneFeuille(const Ouvert& ouvert, std::size_t rang, const Chemin& csv) {
  Ecrivain ecrivain(csv);
  std::string ligne(kMarqueUtf8);
  std::int64_t remplies = 0;
  std::size_t largeur = 0;
  LireLaFeuille(ouvert, rang, [&](std::span<const std::string> cellules) {
    for (std::size_t c = 0; c < cellules.size(); ++c) {
      if (c > 0) ligne += ';';
      if (!cellules[c].empty()) EcrireCellule(cellules[c], ligne);
    }
    largeur = std::max(largeur, cellules.size());
    // A row that holds nothing stays a blank line: empty lines at the end of a sheet are none of its rows.
    if (!cellules.empty()) ligne.append(largeur - cellules.size(), ';');
    ligne += "\r\n";
    ecrivain.Ecrire(ligne);
    ligne.clear();
    if (!std::ranges::all_of(cellules, EstBlanche)) ++remplies;
  });
  ecrivain.Fermer();
  return remplies;
}

// Writes the sheet that is read when none is asked for; its rows, 0 when all are empty.
std::int64_t EcrireLaPremiere(const Ouvert& ouvert, FeuilleLue& lue,
                              const std::function<std::int64_t(std::size_t)>& ecrire) {
  std::optional<std::size_t> uneRangee;
  for (std::size_t rang = 0; rang < ouvert.noms.size(); ++rang) {
    if (ouvert.cachees[rang]) continue;
    const std::int64_t rangees = ecrire(rang);
    if (rangees >= kRangeesDeTable) {
      lue.rang = rang;
      return rangees;
    }
    if (rangees > 0 && !uneRangee) uneRangee = rang;
    lue.sansTable.push_back(rang);
  }
  lue.sansTable.clear();
  if (!uneRangee) return 0;
  lue.rang = *uneRangee;
  return ecrire(lue.rang);
}

}  // namespace

bool EstNomDeClasseur(std::string_view nom) {
  const std::size_t point = nom.rfind('.');
  if (point == std::string_view::npos) return false;
  for (const std::string_view extension : {".ods", ".ots", ".xlsx", ".xlsm", ".xltx", ".xltm"})
    if (EgalSansCasse(nom.substr(point), extension)) return true;
  return false;
}

FeuilleLue EcrireFeuilleEnCsv(const Chemin& classeur, std::string_view feuille, const Chemin& csv,
                              const classeur::SuiviDArchive& suivi) {
  const Ouvert ouvert(classeur, suivi);
  FeuilleLue lue{RangDe(ouvert, feuille), ouvert.noms, {}};
  const auto ecrire = [&](std::size_t rang) { return EcrireUneFeuille(ouvert, rang, csv); };
  const std::int64_t rangees = feuille.empty() ? EcrireLaPremiere(ouvert, lue, ecrire) : ecrire(lue.rang);
  if (rangees == 0)
    throw Erreur(kIncompatibiliteType,
                 Joindre({"La feuille \"", lue.Nom(), "\" de ", TexteDe(classeur.filename()),
                          " est vide. Ses feuilles sont : ", ListeDesFeuilles(ouvert.noms),
                          ". Donnez-en une autre (feuille=N), ou mettez le tableau dans la première."_w}));
  return lue;
}

std::string DesignerFeuille(const FeuilleLue& feuille) {
  const bool seule = std::ranges::count(feuille.feuilles, feuille.Nom()) == 1;
  return seule && !feuille.Nom().empty() ? feuille.Nom() : Nombre(feuille.rang + 1);
}

std::string AutresFeuilles(const FeuilleLue& feuille) {
  return EnumererFeuilles(feuille.feuilles, [&](std::size_t i) { return i != feuille.rang; });
}

std::string ListeDesFeuilles(const std::vector<std::string>& noms) {
  return EnumererFeuilles(noms, [](std::size_t) { return true; });
}

}  // namespace quelvar::capture
