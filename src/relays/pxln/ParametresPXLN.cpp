#include "relays/pxln/ParametresPXLN.h"

#include "core/Champ.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Format.h"
#include "printing/Redacteur.h"
#include "relays/ChampRelais.h"
#include "relays/PanneauFeuilles.h"

#include <array>
#include <cmath>

namespace tournesol {

namespace {

// The lists of the sheet, as the relay's tool writes them: code, " : ", comment.
const std::vector<std::string> FREQUENCES{"50", "60"};
const std::vector<std::string> HF{"NO : neither blocking suppresion nor presence of carrier",
                                  "DE : déverrouillage", "HF : presence of carrier"};
const std::vector<std::string> MODE_WI{"0 : Weak Infeed and echo mode disabled",
                                       "1 : mode écho only", "2 : Weak Infeed and echo enabled"};
const std::vector<std::string> NON_OUI{"0 : no", "1 : yes"};
const std::vector<std::string> DECL_WI{"0 : single phase tripping", "1 : three phase tripping"};
const std::vector<std::string> SEUIL_WI{"0 : 0,05 In", "1 : 0 In"};
const std::vector<std::string> EMISSIO_WI{"EZ1 : acceleration signal emission by zone 1",
                                          "EZ2 : acceleration signal emission by zone 2",
                                          "EZ5 : blocking signal emission by zone 5"};
const std::vector<std::string> TYPEDECL{"0 :    three phase tripping in any case",
                                        "1 :    single phase tripping only"};
const std::vector<std::string> VERRWI{"0 : no blocking of Weak Infeed",
                                      "1 : blocking of Weak Infeed"};
const std::vector<std::string> VERR1{"0 : Zone 1 not independant from out of step",
                                     "1 : Zone 1 independant from out of step"};
const std::vector<std::string> SEALIN{"0 : yes", "1 : no"};
const std::vector<std::string> VERRENC{"1 : no blocking", "2 : blocking for t2",
                                       "3 : blocking for t3", "4 : blocking for t4"};
const std::vector<std::string> EMISSIO{"0 : no signal emission",
                                       "1 : signal emission for a single phase tripping",
                                       "2 : signal emission for any tripping"};

// The list of each list entry of ParamPXLN; none for a number.
const std::vector<std::string>* ListeDe(int n) {
    switch (n) {
    case P_FREQUENCE:
        return &FREQUENCES;
    case P_HF:
        return &HF;
    case P_MODE_WI:
        return &MODE_WI;
    case P_CONFU:
    case P_ENCMONO:
        return &NON_OUI;
    case P_DECL_WI:
        return &DECL_WI;
    case P_SEUIL_WI:
        return &SEUIL_WI;
    case P_EMISSIO_WI:
        return &EMISSIO_WI;
    case P_TYPEDECL:
        return &TYPEDECL;
    case P_VERRWI:
        return &VERRWI;
    case P_VERR1:
        return &VERR1;
    case P_SEALIN:
        return &SEALIN;
    case P_VERRENC:
        return &VERRENC;
    case P_EMISSIO:
        return &EMISSIO;
    default:
        return nullptr;
    }
}

Variable Entree(int n) {
    return Lien(&Etude::PXLN, &RelaisPXLN::ParamPXLN, static_cast<std::size_t>(n - 1));
}

// A value of the panel that the sheet shows and nobody types.
Variable Vue(std::function<double(const Etude&)> lire) {
    return {std::move(lire), [](Etude&, double) {}};
}
VariableTexte VueTexte(std::function<std::string(const Etude&)> lire) {
    return {std::move(lire), [](Etude&, const std::string&) {}};
}

// Per unit of length in secondary milliohms, as the sheet shows the line.
double ParKm(const Etude& e, double ohms) {
    const double d = e.Longueur_eq * e.Kz;
    return d == 0.0 ? 0.0 : 1000.0 * ohms / d;
}

constexpr const char* SIGNAL = "Signal";
constexpr const char* ZONES = "Zones";
constexpr const char* LIGNE = "Line";
constexpr const char* POMPAGE = "Out of step";
constexpr const char* DIVERS = "Other parameters";

DescriptionChamp Liste(std::string nom, std::string legende, std::string groupe, int n) {
    return {.Nom = std::move(nom),
            .Legende = std::move(legende),
            .Groupe = std::move(groupe),
            .Saisie = true,
            .Genre = GenreChamp::Liste,
            .Valeur = Entree(n),
            .Choix = *ListeDe(n)};
}

DescriptionChamp Nombre(std::string nom, std::string legende, std::string unite, std::string format,
                        std::string groupe, int n, double min, double max) {
    return {.Nom = std::move(nom),
            .Legende = std::move(legende),
            .Unite = std::move(unite),
            .Format = std::move(format),
            .Min = min,
            .Max = max,
            .Groupe = std::move(groupe),
            .Saisie = true,
            .Valeur = Entree(n)};
}

DescriptionChamp Affiche(std::string nom, std::string legende, std::string unite,
                         std::string format, std::string groupe, Variable v) {
    return {.Nom = std::move(nom),
            .Legende = std::move(legende),
            .Unite = std::move(unite),
            .Format = std::move(format),
            .Groupe = std::move(groupe),
            .Valeur = std::move(v)};
}

DescriptionChamp AfficheTexte(std::string nom, std::string legende, std::string groupe,
                              VariableTexte t) {
    return {.Nom = std::move(nom),
            .Legende = std::move(legende),
            .Groupe = std::move(groupe),
            .Texte = std::move(t)};
}

// A comment of the sheet: a text across its frame.
DescriptionChamp Commentaire(std::string nom, std::string groupe, VariableTexte t) {
    return {.Nom = std::move(nom),
            .Groupe = std::move(groupe),
            .Genre = GenreChamp::Etiquette,
            .Texte = std::move(t)};
}

// The double circuit line as the sheet tells it.
std::string LigneDouble(const Etude& e) {
    if (e.Ligne_Tl != 1) return "single circuit line";
    if (!e.Teleaction) return "double circuit line without communication between the PXLN";
    return e.PXLN.Maitre ? "double circuit line with communication between the PXLN (master)"
                         : "double circuit line with communication between the PXLN (slave)";
}

std::string CommentaireTeleaction(const Etude& e) {
    const std::string code = CodeTeleactionPXLN(e);
    if (code == "PRS") return "acceleration";
    if (code == "PEV") return "Blocking overreach";
    return "No signalling scheme";
}

std::string CommentaireVerrouillage(const Etude& e) {
    switch (CodeVerrouillagePXLN(e)) {
    case 2:
        return "blocking suppression zone 1";
    case 3:
        return "blocking suppression zone 1 and 2";
    case 4:
        return "blocking suppression zone 1, 2 and 3";
    case 1:
        return "overall blocking";
    default:
        return "no blocking";
    }
}

std::string CommentaireDeclenchement(const Etude& e) {
    const std::string code = CodeDeclenchementPXLN(e);
    if (code == "MONO") return "Single phase tripping";
    if (code == "BAN2") return "Three phase tripping in any case on zone 2, 3 and 4";
    return "Three phase tripping in any case on every zone";
}

// An option of the panel with its percentage: the option as "yes" or "No", the percentage.
void Suppression(std::vector<DescriptionChamp>& t, const char* nom, const char* legende,
                 const char* unite, Booleen RelaisPXLN::*option, double RelaisPXLN::*pct) {
    const std::string groupe = GroupeFeuille(POMPAGE, "Fault current percentage threshold");
    t.push_back(Affiche(nom, legende, "", ";yes;No", groupe,
                        Vue([option](const Etude& e) { return EnEntier(e.PXLN.*option); })));
    t.push_back(Affiche(std::string(nom) + "_comm", "", unite, "#0", groupe,
                        Vue([pct](const Etude& e) { return e.PXLN.*pct; })));
}

std::vector<DescriptionChamp> Feuilles() {
    std::vector<DescriptionChamp> t;
    // Signal.
    const std::string schema = GroupeFeuille(SIGNAL, "Signalling scheme");
    t.push_back(AfficheTexte("Type_téléaction", "Signalling scheme", schema,
                             VueTexte(&CodeTeleactionPXLN)));
    t.push_back(
        Commentaire("Type_téléaction_commentaire", schema, VueTexte(&CommentaireTeleaction)));
    t.push_back(Liste("HF", "Carrier", schema, P_HF));
    t.push_back(Liste("EMISSIO_WI", "Signal emission", schema, P_EMISSIO_WI));
    const std::string wi = GroupeFeuille(SIGNAL, "Weak Infeed and echo");
    t.push_back(Liste("Mode_WI", "Mode", wi, P_MODE_WI));
    t.push_back(Liste("confu", "Confirmation by current", wi, P_CONFU));
    t.push_back(Nombre("seuilCONFU", "Threshold", "In (values between 0.2 and 1)", "0.0#", wi,
                       P_SEUILCONFU, 0.2, 1.0));
    t.push_back(Liste("DECL_WI", "Tripping on signal reception", wi, P_DECL_WI));
    t.push_back(Liste("SEUIL_WI", "Minimal current threshold", wi, P_SEUIL_WI));
    t.push_back(Nombre("Tempdec", "Tripping delay", "ms (values lower than 1 000)", "###0", wi,
                       P_TEMPDEC, 0.0, 1000.0));
    t.push_back(Nombre("TEMPVER", "Blocking delay", "ms (values lower than 1 000)", "###0", wi,
                       P_TEMPVER, 0.0, 1000.0));

    // Zones.
    const std::string zones = GroupeFeuille(ZONES, "Zone settings");
    static const std::array<const char*, 5> reactances{
        "Réac_zone(0)", "Réac_zone(1)", "Réac_zone(2)", "Réac_zone(3)", "Réac_zone(4)"};
    static const std::array<const char*, 5> legendes{"First zone", "Second zone", "Third zone",
                                                     "Limit of forward pick up",
                                                     "Limit of backward pick up"};
    for (std::size_t i = 0; i < 5; ++i)
        t.push_back(Affiche(reactances[i], legendes[i], "%", "##0.##", zones,
                            Vue([i](const Etude& e) { return e.PXLN.XPct.at(i); })));
    static const std::array<const char*, 4> tempos{"Tempo_zone(0)", "Tempo_zone(1)",
                                                   "Tempo_zone(2)", "Tempo_zone(3)"};
    static const std::array<const char*, 4> legendesT{"First step timer", "Second step timer",
                                                      "Third step timer", "fourth step timer"};
    static const std::array<Entier16 Etude::*, 4> timers{&Etude::T1, &Etude::T2, &Etude::T3,
                                                         &Etude::T4};
    for (std::size_t i = 0; i < 4; ++i)
        t.push_back(Affiche(tempos[i], legendesT[i], "ms", "###0", zones, Lien(timers[i])));
    const std::string classique = GroupeFeuille(ZONES, "Pick up resistance (classic criterion)");
    const std::string rapide = GroupeFeuille(ZONES, "Pick up resistance (quick criterion)");
    const char* unite = "S (values between 0 and 200)";
    t.push_back(Affiche("rmoc", "phase to earth loop", unite, "##0", classique,
                        Lien(&Etude::PXLN, &RelaisPXLN::Rmoc_BT)));
    t.push_back(Affiche("rbic", "phase to phase loop", unite, "##0", classique,
                        Lien(&Etude::PXLN, &RelaisPXLN::Rbic_BT)));
    t.push_back(Affiche("rmor", "phase to earth loop", unite, "##0", rapide,
                        Lien(&Etude::PXLN, &RelaisPXLN::Rmor_BT)));
    t.push_back(Affiche("rbir", "phase to phase loop", unite, "##0", rapide,
                        Lien(&Etude::PXLN, &RelaisPXLN::Rbir_BT)));

    // Line.
    const std::string reseau = GroupeFeuille(LIGNE, "Network");
    t.push_back(Liste("Fréquence", "Frequency", reseau, P_FREQUENCE));
    t.push_back(Nombre("Tension", "Secondary rated voltage", "V (values between 40 and 120)", "##0",
                       reseau, P_TENSION, 40.0, 120.0));
    t.push_back(
        Affiche("Intensité", "Secondary rated current", "A", "#0", reseau, Lien(&Etude::Is)));
    t.push_back(
        Affiche("Longueur", "Line length", "km", "##0.0", reseau, Lien(&Etude::Longueur_eq)));
    const std::string parKm =
        GroupeFeuille(LIGNE, "Positive sequence per unit secondary reactance");
    const char* uniteKm = "mΩ/ km (values between 0 et 9999.9)";
    t.push_back(Affiche("Résistance_homopolaire", "Zero sequence resistance", uniteKm, "###0.#",
                        parKm, Vue([](const Etude& e) { return ParKm(e, e.Ro_eq); })));
    t.push_back(Affiche("Résistance_directe", "Positive sequence resistance", uniteKm, "###0.#",
                        parKm, Vue([](const Etude& e) { return ParKm(e, e.RL_eq); })));
    t.push_back(Affiche("Réactance_homopolaire", "Zero sequence reactance", uniteKm, "###0.#",
                        parKm, Vue([](const Etude& e) { return ParKm(e, e.Xo_eq); })));
    t.push_back(Affiche("Réactance_directe", "Positive sequence reactance", uniteKm, "###0.#",
                        parKm, Vue([](const Etude& e) { return ParKm(e, e.XL_eq); })));
    const std::string dbl = GroupeFeuille(LIGNE, "Presence of double circuit line");
    t.push_back(Commentaire("Ligne_double_commentaire", dbl, VueTexte(&LigneDouble)));
    t.push_back(Affiche("tempo", "Timer to maintain the direction backward",
                        "ms  (values lower than 1 000)", "###0", dbl,
                        Lien(&Etude::PXLN, &RelaisPXLN::Td)));

    // Out of step.
    const std::string verr = GroupeFeuille(POMPAGE, "Type of blocking");
    t.push_back(Affiche("TypeVerr", "Type of blocking", "", "0", verr,
                        Vue([](const Etude& e) { return CodeVerrouillagePXLN(e); })));
    t.push_back(Commentaire("TypeVerr_commentaire", verr, VueTexte(&CommentaireVerrouillage)));
    t.push_back(Commentaire(
        "VerrEmission_commentaire", GroupeFeuille(POMPAGE, "Signal emission blocking"),
        VueTexte([](const Etude& e) -> std::string {
            return e.PXLN.VerrEmission ? "blocking of emission" : "No blocking of emission";
        })));
    t.push_back(Commentaire(
        "VerrRéception_commentaire", GroupeFeuille(POMPAGE, "Signal reception blocking"),
        VueTexte([](const Etude& e) -> std::string {
            return e.PXLN.VerrReception ? "blocking of reception" : "No blocking of reception";
        })));
    t.push_back(Liste("TypeDecl", "Tripping when fault and out of step", verr, P_TYPEDECL));
    t.push_back(Liste("VerrWI", "Weak Infeed", verr, P_VERRWI));
    t.push_back(Liste("Verr1", "Zone 1", verr, P_VERR1));
    Suppression(t, "SPIR", "I phase", "% In (values between 10 and 50)", &RelaisPXLN::OptIp,
                &RelaisPXLN::Ip_pct);
    Suppression(t, "SPII", "Ii", "% In (values between 10 and 50)", &RelaisPXLN::OptIi,
                &RelaisPXLN::Ii_pct);
    Suppression(t, "SPIF", "Io", "% In (values between 1 and 10)", &RelaisPXLN::OptIo,
                &RelaisPXLN::Io_pct);
    const std::string bande = GroupeFeuille(POMPAGE, "Out of step bandwidth");
    t.push_back(Affiche("BDPOMP", "Out of step bandwidth", "Ω S", "#0.##", bande,
                        Lien(&Etude::PXLN, &RelaisPXLN::deltaR_BT)));
    t.push_back(Affiche("TEMPO_pomp", "Blocking suppression timer",
                        "ms (values between  0 and 30 000)", "####0", bande,
                        Lien(&Etude::PXLN, &RelaisPXLN::TempoBlocage)));

    // Other parameters.
    const std::string decl = GroupeFeuille(DIVERS, "Type of tripping");
    t.push_back(AfficheTexte("TypeDecl_divers", "Type of tripping", decl,
                             VueTexte(&CodeDeclenchementPXLN)));
    t.push_back(Commentaire("TypeDecl_divers_comm", decl, VueTexte(&CommentaireDeclenchement)));
    const std::string fusion = GroupeFeuille(DIVERS, "Fuse melting");
    t.push_back(Nombre("Tempo_FFUS", "Timer", "s (values between 1 and 20)", "#0.0#", fusion,
                       P_TEMPO_FFUS, 1.0, 20.0));
    t.push_back(Nombre("ISeuil", "Current threshold", "In (values between 0 and 10)", "0.0#",
                       fusion, P_ISEUIL, 0.0, 10.0));
    const std::string sealin = GroupeFeuille(DIVERS, "Seal in");
    t.push_back(Liste("SEALIN", "Seal in", sealin, P_SEALIN));
    t.push_back(Nombre("SEALIN_seuil", "Threshold", "In (values between 0 and 10)", "0.0#", sealin,
                       P_SEALIN_SEUIL, 0.0, 10.0));
    t.push_back(Liste("VERRENC", "Blocking on closing", sealin, P_VERRENC));
    const std::string enclen = GroupeFeuille(DIVERS, "Line enclosing");
    t.push_back(Nombre("Iseuil_divers", "Current threshold", "In (value between 1 and 10)", "0.0#",
                       enclen, P_ISEUIL_DIVERS, 1.0, 10.0));
    t.push_back(Liste("ENCMONO", "Single phase closing", enclen, P_ENCMONO));
    t.push_back(Liste("EMISSIO", "Signal emission", enclen, P_EMISSIO));
    return t;
}

// ---- the listing ----

constexpr int SECTION = 0;
constexpr int NIVEAU1 = 10;
constexpr int NIVEAU2 = 20;
constexpr int NIVEAU3 = 30;
constexpr int VALEUR = 60;

// A list's entry as the listing writes it: its code, "\", its comment.
std::string EnListe(const Etude& e, int n) {
    return Remplacer(EntreeListePXLN(e, n), " : ", "\\");
}
// The code alone.
std::string Code(const Etude& e, int n) {
    const std::string t = EntreeListePXLN(e, n);
    return t.substr(0, t.find(" : "));
}

class Listing {
public:
    std::vector<LigneListing> lignes;

