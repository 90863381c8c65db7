#include "network/PanneauOptionsReseau.h"

#include "core/ChampIndice.h"
#include "core/Etude.h"
#include "network/Sections.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tournesol {

namespace {

// Tabs, in the order of the window.
const std::string TRANSIT = PanneauOptionsReseau::ONGLET_TRANSIT;
const std::string IMPEDANCE = "Impedance or power";
const std::string REDUCTEURS = "CT's and VT's";
const std::string TYPE = "Line type";

// The buttons of the rated values, indexed by the value itself; index 0 is "other".
struct Bouton {
    int valeur;
    const char* texte;
};
constexpr std::array<Bouton, 6> BOUTONS_IP = {{{3000, "3000 A"},
                                               {2000, "2000 A"},
                                               {1500, "1500 A"},
                                               {1000, "1000 A"},
                                               {500, "  500 A"},
                                               {0, "other"}}};
constexpr std::array<Bouton, 5> BOUTONS_UP = {
    {{63, "63 kV"}, {90, "90 kV"}, {225, "225 kV"}, {400, "400 kV"}, {0, "other"}}};
constexpr std::array<Bouton, 2> BOUTONS_IS = {{{5, "5 A"}, {1, "1 A"}}};

const char* const AIDE = "Point on the text to obtain its meaning";
const char* const NON_OBLIGATOIRE = "The implementation of this value is not compulsory";

// Defaults of a new 225 kV line.
constexpr std::int32_t UP_DEFAUT = 225;
constexpr std::int32_t IP_DEFAUT = 1000;
constexpr float IS_DEFAUT = 1.0F;
constexpr double ITTRI_DEFAUT = 1000.0;
constexpr double ITMONO_DEFAUT = 1000.0;
constexpr double ITMAX_DEFAUT = 1200.0;

template <class T> void Defaut(T& v, T defaut) {
    if (v == T{}) v = defaut;
}

template <std::size_t N> bool DansLaListe(const std::array<Bouton, N>& boutons, double valeur) {
    return std::any_of(boutons.begin(), boutons.end(),
                       [valeur](const Bouton& b) { return b.valeur != 0 && b.valeur == valeur; });
}

bool LiaisonCentrale(int alim) {
    return alim == 1 || alim == 2;
}

} // namespace

double IccDuNiveau(std::int32_t up) {
    return up == 400 ? 63.0 : 31.5;
}

void AppliquerDefautsReseau(Etude& e) {
    Defaut(e.Ligne_Up, UP_DEFAUT);
    Defaut(e.Ligne_Ip, IP_DEFAUT);
    Defaut(e.Is, IS_DEFAUT);
    Defaut(e.Ligne_Icc, IccDuNiveau(e.Ligne_Up));
    Defaut(e.Ligne_Ittri, ITTRI_DEFAUT);
    Defaut(e.Ligne_Itmono, ITMONO_DEFAUT);
    Defaut(e.Ligne_Itmax, ITMAX_DEFAUT);
}

