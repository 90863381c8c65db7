#include "relays/epac/PanneauEPAC.h"

#include "core/Erreurs.h"
#include "core/Etude.h"
#include "relays/epac/CalculEPAC.h"

#include <array>

namespace tournesol {

namespace {

constexpr const char* ZONES = "zones";
constexpr const char* PICK_UP = "Pick up";
constexpr const char* TIMERS = "timers";
constexpr const char* CHK_POMPAGE = "chkPompage";

// A pair of fields in secondary and primary ohms: the secondary one shows the variable, its
// primary twin the image by Kz.
void Paire(std::vector<DescriptionChamp>& t, const char* bt, const char* ht, std::string legende,
           NatureValeur nature, const std::string& groupe, Variable v, bool saisie) {
    // A desired reach is read to the thousandth, finer than the relay's steps.
    t.push_back({.Nom = bt,
                 .Legende = legende,
                 .Format = saisie ? "##0.000" : "##0.00",
                 .Colonne = ColonneOhms::Secondaire,
                 .Nature = nature,
                 .Groupe = groupe,
                 .Saisie = saisie,
                 .Valeur = std::move(v),
                 .Jumeau = ht});
    t.push_back({.Nom = ht,
                 .Legende = std::move(legende),
                 .Format = "###0.00",
                 .Colonne = ColonneOhms::Primaire,
                 .Nature = nature,
                 .Groupe = groupe});
}

struct Zone {
    const char* souhaiteBT;
    const char* souhaiteHT;
    const char* regleBT;
    const char* regleHT;
    const char* legende;
    double Etude::*xBT;
    double Etude::*xregBT;
};

const std::array<Zone, 4> ZONES_EPAC{{
    {"txtX1_bt", "txtX1_HT", "txtX1reg_BT", "txtX1reg_HT", "First zone reactance X1", &Etude::X1_BT,
     &Etude::X1reg_BT},
    {"txtX2_bt", "txtX2_HT", "txtX2reg_BT", "txtX2reg_HT", "Second zone reactance X2",
     &Etude::X2_BT, &Etude::X2reg_BT},
    {"txtX3_bt", "txtX3_HT", "txtX3reg_BT", "txtX3reg_HT", "Forward reactance X3", &Etude::X3_BT,
     &Etude::X3reg_BT},
    {"txtX4_bt", "txtX4_HT", "txtX4reg_BT", "txtX4reg_HT", "Backward reactance X4", &Etude::X4_BT,
     &Etude::X4reg_BT},
}};

DescriptionChamp Nombre(std::string nom, std::string legende, std::string format,
                        std::string groupe, Variable v, std::string unite = {}) {
    DescriptionChamp d;
    d.Nom = std::move(nom);
    d.Legende = std::move(legende);
    d.Unite = std::move(unite);
    d.Format = std::move(format);
    d.Groupe = std::move(groupe);
    d.Valeur = std::move(v);
    return d;
}

DescriptionChamp Saisi(DescriptionChamp d, double min, double max, double pas,
                       ModeArrondi arrondi) {
    d.Min = min;
    d.Max = max;
    d.Pas = pas;
    d.Arrondi = arrondi;
    d.Saisie = true;
    return d;
}

std::vector<DescriptionChamp> ChampsDesZones() {
    std::vector<DescriptionChamp> t;
    for (const Zone& z : ZONES_EPAC)
        Paire(t, z.souhaiteBT, z.souhaiteHT, z.legende, NatureValeur::Souhaitee,
              GroupeFeuille(ZONES, "Desired"), Lien(z.xBT), true);
    for (const Zone& z : ZONES_EPAC)
        Paire(t, z.regleBT, z.regleHT, z.legende, NatureValeur::Reglee,
              GroupeFeuille(ZONES, "set (relay parameters)"), Lien(z.xregBT), false);
    t.push_back({.Nom = "lblPas",
                 .Legende = "Reaches from 0.05 to 50 ohms by steps of 0.01 ohm for In = 5 A "
                            "(times 5 for In = 1 A); X1 rounded down, X2, X3 and X4 up",
                 .Groupe = GroupeFeuille(ZONES, "set (relay parameters)"),
                 .Genre = GenreChamp::Etiquette});
    return t;
}

std::vector<DescriptionChamp> ChampsDeMiseEnRoute() {
    const std::string resistance = GroupeFeuille(PICK_UP, "Resistive reach");
    std::vector<DescriptionChamp> t;
    // Its range follows the rated current: the computation keeps it.
    DescriptionChamp r = Nombre("Txtrd_bt", "Resistance per loop, desired", "##0.00", resistance,
                                Lien(&Etude::R_BT));
    r.Colonne = ColonneOhms::Secondaire;
    r.Nature = NatureValeur::Souhaitee;
    r.Min = 0.0;
    r.Saisie = true;
    r.Jumeau = "txtRd_HT";
    t.push_back(r);
    t.push_back({.Nom = "txtRd_HT",
                 .Legende = "Resistance per loop, desired",
                 .Format = "###0.00",
                 .Colonne = ColonneOhms::Primaire,
                 .Nature = NatureValeur::Souhaitee,
                 .Groupe = resistance});
    Paire(t, "txtrreg_BT", "txtrreg_HT", "Resistance per loop, set", NatureValeur::Reglee,
          resistance, Lien(&Etude::Rreg_BT), false);
    t.push_back(Nombre("txtrsurx", "Ratio R / X1", "#0.##", resistance,
                       Lien(&Etude::EPAC, &RelaisEPAC::RsurX)));
    const std::string angle = GroupeFeuille(PICK_UP, "Earth factor and angle");
    t.push_back(Saisi(Nombre("txtko_reg", "Earth factor ko =", "0.00", angle, Lien(&Etude::ko_reg)),
                      0.0, KO_MAX_EPAC, 0.01, ModeArrondi::Proche));
    t.push_back(Saisi(
        Nombre("Txtteta", "Angle of the sides θ = ", "#0", angle, Lien(&Etude::teta), "degrees"),
        TETA_MIN_EPAC, TETA_MAX_EPAC, 1.0, ModeArrondi::Proche));
    t.push_back({.Nom = CHK_POMPAGE,
                 .Legende = "Out of step",
                 .Groupe = GroupeFeuille(PICK_UP, "Out of step"),
                 .Genre = GenreChamp::Case,
                 .Valeur = Lien(&Etude::Pompage)});
    t.push_back(Nombre("txtBandeX", "Out of step band along X", "###0.00",
                       GroupeFeuille(PICK_UP, "Out of step"),
                       Lien(&Etude::EPAC, &RelaisEPAC::BandeX), UNITE_PRIMAIRE));
    t.push_back(Nombre("txtBandeR", "Out of step band along R", "###0.00",
                       GroupeFeuille(PICK_UP, "Out of step"),
                       Lien(&Etude::EPAC, &RelaisEPAC::BandeR), UNITE_PRIMAIRE));
    return t;
}

const TableChamps& ChampsEPAC() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t;
        for (auto&& partie : {ChampsDesZones(), ChampsDeMiseEnRoute(),
                              ChampsTemposEtTeleaction(TIMERS,
                                                       {"First zone T1 =", "Second zone T2 =",
                                                        "Third zone T3 =", "Backward zone T4 ="},
                                                       T_MAX_EPAC, 10.0)})
            t.insert(t.end(), partie.begin(), partie.end());
        return TableChamps(std::move(t));
    }();
    return table;
}

} // namespace

