#include "shell/Application.h"

#include "core/BaseEtudes.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Registre.h"
#include "network/PanneauOptionsReseau.h"
#include "relays/Relais.h"
#include "shell/PanneauDemarre.h"
#include "shell/PanneauTitre.h"
#include "superposition/PanneauSuperposer.h"

namespace tournesol {

void RemplirRegistre(Etude& e, Dialogue& d) {
    InscrireRelais();
    PanneauChoixProtection choix(e, d); // never shown: only its captions are read
    for (int id = 1; id <= NOMBRE_RELAIS; ++id) {
        const auto i = static_cast<std::size_t>(id - 1);
        e.ReportAdmis[i].fill(true);
        e.NomsProtection[i] = choix.Trouver("Option3D1(" + std::to_string(id) + ")")->Texte();
    }
    for (const int id : {1, 2, 6, 7, 11})
        e.ReportAdmis[static_cast<std::size_t>(id - 1)][REPORT_MONOPHASE] = false;
}

Application::Application(Etude& e, Dialogue& d, BaseEtudes* base,
                         std::optional<std::filesystem::path> reglages)
    : e_(e), d_(d), base_(base), reglages_(std::move(reglages)) {}

bool Application::OuvrirFichier(const std::filesystem::path& chemin) {
    Etude lue = e_;
    PreparerOuverture(lue);
    try {
        LireFichierEtude(chemin, lue);
        // The keys of a file belong to no base: the save finds the line by its names.
        PreparerImport(lue);
    } catch (const ErreurFichierEtude& err) {
        d_.Message("TOURNESOL : Attention", chemin.string() + " : " + err.what(), 3);
        return false;
    }
    e_ = std::move(lue);
    OuvrirAuDemarrage();
    return true;
}

void Application::Main() {
    e_.QuitterAppli = false;
    RemplirRegistre(e_, d_);
    while (!e_.QuitterAppli) {
        if (directe_) {
            directe_ = false;
            e_.OuvertureOK = true;
        } else {
            e_.OuvertureOK = false;
            PanneauTitre titre(e_, d_, base_);
            d_.MontrerPanneau(titre);
            if (!e_.OuvertureOK && !e_.QuitterAppli) continue;
        }
        if (e_.QuitterAppli) break;
        e_.ChangerPoste = false;
        if (e_.Superposition) {
            InitSuperposition(e_);
            PanneauSuperposer::Services services;
            services.OuvrirPlace = [this](Etude& e, int place) { return OuvrirPlace(e, place); };
            services.ReglerRelais = [this](Etude& e) {
                // The place's own report case, not the one the last study left.
                options_.Choisir(e.TypeReportCharge);
                OuvrirPanneau(e, d_, options_, false);
                return e.ErrCalcul == 0;
            };
            PanneauSuperposer superposer(e_, d_, base_, services, reglages_);
            d_.MontrerPanneau(superposer);
            d_.LaisserPasserEvenements();
            continue;
        }
        options_.Choisir(e_.TypeReportCharge);
        InitEtude(e_, d_, options_);
        PanneauDemarre demarre(e_, d_, options_, base_, reglages_);
        d_.MontrerPanneau(demarre);
        d_.LaisserPasserEvenements();
    }
}

bool Application::OuvrirPlace(Etude& e, int place) {
    if (place == 2) {
        // The relay of the second place by its name in the registry; chosen when the name is
        // none of the registry's.
        e.id_protection = 0;
        for (int id = 1; id <= NOMBRE_RELAIS; ++id) {
            const auto i = static_cast<std::size_t>(id - 1);
            if (e.NomProtection == e.NomsProtection[i] || e.NomProtection == LEGENDES_PROTECTION[i])
                e.id_protection = id;
        }
        if (e.id_protection == 0 && !PanneauTitre::ChoixProtection(e, d_, true)) return false;
        e.ProtectionChoisie = e.id_protection;
        PreparerOuverture(e);
        if (base_) base_->Ouvrir(e, d_);
        if (e.NouvelleLigne) ViderLigne(e);
        const PanneauOptionsReseau options(e);
    }
    // The first place was read by the opening dialog: it is computed as InitEtude does.
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    InitEtude(e, d_, options);
    return e.ErrCalcul == 0 && e.RelaisPret;
}

} // namespace tournesol
