#include "batch/programmes.h"

#include <algorithm>

namespace quelvar::batch {

std::vector<std::string> NomsSepares(std::string_view texte) {
  std::vector<std::string> noms;
  if (texte.empty()) return noms;
  for (std::size_t virgule = 0; virgule != std::string_view::npos;) {
    virgule = texte.find(',');
    noms.emplace_back(texte.substr(0, virgule));
    if (virgule != std::string_view::npos) texte.remove_prefix(virgule + 1);
  }
  return noms;
}

std::pair<std::string, std::string> NomEtTexte(const std::string& option, const std::string& valeur) {
  constexpr std::size_t kNomLePlusLong = 4;
  const std::size_t egal = valeur.find('=');
  if (egal == std::string::npos || egal == 0 || egal > kNomLePlusLong)
    throw UsageIncorrect(Joindre({"l'option ", option, " attend NOM=TEXTE et non \"", valeur, "\""}));
  return {valeur.substr(0, egal), valeur.substr(egal + 1)};
}

const std::vector<Programme>& Programmes() {
  static const std::vector<Programme> programmes = {
      // clang-format off
      ProgrammeImportBurt(),
      ProgrammeImportCsv(),
      ProgrammeImportDbf(),
      ProgrammeImportTableau(),
      ProgrammeSaisie(),
      ProgrammeTriapl(),
      ProgrammePrepRecod(),
      ProgrammeRecodage(),
      ProgrammeCroise(),
      ProgrammePosmod(),
      ProgrammeModifMod(),
      ProgrammeNomeMod(),
      ProgrammeNomQuest(),
      ProgrammeEcapem(),
      ProgrammeAnecar(),
      ProgrammeWardCoupe(),
      ProgrammeGraphe(),
      ProgrammePrepText(),
      ProgrammeSaisieMot(),
      ProgrammeTabMot(),
      ProgrammeSuplMot(),
      ProgrammeTabMotAgreg(),
      ProgrammeTriFichier(),
      ProgrammeTri(),
      ProgrammeExportCsv(),
      ProgrammeExporter(),
      ProgrammeCaracteres(),
      ProgrammeFusionner(),
      ProgrammeGendat(),
      ProgrammeInversion(),
      // clang-format on
  };
  return programmes;
}

std::size_t TrouverOption(const std::vector<Option>& options, const std::string& nom, const std::string& nomProgramme) {
  std::vector<std::size_t> commencent;
  for (std::size_t i = 0; i < options.size(); ++i) {
    const std::vector<std::string>& autres = options[i].autresNoms;
    if (options[i].nom == nom || std::find(autres.begin(), autres.end(), nom) != autres.end()) return i;
    if (!nom.empty() && options[i].nom.starts_with(nom)) commencent.push_back(i);
  }
  if (commencent.size() == 1) return commencent.front();
  throw UsageIncorrect(Joindre({std::string_view(commencent.empty() ? "option inconnue : " : "option ambigue : "), nom,
                                " (voir : quelvar-batch ", nomProgramme, " --aide)"}));
}

bool LireOuiNon(const std::string& nom, const std::string& valeur) {
  const std::string mot = Minuscules(valeur);
  if (mot != "oui" && mot != "non")
    throw UsageIncorrect(Joindre({"l'option ", nom, " attend oui|non et non \"", valeur, "\""}));
  return mot == "oui";
}

}  // namespace quelvar::batch
