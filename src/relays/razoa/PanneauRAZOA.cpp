#include "relays/razoa/PanneauRAZOA.h"

#include "core/Etude.h"
#include "relays/razoa/CalculRAZOA.h"

#include <array>

namespace tournesol {

namespace {

constexpr const char* ZONES = "Zones";
constexpr const char* PICK_UP = "pick up";
constexpr const char* OUT_OF_STEP = "out of step";
constexpr const char* OTHERS = "Others";
constexpr const char* TIMERS = "Timers";

template <class T> Variable Razoa(T RelaisRAZOA::*membre) {
    return Lien(&Etude::RAZOA, membre);
}

// A value the user may type, within its range.
DescriptionChamp Saisi(std::string nom, std::string legende, std::string format, std::string groupe,
                       Variable v, double min, double max) {
    DescriptionChamp d = ChampAffiche(std::move(nom), std::move(legende), std::move(format),
                                      std::move(groupe), std::move(v));
    d.Min = min;
    d.Max = max;
    d.Saisie = true;
    return d;
}

// An impedance in secondary ohms and its primary image beside it.
void Impedance(std::vector<DescriptionChamp>& t, std::string nom, std::string jumeau,
               std::string legende, const std::string& groupe, Variable v, NatureValeur nature,
               bool saisie) {
    DescriptionChamp bt{.Nom = std::move(nom),
                        .Legende = legende,
                        .Format = "##0.00",
                        .Colonne = ColonneOhms::Secondaire,
                        .Nature = nature,
                        .Groupe = groupe,
                        .Saisie = saisie,
                        .Valeur = std::move(v),
                        .Jumeau = jumeau};
    if (saisie) bt.Min = 0.01;
    t.push_back(std::move(bt));
    t.push_back({.Nom = std::move(jumeau),
                 .Legende = std::move(legende),
                 .Format = "#0.00",
                 .Colonne = ColonneOhms::Primaire,
                 .Nature = nature,
                 .Groupe = groupe});
}

struct Zone {
    const char* souhaite;
    const char* souhaiteHT;
    const char* regle;
    const char* regleHT;
    const char* resistance;
    const char* resistanceHT;
    const char* legende;
    const char* codeX;
    const char* codeR;
    const char* p;
    const char* legendeP;
    double Etude::*x;
    Entier16 RelaisRAZOA::*denominateur;
    double Etude::*xreg;
    double RelaisRAZOA::*rreg;
};

const std::array<Zone, 3> ZONES_RAZOA{{
    {"txtX1_bt", "txtX1_HT", "txtX1reg_BT", "txtX1reg_HT", "txtR1reg_BT", "txtR1reg_HT",
     "First zone reactance", "3.2*a/(p1*In)=", "3.2*b/(p1*In)=", "txtp1",
     "Parameter p1:", &Etude::X1_BT, &RelaisRAZOA::p1, &Etude::X1reg_BT, &RelaisRAZOA::R1reg},
    {"txtX2_bt", "txtX2_HT", "txtX2reg_BT", "txtX2reg_HT", "txtR2reg_BT", "txtR2reg_HT",
     "Second zone reactance", "3.2*a/(p2*In)=", "3.2*b/(p2*In)=", "txtp2",
     "Parameter p2:", &Etude::X2_BT, &RelaisRAZOA::p2, &Etude::X2reg_BT, &RelaisRAZOA::R2reg},
    {"txtX3_bt", "txtX3_HT", "txtX3reg_BT", "txtX3reg_HT", "txtR3reg_BT", "txtR3reg_HT",
     "Third zone reactance", "3.2*a/(p3*In)=", "3.2*b/(p3*In)=", "txtp3",
     "Parameter p3:", &Etude::X3_BT, &RelaisRAZOA::p3, &Etude::X3reg_BT, &RelaisRAZOA::R3reg},
}};

std::vector<DescriptionChamp> ChampsDesZones() {
    std::vector<DescriptionChamp> t;
    const std::string souhaite = GroupeFeuille(ZONES, "Desired");
    for (const Zone& z : ZONES_RAZOA)
        Impedance(t, z.souhaite, z.souhaiteHT, z.legende, souhaite, Lien(z.x),
                  NatureValeur::Souhaitee, true);
    Impedance(t, "txtR1_bt", "txtR1_HT", "First zone resistance", souhaite, Razoa(&RelaisRAZOA::R1),
              NatureValeur::Souhaitee, false);
    const std::string parametres = GroupeFeuille(ZONES, "Parameters");
    t.push_back(ChampAffiche("txta", "Parameter a: ", "#0", parametres, Razoa(&RelaisRAZOA::a)));
    t.push_back(ChampAffiche("txtb", "Parameter b:", "#0", parametres, Razoa(&RelaisRAZOA::b)));
    for (const Zone& z : ZONES_RAZOA)
        t.push_back(ChampAffiche(z.p, z.legendeP, "#0", parametres, Razoa(z.denominateur)));
    const std::string regle = GroupeFeuille(ZONES, "set");
    for (const Zone& z : ZONES_RAZOA)
        Impedance(t, z.regle, z.regleHT, z.codeX, regle, Lien(z.xreg), NatureValeur::Reglee, false);
    for (const Zone& z : ZONES_RAZOA)
        Impedance(t, z.resistance, z.resistanceHT, z.codeR, regle, Razoa(z.rreg),
                  NatureValeur::Reglee, false);
    return t;
}

std::vector<DescriptionChamp> ChampsDeLaPrise() {
    const std::string forme = GroupeFeuille(PICK_UP, "Shape of the characteristic");
    const std::string angle = GroupeFeuille(PICK_UP, "Angle teta");
    const std::string prise = GroupeFeuille(PICK_UP, "Pick up");
    std::vector<DescriptionChamp> t{
        {.Nom = "chkmrc",
         .Legende = "Circle",
         .Groupe = forme,
         .Genre = GenreChamp::Option,
         .Valeur = Razoa(&RelaisRAZOA::Cercle)},
        {.Nom = "chkmrl",
         .Legende = "lens",
         .Groupe = forme,
         .Genre = GenreChamp::Option,
         .Valeur = Razoa(&RelaisRAZOA::Lentille)},
        {.Nom = "chktet(0)",
         .Legende = "75°",
         .Groupe = angle,
         .Genre = GenreChamp::Option,
         .Valeur = Lien(&Etude::teta),
         .ValeurOption = 75.0},
        {.Nom = "chktet(1)",
         .Legende = "60°",
         .Groupe = angle,
         .Genre = GenreChamp::Option,
         .Valeur = Lien(&Etude::teta),
         .ValeurOption = 60.0},
        Saisi("txtdmini", "Dmini:", "0.0#", prise, Razoa(&RelaisRAZOA::Dmini), 0.05, 1.0),
        ChampAffiche("txtDD", "D:", "0.00", prise, Razoa(&RelaisRAZOA::D)),
    };
    Impedance(t, "txtZf_bt", "txtZf_HT", "Forward impedance Zf", prise, Razoa(&RelaisRAZOA::Zf),
              NatureValeur::Souhaitee, true);
    Impedance(t, "txtZr_bt", "txtZr_HT", "Backward impedance Zr", prise, Razoa(&RelaisRAZOA::Zr),
              NatureValeur::Souhaitee, true);
    const std::string codage = GroupeFeuille(PICK_UP, "5*A/(B*In)=");
    t.push_back(ChampAffiche("txtAA", "A: ", "#0", codage, Razoa(&RelaisRAZOA::A)));
    t.push_back(ChampAffiche("txtBB", "B:", "#0.00", codage, Razoa(&RelaisRAZOA::B)));
    Impedance(t, "txtZfreg_BT", "txtZfreg_HT", "5*A/(B*In)=", codage, Razoa(&RelaisRAZOA::Zfreg),
              NatureValeur::Reglee, false);
    Impedance(t, "txtZrreg_BT", "txtZrreg_HT", "D*Zf =", codage, Razoa(&RelaisRAZOA::Zrreg),
              NatureValeur::Reglee, false);
    return t;
}

std::vector<DescriptionChamp> ChampsDuPompage() {
    const std::string largeur =
        GroupeFeuille(OUT_OF_STEP, "Width of the out of step internal characteristic ");
    std::vector<DescriptionChamp> t{{.Nom = "chkPompage",
                                     .Legende = "out of step enabled",
                                     .Groupe = GroupeFeuille(OUT_OF_STEP, "Out of step"),
                                     .Genre = GenreChamp::Case,
                                     .Valeur = Razoa(&RelaisRAZOA::AvecPompage)}};
    Impedance(t, "txtZ2_bt", "txtZ2_HT", "Desired width", largeur, Razoa(&RelaisRAZOA::Z2),
              NatureValeur::Souhaitee, true);
    t.push_back(ChampAffiche("txtm", "m   =", "#0", largeur, Razoa(&RelaisRAZOA::m)));
    t.push_back(ChampAffiche("txtd", "d   =", "0.000", largeur, Razoa(&RelaisRAZOA::d)));
    t.push_back(ChampAffiche("txtq1", "q1 =", "#0", largeur, Razoa(&RelaisRAZOA::q1)));
    t.push_back(ChampAffiche("txtq2", "q2 =", "#0", largeur, Razoa(&RelaisRAZOA::q2)));
    Impedance(t, "txtZ2reg_BT", "txtZ2reg_HT", "Set width = 8*m*d*(q1+q2)/(22*In)", largeur,
              Razoa(&RelaisRAZOA::Z2reg), NatureValeur::Reglee, false);
    // Shown only while q1 is below 22.
    t.push_back({.Nom = "txtq1err",
                 .Legende = "q1 cannot be lower than 22.",
                 .Groupe = largeur,
                 .Genre = GenreChamp::Etiquette});
    t.push_back({.Nom = "lblLargeurMini",
                 .Legende = "The internal width of the out of step characteristic is at least "
                            "equal to 8 / In (   S)",
                 .Groupe = largeur,
                 .Genre = GenreChamp::Etiquette});
    // The ohm sign, which the relay's texts write as W in the symbol font.
    t.push_back(
        {.Nom = "txtWerr", .Legende = "Ω", .Groupe = largeur, .Genre = GenreChamp::Etiquette});
    return t;
}

// Jo in steps of 0.2 In.
Variable SeuilResiduel() {
    return {[](const Etude& e) { return e.RAZOA.Jo * 0.2; }, [](Etude&, double) {}};
}

std::vector<DescriptionChamp> ChampsDesAutres() {
    const std::string terre = GroupeFeuille(OTHERS, "Earth");
    const std::string portees = GroupeFeuille(OTHERS, "Reaches");
    auto portee = [&](std::string nom, std::string legende, Variable v) {
        return ChampAffiche(std::move(nom), std::move(legende), "#0.00", portees, std::move(v),
                            UNITE_PRIMAIRE);
    };
    auto element = [](Reels3 RelaisRAZOA::*tableau, std::size_t i) {
        return Lien(&Etude::RAZOA, tableau, i);
    };
    return {
        Saisi("txt_y", "Y = ", "#0", terre, Razoa(&RelaisRAZOA::Y), 1.0, 15.0),
        {.Nom = "lblY", .Legende = "(1 to 15)", .Groupe = terre, .Genre = GenreChamp::Etiquette},
        ChampAffiche("txt_koprot", "ko = ", "0.0", terre, Razoa(&RelaisRAZOA::K)),
        Saisi("txtJo", "Jo = ", "#0", terre, Razoa(&RelaisRAZOA::Jo), 1.0, 8.0),
        {.Nom = "lblJo", .Legende = "(1 to 8)", .Groupe = terre, .Genre = GenreChamp::Etiquette},
        ChampAffiche("txt_io", "Io = ", "0.0", terre, SeuilResiduel(), "In"),
        portee("txtRfProche", "Maximal detectable resistance against the close substation",
               Razoa(&RelaisRAZOA::RfProche)),
        ChampAffiche("txtRsurX", "ratio R/X", "#0.00", portees, Razoa(&RelaisRAZOA::RsurX)),
        portee("txtRfLoin", "Maximal detectable resistance against the remote end",
               Razoa(&RelaisRAZOA::RfLoin)),
        portee("txtAvPP", "Forward phase to phase reach", element(&RelaisRAZOA::PorteeAv, 0)),
        portee("txtAvTri", "Forward three phase reach", element(&RelaisRAZOA::PorteeAv, 1)),
        portee("txtAvPT", "Forward phase to earth reach", element(&RelaisRAZOA::PorteeAv, 2)),
        portee("txtArPP", "Backward phase to phase reach", element(&RelaisRAZOA::PorteeAr, 0)),
        portee("txtArTri", "Backward three phase reach", element(&RelaisRAZOA::PorteeAr, 1)),
        portee("txtArPT", "Backward phase to earth reach", element(&RelaisRAZOA::PorteeAr, 2)),
        portee("txtPompage", "out of step forward reach", Razoa(&RelaisRAZOA::PorteePompage)),
    };
}

// Position of the switch of a timer, shown beside it.
Variable Position(Entier16 Etude::*t) {
    return {[t](const Etude& e) { return PositionCommutateurRAZOA(e.*t); }, [](Etude&, double) {}};
}

DescriptionChamp Tempo(std::string nom, std::string legende, const std::string& groupe,
                       Entier16 Etude::*t, double max) {
    return ChampTempo(std::move(nom), std::move(legende), groupe, t, max);
}

std::vector<DescriptionChamp> ChampsDesTempos() {
    const std::string premier = GroupeFeuille(TIMERS, "Position of the straps");
    const std::string echelons = GroupeFeuille(TIMERS, "Step timers");
    const std::string rgza = GroupeFeuille(TIMERS, "Tripping by relay RGZA30");
    auto sangle = [&](std::string nom, std::string legende, std::string RelaisRAZOA::*membre) {
        return DescriptionChamp{.Nom = std::move(nom),
                                .Legende = std::move(legende),
                                .Groupe = premier,
                                .Saisie = true,
                                .Texte = LienTexte(&Etude::RAZOA, membre)};
    };
    std::vector<DescriptionChamp> t{
        Tempo("txtT1dés", "T1 desired = ", premier, &Etude::T1, 9990.0),
        sangle("txtS26", "S2:6", &RelaisRAZOA::str26),
        sangle("txtS27", "S2:7", &RelaisRAZOA::str27),
        sangle("txtS28", "S2:8", &RelaisRAZOA::str28),
    };
    const std::array<std::array<const char*, 5>, 3> autres{{
        {"txtT2dés", "T2 desired = ", "txtT2Reg", "T2 set = ", "txtPT2"},
        {"txtT3dés", "T3 desired = ", "txtT3Reg", "T3 set = ", "txtPT3"},
        {"txtT4dés", "T4 desired = ", "txtT4Reg", "T4 set = ", "txtPT4"},
    }};
    const std::array<Entier16 Etude::*, 3> variables{&Etude::T2, &Etude::T3, &Etude::T4};
    for (std::size_t i = 0; i < autres.size(); ++i) {
        const auto& n = autres[i];
        t.push_back(Tempo(n[0], n[1], echelons, variables[i], 9900.0));
        t.push_back(ChampAffiche(n[2], n[3], "###0", echelons, Lien(variables[i]), "ms"));
        t.push_back(
            ChampAffiche(n[4], "Position of the switch", "#0", echelons, Position(variables[i])));
    }
    t.push_back({.Nom = "chkrgza",
                 .Legende = "1",
                 .Groupe = rgza,
                 .Genre = GenreChamp::Option,
                 .Valeur = Razoa(&RelaisRAZOA::RGZA),
                 .ValeurOption = 1.0});
    t.push_back({.Nom = "chkrgzb",
                 .Legende = "2",
                 .Groupe = rgza,
                 .Genre = GenreChamp::Option,
                 .Valeur = Razoa(&RelaisRAZOA::RGZA),
                 .ValeurOption = 2.0});
    t.push_back(ChampAffiche("txtTReg", "T set= (T2 or T3) = ", "###0", rgza,
                             Razoa(&RelaisRAZOA::TReg), "ms"));
    t.push_back(ChampAffiche("txtPTReg", "position of the switch  X1", "#0", rgza,
                             {[](const Etude& e) { return PositionCommutateurRAZOA(e.RAZOA.TReg); },
                              [](Etude&, double) {}}));
    return t;
}

// chktéléaction, chkac, chkver on Teleaction, Acceleration, Verrouillage.
const Signalisation& SignalisationRAZOA() {
    static const Signalisation s{
        .Teleaction = "chktéléaction", .Acceleration = "chkac", .Verrouillage = "chkver"};
    return s;
}

// Every field of the panel, in the order of its sheets.
const TableChamps& ChampsRAZOA() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t;
        for (auto&& partie : {ChampsDesZones(), ChampsDeLaPrise(), ChampsDuPompage(),
                              ChampsDesAutres(), ChampsDesTempos(),
                              ChampsTeleaction(GroupeFeuille(TIMERS, "Signalling scheme"),
                                               "Presence of signalling scheme", "acceleration",
                                               "Blocking overreach", SignalisationRAZOA())})
            t.insert(t.end(), partie.begin(), partie.end());
        return TableChamps(std::move(t));
    }();
    return table;
}

} // namespace

