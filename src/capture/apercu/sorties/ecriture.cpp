#include "capture/apercu/sorties/ecriture.h"

#include <algorithm>
#include <optional>

#include "capture/apercu/observation/listes.h"
#include "capture/apercu/observation/mots.h"
#include "capture/apercu/octets/cellule.h"
#include "capture/colonnes/compterendu.h"
#include "capture/colonnes/metteur.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/nomdemodalite.h"
#include "core/enquete/posfile.h"
#include "core/programme/rapport.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kNomIndividu = 4;
constexpr std::size_t kCodesComptes = kDernierCodeNomme + 1;
constexpr int kSansCode = -1;
constexpr int kRefus = -2;
constexpr int kInconnu = -3;

bool EstDUnCode(Regle regle) {
  return regle == Regle::Code || regle == Regle::Texte || regle == Regle::Classe || regle == Regle::Reponse;
}

bool EstEntier(std::string_view cellule, const SignesDeNombres& signes) {
  const std::optional<NombreDeCellule> nombre = LireNombre(cellule, signes);
  return nombre && nombre->EstEntier();
}

class EcritureDeTable {
 public:
  EcritureDeTable(const PlanDImport& plan, std::int64_t individus, const SortiesDeTable& sorties)
      : plan_(plan),
        sorties_(sorties),
        metteur_(plan.colonnes, true),
        reponses_(plan.colonnes.size()),
        textes_(plan.longues.size()),
        nombres_(plan.nombres.size()) {
    bilan_.effectifs.resize(plan.colonnes.size());
    for (std::size_t k = 0; k < plan.colonnes.size(); ++k)
      if (!plan.etiquettes[k].empty()) bilan_.effectifs[k].resize(kCodesComptes);
    bilan_.videsParNombre.resize(plan.nombres.size());
    largeurRang_ = Nombre(individus).size();
    bilan_.finCaracteristiques =
        (metteur_.LargeurAlignee() > 0 ? metteur_.LargeurAlignee() : largeurRang_) + (textes_.size() > 1 ? 1 : 0);
    for (std::size_t j = 0; j < plan.lues.size(); ++j) {
      if (plan.lues[j].longue) textesDe_.push_back(j);
      if (plan.lues[j].gardee) nombresDe_.push_back(j);
    }
  }

  void Ecrire(LigneDeTableur cellules, std::int64_t ligne);
  // Lays a row of the trace; false when one of its cells is to be read in the source.
  bool Ecrire(const TraceDeCellules& trace, std::span<const std::uint16_t> rangee);
  Bilan Achever() { return std::move(bilan_); }

 private:
  void Traiter(std::size_t j, std::string_view cellule);
  // The code of a cell in a column of one code; kSansCode for an empty one that stays so, kRefus.
  int CodeDe(const ColonneLue& lue, std::string_view cellule) const;
  int CodeDesChiffres(const ColonneLue& lue, std::string_view cellule) const;
  void PlacerCode(std::size_t k, int code);
  void PlacerAlphabetique(std::size_t k, std::string_view cellule);
  void FinirLaRangee();
  void PlacerListe(const ColonneLue& lue, std::size_t j, std::string_view cellule);
  void GarderNombre(const ColonneLue& lue, std::size_t j, std::string_view cellule);
  void GarderTexte(std::size_t j, std::string_view cellule);
  void Refuser(std::size_t j, std::string_view cellule);
  void EcrireTextes();
  void EcrireNombres();
  // Whether the cell is one of the texts that count as 0.
  static bool EstZero(const ColonneLue& lue, std::string_view cellule) {
    if (!lue.avecZeros) return false;
    const std::uint32_t rang = lue.textes.Chercher(cellule);
    return rang != TableDeTextes::kAbsent && lue.codes[rang] == 0;
  }

