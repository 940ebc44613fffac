#include "sorts/recodage/etiquettes.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/nomdemodalite.h"
#include "core/programme/rapport.h"
#include "core/texte/caracteres.h"
#include "sorts/recodage/posneuf.h"
#include "sorts/regles/regles.h"

namespace quelvar::sorts {

namespace {

constexpr std::size_t kDebutDesModalites = 2;  // lines before them
constexpr int kHorsCode = -1;                  // no code is written so
constexpr std::string_view kChiffres = "0123456789";
constexpr std::size_t kColonnesDeBorne = 15;  // of a bound, with its dash: more would not be read exactly

// "15-25 ans": two numbers and what follows.
struct TrancheDIntitule {
  std::int64_t debut = 0;
  std::int64_t fin = 0;
  std::string_view unite;
};

std::optional<TrancheDIntitule> LireTranche(std::string_view intitule) {
  const std::size_t tiret = intitule.find_first_not_of(kChiffres);
  if (tiret == 0 || tiret == std::string_view::npos || intitule[tiret] != '-') return std::nullopt;
  const std::size_t unite = std::min(intitule.find_first_not_of(kChiffres, tiret + 1), intitule.size());
  if (unite == tiret + 1 || tiret > kColonnesDeBorne || unite - tiret > kColonnesDeBorne) return std::nullopt;
  return TrancheDIntitule{Entier64(ValeurDe(intitule.substr(0, tiret))),
                          Entier64(ValeurDe(intitule.substr(tiret + 1, unite - tiret - 1))), intitule.substr(unite)};
}

// The range that two touching ones make.
std::optional<std::string> Reunir(std::string_view premier, std::string_view second) {
  const std::optional<TrancheDIntitule> a = LireTranche(premier);
  const std::optional<TrancheDIntitule> b = LireTranche(second);
  if (!a || !b || a->unite != b->unite || (b->debut != a->fin && b->debut != a->fin + 1)) return std::nullopt;
  return Joindre({Nombre(a->debut), "-", Nombre(b->fin), a->unite});
}

// At most so many columns, cut behind a word where one ends; a "+" that nothing follows goes, too.
std::string Couper(std::string_view texte) {
  if (texte.size() <= kIntituleDeModaliteAuPlus) return std::string(texte);
  std::string_view coupe = texte.substr(0, kIntituleDeModaliteAuPlus);
  if (texte[kIntituleDeModaliteAuPlus] != ' ')
    if (const std::size_t blanc = coupe.rfind(' '); blanc != std::string_view::npos) coupe = coupe.substr(0, blanc);
  coupe = RognerDroite(coupe);
  if (coupe.ends_with(" +")) coupe = RognerDroite(coupe.substr(0, coupe.size() - 2));
  return std::string(coupe);
}

// What the name of a line tells.
struct LigneLue {
  std::string question;  // three characters; empty when it is of none, or of one that cannot be told
  int code = kHorsCode;
  bool indecise = false;  // of several questions, and its place does not tell of which
};

// The name of a modality that no question has, under the question that its letters tell: a code that went with an
// older code-max, or a character that is no code.
LigneLue LireNomPerdu(const FichierPos& pos, std::string_view nom) {
  const Question* seule = nullptr;
  const std::string_view chiffres = Milieu(nom, kLargeurDeQuestion, 2);
  const bool deuxChiffres = SontChiffres(chiffres) && ValeurDe(chiffres) >= kPremierCodeDouble;
  for (const Question& question : pos.questions) {
    if (question.nom == Milieu(nom, 1, kLargeurDeQuestion)) return {question.nom};
    if (!deuxChiffres || Milieu(question.nom, 1, 2) != Milieu(nom, 1, 2)) continue;
    if (seule != nullptr) return {{}, kHorsCode, true};
    seule = &question;
  }
  return {seule != nullptr ? seule->nom : std::string(Milieu(nom, 1, kLargeurDeQuestion))};
}

std::vector<LigneLue> LireNoms(const FichierMod& mod, const FichierPos& pos) {
  std::vector<LigneLue> lues(mod.lignes.size());
  std::optional<CodeDeModalite> precedente;
  for (std::size_t i = kDebutDesModalites; i < mod.lignes.size(); ++i) {
    const std::string nom = CadreGauche(mod.lignes[i], kLargeurDeModalite);
    CodeDeModalite lu;
    const FauteDeNom faute =
        FinitLesModalites(nom) ? FauteDeNom::HorsNorme : LireNomDeModalite(pos, nom, precedente, lu);
    precedente = faute == FauteDeNom::Aucune ? std::optional(lu) : std::nullopt;
    if (precedente) lues[i] = {pos.questions[lu.question].nom, lu.code};
    else if (faute == FauteDeNom::Partagee) lues[i].indecise = true;
    else if (!FinitLesModalites(nom)) lues[i] = LireNomPerdu(pos, nom);
  }
  return lues;
}

bool EstDe(const LigneLue& lue, std::string_view question) {
  return lue.question == CadreGauche(question, kLargeurDeQuestion);
}

using Places = std::map<std::pair<std::string, int>, std::size_t>;  // first line by question and code

// One question at work: its new modalities, and where the first old line that makes each of them stands.
class Reprise {
 public:
  Reprise(const CodesChanges& changee, const Places& places, const FichierMod& mod) {
    std::map<int, std::vector<std::size_t>> sources;  // lines by new code, in the order of the old codes
    for (std::size_t ancien = 0; ancien < changee.table.size() && ancien <= kDernierCodeNomme; ++ancien) {
      const auto place = places.find({changee.question, static_cast<int>(ancien)});
      const int nouveau = changee.table[ancien];
      if (place != places.end() && nouveau >= 0 && nouveau <= kDernierCodeNomme)
        sources[nouveau].push_back(place->second);
    }
    for (const auto& [code, lignes] : sources) Ajouter(NomDeModalite(changee.nouvelle, code), lignes, mod);
  }

