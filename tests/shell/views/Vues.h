// The windows of the opening dialog, of the working window and of the relays, registered as the
// program does.
#pragma once

#include "core/Etude.h"
#include "core/views/DialogueQt.h"
#include "network/views/ImageLigne.h"
#include "relays/views/FenetreRelais.h"
#include "shell/PanneauDemarre.h"
#include "shell/PanneauTitre.h"
#include "shell/views/VueDemarre.h"
#include "shell/views/VueTitre.h"
#include "superposition/views/VueSuperposer.h"

#include <memory>

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

} // namespace tournesol
