#include "relays/rxap/PanneauRXAP.h"

#include "core/Champ.h"
#include "core/Etude.h"
#include "relays/rxap/CalculRXAP.h"

#include <array>

namespace tournesol {

namespace {

constexpr const char* ZONES = "Zones";
constexpr const char* PICK_UP = "Pick up";
constexpr const char* COMMUN = "Common parameter";
constexpr const char* CHOIX = "choice";
constexpr const char* CADRE_CERCLE = "Setting parameters of the circle pick up";
constexpr const char* CADRE_ELLIPSE = "setting parameters of the ellipse pick up";

template <class T> Variable Rxap(T RelaisRXAP::*membre) {
    return Lien(&Etude::RXAP, membre);
}

// A value the panel shows and nobody types.
DescriptionChamp Affiche(std::string nom, std::string legende, std::string format,
                         std::string groupe, Variable v, std::string unite = {},
                         std::string aide = {}) {
    DescriptionChamp d = ChampValeur(std::move(nom), std::move(legende), std::move(format),
                                     std::move(groupe), std::move(v), false, std::move(unite));
    d.Aide = std::move(aide);
    return d;
}

struct Zone {
    const char* souhaiteBT;
    const char* souhaiteHT;
    const char* regleBT;
    const char* regleHT;
    const char* reglage;
    const char* legende;
    const char* legendeReglage;
    double Etude::*xBT;
    double Etude::*xHT;
    double Etude::*xregBT;
    double Etude::*xregHT;
    float RelaisRXAP::*n;
};

const std::array<Zone, 2> ZONES_RXAP{{
    {"txtx1_bt", "txtX1_HT", "txtX1reg_BT", "txtX1reg_HT", "txtx1", "First zone reactance",
     "First zone setting:", &Etude::X1_BT, &Etude::X1_HT, &Etude::X1reg_BT, &Etude::X1reg_HT,
     &RelaisRXAP::N1},
    {"txtx2_bt", "txtX2_HT", "txtX2reg_BT", "txtX2reg_HT", "txtX2", "Second zone reactance",
     "Second zone setting:", &Etude::X2_BT, &Etude::X2_HT, &Etude::X2reg_BT, &Etude::X2reg_HT,
     &RelaisRXAP::N2},
}};

// The connection of zone i: "Connection", then " parallel" or " series", one of the pair shown.
std::string NomConnexion(std::size_t i, bool parallele) {
    return std::string(parallele ? "lblParallele" : "lblSerie") + std::to_string(i + 1);
}

std::vector<DescriptionChamp> ChampsDesZones() {
    std::vector<DescriptionChamp> t{ChampOption("chktype5", "5 A", GroupeFeuille(ZONES, "Type"),
                                                Rxap(&RelaisRXAP::TypeIn), 1.0),
                                    ChampOption("chktype3", "3.3 A", GroupeFeuille(ZONES, "Type"),
                                                Rxap(&RelaisRXAP::TypeIn), 1.5)};
    for (const Zone& z : ZONES_RXAP) {
        t.push_back({.Nom = z.souhaiteBT,
                     .Legende = z.legende,
                     .Format = "##0.00",
                     .Colonne = ColonneOhms::Secondaire,
                     .Nature = NatureValeur::Souhaitee,
                     .Groupe = GroupeFeuille(ZONES, "Desired"),
                     .Saisie = true,
                     .Valeur = Lien(z.xBT),
                     .Jumeau = z.souhaiteHT});
        t.push_back({.Nom = z.souhaiteHT,
                     .Legende = z.legende,
                     .Format = "#0.00",
                     .Colonne = ColonneOhms::Primaire,
                     .Nature = NatureValeur::Souhaitee,
                     .Groupe = GroupeFeuille(ZONES, "Desired"),
                     .Valeur = Lien(z.xHT)});
    }
    for (const Zone& z : ZONES_RXAP) {
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
    for (std::size_t i = 0; i < ZONES_RXAP.size(); ++i) {
        const Zone& z = ZONES_RXAP[i];
        t.push_back(Affiche(z.reglage, z.legendeReglage, "0.0##", roues, Rxap(z.n)));
        t.push_back(ChampEtiquette("Label12_" + std::to_string(i + 1), "Connection", roues));
        t.push_back(ChampEtiquette(NomConnexion(i, true), " parallel", roues));
        t.push_back(ChampEtiquette(NomConnexion(i, false), " series", roues));
    }
    return t;
}

std::vector<DescriptionChamp> ChampsDeLaPrise() {
    const std::string forme = GroupeFeuille(PICK_UP, "Shape of the characteristic");
    const std::string image = GroupeFeuille(PICK_UP, "Image");
    const std::string cercle = GroupeFeuille(PICK_UP, CADRE_CERCLE);
    const std::string ellipse = GroupeFeuille(PICK_UP, CADRE_ELLIPSE);
    return {
        ChampOption("chkmrc", "circle", forme, Rxap(&RelaisRXAP::Cercle), 1.0),
        ChampOption("chkmrl", "ellipse", forme, Rxap(&RelaisRXAP::Cercle), 0.0),
        ChampOption("chkimag(0)", "yes", image, Rxap(&RelaisRXAP::AvecImage), 1.0),
        ChampOption("chkimag(1)", "no", image, Rxap(&RelaisRXAP::AvecImage), 0.0),
        {.Nom = "chkPompage",
         .Legende = "Out of step enabled",
         .Groupe = GroupeFeuille(PICK_UP, "Out of step"),
         .Genre = GenreChamp::Case,
         .Valeur = Rxap(&RelaisRXAP::AvecPompage)},
        Affiche("txtmr", "Pick up", "##0.00", cercle, Rxap(&RelaisRXAP::MR), {},
                "from 2 to 6 ifi type 5 A, from 3 to 9 if type 3.3 A   "),
        Affiche("txtmrap", "Out of step", "##0.00", cercle, Rxap(&RelaisRXAP::MRAP), {},
                "from 4 to 8 if type 5 A, from 6 to 12 if type 3.3 A   "),
        Affiche("txtimag", "Image", "##0.00", cercle, Rxap(&RelaisRXAP::Image), {},
                "from 0 to 3 by step of 0.15"),
        Affiche("txtfocale", "Focal distance", "#0.0", ellipse, Rxap(&RelaisRXAP::focale), {},
                "3;  3.5;  4;  5;  6;  7;  8.5;  10;  12"),
        Affiche("txtexcmr", "Pick up excentricity", "0.00", ellipse, Rxap(&RelaisRXAP::exmr), {},
                "0.8;  0.83;  0.87;  0.88;  0.9"),
        Affiche("txtexcap", "Out of step excentricity", "0.00", ellipse, Rxap(&RelaisRXAP::exap),
                {}, "0.65;  0.68;  0.71;  0.72;  0.73"),
        Affiche("txteta", "Argument of line image", "00", GroupeFeuille(PICK_UP, "Argument"),
                Rxap(&RelaisRXAP::Arg), "degree"),
    };
}

// A reach of the relay, secondary, with its primary image.
void Portee(std::vector<DescriptionChamp>& t, const std::string& groupe, const char* nom,
            const char* legende, Reels4 RelaisRXAP::*portees, std::size_t i) {
    const std::string bt = std::string(nom) + "_BT";
    const std::string ht = std::string(nom) + "_HT";
    t.push_back({.Nom = bt,
                 .Legende = legende,
                 .Format = "##0.00",
                 .Colonne = ColonneOhms::Secondaire,
                 .Nature = NatureValeur::Reglee,
                 .Groupe = groupe,
                 .Valeur = Lien(&Etude::RXAP, portees, i),
                 .Jumeau = ht});
    t.push_back({.Nom = ht,
                 .Legende = legende,
                 .Format = "##0.00",
                 .Colonne = ColonneOhms::Primaire,
                 .Nature = NatureValeur::Reglee,
                 .Groupe = groupe});
}

DescriptionChamp Tempo(const char* nom, const char* legende, const char* cadre,
                       Entier16 Etude::*t) {
    return ChampTempo(nom, legende, GroupeFeuille(COMMUN, cadre), t, 9999.0);
}

std::vector<DescriptionChamp> ChampsCommuns() {
    const std::string resultats = GroupeFeuille(COMMUN, "Detectable fault resistances and reaches");
    std::vector<DescriptionChamp> t{
        {.Nom = "txtkoprot",
         .Legende = "Earth factor",
         .Format = "0.0",
         .Min = 0.4,
         .Max = 1.0,
         .Groupe = GroupeFeuille(COMMUN, "Earth factor"),
         .Saisie = true,
         .Valeur = Rxap(&RelaisRXAP::K),
         .Pas = 0.1,
         .Aide = "0.4; 0.5; 0.6; 0.7; 0.8; 0.9; 1"},
        Affiche("txtRfProche", "Maximal detectable fault resistance on the close end", "##0.00",
                resultats, Rxap(&RelaisRXAP::RfProche), UNITE_PRIMAIRE),
        Affiche("txtRfLoin", "Maximal detectable fault resistance on the remote end", "##0.00",
                resultats, Rxap(&RelaisRXAP::RfLoin), UNITE_PRIMAIRE),
        Affiche("txtRsurX", "Ratio R/X", "##0", resultats, Echelle(Rxap(&RelaisRXAP::RsurX), 100.0),
                "%"),
    };
    Portee(t, resultats, "txtPorteeAv0", "Forward phase to phase reach", &RelaisRXAP::PorteeAv, 0);
    Portee(t, resultats, "txtPorteeAv1", "Forward three phase reach", &RelaisRXAP::PorteeAv, 1);
    Portee(t, resultats, "txtPorteeAv2", "Forward phase to earth reach", &RelaisRXAP::PorteeAv, 2);
    Portee(t, resultats, "txtPorteeAr0", "Backward phase to phase reach", &RelaisRXAP::PorteeAr, 0);
    Portee(t, resultats, "txtPorteeAr1", "Backward three phase reach", &RelaisRXAP::PorteeAr, 1);
    Portee(t, resultats, "txtPorteeAr2", "Backward phase to earth reach", &RelaisRXAP::PorteeAr, 2);
    t.push_back(Tempo("txtt1", "T1 = ", "First step timer", &Etude::T1));
    t.push_back(Tempo("txtt2", "T2  = ", "Second step timer", &Etude::T2));
    t.push_back(Tempo("txtt3", "T3  = ", "Third step timer", &Etude::T3));
    t.push_back(Tempo("txtt4", "T4  = ", "Fourth step timer", &Etude::T4));
    return t;
}

std::vector<DescriptionChamp> ChampsDuChoix() {
    return {{.Nom = "Label7",
             .Groupe = GroupeFeuille(CHOIX, "Type of relay"),
             .Genre = GenreChamp::Etiquette,
             .Texte = {[](const Etude& e) { return VarianteRXAP(e); },
                       [](Etude&, const std::string&) {}}}};
}

const TableChamps& ChampsRXAP() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t;
        for (auto&& partie :
             {ChampsDesZones(), ChampsDeLaPrise(), ChampsCommuns(), ChampsDuChoix()})
            t.insert(t.end(), partie.begin(), partie.end());
        return TableChamps(std::move(t));
    }();
    return table;
}

} // namespace

