// A full redraw of the diagram, the plane and the load area of an example study, into a
// 1000 x 1000 image through QPainter, as the diagram widget draws it.
#include "core/Couleurs.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "diagram/Plan.h"
#include "diagram/views/SurfaceQt.h"
#include "printing/Impression.h"
#include "printing/views/RapportPdf.h"
#include "relays/Relais.h"
#include "shell/Ouverture.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>
#include <filesystem>

using namespace tournesol;

namespace {

void BM_Redessin(benchmark::State& state, const std::string& nom) {
    Etude e;
    InscrireRelais();
    InitRegistre(e);
    PreparerOuverture(e);
    LireFichierEtude(std::filesystem::path(TOURNESOL_EXEMPLES) / nom, e);
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    DialogueSansFenetre d;
    InitEtude(e, d, options);
    InitCouleurs(e);
    QImage image(1000, 1000, QImage::Format_RGB32);
    QPainter peintre(&image);
    SurfaceQt surface(peintre, 1000.0, 1000.0);
    Plan plan(e, surface);
    ZoomIdeal(e);
    for (auto _ : state) {
        DrawRelay(plan, OptionsAffichage{});
        benchmark::DoNotOptimize(image.bits());
    }
}

} // namespace

BENCHMARK_CAPTURE(BM_Redessin, maillee_225kV, std::string("champagnier-grande-ile-225kV.json"))
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Redessin, centrale_225kV, std::string("saint-alban-centrale-225kV.json"))
    ->Unit(benchmark::kMicrosecond);

// The whole report of an example (drawing and diagnostics page, line page) written as a PDF.
void BM_RapportPdf(benchmark::State& state) {
    Etude e;
    InscrireRelais();
    InitRegistre(e);
    PreparerOuverture(e);
    LireFichierEtude(
        std::filesystem::path(TOURNESOL_EXEMPLES) / "champagnier-grande-ile-225kV.json", e);
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    DialogueSansFenetre d;
    InitEtude(e, d, options);
    PreparerRapport(e);
    OptionsImpression impression;
    impression.textesRegles = [](int regle) { return TextesRegleRapport(regle); };
    const QString chemin = QDir::temp().filePath("tournesol-bench-rapport.pdf");
    for (auto _ : state) {
        e.ArretImpression = false;
        if (!EcrireRapportPdf(e, d, chemin, impression))
            state.SkipWithError("the PDF was not written");
    }
}
BENCHMARK(BM_RapportPdf)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
