#include "network/ReportCharge.h"

#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Numerique.h"
#include "network/Calcul.h"

#include <cmath>

namespace tournesol {

namespace {

constexpr int NIVEAUX_VOISIN[] = {63, 90, 225, 400};

std::string OptionNiveau(int kv) {
    return "chk" + std::to_string(kv) + "kv";
}

bool CasCalcule(const Etude& e) {
    return e.TypeReportCharge == 0 ? e.CRtCalcule : e.CRmCalcule;
}

} // namespace

void EtapeReport(Etude& e, Dialogue& d) {
    // The generator side follows the relay's end.
    if (e.Ligne_pp == 0 && e.Ligne_alim == 2) e.Ligne_alim = 1;
    if (e.Ligne_pp == 1 && e.Ligne_alim == 1) e.Ligne_alim = 2;
    if (e.Ligne_alim != 1 && e.Ligne_alim != 2 &&
        (e.TypeReportCharge == 0 || e.TypeReportCharge == 1) && (e.ShowValeurs || !CasCalcule(e))) {
        PanneauReportCharge panneau(e, d);
        d.MontrerPanneau(panneau);
    }
    e.CRcalc = 1.0;
}

double CalculFacteurReport(Etude& e) {
    const double sqrt3 = std::sqrt(3.0);
    e.Ligne_XSmini = Div(e.Ligne_Up, sqrt3 * e.Ligne_Icc);
    const double rapport = Div(e.Ligne_Up, e.Ligne_UnA);
    e.Ligne_XLD = rapport * e.Ligne_XLA * rapport;
    const double r = TermeSource(e);
    e.Ligne_XS = Div(e.Ligne_XLD, e.XL_eq + e.Ligne_XLD) * (r - e.XL_eq) + 2.0 * e.Ligne_XSmini;
    e.CRcalc = Verifier(Div(e.XL_eq, e.Ligne_XLD) + 1.0 -
                        Div(Div(Carre(e.XL_eq), e.Ligne_XLD), e.Ligne_XS + e.XL_eq));
    return e.CRcalc;
}

PanneauReportCharge::PanneauReportCharge(Etude& e, Dialogue& d)
    : Panneau("frmReportCharge"), e_(e), d_(d), crt_(e.Ligne_CRt), crm_(e.Ligne_CRm),
      xla_(e.Ligne_XLA), xld_(e.Ligne_XLD), xs_(e.Ligne_XS), xsmini_(e.Ligne_XSmini),
      una_(e.Ligne_UnA) {
    DefinirTitre("TOURNESOL [" + e.NomPoste + "]");
    Ajouter(GenreChamp::Etiquette, "panel3d1", "load report");
    Ajouter(GenreChamp::Option, "chkcalcul", "Calculation of the three phase load report factor",
            "mode");
    Ajouter(GenreChamp::Option, "chksaisie", "inscription of the three phase load report factor",
            "mode");
    Ajouter(GenreChamp::Etiquette, "Frame1", "Voltage of the neighbour link", "Frame1");
    Ajouter(GenreChamp::Option, "chk63kv", "      63 kV", "Frame1");
    Ajouter(GenreChamp::Option, "chk90kv", "      90 kV", "Frame1");
    Ajouter(GenreChamp::Option, "chk225kv", "      225 kV", "Frame1");
    Ajouter(GenreChamp::Option, "chk400kv", "      400kV", "Frame1");
    Ajouter(GenreChamp::Option, "chkautre", "      other", "Frame1");
    auto valeur = [this](const char* nom, const char* format, const char* legende) {
        Champ& c = Ajouter(GenreChamp::Texte, nom, "", "valeurs");
        c.Format = format;
        c.Legende = legende;
    };
    valeur("txtxla", "##0.00", "positive sequence reactance of the neighbour link   (Ω)");
    valeur("txtcrt", "0.000", "current admitting the three phase load report     ");
    valeur("txtcrm", "0.000", "current admitting the single phase load report                ");
    Ajouter(GenreChamp::Bouton, "Command2", "&Calculer");

    ChampEcrire(*Trouver("txtxla"), e.Ligne_XLA);
    ChampEcrire(*Trouver("txtcrt"), e.Ligne_CRt);
    ChampEcrire(*Trouver("txtcrm"), e.Ligne_CRm);
    // The field of the current case is the one to fill; the other only when it holds a factor.
    Trouver("txtcrt")->Actif = e.TypeReportCharge == 0 || e.Ligne_CRt != 0.0;
    Trouver("txtcrm")->Actif = e.TypeReportCharge == 1 || e.Ligne_CRm != 0.0;

    std::string niveau = "chkautre";
    for (const int kv : NIVEAUX_VOISIN)
        if (e.Ligne_Up == kv) niveau = OptionNiveau(kv);
    ChoisirNiveau(niveau);

    // A computation that fails here (a neighbour reactance of 0 on a new line) does not keep
    // the panel from coming up: it shows the failure, and the engineer types the value.
    Ajouter(GenreChamp::Etiquette, "lblErreur", "").Visible = false;
    if (const int numero = ExecuterEtape([&] { ChoisirMode(!CasCalcule(e)); }); numero != 0) {
        std::string texte = MessageErreurCalcul(numero);
        for (std::size_t i; (i = texte.find("\r\n\r\n")) != std::string::npos;)
            texte.replace(i, 4, " ");
        Champ& erreur = *Trouver("lblErreur");
        erreur.DefinirTexte(texte);
        erreur.Visible = true;
    }
}

void PanneauReportCharge::ChoisirMode(bool calcul) {
    Trouver("chkcalcul")->Valeur = calcul;
    Trouver("chksaisie")->Valeur = !calcul;
    Trouver("Command2")->DefinirTexte(calcul ? "&Calculer" : "OK");
    if (calcul && (e_.TypeReportCharge == 0 || e_.TypeReportCharge == 1)) Calculer();
}

void PanneauReportCharge::Calculer() {
    if (e_.Ligne_alim != 0) return;
    e_.Ligne_XLA = ChampLire(*Trouver("txtxla"));
    CalculFacteurReport(e_);
    EcrireResultat();
}

void PanneauReportCharge::EcrireResultat() {
    if (e_.TypeReportCharge == 0)
        e_.Ligne_CRt = e_.CRcalc;
    else if (e_.TypeReportCharge == 1)
        e_.Ligne_CRm = e_.CRcalc;
    Champ& crt = *Trouver("txtcrt");
    Champ& crm = *Trouver("txtcrm");
    ChampEcrire(crt, e_.Ligne_CRt);
    ChampEcrire(crm, e_.Ligne_CRm);
    crt.Actif = e_.Ligne_CRt != 0.0;
    crm.Actif = e_.Ligne_CRm != 0.0;
}

void PanneauReportCharge::LireSaisie() {
    e_.Ligne_CRt = ChampLire(*Trouver("txtcrt"));
    e_.Ligne_CRm = ChampLire(*Trouver("txtcrm"));
}

void PanneauReportCharge::ChoisirNiveau(const std::string& option) {
    e_.Ligne_UnA = e_.Ligne_Up;
    for (const int kv : NIVEAUX_VOISIN) {
        Trouver(OptionNiveau(kv))->Valeur = option == OptionNiveau(kv);
        if (option == OptionNiveau(kv)) e_.Ligne_UnA = kv;
    }
    Trouver("chkautre")->Valeur = option == "chkautre";
}

void PanneauReportCharge::Cliquer(const std::string& nom) {
    // A failed computation is told at once; the panel stays up with what it showed.
    const int numero = ExecuterEtape([&] {
        if (nom == "chkcalcul" || nom == "chksaisie")
            ChoisirMode(nom == "chkcalcul");
        else if (nom == "Command2")
            Valider();
        else if (nom == "chkautre" || nom.find("kv") != std::string::npos)
            ChoisirNiveau(nom);
    });
    if (numero != 0) {
        // Told here, once: whoever ran the computation does not tell it again.
        e_.ErrCalcul = static_cast<Entier16>(numero);
        MontrerErreurCalcul(e_, d_);
        e_.ErrCalcul = ERR_SIGNALEE;
        Trouver("lblErreur")->Visible = true;
        erreurPosee_ = true;
    } else if (erreurPosee_ && Ferme()) {
        // Corrected and confirmed: the failure told before is no longer the study's.
        e_.ErrCalcul = 0;
        erreurPosee_ = false;
    }
}

void PanneauReportCharge::Valider() {
    Trouver("lblErreur")->Visible = false;
    if (Trouver("chkcalcul")->Valeur) {
        Calculer();
    } else {
        LireSaisie();
    }
    (e_.TypeReportCharge == 0 ? e_.CRtCalcule : e_.CRmCalcule) = true;
    confirme_ = true;
    FermerPanneau();
}

bool PanneauReportCharge::Fermer() {
    if (confirme_) {
        FermerPanneau();
        return true;
    }
    e_.sTitre = "TOURNESOL : confirmer";
    e_.sMessage = "Valeurs non confirmées. Continuer avec les anciennes valeurs ?";
    e_.IconeMessage = 0;
    e_.BoutonsQuestion = {"Con&firmer", "&Continuer", "&Annuler"};
    PoserQuestion(e_, d_);
    switch (e_.ReponseQuestion) {
    case 0:
        Cliquer("Command2");
        return Ferme();
    case 1:
        e_.Ligne_CRt = crt_;
        e_.Ligne_CRm = crm_;
        e_.Ligne_XLA = xla_;
        e_.Ligne_XLD = xld_;
        e_.Ligne_XS = xs_;
        e_.Ligne_XSmini = xsmini_;
        e_.Ligne_UnA = una_;
        FermerPanneau();
        return true;
    default:
        return false;
    }
}

} // namespace tournesol
