#include "capture/classeur/xlsx.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "capture/classeur/valeurs.h"
#include "capture/classeur/xml.h"

namespace quelvar::capture::classeur {

namespace {

// Formats below this number may go without a code.
constexpr std::int64_t kPremierAvecCode = 164;
// Together the texts that cells share may take this much of the memory.
constexpr std::size_t kTextesAuPlus = std::size_t{512} << 20;

struct Relation {
  std::string type;  // its last word
  std::string cible;
};

// The target of a relation as a part of the archive: beside its source, or from the root.
std::string PartieDe(const std::string& dossier, std::string_view cible) {
  if (cible.starts_with('/')) return std::string(cible.substr(1));
  std::string base = dossier;
  while (cible.starts_with("../")) {
    cible.remove_prefix(3);
    const std::size_t barre = base.rfind('/', base.size() < 2 ? 0 : base.size() - 2);
    base.resize(barre == std::string::npos ? 0 : barre + 1);
  }
  return base + std::string(cible);
}

// The relations of a part by their identifiers.
std::map<std::string, Relation> Relations(const Archive& archive, const std::string& dossier, const std::string& nom) {
  std::map<std::string, Relation> relations;
  const std::string partie = dossier + "_rels/" + nom + ".rels";
  if (!archive.Contient(partie)) return relations;
  LireXml(archive.Ouvrir(partie), {[&](const NomXml& element, const AttributsXml& attributs) {
                                     if (element.local != "Relationship") return;
                                     if (attributs.Valeur("TargetMode") == "External") return;
                                     const std::string_view type = attributs.Valeur("Type");
                                     relations[std::string(attributs.Valeur("Id"))] = {
                                         std::string(type.substr(type.rfind('/') + 1)),
                                         PartieDe(dossier, attributs.Valeur("Target"))};
                                   },
                                   [](const NomXml&) {}, [](std::string_view) {}, nullptr});
  return relations;
}

std::string PartieDuClasseur(const Archive& archive) {
  for (const auto& [id, relation] : Relations(archive, "", ""))
    if (relation.type == "officeDocument") return relation.cible;
  return "xl/workbook.xml";
}

std::int64_t Entier(std::string_view texte, std::int64_t sinon) {
  std::int64_t valeur = sinon;
  const auto [fin, faute] = std::from_chars(texte.data(), texte.data() + texte.size(), valeur);
  return faute == std::errc() && fin == texte.data() + texte.size() ? valeur : sinon;
}

// "_x000D_" is how a character that XML does not hold is written.
std::string SansEchappement(std::string_view texte) {
  std::string rendu(texte);
  constexpr std::size_t kLongueur = 7;
  for (std::size_t i = rendu.find("_x"); i != std::string::npos; i = rendu.find("_x", i + 1)) {
    unsigned point = 0;
    const char* chiffres = rendu.data() + i + 2;
    if (rendu.size() < i + kLongueur || rendu[i + kLongueur - 1] != '_' ||
        std::from_chars(chiffres, chiffres + 4, point, 16).ptr != chiffres + 4)
      continue;
    if (point >= 0x80) continue;
    rendu.replace(i, kLongueur, 1, point < 0x20 ? ' ' : static_cast<char>(point));
  }
  return rendu;
}

// Texts one behind the other in one buffer.
struct TextesPartages {
  std::string octets;
  std::vector<std::size_t> fins;

  std::string_view Texte(std::size_t rang) const {
    const std::size_t debut = rang == 0 ? 0 : fins[rang - 1];
    return std::string_view(octets).substr(debut, fins[rang] - debut);
  }
};

// The text of the <t> elements, without the phonetic ones.
struct TexteRiche {
  bool ouvert = false;
  bool phonetique = false;
  std::string texte;

