// The options of a program as a table that sets its struct from a line of options and writes the line back.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/options/option.h"
#include "core/texte/texte.h"

namespace quelvar {

// Filled by Description, which says what each option is.
template <typename Options>
class TableDOptions {
 public:
  using Poser = std::function<void(Options&, const std::string& valeur)>;
  // The values that set the struct so: none when the option was not given, several for one that may be repeated.
  using Ecrire = std::function<std::vector<std::string>(const Options&)>;

  // The name of the program, as quelvar-batch takes it.
  const std::string& Nom() const { return nom_; }
  const std::vector<Option>& Table() const { return options_; }

  // The option of that name. A name that the table has not is a fault of ours (std::logic_error).
  const Option& De(std::string_view nom) const { return options_[RangDe(nom)]; }

  // The struct that the line stands for. Raises UsageIncorrect before anything runs: an option that is not known, a
  // value that it does not take, two values (not two spellings of one) for an option that takes one, or for one name,
  // two options of which one undoes the other.
  Options Lire(const LigneDOptions& ligne) const {
    Options options;
    auto debut = ligne.begin();
    while (true) {
      const auto fin = std::find_if(debut, ligne.end(), [&](const ValeurDOption& typee) { return EstEtape(typee); });
      PoserDansLOrdre(options, {debut, fin});
      if (fin == ligne.end() || fin + 1 == ligne.end()) return options;
      etape_->avancer(options);
      debut = fin + 1;
    }
  }

  // The options that differ from their default, so that Lire gives the same struct.
  LigneDOptions Ecrite(const Options& options) const {
    LigneDOptions ligne;
    Options courantes;
    if (!etape_) {
      EcrireEcarts(options, courantes, ligne);
      return ligne;
    }
    const std::vector<Options> lancements = etape_->lancements(options);
    for (std::size_t i = 0; i < lancements.size(); ++i) {
      if (i > 0) etape_->avancer(courantes);
      EcrireEcarts(lancements[i], courantes, ligne);
      if (lancements.size() > 1) ligne.emplace_back(options_[etape_->rang].nom, "oui");
    }
    return ligne;
  }

  // One option by a name of its own, as a control says it. Raises UsageIncorrect.
  void PoserUne(Options& options, const std::string& nom, const std::string& valeur) const {
    const OptionTrouvee trouvee = TrouverOption(options_, {Minuscules(nom), valeur}, nom_);
    if (!trouvee.sansEffet) poseurs_[trouvee.rang](options, trouvee.valeur);
  }
  // The value that an option has now, the first one if it is repeated; empty when it was not given. A name that the
  // table has not is a fault of ours (std::logic_error).
  std::string ValeurEcrite(const Options& options, std::string_view nom) const {
    const std::vector<std::string> textes = ecriveurs_[RangDe(nom)](options);
    return textes.empty() ? std::string() : textes.front();
  }

 protected:
  explicit TableDOptions(std::string nom) : nom_(std::move(nom)) {}

  void Ajouter(Option option, Poser poser, Ecrire ecrire) {
    const std::vector<std::string> parDefaut = ecrire(Options{});
    if (!parDefaut.empty()) option.defaut = parDefaut.front();
    if (option.geste && gestes_ == kAucun) gestes_ = options_.size();
    options_.push_back(std::move(option));
    poseurs_.push_back(std::move(poser));
    ecriveurs_.push_back(std::move(ecrire));
  }
  // The option added last.
  Option& Derniere() { return options_.back(); }
  // Makes it the one that ends the options of a launch.
  void FinirUnLancement(std::function<void(Options&)> avancer,
                        std::function<std::vector<Options>(const Options&)> lancements) {
    etape_ = {options_.size() - 1, std::move(avancer), std::move(lancements)};
  }
  void TenirLesGestes(std::function<LigneDOptions(const Options&)> ecrire) { ecrireGestes_ = std::move(ecrire); }

 private:
  struct Etape {
    std::size_t rang;
    std::function<void(Options&)> avancer;
    std::function<std::vector<Options>(const Options&)> lancements;
  };

  std::size_t RangDe(std::string_view nom) const {
    const auto trouvee =
        std::find_if(options_.begin(), options_.end(), [&](const Option& option) { return option.nom == nom; });
    if (trouvee == options_.end()) throw std::logic_error(Joindre({nom_, " : ", nom}));
    return static_cast<std::size_t>(trouvee - options_.begin());
  }

  bool EstEtape(const ValeurDOption& typee) const {
    return etape_ && TrouverOption(options_, typee, nom_).rang == etape_->rang;
  }

