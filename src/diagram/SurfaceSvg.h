// A surface written as an SVG document.
#pragma once

#include "diagram/Surface.h"

#include <sstream>

namespace tournesol {

class SurfaceSvg : public Surface {
public:
    SurfaceSvg(double largeur, double hauteur);
    double Largeur() const override { return largeur_; }
    double Hauteur() const override { return hauteur_; }
    void Effacer(Couleur fond) override;
    void Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) override;
    void Arc(double cx, double cy, double rayon, double debut, double fin,
             const Stylo& stylo) override;
    void Cercle(double cx, double cy, double rayon, const Stylo& stylo) override;
    void Texte(double x, double y, const std::string& texte, Couleur couleur, const Police& police,
               Alignement alignement) override;

    // The whole document.
    std::string Document() const;

private:
    void Trait(const Stylo& stylo);

    double largeur_, hauteur_;
    std::ostringstream corps_;
};

} // namespace tournesol
