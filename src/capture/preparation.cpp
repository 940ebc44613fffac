#include "capture/preparation.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "capture/apercu/choix/devenir.h"
#include "capture/apercu/choix/imc.h"
#include "capture/apercu/choix/noms.h"
#include "capture/apercu/choix/proposition.h"
#include "capture/apercu/choix/refus.h"
#include "capture/apercu/sorties/remarques.h"
#include "core/chiffres/nombres.h"

namespace quelvar::capture {

PreparationDImport::PreparationDImport(Chemin fichier, std::string feuille, const SuiviDeFeuille& suivi)
    : fichier_(std::move(fichier)), feuille_(std::move(feuille)) {
  // What stands in for a sheet is no file of the survey: it lies where scratch files do.
  source_ = std::make_shared<const SourceDeTable>(fichier_, feuille_, std::filesystem::temp_directory_path(), suivi);
  detectee_ = DetecterLecture(*source_);
  apercu_ = EnNommantLaSource(*source_, [&] { return LireApercu(source_->Texte(), detectee_.lecture); });
  choix_ = ProposerChoix(Colonnes());
  touchees_.assign(choix_.size(), false);
}

void PreparationDImport::ChangerLecture(const Lecture& lecture) {
  Apercu apercu = EnNommantLaSource(*source_, [&] { return LireApercu(source_->Texte(), lecture); });
  std::vector<ChoixDeColonne> gardes;
  for (std::size_t c = 0; c < choix_.size(); ++c)
    if (touchees_[c]) gardes.push_back(choix_[c]);
  apercu_ = std::move(apercu);
  choix_ = ProposerChoix(Colonnes());
  touchees_.assign(choix_.size(), false);
  Reprendre(gardes);
}

std::size_t PreparationDImport::Reprendre(const std::vector<ChoixDeColonne>& anciens) {
  if (anciens.empty()) return 0;
  ChoixApparies apparies = Apparier(choix_, anciens);
  choix_ = std::move(apparies.choix);
  std::size_t repris = 0;
  for (std::size_t c = 0; c < choix_.size(); ++c) {
    if (std::ranges::find(apparies.sansChoix, choix_[c].intitule) != apparies.sansChoix.end()) continue;
    touchees_[c] = true;
    ++repris;
  }
  NommerChoix(choix_);
  return repris;
}

void PreparationDImport::PoserFaits(FaitsDeTable faits) {
  if (faits.colonnes.size() != choix_.size()) {  // rows behind the head are wider
    choix_.resize(faits.colonnes.size());
    touchees_.resize(faits.colonnes.size(), false);
  }
  apercu_.faits = std::move(faits);
  apercu_.entier = true;
  std::vector<ChoixDeColonne> proposes = ProposerChoix(Colonnes());
  for (std::size_t c = 0; c < choix_.size(); ++c)
    if (touchees_[c]) proposes[c] = choix_[c];
  choix_ = std::move(proposes);
  NommerChoix(choix_);
}

void PreparationDImport::ChangerGenre(std::size_t colonne, Genre genre) {
  touchees_[colonne] = true;
  choix_[colonne] = ProposerGenre(Colonnes()[colonne], choix_[colonne], genre);
  NommerChoix(choix_);
}

void PreparationDImport::ChangerChoix(std::size_t colonne, ChoixDeColonne choix) {
  touchees_[colonne] = true;
  choix.nom = choix_[colonne].nom;
  choix_[colonne] = std::move(choix);
}

std::string PreparationDImport::Renommer(std::size_t colonne, std::string_view nom) {
  const std::string_view rogne = Rogner(nom);
  if (rogne.empty()) return Joindre({"Entrez un nom de un à trois caractères"_w});
  if (rogne.size() > kNomCourtLePlusLong) return Joindre({"Le nom \""_w, rogne, "\" a plus de trois caractères"_w});
  for (std::size_t c = 0; c < choix_.size(); ++c)
    if (c != colonne && EgalSansCasse(Rogner(choix_[c].nom), rogne))
      return Joindre({"Le nom \""_w, rogne, "\" est déjà celui de la colonne "_w, Nombre(c + 1), " ("_w,
                      choix_[c].intitule, ")"_w});
  choix_[colonne].nom = rogne;
  touchees_[colonne] = true;
  return {};
}

std::vector<std::string> PreparationDImport::Refus() const {
  std::vector<std::string> refus = RefusDeTable(apercu_.faits);
  for (const std::string& autre : RefusDesChoix(choix_, Colonnes())) refus.push_back(autre);
  if (std::ranges::all_of(choix_, [](const ChoixDeColonne& choix) { return choix.genre == Genre::Ecartee; }))
    refus.emplace_back("*** Erreur : toutes les colonnes sont laissées de côté, dites ce que devient l'une d'elles"_w);
  return refus;
}

std::vector<std::string> PreparationDImport::Remarques() const { return RemarquesDeTable(apercu_.faits, choix_); }

bool PreparationDImport::ToutVaBien() const {
  return ToutEstCodes(choix_) && Doutes().empty() && Refus().empty() && Remarques().empty();
}

EtatDeTable PreparationDImport::Etat() const {
  if (!Refus().empty()) return EtatDeTable::ACorriger;
  return ToutVaBien() ? EtatDeTable::ToutEnCodes : EtatDeTable::AVerifier;
}

bool PreparationDImport::RienDeChoisi() const { return choix_ == ProposerChoix(Colonnes()); }

OptionsImport PreparationDImport::Options() const {
  OptionsImport options;
  options.fichier = TexteDe(fichier_);
  options.feuille = feuille_;
  if (source_->EstCopie()) options.ouverte = source_;
  options.choix = choix_;
  const Lecture& voulue = apercu_.lecture;
  const Lecture& vue = detectee_.lecture;
  if (voulue.encodage != vue.encodage) options.lecture.encodage = voulue.encodage;
  if (voulue.separateur != vue.separateur) options.lecture.separateur = voulue.separateur;
  if (voulue.sourceDeDecimale == SourceDeDecimale::Donnee) options.lecture.decimale = voulue.decimale;
  if (voulue.guillemets != vue.guillemets) options.lecture.guillemets = voulue.guillemets;
  if ((voulue.ligneTitres != 0) != (vue.ligneTitres != 0)) options.lecture.titres = voulue.ligneTitres != 0;
  return options;
}

ChoixGardes ComparerAuxGardes(const Chemin& repertoire, std::string_view fichier,
                              const std::vector<ChoixDeColonne>& choix) {
  const std::optional<Chemin> chemin = ChercherFichier(repertoire, fichier);
  if (!chemin) return ChoixGardes::Absents;
  try {
    return EcrireImc(LireImc(*chemin)) == EcrireImc(choix) ? ChoixGardes::Memes : ChoixGardes::Autres;
  } catch (const Erreur&) {
    return ChoixGardes::Autres;
  }
}

std::optional<AnciensChoix> ChercherAnciensChoix(const Chemin& repertoire, std::string_view generique,
                                                 const std::vector<ChoixDeColonne>& colonnes) {
  const std::optional<Chemin> sien = ChercherFichier(repertoire, Joindre({generique, ".IMC"}));
  if (sien) {
    try {
      return AnciensChoix{*sien, LireImc(*sien), {}};
    } catch (const Erreur& erreur) {
      return AnciensChoix{*sien, {}, std::string(TexteErreur(erreur))};
    }
  }
  std::vector<Chemin> autres;
  std::error_code faute;
  for (std::filesystem::directory_iterator entree(repertoire, faute), fin; !faute && entree != fin;
       entree.increment(faute))
    if (EgalSansCasse(entree->path().extension().string(), ".IMC")) autres.push_back(entree->path());
  std::ranges::sort(autres);
  for (const Chemin& autre : autres) {
    try {
      std::vector<ChoixDeColonne> choix = LireImc(autre);
      if (std::ranges::equal(choix, colonnes, {}, &ChoixDeColonne::intitule, &ChoixDeColonne::intitule))
        return AnciensChoix{autre, std::move(choix), {}};
    } catch (const Erreur&) {  // it is not of this generic, and is not asked for
    }
  }
  return std::nullopt;
}

}  // namespace quelvar::capture
