// The relay setting store: every relay's settings as a numbered sequence of values under the key
// of the setting row (id_reglage). A value's meaning is only its position in its relay's order.
#pragma once

#include "core/Etude.h"

#include <cstdint>
#include <map>
#include <utility>
#include <variant>
#include <vector>

namespace tournesol {

struct Etude;

// A stored value, handed back in the type it was written (a 16-bit or 32-bit integer, a 32-bit
// or 64-bit float); empty when missing.
using ValeurTR = std::variant<std::monostate, double, float, std::int16_t, std::int32_t>;

// Where the values live: the table TR of the study base, or memory.
class MagasinReglages {
public:
    virtual ~MagasinReglages() = default;
    // Writes over the value at that place, or adds it.
    virtual void EcrireValeur(std::int32_t id_key, std::int32_t id_pos, const ValeurTR& valeur) = 0;
    // The value at that place; empty when there is none.
    virtual ValeurTR LireValeur(std::int32_t id_key, std::int32_t id_pos) = 0;
};

// The store kept in memory, for the command line and for tests.
class MagasinMemoire : public MagasinReglages {
public:
    void EcrireValeur(std::int32_t id_key, std::int32_t id_pos, const ValeurTR& valeur) override;
    ValeurTR LireValeur(std::int32_t id_key, std::int32_t id_pos) override;
    std::size_t Taille() const { return valeurs_.size(); }

private:
    std::map<std::pair<std::int32_t, std::int32_t>, ValeurTR> valeurs_;
};

// Where the list of the two- and three-ended line panels starts under the setting row: the
// relay's own list takes the positions from 0, and neither may overwrite the other.
inline constexpr std::int32_t DEBUT_LISTE_BOUTS = 100;

// The cursor of the whole system (PositionTR) over the setting row id_reglage, put at the start
// of a list.
void DebutTR(Etude& e, std::int32_t debut = 0);
void EcrireTR(Etude& e, MagasinReglages& m, const ValeurTR& valeur);
// The value at the cursor; FinTR is set when it is missing. The cursor moves on in any case.
ValeurTR LireTR(Etude& e, MagasinReglages& m);

// A value read back into a variable of the given type; a missing value leaves it alone.
void LireDans(const ValeurTR& v, double& cible);
void LireDans(const ValeurTR& v, float& cible);
void LireDans(const ValeurTR& v, std::int16_t& cible);
void LireDans(const ValeurTR& v, std::int32_t& cible);
void LireDans(const ValeurTR& v, bool& cible);
// A variable as the store keeps it, in its own type; a Boolean as the 16-bit -1 or 0.
ValeurTR ValeurStockee(double v);
ValeurTR ValeurStockee(float v);
ValeurTR ValeurStockee(std::int16_t v);
ValeurTR ValeurStockee(std::int32_t v);
ValeurTR ValeurStockee(bool v);

// A relay's list written or read from its first position: `liste(e, f)` calls f on each
// variable of the list, in the order of the positions.
template <class Liste> void EcrireListe(Etude& e, MagasinReglages& m, Liste&& liste) {
    DebutTR(e);
    liste(e, [&](auto& v) { EcrireTR(e, m, ValeurStockee(v)); });
}
template <class Liste> void LireListe(Etude& e, MagasinReglages& m, Liste&& liste) {
    DebutTR(e);
    liste(e, [&](auto& v) { LireDans(LireTR(e, m), v); });
}

// Each relay registers the writer and the reader of its list; the save and the opening call
// them by id_protection.
using ListeReglages = void (*)(Etude&, MagasinReglages&);
void InscrireReglagesRelais(int id_protection, ListeReglages ecrire, ListeReglages lire);
// False when the relay has no list.
bool EcrireReglagesRelais(Etude& e, MagasinReglages& m);
bool LireReglagesRelais(Etude& e, MagasinReglages& m);

// The values of one list by position alone, whatever the key: a place's setting block.
class MagasinBloc : public MagasinReglages {
public:
    void EcrireValeur(std::int32_t id_key, std::int32_t id_pos, const ValeurTR& valeur) override;
    ValeurTR LireValeur(std::int32_t id_key, std::int32_t id_pos) override;
    std::size_t Taille() const { return valeurs_.size(); }

private:
    std::vector<ValeurTR> valeurs_;
};

// A relay's own record, whichever relay it is.
#define TOURNESOL_RELAIS_ALTERNATIVE(id, Enregistrement, membre, LISTE) , Enregistrement
using EnregistrementRelais =
    std::variant<std::monostate TOURNESOL_RELAIS(TOURNESOL_RELAIS_ALTERNATIVE)>;
#undef TOURNESOL_RELAIS_ALTERNATIVE

// The line of a place as the line computation and the relay's panel left it: every value of the
// line and every quantity derived from it (equivalent line, levels, report case, transit current
// and points, set reaches, rule flags).
struct LigneDuBloc {
    TOURNESOL_ETUDE_LIGNE(TOURNESOL_DECLARER)
    TOURNESOL_ETUDE_DERIVEES(TOURNESOL_DECLARER)
    Booleen CRtCalcule = false;
    Booleen CRmCalcule = false;
};

// The setting block of a place of the superposition: the relay's own list, as its setting store
// writes it (each value in its own type), and the line values its characteristic depends on.
// Every relay has its block through the list it registers: nothing more to write per relay.
// Besides, the block keeps the relay's own record and the rest of the place's line, so that the
// place's panel and characteristic work on that place's line and not on the other's.
struct BlocReglages {
    int IdProtection = 0;
    MagasinBloc Reglages;
    EnregistrementRelais Relais;
    LigneDuBloc Ligne;
    double Kz = 0.0;
    double CRt = 0.0;
    double CRm = 0.0;
    double RL_eq = 0.0;
    double XL_eq = 0.0;
    std::int16_t pp = 0;
    std::int16_t alim = 0;
    std::int16_t Tl = 0;
};
// The working variables of the current relay kept into the block, and brought back from it
// (the block's relay); exact mirrors. False when the relay has no list.
bool SauverReglage(Etude& e, BlocReglages& bloc);
bool RestaurerReglage(Etude& e, BlocReglages& bloc);

} // namespace tournesol
