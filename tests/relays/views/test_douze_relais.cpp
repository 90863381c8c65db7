// Every relay that has a panel, set through the windows offscreen on a new 225 kV line: chosen in
// the opening dialog, its panel opened and confirmed, its characteristic drawn, the study saved,
// then opened again from the base's lists, signed, with the same line and the same settings, value
// for value of its store list.
#include "../../shell/Ligne225.h"
#include "Parcours.h"
#include "core/Etude.h"
#include "core/Magasin.h"
#include "diagram/Plan.h"
#include "diagram/SurfaceEnregistree.h"
#include "relays/Relais.h"

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
    const auto texte = [](std::string_view s) {
        return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
    };
    Etude e;
    RemplirLigne225(e);
    std::size_t figures = 0;
    std::vector<ValeurTR> sauvee, rouverte;
    bool signe = false;
    double xla = 0.0;
    int up = 0, numero = 0;
    // Names with quotes come back from the base's lists as they were typed.
    TitreBaseEtRetour p{.poste = "SAINT-\"VICTOR\"",
                        .depart = "L'ISLE",
                        .relais = texte(LEGENDES_PROTECTION[static_cast<std::size_t>(id - 1)]),
                        .numero = "2",
                        .id = id,
                        .panneau = texte(PANNEAUX_PROTECTION[static_cast<std::size_t>(id - 1)]),
                        .ligne = &LIGNE_225,
                        .brouiller =
                            [&](QWidget* titre) {
                                // Under the relay's number: who saved it, and when.
                                const auto* signature = titre->findChild<QLabel*>("lblsauvé");
                                signe = signature && !signature->isHidden() &&
                                        signature->text().startsWith("saved by ");
                                Brouiller(e);
                                EXPECT_NE(Liste(e), sauvee);
                                e.Ligne_XLA = 0.0;
                                e.Ligne_Up = 400;
                            },
                        .premiere =
                            [&](QWidget*) {
                                EXPECT_EQ(e.ErrCalcul, 0);
                                figures = FiguresDuRelais(e);
                                sauvee = Liste(e);
                            },
                        .seconde =
                            [&](QWidget*) {
                                rouverte = Liste(e);
                                xla = e.Ligne_XLA;
                                up = e.Ligne_Up;
                                numero = e.id_numero;
                            }};
    p.Mener(e);
    EXPECT_EQ(p.fenetres, 2);
    EXPECT_GE(p.panneaux, 1); // on the new line
    EXPECT_GT(figures, 0u) << "no characteristic drawn";
    EXPECT_FALSE(sauvee.empty());
    EXPECT_EQ(rouverte, sauvee);
    // The line as its panels left it, and the relay's number.
    EXPECT_TRUE(signe);
    EXPECT_EQ(xla, 20.0);
    EXPECT_EQ(up, 225);
    EXPECT_EQ(numero, 2);
}

INSTANTIATE_TEST_SUITE_P(Relais, DouzeRelais, ::testing::Range(1, 13));
