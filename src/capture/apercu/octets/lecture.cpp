#include "capture/apercu/octets/lecture.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "capture/apercu/octets/cellule.h"
#include "capture/apercu/octets/encodages.h"
#include "capture/apercu/octets/premiereligne.h"
#include "capture/apercu/octets/rangees.h"
#include "core/chiffres/nombres.h"
#include "core/panne/annonce.h"
#include "core/panne/erreur.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kRangees = 300;             // looked at to find separator, titles and decimal sign
constexpr std::size_t kLignesAvant = 10;          // lines that may stand before the titles
constexpr double kPresque = 0.9;                  // share of rows of one length below which a separator is no good
constexpr std::string_view kCandidats = ";\t|,";  // of two that serve as well the first one wins

using Rangees = std::vector<std::vector<std::string>>;

struct Echantillon {
  std::vector<std::int64_t> lignes;
  Rangees rangees;  // that hold something
  std::int64_t guillemetSansFin = 0;
};

Echantillon Prelever(const Chemin& source, const Lecture& lecture) {
  Echantillon echantillon;
  LecteurDeRangees lecteur(source, lecture);
  for (std::string_view rangee; echantillon.rangees.size() < kRangees && lecteur.Lire(rangee);) {
    if (lecteur.SansValeur(rangee)) continue;
    std::vector<std::string> cellules;
    LigneDeTableur coupe = lecteur.Cellules(rangee);
    for (std::string_view cellule; coupe.Suivante(cellule);) cellules.emplace_back(RognerCellule(cellule));
    echantillon.rangees.push_back(std::move(cellules));
    echantillon.lignes.push_back(lecteur.Ligne());
  }
  echantillon.guillemetSansFin = lecteur.GuillemetSansFin();
  return echantillon;
}

// How well a sign separates: the share of rows that have the most frequent length, and which row may be the titles.
struct Essai {
  char separateur = ';';
  double note = 0;  // 0: does not separate
  std::size_t titres = 0;
};

bool SansNombre(const std::vector<std::string>& rangee) {
  return std::ranges::none_of(rangee, [](const std::string& c) { return c.empty() || LireNombre(c) || EstDate(c); });
}

Essai Essayer(char separateur, const Rangees& rangees) {
  std::map<std::size_t, std::size_t> nombres;
  for (const auto& rangee : rangees)
    if (rangee.size() > 1) ++nombres[rangee.size()];
  if (nombres.empty()) return {};
  auto frequent = nombres.begin();  // of lengths as frequent the longest
  for (auto longueur = nombres.begin(); longueur != nombres.end(); ++longueur)
    if (longueur->second >= frequent->second) frequent = longueur;
  const double part = static_cast<double>(frequent->second) / static_cast<double>(rangees.size());
  if (rangees.front().size() >= frequent->first) return {separateur, 1 + part, 0};
  if (rangees.front().size() > 1) return {separateur, part, 0};
  // One cell alone in front: a heading of the whole file, if titles stand behind it.
  for (std::size_t k = 1; k < std::min(rangees.size(), kLignesAvant); ++k) {
    if (rangees[k].size() == 1) continue;
    const bool regulier =
        part * static_cast<double>(rangees.size()) >= kPresque * static_cast<double>(rangees.size() - k);
    if (rangees[k].size() == frequent->first && regulier && SansNombre(rangees[k])) return {separateur, part, k};
    break;
  }
  return {};
}

// The separator of a first line "sep=;"; 0 for any other line.
char SigneDeSep(const Chemin& source, EncodageDeTable encodage) {
  std::string_view ligne;
  LecteurTableur lecteur(LignesDe(source, encodage, false), ';', false);
  if (!lecteur.LireOctetsDeLigne(ligne)) return '\0';
  ligne = RognerCellule(ligne);
  if (ligne.size() >= 2 && ligne.front() == '"' && ligne.back() == '"') ligne = ligne.substr(1, ligne.size() - 2);
  if (ligne.size() < 4 || !EgalSansCasse(ligne.substr(0, 4), "sep=")) return '\0';
  const char signe = ligne.size() == 4 ? '\t' : ligne[4];
  return ligne.size() <= 5 && kCandidats.find(signe) != std::string_view::npos ? signe : '\0';
}

// Numbers that can have no other decimal sign than that one.
struct Preuves {
  std::int64_t virgules = 0;
  std::int64_t points = 0;

  void Voir(std::string_view cellule) {
    const std::optional<NombreDeCellule> nombre = LireNombre(cellule);
    if (!nombre || nombre->EstAmbigu()) return;
    if (nombre->signe == ',' || nombre->groupes == '.') ++virgules;
    else if (nombre->signe == '.' || nombre->groupes == ',') ++points;
  }
};

void ChoisirDecimale(LectureDetectee& detectee, const Echantillon& echantillon) {
  Preuves preuves;
  const std::size_t premiere = detectee.lecture.ligneTitres > 0 ? 1 : 0;
  for (std::size_t i = premiere; i < echantillon.rangees.size(); ++i)
    for (const std::string& cellule : echantillon.rangees[i]) preuves.Voir(cellule);
  const char usuelle = detectee.lecture.separateur == ',' ? '.' : ',';
  detectee.lecture.decimale = preuves.virgules == preuves.points  ? usuelle
                              : preuves.virgules > preuves.points ? ','
                                                                  : '.';
  if (preuves.virgules > 0 && preuves.points > 0)
    detectee.doutes.push_back(
        Joindre({"Des nombres ont une virgule décimale ("_w, Nombre(preuves.virgules), "), d'autres un point (",
                 Nombre(preuves.points), ") dans les premières lignes."_w}));
}