PanneauOptionsReseau::PanneauOptionsReseau(Etude& e) : Panneau("frmRéseauOptions"), e_(e) {
    AppliquerDefautsReseau(e);
    DefinirTitre("TOURNESOL [" + e.NomPoste + "]");

    auto valeur = [this](const std::string& nom, const char* format, const std::string& legende,
                         const std::string& groupe, double v) {
        Champ& c = Ajouter(GenreChamp::Texte, nom, "", groupe);
        c.Format = format;
        c.Legende = legende;
        ChampEcrire(c, v);
    };
    auto etiquette = [this](const std::string& nom, const std::string& texte,
                            const std::string& groupe) {
        Ajouter(GenreChamp::Etiquette, nom, texte, groupe);
    };

    // Tab " Transit current".
    const std::string transits = TRANSIT + "/transit currents (A)";
    valeur("txtitmax", "###0", "without reclosing cycle", transits, e.Ligne_Itmax);
    etiquette("aidemax", AIDE, transits);
    valeur("txtitmono", "###0", "Admitting a single phase reclosing cycle", transits,
           e.Ligne_Itmono);
    etiquette("Aidemono", AIDE, transits);
    valeur("txtittri", "###0", "Admitting a three phase reclosing cycle", transits, e.Ligne_Ittri);
    etiquette("aidetri", AIDE, transits);
    valeur("txtitclient", "###0", "total current running both lines", transits, e.Ligne_itclient);
    etiquette("aidecentrale",
              "the transit on the plant - substation links is defined by the apparent power of "
              "the generator (s)",
              transits);
    const std::string maximaux = TRANSIT + "/maximal currents (A)";
    etiquette("panel3d2", "maximal currents", maximaux);
    valeur("txtita", "###0", "maximal current running through  A", maximaux, e.Ligne_ItA);
    valeur("txtitb", "###0", "maximal current running through  B", maximaux, e.Ligne_ItB);
    valeur("txtitc", "###0", "maximal current running through  C", maximaux, e.Ligne_ItC);

    // Tab "Impedance or power".
    const std::string transformateurs = IMPEDANCE + "/transformers";
    etiquette("lblxam", "", transformateurs);
    valeur("txtxam", "##0.00", "Ω", transformateurs, e.Ligne_XAM);
    etiquette("lblxav", "", transformateurs);
    valeur("txtxav", "##0.00", "Ω", transformateurs, e.Ligne_XAV);
    etiquette("lblxaz", "", transformateurs);
    valeur("txtxaz", "##0.00", "Ω", transformateurs, e.Ligne_XAZ);
    const std::string distant = IMPEDANCE + "/remote end";
    etiquette("lblX1PB", "first zone impedance seen from the remote end", distant);
    valeur("txtx1pb", "##0.00", "Ω", distant, e.Ligne_X1PB);
    const std::string generateur = IMPEDANCE + "/generator";
    etiquette("lblPmax", "Maximal active power of the generator", generateur);
    valeur("txtpmax", "###0", "MW", generateur, e.Ligne_Pmax);
    etiquette("lblSmax", "maximal apparent power of the generator", generateur);
    valeur("txtsmax", "###0", "MVA", generateur, e.Ligne_Smax);

    // Tab "CT's and VT's": the option groups indexed by the value itself.
    ip_ = e.Ligne_Ip;
    is_ = e.Is == 0.0F ? 1.0F : e.Is;
    up_ = e.Ligne_Up;
    ipAutre_ = !DansLaListe(BOUTONS_IP, ip_);
    isAutre_ = !DansLaListe(BOUTONS_IS, is_);
    upAutre_ = !DansLaListe(BOUTONS_UP, up_);
    const std::string primaire = REDUCTEURS + "/primary current";
    for (const Bouton& b : BOUTONS_IP)
        Ajouter(GenreChamp::Option, NomIndice("chkip", b.valeur), b.texte, primaire);
    valeur("txtcustomip", "###0", "A", primaire, ip_);
    const std::string secondaire = REDUCTEURS + "/secondary current";
    for (const Bouton& b : BOUTONS_IS)
        Ajouter(GenreChamp::Option, NomIndice("chkis", b.valeur), b.texte, secondaire);
    Ajouter(GenreChamp::Option, "chkcustomis", "other", secondaire);
    valeur("txtcustomis", "0.0", "A", secondaire, is_);
    const std::string tension = REDUCTEURS + "/primary voltage";
    for (const Bouton& b : BOUTONS_UP)
        Ajouter(GenreChamp::Option, NomIndice("chkup", b.valeur), b.texte, tension);
    valeur("txtcustomup", "##0", "kV", tension, up_);

    // Tab "Line type".
    troisBouts_ = !e.NomPiquage.empty() || e.LigneTroisBouts;
    tl_ = e.Ligne_Tl;
    if (troisBouts_)
        tl_ = 3;
    else if (tl_ < 0 || tl_ > 2)
        tl_ = 0; // a line of two ends is never three-ended
    lc_ = e.Ligne_lc;
    alim_ = troisBouts_ ? 0 : e.Ligne_alim;
    const std::string genre = TYPE + "/line type";
    Ajouter(GenreChamp::Option, "chktypeligne(0)", "single circuit line", genre);
    Ajouter(GenreChamp::Option, "chktypeligne(1)", "double circuit line", genre);
    Ajouter(GenreChamp::Option, "chktypeligne(2)", "partially double circuit line", genre);
    Ajouter(GenreChamp::Option, "triple", "single circuit three ended line", genre);
    etiquette("Label13",
              "Attention: the substations (A), (B)and (C) must be chosen by such a way that the "
              "distances to the T-point P answer the inequality AP < BP < CP",
              genre);
    Ajouter(GenreChamp::Case, "chkcdg", "the line owns one or several earth cables", genre).Valeur =
        e.Ligne_cdg;
    const std::string longueur = TYPE + "/length";
    Ajouter(GenreChamp::Option, "chklignelongue", "long line", longueur);
    Ajouter(GenreChamp::Option, "chklignecourte", "short line", longueur);
    const std::string alimentation = TYPE + "/feeding";
    Ajouter(GenreChamp::Option, "chkinterconnexion", "meshed line", alimentation);
    Ajouter(GenreChamp::Option, "chkliaisoncentrale", "plant on side A, substation on side B",
            alimentation);
    Ajouter(GenreChamp::Option, "chkliaisonclient", "link toward a customer", alimentation);

    Ajouter(GenreChamp::Bouton, "Command1", "OK");
    Ajouter(GenreChamp::Bouton, "Command2", "cancel");
    Afficher();
}

