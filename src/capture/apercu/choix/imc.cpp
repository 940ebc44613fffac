#include "capture/apercu/choix/imc.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "capture/apercu/choix/devenir.h"
#include "core/chiffres/nombres.h"
#include "core/panne/annonce.h"
#include "core/panne/erreur.h"

namespace quelvar::capture {

namespace {

constexpr std::string_view kSignesReserves = "=;|#\"";
constexpr std::array<Genre, 9> kGenres = {Genre::Codes,   Genre::Textes,   Genre::Classes,
                                          Genre::Nombres, Genre::Multiple, Genre::Longs,
                                          Genre::Numero,  Genre::Ecartee,  Genre::Alphabetique};
constexpr int kCodeMaxEcrit = 99;  // the largest one in digits

std::string Protege(std::string_view texte) {
  const bool nu = !texte.empty() && texte.find_first_of(kSignesReserves) == std::string_view::npos &&
                  texte.front() != ' ' && texte.back() != ' ';
  if (nu) return std::string(texte);
  std::string protege = "\"";
  for (const char c : texte) protege.append(c == '"' ? 2 : 1, c);
  return protege + '"';
}

std::string Liste(const std::vector<std::string>& textes) {
  std::string liste;
  for (const std::string& texte : textes) {
    if (!liste.empty()) liste += '|';
    liste += Protege(texte);
  }
  return liste;
}

std::string EcrireLigne(const ChoixDeColonne& choix) {
  std::string ligne = Joindre({Protege(choix.intitule), "=", NomGenre(choix.genre), ";", Protege(choix.nom)});
  if (choix.nom.empty()) ligne.resize(ligne.size() - 2);
  const auto parametre = [&](std::string_view nom, const std::string& valeur) {
    ligne.append(1, ';').append(nom).append(1, '=').append(valeur);
  };
  if (!choix.libelle.empty()) parametre("intitule", Protege(choix.libelle));
  if (choix.codeMax > 0) parametre("codemax", choix.codeMax == kCodeMaxL3 ? "L3" : Nombre(choix.codeMax));
  if (choix.aDroite) parametre("cadrage", "droite");
  if (choix.genre == Genre::Codes && !choix.textes.empty()) parametre("textes", Liste(choix.textes));
  if (choix.genre == Genre::Textes) {
    // In this order: texts that are given alone are the order; without any the others come alphabetically.
    if (!choix.textes.empty()) parametre("textes", Liste(choix.textes));
    if (choix.ordre != Ordre::Donne || choix.textes.empty())
      parametre("ordre", choix.ordre == Ordre::Frequence ? "frequence" : "alphabetique");
    if (choix.fondus) parametre("fondus", "oui");
  }
  if (choix.genre == Genre::Classes) {
    std::vector<std::string> bornes;
    for (const double borne : choix.bornes) bornes.push_back(Nombre(borne));
    if (!bornes.empty()) parametre("bornes", Liste(bornes));
    else parametre("groupes", Nombre(choix.groupes));
  }
  if (choix.genre == Genre::Multiple) {
    if (choix.liste != '\0') parametre("liste", Protege(std::string_view(&choix.liste, 1)));
    else parametre("reponses", Liste(choix.reponses));
  }
  if (!choix.nonReponses.empty()) parametre("zero", Liste(choix.nonReponses));
  return ligne;
}

// Takes a line to pieces; every failure tells the line.
class Analyse {
 public:
  Analyse(std::string_view reste, std::int64_t numero) : ligne_(reste), reste_(reste), numero_(numero) {}

  [[noreturn]] void Refuser(Texte raison) const {
    throw Erreur(kIncompatibiliteType, Joindre({kArretDuProgramme, "ligne ", Nombre(numero_), " du fichier des choix, ",
                                                raison, " : ", ligne_}));
  }