void ChoisirSeparateur(LectureDetectee& detectee, const Chemin& source, Echantillon& retenu) {
  Lecture& lecture = detectee.lecture;
  lecture.ligneTitres = 0;
  if (const char signe = SigneDeSep(source, lecture.encodage); signe != '\0') {
    lecture.ligneSep = true;
    lecture.separateur = signe;
    retenu = Prelever(source, lecture);
    return;
  }
  Essai meilleur;
  constexpr double kEgalite = 0.1;  // of the rows: a separator better by less leaves the usual one
  for (const char candidat : kCandidats) {
    lecture.separateur = candidat;
    Echantillon echantillon = Prelever(source, lecture);
    if (echantillon.rangees.empty()) continue;
    const Essai essai = Essayer(candidat, echantillon.rangees);
    if (essai.note <= meilleur.note + kEgalite && !retenu.rangees.empty()) continue;
    if (essai.note > 0) meilleur = essai;
    retenu = std::move(echantillon);
  }
  lecture.separateur = meilleur.separateur;
  if (meilleur.note <= 0) retenu = Prelever(source, lecture);  // one column
  if (meilleur.titres == 0 || retenu.rangees.empty()) return;
  detectee.doutes.push_back(Joindre({"Les lignes avant la ligne ", Nombre(retenu.lignes[meilleur.titres]),
                                     " ne sont pas du tableau : elles sont laissées de côté."_w}));
  retenu.rangees.erase(retenu.rangees.begin(), retenu.rangees.begin() + static_cast<std::ptrdiff_t>(meilleur.titres));
  retenu.lignes.erase(retenu.lignes.begin(), retenu.lignes.begin() + static_cast<std::ptrdiff_t>(meilleur.titres));
}

}  // namespace

Lecture LectureImposee::Appliquer(Lecture lecture) const {
  if (encodage) lecture.encodage = *encodage;
  if (decimale) {
    lecture.decimale = *decimale;
    lecture.sourceDeDecimale = SourceDeDecimale::Donnee;
  }
  if (guillemets) lecture.guillemets = *guillemets;
  const std::size_t premiere = lecture.ligneSep ? 2 : 1;
  if (separateur && *separateur != lecture.separateur) {
    lecture.separateur = *separateur;
    if (lecture.ligneTitres > 0) lecture.ligneTitres = premiere;
  }
  if (titres && !*titres) lecture.ligneTitres = 0;
  if (titres && *titres && lecture.ligneTitres == 0) lecture.ligneTitres = premiere;
  return lecture;
}

LectureDetectee DetecterLecture(const Chemin& source, EtendueDeLecture etendue) {
  LectureDetectee detectee;
  const EncodageDetecte encodage = DetecterEncodage(source, etendue);
  detectee.lecture.encodage = encodage.encodage;
  detectee.lecture.crSeuls = encodage.crSeuls;
  detectee.doutes = encodage.doutes;
  Echantillon echantillon;
  ChoisirSeparateur(detectee, source, echantillon);
  if (echantillon.rangees.empty())
    throw Erreur(kIncompatibiliteType, Joindre({kArretDuProgramme, "le fichier ", TexteDe(source.filename()),
                                                " ne contient aucune valeur."}));
  const PremiereLigne premiere = JugerPremiereLigne(echantillon.rangees);
  if (premiere.titres) detectee.lecture.ligneTitres = static_cast<std::size_t>(echantillon.lignes.front());
  detectee.douteTitres = premiere.doute;
  ChoisirDecimale(detectee, echantillon);
  if (echantillon.guillemetSansFin > 0)
    detectee.doutes.push_back(
        Joindre({"Un guillemet ouvert à la ligne "_w, Nombre(echantillon.guillemetSansFin), " n'est jamais fermé."_w}));
  return detectee;
}

std::vector<std::string> LectureDetectee::DoutesDe(const Lecture& enCours) const {
  std::vector<std::string> restants = doutes;
  if (!douteTitres.empty() && (enCours.ligneTitres == 0) == (lecture.ligneTitres == 0)) restants.push_back(douteTitres);
  return restants;
}

std::string_view NomEncodage(EncodageDeTable encodage) {
  switch (encodage) {
    case EncodageDeTable::Utf8: return "utf-8";
    case EncodageDeTable::Utf8AvecMarque: return "utf-8 avec marque";
    case EncodageDeTable::Utf16LE: return "utf-16le";
    case EncodageDeTable::Utf16BE: return "utf-16be";
    case EncodageDeTable::Windows1252: return "windows-1252";
    case EncodageDeTable::Latin9: return "latin-9";
    case EncodageDeTable::Cp850: return "cp850";
  }
  return {};
}

std::string_view NomSeparateur(char separateur) {
  switch (separateur) {
    case ';': return "point-virgule";
    case ',': return "virgule";
    case '\t': return "tabulation";
    default: return "barre";
  }
}

std::string_view NomDecimale(char decimale) { return decimale == ',' ? "virgule" : "point"; }

std::string DireLecture(const Lecture& lecture) {
  std::string phrase = Joindre({NomEncodage(lecture.encodage), ", séparateur "_w, NomSeparateur(lecture.separateur),
                                ", ", lecture.decimale == ',' ? "virgule décimale"_w : "point décimal"_w,
                                std::string_view(lecture.guillemets ? ", guillemets" : ", sans guillemets")});
  if (lecture.ligneSep) phrase += ", ligne \"sep=\"";
  return phrase + DireIntitules(lecture);
}

std::string DireIntitules(const Lecture& lecture) {
  return lecture.ligneTitres == 0 ? Joindre({", sans intitulés"_w})
                                  : Joindre({", intitulés à la ligne "_w, Nombre(lecture.ligneTitres)});
}

}  // namespace quelvar::capture
