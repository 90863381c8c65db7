#include "diagram/SurfaceEnregistree.h"

namespace tournesol {

void SurfaceEnregistree::Effacer(Couleur fond) {
    traces.clear();
    Trace t;
    t.genre = Trace::Effacement;
    t.stylo.couleur = fond;
    traces.push_back(t);
}

void SurfaceEnregistree::Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) {
    Trace t;
    t.genre = Trace::Ligne;
    t.x1 = x1;
    t.y1 = y1;
    t.x2 = x2;
    t.y2 = y2;
    t.stylo = stylo;
    traces.push_back(t);
}

void SurfaceEnregistree::Arc(double cx, double cy, double rayon, double debut, double fin,
                             const Stylo& stylo) {
    Trace t;
    t.genre = Trace::Arc;
    t.x1 = cx;
    t.y1 = cy;
    t.rayon = rayon;
    t.debut = debut;
    t.fin = fin;
    t.stylo = stylo;
    traces.push_back(t);
}

void SurfaceEnregistree::Cercle(double cx, double cy, double rayon, const Stylo& stylo) {
    Trace t;
    t.genre = Trace::Cercle;
    t.x1 = cx;
    t.y1 = cy;
    t.rayon = rayon;
    t.stylo = stylo;
    traces.push_back(t);
}

void SurfaceEnregistree::Texte(double x, double y, const std::string& texte, Couleur couleur,
                               const Police& police, Alignement alignement) {
    Trace t;
    t.genre = Trace::Texte;
    t.x1 = x;
    t.y1 = y;
    t.texte = texte;
    t.stylo.couleur = couleur;
    t.police = police;
    t.alignement = alignement;
    traces.push_back(t);
}

} // namespace tournesol
