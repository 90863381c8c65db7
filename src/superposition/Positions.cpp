#include "superposition/Positions.h"

#include <algorithm>
#include <cmath>

namespace tournesol {

int DispositionDe(int position1, int position2) {
    for (std::size_t i = 0; i < DISPOSITIONS.size(); ++i)
        if (DISPOSITIONS[i].Position1 == position1 && DISPOSITIONS[i].Position2 == position2)
            return static_cast<int>(i) + 1;
    return 0;
}

Complexe PlacerPoint(const Complexe& point, int position, double Ro, double Xo) {
    double r = point.Re, x = point.Im;
    if (position == POSITION_RETOURNEE_LOIN || position == POSITION_RETOURNEE) {
        r = -r;
        x = -x;
    }
    if (position == POSITION_RETOURNEE_LOIN || position == POSITION_LOIN) {
        r += Ro;
        x += Xo;
    }
    return Cart(r, x);
}

LignePlacee PlacerLigne(int position, double R, double X, double Ro, double Xo) {
    return {PlacerPoint(Cart(0.0, 0.0), position, Ro, Xo),
            PlacerPoint(Cart(R, X), position, Ro, Xo)};
}

int PremiereDisposition(const std::string& nom1Poste, const std::string& nom1Depart,
                        const std::string& nom2Poste, const std::string& nom2Depart) {
    if (nom2Poste == nom1Poste) return nom2Depart == nom1Depart ? 1 : 6;
    const bool versPoste1 = nom2Depart == nom1Poste;
    if (nom2Poste == nom1Depart) return versPoste1 ? 2 : 4;
    return versPoste1 ? 5 : 1;
}

void Etendue::Ajouter(double r, double x) {
    if (!std::isfinite(r) || !std::isfinite(x)) return;
    if (Vide) {
        Gauche = Droite = r;
        Haut = Bas = x;
        Vide = false;
        return;
    }
    Gauche = std::min(Gauche, r);
    Droite = std::max(Droite, r);
    Haut = std::max(Haut, x);
    Bas = std::min(Bas, x);
}

void Etendue::Ajouter(const Etendue& autre) {
    if (autre.Vide) return;
    Ajouter(autre.Gauche, autre.Haut);
    Ajouter(autre.Droite, autre.Bas);
}

FenetrePlan AjusterBoite(const Etendue& a, const Etendue& b) {
    Etendue boite = a;
    boite.Ajouter(b);
    if (boite.Vide) return {};
    // Whole ohms outward.
    double gauche = std::floor(boite.Gauche), droite = std::ceil(boite.Droite);
    double haut = std::ceil(boite.Haut), bas = std::floor(boite.Bas);
    double largeur = droite - gauche, hauteur = haut - bas;
    // Square: the shorter side widened equally on both sides, the odd ohm on the right or top.
    if (largeur < hauteur) {
        const double ecart = hauteur - largeur;
        gauche -= std::floor(ecart / 2.0);
        droite += ecart - std::floor(ecart / 2.0);
        largeur = hauteur;
    } else if (hauteur < largeur) {
        const double ecart = largeur - hauteur;
        bas -= std::floor(ecart / 2.0);
        haut += ecart - std::floor(ecart / 2.0);
        hauteur = largeur;
    }
    if (largeur < 1.0) {
        // A box of no size (one point) gets one ohm about it.
        gauche -= 1.0;
        haut += 1.0;
        largeur = hauteur = 2.0;
    }
    // The margin: a twentieth of the side on each side, in whole ohms, so that the side grows
    // by a tenth.
    const double marge = std::ceil(largeur / 20.0);
    FenetrePlan f;
    f.Left = static_cast<float>(gauche - marge);
    f.Top = static_cast<float>(haut + marge);
    f.Width = static_cast<float>(largeur + 2.0 * marge);
    f.Height = static_cast<float>(-(hauteur + 2.0 * marge));
    return f;
}

} // namespace tournesol
