// What the report's pages say: the head, the line characteristics of each kind of line and
// feeding, the diagnostics section, the drawing clipped to its frame.
#include "EtudeImprimee.h"
#include "core/Couleurs.h"
#include "core/FichierEtude.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "network/Transit.h"
#include "relays/Relais.h"
#include "shell/Ouverture.h"

#include <cmath>
#include <filesystem>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

const std::string DATE = "01/02/2003 - 04:05";
constexpr double MM_PAR_POINT = 25.4 / 72.0;

// The frames of an A4 sheet on the recording page.
CadresPage CadresA4() {
    return CalculerCadres({0, 0, 210, 297}, 13.0 * 1.15 * 10 * MM_PAR_POINT, 26, 1,
                          1.15 * 14 * MM_PAR_POINT);
}

// The pages of one copy of the study, with the given rule texts.
DocumentImprime Rapport(Etude& e, TextesReglesRapport textes = {}) {
    PageEnregistree page;
    EtatImpression etat;
    DialogueImpression d(e);
    Imprimer(e, d, page, etat, {std::move(textes), {}, DATE});
    EXPECT_EQ(page.HorsPage, 0);
    return page.Imprimes.empty() ? DocumentImprime{} : page.Imprimes[0];
}

// The lines of a page from the one that reads `debut` on.
std::vector<std::string> Depuis(const PageImprimee& page, const std::string& debut) {
    const auto lignes = PageEnregistree::Lignes(page);
    return {std::find(lignes.begin(), lignes.end(), debut), lignes.end()};
}

std::vector<std::string> PageLigne(Etude& e) {
    e.ImpParties = {false, true, false};
    const DocumentImprime doc = Rapport(e);
    if (doc.empty()) return {};
    // The relay's settings follow the line on its page.
    std::vector<std::string> lignes = Depuis(doc[0], "Line characteristics");
    lignes.erase(std::find(lignes.begin(), lignes.end(), "settings"), lignes.end());
    return lignes;
}

} // namespace

TEST(PagesRapport, TeteDePage) {
    Etude e;
    RemplirEtudeImprimee(e);
    const DocumentImprime doc = Rapport(e);
    ASSERT_EQ(doc.size(), 4u); // the PXLN's listing on pages 3 and 4
    for (const PageImprimee& page : doc) {
        const auto lignes = PageEnregistree::Lignes(page);
        EXPECT_EQ(lignes.at(0), "TOURNESOL");
        EXPECT_EQ(lignes.at(1), DATE + "\tSubstation A :\tCHAMPAGNIER");
        EXPECT_EQ(lignes.at(2), "PXLN  n°  2\tSubstation B:  \tGRANDE ILE");
    }
    // The values in column 90: CadreSuite's left, plus Pas, plus 90.
    const auto nom = std::find_if(doc[0].begin(), doc[0].end(),
                                  [](const ElementPage& el) { return el.texte == "CHAMPAGNIER"; });
    ASSERT_NE(nom, doc[0].end());
    EXPECT_NEAR(nom->x1, CadresA4().CadreSuite.Left + 1.0 + 90.0, 1e-9);

    // A three-ended line names its third substation; relay 5 prints as PXLC-PSEL; a long name
    // takes smaller type to stay in the frame.
    e.NomDepart = "PAPETERIES DE SAVOIE ET DAUPHINE";
    e.NomPiquage = "LA ROCHE";
    e.Ligne_Tl = 3;
    e.id_protection = 5;
    const DocumentImprime trois = Rapport(e);
    const auto lignes = PageEnregistree::Lignes(trois.at(0));
    EXPECT_EQ(lignes.at(2), "PXLC-PSEL  n°  2\tSubstation B:  \tPAPETERIES DE SAVOIE ET DAUPHINE");
    EXPECT_EQ(lignes.at(3), "Substation C:  \tLA ROCHE");
    const CadreImpression entete = CadresA4().CadreEntete;
    for (const ElementPage& el : trois[0])
        if (el.texte == "PAPETERIES DE SAVOIE ET DAUPHINE") {
            PageEnregistree mesure;
            mesure.ChoisirTaille(el.police.Taille);
            EXPECT_LT(el.police.Taille, 9.0);
            EXPECT_NEAR(el.x1 + mesure.LargeurTexte(el.texte), entete.Left + entete.Width - 1.0,
                        1e-9);
        }
}

