#include "relays/rez1/PanneauREZ1.h"

#include "core/Etude.h"
#include "relays/rel100/PanneauREL100.h"
#include "relays/rez1/CalculREZ1.h"

#include <array>
#include <string>

namespace tournesol {

namespace {

constexpr const char* ZONES = "&Zones";
constexpr const char* POMPAGE = "&Out of step";
constexpr const char* RESISTANCE = "&Resistance";
constexpr const char* TEMPOS = "&Timers";

template <class T> Variable Rez1(T RelaisREZ1::*membre) {
    return Lien(&Etude::REZ1, membre);
}

struct Zone {
    const char* souhaiteBT;
    const char* souhaiteHT;
    const char* regleBT;
    const char* regleHT;
    const char* legende;
    Variable xBT, xHT, xregBT, xregHT;
};

const std::array<Zone, 4>& ZonesREZ1() {
    static const std::array<Zone, 4> zones{{
        {"txtX1_bt", "txtX1_HT", "txtX1reg_BT", "txtX1reg_HT", "X1 = First zone reactance",
         Lien(&Etude::X1_BT), Lien(&Etude::X1_HT), Lien(&Etude::X1reg_BT), Lien(&Etude::X1reg_HT)},
        {"txtX2_bt", "txtX2_HT", "txtX2reg_BT", "txtX2reg_HT", "X2 = Second zone reactance",
         Lien(&Etude::X2_BT), Lien(&Etude::X2_HT), Lien(&Etude::X2reg_BT), Lien(&Etude::X2reg_HT)},
        {"txtX3_bt", "txtX3_HT", "txtX3reg_BT", "txtX3reg_HT", "X3 = Third zone reactance",
         Lien(&Etude::X3_BT), Lien(&Etude::X3_HT), Lien(&Etude::X3reg_BT), Lien(&Etude::X3reg_HT)},
        {"txtX4_bt", "txtX4_HT", "txtX4reg_BT", "txtX4reg_HT", "Xar = Backward reactance",
         Lien(&Etude::X4_BT), Lien(&Etude::X4_HT), Lien(&Etude::X4reg_BT), Lien(&Etude::X4reg_HT)},
    }};
    return zones;
}

DescriptionChamp Souhaite(const char* nom, const char* legende, const std::string& groupe,
                          Variable v, const char* jumeau) {
    return {.Nom = nom,
            .Legende = legende,
            .Format = "##0.00",
            .Colonne = ColonneOhms::Secondaire,
            .Nature = NatureValeur::Souhaitee,
            .Groupe = groupe,
            .Saisie = true,
            .Valeur = std::move(v),
            .Jumeau = jumeau};
}

DescriptionChamp Primaire(const char* nom, const std::string& groupe, Variable v,
                          NatureValeur nature, const char* legende = "") {
    return {.Nom = nom,
            .Legende = legende,
            .Format = "###0.00",
            .Colonne = ColonneOhms::Primaire,
            .Nature = nature,
            .Groupe = groupe,
            .Valeur = std::move(v)};
}

DescriptionChamp Regle(const char* nom, const char* legende, const std::string& groupe, Variable v,
                       const char* jumeau) {
    return {.Nom = nom,
            .Legende = legende,
            .Format = "##0.00",
            .Colonne = ColonneOhms::Secondaire,
            .Nature = NatureValeur::Reglee,
            .Groupe = groupe,
            .Valeur = std::move(v),
            .Jumeau = jumeau};
}

// A value the relay works out from the others, shown only.
Variable Calculee(double (*f)(const Etude&)) {
    return {f, [](Etude&, double) {}};
}

std::vector<DescriptionChamp> ChampsZones() {
    std::vector<DescriptionChamp> t;
    const std::string souhaites = GroupeFeuille(ZONES, "Desired values");
    const std::string regles = GroupeFeuille(ZONES, "Set values");
    for (const Zone& z : ZonesREZ1()) {
        t.push_back(Souhaite(z.souhaiteBT, z.legende, souhaites, z.xBT, z.souhaiteHT));
        t.push_back(Primaire(z.souhaiteHT, souhaites, z.xHT, NatureValeur::Souhaitee));
    }
    for (const Zone& z : ZonesREZ1()) {
        t.push_back(Regle(z.regleBT, z.legende, regles, z.xregBT, z.regleHT));
        t.push_back(Primaire(z.regleHT, regles, z.xregHT, NatureValeur::Reglee));
    }
    t.push_back(
        ChampEtiquette("lblPasX",
                       "Reactances from 0.1 to 200 Ω / In, in steps of 0.1 Ω / In; X1 set below "
                       "its desired value, the others above",
                       regles));
    return t;
}

std::vector<DescriptionChamp> ChampsPompage() {
    const std::string interne = GroupeFeuille(POMPAGE, "Internal out of step zone");
    const std::string externe = GroupeFeuille(POMPAGE, "External out of step zone");
    return {
        Souhaite("txtZpi_bt", "Zpi = Internal forward and backward reach (desired)", interne,
                 Rez1(&RelaisREZ1::Zpi_BT), "txtZpi_HT"),
        Primaire("txtZpi_HT", interne, Rez1(&RelaisREZ1::Zpi_HT), NatureValeur::Souhaitee),
        Regle("txtZpireg_BT", "Zpi = Internal forward and backward reach (set)", interne,
              Rez1(&RelaisREZ1::Zpireg_BT), "txtZpireg_HT"),
        Primaire("txtZpireg_HT", interne, Rez1(&RelaisREZ1::Zpireg_HT), NatureValeur::Reglee),
        ChampEtiquette(
            "lblZpi", "Zpi at least 1.15 times the third zone and the backward reactance", interne),
        Primaire("txtZpe_HT", externe,
                 Calculee([](const Etude& e) { return FACTEUR_EXTERNE_REZ1 * e.REZ1.Zpireg_HT; }),
                 NatureValeur::Reglee, "Zpe = External reach = 1.25 Zpi"),
        Primaire("txtRpe_HT", externe,
                 Calculee([](const Etude& e) { return FACTEUR_EXTERNE_REZ1 * e.REZ1.Rpi_HT; }),
                 NatureValeur::Reglee, "Rpe = External resistance = 1.25 Rpi"),
    };
}

std::vector<DescriptionChamp> ChampsResistance() {
    const std::string portee = GroupeFeuille(RESISTANCE, "Resistive reach");
    std::vector<DescriptionChamp> t{
        Souhaite("txtR_bt", "R = Pick up resistance (desired)", portee, Lien(&Etude::R_BT),
                 "txtR_HT"),
        Primaire("txtR_HT", portee, Lien(&Etude::R_HT), NatureValeur::Souhaitee),
        Regle("txtRreg_BT", "R = Pick up resistance (set)", portee, Lien(&Etude::Rreg_BT),
              "txtRreg_HT"),
        Primaire("txtRreg_HT", portee, Lien(&Etude::Rreg_HT), NatureValeur::Reglee),
        ChampEtiquette("lblPasR", "From 0.5 to 200 Ω / In, in steps of 0.5 Ω / In, set below",
                       portee),
        Primaire("txtRpi_HT", portee, Rez1(&RelaisREZ1::Rpi_HT), NatureValeur::Reglee,
                 "Rpi = Internal out of step resistance = 1.15 R"),
        {.Nom = "txtrsurx",
         .Legende = "Ratio R / X1",
         .Format = "#0.##",
         .Groupe = portee,
         .Valeur = Rez1(&RelaisREZ1::RsurX)},
    };
    const auto angle = ChampsAngleEtKo(RESISTANCE, GAMME_ANGLE_REZ1, GAMME_KO_REZ1,
                                       "Characteristic angle (50 to 85, steps of 5)",
                                       "Earth factor ko (0 to 3, steps of 0.1)", "#0.0");
    t.insert(t.end(), angle.begin(), angle.end());
    return t;
}

// Every field of the panel, in the order of its sheets, under the relay's label.
const TableChamps& ChampsREZ1() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t{ChampEtiquette("lblRelais", PanneauREZ1::LIBELLE, "")};
        for (auto&& partie :
             {ChampsZones(), ChampsPompage(), ChampsResistance(),
              ChampsTemposEtTeleaction(TEMPOS,
                                       {"T1 = first zone timer", "T2 = second zone timer",
                                        "T3 = third zone timer", "T4 = backward zone timer"},
                                       9990.0, 10.0)})
            t.insert(t.end(), partie.begin(), partie.end());
        return TableChamps(std::move(t));
    }();
    return table;
}

} // namespace

