// Every relay that has a panel, set through the windows offscreen on a new 225 kV line: chosen in
// the opening dialog, its panel opened and confirmed, its characteristic drawn, the study saved,
// then opened again from the base with the same settings, value for value of its store list.
#include "../../core/views/Pilote.h"
#include "../../shell/Ligne225.h"
#include "../../shell/views/Gestes.h"
#include "../../shell/views/Vues.h"
#include "Parcours.h"
#include "core/Etude.h"
#include "core/Magasin.h"
#include "core/Registre.h"
#include "core/views/DialogueQt.h"
#include "database/BaseEtudesSql.h"
#include "diagram/Plan.h"
#include "diagram/SurfaceEnregistree.h"
#include "relays/Relais.h"
#include "shell/Application.h"
#include "shell/PanneauDemarre.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>
#include <type_traits>
#include <variant>

using namespace tournesol;

namespace {

// The store list of the current relay, value by value.
std::vector<ValeurTR> Liste(Etude& e) {
    BlocReglages bloc;
    if (!SauverReglage(e, bloc)) return {};
    std::vector<ValeurTR> v;
    for (std::size_t i = 0; i < bloc.Reglages.Taille(); ++i)
        v.push_back(bloc.Reglages.LireValeur(0, static_cast<std::int32_t>(i)));
    return v;
}

// The relay's variables in memory all moved off their values, so that what comes back from the
// base cannot be what stayed in memory.
void Brouiller(Etude& e) {
    BlocReglages bloc;
    ASSERT_TRUE(SauverReglage(e, bloc));
    for (std::size_t i = 0; i < bloc.Reglages.Taille(); ++i) {
        const auto pos = static_cast<std::int32_t>(i);
        ValeurTR v = bloc.Reglages.LireValeur(0, pos);
        std::visit(
            [](auto& x) {
                if constexpr (!std::is_same_v<std::decay_t<decltype(x)>, std::monostate>)
                    x = static_cast<std::decay_t<decltype(x)>>(x + 7);
            },
            v);
        bloc.Reglages.EcrireValeur(0, pos, v);
    }
    ASSERT_TRUE(RestaurerReglage(e, bloc));
}

// What the plane holds once the relay is drawn beyond the load area alone.
std::size_t FiguresDuRelais(Etude& e) {
    SurfaceEnregistree surface(500.0, 500.0);
    Plan seul(e, surface);
    OptionsAffichage options;
    TransitDraw(seul, options);
    Plan avec(e, surface);
    DrawRelay(avec, options);
    const std::size_t n = avec.Segments().size() + avec.Arcs().size();
    const std::size_t m = seul.Segments().size() + seul.Arcs().size();
    return n > m ? n - m : 0;
}

class DouzeRelais : public ::testing::TestWithParam<int> {};

} // namespace

TEST_P(DouzeRelais, DuTitreAuDiagrammePuisALaBaseEtRetour) {
    InscrireRelais();
    const int id = GetParam();
    if (!PanneauRelaisInscrit(id)) GTEST_SKIP() << "no panel for relay " << id;
    const QString relais = QString::fromUtf8(
        LEGENDES_PROTECTION[static_cast<std::size_t>(id - 1)].data(),
        static_cast<qsizetype>(LEGENDES_PROTECTION[static_cast<std::size_t>(id - 1)].size()));
    const std::string_view p = PANNEAUX_PROTECTION[static_cast<std::size_t>(id - 1)];
    const QString panneau = QString::fromUtf8(p.data(), static_cast<qsizetype>(p.size()));
    QTemporaryDir dossier;
    ASSERT_TRUE(dossier.isValid());
    BaseEtudesSql base(dossier.path().toStdString() + "/");
    Etude e;
    RemplirLigne225(e);
    DialogueQt d;
    InscrireVues(d, e);
    Application app(e, d, &base, std::nullopt);

    int titres = 0, fenetres = 0, panneaux = 0, attentes = 0;
    std::size_t figures = 0;
    std::vector<ValeurTR> sauvee, rouverte;
    std::function<void(QWidget*)> agir = [&](QWidget* w) {
        const QString nom = w->objectName();
        if (nom == "frmtitre") {
            ++titres;
            if (titres == 1) {
                NommerEtude(w, "CHAMPAGNIER", "GRANDE-ILE", relais, "3");
            } else if (titres == 2) {
                EXPECT_TRUE(ChoisirEtude(w, "CHAMPAGNIER", "GRANDE-ILE", relais, "3"));
                Brouiller(e);
                EXPECT_NE(Liste(e), sauvee);
            } else {
                QuitterTitre(w);
                return;
            }
            ConfirmerTitre(w);
        } else if (nom == "frmChoixProtection") {
            ChoisirRelais(w, id);
        } else if (nom == panneau) {
            ++panneaux;
            QTest::mouseClick(w->findChild<QPushButton*>("Command1"), Qt::LeftButton);
        } else if (nom == "frmDémarre") {
            if (AttendreFenetre(w, e, fenetres, panneaux, attentes, agir)) return;
            ++fenetres;
            if (fenetres == 1) {
                EXPECT_EQ(e.ErrCalcul, 0);
                figures = FiguresDuRelais(e);
                sauvee = Liste(e);
                QTest::mouseClick(w->findChild<QPushButton*>("cmdsave"), Qt::LeftButton);
            } else {
                rouverte = Liste(e);
            }
            w->findChild<QAction*>("mnuChangerPoste")->trigger();
        } else if (RepondreReseau(w, LIGNE_225)) {
        } else {
            RepondreParDefaut(w);
        }
    };
    {
        Pilote pilote(agir);
        app.Main();
    }
    EXPECT_EQ(fenetres, 2);
    EXPECT_GE(panneaux, 1); // on the new line
    EXPECT_GT(figures, 0u) << "no characteristic drawn";
    EXPECT_FALSE(sauvee.empty());
    EXPECT_EQ(rouverte, sauvee);
}

INSTANTIATE_TEST_SUITE_P(Relais, DouzeRelais, ::testing::Range(1, 13));
