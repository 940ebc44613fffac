#include "capture/classeur/archive.h"

#include <zip.h>

#include <algorithm>

namespace quelvar::capture::classeur {

void RefuserClasseur(Texte raison, const Lieu& lieu) {
  throw Erreur(kIncompatibiliteType,
               Joindre({"Ce classeur ne peut pas être lu : "_w, raison,
                        ". Enregistrez la feuille en CSV depuis le tableur et importez ce fichier."}))
      .Situer(lieu);
}

Partie::~Partie() {
  if (fichier_ != nullptr) zip_fclose(fichier_);
}

std::size_t Partie::Lire(std::span<char> octets) {
  const zip_int64_t lus = zip_fread(fichier_, octets.data(), octets.size());
  if (lus < 0) {
    const zip_error_t* faute = zip_file_get_error(fichier_);
    if (zip_error_code_zip(faute) == ZIP_ER_MEMORY) throw Erreur(kMemoireInsuffisante);
    RefuserClasseur(Joindre({"le fichier est abîmé (dans "_w, DepuisUtf8(nom_), ")"}));
  }
  lus_ += static_cast<std::uint64_t>(lus);
  if (lus_ > kOctetsAuPlus)
    throw Erreur(kMemoireInsuffisante, Joindre({"Ce classeur dépasse ce que l'import accepte : "_w, DepuisUtf8(nom_),
                                                " occupe plus de 8 Gio une fois décomprimé."_w}));
  if (suivi_ && taille_ > 0) suivi_(static_cast<int>(std::min<std::uint64_t>(lus_ * 100 / taille_, 100)));
  return static_cast<std::size_t>(lus);
}

Archive::Archive(const Chemin& chemin, SuiviDArchive suivi) : suivi_(std::move(suivi)) {
  const std::string tete = LireMorceau(chemin, 0, 8);  // raises what an unreadable file raises
  if (tete.starts_with("\xD0\xCF\x11\xE0"))
    RefuserClasseur("il est protégé par un mot de passe, ou d'un format de tableur d'avant 2007 (.xls)"_w);
  if (!tete.starts_with("PK")) RefuserClasseur("ce n'est pas un fichier .ods ou .xlsx");
  int code = 0;
  archive_ = zip_open(chemin.c_str(), ZIP_RDONLY, &code);
  if (archive_ != nullptr) return;
  if (code == ZIP_ER_MEMORY) throw Erreur(kMemoireInsuffisante);
  RefuserClasseur("le fichier est abîmé ou incomplet"_w);
}

Archive::~Archive() {
  if (archive_ != nullptr) zip_discard(archive_);
}

bool Archive::Contient(const std::string& nom) const { return zip_name_locate(archive_, nom.c_str(), 0) >= 0; }

Partie Archive::Ouvrir(const std::string& nom) const {
  const zip_int64_t rang = zip_name_locate(archive_, nom.c_str(), 0);
  if (rang < 0) RefuserClasseur(Joindre({"il y manque la partie ", DepuisUtf8(nom)}));
  zip_stat_t etat;
  zip_stat_init(&etat);
  if (zip_stat_index(archive_, static_cast<zip_uint64_t>(rang), 0, &etat) == 0 &&
      (etat.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && etat.encryption_method != ZIP_EM_NONE)
    RefuserClasseur("il est protégé par un mot de passe"_w);
  zip_file* fichier = zip_fopen_index(archive_, static_cast<zip_uint64_t>(rang), 0);
  if (fichier == nullptr) RefuserClasseur(Joindre({"le fichier est abîmé (dans "_w, DepuisUtf8(nom), ")"}));
  const std::uint64_t taille = (etat.valid & ZIP_STAT_SIZE) != 0 ? etat.size : 0;
  return {fichier, nom, taille, suivi_};
}

std::string Archive::Debut(const std::string& nom, std::size_t auPlus) const {
  std::string octets;
  if (!Contient(nom)) return octets;
  Partie partie = Ouvrir(nom);
  octets.resize(auPlus);
  std::size_t lus = 0;
  while (lus < auPlus) {
    const std::size_t pris = partie.Lire({octets.data() + lus, auPlus - lus});
    if (pris == 0) break;
    lus += pris;
  }
  octets.resize(lus);
  return octets;
}

}  // namespace quelvar::capture::classeur