PanneauRXAP::PanneauRXAP(Etude& e, Dialogue& d) : PanneauProtection(e, d, ID_RXAP) {
    DeclarerOnglets({ZONES, PICK_UP, COMMUN, CHOIX});
    DeclarerChamps(ChampsRXAP());
    DeclarerAvisCentrale(AVIS_CENTRALE_RXAP);
    DeclarerEtapes({{"Zones", [this] { ZonesRXAP(e_); }},
                    {"Prise", [this] { Prise(); }},
                    {"Commun", [this] { CommunRXAP(e_); }},
                    {"Variante", [] {}},
                    {"Diag", [this] { DiagRXAP(e_); }}});
}

CadrePlan PanneauRXAP::CadreDuPlan() {
    return CadrePlan::HautBas(HautPlanRXAP(e_), BasPlanRXAP(e_));
}

void PanneauRXAP::LireOptions() {
    if (ModeRetour()) {
        DefautsRXAP(e_);
    } else {
        RelaisRXAP& r = e_.RXAP;
        if (r.TypeIn != 1.0F && r.TypeIn != 1.5F) r.TypeIn = 1.0F;
    }
    if (e_.RXAP.exmr == 0.0) e_.RXAP.exmr = EXCENTRICITE_MR[1];
    if (e_.RXAP.exap == 0.0) e_.RXAP.exap = EXCENTRICITE_AP[5];
}