// Every option, enabled and visible flag, and the captions, from the working copies.
void PanneauOptionsReseau::Afficher() {
    for (int k = 0; k <= 2; ++k) {
        Champ& c = *Trouver(NomIndice("chktypeligne", k));
        c.Valeur = tl_ == k;
        c.Visible = !troisBouts_;
    }
    Trouver("triple")->Visible = Trouver("triple")->Valeur = troisBouts_;
    Trouver("Label13")->Visible = troisBouts_;
    Trouver("chkcdg")->Visible = tl_ == 1 || tl_ == 2;

    Trouver("chklignelongue")->Valeur = lc_;
    Trouver("chklignecourte")->Valeur = !lc_;
    Trouver("chkinterconnexion")->Valeur = alim_ == 0;
    Trouver("chkliaisoncentrale")->Valeur = LiaisonCentrale(alim_);
    Trouver("chkliaisonclient")->Valeur = alim_ == 3;
    for (const char* nom : {"chklignelongue", "chklignecourte", "chkinterconnexion",
                            "chkliaisoncentrale", "chkliaisonclient"})
        Trouver(nom)->Actif = !troisBouts_;

    for (const Bouton& b : BOUTONS_IP)
        Trouver(NomIndice("chkip", b.valeur))->Valeur =
            b.valeur == 0 ? ipAutre_ : !ipAutre_ && b.valeur == ip_;
    Trouver("txtcustomip")->Actif = ipAutre_;
    for (const Bouton& b : BOUTONS_IS)
        Trouver(NomIndice("chkis", b.valeur))->Valeur =
            !isAutre_ && static_cast<float>(b.valeur) == is_;
    Trouver("chkcustomis")->Valeur = isAutre_;
    Trouver("txtcustomis")->Actif = isAutre_;
    for (const Bouton& b : BOUTONS_UP)
        Trouver(NomIndice("chkup", b.valeur))->Valeur =
            b.valeur == 0 ? upAutre_ : !upAutre_ && b.valeur == up_;
    Trouver("txtcustomup")->Actif = upAutre_;

    const bool centrale = LiaisonCentrale(alim_);
    const bool client = alim_ == 3;
    const char* const bouts[] = {"A", "B", "C"};
    const char* const etiquettes[] = {"lblxam", "lblxav", "lblxaz"};
    const char* const normales[] = {"on substation A", "on substationB", "on substationC"};
    for (std::size_t i = 0; i < 3; ++i)
        Trouver(etiquettes[i])
            ->DefinirTexte(
                centrale
                    ? std::string("impedance of the transformers at substation ") + bouts[i]
                    : std::string("transformer impedance                          ") + normales[i]);
    Trouver("lblxaz")->Visible = Trouver("txtxaz")->Visible = tl_ == 3;
    for (const char* nom : {"lblPmax", "txtpmax", "lblSmax", "txtsmax"})
        Trouver(nom)->Visible = centrale;
    const bool x1pb = !lc_ && tl_ != 3;
    for (const char* nom : {"lblX1PB", "txtx1pb"}) {
        Trouver(nom)->Visible = x1pb;
        Trouver(nom)->Actif = x1pb;
    }

    for (const char* nom : {"txtitmax", "aidemax", "txtitmono", "Aidemono", "txtittri", "aidetri"})
        Trouver(nom)->Visible = !centrale && !client;
    Trouver("txtitclient")->Visible = client;
    Trouver("aidecentrale")->Visible = centrale;
    for (const char* nom : {"panel3d2", "txtita", "txtitb", "txtitc"})
        Trouver(nom)->Visible = tl_ == 3;
}

