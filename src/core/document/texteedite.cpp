#include "core/document/texteedite.h"

#include <algorithm>
#include <array>

#include "core/chiffres/nombres.h"
#include "core/panne/erreur.h"
#include "core/texte/texte.h"
#include "core/texte/utf16.h"

namespace quelvar {

namespace {

constexpr char16_t kImages = 0x2400;  // pictures of the control bytes, in their order
constexpr char16_t kImageLf = kImages + '\n';
constexpr char16_t kImageSuppression = 0x2421;
// A text box gives the soft hyphen no width: in the code page the plain one, which the page lacks, stands for it.
constexpr char16_t kTraitConditionnel = 0xAD;
constexpr char16_t kTraitVisible = 0x2010;

constexpr bool EstControle(unsigned char octet) { return (octet < 0x20 && octet != '\t') || octet == 0x7F; }
constexpr bool EstImage(char32_t point) {
  return (point >= kImages && point < kImages + 0x20) || point == kImageSuppression;
}
constexpr char16_t ImageDe(unsigned char octet) {
  return octet == 0x7F ? kImageSuppression : static_cast<char16_t>(kImages + octet);
}
constexpr char OctetDImage(char16_t image) {
  return static_cast<char>(image == kImageSuppression ? 0x7F : image - kImages);
}

// Characters that a text box takes for the end of a paragraph or of a frame.
constexpr bool EstReserve(char32_t point) {
  return point == 0x2028 || point == 0x2029 || (point >= 0xFDD0 && point <= 0xFDEF) || EstImage(point);
}

std::array<char16_t, 256> TableDeLecture() {
  std::array<char16_t, 256> table{};
  for (unsigned i = 0; i < 256; ++i) {
    const auto octet = static_cast<unsigned char>(i);
    table[i] = EstControle(octet)         ? ImageDe(octet)
               : i == kTraitConditionnel  ? kTraitVisible
               : (i >= 0x80 && i <= 0x9F) ? kPointsDe80[i - 0x80]
                                          : static_cast<char16_t>(i);
  }
  return table;
}

bool EstUtf8Lisible(std::string_view octets) {
  if (!EstUtf8(octets)) return false;
  while (!octets.empty()) {
    const PointUtf8 lu = DecoderUtf8(octets);
    if (lu.longueur == 0 || EstReserve(lu.point)) return false;
    octets.remove_prefix(lu.longueur);
  }
  return true;
}

struct Fins {
  std::size_t crlf = 0;
  std::size_t lf = 0;
};

Fins CompterFins(std::string_view octets) {
  Fins fins;
  for (std::size_t saut = octets.find('\n'); saut != std::string_view::npos; saut = octets.find('\n', saut + 1))
    ++(saut > 0 && octets[saut - 1] == '\r' ? fins.crlf : fins.lf);
  return fins;
}

void AjouterLigne(std::u16string& texte, std::string_view ligne, EncodageDuTexte encodage) {
  static const std::array<char16_t, 256> table = TableDeLecture();
  if (encodage == EncodageDuTexte::PageDeCode) {
    for (const char c : ligne) texte += table[static_cast<unsigned char>(c)];
    return;
  }
  while (!ligne.empty()) {
    const PointUtf8 lu = DecoderUtf8(ligne);
    AjouterUtf16(texte, lu.point < 0x80 ? table[lu.point] : lu.point);
    ligne.remove_prefix(lu.longueur);
  }
}

// Takes one character (one or two units) off the head of a text; a lone surrogate gives the replacement character.
char32_t Suivant(std::u16string_view& texte) {
  const char16_t tete = texte.front();
  texte.remove_prefix(1);
  if (!EstPremiereMoitie(tete) && !EstSecondeMoitie(tete)) return tete;
  if (EstSecondeMoitie(tete) || texte.empty() || !EstSecondeMoitie(texte.front())) return kMoitieSeule;
  const char32_t point = PointDesMoities(tete, texte.front());
  texte.remove_prefix(1);
  return point;
}

void AjouterCaractere(std::string& octets, char32_t point, EncodageDuTexte encodage) {
  if (EstImage(point)) {
    octets += OctetDImage(static_cast<char16_t>(point));
  } else if (encodage == EncodageDuTexte::Utf8) {
    AjouterUtf8(octets, point);
  } else {
    const int octet = OctetDe(point == kTraitVisible ? kTraitConditionnel : point);
    octets += octet < 0 ? '?' : static_cast<char>(octet);
  }
}

// A size as a reader says it: "820 octets", "34 Ko", "102 Mo".
std::string TexteTaille(std::uintmax_t octets) {
  constexpr std::uintmax_t ko = 1024;
  const auto arrondi = [&](std::uintmax_t unite) {
    return Nombre(static_cast<std::size_t>((octets + unite / 2) / unite));
  };
  if (octets < ko) return arrondi(1) + " octets";
  if (octets < ko * ko) return arrondi(ko) + " Ko";
  return arrondi(ko * ko) + " Mo";
}

}  // namespace

DocumentTexte DecoderTexte(std::string_view octets) {
  DocumentTexte document;
  FormeTexte& forme = document.forme;
  if (octets.ends_with('\x1A')) {
    forme.finale1A = true;
    octets.remove_suffix(1);
  }
  if (EstUtf8Lisible(octets)) {
    forme.encodage = EncodageDuTexte::Utf8;
    forme.marqueUtf8 = OterMarqueUtf8(octets);
  }
  const Fins fins = CompterFins(octets);
  forme.fins = fins.lf > fins.crlf ? FinsDeLigne::Lf : FinsDeLigne::CrLf;
  forme.finsMelangees = fins.lf > 0 && fins.crlf > 0;

  document.texte.reserve(octets.size());
  while (!octets.empty()) {
    const std::size_t saut = octets.find('\n');
    std::string_view ligne = octets.substr(0, saut);
    if (saut == std::string_view::npos) {
      AjouterLigne(document.texte, ligne, forme.encodage);
      break;
    }
    octets.remove_prefix(saut + 1);
    // With LF the CR of another end shows by its own picture; with CR LF a lone LF is marked.
    const bool avecCr = ligne.ends_with('\r');
    if (forme.fins == FinsDeLigne::CrLf && avecCr) ligne.remove_suffix(1);
    AjouterLigne(document.texte, ligne, forme.encodage);
    if (forme.fins == FinsDeLigne::CrLf && !avecCr) document.texte += kImageLf;
    document.texte += u'\n';
  }
  return document;
}

std::string EncoderTexte(std::u16string_view texte, const FormeTexte& forme) {
  std::string octets;
  constexpr std::size_t kLigneUsuelle = 32;  // characters; the end of a line takes a byte more than in the text
  octets.reserve(texte.size() + texte.size() / kLigneUsuelle);
  if (forme.marqueUtf8) octets += kMarqueUtf8;
  while (!texte.empty()) {
    if (forme.fins == FinsDeLigne::CrLf && texte.size() > 1 && texte[0] == kImageLf && texte[1] == u'\n') {
      octets += '\n';
      texte.remove_prefix(2);
    } else if (texte.front() == u'\n') {
      octets += forme.fins == FinsDeLigne::CrLf ? "\r\n" : "\n";
      texte.remove_prefix(1);
    } else {
      AjouterCaractere(octets, Suivant(texte), forme.encodage);
    }
  }
  if (forme.finale1A) octets += '\x1A';
  return octets;
}

std::u16string CaracteresAdmis(std::u16string_view texte, EncodageDuTexte encodage) {
  std::u16string admis;
  admis.reserve(texte.size());
  while (!texte.empty()) {
    char32_t point = Suivant(texte);
    if (encodage == EncodageDuTexte::PageDeCode && point == kTraitConditionnel) point = kTraitVisible;
    const bool controle = point < 0x100 && point != '\n' && EstControle(static_cast<unsigned char>(point));
    const bool connu =
        encodage == EncodageDuTexte::Utf8 || OctetDe(point) >= 0 || EstImage(point) || point == kTraitVisible;
    if (controle) admis += ImageDe(static_cast<unsigned char>(point));
    else AjouterUtf16(admis, connu ? point : U'?');
  }
  return admis;
}

Mesure MesurerTexte(std::string_view octets) {
  Mesure mesure;
  mesure.octets = octets.size();
  while (!octets.empty()) {
    const std::size_t longueur = std::min(octets.find('\n'), octets.size());
    ++mesure.lignes;
    const bool avecCr = longueur > 0 && octets[longueur - 1] == '\r';
    mesure.longueurLigne = std::max(mesure.longueurLigne, longueur - (avecCr ? 1 : 0));
    octets.remove_prefix(std::min(longueur + 1, octets.size()));
  }
  return mesure;
}

bool Contient(const Capacite& capacite, const Mesure& mesure) {
  return mesure.octets <= capacite.octets && mesure.lignes <= capacite.lignes &&
         mesure.longueurLigne <= capacite.longueurLigne;
}

std::string TexteCapacite(std::string_view nom, const Mesure& mesure, const Capacite& capacite) {
  std::string faute = TexteTaille(mesure.octets);
  if (mesure.octets <= capacite.octets)
    faute = mesure.lignes > capacite.lignes ? Nombre(mesure.lignes) + " lignes"
                                            : Joindre({"une ligne de ", Nombre(mesure.longueurLigne), " caractères"_w});
  return Joindre({"Le fichier ", nom, " est trop grand pour l'éditeur ("_w, faute, ").\n", "L'éditeur tient "_w,
                  TexteTaille(capacite.octets), ", ", Nombre(capacite.lignes), " lignes et des lignes de "_w,
                  Nombre(capacite.longueurLigne), " caractères."_w});
}

std::u16string CouperLignesLongues(std::u16string texte, std::size_t longueur) {
  std::u16string coupe;
  std::size_t copie = 0;  // characters of the text that `coupe` holds
  for (std::size_t debut = 0; debut < texte.size();) {
    const std::size_t fin = std::min(texte.find(u'\n', debut), texte.size());
    for (; fin - debut > longueur; debut += longueur) {
      coupe.append(texte, copie, debut + longueur - copie) += u'\n';
      copie = debut + longueur;
    }
    debut = fin + 1;
  }
  return copie == 0 ? std::move(texte) : coupe.append(texte, copie);
}

FichierOuvert OuvrirDocument(const Chemin& chemin, const Capacite& capacite) {
  FichierOuvert ouvert;
  ouvert.mesure.octets = LongueurFichier(chemin);
  if (!std::filesystem::is_regular_file(chemin))
    throw EchecDuFichier(chemin, kAccesFichier);  // a device may have no end
  if (ouvert.mesure.octets > capacite.octets) return ouvert;
  const std::string octets = LireOctets(chemin);
  ouvert.mesure = MesurerTexte(octets);
  if (!Contient(capacite, ouvert.mesure)) return ouvert;
  ouvert.document = DecoderTexte(octets);
  ouvert.empreinte = EmpreinteDe(chemin, octets);
  return ouvert;
}

Empreinte EnregistrerDocument(const Chemin& chemin, std::u16string_view texte, const FormeTexte& forme) {
  const std::string octets = EncoderTexte(texte, forme);
  Remplacement fichier(chemin, Nature::Unique);
  fichier.Fichier().Ecrire(octets);
  fichier.Valider();
  return EmpreinteDe(chemin, octets);
}

}  // namespace quelvar
