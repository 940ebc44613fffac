#include "utilities/exportcsv/textes.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "capture/apercu/choix/imc.h"
#include "capture/apercu/octets/cellule.h"
#include "core/chiffres/nombres.h"
#include "core/enquete/colonnes.h"
#include "core/enquete/modfile.h"
#include "core/enquete/nomdemodalite.h"
#include "core/enquete/noms.h"
#include "core/programme/rapport.h"
#include "core/texte/listes.h"

namespace quelvar::utilities {

namespace {

constexpr std::size_t kTextesAuPlus = kDernierCodeNomme;  // that an import makes codes of

// The first two codes of that text.
struct Confusion {
  std::size_t premier = 0, second = 0;
};

// Two codes that are written alike; the same one twice without any.
Confusion ChercherConfusion(const std::vector<std::string>& textes) {
  std::unordered_map<std::string_view, std::size_t> rangs;
  for (std::size_t code = 0; code < textes.size(); ++code)
    if (const auto [deja, neuf] = rangs.emplace(capture::RognerCellule(textes[code]), code); !neuf)
      return {deja->second, code};
  return {};
}

bool ALesChiffres(const QuestionEnTextes& question) {
  for (std::size_t code = 1; code < question.textes.size(); ++code)
    if (question.textes[code] != Nombre(code)) return false;
  return true;
}

// The texts in the order of their codes, as an import reads their cells; one that stands for a former code too keeps
// its rank under another name.
std::vector<std::string> TextesDifferents(const std::vector<std::string>& textes) {
  std::vector<std::string> differents;
  for (std::size_t code = 1; code < textes.size(); ++code) {
    const std::string_view texte = capture::RognerCellule(textes[code]);
    const auto fin = textes.begin() + static_cast<std::ptrdiff_t>(code);
    const bool deja = std::find_if(textes.begin(), fin, [&](const std::string& autre) {
                        return capture::RognerCellule(autre) == texte;
                      }) != fin;
    differents.push_back(deja ? Joindre({texte, " (", Nombre(code), ")"}) : std::string(texte));
  }
  return differents;
}

// A modality of the list is marked: supplementary, or coded for a regression.
bool AUneMarque(const Chemin& mod) {
  LecteurLignes lecteur(mod);
  std::string_view ligne;
  if (!lecteur.Lire(ligne) || !lecteur.Lire(ligne)) return false;
  while (lecteur.Lire(ligne) && !FinitLesModalites(CadreGauche(ligne, kLargeurDeModalite)))
    if (!Rogner(Milieu(ligne, kLargeurDeModalite + 1, kLargeurDeMarque)).empty()) return true;
  return false;
}

}  // namespace

IntitulesDesCodes LireIntitulesDesCodes(const Chemin& mod, const FichierPos& pos) {
  const auto parCode = [&](auto vide) {
    return std::vector(pos.questions.size(), std::vector(std::size_t{kDernierCodeNomme} + 1, vide));
  };
  IntitulesDesCodes intitules{parCode(std::string()), {}};
  LecteurLignes lecteur(mod);
  std::string_view ligne;
  if (!lecteur.Lire(ligne) || !lecteur.Lire(ligne)) return intitules;
  bool dansLaListe = true;
  std::vector<std::vector<char>> vus = parCode('\0');
  std::unordered_map<std::string, std::string> sansPlace;  // labels by the names that several codes share
  std::optional<CodeDeModalite> precedente;
  while (lecteur.Lire(ligne)) {
    const std::string nom = CadreGauche(ligne, kLargeurDeModalite);
    dansLaListe = dansLaListe && !FinitLesModalites(nom);
    const std::string_view intitule = Rogner(Milieu(ligne, kColonneDIntitule));
    CodeDeModalite lu;
    const FauteDeNom faute = LireNomDeModalite(pos, nom, precedente, lu);
    if (faute == FauteDeNom::Partagee && !intitule.empty() && sansPlace.emplace(nom, intitule).second)
      intitules.partages.push_back(nom);
    precedente = faute == FauteDeNom::Aucune ? std::optional(lu) : std::nullopt;
    if (!precedente || lu.code > kDernierCodeNomme) continue;
    std::string& place = intitules.parQuestion[lu.question][static_cast<std::size_t>(lu.code)];
    if (char& vu = vus[lu.question][static_cast<std::size_t>(lu.code)]; vu == 0) {
      vu = 1;
      place = intitule;
    } else if (dansLaListe && place != intitule) {
      throw Erreur(kIncompatibiliteType, FauteModalitesHomonymes(nom, 2)).Situer(lecteur.Ou());
    }
  }
  for (std::size_t q = 0; q < pos.questions.size() && !sansPlace.empty(); ++q)
    for (int code = 1; code <= kDernierCodeNomme; ++code) {
      const auto place = static_cast<std::size_t>(code);
      if (const auto commun = sansPlace.find(NomDeModalite(pos.questions[q].nom, code));
          vus[q][place] == 0 && commun != sansPlace.end())
        intitules.parQuestion[q][place] = commun->second;
    }
  return intitules;
}

std::string CodesConfondus(const std::vector<QuestionEnTextes>& questions) {
  std::size_t nombre = 0;
  std::string premiere;
  for (const QuestionEnTextes& question : questions) {
    const Confusion confusion = ChercherConfusion(question.textes);
    if (confusion.premier == confusion.second || nombre++ > 0) continue;
    premiere = Joindre({question.nom, " (codes ", Nombre(confusion.premier), " et ", Nombre(confusion.second), " : ",
                        question.textes[confusion.second], ")"});
  }
  if (nombre == 0) return {};
  return Joindre({"Questions dont deux codes s'écrivent de même : "_w, Nombre(nombre), ", la première "_w, premiere,
                  ". Le tableur ne les distingue plus : donnez-leur d'autres intitulés, ou exportez les codes"_w});
}

std::string CeQuiNePassePas(std::string_view generique, const FichierPos& pos, const Chemin& mod) {
  std::vector<std::string_view> perdus;
  if (const std::string_view titre = Rogner(pos.titre); !titre.empty() && titre != generique)
    perdus.push_back("le titre de la ligne 1 du .POS");
  const auto avecRegle = [](const Question& q) { return q.statut != Statut::Aucun || !q.regle.empty(); };
  const std::string_view taille = Rogner(pos.taille.texte);
  if (!taille.empty() && taille != Nombre(pos.taille.individus)) perdus.push_back("la suite de la ligne 2 du .POS");
  if (std::ranges::any_of(pos.questions, avecRegle)) perdus.push_back("les règles et les marques de questions"_w);
  if (pos.premiereApres + 1 < pos.lignes.size()) perdus.push_back("ce qui suit les questions dans le .POS");
  if (AUneMarque(mod)) perdus.push_back("les marques de modalités"_w);
  return perdus.empty() ? std::string() : Joindre({"Une importation du tableur ne remettra pas : ", Enumerer(perdus)});
}

std::string ChoixDeLImport(const std::vector<QuestionEnTextes>& questions) {
  std::vector<capture::ChoixDeColonne> choix;
  for (const QuestionEnTextes& question : questions) {
    capture::ChoixDeColonne colonne;
    colonne.intitule = Rogner(question.titre);
    colonne.nom = question.nom;
    if (question.titre != question.intitule || question.intitule.size() <= question.nom.size())
      colonne.libelle = Rogner(question.intitule);
    if (question.textes.empty()) {
      colonne.genre = capture::Genre::Alphabetique;
      colonne.codeMax = std::max(question.codeMax, 1);
      colonne.aDroite = question.aDroite;
    } else if (!ALesChiffres(question) && question.textes.size() - 1 <= kTextesAuPlus) {
      // Texts in the order of their codes keep a code that nobody gave.
      colonne.genre = capture::Genre::Textes;
      colonne.ordre = capture::Ordre::Donne;
      colonne.textes = TextesDifferents(question.textes);
      colonne.nonReponses = {question.textes.front()};
    } else {
      colonne.genre = capture::Genre::Codes;
      colonne.codeMax = question.codeMax;
      if (question.textes.front() != "0") colonne.nonReponses = {question.textes.front()};
      if (!ALesChiffres(question)) {
        colonne.ordre = capture::Ordre::Donne;
        colonne.textes = TextesDifferents(question.textes);
        colonne.textes.resize(kTextesAuPlus);
      }
    }
    choix.push_back(std::move(colonne));
  }
  return capture::EcrireImc(choix);
}

}  // namespace quelvar::utilities