void PanneauOptionsReseau::AideTransit() {
    aideMontree_ = true;
    const char *tri = nullptr, *mono = nullptr, *max = nullptr;
    switch (up_) {
    case 400:
        tri = NON_OBLIGATOIRE;
        mono = "The higher of IS2 (Winter2) and IS3 (spring-automn)";
        max = "IS3 (Winter2)";
        break;
    case 225:
        tri = mono = "IMAP (Winter2)";
        max = "IS3 (Winter2)";
        break;
    case 90:
    case 63:
        tri = mono = NON_OBLIGATOIRE;
        max = "1,15 x IMAP (Winter2)";
        break;
    default:
        tri = mono = max = AIDE; // no guide for another level
        break;
    }
    Trouver("aidetri")->DefinirTexte(tri);
    Trouver("Aidemono")->DefinirTexte(mono);
    Trouver("aidemax")->DefinirTexte(max);
}

void PanneauOptionsReseau::Entrer(const std::string& nom) {
    if (nom == TRANSIT) AideTransit();
}

void PanneauOptionsReseau::Cliquer(const std::string& nom) {
    if (BoutonsOkAnnuler(nom)) return;
    if (const auto k = IndiceDe(nom, "chktypeligne"); k && !troisBouts_ && *k >= 0 && *k <= 2)
        tl_ = *k;
    else if (nom == "chklignelongue" || nom == "chklignecourte") {
        if (!troisBouts_) lc_ = nom == "chklignelongue";
    } else if (nom == "chkinterconnexion" || nom == "chkliaisoncentrale" ||
               nom == "chkliaisonclient") {
        if (!troisBouts_)
            alim_ = nom == "chkinterconnexion"  ? 0
                    : nom == "chkliaisonclient" ? 3
                                                // The plant's side follows the relay's end.
                                                : (e_.Ligne_pp == 1 ? 2 : 1);
    } else if (const auto ip = IndiceDe(nom, "chkip")) {
        ipAutre_ = *ip == 0;
        if (!ipAutre_) ChampEcrire(*Trouver("txtcustomip"), ip_ = *ip);
    } else if (const auto is = IndiceDe(nom, "chkis")) {
        isAutre_ = false;
        ChampEcrire(*Trouver("txtcustomis"), is_ = static_cast<float>(*is));
    } else if (nom == "chkcustomis") {
        isAutre_ = true;
    } else if (const auto up = IndiceDe(nom, "chkup")) {
        upAutre_ = *up == 0;
        if (!upAutre_) ChampEcrire(*Trouver("txtcustomup"), up_ = *up);
    }
    LireSaisiesLibres();
    Afficher();
    // A help on show follows the level.
    if (aideMontree_ && nom.rfind("chkup", 0) == 0) AideTransit();
}

