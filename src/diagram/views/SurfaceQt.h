// The plane's surface on a QPainter: the diagram widget, a QImage, a printer page.
#pragma once

#include "diagram/Surface.h"

class QPainter;

namespace tournesol {

class SurfaceQt : public Surface {
public:
    // The painter must stay active while the surface is used; the size is in its units.
    SurfaceQt(QPainter& peintre, double largeur, double hauteur);
    double Largeur() const override { return largeur_; }
    double Hauteur() const override { return hauteur_; }
    void Effacer(Couleur fond) override;
    void Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) override;
    void Arc(double cx, double cy, double rayon, double debut, double fin,
             const Stylo& stylo) override;
    void Cercle(double cx, double cy, double rayon, const Stylo& stylo) override;
    void Texte(double x, double y, const std::string& texte, Couleur couleur, const Police& police,
               Alignement alignement) override;
    double UnitesParPoint() const override;
    TailleTexte Mesurer(const std::string& texte, const Police& police) const override;

private:
    void Prendre(const Stylo& stylo);

    QPainter& peintre_;
    double largeur_, hauteur_;
};

} // namespace tournesol