PanneauRAZOA::PanneauRAZOA(Etude& e, Dialogue& d) : PanneauProtection(e, d, ID_RAZOA) {
    DeclarerOnglets({ZONES, PICK_UP, OUT_OF_STEP, OTHERS, TIMERS});
    DeclarerChamps(ChampsRAZOA());
    DeclarerTeleaction(SignalisationRAZOA());
    DeclarerAvisCentrale(AvisCentrale("RAZOA"));
    // The pick-up sheet stands before the out-of-step sheet, but its limit needs the desired
    // width: the step of the pick-up works out that width first.
    DeclarerEtapes({{"Zones", [this] { CalculZones(); }},
                    {"Prise",
                     [this] {
                         LargeurPompageRAZOA(e_);
                         PriseRAZOA(e_);
                     }},
                    {"Pompage", [this] { CodagePompageRAZOA(e_); }},
                    {"Autres", [this] { AutresRAZOA(e_); }},
                    {"Tempos", [this] { TemposRAZOA(e_); }},
                    {"Diag", [this] { DiagRAZOA(e_); }}});
}

CadrePlan PanneauRAZOA::CadreDuPlan() {
    return CadrePlan::Carre(DemiLargeurRAZOA(e_));
}

void PanneauRAZOA::LireOptions() {
    OptionsRAZOA(e_);
}

