#include "shell/Ouverture.h"

#include "core/BaseEtudes.h"
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Panneau.h"
#include "core/Registre.h"
#include "network/Calcul.h"
#include "network/PanneauOptionsReseau.h"
#include "network/Transit.h"

namespace tournesol {

void OptionsReport::Choisir(int cas) {
    Coche.fill(false);
    if (cas >= 0 && cas < 3) Coche[static_cast<std::size_t>(cas)] = true;
}

int OptionsReport::Cas() const {
    for (int cas = 0; cas < 3; ++cas)
        if (Coche[static_cast<std::size_t>(cas)]) return cas;
    return 0;
}

void AppliquerReports(const Etude& e, OptionsReport& options) {
    if (e.Ligne_alim == 0) {
        for (std::size_t cas = 0; cas < 3; ++cas)
            options.Actif[cas] = !RelaisConnu(e.id_protection) ||
                                 e.ReportAdmis[static_cast<std::size_t>(e.id_protection - 1)][cas];
    } else if (e.Ligne_alim >= 1 && e.Ligne_alim <= 3) {
        options.Actif = {false, false, true};
    }
}

double CourantDuCas(const Etude& e, int cas) {
    switch (cas) {
    case REPORT_TRIPHASE:
        return e.Ligne_Ittri;
    case REPORT_MONOPHASE:
        return e.Ligne_Itmono;
    default:
        if (e.Ligne_alim == 0) return e.Ligne_Itmax;
        if (e.Ligne_alim == 3) return e.Ligne_itclient;
        return e.It;
    }
}

void PreparerOuverture(Etude& e) {
    e.Ligne_Ex = {1, 2, 3};
    AppliquerDefautsRelais(e);
}

void ViderLigne(Etude& e) {
    const Etude neuve;
#define TOURNESOL_VIDER(type, nom) e.nom = neuve.nom;
    TOURNESOL_ETUDE_LIGNE(TOURNESOL_VIDER)
    TOURNESOL_ETUDE_DERIVEES(TOURNESOL_VIDER)
#undef TOURNESOL_VIDER
    for (double& x : e.Ligne_XL)
        if (x == 0.0) x = 1.0;
    PreparerOuverture(e);
}

void InitEtude(Etude& e, Dialogue& d, OptionsReport& options) {
    e.TransitOK1 = true;
    e.TransitOK2 = true;
    // A factor the study already holds counts as worked out: the load report panel then keeps
    // it instead of computing it anew.
    e.CRtCalcule = e.Ligne_CRt != 0.0;
    e.CRmCalcule = e.Ligne_CRm != 0.0;
    // What the file or an earlier study left in ErrCalcul is no failure of this opening.
    e.ErrCalcul = 0;
    if (!e.NouvelleLigne) {
        e.ReportsCalcules = false;
        e.ShowValeurs = false;
        const Entier16 ancien = e.TypeReportCharge;
        for (int cas = 0; cas < 3 && e.ErrCalcul == 0; ++cas) {
            e.TypeReportCharge = static_cast<Entier16>(cas);
            e.It = CourantDuCas(e, cas);
            Calcul(e, d);
        }
        e.TypeReportCharge = ancien;
        e.ReportsCalcules = true;
        e.RelaisPret = false;
        if (e.ErrCalcul != 0) {
            // A line that cannot be computed stops the opening there: told once, the relay
            // waits for the corrected line.
            SignalerEchec(e, d);
            e.PanneauRelais = true;
        } else {
            OuvrirPanneau(e, d, options, true);
        }
    }
    e.TypeReportCharge = static_cast<Entier16>(options.Cas());
    CalculerEtTracer(e, d, options);
    e.EtudeModifiee = false;
    e.ProtectionInconnue = false;
}

void InitSuperposition(Etude& e) {
    e.TransitOK1 = true;
    e.TransitOK2 = true;
    e.ReportsCalcules = true;
    e.RelaisPret = false;
    e.EtudeModifiee = false;
    e.ProtectionInconnue = false;
}

void CalculerEtTracer(Etude& e, Dialogue& d, OptionsReport& options) {
    AppliquerReports(e, options);
    e.TypeReportCharge = static_cast<Entier16>(options.Cas());
    e.It = CourantDuCas(e, e.TypeReportCharge);
    // A failure already pending (the opening's) is not run on: the area waits for the user's
    // next command.
    if (e.ErrCalcul == 0) TransitCalc(e);
    if (e.ErrCalcul != 0) {
        SignalerEchec(e, d);
        e.TransitOK1 = false;
        e.TransitOK2 = false;
        return;
    }
    e.TransitOK1 = true;
    e.TransitOK2 = true;
}

void OuvrirPanneau(Etude& e, Dialogue& d, OptionsReport& options, bool sansAffichage) {
    const bool sablier = d.Sablier(true);
    d.LaisserPasserEvenements();
    e.ErrCalcul = 0;
    e.RelaisPret = false;
    e.DiagramActuel = false;
    e.DiagnosticsOuverts = false; // the diagnostics window closes
    d.Sablier(sablier);
    if (sansAffichage) {
        if (e.id_protection == 0) {
            e.sTitre = "TOURNESOL : Attention";
            e.sMessage = "Choisis de nouveau la protection";
            e.IconeMessage = 3;
            AfficherMessage(e, d);
        }
        // The panel's creation computes the relay's reaches.
        ExecuterCalcul(e, [&] { CreerPanneauRelais(e, d); });
    } else {
        e.XprimFige = 0.0;
        ExecuterCalcul(e, [&] {
            // A panel whose opening failed has hidden itself already.
            if (auto panneau = CreerPanneauRelais(e, d); panneau && !panneau->Ferme())
                d.MontrerPanneau(*panneau);
        });
        e.XprimFige = -1.0;
    }
    if (e.ErrCalcul != 0) {
        e.RelaisPret = false;
        // The relay's panel shows no failure itself, whether it was seen or not.
        SignalerEchec(e, d);
        e.PanneauRelais = true;
    } else {
        e.RelaisPret = true;
        e.DiagramActuel = false;
        e.ImpressionActuelle = false;
        CalculerEtTracer(e, d, options);
        e.PanneauRelais = false;
    }
    d.Sablier(sablier);
    e.EtudeModifiee = true;
}

bool PeutQuitterEtude(Etude& e, Dialogue& d, BaseEtudes* base) {
    if (!e.EtudeModifiee || !base) return true;
    const int reponse = d.Question("TOURNESOL : Attention",
                                   "The study has changed since it was last saved.\r\n"
                                   "Save the changes?",
                                   3, {"&Save", "&Don't save", "&Cancel"});
    if (reponse == 1) {
        e.EtudeModifiee = false; // dropped: the next door out does not ask again
        return true;
    }
    if (reponse != 0) return false;
    e.Sauvegarde = true;
    return base->Sauver(e, d) && !e.EtudeModifiee;
}

void ControleLongueur(Etude& e, Dialogue& d) {
    if (!e.OptionsValides || !e.ValeursValides) return;
    e.sTitre = "TOURNESOL : Attention";
    e.IconeMessage = 3;
    if (e.Ligne_Longueur[0] <= 1.0) return;
    if (e.Ligne_Tl == 0 || e.Ligne_Tl == 1)
        e.Longueur_eq = e.Ligne_Longueur[0];
    else if (e.Ligne_Tl == 2)
        e.Longueur_eq = e.Ligne_Longueur[0] + e.Ligne_Longueur[1];
    if (e.Ligne_Tl >= 3) return;
    if (e.Ligne_lc && e.Longueur_eq < 10.0)
        e.sMessage = "Attention, you consider as long a line shorter than 10 km.";
    else if (!e.Ligne_lc && e.Longueur_eq > 15.0)
        e.sMessage = "Attention, you consider as short a line longer than 15 km.";
    else
        return;
    AfficherMessage(e, d);
}

} // namespace tournesol
