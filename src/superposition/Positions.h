// Where each of the two superposed relays stands on the common plane: the four positions of a
// relay's origin, the seven layouts of the two, the first layout chosen from the names of the
// substations, and the common box that both images fit in.
#pragma once

#include "core/Complexe.h"

#include <array>
#include <string>
#include <string_view>

namespace tournesol {

// A relay's image as it stands (1), turned through 180 degrees and moved to the far end of the
// other place's line (2), moved there (3), or turned at the origin (4).
inline constexpr int POSITION_DROITE = 1;
inline constexpr int POSITION_RETOURNEE_LOIN = 2;
inline constexpr int POSITION_LOIN = 3;
inline constexpr int POSITION_RETOURNEE = 4;

// A layout: the positions of place 1 and place 2.
struct Disposition {
    int Position1 = POSITION_DROITE;
    int Position2 = POSITION_DROITE;
};
inline constexpr int NOMBRE_DISPOSITIONS = 7;
// The seven layout buttons, cmdPlace1 to CmdPlace7, by their number less 1.
inline constexpr std::array<Disposition, NOMBRE_DISPOSITIONS> DISPOSITIONS = {
    {{1, 1}, {1, 2}, {2, 1}, {1, 3}, {3, 1}, {1, 4}, {4, 1}}};
inline constexpr std::array<std::string_view, NOMBRE_DISPOSITIONS> BOUTONS_DISPOSITION = {
    "cmdPlace1", "cmdPlace2", "cmdPlace3", "CmdPlace4", "cmdPlace5", "CmdPlace6", "CmdPlace7"};

// The layout (1 to 7) of two positions; 0 for a pair that is no layout.
int DispositionDe(int position1, int position2);

// A point of a place's image at its position, (Ro, Xo) being the far end of the other place's
// line. A position outside 1 to 4 leaves the point as it stands.
Complexe PlacerPoint(const Complexe& point, int position, double Ro, double Xo);

// The image of a place's line (R, X) at its position: from, to.
struct LignePlacee {
    Complexe De, A;
};
LignePlacee PlacerLigne(int position, double R, double X, double Ro, double Xo);

// The first layout from the names of the two places, compared as text: the second relay at the
// far end of the first line looking back, beyond it, at the same substation on another line...
int PremiereDisposition(const std::string& nom1Poste, const std::string& nom1Depart,
                        const std::string& nom2Poste, const std::string& nom2Depart);

// The extent of an image in ohms; empty until a point is added.
struct Etendue {
    double Gauche = 0.0, Droite = 0.0, Haut = 0.0, Bas = 0.0;
    bool Vide = true;
    void Ajouter(double r, double x);
    void Ajouter(const Etendue& autre);
};

// The plane's window (ScaleLeft, ScaleTop, ScaleWidth, ScaleHeight).
struct FenetrePlan {
    float Left = -20.0f, Top = 20.0f, Width = 40.0f, Height = -40.0f;
};

// The common box of two extents, made square by widening its shorter side equally on both
// sides, in whole ohms, with a margin of a tenth of its side; the start window (40 ohms about
// the origin) when both are empty.
FenetrePlan AjusterBoite(const Etendue& a, const Etendue& b);

} // namespace tournesol
