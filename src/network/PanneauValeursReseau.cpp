#include "network/PanneauValeursReseau.h"

#include "core/ChampIndice.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "network/Sections.h"

#include <cmath>
#include <complex>

namespace tournesol {

namespace {

// An impedance from resistance and reactance to module and argument in degrees; a resistance of
// 0 leaves the argument as it stands.
void VersPolaire(double r, double x, double& module, double& degres) {
    module = std::sqrt(r * r + x * x);
    if (r != 0.0) degres = RadToDeg(std::atan2(x, r));
}

// And back.
void VersCartesien(double module, double degres, double& r, double& x) {
    r = module * std::cos(DegToRad(degres));
    x = module * std::sin(DegToRad(degres));
}

using Cplx = std::complex<double>;

// The fields of one section; the names of the arrays.
struct Section {
    double rl, xl, zl, phi;  // positive sequence, phi in degrees
    double kto, kao;         // earth factor, kao in degrees
    double ro, xo, zo, phio; // zero sequence, phio in degrees
};

Cplx Polaire(double module, double degres) {
    return std::polar(module, DegToRad(degres));
}

// ko = (Zo / Z1 - 1) / 3, as module and argument in degrees. Nothing without a line impedance.
void KoDepuisZo(Section& s) {
    if (s.zl == 0.0) return;
    const Cplx ko = (Polaire(s.zo, s.phio) / Polaire(s.zl, s.phi) - 1.0) / 3.0;
    s.kto = std::abs(ko);
    s.kao = RadToDeg(std::arg(ko));
}

// Zo = Z1 (1 + 3 ko), as module and argument in degrees.
void ZoDepuisKo(Section& s) {
    if (s.kao == 0.0) {
        s.zo = (3.0 * s.kto + 1.0) * s.zl;
        s.phio = s.phi;
        return;
    }
    const Cplx facteur = 1.0 + 3.0 * Polaire(s.kto, s.kao);
    s.zo = std::abs(facteur) * s.zl;
    s.phio = s.phi + RadToDeg(std::arg(facteur));
}

} // namespace

PanneauValeursReseau::PanneauValeursReseau(Etude& e) : Panneau("frmréseauvaleurs"), e_(e) {
    DefinirTitre("TOURNESOL [" + e.NomPoste + "]");
    // A three-ended line's sections in the order of the ends, A, B, C.
    if (e.Ligne_Tl == 3) TrierEx(e);
    sections_ = e.Ligne_Tl == 2 ? 2 : e.Ligne_Tl == 3 ? 3 : 1;

    auto valeur = [this](const char* tableau, int i, const char* format, const std::string& legende,
                         const std::string& groupe, double v) {
        Champ& c = Ajouter(GenreChamp::Texte, NomIndice(tableau, i), "", groupe);
        c.Format = format;
        c.Legende = legende;
        ChampEcrire(c, v);
    };
    for (int i = 0; i < sections_; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const std::string onglet = Onglet(i);
        const std::string total = onglet + "/total primary values";
        Ajouter(GenreChamp::Etiquette, NomIndice("lblremplir", i),
                "fill one line after activating by the button ", total);
        valeur("txtlongueur", i, "##0.000", "line length (km)", total, e.Ligne_Longueur[k]);

        const std::string directe = onglet + "/positive sequence line";
        Ajouter(GenreChamp::Option, NomIndice("chkcart", i), "Resistance, Reactance", directe)
            .Valeur = true;
        valeur("txtrl", i, "##0.000", "Resistance (Ω)", directe, e.Ligne_RL[k]);
        valeur("txtxl", i, "##0.000", "Reactance (Ω)", directe, e.Ligne_XL[k]);
        Ajouter(GenreChamp::Option, NomIndice("chkpol", i), "impedance module, impedance argument",
                directe);
        valeur("txtzl", i, "##0.000", "impedance module  (Ω)", directe, e.Ligne_ZL[k]);
        valeur("txtphi", i, "#0.000", "impedance argument (°)", directe, RadToDeg(e.Ligne_PHI[k]));

        const std::string homopolaire = onglet + "/zero sequence line";
        Ajouter(GenreChamp::Option, NomIndice("chkko", i), "earth factor ko", homopolaire).Valeur =
            true;
        valeur("txtkto", i, "0.000", "module of ko", homopolaire, e.Ligne_ko[k]);
        valeur("txtkao", i, "#0.000", "argument of ko (°)", homopolaire, e.Ligne_ako[k]);
        Ajouter(GenreChamp::Option, NomIndice("chkhcart", i),
                "zero sequence resistance and reactance", homopolaire);
        valeur("txtro", i, "##0.000", "Resistance (Ω)", homopolaire, e.Ligne_Ro[k]);
        valeur("txtxo", i, "##0.000", "Reactance (Ω)", homopolaire, e.Ligne_Xo[k]);
        Ajouter(GenreChamp::Option, NomIndice("chkhpol", i), "zero sequence module and argument",
                homopolaire);
        valeur("txtzo", i, "##0.000", "Impedance module  (Ω)", homopolaire,
               std::hypot(e.Ligne_Ro[k], e.Ligne_Xo[k]));
        valeur("txtphio", i, "#0.000", "impedance argument  (°)", homopolaire, RadToDeg(e.PHIo[k]));
        if (i == 0) {
            Champ& kom = Ajouter(GenreChamp::Texte, "txtkom", "", homopolaire);
            kom.Format = "0.000";
            kom.Legende = "kom";
            kom.Visible = e.Ligne_Tl == 1 || e.Ligne_Tl == 2;
            ChampEcrire(kom, e.Ligne_kom);
        }
        Verrouiller(i);
    }
    Ajouter(GenreChamp::Bouton, "Command1", "OK");
    Ajouter(GenreChamp::Bouton, "Command2", "cancel");
}

std::string PanneauValeursReseau::Onglet(int i) const {
    switch (e_.Ligne_Tl) {
    case 2:
        return i == 0 ? "Section 1, on common towers" : "Section 2";
    case 3: {
        // The end the section belongs to.
        const int bout = e_.Ligne_Ex[static_cast<std::size_t>(i)];
        const char lettre =
            bout >= 1 && bout <= 3 ? static_cast<char>('A' + bout - 1) : static_cast<char>('A' + i);
        return std::string("Section ") + lettre + " - P";
    }
    default:
        return "Line A - B";
    }
}

// The fields of the forms not chosen are locked.
void PanneauValeursReseau::Verrouiller(int section) {
    auto champ = [this, section](const char* tableau) -> Champ& {
        return *Trouver(NomIndice(tableau, section));
    };
    const bool cart = champ("chkcart").Valeur;
    champ("txtrl").Actif = champ("txtxl").Actif = cart;
    champ("txtzl").Actif = champ("txtphi").Actif = !cart;
    const bool ko = champ("chkko").Valeur;
    const bool hcart = champ("chkhcart").Valeur;
    const bool hpol = champ("chkhpol").Valeur;
    champ("txtkto").Actif = champ("txtkao").Actif = ko;
    champ("txtro").Actif = champ("txtxo").Actif = hcart;
    champ("txtzo").Actif = champ("txtphio").Actif = hpol;
}

void PanneauValeursReseau::Recalculer(int section) {
    auto champ = [this, section](const char* tableau) -> Champ& {
        return *Trouver(NomIndice(tableau, section));
    };
    Section s{};
    s.rl = ChampLire(champ("txtrl"));
    s.xl = ChampLire(champ("txtxl"));
    s.zl = ChampLire(champ("txtzl"));
    s.phi = ChampLire(champ("txtphi"));
    s.kto = ChampLire(champ("txtkto"));
    s.kao = ChampLire(champ("txtkao"));
    s.ro = ChampLire(champ("txtro"));
    s.xo = ChampLire(champ("txtxo"));
    s.zo = ChampLire(champ("txtzo"));
    s.phio = ChampLire(champ("txtphio"));

    // Positive sequence.
    if (champ("chkcart").Valeur) {
        VersPolaire(s.rl, s.xl, s.zl, s.phi);
        ChampEcrire(champ("txtzl"), s.zl);
        ChampEcrire(champ("txtphi"), s.phi);
    } else {
        VersCartesien(s.zl, s.phi, s.rl, s.xl);
        ChampEcrire(champ("txtrl"), s.rl);
        ChampEcrire(champ("txtxl"), s.xl);
    }

    // Zero sequence.
    if (champ("chkko").Valeur) {
        ZoDepuisKo(s);
        VersCartesien(s.zo, s.phio, s.ro, s.xo);
        ChampEcrire(champ("txtzo"), s.zo);
        ChampEcrire(champ("txtphio"), s.phio);
        ChampEcrire(champ("txtro"), s.ro);
        ChampEcrire(champ("txtxo"), s.xo);
        return;
    }
    if (champ("chkhcart").Valeur) {
        VersPolaire(s.ro, s.xo, s.zo, s.phio);
        ChampEcrire(champ("txtzo"), s.zo);
        ChampEcrire(champ("txtphio"), s.phio);
    } else {
        VersCartesien(s.zo, s.phio, s.ro, s.xo);
        ChampEcrire(champ("txtro"), s.ro);
        ChampEcrire(champ("txtxo"), s.xo);
    }
    KoDepuisZo(s);
    ChampEcrire(champ("txtkto"), s.kto);
    ChampEcrire(champ("txtkao"), s.kao);
}

void PanneauValeursReseau::Changer(const std::string& nom) {
    for (const char* tableau :
         {"txtlongueur", "txtrl", "txtxl", "txtzl", "txtphi", "txtkto", "txtkao", "txtro", "txtxo",
          "txtzo", "txtphio", "chkcart", "chkpol", "chkko", "chkhcart", "chkhpol"})
        if (const auto i = IndiceDe(nom, tableau); i && *i >= 0 && *i < sections_) {
            Verrouiller(*i);
            Recalculer(*i);
            return;
        }
}

void PanneauValeursReseau::Cliquer(const std::string& nom) {
    if (BoutonsOkAnnuler(nom)) return;
    // An entry option: the group of the section takes it.
    const char* const directe[] = {"chkcart", "chkpol"};
    const char* const homopolaire[] = {"chkko", "chkhcart", "chkhpol"};
    auto choisir = [&](const auto& groupe) {
        for (const char* tableau : groupe)
            if (const auto i = IndiceDe(nom, tableau); i && *i >= 0 && *i < sections_) {
                for (const char* autre : groupe)
                    Trouver(NomIndice(autre, *i))->Valeur = autre == tableau;
                Changer(nom);
                return true;
            }
        return false;
    };
    if (!choisir(directe)) choisir(homopolaire);
}

void PanneauValeursReseau::Valider() {
    e_.Ligne_kom = ChampLire(*Trouver("txtkom"));
    for (int i = 0; i < sections_; ++i) {
        const auto k = static_cast<std::size_t>(i);
        auto lire = [this, i](const char* tableau) {
            return ChampLire(*Trouver(NomIndice(tableau, i)));
        };
        e_.Ligne_Longueur[k] = lire("txtlongueur");
        e_.Ligne_XL[k] = lire("txtxl");
        e_.Ligne_RL[k] = lire("txtrl");
        e_.Ligne_ZL[k] = lire("txtzl");
        e_.Ligne_ko[k] = lire("txtkto");
        e_.Ligne_ako[k] = lire("txtkao");
        e_.Ligne_PHI[k] = DegToRad(lire("txtphi"));
        e_.PHIo[k] = DegToRad(lire("txtphio"));
        e_.Ligne_Ro[k] = lire("txtro");
        e_.Ligne_Xo[k] = lire("txtxo");
        zo_[k] = lire("txtzo");
    }
    // The computation of a three-ended line takes the sections in order of length, as the
    // options panel leaves them.
    if (e_.Ligne_Tl == 3) TrierLongueur(e_);
    e_.ValeursValides = true;
    e_.EtudeModifiee = true;
    confirme_ = true;
    FermerPanneau();
}

void PanneauValeursReseau::Annuler() {
    FermerPanneau();
}

} // namespace tournesol
