// The PXLC-PSEL: the static distance relay of the PXL family, with its phase selector. It is set,
// as the PXLN, through percentages of the line reactance, here in whole per cents, through the
// classic criterion's two loop resistances (phase to earth and phase to phase) and an out-of-step
// band in half ohms. These are its computations on the study; the panel shows them
// (PanneauPXLC.h).
#pragma once

#include "relays/FamillePXL.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace tournesol {

struct Etude;
class Dialogue;

inline constexpr int ID_PXLC = 5;

// The relay's steps and ranges: whole per cents, the band by 0.5 secondary ohm from 0.5 to 25,
// the resistances in whole ohms up to 100, the timers by 10 ms.
inline constexpr PasPXL PAS_PXLC{
    .PourcentsEntiers = true, .Bande = 0.5, .BandeMin = 0.5, .ResistanceMax = 100.0, .Tempo = 10.0};
// The numbers of the family's common rules on the PXLC.
inline constexpr std::array<int, 6> REGLES_PXLC{29, 30, 31, 32, 33, 34};

// The options put to their defaults in mode "Return": slip 2 Hz, zones 3, 4, 5 blocked during a
// swing, single phase tripping on zone 1, the setting sheet printed.
void DefautsPXLC(Etude& e);

// The chain's steps on the PXLC's record (the family's, to its steps): the band and the
// resistances, their primary images, the zone percentages and the ratio R/X.
void CalculPompagePXLC(Etude& e, Dialogue& d);
void ResistancesPrimairesPXLC(Etude& e);
void CalculZonesPXLC(Etude& e);
void RapportRsurXPXLC(Etude& e);
// deltaR changed by hand: the two resistances again from the load area.
void ResistancesDepuisBandePXLC(Etude& e, Dialogue& d);

// The zones in primary and secondary ohms, then rules 29 to 34 of the setting guide, the
// family's common ones.
void CalculDiagPXLC(Etude& e);

// The half width of the plane fitted on OK, in primary ohms.
double DemiLargeurPXLC(const Etude& e);

// The relay's setting sheet, as the values are entered into it: each parameter's name and its
// value with its unit.
std::vector<std::pair<std::string, std::string>> FeuilleReglagesPXLC(const Etude& e);

// Registers the PXLC: panel, characteristic, setting list, rule texts and settings pages.
void InscrirePXLC();

} // namespace tournesol
