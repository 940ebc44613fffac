#include "capture/apercu/choix/proposition.h"

#include <algorithm>
#include <map>

#include "capture/apercu/choix/noms.h"
#include "capture/apercu/observation/mots.h"
#include "capture/apercu/octets/cellule.h"
#include "core/enquete/nomdemodalite.h"

namespace quelvar::capture {

namespace {

constexpr int kGroupesProposes = 5;  // fifths, each with enough individuals to be crossed

// The title without what tells one answer from another: "q3_1", "q3[SQ001]", "q3[SQ001]. Loisirs [Sport]", "Loisirs
// [Sport]" give "q3", "q3", "q3", "Loisirs". Empty for a title that has no such part.
std::string_view Racine(std::string_view intitule) {
  if (const std::size_t crochet = intitule.find('['); crochet != std::string_view::npos)
    if (intitule.find(']', crochet) != std::string_view::npos) return Rogner(intitule.substr(0, crochet));
  // A code of two signs and digits before the words: "q3_SQ001. Sport".
  std::size_t fin = intitule.size();
  constexpr std::string_view kSous = "SQ";
  if (const std::size_t code = intitule.find(kSous); code != std::string_view::npos && code > 0) {
    const std::size_t suite = intitule.find_first_not_of("0123456789", code + kSous.size());
    if (suite != code + kSous.size()) fin = std::min(suite, intitule.size());
  }
  const std::string_view tete = intitule.substr(0, fin);
  while (fin > 0 && intitule[fin - 1] >= '0' && intitule[fin - 1] <= '9') --fin;
  if (fin == tete.size() || fin < 2) return {};
  std::string_view racine = intitule.substr(0, fin);
  if (racine.ends_with(kSous)) racine.remove_suffix(kSous.size());
  if (racine.size() < 2 || (racine.back() != '_' && racine.back() != '.' && racine.back() != '-')) return {};
  return racine.substr(0, racine.size() - 1);
}

// "q2[other]", "Transports [Autre]": what was typed beside the answers.
bool EstAutre(std::string_view intitule) {
  const std::size_t crochet = intitule.rfind('[');
  if (crochet == std::string_view::npos) return false;
  const std::string fin = Minuscules(intitule.substr(crochet + 1));
  return fin.starts_with("other") || fin.starts_with("autre") || fin.starts_with("comment");
}

// A column that may be one answer of a question with several: yes or no, or its own label where it was ticked.
struct ReponseDeColonne {
  bool possible = false;
  bool certaine = false;  // texts, and none but yes and no
};

ReponseDeColonne JugerReponse(const FaitsDeColonne& colonne) {
  if (colonne.contenu == Contenu::Vide) return {true, false};
  const bool textes = colonne.contenu == Contenu::Textes;
  if (!textes && colonne.contenu != Contenu::Codes) return {};
  bool nettes = !colonne.valeurs.empty();
  bool manques = true;
  bool uneReponse = false;
  for (const ValeurComptee& v : colonne.valeurs) {
    const bool ouiOuNon = EstOui(v.valeur) || EstNon(v.valeur);
    nettes = nettes && ouiOuNon;
    manques = manques && (ouiOuNon || EstManque(v.valeur));
    uneReponse = uneReponse || ouiOuNon;
  }
  if (nettes) return {true, textes};
  if (textes && manques && uneReponse) return {true, false};
  return {textes && colonne.valeurs.size() == 1 && colonne.vides > 0 && !EstAutre(colonne.intitule) &&
              !EstManque(colonne.valeurs.front().valeur),
          textes};
}

// The texts of such a column: those that count as 1, and those that are no answer, which count as 0.
void PoserReponses(const FaitsDeColonne& colonne, ChoixDeColonne& choix) {
  choix.genre = Genre::Multiple;
  choix.reponses.clear();
  for (const ValeurComptee& valeur : colonne.valeurs) {
    if (EstNon(valeur.valeur)) continue;
    const bool manque = EstManque(valeur.valeur);
    if (manque && EstParmi(choix.nonReponses, valeur.valeur)) continue;
    (manque ? choix.nonReponses : choix.reponses).push_back(valeur.valeur);
  }
}

// Columns of one stem whose cells are ticks become questions of 1 and 0.
void ProposerReponses(const std::vector<FaitsDeColonne>& colonnes, std::vector<ChoixDeColonne>& choix) {
  std::map<std::string_view, std::vector<std::size_t>> groupes;
  for (std::size_t j = 0; j < colonnes.size(); ++j)
    if (const std::string_view racine = Racine(colonnes[j].intitule); !racine.empty()) groupes[racine].push_back(j);
  for (const auto& groupe : groupes) {
    std::vector<std::size_t> reponses;
    bool certaine = false;
    for (const std::size_t j : groupe.second) {
      const ReponseDeColonne reponse = JugerReponse(colonnes[j]);
      if (reponse.possible) reponses.push_back(j);
      certaine = certaine || reponse.certaine;
    }
    if (reponses.size() < 2 || !certaine) continue;
    for (const std::size_t j : reponses) PoserReponses(colonnes[j], choix[j]);
  }
}

Genre GenrePropose(const FaitsDeColonne& colonne) {
  switch (colonne.contenu) {
    case Contenu::Numero: return Genre::Numero;
    case Contenu::Codes: return Genre::Codes;
    case Contenu::Nombres: return Genre::Nombres;
    case Contenu::Textes: return Genre::Textes;
    case Contenu::TextesLongs: return Genre::Longs;
    case Contenu::Listes: return Genre::Multiple;
    case Contenu::Melange: return colonne.avecDecimales > 0 ? Genre::Nombres : Genre::Codes;
    case Contenu::Vide:
    case Contenu::Dates:
    case Contenu::TextesUniques: break;
  }
  return Genre::Ecartee;
}

}  // namespace

std::vector<ChoixDeColonne> ProposerChoix(const std::vector<FaitsDeColonne>& colonnes) {
  std::vector<ChoixDeColonne> choix;
  for (const FaitsDeColonne& colonne : colonnes) {
    ChoixDeColonne propose;
    propose.intitule = colonne.intitule;
    choix.push_back(ProposerGenre(colonne, propose, GenrePropose(colonne)));
  }
  ProposerReponses(colonnes, choix);
  NommerSelonLesFaits(choix, colonnes);
  return choix;
}

ChoixDeColonne ProposerGenre(const FaitsDeColonne& colonne, const ChoixDeColonne& actuel, Genre genre) {
  ChoixDeColonne choix;
  choix.intitule = actuel.intitule;
  choix.nom = actuel.nom;
  choix.genre = genre;
  choix.nonReponses = actuel.nonReponses;
  if (colonne.nonReponses > 0 && choix.nonReponses.empty()) choix.nonReponses.emplace_back(kNonReponse);
  if (genre == Genre::Classes) choix.groupes = kGroupesProposes;
  if (genre == Genre::Multiple) {
    choix.liste = colonne.liste;
    if (colonne.liste == '\0')
      for (const ValeurComptee& valeur : colonne.valeurs)
        if (!EstNon(valeur.valeur)) choix.reponses.push_back(valeur.valeur);
  }
  if (genre == Genre::Numero || genre == Genre::Ecartee || genre == Genre::Longs) choix.nom.clear();
  return choix;
}

std::vector<Genre> GenresPossibles(const FaitsDeColonne& colonne) {
  const Genre propose = GenrePropose(colonne);
  std::vector<Genre> genres = {propose};
  const auto ajouter = [&](Genre genre) {
    if (std::ranges::find(genres, genre) == genres.end()) genres.push_back(genre);
  };
  const Contenu contenu = colonne.contenu;
  const bool nombres = contenu == Contenu::Codes || contenu == Contenu::Nombres || contenu == Contenu::Numero ||
                       contenu == Contenu::Melange;
  if (nombres) {
    if (colonne.avecDecimales == 0) ajouter(Genre::Codes);
    ajouter(Genre::Classes);
    ajouter(Genre::Nombres);
  }
  if (contenu != Contenu::Vide) {
    if (!colonne.valeurs.empty() && colonne.valeurs.size() <= std::size_t{kDernierCodeNomme}) {
      ajouter(Genre::Textes);
      ajouter(Genre::Multiple);
    }
    ajouter(Genre::Longs);
    ajouter(Genre::Alphabetique);
    ajouter(Genre::Numero);
  }
  ajouter(Genre::Ecartee);
  return genres;
}

}  // namespace quelvar::capture