  // The options of one launch, whatever their order.
  void PoserDansLOrdre(Options& options, const LigneDOptions& typees) const {
    std::vector<OptionTrouvee> trouvees;
    for (const ValeurDOption& typee : typees) {
      OptionTrouvee trouvee = TrouverOption(options_, typee, nom_);
      if (!trouvee.sansEffet) trouvees.push_back(std::move(trouvee));
    }
    const auto place = [&](const OptionTrouvee& o) { return options_[o.rang].geste ? gestes_ : o.rang; };
    std::stable_sort(trouvees.begin(), trouvees.end(),
                     [&](const OptionTrouvee& a, const OptionTrouvee& b) { return place(a) < place(b); });
    RefuserDeuxTextes(trouvees);
    PoserSansContredire(options, trouvees);
  }

  using Textes = std::vector<std::string>;

  // What an option says as it stands; nothing of one that may be repeated, to which others are added.
  Textes Dits(const Options& options, const OptionTrouvee& trouvee) const {
    return options_[trouvee.rang].repetable ? Textes() : ecriveurs_[trouvee.rang](options);
  }

  // Sets the options of a launch, of which each says at the end what it said when it was set: one that takes one value
  // is not given two, nor does another one undo what was asked.
  void PoserSansContredire(Options& options, const std::vector<OptionTrouvee>& trouvees) const {
    const Options debut = options;
    std::vector<Textes> dits;
    for (const OptionTrouvee& trouvee : trouvees) {
      poseurs_[trouvee.rang](options, trouvee.valeur);
      dits.push_back(Dits(options, trouvee));
    }
    for (std::size_t i = 0; i < trouvees.size(); ++i)
      if (Dits(options, trouvees[i]) != dits[i]) RefuserCeQuiDefait(debut, trouvees, i, dits[i]);
  }

  // Refuses the first option that makes one before it say something else.
  [[noreturn]] void RefuserCeQuiDefait(Options options, const std::vector<OptionTrouvee>& trouvees, std::size_t defaite,
                                       const Textes& dits) const {
    const OptionTrouvee& une = trouvees[defaite];
    for (std::size_t i = 0; i < trouvees.size(); ++i) {
      const OptionTrouvee& autre = trouvees[i];
      poseurs_[autre.rang](options, autre.valeur);
      if (i <= defaite || Dits(options, une) == dits) continue;
      if (autre.rang == une.rang) RefuserDeuxValeurs(options_[une.rang].nom, une.valeur, autre.valeur);
      RefuserContradiction({options_[une.rang].nom, une.valeur}, {options_[autre.rang].nom, autre.valeur});
    }
    throw std::logic_error(Joindre({nom_, " : ", options_[une.rang].nom}));
  }

  // Refuses two values for one name, where each name has one: found by the names, of which there may be thousands.
  void RefuserDeuxTextes(const std::vector<OptionTrouvee>& trouvees) const {
    std::unordered_map<std::string, const OptionTrouvee*> premieres;
    for (const OptionTrouvee& trouvee : trouvees) {
      const Option& option = options_[trouvee.rang];
      if (!option.nomDe) continue;
      const OptionTrouvee& premiere =
          *premieres.try_emplace(Joindre({option.nom, "=", option.nomDe(trouvee.valeur)}), &trouvee).first->second;
      if (&premiere != &trouvee && Seule(premiere) != Seule(trouvee))
        RefuserDeuxValeurs(option.nom, premiere.valeur, trouvee.valeur);
    }
  }

  // What a value says by itself.
  std::vector<std::string> Seule(const OptionTrouvee& trouvee) const {
    Options options;
    poseurs_[trouvee.rang](options, trouvee.valeur);
    return ecriveurs_[trouvee.rang](options);
  }

  // Adds what makes `courantes` into `voulues`, and makes it so.
  void EcrireEcarts(const Options& voulues, Options& courantes, LigneDOptions& ligne) const {
    for (std::size_t i = 0; i < options_.size(); ++i) {
      if (i == gestes_)
        for (ValeurDOption& geste : ecrireGestes_(voulues)) ligne.push_back(std::move(geste));
      const std::vector<std::string> textes = ecriveurs_[i](voulues);
      if (textes == ecriveurs_[i](courantes)) continue;
      for (const std::string& texte : textes) {
        ligne.emplace_back(options_[i].nom, texte);
        poseurs_[i](courantes, texte);
      }
    }
  }

  static constexpr std::size_t kAucun = static_cast<std::size_t>(-1);

  std::string nom_;
  std::vector<Option> options_;
  std::vector<Poser> poseurs_;
  std::vector<Ecrire> ecriveurs_;
  std::optional<Etape> etape_;
  std::size_t gestes_ = kAucun;  // rank of the first of the options that act in their turn
  std::function<LigneDOptions(const Options&)> ecrireGestes_;
};

}  // namespace quelvar
