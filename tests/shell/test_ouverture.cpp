// From Open to the first drawing, driven through the dialogue interface.
#include "Ligne225.h"
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/Panneau.h"
#include "core/Registre.h"
#include "relays/Relais.h"
#include "relays/pd3a/PanneauPD3A.h"
#include "shell/Ouverture.h"

#include <gtest/gtest.h>

using namespace tournesol;

namespace {
// A 225 kV meshed line of 75 km with a PD3A.
Etude Etude225() {
    Etude e;
    InscrireRelais();
    InitRegistre(e);
    PreparerOuverture(e);
    e.NomPoste = "CHAMPAGNIER";
    e.id_protection = 3;
    RemplirLigne225(e);
    return e;
}

struct PanneauCompteur : Panneau {
    PanneauCompteur() : Panneau("frmPD3A") { ++crees; }
    static inline int crees = 0;
};
} // namespace

TEST(Ouverture, InitEtudeCalculeLesTroisCas) {
    Etude e = Etude225();
    e.TypeReportCharge = 1;
    OptionsReport options;
    options.Choisir(1);
    DialogueSansFenetre d;
    InitEtude(e, d, options);
    EXPECT_EQ(e.ErrCalcul, 0);
    EXPECT_TRUE(e.ReportsCalcules);
    EXPECT_TRUE(e.TransitOK1);
    EXPECT_FALSE(e.EtudeModifiee);
    EXPECT_TRUE(e.RelaisPret);
    // The load report panel came up for the three-phase and the single phase case.
    EXPECT_EQ(d.PanneauxMontres(),
              (std::vector<std::string>{"frmReportCharge", "frmReportCharge"}));
    EXPECT_TRUE(e.CRtCalcule);
    EXPECT_TRUE(e.CRmCalcule);
    EXPECT_GT(e.Ligne_CRt, 1.0);
    // The single phase case is in force: its current and its factor.
    EXPECT_EQ(e.TypeReportCharge, 1);
    EXPECT_EQ(e.It, 1700.0);
    EXPECT_DOUBLE_EQ(e.XL_eq, 30.375);
    EXPECT_FALSE(e.fNoIntersect);
    EXPECT_GT(e.PointsTransit[5].Module, 0.0);
    EXPECT_TRUE(d.Messages().empty());
}

TEST(Ouverture, PanneauDuRelaisEtProtectionInconnue) {
    InscrirePanneauRelais(3, [](Etude&, Dialogue&) -> std::unique_ptr<Panneau> {
        return std::make_unique<PanneauCompteur>();
    });
    PanneauCompteur::crees = 0;
    Etude e = Etude225();
    OptionsReport options;
    DialogueSansFenetre d;
    InitEtude(e, d, options);
    EXPECT_EQ(PanneauCompteur::crees, 1); // created unseen
    EXPECT_TRUE(d.PanneauxMontres().size() == 2u);
    OuvrirPanneau(e, d, options, false);
    EXPECT_EQ(d.PanneauxMontres().back(), "frmPD3A");
    EXPECT_EQ(e.XprimFige, -1.0);
    EXPECT_TRUE(e.EtudeModifiee);
    EXPECT_FALSE(e.PanneauRelais);
    EXPECT_FALSE(d.SablierActif());
    InscrirePanneauRelais(3, &FabriquerPanneau<PanneauPD3A>); // the PD3A's own again

    Etude sans = Etude225();
    sans.id_protection = 0;
    DialogueSansFenetre d2;
    OuvrirPanneau(sans, d2, options, true);
    ASSERT_EQ(d2.Messages().size(), 1u);
    EXPECT_EQ(d2.Messages()[0].sMessage, "Choisis de nouveau la protection");
}

TEST(Ouverture, OptionsDeReportEtCourant) {
    Etude e = Etude225();
    OptionsReport options;
    e.id_protection = 11; // RXAP: no single phase report
    AppliquerReports(e, options);
    EXPECT_EQ(options.Actif, (std::array<bool, 3>{true, false, true}));
    e.Ligne_alim = 3;
    AppliquerReports(e, options);
    EXPECT_EQ(options.Actif, (std::array<bool, 3>{false, false, true}));

    EXPECT_EQ(options.Cas(), 0); // none set
    options.Coche = {false, true, true};
    EXPECT_EQ(options.Cas(), 1);

    e.Ligne_itclient = 350.0;
    EXPECT_EQ(CourantDuCas(e, 2), 350.0);
    e.Ligne_alim = 1;
    e.It = 2020.0;
    EXPECT_EQ(CourantDuCas(e, 2), 2020.0); // a plant link keeps its current
    e.Ligne_alim = 0;
    EXPECT_EQ(CourantDuCas(e, 2), 1900.0);
}

