#include "crosstab/tableau/codes.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "core/panne/erreur.h"

namespace quelvar::crosstab {

namespace {

// Lines of a block: as many as stay near the processor, within reason for very long and very short ones.
constexpr std::size_t kOctetsParBloc = 65536;
constexpr std::size_t kLignesAuMoins = 8;
constexpr std::size_t kLignesAuPlus = 4096;

// Data lines of one length one behind the other, so that a field is at the same place of each.
class BlocDeLignes {
 public:
  explicit BlocDeLignes(std::size_t longueur)
      : longueur_(longueur), octets_(longueur * std::clamp(kOctetsParBloc / longueur, kLignesAuMoins, kLignesAuPlus)) {}

  bool Plein() const { return (nombre_ + 1) * longueur_ > octets_.size(); }
  std::size_t Nombre() const { return nombre_; }
  std::size_t Longueur() const { return longueur_; }
  const char* Octets() const { return octets_.data(); }
  void Vider() { nombre_ = 0; }

  void Ajouter(std::string_view ligne) {
    char* place = octets_.data() + nombre_++ * longueur_;
    const std::size_t copies = std::min(ligne.size(), longueur_);
    std::memcpy(place, ligne.data(), copies);
    std::memset(place + copies, ' ', longueur_ - copies);
  }

