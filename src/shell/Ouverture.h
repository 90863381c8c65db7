// From the click on Open to the first drawing, and the one routine that recomputes and redraws.
#pragma once

#include <array>

namespace tournesol {

struct Etude;
class Dialogue;
class BaseEtudes;

// The three report options of the working window: chktriphasé, chkmonophasé, chkmaximal.
struct OptionsReport {
    std::array<bool, 3> Coche{};
    std::array<bool, 3> Actif{true, true, true};

    // Sets the option of a report case (0, 1, 2) alone.
    void Choisir(int cas);
    // The case the options say: three-phase first, then single-phase, then maximal; 0 if none.
    int Cas() const;
};

// Enables the report options by the feed of the line and the relay's admitted cases.
void AppliquerReports(const Etude& e, OptionsReport& options);

// The transit current of a report case; on a plant link the maximal case keeps It as it is.
double CourantDuCas(const Etude& e, int cas);

// What Open puts into the study state before the study's own values: the line ends in order
// and the network defaults, and the defaults of the relays' records (AppliquerDefautsRelais).
void PreparerOuverture(Etude& e);

// A line the base does not hold yet starts from nothing: the values of the line and every
// quantity derived from them (equivalent line, load area, rule flags) go back to those of a new
// study, so that nothing of the line studied before shows; the reactances of 0 become 1 as the
// relay choice leaves them, and the ends are in order. The network defaults come after.
void ViderLigne(Etude& e);

// Computes the three report cases, creates the relay's panel unseen so that it computes its
// reaches, and draws.
void InitEtude(Etude& e, Dialogue& d, OptionsReport& options);

// What the opening does before the superposition window: the transit areas count as made, no
// relay is ready yet and nothing has changed.
void InitSuperposition(Etude& e);

// Applies the report options, derives It, recomputes the transit area and redraws.
void CalculerEtTracer(Etude& e, Dialogue& d, OptionsReport& options);

// Runs the current relay's panel, unseen or modally; on return the study holds the relay's
// reaches, or ErrCalcul is set and has been reported.
void OuvrirPanneau(Etude& e, Dialogue& d, OptionsReport& options, bool sansAffichage);

// Before the study is left (the working window's leave, "Change..." and close box, the opening
// dialog's Leave and Escape): with changes not saved and a base to save them in, the engineer is
// asked whether to save them. False when he stays, or when the save he asked for failed. The
// changes he chose not to save are dropped: he is not asked twice.
bool PeutQuitterEtude(Etude& e, Dialogue& d, BaseEtudes* base);

// The notice of a line whose length does not match its long-line flag, once the network options
// and values are both confirmed.
void ControleLongueur(Etude& e, Dialogue& d);

} // namespace tournesol