TEST(Ouverture, ControleDeLaLongueur) {
    struct Cas {
        int tl;
        bool longue;
        double l0, l1;
        const char* message;
    };
    const char* const longueCourte = "Attention, you consider as long a line shorter than 10 km.";
    const char* const courteLongue = "Attention, you consider as short a line longer than 15 km.";
    const Cas cas[] = {
        {0, true, 10.0, 0.0, nullptr},       {0, true, 9.9, 0.0, longueCourte},
        {0, false, 15.0, 0.0, nullptr},      {1, false, 15.1, 0.0, courteLongue},
        {2, false, 10.0, 6.0, courteLongue}, {0, true, 1.0, 0.0, nullptr},
        {3, true, 5.0, 0.0, nullptr},
    };
    for (const Cas& c : cas) {
        Etude e;
        e.OptionsValides = e.ValeursValides = true;
        e.Ligne_Tl = static_cast<Entier16>(c.tl);
        e.Ligne_lc = c.longue;
        e.Ligne_Longueur = {c.l0, c.l1, 0.0};
        DialogueSansFenetre d;
        ControleLongueur(e, d);
        if (c.message) {
            ASSERT_EQ(d.Messages().size(), 1u) << c.tl << " " << c.l0;
            EXPECT_EQ(d.Messages()[0].sMessage, c.message);
            EXPECT_EQ(d.Messages()[0].sTitre, "TOURNESOL : Attention");
            EXPECT_EQ(d.Messages()[0].IconeMessage, 3);
        } else {
            EXPECT_TRUE(d.Messages().empty()) << c.tl << " " << c.l0;
        }
    }
    Etude pasValide;
    pasValide.Ligne_lc = true;
    pasValide.Ligne_Longueur[0] = 5.0;
    DialogueSansFenetre d;
    ControleLongueur(pasValide, d);
    EXPECT_TRUE(d.Messages().empty());
}

// A computation that fails at opening is told once, with the fixed text, whatever ShowValeurs
// says, and the study is left in the panel state: the line that cannot be computed (both
// voltages at 0), the relay's first computation, the transit area.
TEST(Ouverture, EchecALOuvertureDitUneFois) {
    const std::string texte = "The reckon is impossible with the entered data.";
    {
        Etude e = Etude225();
        e.ErrCalcul = ERR_SIGNALEE; // left by the file: no failure of this opening
        e.Ligne_Up = 0;
        e.Ligne_UnA = 0;
        OptionsReport options;
        DialogueScripte d;
        InitEtude(e, d, options);
        ASSERT_EQ(d.Messages().size(), 1u);
        EXPECT_EQ(d.Messages()[0].sMessage.rfind(texte, 0), 0u) << d.Messages()[0].sMessage;
        EXPECT_EQ(d.Messages()[0].IconeMessage, 1);
        EXPECT_EQ(e.ErrCalcul, ERR_SIGNALEE);
        EXPECT_TRUE(e.PanneauRelais);
        EXPECT_FALSE(e.RelaisPret);
        EXPECT_FALSE(e.TransitOK1);
        EXPECT_FALSE(e.TransitOK2);
        // The working window's start draws again without telling it a second time.
        CalculerEtTracer(e, d, options);
        EXPECT_EQ(d.Messages().size(), 1u);
    }
    {
        InscrirePanneauRelais(
            3, [](Etude&, Dialogue&) -> std::unique_ptr<Panneau> { LeverErreur(ERR_DIVISION); });
        Etude e = Etude225();
        OptionsReport options;
        DialogueScripte d;
        InitEtude(e, d, options);
        InscrirePanneauRelais(3, &FabriquerPanneau<PanneauPD3A>); // the PD3A's own again
        ASSERT_EQ(d.Messages().size(), 1u);
        EXPECT_EQ(d.Messages()[0].sMessage, texte + "\r\n\r\n(Division by zero)");
        EXPECT_TRUE(e.PanneauRelais);
        EXPECT_FALSE(e.RelaisPret);
    }
    {
        // The load point of a customer link beyond the range of a double.
        Etude e = Etude225();
        e.ErrCalcul = ERR_SIGNALEE; // left by an earlier study
        e.NouvelleLigne = true;
        e.Ligne_alim = 3;
        e.Ligne_itclient = 1.0;
        e.Vmin = 1e306;
        OptionsReport options;
        options.Choisir(2);
        DialogueScripte d;
        InitEtude(e, d, options);
        ASSERT_EQ(d.Messages().size(), 1u);
        EXPECT_EQ(d.Messages()[0].sMessage, texte + "\r\n\r\n(overflow)");
        EXPECT_FALSE(e.TransitOK1);
    }
}
