// The whole opening sequence on each example study: the line computation for the three report
// cases, the load report panel where it comes up, the relay's panel made unseen, and the transit
// area of the case in force. Each run also counts the heap allocations it makes.
#include "CompteAllocations.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Registre.h"
#include "relays/Relais.h"
#include "shell/Ouverture.h"

#include <benchmark/benchmark.h>
#include <filesystem>

using namespace tournesol;

namespace {

Etude Charger(const std::string& nom) {
    Etude e;
    InscrireRelais();
    InitRegistre(e);
    PreparerOuverture(e);
    LireFichierEtude(std::filesystem::path(TOURNESOL_EXEMPLES) / nom, e);
    return e;
}

void BM_Ouverture(benchmark::State& state, const std::string& nom) {
    const Etude modele = Charger(nom);
    long faites = 0;
    for (auto _ : state) {
        Etude e = modele;
        OptionsReport options;
        options.Choisir(e.TypeReportCharge);
        DialogueSansFenetre d;
        const long avant = AllocationsFaites();
        InitEtude(e, d, options);
        faites += AllocationsFaites() - avant;
        benchmark::DoNotOptimize(e.PointsTransit);
    }
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(faites), benchmark::Counter::kAvgIterations);
}

} // namespace

BENCHMARK_CAPTURE(BM_Ouverture, maillee_225kV, std::string("champagnier-grande-ile-225kV.json"));
BENCHMARK_CAPTURE(BM_Ouverture, double_400kV, std::string("chesnoy-villevaude-400kV-double.json"));
BENCHMARK_CAPTURE(BM_Ouverture, client_63kV,
                  std::string("saint-marcel-papeteries-63kV-client.json"));
BENCHMARK_CAPTURE(BM_Ouverture, trois_bouts_90kV,
                  std::string("beaurepaire-montmeyran-laroche-90kV-3bouts.json"));
BENCHMARK_CAPTURE(BM_Ouverture, centrale_225kV, std::string("saint-alban-centrale-225kV.json"));
BENCHMARK_CAPTURE(BM_Ouverture, poste_225kV, std::string("saint-alban-poste-225kV.json"));
BENCHMARK_CAPTURE(BM_Ouverture, razoa_225kV, std::string("bayet-saint-pourcain-225kV.json"));
