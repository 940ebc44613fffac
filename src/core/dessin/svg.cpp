#include "core/dessin/svg.h"

#include <array>
#include <charconv>

#include "core/panne/erreur.h"
#include "core/texte/texte.h"

namespace quelvar {

namespace {

// Two decimals, without trailing zeros.
std::string Cote(double valeur) {
  std::array<char, 64> tampon{};
  const auto [fin, _] =
      std::to_chars(tampon.data(), tampon.data() + tampon.size(), valeur, std::chars_format::fixed, 2);
  std::string texte(tampon.data(), fin);
  texte.erase(texte.find_last_not_of('0') + 1);
  if (texte.back() == '.') texte.pop_back();
  return texte == "-0" ? "0" : texte;
}

std::string Teinte(Couleur couleur, double teinte) {
  static constexpr std::string_view chiffres = "0123456789abcdef";
  const Rvb rvb = RvbDe(couleur, teinte);
  std::string texte = "#";
  for (const std::uint8_t octet : {rvb.rouge, rvb.vert, rvb.bleu}) {
    texte += chiffres[octet >> 4U];
    texte += chiffres[octet & 15U];
  }
  return texte;
}

// A text of the code page as the text or an attribute of XML.
std::string EnXml(std::string_view texte) {
  std::string resultat;
  for (const char c : VersUtf8(texte)) {
    switch (c) {
      case '&': resultat += "&amp;"; break;
      case '<': resultat += "&lt;"; break;
      case '>': resultat += "&gt;"; break;
      case '"': resultat += "&quot;"; break;
      default:
        if (static_cast<unsigned char>(c) >= ' ') resultat += c;  // XML has no place for control characters
    }
  }
  return resultat;
}

std::string Attribut(std::string_view nom, std::string_view valeur) {
  return " " + std::string(nom) + "=\"" + std::string(valeur) + "\"";
}

std::string Trace(const Plume& plume) {
  if (plume.epaisseur <= 0) return Attribut("stroke", "none");
  std::string texte =
      Attribut("stroke", Teinte(plume.couleur, plume.teinte)) + Attribut("stroke-width", Cote(plume.epaisseur));
  if (plume.style == StyleTrait::Tirets) texte += Attribut("stroke-dasharray", "4 2");
  if (plume.style == StyleTrait::Pointilles) texte += Attribut("stroke-dasharray", "1 2");
  return texte;
}

std::string Remplissage(const Fond& fond) {
  return Attribut("fill", fond.teinte > 0 ? Teinte(fond.couleur, fond.teinte) : "none");
}

std::string Sommets(const Dessin& dessin, const FormeDessinee& forme) {
  std::string texte;
  for (std::size_t rang = 0; rang < forme.nombre; ++rang) {
    const Position p = dessin.SurPage(forme, rang);
    texte += (rang == 0 ? "" : " ") + Cote(p.x) + "," + Cote(p.y);
  }
  return Attribut("points", texte);
}

std::string TexteEcrit(const Dessin& dessin, const FormeDessinee& forme, const std::string& id) {
  const Police& police = forme.police;
  const Position p = dessin.SurPage(forme);
  std::string balise = "<text" + id + Attribut("x", Cote(p.x)) + Attribut("y", Cote(p.y + DescenteDeLaBase(police))) +
                       Attribut("font-size", Cote(police.corps)) + Attribut("fill", Teinte(police.couleur, 1));
  if (police.gras) balise += Attribut("font-weight", "bold");
  if (police.italique) balise += Attribut("font-style", "italic");
  if (police.halo > 0)
    balise += Attribut("stroke", "#ffffff") + Attribut("stroke-width", Cote(2 * police.halo)) +
              Attribut("stroke-linejoin", "round") + Attribut("paint-order", "stroke");
  if (police.ancre != Ancre::Debut) balise += Attribut("text-anchor", police.ancre == Ancre::Milieu ? "middle" : "end");
  return balise + ">" + EnXml(forme.texte) + "</text>\n";
}

std::string Balise(const Dessin& dessin, const FormeDessinee& forme) {
  const std::string id = forme.id < 0 ? "" : Attribut("data-id", std::to_string(forme.id));
  switch (forme.genre) {
    case GenreForme::Ligne:
      return "<polyline" + id + Sommets(dessin, forme) + Attribut("fill", "none") + Trace(forme.plume) + "/>\n";
    case GenreForme::Polygone:
      return "<polygon" + id + Sommets(dessin, forme) + Remplissage(forme.fond) + Trace(forme.plume) + "/>\n";
    case GenreForme::Cercle: {
      const Position p = dessin.SurPage(forme);
      return "<circle" + id + Attribut("cx", Cote(p.x)) + Attribut("cy", Cote(p.y)) + Attribut("r", Cote(forme.rayon)) +
             Remplissage(forme.fond) + Trace(forme.plume) + "/>\n";
    }
    case GenreForme::Texte: break;
  }
  return TexteEcrit(dessin, forme, id);
}

// A layer that is cut brings the rectangle of its cut along.
std::string DebutDeGroupe(const Calque& calque, std::size_t rang) {
  std::string coupe;
  std::string groupe = "<g" + (calque.nom.empty() ? "" : Attribut("class", EnXml(calque.nom)));
  if (calque.coupe) {
    const std::string nom = "coupe" + std::to_string(rang);
    coupe = "<clipPath" + Attribut("id", nom) + "><rect" + Attribut("x", Cote(calque.coupe->x)) +
            Attribut("y", Cote(calque.coupe->y)) + Attribut("width", Cote(calque.coupe->largeur)) +
            Attribut("height", Cote(calque.coupe->hauteur)) + "/></clipPath>\n";
    groupe += Attribut("clip-path", "url(#" + nom + ")");
  }
  return coupe + groupe + ">\n";
}

}  // namespace

std::string TexteSvg(const Dessin& dessin) {
  const std::string largeur = Cote(dessin.Largeur());
  const std::string hauteur = Cote(dessin.Hauteur());
  std::string svg = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg" +
                    Attribut("xmlns", "http://www.w3.org/2000/svg") + Attribut("width", largeur + "pt") +
                    Attribut("height", hauteur + "pt") + Attribut("viewBox", "0 0 " + largeur + " " + hauteur) +
                    Attribut("font-family", "Liberation Sans, Arial, Helvetica, sans-serif") + ">\n" + "<rect" +
                    Attribut("width", largeur) + Attribut("height", hauteur) + Attribut("fill", "#ffffff") + "/>\n";
  // Marks keep their order: a group ends where the next mark belongs to another layer.
  std::optional<std::uint16_t> ouvert;
  std::size_t groupes = 0;
  for (const FormeDessinee& forme : dessin.Formes()) {
    if (ouvert != forme.calque) {
      if (ouvert) svg += "</g>\n";
      svg += DebutDeGroupe(dessin.Calques()[forme.calque], ++groupes);
      ouvert = forme.calque;
    }
    svg += Balise(dessin, forme);
  }
  if (ouvert) svg += "</g>\n";
  return svg + "</svg>\n";
}

bool EstNomDeSvg(std::string_view nom) {
  constexpr std::string_view kExtension = ".svg";
  return nom.size() > kExtension.size() && EgalSansCasse(nom.substr(nom.size() - kExtension.size()), kExtension);
}

namespace {

void ExigerNomDeSvg(std::string_view nom) {
  if (!EstNomDeSvg(nom))
    throw Erreur(kNomFichierIncorrect,
                 Joindre({"*** Le graphique demandé va dans un fichier .svg, et non dans "_w, nom}));
}

}  // namespace

void EcrireSvg(const Chemin& repertoire, std::string_view nom, const Dessin& dessin) {
  ExigerNomDeSvg(nom);
  Remplacement fichier(repertoire, nom);
  fichier.Fichier().Ecrire(TexteSvg(dessin));
  fichier.Valider();
}

void EcrireSvg(JeuDeFichiers& sorties, std::string_view nom, const Dessin& dessin) {
  ExigerNomDeSvg(nom);
  sorties.Ouvrir(nom, Nature::Refaisable).Ecrire(TexteSvg(dessin));
}

}  // namespace quelvar
