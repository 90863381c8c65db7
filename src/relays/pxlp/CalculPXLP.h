// The PXLP: a digital distance relay of the PXL family, set like the PXLN through percentages of
// the line reactance, four loop resistances and an out-of-step band, without the PXLN's blocking
// suppressions, tripping types and parameter listing. These are its computations on the study;
// the panel shows them (PanneauPXLP.h).
#pragma once

#include <array>
#include <vector>

namespace tournesol {

struct Etude;
class Dialogue;

inline constexpr int ID_PXLP = 6;
// The numbers of the family's common rules on the PXLP (FamillePXL.h).
inline constexpr std::array<int, 6> REGLES_COMMUNES_PXLP{35, 37, 38, 39, 40, 41};

// The defaults of the panel in mode "Return", those of the family (FamillePXL.h).
void DefautsPXLP(Etude& e);

// The chain's steps on the PXLP's record: the band and the resistances, their primary images,
// the zone percentages and the ratio R/X.
void CalculPompagePXLP(Etude& e, Dialogue& d);
void ResistancesPrimairesPXLP(Etude& e);
void CalculZonesPXLP(Etude& e);
void RapportRsurXPXLP(Etude& e);
// deltaR changed by hand: the four resistances again from the load area.
void ResistancesDepuisBandePXLP(Etude& e, Dialogue& d);

// The zones in primary and secondary ohms, then rules 35 to 43 of the setting guide:
//   35 the third zone at least 1.2 times the second;
//   36 the third zone, 37 the forward pick-up, 38 the forward pick-up widened by the band,
//      against the forward side limit;
//   39 the backward pick-up, 40 the backward pick-up widened by the band, against the backward
//      side limit;
//   41 on a long line, the backward pick-up at least the coordination margin;
//   42 the far corner of the forward pick-up (Rmoc, forward reach), taken along the line's
//      angle, against the forward side limit; 43 the corner of the backward pick-up likewise
//      against the backward side limit. These two are printed only.
void CalculDiagPXLP(Etude& e);

// The half width of the plane fitted on OK, in primary ohms.
double DemiLargeurPXLP(const Etude& e);

// Registers the PXLP: panel, characteristic, setting list, rule texts and settings page.
void InscrirePXLP();

} // namespace tournesol