  bool Vide() const { return derriere_.empty() && devant_.empty(); }
  const std::vector<std::string>& Lignes(bool derriere) const { return derriere ? derriere_ : devant_; }

 private:
  void Ajouter(const std::string& nom, const std::vector<std::size_t>& lignes, const FichierMod& mod) {
    std::vector<std::string> intitules;
    bool supplementaire = true;
    bool derriere = true;
    for (const std::size_t ligne : lignes) {
      const Modalite lue = LireLigneModalite(mod.lignes[ligne]);
      supplementaire = supplementaire && lue.supplementaire;
      derriere = derriere && ligne >= mod.premiereApres;
      if (!Rogner(lue.intitule).empty()) intitules.emplace_back(Rogner(lue.intitule));
    }
    (derriere ? derriere_ : devant_).push_back(LigneModalite(nom, supplementaire, IntituleReuni(intitules)));
  }

  std::vector<std::string> devant_;    // in the list
  std::vector<std::string> derriere_;  // behind its end mark
};

Places PremieresLignes(const std::vector<LigneLue>& lues) {
  Places places;
  for (std::size_t i = kDebutDesModalites; i < lues.size(); ++i)
    if (lues[i].code != kHorsCode) places.emplace(std::pair(lues[i].question, lues[i].code), i);
  return places;
}

}  // namespace

std::string IntituleReuni(const std::vector<std::string>& intitules) {
  std::vector<std::string> reunis;
  for (const std::string& intitule : intitules) {
    std::optional<std::string> tranche;
    if (!reunis.empty()) tranche = Reunir(reunis.back(), intitule);
    if (tranche) reunis.back() = std::move(*tranche);
    else reunis.push_back(intitule);
  }
  std::string texte;
  for (const std::string& intitule : reunis) texte += (texte.empty() ? "" : " + ") + intitule;
  return Couper(texte);
}

bool CodesChanges::Change() const {
  for (std::size_t code = 0; code < table.size(); ++code)
    if (table[code] != static_cast<int>(code)) return true;
  return false;
}

std::vector<CodesChanges> CodesChangesPar(const FichierPos& pos, const OptionsRecodage& options) {
  std::vector<CodesChanges> changees;
  const bool enFin = options.enFin && !options.seules;
  for (const Question& question : pos.questions) {
    const bool sansRegle = question.regle.empty() || question.intituleOuvert;
    if (question.alphabetique || (sansRegle && !options.toutesSelectionnees)) continue;
    const RegleVerifiee regle = VerifierRegle(LireRegle(sansRegle ? "S" : question.regle),
                                              {question.codeMax, question.codeMax}, UsageRegle::Moteur);
    if (!regle.fautes.empty()) continue;
    changees.push_back(
        {question.nom, NomNeuf(question, enFin ? ModeRecodage::EnFin : ModeRecodage::SurPlace), CompleterTable(regle)});
  }
  return changees;
}

namespace {

// The rewriting of a file in progress.
class Suivi {
 public:
  Suivi(const FichierMod& mod, const FichierPos& pos, const std::vector<CodesChanges>& regles,
        const std::vector<std::string>& creees)
      : mod_(mod), lues_(LireNoms(mod, pos)) {
    std::map<std::string, int> copies;
    for (const CodesChanges& regle : regles) {
      if (regle.Copie()) ++copies[regle.nouvelle];
      if (regle.Change()) changees_.push_back(regle);
    }
    for (const std::string& nom : creees)
      if (Presente(nom)) otees_.push_back(nom);
    // Two copies of one name, or a copy that takes a name that is there: no label can be right for both.
    for (const auto& [nom, nombre] : copies)
      if (nombre > 1 || Presente(nom)) otees_.push_back(nom);
  }

