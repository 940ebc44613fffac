#include "capture/apercu/choix.h"

#include <algorithm>
#include <array>
#include <map>

#include "capture/apercu/observation/mots.h"
#include "capture/apercu/octets/cellule.h"
#include "capture/nomscourts.h"
#include "core/texte/nombres.h"
#include "core/texte/texte.h"

namespace quelvar::capture {

namespace {

constexpr int kGroupesProposes = 5;
constexpr std::int64_t kPartRare = 5;       // one in so many cells is rare
constexpr std::size_t kCodesDeTextes = 99;  // last code that has a modality

bool EstParmi(const std::vector<std::string>& textes, std::string_view texte) {
  return std::ranges::find(textes, texte) != textes.end();
}

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

bool EstMot(std::string_view texte, std::initializer_list<std::string_view> mots) {
  const std::string petit = Minuscules(texte);
  return std::ranges::find(mots, std::string_view(petit)) != mots.end();
}
bool EstOui(std::string_view texte) {
  return EstMot(texte, {"oui", "yes", "y", "o", "x", "vrai", "true", "coché"_w, "checked", "selected", "sélectionné"_w,
                        "quoted", "1"});
}
bool EstNon(std::string_view texte) {
  return EstMot(texte, {"non", "no", "n", "faux", "false", "non coché"_w, "unchecked", "not selected",
                        "non sélectionné"_w, "not quoted", "0"});
}

// "q2[other]", "Transports [Autre]": what was typed beside the answers.
bool EstAutre(std::string_view intitule) {
  const std::size_t crochet = intitule.rfind('[');
  if (crochet == std::string_view::npos) return false;
  const std::string fin = Minuscules(intitule.substr(crochet + 1));
  return fin.starts_with("other") || fin.starts_with("autre") || fin.starts_with("comment");
}

// A column that may be one answer of a question with several: yes or no, or its own label where it was ticked.
struct Reponse {
  bool possible = false;
  bool certaine = false;  // texts, and none but yes and no
};

Reponse JugerReponse(const FaitsDeColonne& colonne) {
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
      const Reponse reponse = JugerReponse(colonnes[j]);
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

bool DonneUnNom(const ChoixDeColonne& choix, bool nombres) {
  if (choix.genre == Genre::Nombres) return nombres;
  return !nombres && (choix.genre == Genre::Codes || choix.genre == Genre::Textes || choix.genre == Genre::Classes ||
                      choix.genre == Genre::Multiple || choix.genre == Genre::Alphabetique);
}

// What a column is to be called: by its number when it has no title of its own.
std::string NomDemande(const ChoixDeColonne& choix, std::size_t j) {
  const std::string numero = Nombre(j + 1);
  if (!choix.nom.empty()) return choix.nom;
  if (choix.intitule != Joindre({kTitreDeColonne, numero}) || numero.size() > 3) return choix.intitule;
  return std::string("Co").substr(0, 3 - numero.size()) + numero;
}

// Codes that are all 0 make no question and take no name; `colonnes` tells which, when it is known.
void Nommer(std::vector<ChoixDeColonne>& choix, bool nombres, const std::vector<FaitsDeColonne>* colonnes) {
  std::vector<std::size_t> rangs;
  std::vector<std::string> intitules;
  for (std::size_t j = 0; j < choix.size(); ++j) {
    if (!DonneUnNom(choix[j], nombres)) continue;
    if (colonnes != nullptr && choix[j].genre == Genre::Codes && (*colonnes)[j].maximum <= 0) continue;
    rangs.push_back(j);
    intitules.push_back(NomDemande(choix[j], j));
  }
  const std::vector<NomCourt> noms = NommerIntitules(intitules);
  for (std::size_t i = 0; i < rangs.size(); ++i) choix[rangs[i]].nom = noms[i].nom;
}

std::string Cellule(const FaitsDeColonne& colonne, std::size_t numero, const CelluleFautive& cellule, Texte raison) {
  return Joindre({"*** Erreur : colonne ", Nombre(numero), " ", colonne.intitule, ", ligne ", Nombre(cellule.ligne),
                  " : \"", cellule.valeur, "\" ", raison});
}

// A cell that is no number and that the choice gives a code to.
bool EstPrevue(const ChoixDeColonne& choix, std::string_view cellule) {
  return EstParmi(choix.nonReponses, cellule) || (choix.genre == Genre::Codes && EstParmi(choix.textes, cellule));
}

// Faulty cells that the choice gives no code to.
void RefuserCellules(const ChoixDeColonne& choix, const FaitsDeColonne& colonne, std::size_t numero,
                     std::vector<std::string>& refus) {
  const std::size_t avant = refus.size();
  for (const CelluleFautive& cellule : colonne.fautives) {
    if (EstPrevue(choix, cellule.valeur)) continue;
    refus.push_back(Cellule(colonne, numero, cellule, RaisonDuRefus(choix, colonne, cellule.valeur)));
  }
  const auto gardees = static_cast<std::int64_t>(colonne.fautives.size());
  if (refus.size() > avant && colonne.fautes > gardees)
    refus.push_back(Joindre({"*** Erreur : colonne ", Nombre(numero), " ", colonne.intitule, ", et ",
                             Nombre(colonne.fautes - gardees), " autres cellules"}));
}

// Faulty cells that the choice does not count as 0; those that are not kept count.
std::int64_t FautesRestantes(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  const auto admises =
      std::ranges::count_if(colonne.fautives, [&](const CelluleFautive& c) { return EstPrevue(choix, c.valeur); });
  return colonne.fautes - admises;
}

std::int64_t TextesACoder(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  std::int64_t nombre = 0;
  if (choix.fondus)
    for (const auto& proches : EcrituresProches(choix, colonne))
      nombre -= static_cast<std::int64_t>(proches.size()) - 1;
  for (const ValeurComptee& valeur : colonne.valeurs)
    if (!EstParmi(choix.nonReponses, valeur.valeur)) ++nombre;
  return colonne.valeurs.empty() ? colonne.differentes : nombre;
}

// ", NSP et NR comptent pour 0".
std::string DireZeros(const ChoixDeColonne& choix) {
  std::string noms;
  for (const std::string& texte : choix.nonReponses) noms.append(noms.empty() ? ", " : " et ").append(texte);
  if (noms.empty()) return {};
  return noms + (choix.nonReponses.size() > 1 ? " comptent pour 0" : " compte pour 0");
}

std::string DevenirTextes(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  const std::int64_t nombre = TextesACoder(choix, colonne);
  if (nombre == 1) return Joindre({"1 texte devient le code 1, avec son intitulé"_w});
  std::string phrase = Joindre({Nombre(nombre), " textes deviennent des codes, "});
  phrase += choix.ordre == Ordre::Alphabetique ? std::string("dans l'ordre alphabétique"_w)
            : choix.ordre == Ordre::Frequence  ? Joindre({"du plus fréquent au plus rare"_w})
                                               : Joindre({"dans l'ordre donné"_w});
  return Joindre({phrase, ", avec leurs intitulés"_w});
}

}  // namespace

std::string_view NomGenre(Genre genre) {
  switch (genre) {
    case Genre::Codes: return "codes";
    case Genre::Textes: return "textes";
    case Genre::Classes: return "classes";
    case Genre::Nombres: return "nombres";
    case Genre::Multiple: return "multiple";
    case Genre::Longs: return "longs";
    case Genre::Numero: return "numero";
    case Genre::Ecartee: return "ecartee";
    case Genre::Alphabetique: return "alphabetique";
  }
  return {};
}

std::string_view LibelleGenre(Genre genre) {
  switch (genre) {
    case Genre::Codes: return "codes";
    case Genre::Textes: return "textes en codes";
    case Genre::Classes: return "nombres en classes";
    case Genre::Nombres: return "nombres gardés"_w;
    case Genre::Multiple: return "réponses multiples"_w;
    case Genre::Longs: return "textes longs";
    case Genre::Numero: return "numéro de l'individu"_w;
    case Genre::Ecartee: return "laissée de côté"_w;
    case Genre::Alphabetique: return "textes tels quels"_w;
  }
  return {};
}

std::vector<ChoixDeColonne> ProposerChoix(const std::vector<FaitsDeColonne>& colonnes) {
  std::vector<ChoixDeColonne> choix;
  for (const FaitsDeColonne& colonne : colonnes) {
    ChoixDeColonne propose;
    propose.intitule = colonne.intitule;
    choix.push_back(ProposerGenre(colonne, propose, GenrePropose(colonne)));
  }
  ProposerReponses(colonnes, choix);
  Nommer(choix, false, &colonnes);
  Nommer(choix, true, &colonnes);
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
    if (!colonne.valeurs.empty() && colonne.valeurs.size() <= kCodesDeTextes) {
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

void NommerChoix(std::vector<ChoixDeColonne>& choix) {
  Nommer(choix, false, nullptr);
  Nommer(choix, true, nullptr);
}

std::vector<std::string> NomsProposes(std::vector<ChoixDeColonne> choix, const std::vector<FaitsDeColonne>& colonnes) {
  for (ChoixDeColonne& c : choix) c.nom.clear();
  Nommer(choix, false, &colonnes);
  Nommer(choix, true, &colonnes);
  std::vector<std::string> noms;
  for (ChoixDeColonne& c : choix) noms.push_back(std::move(c.nom));
  return noms;
}

std::vector<std::vector<ValeurComptee>> EcrituresProches(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  const bool liste = choix.genre == Genre::Multiple && choix.liste != '\0';
  if (!liste && choix.genre != Genre::Textes) return {};
  std::map<std::string, std::vector<ValeurComptee>> parTexte;
  for (const ValeurComptee& valeur : liste ? colonne.elements : colonne.valeurs)
    if (!EstParmi(choix.nonReponses, valeur.valeur)) parTexte[SansEcriture(valeur.valeur)].push_back(valeur);
  std::vector<std::vector<ValeurComptee>> proches;
  for (auto& groupe : parTexte)
    if (groupe.second.size() > 1) proches.push_back(std::move(groupe.second));
  return proches;
}

std::vector<int> CodesDesTextes(const ChoixDeColonne& choix, const std::vector<std::string>& textes) {
  std::vector<int> codes;
  std::map<std::string, int> donnes;
  int dernier = 0;
  for (const std::string& texte : textes) {
    const auto [donne, nouveau] = donnes.emplace(choix.fondus ? SansEcriture(texte) : texte, dernier + 1);
    if (nouveau) ++dernier;
    codes.push_back(donne->second);
  }
  return codes;
}

std::string_view RaisonDuRefus(const ChoixDeColonne& choix, const FaitsDeColonne& colonne, std::string_view cellule) {
  const bool decimales = choix.genre == Genre::Nombres || choix.genre == Genre::Classes;
  if (const std::optional<NombreLu> nombre = LireNombre(cellule); decimales && nombre) {
    if (colonne.decimaleDonnee) return "n'a pas le signe décimal donné : changez-le, ou donnez l'autre"_w;
    return nombre->EstAmbigu()
               ? "peut avoir des décimales ou des milliers : donnez decimale=virgule ou decimale=point"_w
               : "a un autre signe décimal que d'autres nombres de sa colonne : écrivez-les tous avec le même"_w;
  }
  switch (choix.genre) {
    case Genre::Codes: return "n'est pas un code";
    case Genre::Multiple: return "n'est pas une réponse connue"_w;
    case Genre::Textes: return "n'a pas de code";
    default: return "n'est pas un nombre";
  }
}

std::vector<std::string> RefusDesTextes(const std::vector<ChoixDeColonne>& choix,
                                        const std::vector<FaitsDeColonne>& colonnes) {
  std::vector<std::string> refus;
  for (std::size_t j = 0; j < std::min(choix.size(), colonnes.size()); ++j) {
    if (choix[j].genre != Genre::Textes && choix[j].genre != Genre::Multiple) continue;
    for (const TexteConfondu& confondu : colonnes[j].confondus) {
      if (EstParmi(choix[j].nonReponses, confondu.texte)) continue;
      std::string lignes;
      for (const std::int64_t ligne : confondu.lignes) lignes.append(lignes.empty() ? "" : ", ").append(Nombre(ligne));
      refus.push_back(Joindre({"*** Erreur : colonne ", Nombre(j + 1), " ", colonnes[j].intitule, ", ligne ", lignes,
                               " : des textes différents s'écriraient tous \""_w, confondu.texte,
                               "\", Windows-1252 n'a pas leurs caractères : remplacez-les, ou mettez la colonne en "
                               "textes longs ou de côté"_w}));
    }
  }
  return refus;
}

// Classes of which neither the bounds nor the number of groups are known.
bool SansBornes(const ChoixDeColonne& choix) {
  return choix.genre == Genre::Classes && choix.bornes.empty() && choix.groupes == 0;
}

std::vector<std::string> RefusDesChoix(const std::vector<ChoixDeColonne>& choix,
                                       const std::vector<FaitsDeColonne>& colonnes) {
  std::vector<std::string> refus = RefusDesTextes(choix, colonnes);
  for (std::size_t j = 0; j < std::min(choix.size(), colonnes.size()); ++j) {
    const FaitsDeColonne& colonne = colonnes[j];
    const bool enNombres =
        choix[j].genre == Genre::Codes || choix[j].genre == Genre::Classes || choix[j].genre == Genre::Nombres;
    if (enNombres) RefuserCellules(choix[j], colonne, j + 1, refus);
    if (choix[j].genre == Genre::Textes && TextesACoder(choix[j], colonne) > static_cast<std::int64_t>(kCodesDeTextes))
      refus.push_back(Joindre({"*** Erreur : colonne ", Nombre(j + 1), " ", colonne.intitule, ", ",
                               Nombre(TextesACoder(choix[j], colonne)), " textes différents pour 99 codes"_w}));
    if (SansBornes(choix[j]))
      refus.push_back(Joindre({"*** Erreur : colonne ", Nombre(j + 1), " ", colonne.intitule,
                               ", les classes n'ont pas de bornes : des nombres croissants"_w}));
  }
  return refus;
}

std::string Devenir(const ChoixDeColonne& choix, const FaitsDeColonne& colonne) {
  switch (choix.genre) {
    case Genre::Codes:
      if (FautesRestantes(choix, colonne) > 0)
        return Joindre(
            {Nombre(FautesRestantes(choix, colonne)), " cellules ne sont pas des codes : l'import s'arrête"_w});
      return "codes repris tels quels";
    case Genre::Textes: return DevenirTextes(choix, colonne);
    case Genre::Classes:
      if (SansBornes(choix)) return std::string("classes sans bornes : l'import s'arrête"_w);
      return choix.bornes.empty()
                 ? Joindre({"nombres rangés en "_w, Nombre(choix.groupes), " groupes égaux"_w})
                 : Joindre({"nombres rangés en classes selon "_w, Nombre(choix.bornes.size()), " bornes"});
    case Genre::Nombres:
      if (FautesRestantes(choix, colonne) > 0)
        return Joindre(
            {Nombre(FautesRestantes(choix, colonne)), " cellules ne sont pas des nombres : l'import s'arrête"_w});
      if (colonne.avecDecimales > 0 && colonne.avecDecimales * kPartRare <= colonne.remplies)
        return Joindre({"nombres gardés tels quels, sous le générique suivi de N ("_w, Nombre(colonne.avecDecimales),
                        " seulement avec décimales : fautes de frappe ?)"_w});
      return Joindre({"nombres gardés tels quels, sous le générique suivi de N"_w});
    case Genre::Multiple:
      return choix.liste != '\0'
                 ? Joindre({"une question de 1 et 0 pour chacune des ", Nombre(colonne.elements.size()), " réponses"_w})
                 : Joindre({"une question : 1 pour la réponse, 0 sans elle"_w, DireZeros(choix)});
    case Genre::Longs: return Joindre({"textes mis dans le fichier .TXT, pour le découpage en mots"_w});
    case Genre::Numero: return Joindre({"numéro de l'individu : dans .DAT, pas dans .POS"_w});
    case Genre::Alphabetique: return Joindre({"textes gardés tels quels : une question alphabétique"_w});
    case Genre::Ecartee:
      switch (colonne.contenu) {
        case Contenu::Vide: return Joindre({"vide : laissée de côté"_w});
        case Contenu::Dates: return Joindre({"dates : laissée de côté"_w});
        case Contenu::TextesUniques: return Joindre({"textes tous différents : laissée de côté"_w});
        default: return Joindre({"laissée de côté"_w});
      }
  }
  return {};
}

bool ToutEstCodes(const std::vector<ChoixDeColonne>& choix) {
  return std::ranges::all_of(choix, [](const ChoixDeColonne& c) {
    return c.nonReponses.empty() && (c.genre == Genre::Codes || c.genre == Genre::Numero);
  });
}

}  // namespace quelvar::capture
