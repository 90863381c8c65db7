// frmRéseauOptions: what describes the line as a whole: its kind, its feeding, its instrument
// transformers, the transformer reactances of the substations and the transit currents. Its
// values go to the study on OK; the line computation then runs.
#pragma once

#include "core/Panneau.h"

#include <cstdint>

namespace tournesol {

struct Etude;

// The network defaults that the creation of frmRéseauOptions puts into the study for a new
// line: those of a 225 kV line. Only values that are still 0 take them, so that a study's own
// values are never written over.
void AppliquerDefautsReseau(Etude& e);

// The short-circuit level (kA) that goes with a network voltage: 63 for 400 kV, 31.5 otherwise.
double IccDuNiveau(std::int32_t up);

class PanneauOptionsReseau : public Panneau {
public:
    // Puts the network defaults into the study, then shows the study.
    explicit PanneauOptionsReseau(Etude& e);

    // Options of the four tabs, Command1 (OK) and Command2 (cancel).
    void Cliquer(const std::string& nom) override;
    // The text of a custom field ("other") changed.
    void Changer(const std::string& nom) override;
    // The pointer rests on a tab's title: the title of the transit tab shows its help.
    void Entrer(const std::string& nom) override;
    // Enter confirms, Escape cancels.
    // Command1: the nine steps of OK.
    void Valider() override;
    // Command2: the panel closes and nothing changes.
    void Annuler() override;

    // The help of the transit tab by the level chosen, as when the pointer rests on its title.
    void AideTransit();

    // OK was pressed.
    bool Confirme() const { return confirme_; }
    // The line has a third end: the line kind is then 3 and the feeding 0.
    bool TroisBouts() const { return troisBouts_; }

    static constexpr const char* ONGLET_TRANSIT = " Transit current";

private:
    void Afficher();
    void LireSaisiesLibres();
    void LireTransits();

    Etude& e_;
    bool troisBouts_ = false;
    bool confirme_ = false;
    bool aideMontree_ = false; // the help of the transit tab shows the level's guide
    // Working copies, written back on OK.
    int tl_ = 0;
    bool lc_ = false;
    int alim_ = 0;
    std::int32_t ip_ = 0;
    float is_ = 1.0F;
    std::int32_t up_ = 0;
    // "other" is chosen for Ip, Is, Up: the custom field gives the value.
    bool ipAutre_ = false;
    bool isAutre_ = false;
    bool upAutre_ = false;
};

} // namespace tournesol
