#include "relays/rel100/PanneauREL100.h"

#include "core/Etude.h"
#include "relays/rel100/CalculREL100.h"

#include <array>
#include <string>

namespace tournesol {

namespace {

constexpr const char* ZONES = "&Zones";
constexpr const char* RESISTANCE = "&Resistance";
constexpr const char* TEMPOS = "&Timers";

struct Zone {
    const char* souhaiteBT;
    const char* souhaiteHT;
    const char* regleBT;
    const char* regleHT;
    const char* legende;
    double Etude::*xBT;
    double Etude::*xHT;
    double Etude::*xregBT;
    double Etude::*xregHT;
};

const std::array<Zone, 4> ZONES_REL100{{
    {"txtX1_bt", "txtX1_HT", "txtX1reg_BT", "txtX1reg_HT", "X1 = First zone reactance",
     &Etude::X1_BT, &Etude::X1_HT, &Etude::X1reg_BT, &Etude::X1reg_HT},
    {"txtX2_bt", "txtX2_HT", "txtX2reg_BT", "txtX2reg_HT", "X2 = Second zone reactance",
     &Etude::X2_BT, &Etude::X2_HT, &Etude::X2reg_BT, &Etude::X2reg_HT},
    {"txtX3_bt", "txtX3_HT", "txtX3reg_BT", "txtX3reg_HT", "X3 = Forward pick up reactance",
     &Etude::X3_BT, &Etude::X3_HT, &Etude::X3reg_BT, &Etude::X3reg_HT},
    {"txtX4_bt", "txtX4_HT", "txtX4reg_BT", "txtX4reg_HT", "X4 = Backward pick up reactance",
     &Etude::X4_BT, &Etude::X4_HT, &Etude::X4reg_BT, &Etude::X4reg_HT},
}};

// A desired secondary value typed on the panel, its primary image beside it.
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
                          NatureValeur nature) {
    return {.Nom = nom,
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

std::vector<DescriptionChamp> ChampsZones() {
    std::vector<DescriptionChamp> t;
    const std::string souhaites = GroupeFeuille(ZONES, "Desired values");
    const std::string regles = GroupeFeuille(ZONES, "Set values");
    for (const Zone& z : ZONES_REL100) {
        t.push_back(Souhaite(z.souhaiteBT, z.legende, souhaites, Lien(z.xBT), z.souhaiteHT));
        t.push_back(Primaire(z.souhaiteHT, souhaites, Lien(z.xHT), NatureValeur::Souhaitee));
    }
    for (const Zone& z : ZONES_REL100) {
        t.push_back(Regle(z.regleBT, z.legende, regles, Lien(z.xregBT), z.regleHT));
        t.push_back(Primaire(z.regleHT, regles, Lien(z.xregHT), NatureValeur::Reglee));
    }
    t.push_back(
        ChampEtiquette("lblPasX",
                       "Reactances from 0.2 to 150 Ω / In, in steps of 0.05 Ω / In; X1 set below "
                       "its desired value, the others above",
                       regles));
    return t;
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
        ChampEtiquette("lblPasR", "From 0.5 to 150 Ω / In, in steps of 0.1 Ω / In, set below",
                       portee),
        {.Nom = "txtrsurx",
         .Legende = "Ratio R / X1",
         .Format = "#0.##",
         .Groupe = portee,
         .Valeur = Lien(&Etude::REL100, &RelaisREL100::RsurX)},
    };
    const auto angle = ChampsAngleEtKo(RESISTANCE, GAMME_ANGLE_REL100, GAMME_KO_REL100,
                                       "Characteristic angle (45 to 85, steps of 5)",
                                       "Earth factor ko (0 to 2.5, steps of 0.05)", "#0.00");
    t.insert(t.end(), angle.begin(), angle.end());
    t.push_back(ChampEtiquette("lblPompage",
                               "The external out of step zone is the pick up enlarged 1.25 times",
                               GroupeFeuille(RESISTANCE, "Out of step")));
    return t;
}

// Every field of the panel, in the order of its sheets, under the relay's label.
const TableChamps& ChampsREL100() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t{ChampEtiquette("lblRelais", PanneauREL100::LIBELLE, "")};
        for (auto&& partie : {ChampsZones(), ChampsResistance(),
                              ChampsTemposEtTeleaction(
                                  TEMPOS,
                                  {"T1 = first zone timer", "T2 = second zone timer",
                                   "T3 = forward pick up timer", "T4 = backward pick up timer"},
                                  9990.0, 10.0)})
            t.insert(t.end(), partie.begin(), partie.end());
        return TableChamps(std::move(t));
    }();
    return table;
}

} // namespace

PanneauREL100::PanneauREL100(Etude& e, Dialogue& d) : PanneauProtection(e, d, ID_REL100) {
    DeclarerOnglets({ZONES, RESISTANCE, TEMPOS});
    DeclarerChamps(ChampsREL100());
    DeclarerTeleaction();
    DeclarerEtapes({{"Zones", [this] { CalculZonesREL100(e_); }},
                    {"Resistance", [this] { CalculResistanceREL100(e_, d_); }},
                    {"Tempos", [this] { TemporisationsAuxDizaines(e_); }},
                    {"Diag", [this] { CalculDiagREL100(e_); }}});
}

CadrePlan PanneauREL100::CadreDuPlan() {
    return CadrePlan::Carre(DemiLargeurREL100(e_));
}

void PanneauREL100::ApresSaisie(const DescriptionChamp& champ, double /*valeur*/) {
    const std::string& nom = champ.Nom;
    for (const Zone& z : ZONES_REL100)
        if (nom == z.souhaiteBT) {
            ArrondirZonesREL100(e_);
            ArrondirResistanceREL100(e_);
            RecalculDepuis("Tempos");
            return;
        }
    if (nom == "txtR_bt") {
        ArrondirResistanceREL100(e_);
        RecalculDepuis("Tempos");
    }
}

std::vector<DescriptionChamp> ChampsAngleEtKo(const std::string& feuille, const GammeReglage& angle,
                                              const GammeReglage& ko, std::string legendeAngle,
                                              std::string legendeKo, std::string formatKo) {
    const std::string cadre = GroupeFeuille(feuille, "Characteristic angle and earth factor");
    return {{.Nom = "txtteta",
             .Legende = std::move(legendeAngle),
             .Unite = "degrees",
             .Format = "#0",
             .Min = angle.Min,
             .Max = angle.Max,
             .Groupe = cadre,
             .Saisie = true,
             .Valeur = Lien(&Etude::teta),
             .Pas = angle.Pas},
            {.Nom = "txtko",
             .Legende = std::move(legendeKo),
             .Format = std::move(formatKo),
             .Min = ko.Min,
             .Max = ko.Max,
             .Groupe = cadre,
             .Saisie = true,
             .Valeur = Lien(&Etude::ko_reg),
             .Pas = ko.Pas}};
}

} // namespace tournesol