PanneauEPAC::PanneauEPAC(Etude& e, Dialogue& d) : PanneauProtection(e, d, ID_EPAC) {
    DeclarerOnglets({ZONES, PICK_UP, TIMERS});
    DeclarerChamps(ChampsEPAC());
    DeclarerTeleaction();
    DeclarerAvisCentrale(AvisCentrale("EPAC"));
    DeclarerEtapes({{"Zones", [this] { CalculZonesEPAC(e_); }},
                    {"Resistance", [this] { CalculResistanceEPAC(e_, d_); }},
                    {"Reglages", [this] { CalculReglagesEPAC(e_); }},
                    {"Diag", [this] { CalculDiagEPAC(e_); }}});
}

CadrePlan PanneauEPAC::CadreDuPlan() {
    return CadrePlan::Carre(DemiLargeurEPAC(e_));
}

void PanneauEPAC::ApresSaisie(const DescriptionChamp& champ, double /*valeur*/) {
    const std::string& nom = champ.Nom;
    for (const Zone& z : ZONES_EPAC)
        if (nom == z.souhaiteBT) {
            ArrondirZonesEPAC(e_);
            RecalculDepuis("Resistance");
            return;
        }
    if (nom == "Txtrd_bt") {
        ResistanceSaisieEPAC(e_);
        RecalculDepuis("Reglages");
    }
}

void PanneauEPAC::ApresClic(const std::string& nom) {
    if (nom == CHK_POMPAGE) {
        // The bands follow the option in every mode, and the reach with them in "Return".
        BandesPompageEPAC(e_);
        RecalculDepuis("Resistance");
    }
}

} // namespace tournesol