TEST(PagesRapport, LigneSimpleMaillee) {
    Etude e;
    RemplirEtudeImprimee(e);
    const std::vector<std::string> attendu = {
        "Line characteristics",
        " single circuit line with two ends",
        "meshed link",
        "Length           : 75.0 km     Zd :   6.38 +   j   30.38 Ω",
        "Zo :   18.0 +   j   90.5 Ω",
        "Maximal current before three phase load report  : 1450 A",
        "Corresponding load report factor : 1.2",
        "Maximal current before single phase load report  : 1700 A",
        "Corresponding load report factor : 1.15",
        "Maximal current without allowed load report  : 1900 A",
        "Characteristics of the cell",
        "CT    : 1000/1",
        "Un    : 225 000 V",
        "ku     : 2250.",
        "ki      : 1000.",
        " kz :    2.25",
        "Constraints dues to the transformers",
        "Impedance of the transformers at substation A :          40.0 Ω",
        "Impédance des transformateurs au poste B :           35.5 Ω",
    };
    EXPECT_EQ(PageLigne(e), attendu);
}

TEST(PagesRapport, AutresLignesEtAlimentations) {
    const struct {
        void (*preparer)(Etude&);
        std::vector<std::string> presentes, absentes;
    } cas[] = {
        {[](Etude& e) {
             e.Ligne_Tl = 1;
             e.Ligne_kom = 0.6;
         },
         {"Two ended circuit of a double circuit line",
          "Zo :   18.0 +   j   90.5 Ω     kom   :  0.6"},
         {}},
        {[](Etude& e) {
             e.Ligne_Tl = 2;
             e.kom_eq = 0.125;
             e.Ligne_Longueur[1] = 30.0;
         },
         {"ligne à 2 extrémités et 2 tronçons dont un avec support ", "commun avec une autre ligne",
          "Length of section 1 : 75.0 km     Zd :   6.38 +   j   30.38 Ω",
          "Length of section 2 : 30.0 km     Zd :   0.0 +   j   0.0 Ω",
          "zero sequence mutual inductance global factor kom   :  0.13"},
         {"Length of section 3 : 0.0 km     Zd :   0.0 +   j   0.0 Ω"}},
        {[](Etude& e) {
             e.Ligne_Tl = 3;
             e.Ligne_Longueur[2] = 22.0;
             e.Ligne_ItA = 520.0;
             e.Ligne_ItC = 300.4;
             e.Ligne_XAZ = 55.0f;
         },
         {"single circuit three ended line",
          "Length of section 3 : 22.0 km     Zd :   0.0 +   j   0.0 Ω",
          "Maximal current on end A  : 520 A", "Maximal current on end B  : 0 A",
          "Maximal current on end C  : 300 A",
          "Impedance of the transformers at substation C :          55.0 Ω"},
         {}},
        {[](Etude& e) {
             e.Ligne_alim = 1;
             e.Ligne_Smax = 250.0f;
             e.Ligne_Pmax = 200.0f;
         },
         {"power plant - substation link", "Apparent power of the generator:  250 MVA",
          "Active power of the generator:     200 MW"},
         {"Maximal current without allowed load report  : 1900 A"}},
        {[](Etude& e) { e.Ligne_alim = 2; }, {"substation - power plant link"}, {}},
        {[](Etude& e) {
             e.Ligne_alim = 3;
             e.Ligne_itclient = 300.0;
         },
         {"customer supply", "Maximal current supplying a customer  : 300 A"},
         {"Apparent power of the generator:  0 MVA"}},
    };
    for (const auto& c : cas) {
        Etude e;
        RemplirEtudeImprimee(e);
        c.preparer(e);
        const auto lignes = PageLigne(e);
        for (const std::string& l : c.presentes)
            EXPECT_TRUE(Contient(lignes, l)) << l;
        for (const std::string& l : c.absentes)
            EXPECT_FALSE(Contient(lignes, l)) << l;
    }
}

