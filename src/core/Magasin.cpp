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

} // namespace tournesol
