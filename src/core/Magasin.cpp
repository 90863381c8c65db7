#include "core/Magasin.h"

#include "core/Etude.h"

#include <array>

namespace tournesol {

namespace {
struct Listes {
    ListeReglages ecrire = nullptr;
    ListeReglages lire = nullptr;
};
std::array<Listes, NOMBRE_RELAIS> listes{};

const Listes* ListesDe(int id) {
    if (id < 1 || id > NOMBRE_RELAIS) return nullptr;
    return &listes[static_cast<std::size_t>(id - 1)];
}

template <class T> void Convertir(const ValeurTR& v, T& cible) {
    if (const auto* d = std::get_if<double>(&v))
        cible = static_cast<T>(*d);
    else if (const auto* f = std::get_if<float>(&v))
        cible = static_cast<T>(*f);
    else if (const auto* i = std::get_if<std::int16_t>(&v))
        cible = static_cast<T>(*i);
    else if (const auto* l = std::get_if<std::int32_t>(&v))
        cible = static_cast<T>(*l);
}
} // namespace

void MagasinMemoire::EcrireValeur(std::int32_t id_key, std::int32_t id_pos,
                                  const ValeurTR& valeur) {
    valeurs_[{id_key, id_pos}] = valeur;
}

ValeurTR MagasinMemoire::LireValeur(std::int32_t id_key, std::int32_t id_pos) {
    const auto it = valeurs_.find({id_key, id_pos});
    return it == valeurs_.end() ? ValeurTR{} : it->second;
}

void DebutTR(Etude& e, std::int32_t debut) {
    e.PositionTR = debut;
}

void EcrireTR(Etude& e, MagasinReglages& m, const ValeurTR& valeur) {
    m.EcrireValeur(e.id_reglage, e.PositionTR, valeur);
    ++e.PositionTR;
}

ValeurTR LireTR(Etude& e, MagasinReglages& m) {
    ValeurTR v = m.LireValeur(e.id_reglage, e.PositionTR);
    if (std::holds_alternative<std::monostate>(v)) e.FinTR = true;
    ++e.PositionTR;
    return v;
}

void LireDans(const ValeurTR& v, double& cible) {
    Convertir(v, cible);
}
void LireDans(const ValeurTR& v, float& cible) {
    Convertir(v, cible);
}
void LireDans(const ValeurTR& v, std::int16_t& cible) {
    Convertir(v, cible);
}
void LireDans(const ValeurTR& v, std::int32_t& cible) {
    Convertir(v, cible);
}
void LireDans(const ValeurTR& v, bool& cible) {
    std::int16_t i = cible ? -1 : 0;
    Convertir(v, i);
    cible = i != 0;
}

ValeurTR ValeurStockee(double v) {
    return v;
}
ValeurTR ValeurStockee(float v) {
    return v;
}
ValeurTR ValeurStockee(std::int16_t v) {
    return v;
}
ValeurTR ValeurStockee(std::int32_t v) {
    return v;
}
ValeurTR ValeurStockee(bool v) {
    return static_cast<std::int16_t>(v ? -1 : 0);
}

void InscrireReglagesRelais(int id_protection, ListeReglages ecrire, ListeReglages lire) {
    if (id_protection >= 1 && id_protection <= NOMBRE_RELAIS)
        listes[static_cast<std::size_t>(id_protection - 1)] = {ecrire, lire};
}

bool EcrireReglagesRelais(Etude& e, MagasinReglages& m) {
    const Listes* l = ListesDe(e.id_protection);
    if (!l || !l->ecrire) return false;
    l->ecrire(e, m);
    return true;
}

bool LireReglagesRelais(Etude& e, MagasinReglages& m) {
    const Listes* l = ListesDe(e.id_protection);
    if (!l || !l->lire) return false;
    l->lire(e, m);
    return true;
}

void MagasinBloc::EcrireValeur(std::int32_t, std::int32_t id_pos, const ValeurTR& valeur) {
    if (id_pos < 0) return;
    const auto i = static_cast<std::size_t>(id_pos);
    if (valeurs_.size() <= i) valeurs_.resize(i + 1);
    valeurs_[i] = valeur;
}

ValeurTR MagasinBloc::LireValeur(std::int32_t, std::int32_t id_pos) {
    if (id_pos < 0 || static_cast<std::size_t>(id_pos) >= valeurs_.size()) return {};
    return valeurs_[static_cast<std::size_t>(id_pos)];
}

namespace {
// The cursor of the store belongs to the study's own save and opening: a block leaves it.
struct CurseurGarde {
    Etude& e;
    std::int32_t position;
    bool fin;
    explicit CurseurGarde(Etude& etude) : e(etude), position(etude.PositionTR), fin(etude.FinTR) {}
    ~CurseurGarde() {
        e.PositionTR = position;
        e.FinTR = fin;
    }
    CurseurGarde(const CurseurGarde&) = delete;
    CurseurGarde& operator=(const CurseurGarde&) = delete;
};
} // namespace

// The line values of a block beside their working variables: the one list of both directions.
template <class F> void ValeursDeLigne(Etude& e, BlocReglages& bloc, F&& paire) {
    paire(e.Kz, bloc.Kz);
    paire(e.Ligne_CRt, bloc.CRt);
    paire(e.Ligne_CRm, bloc.CRm);
    paire(e.RL_eq, bloc.RL_eq);
    paire(e.XL_eq, bloc.XL_eq);
    paire(e.Ligne_pp, bloc.pp);
    paire(e.Ligne_alim, bloc.alim);
    paire(e.Ligne_Tl, bloc.Tl);
}

// The rest of the place's line and the relay's record beside their working variables.
template <class F> void LigneEtRelais(Etude& e, BlocReglages& bloc, F&& paire) {
#define TOURNESOL_PAIRE(type, nom) paire(e.nom, bloc.Ligne.nom);
    TOURNESOL_ETUDE_LIGNE(TOURNESOL_PAIRE)
    TOURNESOL_ETUDE_DERIVEES(TOURNESOL_PAIRE)
#undef TOURNESOL_PAIRE
    paire(e.CRtCalcule, bloc.Ligne.CRtCalcule);
    paire(e.CRmCalcule, bloc.Ligne.CRmCalcule);
}

void SauverRecord(const Etude& e, BlocReglages& bloc) {
    switch (bloc.IdProtection) {
#define TOURNESOL_RELAIS_SAUVER(num, Enregistrement, membre, LISTE)                                \
    case num:                                                                                      \
        bloc.Relais = e.membre;                                                                    \
        break;
        TOURNESOL_RELAIS(TOURNESOL_RELAIS_SAUVER)
#undef TOURNESOL_RELAIS_SAUVER
    default:
        bloc.Relais = std::monostate{};
        break;
    }
}

void RestaurerRecord(Etude& e, const BlocReglages& bloc) {
    switch (bloc.IdProtection) {
#define TOURNESOL_RELAIS_RESTAURER(num, Enregistrement, membre, LISTE)                             \
    case num:                                                                                      \
        if (const auto* r = std::get_if<Enregistrement>(&bloc.Relais)) e.membre = *r;              \
        break;
        TOURNESOL_RELAIS(TOURNESOL_RELAIS_RESTAURER)
#undef TOURNESOL_RELAIS_RESTAURER
    default:
        break;
    }
}

bool SauverReglage(Etude& e, BlocReglages& bloc) {
    CurseurGarde garde(e);
    bloc.Reglages = MagasinBloc{};
    bloc.IdProtection = e.id_protection;
    SauverRecord(e, bloc);
    LigneEtRelais(e, bloc, [](const auto& travail, auto& copie) { copie = travail; });
    ValeursDeLigne(e, bloc, [](const auto& travail, auto& copie) { copie = travail; });
    return EcrireReglagesRelais(e, bloc.Reglages);
}

bool RestaurerReglage(Etude& e, BlocReglages& bloc) {
    CurseurGarde garde(e);
    const int id = e.id_protection;
    e.id_protection = bloc.IdProtection;
    // The place's line and record first; its list over them, as the store would give it back.
    LigneEtRelais(e, bloc, [](auto& travail, const auto& copie) { travail = copie; });
    RestaurerRecord(e, bloc);
    const bool lu = LireReglagesRelais(e, bloc.Reglages);
    e.id_protection = id;
    // The line values last: the relay's list may hold some of them too.
    ValeursDeLigne(e, bloc, [](auto& travail, const auto& copie) { travail = copie; });
    return lu;
}

} // namespace tournesol
