// A surface that keeps what is drawn on it, for tests that check a drawing's geometry.
#pragma once

#include "diagram/Surface.h"

#include <vector>

namespace tournesol {

struct Trace {
    enum Genre { Effacement, Ligne, Arc, Cercle, Texte } genre = Effacement;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0; // a line's ends; a circle's centre in x1, y1
    double rayon = 0, debut = 0, fin = 0;
    Stylo stylo;
    std::string texte;
    Alignement alignement = Alignement::Gauche;
    Police police;
};

class SurfaceEnregistree : public Surface {
public:
    SurfaceEnregistree(double largeur, double hauteur) : largeur_(largeur), hauteur_(hauteur) {}
    double Largeur() const override { return largeur_; }
    double Hauteur() const override { return hauteur_; }
    void Effacer(Couleur fond) override;
    void Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) override;
    void Arc(double cx, double cy, double rayon, double debut, double fin,
             const Stylo& stylo) override;
    void Cercle(double cx, double cy, double rayon, const Stylo& stylo) override;
    void Texte(double x, double y, const std::string& texte, Couleur couleur, const Police& police,
               Alignement alignement) override;

    std::vector<Trace> traces;

private:
    double largeur_, hauteur_;
};

} // namespace tournesol