void PanneauRXAP::Prise() {
    // The ellipse is drawn for meshed lines only: elsewhere the chain stops, nothing changed.
    if (!e_.RXAP.Cercle && e_.Ligne_alim == 3) ArreterChaine(ELLIPSE_CLIENT);
    if (!e_.RXAP.Cercle && (e_.Ligne_alim == 1 || e_.Ligne_alim == 2))
        ArreterChaine(ELLIPSE_CENTRALE);
    PriseRXAP(e_);
}

void PanneauRXAP::ApresSaisie(const DescriptionChamp& champ, double /*valeur*/) {
    const std::string& nom = champ.Nom;
    for (const Zone& z : ZONES_RXAP)
        if (nom == z.souhaiteBT) {
            // The typed value stands: in mode "Return" the zones step would take the line's.
            RouesRXAP(e_);
            RecalculDepuis("Prise");
            return;
        }
    if (nom == "txtkoprot") {
        PorteesRXAP(e_);
        RecalculDepuis("Variante");
    } else if (nom == "txtt1" || nom == "txtt2" || nom == "txtt3" || nom == "txtt4")
        RecalculDepuis("Variante");
}

void PanneauRXAP::ApresClic(const std::string& nom) {
    if (nom == "chktype5" || nom == "chktype3")
        RecalculDepuis("Zones");
    else if (nom == "chkmrc" || nom == "chkmrl" || nom == "chkimag(0)" || nom == "chkimag(1)" ||
             nom == "chkPompage")
        RecalculDepuis("Prise");
}

