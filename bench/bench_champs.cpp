// Speed of the field mechanism that every panel runs on each field exit, and of the study file.
#include "core/Champ.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Format.h"
#include "core/Registre.h"

#include <benchmark/benchmark.h>

using namespace tournesol;

static void BM_FormaterNombre(benchmark::State& state) {
    double x = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(FormaterNombre(x, "##0.00"));
        x += 1.37;
    }
}
BENCHMARK(BM_FormaterNombre);

static void BM_SortieDeChamp(benchmark::State& state) {
    Champ c{"txtX1", "12,345", "##0.00"};
    for (auto _ : state) {
        c.DefinirTexte("12,345");
        const double v = ChampLire(c);
        ChampEcrire(c, v);
        benchmark::DoNotOptimize(c.Texte());
    }
}
BENCHMARK(BM_SortieDeChamp);

static void BM_FichierEtudeAllerRetour(benchmark::State& state) {
    Etude e;
    InitRegistre(e);
    const std::string texte = EcrireEtude(e);
    for (auto _ : state) {
        Etude lue;
        LireEtude(texte, lue);
        benchmark::DoNotOptimize(EcrireEtude(lue));
    }
}
BENCHMARK(BM_FichierEtudeAllerRetour);
