// The windows of the opening dialog, of the working window and of the relays, registered as the
// program does; and an example study opened as the program opens it.
#pragma once

#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Registre.h"
#include "core/views/DialogueQt.h"
#include "network/views/ImageLigne.h"
#include "relays/Relais.h"
#include "relays/views/FenetreRelais.h"
#include "shell/Ouverture.h"
#include "shell/PanneauDemarre.h"
#include "shell/PanneauTitre.h"
#include "shell/views/VueDemarre.h"
#include "shell/views/VueTitre.h"
#include "superposition/views/VueSuperposer.h"

#include <memory>
#include <string>

namespace tournesol {

inline void InscrireVues(DialogueQt& d, Etude& e) {
    d.Inscrire("frmtitre", [](Panneau& p, DialogueQt&) -> std::unique_ptr<FenetrePanneau> {
        return std::make_unique<VueTitre>(dynamic_cast<PanneauTitre&>(p));
    });
    d.Inscrire("frmAPropos", [](Panneau& p, DialogueQt&) -> std::unique_ptr<FenetrePanneau> {
        return std::make_unique<VueAPropos>(dynamic_cast<PanneauAPropos&>(p));
    });
    d.Inscrire("frmDémarre", [&e](Panneau& p, DialogueQt&) -> std::unique_ptr<FenetrePanneau> {
        return std::make_unique<VueDemarre>(dynamic_cast<PanneauDemarre&>(p), e);
    });
    InscrireFenetreRelais(d);
    InscrireVueSuperposer(d);
    InscrireVuesReseau();
}

// An example study run from Open to the first drawing, as the command line runs it.
inline void OuvrirExemple(Etude& e, Dialogue& d, const char* fichier) {
    InscrireRelais();
    InitRegistre(e);
    PreparerOuverture(e);
    LireFichierEtude(std::string(TOURNESOL_EXEMPLES) + "/" + fichier, e);
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    InitEtude(e, d, options);
}

} // namespace tournesol