  // A text up to one of the signs, or a quoted one.
  std::string Texte(std::string_view fins) {
    std::string texte;
    if (!reste_.empty() && reste_.front() == '"') {
      for (reste_.remove_prefix(1);; reste_.remove_prefix(1)) {
        if (reste_.empty()) Refuser("guillemet sans fin");
        if (reste_.front() == '"') {
          reste_.remove_prefix(1);
          if (reste_.empty() || reste_.front() != '"') break;
        }
        texte += reste_.front();
      }
      reste_ = RognerGauche(reste_);
      if (!reste_.empty() && fins.find(reste_.front()) == std::string_view::npos) Refuser("texte après un guillemet"_w);
      return texte;
    }
    const std::size_t fin = std::min(reste_.find_first_of(fins), reste_.size());
    texte = Rogner(reste_.substr(0, fin));
    reste_.remove_prefix(fin);
    return texte;
  }
  bool Passer(char signe) {
    if (reste_.empty() || reste_.front() != signe) return false;
    reste_.remove_prefix(1);
    reste_ = RognerGauche(reste_);
    return true;
  }
  std::vector<std::string> Liste() {
    std::vector<std::string> textes;
    if (reste_.empty() || reste_.front() == ';') return textes;
    do textes.push_back(Texte("|;"));
    while (Passer('|'));
    return textes;
  }
  bool Finie() const { return reste_.empty(); }