  const PlanDImport& plan_;
  SortiesDeTable sorties_;
  MetteurEnColonnes metteur_;
  Bilan bilan_;
  std::int64_t ligne_ = 0;
  std::vector<char> reponses_;  // of the lists of the row, by column of .DAT
  std::vector<std::string> textes_;
  std::vector<std::string> nombres_;
  std::vector<std::size_t> textesDe_;  // columns of the table
  std::vector<std::size_t> nombresDe_;
  std::size_t largeurRang_ = 1;
  std::vector<std::vector<std::int16_t>> codes_;  // of a trace: by column, the code of each value met so far
  std::string enregistrement_;
};

void EcritureDeTable::Refuser(std::size_t j, std::string_view cellule) {
  ++bilan_.refus;
  if (bilan_.refusees.size() < kRefuseesGardees) bilan_.refusees.push_back({j, ligne_, std::string(cellule)});
}

void EcritureDeTable::PlacerCode(std::size_t k, int code) {
  if (const auto rang = static_cast<std::size_t>(code); rang < bilan_.effectifs[k].size()) ++bilan_.effectifs[k][rang];
  if (code < 10) {
    metteur_.PlacerChiffre(k, static_cast<char>('0' + code));
    return;
  }
  const std::array<char, 3> chiffres = {static_cast<char>('0' + code / 100), static_cast<char>('0' + code / 10 % 10),
                                        static_cast<char>('0' + code % 10)};
  metteur_.Placer(k, std::string_view(chiffres.data(), chiffres.size()).substr(code < 100 ? 1 : 0));
}

int EcritureDeTable::CodeDesChiffres(const ColonneLue& lue, std::string_view cellule) const {
  if (lue.avecTextes)
    if (const std::uint32_t rang = lue.textes.Chercher(cellule); rang != TableDeTextes::kAbsent) return lue.codes[rang];
  const std::size_t largeur = plan_.colonnes[lue.premiere].largeur;
  if (const int code = cellule.size() <= largeur ? ValeurDesChiffres(cellule) : -1; code >= 0) return code;
  const std::optional<NombreDeCellule> nombre = LireNombre(cellule);
  if (!nombre || !nombre->ValeurEntiere()) return kRefus;
  const std::string normal = nombre->SansDecimales().Normalise();
  if (normal.front() == '-') return 0;
  if (normal.size() > largeur) return kRefus;
  return static_cast<int>(ValeurDe(normal));
}

// A text of several lines stays on one.
void EcritureDeTable::PlacerAlphabetique(std::size_t k, std::string_view cellule) {
  if (cellule.find_first_of("\r\n\x1A") == std::string_view::npos) return metteur_.Placer(k, cellule);
  std::string texte(cellule);
  for (char& c : texte)
    if (c == '\r' || c == '\n' || c == '\x1A') c = ' ';
  metteur_.Placer(k, texte);
}

int EcritureDeTable::CodeDe(const ColonneLue& lue, std::string_view cellule) const {
  if (cellule.empty() && lue.regle != Regle::Reponse) return kSansCode;
  if (lue.regle == Regle::Code) return CodeDesChiffres(lue, cellule);
  if (lue.regle == Regle::Classe) {
    if (EstZero(lue, cellule)) return 0;
    const std::optional<NombreDeCellule> nombre = LireNombre(cellule, lue.signes);
    if (!nombre) return kRefus;
    const auto classe = std::ranges::upper_bound(lue.limites, ValeurDe(nombre->Normalise())) - lue.limites.begin();
    return static_cast<int>(classe) + 1;
  }
  const std::uint32_t rang = lue.textes.Chercher(cellule);
  if (rang != TableDeTextes::kAbsent) return lue.codes[rang];
  // An empty cell is an answer that was not given.
  return lue.regle == Regle::Reponse && (cellule.empty() || EstNon(cellule)) ? 0 : kRefus;
}

