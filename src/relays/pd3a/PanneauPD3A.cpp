#include "relays/pd3a/PanneauPD3A.h"

#include "core/Champ.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "relays/pd3a/CalculPD3A.h"

#include <array>

namespace tournesol {

namespace {

constexpr const char* ZONES = "zones";
constexpr const char* PICK_UP = "Pick up";
constexpr const char* TIMERS = "timers";
constexpr const char* CHK_TYPE1 = "chktype1";
constexpr const char* CHK_TYPE2 = "chktype2";
constexpr const char* CHK_POMPAGE = "chkPompage";

template <class T> Variable Pd3a(T RelaisPD3A::*membre) {
    return Lien(&Etude::PD3A, membre);
}

// A timer typed in milliseconds, within 0 to `max`, down to tens when `dizaines`.
DescriptionChamp Tempo(std::string nom, std::string legende, const char* cadre, Entier16 Etude::*t,
                       double max, bool dizaines) {
    return ChampTempo(std::move(nom), std::move(legende), GroupeFeuille(TIMERS, cadre), t, max,
                      dizaines ? 10.0 : 0.0);
}

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

const std::array<Zone, 4> ZONES_PD3A{{
    {"txtX1_bt", "txtX1_HT", "txtX1reg_BT", "txtX1Reg_HT", "First zone reactance", &Etude::X1_BT,
     &Etude::X1_HT, &Etude::X1reg_BT, &Etude::X1reg_HT},
    {"txtX2_bt", "txtX2_HT", "txtX2reg_BT", "txtX2Reg_HT", "Second zone reactance", &Etude::X2_BT,
     &Etude::X2_HT, &Etude::X2reg_BT, &Etude::X2reg_HT},
    {"txtx3_bt", "txtX3_HT", "txtX3reg_BT", "txtX3Reg_HT", "Forward reactance", &Etude::X3_BT,
     &Etude::X3_HT, &Etude::X3reg_BT, &Etude::X3reg_HT},
    {"txtX4_bt", "txtX4_HT", "txtX4reg_BT", "txtX4Reg_HT", "Backward reactance", &Etude::X4_BT,
     &Etude::X4_HT, &Etude::X4reg_BT, &Etude::X4reg_HT},
}};

std::vector<DescriptionChamp> ChampsDesZones() {
    std::vector<DescriptionChamp> t;
    for (const Zone& z : ZONES_PD3A) {
        // The desired secondary field is written by the panel itself: it shows the limited
        // value after an entry and the primary image after a computation of the zones.
        t.push_back({.Nom = z.souhaiteBT,
                     .Legende = z.legende,
                     .Format = "##0.00",
                     .Colonne = ColonneOhms::Secondaire,
                     .Nature = NatureValeur::Souhaitee,
                     .Groupe = GroupeFeuille(ZONES, "Desired"),
                     .Saisie = true,
                     .Jumeau = z.souhaiteHT});
        t.push_back({.Nom = z.souhaiteHT,
                     .Legende = z.legende,
                     .Format = "#0.00",
                     .Colonne = ColonneOhms::Primaire,
                     .Nature = NatureValeur::Souhaitee,
                     .Groupe = GroupeFeuille(ZONES, "Desired"),
                     .Valeur = Lien(z.xHT)});
    }
    for (const Zone& z : ZONES_PD3A) {
        t.push_back({.Nom = z.regleBT,
                     .Legende = z.legende,
                     .Format = "#0.00",
                     .Colonne = ColonneOhms::Secondaire,
                     .Nature = NatureValeur::Reglee,
                     .Groupe = GroupeFeuille(ZONES, "set"),
                     .Valeur = Lien(z.xregBT),
                     .Jumeau = z.regleHT});
        t.push_back({.Nom = z.regleHT,
                     .Legende = z.legende,
                     .Format = "#0.00",
                     .Colonne = ColonneOhms::Primaire,
                     .Nature = NatureValeur::Reglee,
                     .Groupe = GroupeFeuille(ZONES, "set"),
                     .Valeur = Lien(z.xregHT)});
    }
    const std::string roues = GroupeFeuille(ZONES, "Parameters for zone setting");
    t.push_back(ChampAffiche("txtk1", "K1: ", "#0", roues, Pd3a(&RelaisPD3A::K1)));
    t.push_back(ChampAffiche("txtm1", "m1: ", "#0", roues, Pd3a(&RelaisPD3A::m1)));
    t.push_back(ChampAffiche("txtK2", "K2: ", "#0", roues, Pd3a(&RelaisPD3A::K2)));
    // Rewritten for the 6562 alone.
    t.push_back(ChampAffiche("txtm2", "m2: ", "#0", roues, {}, "(PD3A 6562 only)"));
    t.push_back(ChampAffiche("txtK3", "K3: ", "#0", roues, Pd3a(&RelaisPD3A::K3)));
    t.push_back(ChampAffiche("txtk4", "K4: ", "#0", roues, Pd3a(&RelaisPD3A::K4)));
    t.push_back({.Nom = "lblRemarque",
                 .Legende = "(les relations entre la réactannce X1 d'une part, K1 et m1 d'autre "
                            "part, ... sont données par les tableaux de la notice d'utilisation )",
                 .Groupe = roues,
                 .Genre = GenreChamp::Etiquette});
    return t;
}

std::vector<DescriptionChamp> ChampsDeMiseEnRoute() {
    const std::string resistance = GroupeFeuille(PICK_UP, "Parameters for pick up setting");
    std::vector<DescriptionChamp> t{
        {.Nom = "Txtrd_bt",
         .Legende = "(resistance BT = r d * 5 / In secondary ) desired",
         .Format = "##0.00",
         .Min = 0.0,
         .Max = 80.0,
         .Colonne = ColonneOhms::Secondaire,
         .Nature = NatureValeur::Souhaitee,
         .Groupe = resistance,
         .Saisie = true,
         .Valeur = Lien(&Etude::R_BT),
         .Jumeau = "txtRd_HT"},
        {.Nom = "txtRd_HT",
         .Legende = "desired",
         .Format = "0.00",
         .Colonne = ColonneOhms::Primaire,
         .Nature = NatureValeur::Souhaitee,
         .Groupe = resistance,
         .Valeur = Lien(&Etude::R_HT)},
        {.Nom = "txtrreg_BT",
         .Legende = "set",
         .Format = "##0",
         .Colonne = ColonneOhms::Secondaire,
         .Nature = NatureValeur::Reglee,
         .Groupe = resistance,
         .Valeur = Lien(&Etude::Rreg_BT),
         .Jumeau = "txtrreg_HT"},
        {.Nom = "txtrreg_HT",
         .Legende = "set",
         .Format = "#0",
         .Colonne = ColonneOhms::Primaire,
         .Nature = NatureValeur::Reglee,
         .Groupe = resistance,
         .Valeur = Lien(&Etude::Rreg_HT)},
        ChampAffiche("txtRd", "Rd (integer from 1 to 11) =", "#0", resistance,
                     Pd3a(&RelaisPD3A::Rd)),
        ChampAffiche("txtrsurx", "Ratio R / X", "#0.##", resistance, Pd3a(&RelaisPD3A::RsurX)),
    };
    const std::string terre = GroupeFeuille(PICK_UP, "Earth factor and angle");
    t.push_back(
        ChampAffiche("txtko1", "Ko1 (integer from 0 to 9) =", "0", terre, Lien(&Etude::Ko1)));
    t.push_back(ChampAffiche("txtko2", "Ko2 (10; 20; ou 30) =", "#0", terre, Lien(&Etude::Ko2)));
    t.push_back(ChampAffiche("txtko_reg", "ko set = 0.1 * (Ko1 + Ko2) =", "0.0", terre,
                             Lien(&Etude::ko_reg)));
    t.push_back(ChampAffiche("txtpos_teta", "Position teta (integer from 1 to 9)", "0", terre,
                             Pd3a(&RelaisPD3A::PosTeta)));
    DescriptionChamp teta = ChampAffiche("Txtteta", "40 + 5 * position teta = θ = ", "#0", terre,
                                         Lien(&Etude::teta), "degrees");
    teta.Saisie = true;
    t.push_back(teta);
    t.push_back(ChampAffiche(
        "txtir_ht", "threshold Ir = 0.24 * In =", "###0", terre,
        {[](const Etude& e) { return 0.24 * e.Ligne_Ip; }, [](Etude&, double) {}}, "A  HT"));
    t.push_back({.Nom = CHK_POMPAGE,
                 .Legende = "Out of step",
                 .Groupe = GroupeFeuille(PICK_UP, "Out of step"),
                 .Genre = GenreChamp::Case});
    return t;
}

std::vector<DescriptionChamp> ChampsDesTempos() {
    return {
        Tempo("txtt1", "T1 =", "Short line first step timer", &Etude::T1, 999.0, false),
        ChampAffiche("txtTA(0)", "(T1) =", "00",
                     GroupeFeuille(TIMERS, "Short line first step timer"), Pd3a(&RelaisPD3A::TA)),
        ChampAffiche("txtTA(1)", " C = ", "#0",
                     GroupeFeuille(TIMERS, "Short line first step timer"), Pd3a(&RelaisPD3A::C1)),
        Tempo("txtt2", "T2 =", "Quick second step timer", &Etude::T2, 999.0, true),
        ChampAffiche("txtTB", "(T2) =", "00", GroupeFeuille(TIMERS, "Quick second step timer"),
                     Pd3a(&RelaisPD3A::TB)),
        Tempo("txtt3", "T3=", "Slow second step timer", &Etude::T3, 999.0, true),
        ChampAffiche("txtTC", "(T3) =", "00", GroupeFeuille(TIMERS, "Slow second step timer"),
                     Pd3a(&RelaisPD3A::TC)),
        Tempo("txtt4", "T4 =", "Third and fourth step timer", &Etude::T4, 9990.0, true),
        ChampAffiche("txtTd", "(T4) =", "00", GroupeFeuille(TIMERS, "Third and fourth step timer"),
                     Pd3a(&RelaisPD3A::TD)),
    };
}

// Every field of the panel, in the order of its sheets.
const TableChamps& ChampsPD3A() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t{{.Nom = CHK_TYPE1,
                                         .Legende = "PD3A6062",
                                         .Groupe = GroupeFeuille(ZONES, "Choice of relay"),
                                         .Genre = GenreChamp::Option,
                                         .Valeur = Pd3a(&RelaisPD3A::Type6062)},
                                        {.Nom = CHK_TYPE2,
                                         .Legende = "PD3A6562",
                                         .Groupe = GroupeFeuille(ZONES, "Choice of relay"),
                                         .Genre = GenreChamp::Option,
                                         .Valeur = Pd3a(&RelaisPD3A::Type6562)}};
        for (auto&& partie : {ChampsDesZones(), ChampsDeMiseEnRoute(), ChampsDesTempos(),
                              ChampsTeleaction(GroupeFeuille(TIMERS, "Signalling scheme"))})
            t.insert(t.end(), partie.begin(), partie.end());
        return TableChamps(std::move(t));
    }();
    return table;
}

} // namespace