  void Debut(const NomXml& nom) {
    if (nom.local == "rPh") phonetique = true;
    if (nom.local == "t") ouvert = !phonetique;
  }
  void Fin(const NomXml& nom) {
    if (nom.local == "rPh") phonetique = false;
    if (nom.local == "t") ouvert = false;
  }
  void Ajouter(std::string_view morceau) {
    if (ouvert && texte.size() <= kCelluleAuPlus) texte += morceau;
  }
};

TextesPartages LireTextes(const Archive& archive, const std::string& partie) {
  TextesPartages textes;
  if (partie.empty() || !archive.Contient(partie)) return textes;
  TexteRiche riche;
  LireXml(archive.Ouvrir(partie),
          {[&](const NomXml& nom, const AttributsXml&) {
             if (nom.local == "si") riche.texte.clear();
             riche.Debut(nom);
           },
           [&](const NomXml& nom) {
             riche.Fin(nom);
             if (nom.local != "si") return;
             textes.octets += SansEchappement(riche.texte);
             textes.fins.push_back(textes.octets.size());
             if (textes.octets.size() + textes.fins.size() * sizeof(std::size_t) > kTextesAuPlus)
               throw Erreur(kMemoireInsuffisante,
                            Joindre({"Ce classeur dépasse ce que l'import accepte : plus de 512 Mio de textes. "
                                     "Enregistrez la feuille en CSV depuis le tableur et importez ce fichier."_w}));
           },
           [&](std::string_view morceau) { riche.Ajouter(morceau); }, nullptr});
  return textes;
}

// What each style of a cell makes of a number.
std::vector<Sens> LireSens(const Archive& archive, const std::string& partie) {
  std::vector<Sens> sens;
  if (partie.empty() || !archive.Contient(partie)) return sens;
  std::map<std::int64_t, Sens> formats;
  bool deCellules = false;
  LireXml(archive.Ouvrir(partie), {[&](const NomXml& nom, const AttributsXml& attributs) {
                                     if (nom.local == "numFmt") {
                                       formats[Entier(attributs.Valeur("numFmtId"), -1)] =
                                           SensDuFormat(attributs.Valeur("formatCode"));
                                     } else if (nom.local == "cellXfs") {
                                       deCellules = true;
                                     } else if (nom.local == "xf" && deCellules) {
                                       const std::int64_t numero = Entier(attributs.Valeur("numFmtId"), 0);
                                       const auto connu = formats.find(numero);
                                       sens.push_back(connu != formats.end() ? connu->second
                                                      : numero >= 0 && numero < kPremierAvecCode
                                                          ? SensDuFormatPredefini(static_cast<int>(numero))
                                                          : Sens::Nombre);
                                     }
                                   },
                                   [&](const NomXml& nom) {
                                     if (nom.local == "cellXfs") deCellules = false;
                                   },
                                   [](std::string_view) {}, nullptr});
  return sens;
}

// "BC12" is column 54, counted from 0; -1 for what is no place.
std::int64_t ColonneDe(std::string_view place) {
  std::int64_t colonne = 0;
  for (const char c : place) {
    if (c < 'A' || c > 'Z') break;
    colonne = std::min<std::int64_t>(colonne * 26 + (c - 'A' + 1), kColonnesAuPlus + 1);
  }
  return colonne - 1;
}

class LecteurXlsx {
 public:
  LecteurXlsx(const TextesPartages& textes, const std::vector<Sens>& sens, bool depuis1904, Rangees& rangees)
      : textes_(textes), sens_(sens), depuis1904_(depuis1904), rangees_(rangees) {}

  void Debut(const NomXml& nom, const AttributsXml& attributs) {
    if (nom.local == "sheetData") {
      dansLesDonnees_ = true;
    } else if (!dansLesDonnees_) {
      return;
    } else if (nom.local == "row") {
      rangees_.Commencer(Entier(attributs.Valeur("r"), rangees_.Suivant()));
      colonne_ = -1;
    } else if (nom.local == "c") {
      const std::string_view place = attributs.Valeur("r");
      colonne_ = place.empty() ? colonne_ + 1 : ColonneDe(place);
      type_ = attributs.Valeur("t");
      style_ = Entier(attributs.Valeur("s"), 0);
      valeur_.clear();
      riche_.texte.clear();
    } else if (nom.local == "v") {
      dansLaValeur_ = true;
    } else {
      riche_.Debut(nom);
    }
  }

  void Fin(const NomXml& nom) {
    if (!dansLesDonnees_) return;
    riche_.Fin(nom);
    if (nom.local == "v") dansLaValeur_ = false;
    if (nom.local == "c") Poser();
    if (nom.local == "row") rangees_.Finir();
    if (nom.local == "sheetData") finie_ = true;
  }

  void Texte(std::string_view octets) {
    if (dansLaValeur_ && valeur_.size() <= kCelluleAuPlus) valeur_ += octets;
    riche_.Ajouter(octets);
  }

