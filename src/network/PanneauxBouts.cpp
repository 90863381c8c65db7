#include "network/PanneauxBouts.h"

#include "core/ChampIndice.h"
#include "core/Etude.h"
#include "core/Magasin.h"

#include <algorithm>
#include <optional>
#include <variant>

namespace tournesol {

namespace {

const char* const LETTRES[] = {"A", "B", "C"};

// A fault current of a three-ended line: its field, its caption and its study value.
struct Courant {
    const char* champ;
    const char* legende;
    Reel Etude::*valeur;
};

// In the order of the stored list.
constexpr std::array<Courant, 20> COURANTS = {{
    {"txticcacm", "A - C", &Etude::Ligne_ICCACM}, {"txticcbcm", "B - C", &Etude::Ligne_ICCBCM},
    {"txticcabm", "A - B", &Etude::Ligne_ICCABM}, {"txticccbm", "C - B", &Etude::Ligne_ICCCBM},
    {"txticcact", "A - C", &Etude::Ligne_ICCACT}, {"txticcbct", "B - C", &Etude::Ligne_ICCBCT},
    {"txticcabt", "A - B", &Etude::Ligne_ICCABT}, {"txticccbt", "C - B", &Etude::Ligne_ICCCBT},
    {"txtipcacm", "A - C", &Etude::Ligne_IPCACM}, {"txtipcbcm", "B - C", &Etude::Ligne_IPCBCM},
    {"txtipcbam", "B - A", &Etude::Ligne_IPCBAM}, {"txtipccam", "C - A", &Etude::Ligne_IPCCAM},
    {"txtipccbm", "C - B", &Etude::Ligne_IPCCBM}, {"txtipcabm", "A - B", &Etude::Ligne_IPCABM},
    {"txtipcact", "A - C", &Etude::Ligne_IPCACT}, {"txtipcbct", "B - C", &Etude::Ligne_IPCBCT},
    {"txtipcbat", "B - A", &Etude::Ligne_IPCBAT}, {"txtipccat", "C - A", &Etude::Ligne_IPCCAT},
    {"txtipccbt", "C - B", &Etude::Ligne_IPCCBT}, {"txtipcabt", "A - B", &Etude::Ligne_IPCABT},
}};

// Amperes, with a tenth so that a current just above the dead-end limit of 10 A stays above it.
const char* const FORMAT_COURANT = "####0.0";
// A three phase current at most this high: the end does not feed the fault.
constexpr double LIMITE_BOUT_MORT = 10.0;

// The groups of the currents, by position in the list.
const char* GroupeCourant(std::size_t i) {
    if (i < 4) return "reckoned Icc/Icc mono";
    if (i < 8) return "reckoned Icc/Icctri";
    if (i < 14) return "Reckoned Ipc/IPC mono";
    return "Reckoned Ipc/IPC tri";
}

// The end the store holds for this panel; nothing when the store has no list of this panel
// under the setting row.
std::optional<int> LireBout(Etude& e, MagasinReglages& m, int bouts) {
    DebutTR(e, DEBUT_LISTE_BOUTS);
    const ValeurTR v = LireTR(e, m);
    const auto* bout = std::get_if<std::int16_t>(&v);
    if (!bout || *bout < 0 || *bout >= bouts) return std::nullopt;
    return *bout;
}

// The names of the ends, then the options of the relay's end.
template <class Ajout>
void AjouterBouts(const Etude& e, int bouts, const std::string& noms, const std::string& options,
                  Ajout&& ajouter) {
    for (int i = 0; i < bouts; ++i)
        ajouter(GenreChamp::Etiquette, NomIndice("lblnom", i),
                std::string(LETTRES[i]) + " : " +
                    NomBout(e, e.Ligne_Ex[static_cast<std::size_t>(i)]),
                noms);
    for (int i = 0; i < bouts; ++i)
        ajouter(GenreChamp::Option, NomIndice("chkbout", i), LETTRES[i], options);
}

} // namespace

std::string NomBout(const Etude& e, int numero) {
    switch (numero) {
    case 1:
        return e.NomPoste;
    case 2:
        return e.NomDepart;
    case 3:
        return e.NomPiquage;
    default:
        return {};
    }
}

void EcrireListeBouts(Etude& e, MagasinReglages& m, int bouts) {
    DebutTR(e, DEBUT_LISTE_BOUTS);
    EcrireTR(e, m, e.Ligne_pp);
    if (bouts < 3) return;
    EcrireTR(e, m, e.Ligne_cc);
    for (const Courant& c : COURANTS)
        EcrireTR(e, m, e.*c.valeur);
}

// ---- frmdeuxbouts ----------------------------------------------------------------------------

PanneauDeuxBouts::PanneauDeuxBouts(Etude& e, MagasinReglages* magasin)
    : Panneau("frmdeuxbouts"), e_(e), magasin_(magasin) {
    DefinirTitre("TOURNESOL [" + e.NomPoste + "]");
    auto ajouter = [this](GenreChamp genre, const std::string& nom, const std::string& texte,
                          const std::string& groupe) -> Champ& {
        return Ajouter(genre, nom, texte, groupe);
    };
    ajouter(GenreChamp::Etiquette, "placerprotection", "A-B", "");
    // The picture shows the ends' letters: the labels stay unseen under it.
    ajouter(GenreChamp::Etiquette, "Label1", "A", "").Visible = false;
    ajouter(GenreChamp::Etiquette, "Label2", "B", "").Visible = false;
    ajouter(GenreChamp::Etiquette, "fraBouts", "ends", "fraBouts");
    AjouterBouts(e, 2, "fraBouts", "Fraoption", ajouter);
    // The frame of the options, under its name.
    ajouter(GenreChamp::Etiquette, "Fraoption", "choose one end", "Fraoption");
    ajouter(GenreChamp::Bouton, "Command1", "OK", "");
    ajouter(GenreChamp::Bouton, "Command2", "cancel", "");

    int bout = e.Ligne_pp == 1 ? 1 : 0;
    // A relay not saved yet has no row of its own to read from.
    if (magasin_ && e.id_reglage >= 1)
        if (const auto stocke = LireBout(e, *magasin_, 2)) bout = *stocke;
    Choisir(bout);
}

void PanneauDeuxBouts::Choisir(int bout) {
    bout_ = bout;
    Trouver("placerprotection")->IndexListe = bout;
    for (int i = 0; i < 2; ++i)
        Trouver(NomIndice("chkbout", i))->Valeur = i == bout;
}

void PanneauDeuxBouts::Cliquer(const std::string& nom) {
    if (BoutonsOkAnnuler(nom)) return;
    for (const char* tableau : {"placerprotection", "chkbout"})
        if (const auto i = IndiceDe(nom, tableau); i && *i >= 0 && *i < 2) Choisir(*i);
}

void PanneauDeuxBouts::Valider() {
    e_.Ligne_pp = static_cast<Entier16>(bout_);
    // On a plant link the plant's side follows the relay's end.
    if (e_.Ligne_alim == 1 || e_.Ligne_alim == 2) e_.Ligne_alim = static_cast<Entier16>(1 + bout_);
    if (magasin_) EcrireListeBouts(e_, *magasin_, 2);
    e_.EtudeModifiee = true;
    confirme_ = true;
    FermerPanneau();
}

void PanneauDeuxBouts::Annuler() {
    FermerPanneau();
}

// ---- frmtroisbouts ---------------------------------------------------------------------------

const std::array<const char*, 20>& PanneauTroisBouts::ChampsCourants() {
    static const std::array<const char*, 20> champs = [] {
        std::array<const char*, 20> noms{};
        for (std::size_t i = 0; i < COURANTS.size(); ++i)
            noms[i] = COURANTS[i].champ;
        return noms;
    }();
    return champs;
}

PanneauTroisBouts::PanneauTroisBouts(Etude& e, MagasinReglages* magasin)
    : Panneau("frmtroisbouts"), e_(e), magasin_(magasin) {
    DefinirTitre("TOURNESOL [" + e.NomPoste + "]");
    auto ajouter = [this](GenreChamp genre, const std::string& nom, const std::string& texte,
                          const std::string& groupe) -> Champ& {
        return Ajouter(genre, nom, texte, groupe);
    };

    // Tab "Relay position".
    const std::string image = "Relay position/Place the relay on one end";
    ajouter(GenreChamp::Etiquette, "placerprotection", "A-B-C", image);
    // The fault points are named on the picture, where they are.
    ajouter(GenreChamp::Etiquette, "lbldab", "DAB", image).Visible = false;
    ajouter(GenreChamp::Etiquette, "lbldac", "DAC", image).Visible = false;
    AjouterBouts(e, 3, "Relay position/ends", "Relay position/choose one end", ajouter);
    Ajouter(GenreChamp::Case, "chkcourcirc", "You have a short circuit reckon program",
            "Relay position/short circuit reckon");

    // Tabs "reckoned Icc" and "Reckoned Ipc".
    for (std::size_t i = 0; i < COURANTS.size(); ++i) {
        Champ& c = Ajouter(GenreChamp::Texte, COURANTS[i].champ, "", GroupeCourant(i));
        c.Format = FORMAT_COURANT;
        c.Legende = COURANTS[i].legende;
        if (i == 7)
            Ajouter(GenreChamp::Etiquette, "lblexplicationicc",
                    "lthe short circuit current ICC mono (A - C) observed at point  A for a phase "
                    "to earth short circuit on the first zone limit on the section PC (point "
                    "DAC),     etc... .",
                    "reckoned Icc/reckon by a short circuit reckoning program");
    }
    Ajouter(GenreChamp::Etiquette, "lblexplicationipc",
            "the short circuit current IPC mono (A - C) observed at point A for a solid phase to "
            "earth short circuit at point C,   etc... .",
            "Reckoned Ipc/reckon by a short circuit reckoning program");

    Ajouter(GenreChamp::Bouton, "Command1", "OK");
    Ajouter(GenreChamp::Bouton, "Command2", "cancel");

    // What the study holds, or what was stored for this relay.
    int bout = std::clamp<int>(e.Ligne_pp, 0, 2);
    bool cc = e.Ligne_cc != 0;
    std::array<double, 20> courants{};
    for (std::size_t i = 0; i < COURANTS.size(); ++i)
        courants[i] = e.*COURANTS[i].valeur;
    if (magasin_ && e.id_reglage >= 1) {
        if (const auto stocke = LireBout(e, *magasin_, 3)) {
            bout = *stocke;
            LireDans(LireTR(e, *magasin_), cc);
            for (double& i : courants)
                LireDans(LireTR(e, *magasin_), i);
        }
    }
    Trouver("chkcourcirc")->Valeur = cc;
    for (std::size_t i = 0; i < COURANTS.size(); ++i)
        ChampEcrire(*Trouver(COURANTS[i].champ), courants[i]);
    Choisir(bout);
    Activer();
}

void PanneauTroisBouts::Choisir(int bout) {
    bout_ = bout;
    Trouver("placerprotection")->IndexListe = bout;
    for (int i = 0; i < 3; ++i)
        Trouver(NomIndice("chkbout", i))->Valeur = i == bout;
}

// The tabs of the currents are enabled with chkcourcirc.
void PanneauTroisBouts::Activer() {
    const bool cc = Trouver("chkcourcirc")->Valeur;
    for (const Courant& c : COURANTS)
        Trouver(c.champ)->Actif = cc;
    Trouver("lblexplicationicc")->Actif = cc;
    Trouver("lblexplicationipc")->Actif = cc;
}

void PanneauTroisBouts::Cliquer(const std::string& nom) {
    if (BoutonsOkAnnuler(nom)) return;
    if (nom == "chkcourcirc") {
        Activer();
        return;
    }
    for (const char* tableau : {"placerprotection", "chkbout"})
        if (const auto i = IndiceDe(nom, tableau); i && *i >= 0 && *i < 3) Choisir(*i);
}

void PanneauTroisBouts::Valider() {
    // 1. The relay's end and the short-circuit study.
    e_.Ligne_pp = static_cast<Entier16>(bout_);
    e_.Ligne_cc = EnEntier(Trouver("chkcourcirc")->Valeur);
    // 2. The eight ICC and the twelve IPC.
    for (const Courant& c : COURANTS)
        e_.*c.valeur = ChampLire(*Trouver(c.champ));
    // 3. An end whose three phase current is at most 10 A does not feed the fault.
    e_.BoutMort = false;
    for (const Reel Etude::*t :
         {&Etude::Ligne_ICCACT, &Etude::Ligne_ICCBCT, &Etude::Ligne_ICCABT, &Etude::Ligne_ICCCBT})
        if (e_.*t <= LIMITE_BOUT_MORT) e_.BoutMort = true;
    // 4. No current of 0.
    for (const Courant& c : COURANTS)
        if (e_.*c.valeur == 0.0) e_.*c.valeur = 1.0;
    // The list, in its order, under the relay's setting row.
    if (magasin_) EcrireListeBouts(e_, *magasin_, 3);
    e_.EtudeModifiee = true;
    confirme_ = true;
    FermerPanneau();
}

void PanneauTroisBouts::Annuler() {
    FermerPanneau();
}

} // namespace tournesol
