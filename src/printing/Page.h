// The printer page as the report sees it: a font (name, size, bold), a pen that moves in
// millimetres, text printed at the pen, text measures, lines, frames and arcs, a new page, the
// end of the document and its abort. A printer, a PDF file or, in tests, a record implement it.
#pragma once

#include "diagram/Plan.h"
#include "diagram/Surface.h"

#include <string>

namespace tournesol {

struct PolicePage {
    std::string Nom = "Arial";
    double Taille = 10.0; // points
    bool Gras = false;
};

// Width of the page's pen: one dot of a 300 dpi printer. Frames are drawn 4 and 1 dots wide,
// the diagram's lines 1 dot, or 3 times their screen width.
inline constexpr double MM_PAR_POINT_IMPRIMANTE = 25.4 / 300.0;

// The part of a line's height above the base of the letters, for the report's sans serif.
inline constexpr double PART_ASCENDANTE = 0.8;

class Page {
public:
    virtual ~Page() = default;

    // The printable area in millimetres, from (0, 0) at its upper left corner.
    virtual double Largeur() const = 0;
    virtual double Hauteur() const = 0;

    // Measures of a text in the current font, in millimetres. The height is that of a line.
    virtual double LargeurTexte(const std::string& texte) const = 0;
    virtual double HauteurTexte(const std::string& texte) const = 0;

    // A text whose upper left corner is at (x, y), in the current font.
    virtual void TexteEn(double x, double y, const std::string& texte, Couleur couleur) = 0;
    // Lines and arcs; a width in printer dots (MM_PAR_POINT_IMPRIMANTE). Angles in radians,
    // counter-clockwise as seen.
    virtual void Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) = 0;
    virtual void Arc(double cx, double cy, double rayon, double debut, double fin,
                     const Stylo& stylo) = 0;
    virtual void Cercle(double cx, double cy, double rayon, const Stylo& stylo) = 0;

    // Starts a page: the first one of a document too.
    virtual void NouvellePage() = 0;
    // Ends the document: what was drawn since the last end goes to paper.
    virtual void Terminer() = 0;
    // Aborts the document: nothing drawn since the last end goes to paper.
    virtual void Abandonner() = 0;

    // The font.
    const PolicePage& Police() const { return police_; }
    void ChoisirPolice(const std::string& nom) { police_.Nom = nom; }
    void ChoisirTaille(double points) { police_.Taille = points; }
    void ChoisirGras(bool gras) { police_.Gras = gras; }

    // The pen, in millimetres.
    double CurrentX = 0.0;
    double CurrentY = 0.0;
    void Placer(double x, double y) {
        CurrentX = x;
        CurrentY = y;
    }

    // Prints at the pen, which then stands after the text on the same line.
    void Ecrire(const std::string& texte);
    // The same in another size, on the base line of the current size, which then comes back.
    void EcrireEnTaille(const std::string& texte, double taille);
    // The pen goes down by one line of the current font, back to the left of the page.
    void ALaLigne();
    // A rectangle's four sides.
    void Cadre(double gauche, double haut, double largeur, double hauteur, const Stylo& stylo);

private:
    PolicePage police_;
};

// The page seen by the plane: the diagram drawn on paper in page units. Labels take the font
// the plane gives them, then the page's font comes back. The plane clips its lines and arcs to
// its frame on paper; a label whose place lies outside the frame is left out here.
class SurfacePage : public Surface {
public:
    SurfacePage(Page& page, const CadreImpression& cadre) : page_(page), cadre_(cadre) {}
    double Largeur() const override { return page_.Largeur(); }
    double Hauteur() const override { return page_.Hauteur(); }
    void Effacer(Couleur) override {} // paper is white already
    void Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) override {
        page_.Ligne(x1, y1, x2, y2, stylo);
    }
    void Arc(double cx, double cy, double rayon, double debut, double fin,
             const Stylo& stylo) override {
        page_.Arc(cx, cy, rayon, debut, fin, stylo);
    }
    void Cercle(double cx, double cy, double rayon, const Stylo& stylo) override {
        page_.Cercle(cx, cy, rayon, stylo);
    }
    void Texte(double x, double y, const std::string& texte, Couleur couleur, const Police& police,
               Alignement alignement) override;
    double UnitesParPoint() const override { return 25.4 / 72.0; }
    // Measured in the page's own font, which then comes back.
    TailleTexte Mesurer(const std::string& texte, const Police& police) const override;

private:
    Page& page_;
    CadreImpression cadre_;
};

} // namespace tournesol
