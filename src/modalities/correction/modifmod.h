// ModifMod: the active or supplementary status and the labels of the modalities of an existing .MOD.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/enquete/listemod.h"
#include "core/options/dites.h"
#include "core/programme/programme.h"

namespace quelvar::modalities {

// A click in ListSuppl: the supplementary becomes active and back; name and label stay.
void BasculerStatut(std::string& texte);

// Writes the list with the marks " S " and "   " only; every other line of the file stays.
Fin EnregistrerModifMod(const Contexte& contexte, const std::vector<std::string>& textes);

// The same without a form: names of modalities, or of questions for the status of all their modalities; a modality
// named by itself goes before its question. A name asked to be both is refused in the report.
struct OptionsModifMod {
  std::vector<std::string> supplementaires = {};
  std::vector<std::string> actives = {};
  std::vector<std::pair<std::string, std::string>> intitules = {};  // modality, label

  bool operator==(const OptionsModifMod&) const = default;
};
// What has to be asked of the file as it was opened to make of it what the form would save; the reason when what was
// changed has a name that another modality has too.
OptionsDites<OptionsModifMod> OptionsDeModifMod(const std::vector<std::string>& ouverts,
                                                const std::vector<std::string>& textes);
Fin ModifierModalites(const Contexte& contexte, const OptionsModifMod& options);

}  // namespace quelvar::modalities