void PanneauRXAP::Visibilites() {
    const RelaisRXAP& r = e_.RXAP;
    auto montrer = [this](const std::string& nom, bool visible) {
        if (Champ* c = Trouver(nom)) c->Visible = visible;
    };
    for (const char* nom : {"chktype5", "chktype3", "chkimag(0)", "chkimag(1)"})
        montrer(nom, r.Cercle);
    for (const char* nom : {"txtmr", "txtmrap", "txtimag"})
        montrer(nom, r.Cercle);
    for (const char* nom : {"txtfocale", "txtexcmr", "txtexcap"})
        montrer(nom, !r.Cercle);
    montrer("txtmrap", r.Cercle && r.AvecPompage);
    montrer("txtexcap", !r.Cercle && r.AvecPompage);
    montrer("txtimag", r.Cercle && r.AvecImage);
    for (std::size_t i = 0; i < ZONES_RXAP.size(); ++i) {
        const bool parallele = i == 0 ? r.X1Parallele : r.X2Parallele;
        montrer(NomConnexion(i, true), parallele);
        montrer(NomConnexion(i, false), !parallele);
    }
    montrer("txtt1", TempoT1RXAP(e_));
}

void PanneauRXAP::Afficher() {
    AfficherChamps();
    Visibilites();
}

} // namespace tournesol
