#include "printing/Page.h"

namespace tournesol {

void Page::Ecrire(const std::string& texte) {
    TexteEn(CurrentX, CurrentY, texte, 0);
    CurrentX += LargeurTexte(texte);
}

void Page::EcrireEnTaille(const std::string& texte, double taille) {
    const double avant = police_.Taille;
    const double hauteur = HauteurTexte(" ");
    police_.Taille = taille;
    // The smaller type goes down by the difference of the ascents.
    const double decalage = PART_ASCENDANTE * (hauteur - HauteurTexte(" "));
    CurrentY += decalage;
    Ecrire(texte);
    CurrentY -= decalage;
    police_.Taille = avant;
}

void Page::ALaLigne() {
    CurrentY += HauteurTexte(" ");
    CurrentX = 0.0;
}

void Page::Cadre(double gauche, double haut, double largeur, double hauteur, const Stylo& stylo) {
    const double droite = gauche + largeur, bas = haut + hauteur;
    Ligne(gauche, haut, droite, haut, stylo);
    Ligne(droite, haut, droite, bas, stylo);
    Ligne(droite, bas, gauche, bas, stylo);
    Ligne(gauche, bas, gauche, haut, stylo);
}

TailleTexte SurfacePage::Mesurer(const std::string& texte, const Police& police) const {
    const PolicePage avant = page_.Police();
    page_.ChoisirPolice(police.nom);
    page_.ChoisirTaille(police.taille);
    page_.ChoisirGras(false);
    const TailleTexte taille{page_.LargeurTexte(texte), page_.HauteurTexte(texte)};
    page_.ChoisirPolice(avant.Nom);
    page_.ChoisirTaille(avant.Taille);
    page_.ChoisirGras(avant.Gras);
    return taille;
}

void SurfacePage::Texte(double x, double y, const std::string& texte, Couleur couleur,
                        const Police& police, Alignement alignement) {
    if (x < cadre_.Left || x > cadre_.Left + cadre_.Width || y < cadre_.Top ||
        y > cadre_.Top + cadre_.Height)
        return;
    const PolicePage avant = page_.Police();
    page_.ChoisirPolice(police.nom);
    page_.ChoisirTaille(police.taille);
    page_.ChoisirGras(false);
    const double largeur = page_.LargeurTexte(texte);
    const double hauteur = page_.HauteurTexte(texte);
    const double gauche = alignement == Alignement::Centre ? x - largeur / 2.0 : x;
    page_.TexteEn(gauche, y - hauteur / 2.0, texte, couleur);
    page_.ChoisirPolice(avant.Nom);
    page_.ChoisirTaille(avant.Taille);
    page_.ChoisirGras(avant.Gras);
}

} // namespace tournesol