 private:
  std::string_view ligne_;
  std::string_view reste_;
  std::int64_t numero_;
};

double NombreDe(const Analyse& analyse, const std::string& texte) {
  if (!EstNombre(texte) || texte.find(' ') != std::string::npos) analyse.Refuser("un nombre est attendu");
  return ValeurDe(texte);
}

void LireParametre(Analyse& analyse, ChoixDeColonne& choix) {
  const std::string nom = Minuscules(analyse.Texte("=;"));
  if (nom.empty() && analyse.Finie()) return;
  if (!analyse.Passer('=')) analyse.Refuser("un signe = est attendu");
  const std::vector<std::string> valeurs = analyse.Liste();
  const std::string premiere = valeurs.empty() ? std::string() : valeurs.front();
  if (nom == "ordre") {
    if (premiere == "alphabetique") choix.ordre = Ordre::Alphabetique;
    else if (premiere == "frequence") choix.ordre = Ordre::Frequence;
    else analyse.Refuser("ordre inconnu (alphabetique ou frequence)");
  } else if (nom == "textes") {
    choix.ordre = Ordre::Donne;
    choix.textes = valeurs;
  } else if (nom == "fondus") {
    if (premiere != "oui" && premiere != "non") analyse.Refuser("oui ou non");
    choix.fondus = premiere == "oui";
  } else if (nom == "zero") {
    choix.nonReponses = valeurs;
  } else if (nom == "bornes") {
    // With "|" between them, or blanks as they are typed.
    for (const std::string& valeur : valeurs)
      for (std::string_view reste = valeur; !reste.empty();) {
        const std::size_t fin = std::min(reste.find(' '), reste.size());
        if (fin > 0) choix.bornes.push_back(NombreDe(analyse, std::string(reste.substr(0, fin))));
        reste.remove_prefix(std::min(fin + 1, reste.size()));
      }
    if (choix.bornes.empty() || !std::ranges::is_sorted(choix.bornes, std::ranges::less_equal{}))
      analyse.Refuser("les bornes ne croissent pas");
  } else if (nom == "groupes") {
    const double groupes = NombreDe(analyse, premiere);
    if (groupes < kGroupesAuMoins || groupes > kGroupesAuPlus || groupes != ArrondirPair(groupes))
      analyse.Refuser(Joindre({Nombre(kGroupesAuMoins), " à "_w, Nombre(kGroupesAuPlus), " groupes"}));
    choix.groupes = static_cast<int>(groupes);
  } else if (nom == "intitule") {
    choix.libelle = premiere;
  } else if (nom == "codemax") {
    const double codeMax = EgalSansCasse(premiere, "L3") ? kCodeMaxL3 : NombreDe(analyse, premiere);
    const bool ecrit = codeMax >= 1 && codeMax <= kCodeMaxEcrit && codeMax == ArrondirPair(codeMax);
    if (!ecrit && codeMax != kCodeMaxL3) analyse.Refuser("codemax= va de 1 à 99, ou L3"_w);
    choix.codeMax = static_cast<int>(codeMax);
  } else if (nom == "cadrage") {
    if (premiere != "droite" && premiere != "gauche") analyse.Refuser("cadrage= est gauche ou droite");
    choix.aDroite = premiere == "droite";
  } else if (nom == "liste") {
    if (premiere.size() != 1) analyse.Refuser("un seul signe sépare les réponses"_w);
    choix.liste = premiere.front();
  } else if (nom == "reponses") {
    choix.reponses = valeurs;
  } else {
    analyse.Refuser("paramètre inconnu"_w);
  }
}

ChoixDeColonne LireLigne(std::string_view ligne, std::int64_t numero) {
  Analyse analyse(ligne, numero);
  ChoixDeColonne choix;
  choix.intitule = analyse.Texte("=");
  if (!analyse.Passer('=')) analyse.Refuser("un signe = est attendu");
  const std::string genre = Minuscules(analyse.Texte(";"));
  const auto* const trouve = std::ranges::find_if(kGenres, [&](Genre g) { return NomGenre(g) == genre; });
  if (trouve == kGenres.end())
    analyse.Refuser(
        "genre inconnu (codes, textes, classes, nombres, multiple, longs, numero, ecartee ou "
        "alphabetique)");
  choix.genre = *trouve;
  if (analyse.Passer(';')) choix.nom = analyse.Texte(";");
  if (choix.nom.size() > kNomCourtLePlusLong) analyse.Refuser("un nom a trois caractères"_w);
  while (analyse.Passer(';')) LireParametre(analyse, choix);
  if (choix.genre == Genre::Classes && choix.bornes.empty() && choix.groupes == 0)
    analyse.Refuser("des classes demandent bornes= ou groupes=");
  return choix;
}

}  // namespace

std::string EcrireImc(const std::vector<ChoixDeColonne>& choix) {
  std::string texte = "# intitulé=genre;nom;paramètres\r\n";
  for (const ChoixDeColonne& colonne : choix) texte += VersUtf8(EcrireLigne(colonne)) + "\r\n";
  return texte;
}

std::vector<ChoixDeColonne> LireImc(const Chemin& chemin) {
  std::vector<ChoixDeColonne> choix;
  LecteurLignes lecteur(chemin);
  Situer(lecteur, [&] {
    std::int64_t numero = 0;
    for (std::string_view octets; lecteur.Lire(octets);) {
      if (++numero == 1) OterMarqueUtf8(octets);
      const std::string convertie = EstUtf8MultiOctet(octets) ? DepuisUtf8(octets) : std::string(octets);
      const std::string_view ligne = Rogner(convertie);
      if (!ligne.empty() && ligne.front() != '#') choix.push_back(LireLigne(ligne, numero));
    }
  });
  return choix;
}

ChoixApparies Apparier(const std::vector<ChoixDeColonne>& proposes, const std::vector<ChoixDeColonne>& lus) {
  ChoixApparies apparies;
  std::map<std::string, std::vector<std::size_t>> parTitre;
  for (std::size_t i = lus.size(); i-- > 0;) parTitre[lus[i].intitule].push_back(i);
  for (const ChoixDeColonne& propose : proposes) {
    std::vector<std::size_t>& rangs = parTitre[propose.intitule];
    if (rangs.empty()) {
      apparies.choix.push_back(propose);
      apparies.sansChoix.push_back(propose.intitule);
      continue;
    }
    apparies.choix.push_back(lus[rangs.back()]);
    rangs.pop_back();
  }
  for (std::size_t i = 0; i < lus.size(); ++i)
    if (std::ranges::count(parTitre[lus[i].intitule], i) > 0) apparies.sansColonne.push_back(lus[i].intitule);
  return apparies;
}

}  // namespace quelvar::capture