void PanneauOptionsReseau::Changer(const std::string& nom) {
    if (nom == "txtcustomip" || nom == "txtcustomis" || nom == "txtcustomup") {
        LireSaisiesLibres();
        Afficher();
        if (aideMontree_ && nom == "txtcustomup") AideTransit();
    }
}

// The custom fields count only while their "other" is chosen.
void PanneauOptionsReseau::LireSaisiesLibres() {
    if (ipAutre_) ip_ = static_cast<std::int32_t>(std::lround(ChampLire(*Trouver("txtcustomip"))));
    if (isAutre_) {
        // A secondary current of 0 would make the current ratio infinite: as on opening, 1.
        const auto v = static_cast<float>(ChampLire(*Trouver("txtcustomis")));
        is_ = v == 0.0F ? 1.0F : v;
    }
    if (upAutre_) up_ = static_cast<std::int32_t>(std::lround(ChampLire(*Trouver("txtcustomup"))));
}

void PanneauOptionsReseau::LireTransits() {
    auto lire = [this](const char* nom) { return ChampLire(*Trouver(nom)); };
    if (e_.Ligne_alim == 3) {
        e_.Ligne_itclient = lire("txtitclient");
        e_.Ligne_Itmono = 1.0;
        e_.Ligne_Ittri = 1.0;
    } else {
        e_.Ligne_Itmono = lire("txtitmono");
        e_.Ligne_Ittri = lire("txtittri");
        e_.Ligne_Itmax = lire("txtitmax");
    }
    e_.Ligne_ItA = lire("txtita");
    e_.Ligne_ItB = lire("txtitb");
    e_.Ligne_ItC = lire("txtitc");
    for (double* it : {&e_.Ligne_Ittri, &e_.Ligne_itclient, &e_.Ligne_Itmono})
        if (*it == 0.0) *it = 1.0;
    e_.Ligne_Itmax = std::max(e_.Ligne_Itmax, e_.Ligne_Ittri);
    e_.Ligne_Itmax = std::max(e_.Ligne_Itmax, e_.Ligne_Itmono);
}

void PanneauOptionsReseau::Valider() {
    LireSaisiesLibres();
    // 1. The line kind and its feeding; a plant link is stored by the relay's end.
    e_.Ligne_Tl = static_cast<Entier16>(tl_);
    e_.Ligne_lc = lc_;
    e_.Ligne_alim =
        static_cast<Entier16>(LiaisonCentrale(alim_) ? (e_.Ligne_pp == 1 ? 2 : 1) : alim_);
    if (e_.Ligne_Tl == 3) e_.Ligne_alim = 0;
    // 2. Earth cables, instrument transformers and the short-circuit level.
    e_.Ligne_cdg = Trouver("chkcdg")->Valeur;
    e_.Ligne_Ip = ip_;
    e_.Is = is_;
    e_.Ligne_Up = up_;
    e_.Ligne_Icc = IccDuNiveau(up_);
    // 3. The ratios, with the voltage ratio in force.
    e_.Ki = static_cast<double>(e_.Ligne_Ip) / static_cast<double>(e_.Is);
    if (e_.Ki != 0.0) e_.Kz = e_.Kv / e_.Ki;
    // 4. Transformer reactances, the remote end's first zone, the generator.
    auto lire32 = [this](const char* nom) { return static_cast<float>(ChampLire(*Trouver(nom))); };
    e_.Ligne_XAM = lire32("txtxam");
    e_.Ligne_XAV = lire32("txtxav");
    e_.Ligne_XAZ = lire32("txtxaz");
    e_.Ligne_X1PB = lire32("txtx1pb");
    e_.Ligne_Pmax = lire32("txtpmax");
    e_.Ligne_Smax = lire32("txtsmax");
    // 5. to 8. The transit currents.
    LireTransits();
    // 9. The study changed; a three-ended line's sections in order of length.
    e_.EtudeModifiee = true;
    e_.OptionsValides = true;
    if (e_.Ligne_Tl == 3) TrierLongueur(e_);
    confirme_ = true;
    FermerPanneau();
}

void PanneauOptionsReseau::Annuler() {
    FermerPanneau();
}

} // namespace tournesol