TEST(PagesRapport, AucuneDiscordance) {
    Etude e;
    RemplirEtudeImprimee(e);
    e.id_protection = 3;      // a PD3A, computed by its panel
    e.DiagDrapeaux[0] = true; // rules of other relays' blocks
    e.DiagDrapeaux[49] = true;
    EXPECT_EQ(Depuis(Rapport(e).at(0), "Diagnostics"),
              (std::vector<std::string>{"Diagnostics", "No discordance with the setting guide."}));
    // A relay this program cannot compute (the PXLC's panel withdrawn): its settings were never
    // computed, and the report says so instead of a verdict.
    InscrireRelais();
    const FabriquePanneauRelais panneau = InscrirePanneauRelais(5, nullptr);
    e.id_protection = 5;
    EXPECT_EQ(
        Depuis(Rapport(e).at(0), "Diagnostics"),
        (std::vector<std::string>{
            "Diagnostics", "Settings of the PXLC not computed (no panel for this relay yet)."}));
    InscrirePanneauRelais(5, panneau);
}

TEST(PagesRapport, DiagnosticsDesReglesPosees) {
    Etude e;
    RemplirEtudeImprimee(e);
    e.DiagDrapeaux[43] = true;
    e.DiagValeurs[43] = 12.3456;
    e.DiagDrapeaux[46] = true;
    e.DiagValeurs[46] = 12.0;
    e.DiagDrapeaux[48] = true; // rule 49 has no text: its value still shows
    e.DiagValeurs[48] = 3.0;
    const auto textes = [](int regle) -> std::vector<std::string> {
        if (regle == 44) return {"The forward pick up risks to see the faults", "It might not "};
        if (regle == 47) return {"The third zone is lower than 1.2 times the second zone, i.e. "};
        return {};
    };
    const DocumentImprime doc = Rapport(e, textes);
    ASSERT_FALSE(doc.empty());
    EXPECT_EQ(
        Depuis(doc[0], "Diagnostics"),
        (std::vector<std::string>{
            "Diagnostics", "The forward pick up risks to see the faults", "It might not 12.35 Ω Π",
            "The third zone is lower than 1.2 times the second zone, i.e. 12.0 Ω Π", "3.0 Ω Π"}));
    // The sentences in 8-point type: the second line at the indent of 5, one empty line between
    // the rules, every text inside the frame under the drawing.
    const CadresPage k = CadresA4();
    const double ligne = 1.15 * 8 * MM_PAR_POINT;
    const auto i = std::find_if(doc[0].begin(), doc[0].end(), [](const ElementPage& el) {
        return el.texte == "It might not 12.35 \xCE\xA9 \xCE\xA0";
    });
    ASSERT_NE(i, doc[0].end());
    EXPECT_DOUBLE_EQ(i->police.Taille, 8.0);
    EXPECT_DOUBLE_EQ(i->x1, k.CadrePied.Left + 1.0 + 5.0);
    EXPECT_DOUBLE_EQ(i[-1].x1, k.CadrePied.Left + 1.0);
    EXPECT_NEAR(i->y1 - i[-1].y1, ligne, 1e-9);
    EXPECT_NEAR(i[1].y1 - i->y1, 2.0 * ligne, 1e-9);
    EXPECT_GT(i[-1].y1, k.CadrePied.Top);
    for (auto el = i - 1; el != doc[0].end(); ++el)
        EXPECT_LE(el->x1 + 0.5 * 8 * MM_PAR_POINT * static_cast<double>(el->texte.size()),
                  k.CadrePied.Left + k.CadrePied.Width + 1e-9)
            << el->texte;

    // One progress step for each rule of the relay's block, set or not.
    PageEnregistree page;
    page.NouvellePage();
    EtatImpression etat;
    DialogueImpression d(e);
    ContexteImpression c{e, d, page, etat, k, textes, DATE};
    DebutProgression(e, etat, 12, "Page 1 : diagnostics");
    ImprimerDiagnostics(c); // rules 44 to 49
    EXPECT_DOUBLE_EQ(etat.Progression, 50.0);
    EXPECT_EQ(ReglesImprimees(12), std::make_pair(79, 87));
}

