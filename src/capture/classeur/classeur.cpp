#include "capture/classeur/classeur.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "capture/classeur/ods.h"
#include "capture/classeur/xlsx.h"
#include "core/texte/nombres.h"

namespace quelvar::capture {

namespace {

using namespace classeur;

// The workbook and its sheets, whichever of the two it is.
struct Ouvert {
  explicit Ouvert(const Chemin& chemin) : archive(chemin) {
    if (EstXlsx(archive)) {
      xlsx = OuvrirXlsx(archive);
      for (const FeuilleXlsx& feuille : xlsx->feuilles) noms.push_back(DepuisUtf8(feuille.nom));
    } else if (EstOds(archive)) {
      for (const std::string& nom : FeuillesOds(archive)) noms.push_back(DepuisUtf8(nom));
    } else {
      RefuserClasseur("ce n'est pas un fichier .ods ou .xlsx");
    }
    if (noms.empty()) RefuserClasseur("il n'a pas de feuille de calcul");
  }

  Archive archive;
  std::optional<ClasseurXlsx> xlsx;
  std::vector<std::string> noms;
};

std::size_t PremiereVisible(const Ouvert& ouvert) {
  if (!ouvert.xlsx) return 0;
  const auto& feuilles = ouvert.xlsx->feuilles;
  const auto visible = std::ranges::find(feuilles, false, &FeuilleXlsx::cachee);
  return visible == feuilles.end() ? 0 : static_cast<std::size_t>(visible - feuilles.begin());
}

std::string ListeDesFeuilles(const Ouvert& ouvert) {
  std::string liste;
  for (std::size_t i = 0; i < ouvert.noms.size(); ++i)
    liste += Joindre({std::string_view(i == 0 ? "" : ", "), Nombre(i + 1), " \"", ouvert.noms[i], "\""});
  return liste;
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
                                              "\". Ses feuilles sont : ", ListeDesFeuilles(ouvert), "."}));
}

void LireLaFeuille(const Ouvert& ouvert, std::size_t rang, const RecevoirLigne& recevoir) {
  Rangees rangees(recevoir);
  if (ouvert.xlsx) LireXlsx(ouvert.archive, *ouvert.xlsx, rang, rangees);
  else LireOds(ouvert.archive, rang, rangees);
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

}  // namespace

bool EstNomDeClasseur(std::string_view nom) {
  const std::size_t point = nom.rfind('.');
  if (point == std::string_view::npos) return false;
  for (const std::string_view extension : {".ods", ".ots", ".xlsx", ".xlsm", ".xltx", ".xltm"})
    if (EgalSansCasse(nom.substr(point), extension)) return true;
  return false;
}

std::vector<std::string> FeuillesDe(const Chemin& classeur) { return Ouvert(classeur).noms; }

void LireFeuille(const Chemin& classeur, std::string_view feuille, const RecevoirLigne& recevoir) {
  const Ouvert ouvert(classeur);
  LireLaFeuille(ouvert, RangDe(ouvert, feuille), recevoir);
}

void EcrireFeuilleEnCsv(const Chemin& classeur, std::string_view feuille, const Chemin& csv,
                        const std::function<void(std::int64_t)>& suivi) {
  const Ouvert ouvert(classeur);
  const std::size_t rang = RangDe(ouvert, feuille);
  Ecrivain ecrivain(csv);
  std::string ligne = "\xEF\xBB\xBF";
  constexpr std::int64_t kPas = 1024;
  std::int64_t lignes = 0;
  LireLaFeuille(ouvert, rang, [&](std::span<const std::string> cellules) {
    for (std::size_t c = 0; c < cellules.size(); ++c) {
      if (c > 0) ligne += ';';
      if (!cellules[c].empty()) EcrireCellule(cellules[c], ligne);
    }
    ligne += "\r\n";
    ecrivain.Ecrire(ligne);
    ligne.clear();
    if (++lignes % kPas == 0 && suivi) suivi(lignes);
    return true;
  });
  if (lignes == 0)
    throw Erreur(kIncompatibiliteType,
                 Joindre({"La feuille \"", ouvert.noms[rang], "\" de ", TexteDe(classeur.filename()),
                          " est vide. Ses feuilles sont : ", ListeDesFeuilles(ouvert),
                          ". Donnez-en une autre (feuille=N), ou mettez le tableau dans la première."_w}));
  ecrivain.Fermer();
}

}  // namespace quelvar::capture