    void Section(const std::string& motCle, const std::string& commentaire) {
        if (!lignes.empty()) lignes.push_back({});
        lignes.push_back({{SECTION, motCle + commentaire}});
    }
    // A value line of its own, as a section stands between empty lines.
    void Seule(int niveau, const std::string& motCle, const std::string& valeur) {
        if (!lignes.empty()) lignes.push_back({});
        Valeur(niveau, motCle, valeur);
    }
    void Valeur(int niveau, const std::string& motCle, const std::string& valeur) {
        lignes.push_back({{niveau, motCle}, {VALEUR, valeur}});
    }
};

std::string F(double v, const char* format) {
    return FormaterNombre(v, format);
}

} // namespace

double ParametrePXLN(const Etude& e, int n) {
    if (n < 1 || n > NOMBRE_PARAMETRES_PXLN) return 0.0;
    return e.PXLN.ParamPXLN[static_cast<std::size_t>(n - 1)];
}

std::string EntreeListePXLN(const Etude& e, int n) {
    const std::vector<std::string>* liste = ListeDe(n);
    if (!liste) return {};
    const double i = std::round(ParametrePXLN(e, n));
    if (!(i >= 0.0 && i < static_cast<double>(liste->size()))) return {};
    return (*liste)[static_cast<std::size_t>(i)];
}

void ParametresParDefautPXLN(Etude& e) {
    auto& p = e.PXLN.ParamPXLN;
    if (p[P_TENSION - 1] != 0.0) return;
    auto poser = [&p](int n, double v) { p[static_cast<std::size_t>(n - 1)] = v; };
    poser(P_FREQUENCE, 0); // 50 Hz
    poser(P_TENSION, 100);
    poser(P_HF, 0);
    poser(P_MODE_WI, 0);
    poser(P_CONFU, 0);
    poser(P_DECL_WI, 1);
    poser(P_SEUIL_WI, 0);
    poser(P_EMISSIO_WI, 1);
    poser(P_TYPEDECL, 0);
    poser(P_VERRWI, 0);
    poser(P_VERR1, 0);
    poser(P_SEALIN, 1);
    poser(P_VERRENC, 0);
    poser(P_EMISSIO, 0);
    poser(P_SEUILCONFU, 0.5);
    poser(P_TEMPDEC, 100);
    poser(P_TEMPVER, 100);
    poser(P_TEMPO_FFUS, 10);
    poser(P_ISEUIL, 0.1);
    poser(P_SEALIN_SEUIL, 0.1);
    poser(P_ISEUIL_DIVERS, 1);
    poser(P_ENCMONO, 0);
}

const TableChamps& ChampsParametresPXLN() {
    static const TableChamps table(Feuilles());
    return table;
}

std::unique_ptr<PanneauFeuilles> CreerParametresPXLN(Etude& e) {
    return std::make_unique<PanneauFeuilles>(
        e, NOM_PARAMETRES_PXLN, TITRE_PARAMETRES_PXLN,
        std::vector<std::string>{SIGNAL, ZONES, LIGNE, POMPAGE, DIVERS}, ChampsParametresPXLN());
}

std::string CodeTeleactionPXLN(const Etude& e) {
    if (!e.Teleaction) return "PAS";
    return e.PXLN.PorteeReduite ? "PRS" : "PEV";
}

std::string CodeDeclenchementPXLN(const Etude& e) {
    switch (e.PXLN.TypeDecl) {
    case 1:
        return "BAN2"; // single phase on zone 1 alone: three phase on the others
    case 2:
        return "MONO";
    default:
        return "BAN1";
    }
}

int CodeVerrouillagePXLN(const Etude& e) {
    switch (e.PXLN.ZonesBloquees) {
    case 1:
        return 2; // zones 2 to 5 blocked: the blocking is suppressed on zone 1
    case 2:
        return 3;
    case 3:
        return 4;
    case 4:
        return 1; // the pick-up blocked: overall blocking
    default:
        return 0;
    }
}

std::vector<LigneListing> ListingPXLN(const Etude& e) {
    const RelaisPXLN& r = e.PXLN;
    const double l = e.Longueur_eq;
    // A line not computed yet has no length: its values per unit are shown as 0.
    const double base = e.Kz * l;
    auto parKm = [&](double ohms) { return F(base == 0.0 ? 0.0 : ohms / base, "0.000"); };
    Listing s;
    s.Section(".PARA", "\\PXLN parameters");

    s.Section("*LIGN", "\\acquisition of line parameters");
    s.Valeur(NIVEAU2, "**FN", EntreeListePXLN(e, P_FREQUENCE) + "\\    network frequency in Hz");
    s.Valeur(NIVEAU2, "**UN",
             F(ParametrePXLN(e, P_TENSION), "##0") + "\\    secondary rated voltage TT in V");
    s.Valeur(NIVEAU2, "**IN", F(e.Is, "#0") + "\\    secondary rated current TC in A");
    s.Valeur(NIVEAU2, "**L", F(l, "##0.0") + "\\    line length in km");
    s.Valeur(NIVEAU2, "**RO", parKm(e.Ro_eq) + "\\    zero sequence resistance per unit in #W/km");
    s.Valeur(NIVEAU2, "**RD",
             parKm(e.RL_eq) + "\\    positive sequence resistance per unit in #W/km");
    s.Valeur(NIVEAU2, "**REAL",
             parKm((2.0 * e.XL_eq + e.Xo_eq) / 3.0) +
                 "\\    phase to earth loop reactance per unit in #W/km");
    s.Valeur(NIVEAU2, "**REAM",
             parKm((e.Xo_eq - e.XL_eq) / 3.0) + "\\    mutual reactance per unit in #W/km");
    s.Valeur(NIVEAU2, "**XO", parKm(e.Xo_eq) + "\\   zero sequence reactance per unit in #W/km ");
    s.Valeur(NIVEAU2, "**XD",
             parKm(e.XL_eq) + "\\    positive sequence reactance per unit in #W/km");

    s.Section("*LIGD", "\\acquisition of double circuit line parameters");
    std::string type = "\\    single circuit line";
    if (e.Ligne_Tl == 1)
        type = !e.Teleaction ? "\\    double circuit line without connection between PXLN"
               : r.Maitre    ? "\\    double circuit line with connection between PXLN (mater)"
                             : "\\    double circuit line with connection between PXLN (slave)";
    s.Valeur(NIVEAU2, "**TYPE", type);
    s.Valeur(NIVEAU2, "**TEMPO",
             F(r.Td, "###0") +
                 "\\    delay for maintaining the direction oriented backwards in ms");

    s.Section("*TEMPOS", "\\acquisition of step timers");
    s.Valeur(NIVEAU2, "**T1", F(e.T1, "###0") + "\\    First step timer in ms");
    s.Valeur(NIVEAU2, "**T2", F(e.T2, "###0") + "\\    Second step timer in ms");
    s.Valeur(NIVEAU2, "**T3", F(e.T3, "###0") + "\\    Third step timer in ms");
    s.Valeur(NIVEAU2, "**T4", F(e.T4, "###0") + "\\    Fourth step timer in ms");

    s.Section("*TELEAC", "\\acquisition of signalling parameters");
    const std::string teleaction = CodeTeleactionPXLN(e);
    const std::string commentaire = teleaction == "PRS"   ? "\\    acceleration"
                                    : teleaction == "PEV" ? "\\    blocking overreach"
                                                          : "\\    no signal";
    s.Valeur(NIVEAU2, "**TYPE", teleaction + commentaire);
    s.Valeur(NIVEAU2, "**DEVER", EnListe(e, P_HF));

    s.Section("**WI/ECHO", "\\mode \"Weak Infeed\" and echo");
    s.Valeur(NIVEAU3, "***SELECT", EnListe(e, P_MODE_WI));
    s.Valeur(NIVEAU3, "***CONFU",
             Code(e, P_CONFU) + " ~ " + F(ParametrePXLN(e, P_SEUILCONFU), "0.0#") + "\\   In");
    s.Valeur(NIVEAU3, "***DECL", EnListe(e, P_DECL_WI) + " (on signal reception)    ");
    s.Valeur(NIVEAU3, "***ISEUIL", EnListe(e, P_SEUIL_WI) + " (minimal current threshold)    ");
    s.Valeur(NIVEAU3, "***TEMPDEC",
             F(ParametrePXLN(e, P_TEMPDEC), "###0") + "\\   tripping delay on weak infeed in ms");
    s.Valeur(NIVEAU3, "***TEMPVER",
             F(ParametrePXLN(e, P_TEMPVER), "###0") + "\\   blocking delay on weak infeed in ms");

    s.Seule(NIVEAU2, "**EMISSIO", EnListe(e, P_EMISSIO_WI));

    const std::string decl = CodeDeclenchementPXLN(e);
    s.Seule(NIVEAU1, "*DECL",
            decl + (decl == "BAN1"   ? "\\    Three phase tripping on every zone"
                    : decl == "BAN2" ? "\\    Three phase tripping on zones 2, 3 et 4"
                                     : "\\    single phase tripping"));

    s.Section("*POMP", "\\blocking in case of out of step");
    s.Valeur(NIVEAU2, "**DECL", EnListe(e, P_TYPEDECL) + "\\   (when fault and out of step)   ");
    static const std::array<const char*, 5> verpomp{
        "0\\    no blocking", "1\\    général blocking", "2\\   blocking suppression zone 1",
        "3\\    blocking suppression zones 1 et 2", "4\\    blocking suppression zones 1, 2 et 3"};
    s.Valeur(NIVEAU2, "**VERPOMP", verpomp[static_cast<std::size_t>(CodeVerrouillagePXLN(e))]);
    s.Valeur(NIVEAU2, "**VERETEL",
             r.VerrEmission ? "1\\    blocking of the emission of the signal if out of step"
                            : "0\\    no blocking of the emission of the signal if out of step");
    s.Valeur(NIVEAU2, "**VERRTEL",
             r.VerrReception ? "1\\    blocking of the reception of the signal if out of step"
                             : "0\\    no blocking of the reception of the signal if out of step");
    s.Valeur(NIVEAU2, "**VERWI", EnListe(e, P_VERRWI) + "\\blocking of weak infeed if out of step");
    s.Valeur(NIVEAU2, "**Z1IND", EnListe(e, P_VERR1) + "\\zone 1 independent if out of step");
    const char* oui = "    \"   yes\"    ;\"   yes\"    ;\"   no\"";
    auto suppression = [&](const char* motCle, bool option, double pct) {
        s.Valeur(NIVEAU2, motCle,
                 F(EnEntier(option), oui) + "~" + F(pct, "0.##") + "\\    in #% In");
    };
    suppression("**SPIR", r.OptIp, r.Ip_pct);
    suppression("**SPII", r.OptIi, r.Ii_pct);
    suppression("**SPIF", r.OptIo, r.Io_pct);
    s.Valeur(NIVEAU2, "**BDPOMP", F(r.deltaR_BT, "#0.##") + "\\    out of step bandwidth in #W");
    s.Valeur(NIVEAU2, "**TEMPO",
             F(r.TempoBlocage, "####0") + "\\    blocking suppression delay if out of step in ms");

    s.Seule(NIVEAU1, "*REDUC",
            r.Capacitif ? "\\    capacitive voltage transformer"
                        : "\\    wounded voltage transformer");

    s.Section("*ZONE", "\\acquistion of monitored zones");
    for (std::size_t i = 0; i < 5; ++i)
        s.Valeur(NIVEAU2, "**X" + std::to_string(i + 1), F(r.XPct[i], "##0.##") + "\\     in #%");

    s.Section("*RESI", "\\acquistion of loop reistances");
    s.Valeur(NIVEAU2, "**RMOR", F(r.Rmor_BT, "##0") + "\\    in #W/b.");
    s.Valeur(NIVEAU2, "**RBIR", F(r.Rbir_BT, "##0") + "\\    in #W/b.");
    s.Valeur(NIVEAU2, "**RMOC", F(r.Rmoc_BT, "##0") + "\\    in #W/b.");
    s.Valeur(NIVEAU2, "**RBIC", F(r.Rbic_BT, "##0") + "\\    in #W/b.");

    s.Section("*FFUS", "\\acquisition of fuse melting parameters");
    s.Valeur(NIVEAU2, "**TEMPO", F(ParametrePXLN(e, P_TEMPO_FFUS), "#0.0#") + "\\    in s.");
    s.Valeur(NIVEAU2, "**ISEUIL", F(ParametrePXLN(e, P_ISEUIL), "0.0#") + "\\    In");

    s.Seule(NIVEAU1, "*SEALIN",
            Code(e, P_SEALIN) + "~" + F(ParametrePXLN(e, P_SEALIN_SEUIL), "0.0#") + "\\   In");
    s.Seule(NIVEAU1, "*VERRENC", EnListe(e, P_VERRENC));

    s.Section("*ENCLEN", "\\line enclosing parameters");
    s.Valeur(NIVEAU2, "**ISEUIL", F(ParametrePXLN(e, P_ISEUIL_DIVERS), "0.0#") + "\\    In");
    s.Valeur(NIVEAU2, "**ENCMONO", EnListe(e, P_ENCMONO));
    s.Valeur(NIVEAU2, "**EMISSIO", EnListe(e, P_EMISSIO));
    return s.lignes;
}

std::string TexteLigneListing(const LigneListing& ligne) {
    std::string texte;
    std::size_t largeur = 0; // in characters, a character of UTF-8 being one
    for (const auto& [colonne, morceau] : ligne) {
        const auto c = static_cast<std::size_t>(colonne);
        if (largeur > 0 && largeur >= c) {
            texte += ' ';
            ++largeur;
        }
        while (largeur < c) {
            texte += ' ';
            ++largeur;
        }
        const std::string t = TexteSymboles(morceau);
        texte += t;
        for (const char ch : t)
            if ((static_cast<unsigned char>(ch) & 0xC0) != 0x80) ++largeur;
    }
    return texte;
}

} // namespace tournesol