TEST(PagesRapport, TeteDesReglages) {
    Etude e;
    e.Pas = 1.0;
    PageEnregistree page;
    page.NouvellePage();
    EtatImpression etat;
    DialogueImpression d(e);
    ContexteImpression c{e, d, page, etat, CadresA4(), {}, DATE};
    ImprimerTeteReglages(c);
    ImprimerLigneReglage(c, "First zone reactance", "10.5", "23.6", "80");
    EXPECT_EQ(PageEnregistree::Lignes(page.EnCours[0]),
              (std::vector<std::string>{"settings", "Secondary values\tPrimary values\tPercentage",
                                        "First zone reactance\t10.5\t23.6\t80"}));
    EXPECT_DOUBLE_EQ(page.EnCours[0].front().y1, c.cadres.CadreSuite.Top + 1.0);
}

TEST(PagesRapport, DessinDansSonCadre) {
    Etude e;
    RemplirEtudeImprimee(e);
    InitCouleurs(e);
    e.Vmin = 100.0;
    e.Vmax = 115.0;
    e.ZL_eq = 20.0;
    e.PHI_eq = 1.2;
    e.RL_eq = 20.0 * std::cos(1.2);
    e.XL_eq = 20.0 * std::sin(1.2);
    e.TypeReportCharge = 2;
    TransitCalc(e);
    // A window smaller than the load area: the area passes the frame's edges.
    e.ScaleLeft = -80.0f;
    e.ScaleTop = 80.0f;
    e.ScaleWidth = 160.0f;
    e.ScaleHeight = -160.0f;
    e.ImpNoir = true;
    e.ImpParties = {true, false, false};
    const DocumentImprime doc = Rapport(e);
    ASSERT_EQ(doc.size(), 1u);
    const CadreImpression f = CadresA4().CadreDessin;
    auto dedans = [&](double x, double y) {
        return x >= f.Left - 1e-6 && x <= f.Left + f.Width + 1e-6 && y >= f.Top - 1e-6 &&
               y <= f.Top + f.Height + 1e-6;
    };
    int lignes = 0, arcs = 0, etiquettes = 0;
    auto el = doc[0].begin();
    for (; el != doc[0].end() && el->texte != "three phase report"; ++el) {
        if (el->genre == ElementPage::Ligne) {
            ++lignes;
            // A graduation's cross on an edge passes it by half its size, 1 mm.
            if (std::hypot(el->x2 - el->x1, el->y2 - el->y1) <= 2.0 + 1e-9) {
                EXPECT_TRUE(dedans((el->x1 + el->x2) / 2, (el->y1 + el->y2) / 2));
            } else {
                EXPECT_TRUE(dedans(el->x1, el->y1) && dedans(el->x2, el->y2));
            }
        } else if (el->genre == ElementPage::Arc) {
            ++arcs;
            for (const double a : {el->debut, el->fin})
                EXPECT_TRUE(
                    dedans(el->x1 + el->rayon * std::cos(a), el->y1 - el->rayon * std::sin(a)));
        } else if (el->genre == ElementPage::Texte) {
            // A label stands where the plane puts it, its start or its middle in the frame.
            ++etiquettes;
            PageEnregistree mesure;
            mesure.ChoisirTaille(el->police.Taille);
            const double y = el->y1 + mesure.HauteurTexte(el->texte) / 2;
            EXPECT_TRUE(dedans(el->x1, y) || dedans(el->x1 + mesure.LargeurTexte(el->texte) / 2, y))
                << el->texte;
        }
        if (el->genre != ElementPage::Texte) {
            EXPECT_TRUE(el->stylo.couleur == 0 || el->stylo.couleur == 0xFFFFFF); // in black
        }
    }
    EXPECT_GT(lignes, 10);
    EXPECT_GT(arcs, 0);
    EXPECT_GT(etiquettes, 10);
    // The report case in the middle under the drawing.
    ASSERT_NE(el, doc[0].end());
    EXPECT_NEAR(el->y1, f.Top + f.Height + 2.0, 1e-9);
    EXPECT_NEAR(el->x1 + PageEnregistree().LargeurTexte(el->texte) / 2, f.Left + f.Width / 2, 1e-9);
}

