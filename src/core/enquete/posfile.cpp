#include "core/enquete/posfile.h"

#include <array>

#include "core/chiffres/nombres.h"
#include "core/programme/rapport.h"

namespace quelvar {

namespace {

// The columns of the line of a question, from 1: its name, then position, code-max, type, and the free area.
constexpr int kColonneDePosition = kLargeurDeQuestion + 1;
constexpr int kLargeurDePosition = 4;
constexpr int kColonneDeCodeMax = kColonneDePosition + kLargeurDePosition;
constexpr int kLargeurDeCodeMax = 2;
constexpr int kColonneDuType = kColonneDeCodeMax + kLargeurDeCodeMax;

constexpr std::size_t kPremiereLettre = 10;  // the code that A stands for

constexpr std::array<std::array<char, 2>, kDernierCodeNomme + 1> ConstruireCodes() {
  std::array<std::array<char, 2>, kDernierCodeNomme + 1> codes{};
  for (std::size_t code = 0; code < codes.size(); ++code) {
    if (code < kPremiereLettre) codes[code] = {static_cast<char>('0' + code), 0};
    else if (code < kPremierCodeDouble) codes[code] = {static_cast<char>('A' + (code - kPremiereLettre)), 0};
    else codes[code] = {static_cast<char>('0' + code / 10), static_cast<char>('0' + code % 10)};
  }
  return codes;
}

constexpr auto kCodes = ConstruireCodes();

constexpr std::string_view kActive = "&ACT&";
constexpr std::string_view kSupplementaire = "&SUP&";

// Takes the first occurrence of a mark out of the text.
void Oter(std::string& texte, std::string_view marque) {
  const std::size_t place = texte.find(marque);
  if (place != std::string::npos) texte.erase(place, marque.size());
}

// The marks are looked for from the type on, in the label too.
Statut StatutDe(std::string_view ligne) {
  const std::string_view zone = Milieu(ligne, kColonneDuType);
  if (zone.find(kSupplementaire) != std::string_view::npos) return Statut::Supplementaire;
  return zone.find(kActive) != std::string_view::npos ? Statut::Actif : Statut::Aucun;
}

int LireCodeMax(std::string_view colonnes) {
  return colonnes == "L3" || colonnes == "l3" ? kCodeMaxL3 : Entier16(ValeurDe(colonnes));
}

// Takes the label between its "$" signs out of the free area.
void DetacherIntitule(std::string_view ligne, std::string& zoneLibre, Question& question) {
  const std::size_t premier = ligne.find('$');
  if (premier == std::string_view::npos) return;
  const std::size_t second = ligne.find('$', premier + 1);
  if (second == std::string_view::npos) {
    question.intituleOuvert = true;
    return;
  }
  question.intitule = ligne.substr(premier + 1, second - premier - 1);
  const std::size_t ouverture = zoneLibre.find('$');
  const std::size_t fermeture = ouverture == std::string::npos ? ouverture : zoneLibre.find('$', ouverture + 1);
  if (fermeture != std::string::npos) zoneLibre.erase(ouverture, fermeture - ouverture + 1);
}

}  // namespace

std::string TexteCodeMax(int codeMax) {
  return codeMax > kDernierCodeNomme ? "L3" : NombreFixe(codeMax, kLargeurDeCodeMax, 0);
}

std::string_view MarqueDe(Statut statut) {
  switch (statut) {
    case Statut::Actif: return kActive;
    case Statut::Supplementaire: return kSupplementaire;
    case Statut::Aucun: break;
  }
  return {};
}

std::string_view CodeCaractere(int code) {
  if (code < 0 || code > kDernierCodeNomme) throw Erreur(kIndiceHorsSelection);
  return {kCodes[static_cast<std::size_t>(code)].data(), code < kPremierCodeDouble ? std::size_t{1} : std::size_t{2}};
}

LigneTaille LireLigneTaille(std::string_view ligne) {
  LigneTaille taille;
  taille.texte = ligne;
  const std::size_t ouvrante = ligne.find('(');
  const std::size_t fermante = ligne.find(')');
  if (ouvrante == std::string_view::npos) {
    taille.individus = Entier64(ValeurDe(ligne));
  } else if (fermante == std::string_view::npos || fermante < ouvrante) {
    taille.parenthesesFautives = true;
  } else {
    taille.individus = Entier64(ValeurDe(ligne.substr(0, ouvrante)));
    taille.avantPonderation = Entier64(ValeurDe(ligne.substr(ouvrante + 1, fermante - ouvrante - 1)));
  }
  return taille;
}

Question LireLigneQuestion(std::string_view ligne) {
  Question question;
  question.nom = Milieu(ligne, 1, kLargeurDeQuestion);
  const auto en = [](int colonne) { return [colonne] { return Lieu{{}, 0, colonne}; }; };
  question.position = Situer(en(kColonneDePosition),
                             [&] { return Entier16(ValeurDe(Milieu(ligne, kColonneDePosition, kLargeurDePosition))); });
  question.codeMax =
      Situer(en(kColonneDeCodeMax), [&] { return LireCodeMax(Milieu(ligne, kColonneDeCodeMax, kLargeurDeCodeMax)); });
  question.largeur = LargeurDe(question.codeMax);
  // A label or a mark that starts a column too early belongs to the free area all the same.
  const std::string_view type = Milieu(ligne, kColonneDuType, 1);
  const bool libreDesLeType = type == "$" || type == "&";
  if (!type.empty() && !libreDesLeType) question.type = type.front();
  question.alphabetique = question.type == 'A' || question.type == 'a';
  question.statut = StatutDe(ligne);
  std::string zoneLibre(Milieu(ligne, libreDesLeType ? kColonneDuType : kColonneDuType + 1));
  DetacherIntitule(ligne, zoneLibre, question);
  Oter(zoneLibre, kActive);
  Oter(zoneLibre, kSupplementaire);
  question.regle = Rogner(zoneLibre);
  return question;
}

std::string LigneDeQuestion(std::string_view nom, std::int64_t position, std::string_view codeMax,
                            std::string_view suite) {
  return Joindre({CadreGauche(nom, kLargeurDeQuestion), EntierDroit(position, kLargeurDePosition), codeMax, suite});
}

std::string LibelleDeQuestion(std::string_view ligne) {
  return Joindre({CadreGauche(ligne, kColonneDeCodeMax - 1), " ",
                  CadreGauche(Milieu(ligne, kColonneDeCodeMax, kLargeurDeCodeMax), kLargeurDeCodeMax)});
}

std::string LigneDeTaille(std::int64_t individus, std::int64_t avantPonderation) {
  std::string ligne = NombreNu(individus);
  if (avantPonderation != 0) ligne += Joindre({"(", NombreNu(avantPonderation), ")"});
  return ligne;
}

std::string EntreDollars(std::string_view intitule) { return Joindre({"$", intitule, "$"}); }

std::optional<FinDeListe> MarqueDeFin(std::string_view ligne) {
  const std::string_view nom = Milieu(ligne, 1, kLargeurDeQuestion);
  if (Rogner(nom).empty()) return FinDeListe::LigneBlanche;
  if (nom.find(kFinDeListe) != std::string_view::npos) return FinDeListe::Asterisques;
  if (nom.find("$$") != std::string_view::npos) return FinDeListe::Dollars;
  return std::nullopt;
}

FichierPos LirePos(const Chemin& chemin) {
  FichierPos pos;
  pos.nom = TexteDe(chemin.filename());
  LecteurLignes lecteur(chemin);
  pos.titre = lecteur.LireObligatoire();
  pos.lignes.push_back(pos.titre);
  pos.taille = Situer(lecteur, [&] { return LireLigneTaille(lecteur.LireObligatoire()); });
  pos.lignes.push_back(pos.taille.texte);
  // Nothing behind faulty parentheses is worth a fault of its own: the run stops there.
  bool dansLaListe = !pos.taille.parenthesesFautives;
  for (std::string_view ligne; lecteur.Lire(ligne);) {
    if (dansLaListe) {
      if (const std::optional<FinDeListe> fin = MarqueDeFin(ligne)) {
        pos.fin = *fin;
        pos.premiereApres = pos.lignes.size();
        dansLaListe = false;
      } else {
        pos.questions.push_back(Situer(lecteur, [&] { return LireLigneQuestion(ligne); }));
      }
    }
    pos.lignes.emplace_back(ligne);
  }
  if (pos.fin == FinDeListe::FinDeFichier) pos.premiereApres = pos.lignes.size();
  return pos;
}

std::optional<Chemin> ChercherPos(const Chemin& repertoire, std::string_view nom) {
  std::optional<Chemin> pos = ChercherFichier(repertoire, nom);
  if (pos && LongueurFichier(*pos) < kPosVide) pos.reset();
  return pos;
}

std::string FauteIntitule(const Question& question) {
  return Joindre({"L'intitulé de la question "_w, question.nom, " n'est pas encadré par le signe dollar"_w});
}

Lieu LieuDeLaQuestion(const FichierPos& pos, std::size_t indice) { return {pos.nom, LigneDansLaListe(indice)}; }

Erreur ChampImpossible(const FichierPos& pos, std::size_t indice, int premiere) {
  const Question& question = pos.questions.at(indice);
  const int rang = static_cast<int>(indice);
  Erreur erreur(kArgumentIncorrect, RepereQuestion{premiere + rang, question.nom, question.position, question.codeMax});
  Lieu lieu = LieuDeLaQuestion(pos, indice);
  lieu.colonne = kColonneDePosition;
  return erreur.Situer(lieu);
}

}  // namespace quelvar
