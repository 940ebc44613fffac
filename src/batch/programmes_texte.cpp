#include "batch/programmes.h"
#include "text/concordance/concord.h"
#include "text/decoupage/saisiemot.h"
#include "text/gestion/agregation.h"
#include "text/gestion/suplmot.h"
#include "text/preparation/preptext.h"
#include "text/tableau/tabmot.h"

namespace quelvar::batch {

namespace {

Fin LancerPrepText(const Contexte& contexte, const text::OptionsPrepText& options) {
  std::string nouveau;
  return text::PrepText(contexte, options, nouveau);
}

// The boxes of the form come first; nothing runs before them.
Fin LancerSaisieMot(const Contexte& contexte, const text::OptionsSaisieMot& options) {
  const std::string refus = text::RefusDeDecouper(options);
  if (refus.empty()) return text::SaisieMot(contexte, options);
  contexte.Ecran().biper();
  contexte.Ecran().demander(refus, Boutons::Ok);
  return Fin::Arret;
}

// "NOM=TEXTE" in two, whatever the length of the name.
std::pair<std::string, std::string> AvantEtApres(const std::string& option, const std::string& valeur) {
  const std::size_t egal = valeur.find('=');
  if (egal == std::string::npos)
    throw UsageIncorrect(Joindre({"l'option ", option, " attend NOM=TEXTE et non \"", valeur, "\""}));
  return {valeur.substr(0, egal), valeur.substr(egal + 1)};
}

// frequence, alphabetique or facteurN, then the order behind a comma.
text::TriDeLignes LireTri(const std::string& valeur) {
  const std::vector<std::string> mots = NomsSepares(valeur);
  const std::string cle = mots.empty() ? std::string() : Minuscules(mots.front());
  const std::string ordre = mots.size() > 1 ? Minuscules(mots[1]) : "croissant";
  text::TriDeLignes tri;
  if (cle == "alphabetique") tri.cle = text::CleDeLignes::Intitule;
  else if (cle.starts_with("facteur")) tri.cle = text::CleDeLignes::Facteur;
  if ((tri.cle == text::CleDeLignes::Frequence && cle != "frequence") || mots.size() > 2 ||
      (ordre != "croissant" && ordre != "decroissant"))
    throw UsageIncorrect(
        Joindre({"l'option tri attend frequence, alphabetique ou facteurN, puis ,croissant ou "
                 ",decroissant et non \"",
                 valeur, "\""}));
  if (tri.cle == text::CleDeLignes::Facteur) tri.facteur = ValeurDe(cle.substr(7));
  if (ordre == "decroissant") tri.sens = utilities::SensDeTri::Decroissant;
  return tri;
}

// An option button of the form: "oui" takes it, "non" changes nothing.
template <typename Options, typename T>
std::function<void(Options&, const std::string&)> Bouton(const char* nom, T Options::*membre, T choisi) {
  return [=](Options& options, const std::string& valeur) {
    if (LireOuiNon(nom, valeur)) options.*membre = choisi;
  };
}

}  // namespace

Programme ProgrammePrepText() {
  using O = text::OptionsPrepText;
  return Description<O>("preptext", "Préparation d'un fichier texte sous un nouveau générique (.txt, .prt)"_w,
                        LancerPrepText)
      .OuiNon("accents", &O::accents, "suppression des accents")
      .Alias({"chkaccents"})
      .OuiNon("ponctuation", &O::ponctuation, "suppression des signes de ponctuation (et tabulation)")
      .Alias({"chkponct"})
      .OuiNon("majuscules", &O::majusculesEnMin, "passage des majuscules en minuscules")
      .Alias({"chkmaj"})
      .OuiNon("minuscules", &O::minusculesEnMaj, "passage des minuscules en majuscules")
      .Alias({"chkmin"})
      .OuiNon("finsdeligne", &O::finsDeLigne, "suppression des fins de ligne sauf si &&&")
      .Alias({"chkopt"})
      .OuiNon("dat", &O::fichierDat, "prend le fichier *.DAT")
      .Alias({"cmdfichdat"})
      .Texte("fichier", &O::fichier, "FICHIER", "autre fichier de texte")
      .Alias({"cmdficha"});
}

Programme ProgrammeSaisieMot() {
  using O = text::OptionsSaisieMot;
  using text::ModeStimulus;
  using text::ReponseVide;
  Description<O> description("saisiemot", "Découpage en mots d'un texte (.DAT, .POS, .IMP)"_w, LancerSaisieMot);
  description.Entier("position", &O::position, 0, 32767, "colonne où finissent les caractéristiques"_w)
      .Alias({"tbpos"})
      .Choix<ReponseVide>("vides", &O::vide, {{"nr", ReponseVide::NonReponse}, {"supprimees", ReponseVide::Supprimee}},
                          "lignes sans texte : réponse NR, ou supprimées"_w)
      .Choix<ModeStimulus>("mode", &O::mode,
                           {{"1", ModeStimulus::Aucun},
                            {"2", ModeStimulus::CaracteristiqueReportee},
                            {"3", ModeStimulus::Caracteristique},
                            {"4", ModeStimulus::FinDeMot},
                            {"5", ModeStimulus::FinDeMotSupprimee}},
                           "question ouverte (1), stimulus dans les caractéristiques et reporté (2) ou non (3), en fin "
                           "de mot et laissé (4) ou supprimé (5)"_w)
      .Entier("stimulus", &O::positionStimulus, 0, 32767, "colonne du stimulus, en modes 2 et 3")
      .Alias({"tbposstim"})
      .Entier("lignes", &O::lignesMax, 1, 9999, "lignes de texte d'un individu au plus")
      .Alias({"cblignmax"})
      .OuiNon("auxiliaires", &O::auxiliaires, "garde les fichiers auxiliaires .NT1, .TR1 et .EDI")
      .Alias({"opfichauxy"})
      .OuiNon("themes", &O::themes, "ne garde que les mots qui commencent par $, comme thèmes"_w)
      .Alias({"chkthemes"});
  const auto bouton = [&](const char* nom, auto membre, auto choisi, std::string_view aide) {
    description.Libre(nom, "oui|non", "", aide, Bouton<O>(nom, membre, choisi));
  };
  bouton("optnr", &O::vide, ReponseVide::NonReponse, "la case du formulaire : vides=nr");
  bouton("optsupr", &O::vide, ReponseVide::Supprimee, "la case du formulaire : vides=supprimees");
  bouton("opfichauxn", &O::auxiliaires, false, "la case du formulaire : auxiliaires=non");
  bouton("opquestouv", &O::mode, ModeStimulus::Aucun, "la case du formulaire : mode=1");
  bouton("opnonnote", &O::mode, ModeStimulus::Aucun, "la case du formulaire : mode=1");
  bouton("opcaracfinmoty", &O::mode, ModeStimulus::CaracteristiqueReportee, "la case du formulaire : mode=2");
  bouton("opcaracfinmotn", &O::mode, ModeStimulus::Caracteristique, "la case du formulaire : mode=3");
  bouton("opstimfiny", &O::mode, ModeStimulus::FinDeMot, "la case du formulaire : mode=4");
  bouton("opstimfinmotn", &O::mode, ModeStimulus::FinDeMotSupprimee, "la case du formulaire : mode=5");
  return description;
}

Programme ProgrammeTabMot() {
  using O = text::OptionsTabMot;
  return Description<O>("tabmot", "Création du tableau lexical des questions (.BRT, .MOD, .PRT)"_w, text::TabMot)
      .Noms("questions", &O::actives, "marques &ACT& du .POS", "questions actives")
      .Alias({"actives", "listvar2"})
      .Entier("frequence", &O::frequenceMin, 0, 99999999, "fréquence minimum d'un mot ; 0 : 4"_w)
      .Alias({"tbfreq"})
      .OuiNon("codeszero", &O::codesZero, "le code zéro de chaque question est une modalité"_w)
      .Alias({"opcodzy"})
      .Libre("opcodzn", "oui|non", "", "la case du formulaire : codeszero=non",
             [](O& options, const std::string& valeur) { options.codesZero = !LireOuiNon("opcodzn", valeur); })
      .Entier("limite", &O::limite, 0, 99999999, "dépassements de code-max admis ; 0 : pas d'arrêt"_w)
      .Libre("themes", "oui|non", "selon les mots", "mots qui sont des thèmes : tableau de 0 et de 1"_w,
             [](O& options, const std::string& valeur) { options.themes = LireOuiNon("themes", valeur); })
      .Alias({"chkthemes"});
}

Programme ProgrammeSuplMot() {
  using O = text::OptionsSuplMot;
  using Genre = O::Action::Genre;
  const auto statuts = [](Genre genre) {
    return [genre](O& options, const std::string& valeur) {
      for (const std::string& nom : NomsSepares(valeur)) options.actions.push_back({genre, nom});
    };
  };
  const auto intitule = [](const char* option, Genre genre) {
    return [=](O& options, const std::string& valeur) {
      auto [nom, texte] = AvantEtApres(option, valeur);
      options.actions.push_back({genre, std::move(nom), std::move(texte)});
    };
  };
  return Description<O>("suplmot", "Gestion des colonnes et lignes d'un tableau (.BRT, .MOD)", text::SuplMot)
      .Libre("colonnes-sup", "NOM,NOM...", "", "colonnes mises en supplémentaires"_w, statuts(Genre::ColonneSup))
      .Alias({"listcolsuppl"})
      .Libre("colonnes-actives", "NOM,NOM...", "", "colonnes mises en actives", statuts(Genre::ColonneActive))
      .Libre("lignes-sup", "MOT,MOT...", "", "lignes mises en supplémentaires"_w, statuts(Genre::LigneSup))
      .Alias({"listlignsuppl"})
      .Libre("lignes-actives", "MOT,MOT...", "", "lignes mises en actives", statuts(Genre::LigneActive))
      .Libre("intitule-colonne", "NOM=TEXTE", "", "intitulé d'une colonne ; peut être répété"_w,
             intitule("intitule-colonne", Genre::IntituleColonne))
      .Alias({"textmodcol"})
      .Libre("intitule-ligne", "MOT=TEXTE", "", "intitulé d'une ligne ; peut être répété"_w,
             intitule("intitule-ligne", Genre::IntituleLigne))
      .Alias({"textmodlign"});
}

Programme ProgrammeTabMotAgreg() {
  using O = text::OptionsTabMotAgreg;
  return Description<O>("tabmotagreg", "Agrégation manuelle de lignes d'un tableau, sous un nouveau générique"_w,
                        text::TabMotAgreg)
      .Libre("agreger", "NOM=MOT,MOT...", "", "lignes réunies en une seule par sommation ; peut être répété"_w,
             [](O& options, const std::string& valeur) {
               auto [nom, lignes] = AvantEtApres("agreger", valeur);
               options.actions.push_back({std::nullopt, std::move(nom), NomsSepares(lignes)});
             })
      .Alias({"btenreg"})
      .Libre("tri", "frequence|alphabetique|facteurN[,decroissant]", "", "tri des lignes ; peut être répété"_w,
             [](O& options, const std::string& valeur) { options.actions.push_back({LireTri(valeur)}); })
      .Alias({"bttri"});
}

Programme ProgrammeConcordance() {
  using O = text::OptionsConcordance;
  using text::OrdreDeConcordance;
  return Description<O>("concordance", "Concordance de mots du dernier découpage, le mot dans une colonne"_w,
                        text::Concord)
      .Libre("mots", "MOT,MOT...", "", "mots cherchés, sur 10 caractères"_w,
             [](O& options, const std::string& valeur) { options.mots = NomsSepares(valeur); })
      .Choix<OrdreDeConcordance>("ordre", &O::ordre,
                                 {{"fichier", OrdreDeConcordance::Fichier},
                                  {"gauche", OrdreDeConcordance::Gauche},
                                  {"droite", OrdreDeConcordance::Droite}},
                                 "lignes dans l'ordre du fichier, du contexte gauche ou du contexte droit")
      .Texte("sortie", &O::sortie, "FICHIER", "fichier où le texte est enregistré"_w);
}

}  // namespace quelvar::batch