TEST(PagesRapport, LimiteImprimeeDUneAutreRegle) {
    // The PD3A's rule 18 prints the limit of rule 17.
    Etude e;
    RemplirEtudeImprimee(e);
    e.id_protection = 3;
    e.DiagDrapeaux[17] = true;
    e.DiagValeurs[16] = 7.5;
    e.DiagValeurs[17] = 99.0;
    const auto lignes = Depuis(
        Rapport(e, [](int regle) { return TextesRegleRapport(regle); }).at(0), "Diagnostics");
    EXPECT_NE(
        std::find(lignes.begin(), lignes.end(), "It must not overcome:    7.5 \xCE\xA9 \xCE\xA0"),
        lignes.end());
}

TEST(PagesRapport, TextesDansLeursCadresPourChaqueExemple) {
    // Every text of the whole report of each example, measured, stays inside the page's frame.
    for (const auto& fichier : std::filesystem::directory_iterator(TOURNESOL_EXEMPLES)) {
        Etude e;
        RemplirEtudeImprimee(e);
        PreparerOuverture(e);
        LireFichierEtude(fichier.path(), e);
        DialogueSansFenetre sansFenetre;
        OptionsReport options;
        options.Choisir(e.TypeReportCharge);
        InitEtude(e, sansFenetre, options);
        PreparerRapport(e);
        for (int n = 0; n < NOMBRE_REGLES; ++n) { // every rule of the relay set, long texts too
            e.DiagDrapeaux[static_cast<std::size_t>(n)] = true;
            e.DiagValeurs[static_cast<std::size_t>(n)] = 123.45;
        }
        PageEnregistree page;
        EtatImpression etat;
        DialogueImpression d(e);
        Imprimer(e, d, page, etat, {[](int regle) { return TextesRegleRapport(regle); }, {}, DATE});
        ASSERT_FALSE(page.Imprimes.empty()) << fichier.path();
        const CadresPage k = CadresA4();
        // In the drawing, the values of the graduations and the names of the points are read
        // whole: inside the drawing's frame, none on another.
        struct Place {
            std::string texte;
            double gauche, haut, droite, bas;
        };
        std::vector<Place> dessin;
        const CadreImpression& f = k.CadreDessin;
        for (const ElementPage& el : page.Imprimes[0].at(0)) {
            if (el.genre != ElementPage::Texte) continue;
            if (el.texte == TitreReport(e.TypeReportCharge) || el.texte == e.sReport) break;
            PageEnregistree mesure;
            mesure.ChoisirTaille(el.police.Taille);
            const Place ici{el.texte, el.x1, el.y1, el.x1 + mesure.LargeurTexte(el.texte),
                            el.y1 + mesure.HauteurTexte(el.texte)};
            if (ici.bas < f.Top) continue; // the head of the page
            EXPECT_TRUE(ici.gauche >= f.Left - 1e-9 && ici.droite <= f.Left + f.Width + 1e-9 &&
                        ici.haut >= f.Top - 1e-9 && ici.bas <= f.Top + f.Height + 1e-9)
                << fichier.path().filename() << ": " << el.texte;
            for (const Place& autre : dessin)
                EXPECT_FALSE(ici.gauche < autre.droite - 1e-9 && autre.gauche < ici.droite - 1e-9 &&
                             ici.haut < autre.bas - 1e-9 && autre.haut < ici.bas - 1e-9)
                    << fichier.path().filename() << ": " << el.texte << " on " << autre.texte;
            dessin.push_back(ici);
        }
        EXPECT_GT(dessin.size(), 10u) << fichier.path().filename();
        for (const PageImprimee& p : page.Imprimes[0])
            for (const ElementPage& el : p) {
                if (el.genre != ElementPage::Texte) continue;
                PageEnregistree mesure;
                mesure.ChoisirTaille(el.police.Taille);
                EXPECT_LE(el.x1 + mesure.LargeurTexte(el.texte),
                          k.CadrePage.Left + k.CadrePage.Width + 1e-9)
                    << fichier.path().filename() << ": " << el.texte;
                EXPECT_LE(el.y1 + mesure.HauteurTexte(el.texte),
                          k.CadrePage.Top + k.CadrePage.Height + 1e-9)
                    << fichier.path().filename() << ": " << el.texte;
            }
    }
}