PanneauPD3A::PanneauPD3A(Etude& e, Dialogue& d) : PanneauProtection(e, d, ID_PD3A) {
    DeclarerOnglets({ZONES, PICK_UP, TIMERS});
    DeclarerChamps(ChampsPD3A());
    DeclarerTeleaction();
    DeclarerAvisCentrale(AvisCentrale("PD3A"));
    DeclarerEtapes({{"Zones", [this] { CalculZones(); }},
                    {"Resistance", [this] { CalculResistancePD3A(e_, d_); }},
                    {"Reglages", [this] { CalculReglagesPD3A(e_); }},
                    {"Diag", [this] { CalculDiagPD3A(e_); }}});
}

CadrePlan PanneauPD3A::CadreDuPlan() {
    return CadrePlan::Carre(DemiLargeurPD3A(e_));
}

void PanneauPD3A::LireOptions() {
    RelaisPD3A& r = e_.PD3A;
    // A study that never chose a variant is a 6062, the first of the frame.
    if (!r.Type6062 && !r.Type6562) r.Type6062 = true;
    if (r.Type6062 && r.Type6562) r.Type6562 = false;
    Trouver(CHK_TYPE1)->Valeur = r.Type6062;
    Trouver(CHK_TYPE2)->Valeur = r.Type6562;
    Trouver(CHK_POMPAGE)->Valeur = e_.Pompage; // the study's, in "Return" too
}

