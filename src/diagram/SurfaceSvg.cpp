#include "diagram/SurfaceSvg.h"

#include "core/Numerique.h"

#include <cmath>
#include <cstdio>

namespace tournesol {

namespace {

std::string Rvb(Couleur c) {
    char tampon[8];
    std::snprintf(tampon, sizeof tampon, "#%02x%02x%02x", Rouge(c), Vert(c), Bleu(c));
    return tampon;
}

std::string Echapper(const std::string& texte) {
    std::string resultat;
    for (const char c : texte) {
        switch (c) {
        case '&':
            resultat += "&amp;";
            break;
        case '<':
            resultat += "&lt;";
            break;
        case '>':
            resultat += "&gt;";
            break;
        case '"':
            resultat += "&quot;";
            break;
        default:
            resultat.push_back(c);
        }
    }
    return resultat;
}

const char* Tirets(int style) {
    switch (style) {
    case TRAIT_TIRET:
        return "8,4";
    case TRAIT_POINT:
        return "2,3";
    case TRAIT_TIRET_POINT:
        return "8,3,2,3";
    case TRAIT_TIRET_POINT_POINT:
        return "8,3,2,3,2,3";
    default:
        return nullptr;
    }
}

} // namespace

SurfaceSvg::SurfaceSvg(double largeur, double hauteur) : largeur_(largeur), hauteur_(hauteur) {
    corps_.precision(6);
}

void SurfaceSvg::Effacer(Couleur fond) {
    corps_.str("");
    corps_ << "<rect x=\"0\" y=\"0\" width=\"" << largeur_ << "\" height=\"" << hauteur_
           << "\" fill=\"" << Rvb(fond) << "\"/>\n";
}

void SurfaceSvg::Trait(const Stylo& stylo) {
    corps_ << " fill=\"none\" stroke=\"" << Rvb(stylo.couleur) << "\" stroke-width=\""
           << stylo.largeur << "\"";
    if (const char* tirets = Tirets(stylo.style))
        corps_ << " stroke-dasharray=\"" << tirets << "\"";
    corps_ << "/>\n";
}

void SurfaceSvg::Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) {
    if (stylo.style == TRAIT_INVISIBLE) return;
    corps_ << "<line x1=\"" << x1 << "\" y1=\"" << y1 << "\" x2=\"" << x2 << "\" y2=\"" << y2
           << "\"";
    Trait(stylo);
}

void SurfaceSvg::Arc(double cx, double cy, double rayon, double debut, double fin,
                     const Stylo& stylo) {
    if (stylo.style == TRAIT_INVISIBLE) return;
    double etendue = std::fmod(fin - debut, 2.0 * PI);
    if (etendue < 0.0) etendue += 2.0 * PI;
    corps_ << "<path d=\"M " << cx + rayon * std::cos(debut) << " " << cy - rayon * std::sin(debut)
           << " A " << rayon << " " << rayon << " 0 " << (etendue > PI ? 1 : 0) << " 0 "
           << cx + rayon * std::cos(fin) << " " << cy - rayon * std::sin(fin) << "\"";
    Trait(stylo);
}

void SurfaceSvg::Cercle(double cx, double cy, double rayon, const Stylo& stylo) {
    if (stylo.style == TRAIT_INVISIBLE) return;
    corps_ << "<circle cx=\"" << cx << "\" cy=\"" << cy << "\" r=\"" << rayon << "\"";
    Trait(stylo);
}

void SurfaceSvg::Texte(double x, double y, const std::string& texte, Couleur couleur,
                       const Police& police, Alignement alignement) {
    corps_ << "<text x=\"" << x << "\" y=\"" << y << "\" font-family=\"" << Echapper(police.nom)
           << ", sans-serif\" font-size=\"" << police.taille * 96.0 / 72.0 << "\" fill=\""
           << Rvb(couleur) << "\" dominant-baseline=\"middle\""
           << (alignement == Alignement::Centre ? " text-anchor=\"middle\"" : "") << ">"
           << Echapper(texte) << "</text>\n";
}

std::string SurfaceSvg::Document() const {
    std::ostringstream doc;
    doc << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        << "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" << largeur_ << "\" height=\""
        << hauteur_ << "\" viewBox=\"0 0 " << largeur_ << " " << hauteur_ << "\">\n"
        << corps_.str() << "</svg>\n";
    return doc.str();
}

} // namespace tournesol
