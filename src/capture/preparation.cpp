#include "capture/preparation.h"

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>

#include "capture/apercu/choix/devenir.h"
#include "capture/apercu/choix/noms.h"
#include "capture/apercu/choix/proposition.h"
#include "capture/apercu/choix/refus.h"
#include "capture/apercu/choix/textes.h"
#include "capture/apercu/imc.h"
#include "capture/apercu/sorties/plan.h"
#include "capture/apercu/sorties/remarques.h"
#include "capture/classeur/classeur.h"
#include "capture/fichiers.h"
#include "core/session/generiquelibre.h"
#include "core/texte/nombres.h"

namespace quelvar::capture {

namespace {

constexpr std::size_t kLongueurDuGenerique = 12;

// A letter without its accent, 0 for what no generic holds.
char LettreDeGenerique(char c) {
  static constexpr std::string_view kAvec = "ÀÂÄÇÉÈÊËÎÏÔÖÙÛÜŸ"_w;
  static constexpr std::string_view kSans = "AAACEEEEIIOOUUUY";
  const char grande = Majuscule(c);
  if (const std::size_t place = kAvec.find(grande); place != std::string_view::npos) return kSans[place];
  const bool garde = (grande >= 'A' && grande <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
  return garde ? grande : '\0';
}

}  // namespace

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

std::vector<std::string> PreparationDImport::Remarques() const {
  std::vector<std::string> remarques = RemarquesDeTable(apercu_.faits);
  for (const std::string& remarque : RemarquesDesNegatives(choix_, apercu_.faits)) remarques.push_back(remarque);
  for (const std::string& remarque : RemarquesDEcriture(choix_, apercu_.faits)) remarques.push_back(remarque);
  return remarques;
}

bool PreparationDImport::ToutVaBien() const {
  return ToutEstCodes(choix_) && Doutes().empty() && Refus().empty() && Remarques().empty();
}

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

std::vector<TexteCode> TextesCodes(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  std::vector<TexteCode> codes;
  std::vector<TexteCode> nuls;
  for (const ValeurComptee& valeur : colonne.valeurs) {
    const bool nul = EstParmi(choix.nonReponses, valeur.valeur);
    (nul ? nuls : codes).push_back({valeur.valeur, valeur.effectif});
  }
  if (choix.ordre == Ordre::Frequence) {
    std::ranges::stable_sort(codes, std::greater{}, &TexteCode::effectif);
  } else if (choix.ordre == Ordre::Donne) {
    const auto rang = [&](const TexteCode& code) {
      return std::ranges::find(choix.textes, code.texte) - choix.textes.begin();
    };
    std::ranges::stable_sort(codes, {}, rang);
  }
  std::vector<std::string> textes;
  for (const TexteCode& code : codes) textes.push_back(code.texte);
  const std::vector<int> donnes = CodesDesTextes(choix, textes);
  for (std::size_t i = 0; i < codes.size(); ++i) codes[i].code = donnes[i];
  nuls.insert(nuls.end(), codes.begin(), codes.end());
  return nuls;
}

std::vector<std::string> LibellesDesClasses(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  std::vector<std::string> libelles;
  std::vector<double> bornes = choix.bornes;
  if (bornes.empty() && choix.groupes == 0) return libelles;
  if (bornes.empty()) {
    constexpr std::int64_t kNombresAuPlus = 200000;  // looked at while the user waits
    if (colonne.valeurs.empty() || colonne.remplies > kNombresAuPlus) return libelles;
    std::vector<double> valeurs;
    for (const ValeurComptee& valeur : colonne.valeurs) {
      if (EstParmi(choix.nonReponses, valeur.valeur)) continue;
      if (const std::optional<NombreLu> nombre = LireNombre(valeur.valeur, colonne.signes))
        valeurs.insert(valeurs.end(), static_cast<std::size_t>(valeur.effectif), ValeurDe(nombre->Normalise()));
    }
    if (valeurs.empty()) return libelles;
    bornes = BornesDeGroupes(std::move(valeurs), choix.groupes);
  }
  for (const Etiquette& etiquette : ClassesSelonBornes(bornes, colonne).etiquettes)
    libelles.push_back(etiquette.intitule);
  return libelles;
}

std::vector<TexteCompte> TextesComptes(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  std::vector<TexteCompte> textes;
  if (choix.genre == Genre::Multiple && choix.liste == '\0') {
    for (const ValeurComptee& valeur : colonne.valeurs)
      textes.push_back({valeur.valeur, valeur.effectif, EstParmi(choix.reponses, valeur.valeur)});
    return textes;
  }
  if (choix.genre != Genre::Codes && choix.genre != Genre::Nombres) return textes;
  const auto compter = [&](const std::string& texte) -> TexteCompte& {
    const auto connu = std::ranges::find(textes, texte, &TexteCompte::texte);
    return connu != textes.end() ? *connu : textes.emplace_back(TexteCompte{texte});
  };
  for (const CelluleFautive& cellule : colonne.fautives) ++compter(cellule.valeur).effectif;
  for (const std::string& texte : choix.nonReponses) compter(texte).compte = false;
  return textes;
}

ChoixDeColonne AvecTextesComptes(ChoixDeColonne choix, const std::vector<TexteCompte>& textes) {
  const bool reponses = choix.genre == Genre::Multiple;
  (reponses ? choix.reponses : choix.nonReponses).clear();
  for (const TexteCompte& texte : textes) {
    if (reponses && texte.compte) choix.reponses.push_back(texte.texte);
    if (!reponses && !texte.compte) choix.nonReponses.push_back(texte.texte);
  }
  return choix;
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

std::optional<std::vector<double>> BornesDe(std::string_view saisi) {
  std::vector<double> bornes;
  std::string mot;
  const auto prendre = [&] {
    if (mot.empty()) return true;
    std::ranges::replace(mot, ',', '.');
    if (!EstNombre(mot)) return false;
    bornes.push_back(ValeurDe(mot));
    mot.clear();
    return bornes.size() < 2 || bornes[bornes.size() - 2] < bornes.back();
  };
  for (const char c : saisi) {
    if (c != ' ' && c != ';' && c != '\t' && c != '|') mot += c;
    else if (!prendre()) return std::nullopt;
  }
  if (!prendre() || bornes.empty()) return std::nullopt;
  return bornes;
}

std::string TexteDesBornes(const std::vector<double>& bornes) {
  std::string texte;
  for (const double borne : bornes) texte += (texte.empty() ? "" : " ") + Nombre(borne);
  return texte;
}

std::string GeneriquePropose(const Chemin& repertoire, const Chemin& fichier) {
  std::string propose;
  for (const char c : TexteDe(fichier.stem()))
    if (const char lettre = LettreDeGenerique(c); lettre != '\0' && propose.size() < kLongueurDuGenerique)
      propose += lettre;
  if (propose.empty()) propose = "ENQ";
  while (GeneriqueOccupe(repertoire, propose, fichier)) propose = GeneriqueLibre(repertoire, propose);
  return propose;
}

bool GeneriqueOccupe(const Chemin& repertoire, std::string_view generique, const Chemin& fichier) {
  // A .TXT or .CSV is no survey when it is what is imported.
  for (const std::string_view extension : {".CSV", ".TXT"})
    if (const auto la = ChercherFichier(repertoire, Joindre({generique, extension}));
        la && !EstLeMemeFichier(*la, fichier))
      return true;
  for (const std::string_view extension : {".POS", ".DAT", ".MOD", ".BRT", ".CDG", ".TRG", ".DES"})
    if (ChercherFichier(repertoire, Joindre({generique, extension}))) return true;
  return false;
}

std::string RefusDuGenerique(std::string_view generique) {
  if (Rogner(generique).empty()) return "Pas de nom : recommencer";
  if (generique.find_first_of("/\\:*?\"<>|") != std::string_view::npos)
    return Joindre({"Un générique est un nom sans / \\ : * ? \" < > |"_w});
  return {};
}

std::vector<FichierImportable> FichiersImportables(const Chemin& repertoire) {
  std::vector<FichierImportable> fichiers;
  std::error_code faute;
  for (std::filesystem::directory_iterator entree(repertoire, faute), fin; !faute && entree != fin;
       entree.increment(faute)) {
    const std::string extension = entree->path().extension().string();
    const bool lu = EstNomDeClasseur(extension) ||
                    std::ranges::any_of(std::array{".csv", ".txt", ".tsv", ".dbf"},
                                        [&](std::string_view e) { return EgalSansCasse(extension, e); });
    if (!lu || entree->path().filename().native().starts_with('.') || !entree->is_regular_file(faute)) continue;
    fichiers.push_back({entree->path(), entree->file_size(faute)});
  }
  std::ranges::sort(fichiers, {}, [](const FichierImportable& f) { return Minuscules(TexteDe(f.chemin.filename())); });
  return fichiers;
}

}  // namespace quelvar::capture