void PanneauPD3A::LireType() {
    e_.PD3A.Type6062 = Trouver(CHK_TYPE1)->Valeur;
    e_.PD3A.Type6562 = Trouver(CHK_TYPE2)->Valeur;
}

void PanneauPD3A::CalculZones() {
    LireType();
    e_.Pompage = Trouver(CHK_POMPAGE)->Valeur;
    CalculZonesPD3A(e_);
    zonesSaisies_ = false;
}

void PanneauPD3A::SaisieZones() {
    LireType();
    for (const Zone& z : ZONES_PD3A) {
        e_.*z.xBT = ChampLire(*Trouver(z.souhaiteBT));
        e_.*z.xHT = Verifier(e_.Kz * (e_.*z.xBT));
    }
    ArrondirZonesPD3A(e_);
    zonesSaisies_ = true;
    RecalculDepuis("Resistance");
}

void PanneauPD3A::ApresSaisie(const DescriptionChamp& champ, double /*valeur*/) {
    const std::string& nom = champ.Nom;
    for (const Zone& z : ZONES_PD3A)
        if (nom == z.souhaiteBT) {
            SaisieZones();
            return;
        }
    if (nom == "Txtrd_bt") {
        ResistanceSaisiePD3A(e_);
        RecalculDepuis("Reglages");
    } else if (nom == "Txtteta") {
        AngleSaisiPD3A(e_);
        AfficherChamps();
    } else if (nom == "txtt1") {
        TemporisationT1PD3A(e_);
        AfficherChamps();
    } else if (nom == "txtt2" || nom == "txtt3" || nom == "txtt4") {
        TemporisationsPD3A(e_);
        AfficherChamps();
    }
}

