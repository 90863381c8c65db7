#include "relays/pds/PanneauPDS.h"

#include "core/Etude.h"
#include "relays/pds/CalculPDS.h"

namespace tournesol {

namespace {

constexpr const char* ZONES = "zones";
constexpr const char* PICK_UP = "Pick up";
constexpr const char* TIMERS = "timers";

// A reach in secondary ohms and its primary image: the secondary field shows
// the variable, its twin the image by Kz.
void Paire(std::vector<DescriptionChamp>& t, const char* bt, const char* ht, std::string legende,
           NatureValeur nature, const std::string& groupe, Variable v) {
    t.push_back({.Nom = bt,
                 .Legende = legende,
                 .Format = "##0.00",
                 .Colonne = ColonneOhms::Secondaire,
                 .Nature = nature,
                 .Groupe = groupe,
                 .Saisie = nature == NatureValeur::Souhaitee,
                 .Valeur = std::move(v),
                 .Jumeau = ht});
    t.push_back({.Nom = ht,
                 .Legende = std::move(legende),
                 .Format = "###0.00",
                 .Colonne = ColonneOhms::Primaire,
                 .Nature = nature,
                 .Groupe = groupe});
}

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

DescriptionChamp Saisi(DescriptionChamp d, double min, double max, double pas) {
    d.Min = min;
    d.Max = max;
    d.Pas = pas;
    d.Saisie = true;
    return d;
}

template <class T> Variable Pds(T RelaisPDS::*membre) {
    return Lien(&Etude::PDS, membre);
}

std::vector<DescriptionChamp> ChampsDesZones() {
    std::vector<DescriptionChamp> t;
    Paire(t, "txtX1_bt", "txtX1_HT", "First zone reactance X1", NatureValeur::Souhaitee,
          GroupeFeuille(ZONES, "Desired"), Lien(&Etude::X1_BT));
    Paire(t, "txtX2_bt", "txtX2_HT", "Second zone reactance X2", NatureValeur::Souhaitee,
          GroupeFeuille(ZONES, "Desired"), Lien(&Etude::X2_BT));
    Paire(t, "txtX1reg_BT", "txtX1reg_HT", "First zone reactance X1", NatureValeur::Reglee,
          GroupeFeuille(ZONES, "set"), Lien(&Etude::X1reg_BT));
    Paire(t, "txtX2reg_BT", "txtX2reg_HT", "Second zone reactance X2", NatureValeur::Reglee,
          GroupeFeuille(ZONES, "set"), Lien(&Etude::X2reg_BT));
    const std::string prises = GroupeFeuille(ZONES, "Plugs (basic range x percentage)");
    t.push_back(Nombre("txtBaseX1", "X1: basic range", "#0.0#", prises, Pds(&RelaisPDS::BaseX1),
                       UNITE_SECONDAIRE));
    t.push_back(Nombre("txtPctX1", "X1: percentage", "##0", prises, Pds(&RelaisPDS::PctX1), "%"));
    t.push_back(Nombre("txtBaseX2", "X2: basic range", "#0.0#", prises, Pds(&RelaisPDS::BaseX2),
                       UNITE_SECONDAIRE));
    t.push_back(Nombre("txtPctX2", "X2: percentage", "##0", prises, Pds(&RelaisPDS::PctX2), "%"));
    return t;
}

std::vector<DescriptionChamp> ChampsDuDemarrage() {
    std::vector<DescriptionChamp> t;
    const std::string angle = GroupeFeuille(PICK_UP, "Characteristic angle and earth factor");
    t.push_back(Saisi(
        Nombre("Txtteta", "Characteristic angle θ = ", "#0", angle, Lien(&Etude::teta), "degrees"),
        TETA_MIN_PDS, TETA_MAX_PDS, 5.0));
    t.push_back(Saisi(Nombre("txtko_reg", "Earth factor ko =", "0.0", angle, Lien(&Etude::ko_reg)),
                      0.0, KO_MAX_PDS, 0.1));
    const std::string cercle = GroupeFeuille(PICK_UP, "Starting circle (along the angle)");
    Paire(t, "txtX3_bt", "txtX3_HT", "Forward reach Zav, desired", NatureValeur::Souhaitee, cercle,
          Lien(&Etude::X3_BT));
    Paire(t, "txtX4_bt", "txtX4_HT", "Backward reach Zar, desired", NatureValeur::Souhaitee, cercle,
          Lien(&Etude::X4_BT));
    Paire(t, "txtX3reg_BT", "txtX3reg_HT", "Forward reach Zav, set", NatureValeur::Reglee, cercle,
          Lien(&Etude::X3reg_BT));
    Paire(t, "txtX4reg_BT", "txtX4reg_HT", "Backward reach Zar, set", NatureValeur::Reglee, cercle,
          Lien(&Etude::X4reg_BT));
    t.push_back(Nombre("txtZavCharge", "Forward reach allowed by the load (0: none)", "###0.00",
                       cercle, Pds(&RelaisPDS::ZavCharge), UNITE_PRIMAIRE));
    const std::string prises = GroupeFeuille(PICK_UP, "Plugs");
    t.push_back(Nombre("txtBaseZav", "Zav: basic range", "#0.0#", prises, Pds(&RelaisPDS::BaseZav),
                       UNITE_SECONDAIRE));
    t.push_back(
        Nombre("txtPctZav", "Zav: percentage", "##0", prises, Pds(&RelaisPDS::PctZav), "%"));
    t.push_back(Nombre("txtDecalage", "Backward offset Zar / Zav", "#0", prises,
                       Pds(&RelaisPDS::Decalage), "%"));
    return t;
}

const TableChamps& ChampsPDS() {
    static const TableChamps table = [] {
        std::vector<DescriptionChamp> t;
        for (auto&& partie :
             {ChampsDesZones(), ChampsDuDemarrage(),
              std::vector<DescriptionChamp>{ChampEtiquette("lblT1", "First zone: instantaneous",
                                                           GroupeFeuille(TIMERS, "Timers"))},
              ChampsTemposEtTeleaction(TIMERS,
                                       {nullptr,
                                        "Second zone T2 =", "Third zone (forward starting) T3 =",
                                        "Fourth zone (backward starting) T4 ="},
                                       9900.0, 100.0)})
            t.insert(t.end(), partie.begin(), partie.end());
        return TableChamps(std::move(t));
    }();
    return table;
}

} // namespace

PanneauPDS::PanneauPDS(Etude& e, Dialogue& d) : PanneauProtection(e, d, ID_PDS) {
    DeclarerOnglets({ZONES, PICK_UP, TIMERS});
    DeclarerChamps(ChampsPDS());
    DeclarerTeleaction();
    DeclarerAvisCentrale(AvisCentrale("PDS"));
    DeclarerEtapes({{"Zones", [this] { CalculZonesPDS(e_); }},
                    {"Demarrage", [this] { CalculDemarragePDS(e_, d_); }},
                    {"Tempos", [this] { TemporisationsPDS(e_); }},
                    {"Diag", [this] { CalculDiagPDS(e_); }}});
}

CadrePlan PanneauPDS::CadreDuPlan() {
    return CadrePlan::Carre(DemiLargeurPDS(e_));
}

void PanneauPDS::ApresSaisie(const DescriptionChamp& champ, double /*valeur*/) {
    const std::string& nom = champ.Nom;
    if (nom == "txtX1_bt" || nom == "txtX2_bt") {
        ArrondirZonesPDS(e_);
        RecalculDepuis("Diag");
    } else if (nom == "txtX3_bt" || nom == "txtX4_bt") {
        ArrondirDemarragePDS(e_);
        RecalculDepuis("Diag");
    }
}

} // namespace tournesol