 private:
  std::size_t longueur_;
  std::vector<char> octets_;
  std::size_t nombre_ = 0;
};

std::uint8_t Plafonner(unsigned valeur, unsigned plafond) {
  return static_cast<std::uint8_t>(valeur <= plafond ? valeur : 0);
}

// Two digits, or a blank and a digit; every other writing is looked up.
unsigned ValeurDeDeux(const char* octets, const std::array<std::int8_t, 65536>& autres) {
  const auto premier = static_cast<unsigned char>(octets[0]);
  const auto second = static_cast<unsigned char>(octets[1]);
  const unsigned dizaines = premier == ' ' ? 0 : premier - unsigned{'0'};
  const unsigned unites = second - unsigned{'0'};
  if (dizaines < 10 && unites < 10) [[likely]]
    return 10 * dizaines + unites;
  return static_cast<unsigned>(int{autres[premier + 256U * second]});  // a negative one is above every ceiling
}

// `avant`: the individuals before those of the block.
void Decoder(const BlocDeLignes& bloc, const ChampPlafonne& question, std::size_t avant, std::uint8_t* codes) {
  const char* octets = bloc.Octets() + question.champ.debut;
  const std::size_t pas = bloc.Longueur();
  const std::size_t nombre = bloc.Nombre();
  const auto plafond = static_cast<unsigned>(question.plafond);
  if (question.champ.largeur == 1) {
    for (std::size_t i = 0; i < nombre; ++i)
      codes[i] = Plafonner(static_cast<unsigned char>(octets[i * pas]) - unsigned{'0'}, std::min(plafond, 9U));
  } else if (question.champ.largeur == 2) {
    const std::array<std::int8_t, 65536>& autres = ValeursDeDeuxOctets();
    for (std::size_t i = 0; i < nombre; ++i) codes[i] = Plafonner(ValeurDeDeux(octets + i * pas, autres), plafond);
  } else {
    std::size_t i = 0;
    Situer(
        [&] {
          return Lieu{{}, static_cast<std::int64_t>(avant + i) + 1, 0};
        },
        [&] {
          for (; i < nombre; ++i) {
            const int valeur = LireChampInterieur(bloc.Octets() + i * pas, question.champ);
            codes[i] = Plafonner(static_cast<unsigned>(valeur), plafond);
          }
        });
  }
}

std::size_t LongueurDesLignes(const std::vector<ChampPlafonne>& champs) {
  std::size_t longueur = 1;
  for (const ChampPlafonne& c : champs) longueur = std::max<std::size_t>(longueur, c.champ.debut + c.champ.largeur);
  return longueur;
}

// Neighbours often fall into one cell: four tables side by side let the increments run together.
constexpr std::size_t kTablesParalleles = 4;

template <typename Cellule>
void Compter(std::size_t individus, std::size_t taille, std::uint32_t* compteurs, const Cellule& cellule) {
  std::uint32_t* const deuxieme = compteurs + taille;
  std::uint32_t* const troisieme = deuxieme + taille;
  std::uint32_t* const quatrieme = troisieme + taille;
  std::size_t i = 0;
  for (; i + kTablesParalleles <= individus; i += kTablesParalleles) {
    ++compteurs[cellule(i)];
    ++deuxieme[cellule(i + 1)];
    ++troisieme[cellule(i + 2)];
    ++quatrieme[cellule(i + 3)];
  }
  for (; i < individus; ++i) ++compteurs[cellule(i)];
}

}  // namespace

MatriceCodes ChargerCodes(const Chemin& donnees, const std::vector<ChampPlafonne>& champs, std::int64_t individus,
                          Progression& progression) {
  LecteurLignes lecteur(donnees);
  // A line takes at least its end: no memory is asked for individuals that cannot be there.
  if (individus > 0 && static_cast<std::uintmax_t>(individus) > LongueurFichier(donnees) + 1)
    throw Erreur(kFinDeFichierDepassee).Situer(lecteur.Ou());
  std::vector<int> plafonds;
  for (const ChampPlafonne& champ : champs) plafonds.push_back(champ.plafond);
  MatriceCodes codes(std::move(plafonds), static_cast<std::size_t>(std::max<std::int64_t>(individus, 0)));

  BlocDeLignes bloc(LongueurDesLignes(champs));
  std::size_t lus = 0;
  while (lus < codes.Individus()) {
    for (bloc.Vider(); !bloc.Plein() && lus + bloc.Nombre() < codes.Individus(); progression.Avancer())
      bloc.Ajouter(lecteur.LireObligatoire());
    Situer(lecteur, [&] {
      for (std::size_t q = 0; q < champs.size(); ++q) Decoder(bloc, champs[q], lus, codes.Codes(q).data() + lus);
    });
    lus += bloc.Nombre();
  }
  return codes;
}

std::vector<Matrice> CompterCroisement(const MatriceCodes& codes, const QuestionsCroisees& questions) {
  const bool filtre = questions.filtre != kSansFiltre;
  const auto modalites = filtre ? static_cast<std::size_t>(codes.Plafond(questions.filtre)) + 1 : std::size_t{1};
  const auto lignes = static_cast<std::size_t>(codes.Plafond(questions.ligne)) + 1;
  const auto colonnes = static_cast<std::size_t>(codes.Plafond(questions.colonne)) + 1;
  const std::size_t taille = modalites * lignes * colonnes;

  std::vector<std::uint32_t> compteurs(taille * kTablesParalleles);
  const std::uint8_t* ligne = codes.Codes(questions.ligne).data();
  const std::uint8_t* colonne = codes.Codes(questions.colonne).data();
  if (filtre) {
    const std::uint8_t* modalite = codes.Codes(questions.filtre).data();
    Compter(codes.Individus(), taille, compteurs.data(),
            [&](std::size_t i) { return (modalite[i] * lignes + ligne[i]) * colonnes + colonne[i]; });
  } else {
    Compter(codes.Individus(), taille, compteurs.data(),
            [&](std::size_t i) { return ligne[i] * colonnes + colonne[i]; });
  }

  std::vector<Matrice> tables(modalites, Matrice(lignes, colonnes));
  std::size_t suivante = 0;
  for (Matrice& table : tables) {
    for (double& effectif : table.Valeurs()) {
      for (std::size_t k = 0; k < kTablesParalleles; ++k) effectif += compteurs[k * taille + suivante];
      ++suivante;
    }
  }
  return tables;
}

}  // namespace quelvar::crosstab
