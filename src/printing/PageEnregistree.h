// A page that keeps what is printed on it, for tests of the report: the documents that went to
// paper, the one in progress, and how many were aborted.
#pragma once

#include "printing/Page.h"

#include <vector>

namespace tournesol {

struct ElementPage {
    enum Genre { Texte, Ligne, Arc, Cercle } genre = Texte;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0; // a text's corner or a line's ends; a centre
    double rayon = 0, debut = 0, fin = 0;
    Stylo stylo;
    std::string texte;
    PolicePage police;
};

using PageImprimee = std::vector<ElementPage>;
using DocumentImprime = std::vector<PageImprimee>;

class PageEnregistree : public Page {
public:
    // An A4 sheet by default. A character measures half the font's size across; a line is
    // 1.15 times the size high.
    explicit PageEnregistree(double largeur = 210.0, double hauteur = 297.0)
        : largeur_(largeur), hauteur_(hauteur) {}

    double Largeur() const override { return largeur_; }
    double Hauteur() const override { return hauteur_; }
    double LargeurTexte(const std::string& texte) const override;
    double HauteurTexte(const std::string& texte) const override;
    void TexteEn(double x, double y, const std::string& texte, Couleur couleur) override;
    void Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) override;
    void Arc(double cx, double cy, double rayon, double debut, double fin,
             const Stylo& stylo) override;
    void Cercle(double cx, double cy, double rayon, const Stylo& stylo) override;
    void NouvellePage() override;
    void Terminer() override;
    void Abandonner() override;

    std::vector<DocumentImprime> Imprimes; // documents ended, in order
    DocumentImprime EnCours;               // pages since the last end or abort
    int Abandons = 0;
    int HorsPage = 0; // drawings made before any page was started

    // The texts of a page line by line, top to bottom, a line being the pieces that stand on the
    // same base whatever their size: the pieces of a line in order, joined
    // as they stand when they touch and by a tab across a gap.
    static std::vector<std::string> Lignes(const PageImprimee& page);

private:
    void Garder(ElementPage element);

    double largeur_, hauteur_;
};

} // namespace tournesol