void EcritureDeTable::PlacerListe(const ColonneLue& lue, std::size_t j, std::string_view cellule) {
  std::fill_n(reponses_.begin(), lue.nombre, '\0');
  if (!EstZero(lue, cellule)) {
    SeparerListe(cellule, lue.liste, [&](std::string_view element) {
      const std::uint32_t rang = lue.textes.Chercher(element);
      if (rang == TableDeTextes::kAbsent) Refuser(j, cellule);
      else if (lue.codes[rang] > 0) reponses_[static_cast<std::size_t>(lue.codes[rang]) - 1] = 1;
    });
  }
  for (std::size_t i = 0; i < lue.nombre; ++i) PlacerCode(lue.premiere + i, reponses_[i]);
}

void EcritureDeTable::GarderNombre(const ColonneLue& lue, std::size_t j, std::string_view cellule) {
  if (cellule.empty() || EstZero(lue, cellule)) return;
  const std::optional<NombreDeCellule> nombre = LireNombre(cellule, lue.signes);
  if (!nombre) return Refuser(j, cellule);
  const auto rang = static_cast<std::size_t>(std::ranges::find(nombresDe_, j) - nombresDe_.begin());
  nombres_[rang] = nombre->Normalise();
}

void EcritureDeTable::GarderTexte(std::size_t j, std::string_view cellule) {
  const auto rang = static_cast<std::size_t>(std::ranges::find(textesDe_, j) - textesDe_.begin());
  std::string& texte = textes_[rang];
  texte = cellule;
  for (char& c : texte) {
    if (c == '*') ++bilan_.etoiles;
    if (c == '*' || static_cast<unsigned char>(c) < 0x20 || c == kInsecable) c = ' ';
  }
}

void EcritureDeTable::Traiter(std::size_t j, std::string_view cellule) {
  const ColonneLue& lue = plan_.lues[j];
  if (lue.longue) GarderTexte(j, cellule);
  if (lue.gardee) GarderNombre(lue, j, cellule);
  switch (lue.regle) {
    case Regle::Rien: break;
    case Regle::Code:
    case Regle::Texte:
    case Regle::Classe:
    case Regle::Reponse:
      if (const int code = CodeDe(lue, cellule); code >= 0) PlacerCode(lue.premiere, code);
      else if (code == kRefus) Refuser(j, cellule);
      break;
    case Regle::Telle:
      if (lue.entiers && !cellule.empty() && !EstZero(lue, cellule) && !EstEntier(cellule, lue.signes))
        Refuser(j, cellule);
      metteur_.Placer(lue.premiere, cellule);
      break;
    case Regle::Alphabetique: PlacerAlphabetique(lue.premiere, cellule); break;
    case Regle::Liste: PlacerListe(lue, j, cellule); break;
  }
}

// One record a text: the characteristics, which of the columns it is when there are several, the text and its star.
void EcritureDeTable::EcrireTextes() {
  for (std::size_t i = 0; i < textes_.size(); ++i) {
    enregistrement_ = metteur_.LargeurAlignee() > 0 ? std::string(metteur_.PartieAlignee())
                                                    : EntierDroit(bilan_.individus, static_cast<int>(largeurRang_));
    if (textes_.size() > 1) enregistrement_ += CodeCaractere(std::min(static_cast<int>(i + 1), kPremierCodeDouble - 1));
    enregistrement_.append(textes_[i]).append(1, '*');
    sorties_.txt->Ligne(enregistrement_);
    ++bilan_.textes;
    textes_[i].clear();
  }
}

// An empty cell would be read as 0: the individual is left out.
void EcritureDeTable::EcrireNombres() {
  bool complet = true;
  for (std::size_t i = 0; i < nombres_.size(); ++i) {
    if (!nombres_[i].empty()) continue;
    ++bilan_.videsParNombre[i];
    complet = false;
  }
  if (complet) {
    const std::string rang = Nombre(bilan_.individus);
    enregistrement_ = CadreGauche(rang.size() <= kNomIndividu ? std::string_view(rang) : std::string_view{},
                                  static_cast<int>(kNomIndividu));
    for (const std::string& nombre : nombres_)
      enregistrement_.append(plan_.largeurNombres - nombre.size(), ' ').append(nombre);
    sorties_.cdg->Ligne(enregistrement_);
  } else {
    ++bilan_.sansNombre;
  }
  for (std::string& nombre : nombres_) nombre.clear();
}

