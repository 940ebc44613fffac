#include "capture/classeur/ods.h"

#include <algorithm>
#include <charconv>

#include "capture/classeur/valeurs.h"
#include "capture/classeur/xml.h"

namespace quelvar::capture::classeur {

namespace {

const std::string kContenu = "content.xml";
constexpr std::string_view kOffice = "office:1.0";
constexpr std::string_view kTable = "table:1.0";
constexpr std::string_view kTexte = "text:1.0";

std::int64_t Fois(const AttributsXml& attributs, std::string_view nom) {
  const std::string_view ecrit = attributs.Valeur(nom, kTable);
  std::int64_t fois = 1;
  if (!ecrit.empty()) std::from_chars(ecrit.data(), ecrit.data() + ecrit.size(), fois);
  return std::max<std::int64_t>(fois, 1);
}

// A table of the document itself: not one that a cell, a drawing or the history of changes holds, nor the copy of a
// sheet of another workbook.
bool EstFeuille(const NomXml& nom, const AttributsXml& attributs, int profondeur) {
  constexpr int kSousLeTableur = 3;  // document-content, body, spreadsheet
  return profondeur == kSousLeTableur && nom.local == "table" && nom.Dans(kTable) &&
         !attributs.Valeur("name", kTable).starts_with("'file:");
}

class LecteurOds {
 public:
  LecteurOds(std::size_t rang, Rangees& rangees) : aPasser_(rang + 1), rangees_(rangees) {}

  void Debut(const NomXml& nom, const AttributsXml& attributs) {
    ++profondeur_;
    if (feuille_ == 0) {
      if (EstFeuille(nom, attributs, profondeur_ - 1) && --aPasser_ == 0) feuille_ = profondeur_;
      return;
    }
    if (ignore_ != 0) return;
    if (cellule_ != 0) {
      DebutDansLaCellule(nom, attributs);
      return;
    }
    if (!nom.Dans(kTable)) {
      ignore_ = profondeur_;
    } else if (nom.local == "table-row") {
      repetitionsLigne_ = Fois(attributs, "number-rows-repeated");
      colonne_ = 0;
      rangees_.Commencer(rangees_.Suivant());
    } else if (nom.local == "table-cell" || nom.local == "covered-table-cell") {
      DebutDeCellule(attributs, nom.local == "covered-table-cell");
    } else if (nom.local == "shapes" || nom.local == "table" || nom.local == "scenario") {
      ignore_ = profondeur_;
    }
  }

  void Fin(const NomXml& nom) {
    if (ignore_ != 0) {
      if (ignore_ == profondeur_) ignore_ = 0;
    } else if (cellule_ != 0) {
      if (paragraphe_ == profondeur_) paragraphe_ = 0;
      if (cellule_ == profondeur_) FinDeCellule();
    } else if (feuille_ != 0) {
      if (nom.local == "table-row" && nom.Dans(kTable)) rangees_.Finir(repetitionsLigne_);
      if (feuille_ == profondeur_) finie_ = true;
    }
    --profondeur_;
  }

  void Texte(std::string_view octets) {
    if (paragraphe_ != 0 && ignore_ == 0 && texte_.size() <= kCelluleAuPlus) texte_ += octets;
  }

  bool Finie() const { return finie_; }

 private:
  void DebutDeCellule(const AttributsXml& attributs, bool couverte) {
    cellule_ = profondeur_;
    paragraphe_ = 0;
    paragraphes_ = 0;
    texte_.clear();
    valeur_.clear();
    couverte_ = couverte;
    repetitions_ = Fois(attributs, "number-columns-repeated");
    const std::string_view type = attributs.Valeur("value-type", kOffice);
    if (type == "float" || type == "percentage" || type == "currency")
      valeur_ = TexteDuNombre(attributs.Valeur("value", kOffice));
    else if (type == "date") valeur_ = TexteDuJour(attributs.Valeur("date-value", kOffice));
    else if (type == "time") valeur_ = TexteDeLaDuree(attributs.Valeur("time-value", kOffice));
    else if (type == "boolean") valeur_ = attributs.Valeur("boolean-value", kOffice) == "true" ? "VRAI" : "FAUX";
    else if (type == "string") valeur_ = attributs.Valeur("string-value", kOffice);
  }

  void DebutDansLaCellule(const NomXml& nom, const AttributsXml& attributs) {
    if (!nom.Dans(kTexte)) {
      ignore_ = profondeur_;  // comments, drawings, a table in the cell
    } else if (paragraphe_ == 0) {
      if (nom.local != "p" && nom.local != "h") return;
      paragraphe_ = profondeur_;
      if (paragraphes_++ > 0) texte_ += ' ';
    } else if (nom.local == "s") {
      const std::string_view ecrit = attributs.Valeur("c", kTexte);
      std::size_t fois = 1;
      if (!ecrit.empty()) std::from_chars(ecrit.data(), ecrit.data() + ecrit.size(), fois);
      texte_.append(std::min<std::size_t>(fois, kCelluleAuPlus), ' ');
    } else if (nom.local == "tab" || nom.local == "line-break") {
      texte_ += ' ';
    } else if (nom.local == "note" || nom.local == "ruby-text") {
      ignore_ = profondeur_;
    }
  }

  void FinDeCellule() {
    cellule_ = 0;
    if (!couverte_) rangees_.Poser(colonne_, valeur_.empty() ? texte_ : valeur_, repetitions_);
    colonne_ = std::min(colonne_ + std::min(repetitions_, kColonnesAuPlus), kColonnesAuPlus + 1);
  }

  std::size_t aPasser_;  // sheets up to the one that is wanted
  Rangees& rangees_;
  int profondeur_ = 0;
  // Depth of the element that is being read, 0 when none of its kind is open.
  int feuille_ = 0;
  int cellule_ = 0;
  int paragraphe_ = 0;
  int ignore_ = 0;
  int paragraphes_ = 0;
  std::int64_t colonne_ = 0;
  std::int64_t repetitions_ = 1;
  std::int64_t repetitionsLigne_ = 1;
  std::string texte_;
  std::string valeur_;
  bool couverte_ = false;
  bool finie_ = false;
};

}  // namespace

bool EstOds(const Archive& archive) { return archive.Contient(kContenu); }

std::vector<std::string> FeuillesOds(const Archive& archive) {
  constexpr std::size_t kDebut = 1 << 20;
  if (archive.Debut("META-INF/manifest.xml", kDebut).find("encryption-data") != std::string::npos)
    RefuserClasseur("il est protégé par un mot de passe"_w);
  std::vector<std::string> noms;
  int profondeur = 0;
  LireXml(archive.Ouvrir(kContenu), {[&](const NomXml& nom, const AttributsXml& attributs) {
                                       if (EstFeuille(nom, attributs, profondeur))
                                         noms.emplace_back(attributs.Valeur("name", kTable));
                                       ++profondeur;
                                     },
                                     [&](const NomXml&) { --profondeur; }, [](std::string_view) {}, nullptr});
  return noms;
}

void LireOds(const Archive& archive, std::size_t rang, Rangees& rangees) {
  LecteurOds lecteur(rang, rangees);
  LireXml(archive.Ouvrir(kContenu),
          {[&](const NomXml& nom, const AttributsXml& attributs) { lecteur.Debut(nom, attributs); },
           [&](const NomXml& nom) { lecteur.Fin(nom); }, [&](std::string_view texte) { lecteur.Texte(texte); },
           [&] { return lecteur.Finie(); }});
}

}  // namespace quelvar::capture::classeur
