// tournesol-cli: the engine without windows, for batch work, reports and checks.
#include "shell/Dialogue.h"
#include "shell/Etude.h"
#include "shell/FichierEtude.h"
#include "shell/Ouverture.h"
#include "shell/Registre.h"

#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr int SORTIE_USAGE = 2;

const char* const USAGE =
    "usage: tournesol-cli calc STUDY.json\n"
    "  calc   reads a study file, runs it from Open to the first drawing and prints the\n"
    "         resulting study as JSON\n";

int Calc(const std::string& chemin) {
    using namespace tournesol;
    Etude e;
    InitRegistre(e);
    PreparerOuverture(e);
    try {
        LireFichierEtude(chemin, e);
    } catch (const ErreurFichierEtude& err) {
        std::cerr << "tournesol-cli: " << chemin << ": " << err.what() << "\n";
        return SORTIE_USAGE;
    }
    // The working window shows the study's report case.
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    DialogueSansFenetre dialogue;
    InitEtude(e, dialogue, options);
    std::cout << EcrireEtude(e, dialogue.Messages());
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.size() == 2 && args[0] == "calc") return Calc(args[1]);
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
        std::cout << USAGE;
        return 0;
    }
    std::cerr << USAGE;
    return SORTIE_USAGE;
}
