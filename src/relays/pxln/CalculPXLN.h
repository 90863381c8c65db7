// The PXLN: a digital distance relay set through percentages of the line reactance, four loop
// resistances and an out-of-step band, with a parameter sheet of its own whose parameters go into
// the listing of the relay's setting tool. These are its computations on the study; the panel
// shows them (PanneauPXLN.h).
#pragma once

#include <string>
#include <vector>

namespace tournesol {

struct Etude;
class Dialogue;

inline constexpr int ID_PXLN = 7;

// The label shown while the secondary rated current is not 1 A (the computation goes on).
inline constexpr const char* ERREUR_IN_PXLN =
    "Error: the implemented rated secondary current must be  1 A";

// The options and entries of the panel put to their defaults in mode "Return", once when the
// panel is loaded: slip 2 Hz, the three blocking suppressions on (20, 20 and 4 % In), their timer
// 4000 ms, no emission or reception blocking, zones 3, 4, 5 blocked; Td 50 ms, signal by the
// second zone, signalling with quick tripping, the acceleration on a long line; single phase
// tripping on zone 1 and a capacitive reducer.
void DefautsPXLN(Etude& e);

// The smallest distance of the load area to the line image, along R, with the margin 0.9 / 1.1,
// by the feed of the line: over the three phase and the maximal report cases on a meshed line,
// the generator's area on a plant link, the third zone against the load on a customer link
// (where "incompatible data" is shown when it does not fit). The report case in force and its
// area are put back afterwards.
double DistanceTransitPXLN(Etude& e, Dialogue& d);

// The out-of-step sheet's step: in mode "Return" the band from the slip and the four resistances
// from the load area; in every mode the band within 0.2 to 25 secondary ohms and its primary
// image.
void CalculPompagePXLN(Etude& e, Dialogue& d);
// The four resistances from the distance D to the load area and the band: Rmoc the whole part of
// D / Kz less the band, at most 200, Rbic and Rbir equal to it, Rmor twice it, at most 200.
void ResistancesPXLN(Etude& e, double distance);
// The primary images of the band and of the four resistances.
void ResistancesPrimairesPXLN(Etude& e);

// The zone percentages from the line in mode "Return" (the backward one kept clear of the
// resistance), then the ratio R/X.
void CalculZonesPXLN(Etude& e);
// Rmoc_HT over the first zone's reactance.
void RapportRsurXPXLN(Etude& e);

// The zones in primary and secondary ohms, then rules 44 to 49 of the setting guide.
void CalculDiagPXLN(Etude& e);

// The half width of the plane fitted on OK, in primary ohms (before the limit of 1000).
double DemiLargeurPXLN(const Etude& e);

// Registers the PXLN with the rest of the system: panel, characteristic, setting list, rule
// texts and settings page.
void InscrirePXLN();

} // namespace tournesol
