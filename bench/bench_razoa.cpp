// Speed of the RAZOA's coding of a reach as an integer fraction, which runs at each exit of a
// zone's field: a sweep of 10,000 reaches over the range it must always code (In X from 3.3 to
// 0.32 a0), on a long line (a up to 99), one full sweep per iteration.
#include "relays/razoa/CalculRAZOA.h"

#include <benchmark/benchmark.h>

using namespace tournesol;

static void BM_CodageRAZOA_10000Portees(benchmark::State& state) {
    constexpr int N = 10000;
    const int a0 = static_cast<int>(state.range(0));
    const double bas = 3.3, haut = 0.32 * a0;
    for (auto _ : state) {
        int trouvees = 0;
        for (int i = 0; i < N; ++i) {
            const double inX = bas + (haut - bas) * i / (N - 1);
            const auto f = CoderZoneRAZOA(inX, a0);
            trouvees += f.has_value();
            benchmark::DoNotOptimize(f);
        }
        if (trouvees != N) state.SkipWithError("a reach of the range was not coded");
    }
    state.SetItemsProcessed(state.iterations() * N);
}
BENCHMARK(BM_CodageRAZOA_10000Portees)
    ->Arg(NUMERATEUR_COURT)
    ->Arg(NUMERATEUR_LONG)
    ->Unit(benchmark::kMicrosecond);