  bool Finie() const { return finie_; }

 private:
  void Poser() {
    if (type_ == "s") {
      if (valeur_.empty()) return;
      const std::int64_t rang = Entier(valeur_, -1);
      if (rang < 0 || static_cast<std::size_t>(rang) >= textes_.fins.size())
        RefuserClasseur("une cellule y renvoie à un texte qui n'existe pas"_w,
                        {{}, rangees_.Suivant(), static_cast<int>(colonne_ + 1)});
      rangees_.Poser(colonne_, textes_.Texte(static_cast<std::size_t>(rang)));
    } else if (type_ == "inlineStr") {
      rangees_.Poser(colonne_, SansEchappement(riche_.texte));
    } else if (type_ == "str" || type_ == "e") {
      rangees_.Poser(colonne_, SansEchappement(valeur_));
    } else if (type_ == "d") {
      rangees_.Poser(colonne_, TexteDuJour(valeur_));
    } else if (type_ == "b" && !valeur_.empty()) {
      rangees_.Poser(colonne_, valeur_ == "1" || valeur_ == "true" ? "VRAI" : "FAUX");
    } else if (!valeur_.empty()) {
      const auto style = static_cast<std::size_t>(std::max<std::int64_t>(style_, 0));
      const Sens sens = style < sens_.size() ? sens_[style] : Sens::Nombre;
      rangees_.Poser(colonne_, TexteDeLaDate(valeur_, sens, depuis1904_));
    }
  }

  const TextesPartages& textes_;
  const std::vector<Sens>& sens_;
  bool depuis1904_;
  Rangees& rangees_;
  bool dansLesDonnees_ = false;
  bool dansLaValeur_ = false;
  bool finie_ = false;
  std::int64_t colonne_ = -1;
  std::int64_t style_ = 0;
  std::string type_;
  std::string valeur_;
  TexteRiche riche_;
};

}  // namespace

bool EstXlsx(const Archive& archive) { return archive.Contient(PartieDuClasseur(archive)); }

ClasseurXlsx OuvrirXlsx(const Archive& archive) {
  const std::string partie = PartieDuClasseur(archive);
  const std::size_t barre = partie.rfind('/');
  const std::string dossier = barre == std::string::npos ? "" : partie.substr(0, barre + 1);
  const std::map<std::string, Relation> relations = Relations(archive, dossier, partie.substr(dossier.size()));
  ClasseurXlsx classeur;
  for (const auto& [id, relation] : relations) {
    if (relation.type == "sharedStrings") classeur.textes = relation.cible;
    if (relation.type == "styles") classeur.formats = relation.cible;
  }
  LireXml(archive.Ouvrir(partie),
          {[&](const NomXml& nom, const AttributsXml& attributs) {
             if (nom.local == "workbookPr") {
               const std::string_view origine = attributs.Valeur("date1904");
               classeur.depuis1904 = origine == "1" || origine == "true";
             } else if (nom.local == "sheet") {
               const auto relation = relations.find(std::string(attributs.Valeur("id", "relationships")));
               // Sheets of graphs and macros have no cells.
               if (relation == relations.end() || relation->second.type != "worksheet") return;
               const std::string_view etat = attributs.Valeur("state");
               classeur.feuilles.push_back({std::string(attributs.Valeur("name")), relation->second.cible,
                                            etat == "hidden" || etat == "veryHidden"});
             }
           },
           [](const NomXml&) {}, [](std::string_view) {}, nullptr});
  return classeur;
}

void LireXlsx(const Archive& archive, const ClasseurXlsx& classeur, std::size_t rang, Rangees& rangees) {
  const TextesPartages textes = LireTextes(archive, classeur.textes);
  const std::vector<Sens> sens = LireSens(archive, classeur.formats);
  LecteurXlsx lecteur(textes, sens, classeur.depuis1904, rangees);
  LireXml(archive.Ouvrir(classeur.feuilles.at(rang).partie),
          {[&](const NomXml& nom, const AttributsXml& attributs) { lecteur.Debut(nom, attributs); },
           [&](const NomXml& nom) { lecteur.Fin(nom); }, [&](std::string_view texte) { lecteur.Texte(texte); },
           [&] { return lecteur.Finie(); }});
}

}  // namespace quelvar::capture::classeur