  ModalitesSuivies Resultat() {
    const Places places = PremieresLignes(lues_);
    for (const CodesChanges& changee : changees_) {
      reprises_.emplace_back(changee, places, mod_);
      if (!reprises_.back().Vide() && !Otee({changee.nouvelle})) suivies_.refaites.push_back(changee.nouvelle);
    }
    for (std::size_t i = 0; i < mod_.lignes.size(); ++i) {
      if (i == mod_.premiereApres) EcrireCopies(false);
      Ligne(i);
    }
    if (mod_.premiereApres == mod_.lignes.size()) EcrireCopies(false);
    else EcrireCopies(true);
    suivies_.otees = otees_;
    return std::move(suivies_);
  }

 private:
  bool Presente(const std::string& nom) const {
    return std::ranges::any_of(lues_, [&](const LigneLue& lue) { return EstDe(lue, nom); });
  }

  bool Otee(const LigneLue& lue) const {
    return std::ranges::any_of(otees_, [&](const std::string& nom) { return EstDe(lue, nom); });
  }

  void EcrireCopies(bool derriere) {
    for (std::size_t rang = 0; rang < changees_.size(); ++rang)
      if (changees_[rang].Copie()) Ecrire(rang, derriere);
  }

  void Ecrire(std::size_t rang, bool derriere) {
    const std::string& question = changees_[rang].nouvelle;
    if (Otee({question}) || FinitLesModalites(NomDeModalite(question, 1)) || !ecrites_.emplace(rang, derriere).second)
      return;
    const std::vector<std::string>& lignes = reprises_[rang].Lignes(derriere);
    suivies_.lignes.insert(suivies_.lignes.end(), lignes.begin(), lignes.end());
  }

  void Ligne(std::size_t i) {
    const LigneLue& lue = lues_[i];
    const auto changee =
        std::ranges::find_if(changees_, [&](const CodesChanges& c) { return !c.Copie() && EstDe(lue, c.question); });
    if (lue.indecise) Laisser(CadreGauche(mod_.lignes[i], kLargeurDeModalite));
    if (Otee(lue)) return;
    if (changee == changees_.end()) suivies_.lignes.push_back(mod_.lignes[i]);
    else Ecrire(static_cast<std::size_t>(changee - changees_.begin()), i >= mod_.premiereApres);
  }

  // Tells of a name that a changed question may have.
  void Laisser(const std::string& nom) {
    const auto peutLAvoir = [&](const CodesChanges& changee) {
      return Milieu(changee.question, 1, 2) == Milieu(nom, 1, 2);
    };
    if (std::ranges::any_of(changees_, peutLAvoir) &&
        std::ranges::find(suivies_.indecises, nom) == suivies_.indecises.end())
      suivies_.indecises.push_back(nom);
  }

  const FichierMod& mod_;
  std::vector<LigneLue> lues_;
  std::vector<CodesChanges> changees_;
  std::vector<std::string> otees_;
  std::vector<Reprise> reprises_;
  std::set<std::pair<std::size_t, bool>> ecrites_;  // question and part of the file
  ModalitesSuivies suivies_;
};

}  // namespace

ModalitesSuivies SuivreRecodage(const FichierMod& mod, const FichierPos& pos, const std::vector<CodesChanges>& regles,
                                const std::vector<std::string>& creees) {
  return Suivi(mod, pos, regles, creees).Resultat();
}

}  // namespace quelvar::sorts
