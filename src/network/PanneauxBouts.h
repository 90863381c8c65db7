// frmdeuxbouts and frmtroisbouts: at which end of the line the relay stands and, on a
// three-ended line, the fault currents of a short-circuit study. What they take goes into the
// study; the save writes it through the relay setting store under the setting row of the relay
// being saved (EcrireListeBouts), and a panel given a store reads it back from there.
#pragma once

#include "core/Panneau.h"

#include <array>
#include <cstdint>

namespace tournesol {

struct Etude;
class MagasinReglages;

// The name of an end by its number: 1, 2, 3 give substation A, B, C.
std::string NomBout(const Etude& e, int numero);

// The list of the panel of a line of `bouts` ends (2 or 3), from DEBUT_LISTE_BOUTS under the
// study's setting row: the relay's end, and on a three-ended line the short-circuit flag and the
// twenty currents.
void EcrireListeBouts(Etude& e, MagasinReglages& m, int bouts);

// frmdeuxbouts.
class PanneauDeuxBouts : public Panneau {
public:
    // The store may be null: nothing is then stored nor read back.
    PanneauDeuxBouts(Etude& e, MagasinReglages* magasin);

    // "placerprotection(i)" (a click on end i of the picture) and the options "chkbout(i)" put
    // the relay at end i; Command1 (OK), Command2 (cancel).
    void Cliquer(const std::string& nom) override;
    // Stores the end in pp and writes it through the store.
    void Valider() override;
    void Annuler() override;

    int Bout() const { return bout_; }
    bool Confirme() const { return confirme_; }

private:
    void Choisir(int bout);

    Etude& e_;
    MagasinReglages* magasin_;
    int bout_ = 0;
    bool confirme_ = false;
};

// frmtroisbouts.
class PanneauTroisBouts : public Panneau {
public:
    // The values are read back from the store when it holds them, else taken from the study.
    PanneauTroisBouts(Etude& e, MagasinReglages* magasin);

    // "placerprotection(i)" and "chkbout(i)" put the relay at end i; chkcourcirc enables the
    // tabs of the currents; Command1 (OK), Command2 (cancel).
    void Cliquer(const std::string& nom) override;
    // pp, cc, the currents, BoutMort; zero currents become 1; the list through the store.
    void Valider() override;
    void Annuler() override;

    int Bout() const { return bout_; }
    bool Confirme() const { return confirme_; }

    // The fields of the currents, in the order of the stored list: the eight ICC, then the
    // twelve IPC.
    static const std::array<const char*, 20>& ChampsCourants();

private:
    void Choisir(int bout);
    void Activer();

    Etude& e_;
    MagasinReglages* magasin_;
    int bout_ = 0;
    bool confirme_ = false;
};

} // namespace tournesol