void PanneauRAZOA::CalculZones() {
    if (!ZonesRAZOA(e_)) ArreterChaine(REGLAGE_IMPOSSIBLE);
}

void PanneauRAZOA::SaisieZones() {
    if (!CoderZonesRAZOA(e_)) ArreterChaine(REGLAGE_IMPOSSIBLE);
    RecalculDepuis("Prise");
}

void PanneauRAZOA::ApresSaisie(const DescriptionChamp& champ, double /*valeur*/) {
    const std::string& nom = champ.Nom;
    RelaisRAZOA& r = e_.RAZOA;
    for (const Zone& z : ZONES_RAZOA)
        if (nom == z.souhaite) {
            SaisieZones();
            return;
        }
    if (nom == "txtZf_bt" || nom == "txtZr_bt") {
        CodagePriseRAZOA(e_, nom == "txtZr_bt");
        RecalculDepuis("Pompage");
    } else if (nom == "txtdmini") {
        if (r.Lentille) r.D = r.Dmini;
        RecalculDepuis("Prise");
    } else if (nom == "txtZ2_bt") {
        RecalculDepuis("Pompage");
    } else if (nom == "txt_y") {
        RecalculDepuis("Autres");
    } else if (nom.rfind("txtT", 0) == 0) {
        TemposRAZOA(e_);
        AfficherChamps();
    } else {
        AfficherChamps();
    }
}

void PanneauRAZOA::ApresClic(const std::string& nom) {
    if (nom == "chkmrc" || nom == "chkmrl" || nom == "chkPompage" || nom.rfind("chktet", 0) == 0) {
        OptionsRAZOA(e_);
        RecalculDepuis("Prise");
    } else if (nom == "chkrgza" || nom == "chkrgzb") {
        TemposRAZOA(e_);
        AfficherChamps();
    }
}

void PanneauRAZOA::Afficher() {
    AfficherChamps();
    const bool trop = Q1TropFaibleRAZOA(e_);
    for (const char* nom : {"txtq1err", "lblLargeurMini", "txtWerr"})
        if (Champ* c = Trouver(nom)) c->Visible = trop;
}

} // namespace tournesol
