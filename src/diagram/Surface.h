// What the plane draws on: a screen widget, a printed page, an SVG file or, in tests, a record.
// Coordinates are the surface's own (pixels or page units), x to the right and y downwards;
// angles are in radians, counter-clockwise as seen.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tournesol {

using Couleur = std::int32_t; // 0x00BBGGRR

// Pen styles of the system.
enum StyleTrait : int {
    TRAIT_PLEIN = 0,
    TRAIT_TIRET = 1,
    TRAIT_POINT = 2,
    TRAIT_TIRET_POINT = 3,
    TRAIT_TIRET_POINT_POINT = 4,
    TRAIT_INVISIBLE = 5,
    TRAIT_INTERIEUR = 6,
};

struct Stylo {
    Couleur couleur = 0;
    int style = TRAIT_PLEIN;
    double largeur = 1.0;
};

struct Police {
    std::string nom = "Arial";
    double taille = 8.0; // points
};

enum class Alignement { Gauche, Centre };

// The room a text takes on a surface, in the surface's units: its width and the height of a line.
struct TailleTexte {
    double largeur = 0.0;
    double hauteur = 0.0;
};

class Surface {
public:
    virtual ~Surface() = default;
    virtual double Largeur() const = 0;
    virtual double Hauteur() const = 0;
    virtual void Effacer(Couleur fond) = 0;
    virtual void Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) = 0;
    // An arc of the circle of centre (cx, cy), from angle `debut` counter-clockwise to `fin`.
    virtual void Arc(double cx, double cy, double rayon, double debut, double fin,
                     const Stylo& stylo) = 0;
    // A whole circle.
    virtual void Cercle(double cx, double cy, double rayon, const Stylo& stylo) = 0;
    // Text whose left end (or centre) is at x, with y at the middle of its height.
    virtual void Texte(double x, double y, const std::string& texte, Couleur couleur,
                       const Police& police, Alignement alignement) = 0;
    // The surface's units in a typographic point: a pixel of a screen at 96 dots an inch is 3/4
    // of a point; a page in millimetres has 25.4 / 72 of them in a point.
    virtual double UnitesParPoint() const { return 96.0 / 72.0; }
    // The room a text takes. A surface that can measure its font says it; the others estimate
    // it from the font's size: a letter 0.6 of the size wide, a line 1.2 of it high.
    virtual TailleTexte Mesurer(const std::string& texte, const Police& police) const {
        std::size_t lettres = 0;
        for (const char c : texte)
            lettres += (static_cast<unsigned char>(c) & 0xC0) != 0x80; // UTF-8: not a continuation
        const double point = police.taille * UnitesParPoint();
        return {0.6 * point * static_cast<double>(lettres), 1.2 * point};
    }
};

// Red, green and blue of a colour of the system.
inline int Rouge(Couleur c) {
    return c & 0xFF;
}
inline int Vert(Couleur c) {
    return (c >> 8) & 0xFF;
}
inline int Bleu(Couleur c) {
    return (c >> 16) & 0xFF;
}

} // namespace tournesol