void EcritureDeTable::Ecrire(LigneDeTableur cellules, std::int64_t ligne) {
  ligne_ = ligne;
  ++bilan_.individus;
  metteur_.Commencer();
  std::size_t j = 0;
  const std::size_t colonnes = plan_.lues.size();
  for (std::string_view cellule; j < colonnes && cellules.Suivante(cellule); ++j) {
    if (!cellule.empty()) cellule = RognerCellule(cellule);
    Traiter(j, cellule);
  }
  for (; j < colonnes; ++j) Traiter(j, {});
  FinirLaRangee();
}

void EcritureDeTable::FinirLaRangee() {
  const std::string_view individu = metteur_.Finir(plan_.colonnes.size());
  if (!textes_.empty()) EcrireTextes();
  if (!nombres_.empty()) EcrireNombres();
  if (bilan_.premieres.size() < kLignesDeVerification) bilan_.premieres.emplace_back(individu);
  sorties_.dat->Ligne(individu);
}

bool EcritureDeTable::Ecrire(const TraceDeCellules& trace, std::span<const std::uint16_t> rangee) {
  using namespace cellule_tracee;
  if (codes_.empty()) {
    codes_.resize(rangee.size());
    for (std::size_t j = 0; j < rangee.size(); ++j) codes_[j].resize(trace.Valeurs(j), std::int16_t{kInconnu});
  }
  ++bilan_.individus;
  metteur_.Commencer();
  for (std::size_t j = 0; j < plan_.lues.size(); ++j) {
    const ColonneLue& lue = plan_.lues[j];
    if (lue.regle == Regle::Rien) continue;
    const std::uint16_t cellule = j < rangee.size() ? rangee[j] : kVide;
    if (cellule == kAutre) return false;
    if (!EstDUnCode(lue.regle) || cellule == kNonDit || j >= codes_.size()) {
      Traiter(j, trace.Texte(j, cellule));
      continue;
    }
    std::int16_t& code = codes_[j][cellule];
    if (code == kInconnu) code = static_cast<std::int16_t>(CodeDe(lue, trace.Texte(j, cellule)));
    if (code == kRefus) return false;
    if (code >= 0) PlacerCode(lue.premiere, code);
  }
  FinirLaRangee();
  return bilan_.refus == 0;
}

}  // namespace

std::optional<Bilan> EcrireSelonTrace(const TraceDeCellules& trace, const PlanDImport& plan, std::int64_t individus,
                                      Ecrivain& dat, const std::function<void()>& avancer) {
  if (!trace.Suivie() || !plan.longues.empty() || !plan.nombres.empty() || trace.Rangees() != individus)
    return std::nullopt;
  EcritureDeTable ecriture(plan, individus, {&dat, nullptr, nullptr});
  bool entiere = true;
  trace.Parcourir([&](std::span<const std::uint16_t> rangee) {
    entiere = entiere && ecriture.Ecrire(trace, rangee);
    if (entiere) avancer();
    return entiere;
  });
  if (!entiere) return std::nullopt;
  return ecriture.Achever();
}

Bilan EcrireTable(const Chemin& source, const Lecture& lecture, const PlanDImport& plan, std::int64_t individus,
                  const SortiesDeTable& sorties, const std::function<void()>& avancer) {
  LecteurDeRangees lecteur(source, lecture);
  EcritureDeTable ecriture(plan, individus, sorties);
  lecteur.PasserTitres();
  for (std::string_view rangee; lecteur.Lire(rangee);) {
    if (lecteur.SansValeur(rangee)) continue;
    ecriture.Ecrire(lecteur.Cellules(rangee), lecteur.Ligne());
    avancer();
  }
  return ecriture.Achever();
}

}  // namespace quelvar::capture
