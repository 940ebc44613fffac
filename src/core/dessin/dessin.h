// A picture as a list of marks in user units, on a page measured in points: lines, filled shapes, circles and texts in
// the sixteen colours. Graph programs fill it, screens and files draw it, a test reads it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quelvar {

// The tones are those of print: every colour but the last is legible on white.
enum class Couleur : std::uint8_t { Noir, BleuFonce, RougeFonce, GrisClair, Gris, Bleu, Vert, Rouge, Magenta, Blanc };

struct Rvb {
  std::uint8_t rouge, vert, bleu;
};
// The colour mixed with white: a tint of 1 is the colour itself, of 0 white.
Rvb RvbDe(Couleur couleur, double teinte = 1);

// In user units; a member whose comment says so is in points of the page (x to the right, y downwards).
struct Position {
  double x = 0;
  double y = 0;
};

enum class StyleTrait : std::uint8_t { Plein, Tirets, Pointilles };

// How a line or an outline is drawn; a width of 0 draws none.
struct Plume {
  Couleur couleur = Couleur::Noir;
  double epaisseur = 0.75;  // points
  StyleTrait style = StyleTrait::Plein;
  double teinte = 1;

  friend bool operator==(const Plume&, const Plume&) = default;
};

// What fills a shape; a tint of 0 fills nothing and lets through what lies behind.
struct Fond {
  Couleur couleur = Couleur::Noir;
  double teinte = 0;
};

// The point of a text that stands at its position.
enum class Ancre : std::uint8_t { Debut, Milieu, Fin };        // across
enum class Niveau : std::uint8_t { Haut, Centre, Base, Bas };  // upwards

struct Police {
  double corps = 8;  // points
  bool gras = false;
  bool italique = false;
  Couleur couleur = Couleur::Noir;
  Ancre ancre = Ancre::Debut;
  Niveau niveau = Niveau::Base;
  double halo = 0;  // points: a white rim around the letters, which sets them off from what lies behind
};

enum class GenreForme : std::uint8_t { Ligne, Polygone, Cercle, Texte };

// One mark. Its points stand in the list of the picture.
struct FormeDessinee {
  GenreForme genre = GenreForme::Ligne;
  std::uint32_t premier = 0;  // first of its points: vertices, centre, or place of the text
  std::uint32_t nombre = 0;
  std::uint16_t calque = 0;
  std::int32_t id = -1;  // of the element that it stands for; -1 for none
  double rayon = 0;      // of a circle, points
  Position decalage;     // points, added on the page whatever the scale
  Plume plume;
  Fond fond;
  Police police;
  std::string texte;  // code page
};

// Part of the user plane; `haut` may lie below or above `bas`.
struct Fenetre {
  double gauche = 0, droite = 1, haut = 1, bas = 0;
};

// A rectangle of the page, points.
struct Zone {
  double x = 0, y = 0, largeur = 0, hauteur = 0;

  bool Contient(Position p) const { return p.x >= x && p.x <= x + largeur && p.y >= y && p.y <= y + hauteur; }
  bool Touche(const Zone& autre) const {
    return x < autre.x + autre.largeur && autre.x < x + largeur && y < autre.y + autre.hauteur && autre.y < y + hauteur;
  }
};

struct Calque {
  std::string nom;
  std::optional<Zone> coupe;  // nothing of the layer is seen outside it
};

class Dessin {
 public:
  // A page of that size, whose zone shows the window.
  Dessin(double largeur, double hauteur, const Fenetre& fenetre, const Zone& zone);
  // A page in points: user units are those of the page.
  Dessin(double largeur, double hauteur);

  double Largeur() const { return largeur_; }
  double Hauteur() const { return hauteur_; }
  // A place in user units as a place of the page, and back.
  Position VersPage(Position utilisateur) const;
  Position VersUtilisateur(Position page) const;

  // What is added from now on belongs to that layer, which is made when there is none of the name.
  void Calquer(std::string_view nom);
  // Cuts the marks of the present layer off at the edges of a zone of the page.
  void Couper(const Zone& zone) { calques_[calque_].coupe = zone; }
  // What is added from now on stands for that element.
  void Designer(std::int32_t id) { id_ = id; }

  // Each adds a mark and returns it; the reference lives until the next one is added.
  FormeDessinee& Ligne(Position a, Position b, const Plume& plume = {});
  FormeDessinee& Ligne(std::span<const Position> points, const Plume& plume = {});
  FormeDessinee& Polygone(std::span<const Position> points, const Fond& fond, const Plume& plume = {.epaisseur = 0});
  FormeDessinee& Rectangle(Position coin, Position oppose, const Fond& fond, const Plume& plume = {.epaisseur = 0});
  FormeDessinee& Cercle(Position centre, double rayon, const Fond& fond, const Plume& plume = {});
  // The offset, in points of the page, does not change with the scale.
  FormeDessinee& Texte(Position place, std::string_view texte, const Police& police = {}, Position decalage = {});

  const std::vector<FormeDessinee>& Formes() const { return formes_; }
  const std::vector<Calque>& Calques() const { return calques_; }
  // The zone that a mark is cut off at, if it is.
  const std::optional<Zone>& Coupe(const FormeDessinee& forme) const { return calques_[forme.calque].coupe; }
  // In user units.
  std::span<const Position> Points(const FormeDessinee& forme) const {
    return std::span(points_).subspan(forme.premier, forme.nombre);
  }
  // A point of a form, on the page.
  Position SurPage(const FormeDessinee& forme, std::size_t rang = 0) const;
  // The rectangle that a form covers on the page, without the width of its line.
  Zone Etendue(const FormeDessinee& forme) const;

  // The element drawn last under a point of the page, within that many points; nothing without one.
  std::optional<std::int32_t> ElementSous(Position page, double tolerance) const;

 private:
  FormeDessinee& Ajouter(GenreForme genre, std::span<const Position> points);

  double largeur_;
  double hauteur_;
  Fenetre fenetre_;
  Zone zone_;
  std::vector<Position> points_;
  std::vector<FormeDessinee> formes_;
  std::vector<Calque> calques_{{}};
  std::uint16_t calque_ = 0;
  std::int32_t id_ = -1;
};

// Width of a text of the code page, in points, in the metrics of Helvetica that Arial and Liberation Sans share.
double LargeurTexte(std::string_view texte, double corps, bool gras = false);
// The rectangle that a text takes around its place on the page.
Zone ZoneDuTexte(Position place, std::string_view texte, const Police& police);
// How far below the place of a text of that font its base line lies, points.
double DescenteDeLaBase(const Police& police);

}  // namespace quelvar
