#include "network/Sections.h"

#include "core/Etude.h"

#include <utility>

namespace tournesol {

void EchangerSections(Etude& e, int i, int j) {
    const auto a = static_cast<std::size_t>(i), b = static_cast<std::size_t>(j);
    for (Reels3* v : {&e.Ligne_Longueur, &e.Ligne_XL, &e.Ligne_RL, &e.Ligne_ZL, &e.Ligne_ko,
                      &e.Ligne_ako, &e.Ligne_PHI, &e.Ligne_Xo, &e.Ligne_Ro, &e.PHIo})
        std::swap((*v)[a], (*v)[b]);
    std::swap(e.Ligne_Ex[a], e.Ligne_Ex[b]);
}

void TrierEx(Etude& e) {
    if (e.Ligne_Ex[0] != 1) EchangerSections(e, 0, 1);
    if (e.Ligne_Ex[0] != 1) EchangerSections(e, 0, 2);
    if (e.Ligne_Ex[1] != 2) EchangerSections(e, 1, 2);
}

void TrierLongueur(Etude& e) {
    const auto& l = e.Ligne_Longueur;
    if (l[0] > l[1]) EchangerSections(e, 0, 1);
    if (l[1] > l[2]) EchangerSections(e, 1, 2);
    if (l[0] > l[1]) EchangerSections(e, 0, 1);
}

} // namespace tournesol
