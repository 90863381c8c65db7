#include "shell/Application.h"

#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Registre.h"
#include "relays/Relais.h"
#include "shell/PanneauDemarre.h"
#include "shell/PanneauTitre.h"

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
        options_.Choisir(e_.TypeReportCharge);
        InitEtude(e_, d_, options_);
        PanneauDemarre demarre(e_, d_, options_, base_, reglages_);
        d_.MontrerPanneau(demarre);
        d_.LaisserPasserEvenements();
    }
}

} // namespace tournesol
