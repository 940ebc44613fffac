// The options of a program as a table that sets its struct from a line of options and writes the line back.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
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
  // value that it does not take, two values for an option that takes one.
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
    for (std::size_t i = 0; i < trouvees.size(); ++i) {
      const Option& option = options_[trouvees[i].rang];
      if (i > 0) RefuserDeuxValeurs(option, trouvees[i - 1], trouvees[i]);
      poseurs_[trouvees[i].rang](options, trouvees[i].valeur);
    }
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
