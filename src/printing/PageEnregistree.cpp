#include "printing/PageEnregistree.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace tournesol {

namespace {

constexpr double MM_PAR_POINT = 25.4 / 72.0;

std::size_t Caracteres(const std::string& texte) {
    return static_cast<std::size_t>(std::count_if(texte.begin(), texte.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

} // namespace

double PageEnregistree::LargeurTexte(const std::string& texte) const {
    return 0.5 * Police().Taille * MM_PAR_POINT * static_cast<double>(Caracteres(texte));
}

double PageEnregistree::HauteurTexte(const std::string&) const {
    return 1.15 * Police().Taille * MM_PAR_POINT;
}

void PageEnregistree::Garder(ElementPage element) {
    if (EnCours.empty()) {
        ++HorsPage;
        return;
    }
    EnCours.back().push_back(std::move(element));
}

void PageEnregistree::TexteEn(double x, double y, const std::string& texte, Couleur couleur) {
    ElementPage e;
    e.genre = ElementPage::Texte;
    e.x1 = x;
    e.y1 = y;
    e.texte = texte;
    e.police = Police();
    e.stylo.couleur = couleur;
    Garder(std::move(e));
}

void PageEnregistree::Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) {
    Garder({ElementPage::Ligne, x1, y1, x2, y2, 0, 0, 0, stylo, {}, Police()});
}

void PageEnregistree::Arc(double cx, double cy, double rayon, double debut, double fin,
                          const Stylo& stylo) {
    Garder({ElementPage::Arc, cx, cy, 0, 0, rayon, debut, fin, stylo, {}, Police()});
}

void PageEnregistree::Cercle(double cx, double cy, double rayon, const Stylo& stylo) {
    Garder({ElementPage::Cercle, cx, cy, 0, 0, rayon, 0, 0, stylo, {}, Police()});
}

void PageEnregistree::NouvellePage() {
    EnCours.emplace_back();
}

void PageEnregistree::Terminer() {
    Imprimes.push_back(std::move(EnCours));
    EnCours.clear();
}

void PageEnregistree::Abandonner() {
    ++Abandons;
    EnCours.clear();
}

std::vector<std::string> PageEnregistree::Lignes(const PageImprimee& page) {
    // Pieces by the base of their letters, to a hundredth of a millimetre.
    std::map<long, std::vector<const ElementPage*>> parLigne;
    for (const ElementPage& e : page)
        if (e.genre == ElementPage::Texte) {
            const double base = e.y1 + PART_ASCENDANTE * 1.15 * e.police.Taille * MM_PAR_POINT;
            parLigne[std::lround(base * 100.0)].push_back(&e);
        }
    std::vector<std::string> lignes;
    for (auto& [haut, pieces] : parLigne) {
        std::stable_sort(pieces.begin(), pieces.end(),
                         [](const ElementPage* a, const ElementPage* b) { return a->x1 < b->x1; });
        std::string ligne;
        double fin = pieces.front()->x1;
        for (const ElementPage* p : pieces) {
            if (p->x1 > fin + 0.01) ligne += '\t';
            ligne += p->texte;
            fin = p->x1 +
                  0.5 * p->police.Taille * MM_PAR_POINT * static_cast<double>(Caracteres(p->texte));
        }
        lignes.push_back(ligne);
    }
    return lignes;
}

} // namespace tournesol