void PanneauPD3A::ApresClic(const std::string& nom) {
    if (nom == CHK_TYPE1 || nom == CHK_TYPE2) {
        RecalculOnglet(0);
    } else if (nom == CHK_POMPAGE) {
        // The bands and the reach follow at once, in every mode; the fields wait for the next
        // change of sheet.
        const bool pompage = Trouver(CHK_POMPAGE)->Valeur;
        if (pompage != e_.Pompage) {
            e_.Pompage = pompage;
            BandesPompagePD3A(e_);
            ResistanceTransitPD3A(e_, d_);
        }
    }
}

void PanneauPD3A::Afficher() {
    AfficherChamps();
    for (const Zone& z : ZONES_PD3A)
        ChampEcrire(*Trouver(z.souhaiteBT), zonesSaisies_ ? e_.*z.xBT : Div(e_.*z.xHT, e_.Kz));
    if (e_.PD3A.Type6562) ChampEcrire(*Trouver("txtm2"), e_.PD3A.m2);
    Trouver(CHK_POMPAGE)->Valeur = e_.Pompage;
    Trouver(CHK_TYPE1)->Valeur = e_.PD3A.Type6062;
    Trouver(CHK_TYPE2)->Valeur = e_.PD3A.Type6562;
}

} // namespace tournesol
