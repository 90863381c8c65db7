// What the relays' tests share: an example line opened as the working window opens it, a panel
// on it with a field typed as the user types it, the text of the pages printed for a study, the
// rules of a relay's range that a study sets, and a round trip of the settings through the store.
#pragma once

#include "../printing/EtudeImprimee.h"
#include "core/Complexe.h"
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Magasin.h"
#include "core/Numerique.h"
#include "core/Panneau.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "printing/Impression.h"
#include "printing/PageEnregistree.h"
#include "relays/Relais.h"
#include "shell/Ouverture.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace tournesol {

// The point `p` of the plane stands at (re, im), within `tol`.
inline ::testing::AssertionResult Au(const Complexe& p, double re, double im, double tol = 1e-9) {
    if (std::fabs(p.Re - re) <= tol && std::fabs(p.Im - im) <= tol)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "(" << p.Re << ", " << p.Im << ") instead of (" << re << ", " << im << ")";
}

// The example `fichier` read and computed as the working window opens it. With a relay given,
// that relay is put on the line first, in mode "Return", and the computation must succeed; the
// working window puts "Return" back once the panel is closed.
inline void OuvrirExemple(Etude& e, Dialogue& d, OptionsReport& options, const std::string& fichier,
                          int relais = -1) {
    InscrireRelais();
    InitRegistre(e);
    PreparerOuverture(e);
    LireFichierEtude(std::string(TOURNESOL_EXEMPLES "/") + fichier, e);
    if (relais >= 0) {
        e.id_protection = relais;
        e.PanneauRelais = true;
    }
    options.Choisir(e.TypeReportCharge);
    InitEtude(e, d, options);
    if (relais >= 0) {
        ASSERT_EQ(e.ErrCalcul, 0);
        e.PanneauRelais = true;
    }
}

// A field typed as the user types it: entered, its text replaced, left.
inline void Saisir(Panneau& p, const std::string& champ, const std::string& texte) {
    p.Entrer(champ);
    p.Trouver(champ)->DefinirTexte(texte);
    p.Quitter(champ);
}

// An example line and the relay's panel `P` on it, with the dialogue `D`.
template <class P, class D = DialogueSansFenetre> struct EtudeEtPanneau : ::testing::Test {
    void Charger(const std::string& fichier, int relais = -1) {
        OuvrirExemple(e, d, options, fichier, relais);
    }
    // The panel opened in mode "Return" (true) or "Modify" (false).
    P& Panneau(bool retour) {
        e.PanneauRelais = retour;
        p = std::make_unique<P>(e, d);
        p->Ouvrir();
        return *p;
    }
    void Saisir(const std::string& champ, const std::string& texte) {
        tournesol::Saisir(*p, champ, texte);
    }
    static void Saisir(tournesol::Panneau& q, const std::string& champ, const std::string& texte) {
        tournesol::Saisir(q, champ, texte);
    }
    Etude e;
    OptionsReport options;
    D d;
    std::unique_ptr<P> p;
};

// The lines of every page printed for `e`, one after the other, each ended by a new line.
inline std::string TexteImprime(Etude& e) {
    PageEnregistree page;
    EtatImpression etat;
    DialogueImpression d(e);
    Imprimer(e, d, page, etat, {{}, {}, "01/01/2026 - 10:00"});
    EXPECT_EQ(page.Imprimes.size(), 1u);
    std::string tout;
    for (const auto& doc : page.Imprimes)
        for (const PageImprimee& p : doc)
            for (const std::string& l : PageEnregistree::Lignes(p))
                tout += l + "\n";
    return tout;
}

// Among the rules `premiere` to `derniere`, exactly those of `posees` are set.
inline void Regles(const Etude& e, int premiere, int derniere, const std::vector<int>& posees) {
    for (int n = premiere; n <= derniere; ++n) {
        const bool attendue = std::find(posees.begin(), posees.end(), n) != posees.end();
        EXPECT_EQ(RegleActive(e, n), attendue) << "rule " << n;
    }
}

// One case of a relay's rules: what it changes in settings that agree with the guide, and the
// rules that change sets, the first of them with the limit given.
struct CasRegles {
    std::vector<int> regles;
    std::function<void(Etude&)> changer;
    double limite;
};

// Each case, computed by `calculer` on the settings `conforme` gives, sets exactly its rules
// among `premiere` to `derniere`, the first with its limit within `tol`; computed again on
// agreeing settings, with the flags the case left, every rule clears.
inline void ReglesPoseesEtEffacees(Etude (*conforme)(), void (*calculer)(Etude&), int premiere,
                                   int derniere, const std::vector<CasRegles>& cas, double tol) {
    for (const CasRegles& c : cas) {
        SCOPED_TRACE(c.regles.front());
        Etude e = conforme();
        c.changer(e);
        calculer(e);
        Regles(e, premiere, derniere, c.regles);
        EXPECT_NEAR(ValeurRegle(e, c.regles.front()), c.limite, tol);
        Etude remis = conforme();
        remis.DiagDrapeaux = e.DiagDrapeaux;
        calculer(remis);
        Regles(remis, premiere, derniere, {});
    }
}

// The settings of `e` written to a store of `taille` positions and read back into a fresh study
// of the same relay, setting number and Kz, whose end of the list must be found.
inline Etude AllerRetour(Etude& e, MagasinMemoire& m, std::size_t taille) {
    InscrireRelais();
    Etude relue;
    relue.id_protection = e.id_protection;
    relue.id_reglage = e.id_reglage;
    relue.Kz = e.Kz;
    EXPECT_TRUE(EcrireReglagesRelais(e, m));
    EXPECT_EQ(m.Taille(), taille);
    EXPECT_TRUE(LireReglagesRelais(relue, m));
    EXPECT_FALSE(relue.FinTR);
    return relue;
}

} // namespace tournesol