PanneauREZ1::PanneauREZ1(Etude& e, Dialogue& d) : PanneauProtection(e, d, ID_REZ1) {
    DeclarerOnglets({ZONES, POMPAGE, RESISTANCE, TEMPOS});
    DeclarerChamps(ChampsREZ1());
    DeclarerTeleaction();
    DeclarerEtapes({{"Zones", [this] { CalculZonesREZ1(e_); }},
                    {"Pompage", [this] { CalculPompageREZ1(e_); }},
                    {"Resistance", [this] { CalculResistanceREZ1(e_, d_); }},
                    {"Tempos", [this] { TemporisationsAuxDizaines(e_); }},
                    {"Diag", [this] { CalculDiagREZ1(e_); }}});
}

CadrePlan PanneauREZ1::CadreDuPlan() {
    return CadrePlan::Carre(DemiLargeurREZ1(e_));
}

void PanneauREZ1::ApresSaisie(const DescriptionChamp& champ, double /*valeur*/) {
    const std::string& nom = champ.Nom;
    bool reactance = false;
    for (const Zone& z : ZonesREZ1())
        reactance = reactance || nom == z.souhaiteBT;
    if (reactance) {
        ArrondirReactances(e_, GAMME_X_REZ1);
        ArrondirResistanceREZ1(e_);
    } else if (nom == "txtZpi_bt") {
        ArrondirPompageREZ1(e_);
    } else if (nom == "txtR_bt") {
        ArrondirResistanceREZ1(e_);
    } else {
        return;
    }
    RecalculDepuis("Tempos");
}

} // namespace tournesol
