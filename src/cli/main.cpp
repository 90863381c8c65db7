// tournesol-cli: the engine without windows, for batch work, reports and checks.
#include "diagram/Plan.h"
#include "diagram/SurfaceSvg.h"
#include "shell/Couleurs.h"
#include "shell/Dialogue.h"
#include "shell/Etude.h"
#include "shell/FichierEtude.h"
#include "shell/Ouverture.h"
#include "shell/Registre.h"

#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace tournesol;

constexpr int SORTIE_USAGE = 2;
constexpr double TAILLE_SVG = 800.0;

const char* const USAGE =
    "usage: tournesol-cli calc STUDY.json\n"
    "       tournesol-cli svg STUDY.json [-o FILE.svg]\n"
    "  calc   reads a study file, runs it from Open to the first drawing and prints the\n"
    "         resulting study as JSON\n"
    "  svg    the same run, then writes the diagram as the working window draws it (the\n"
    "         study's scale, or the ideal zoom when it has none)\n";

// A study file run headless from Open to the first drawing.
struct Session {
    Etude e;
    OptionsReport options;
    DialogueSansFenetre dialogue;
};

bool Ouvrir(const std::string& chemin, Session& s) {
    InitRegistre(s.e);
    PreparerOuverture(s.e);
    try {
        LireFichierEtude(chemin, s.e);
    } catch (const ErreurFichierEtude& err) {
        std::cerr << "tournesol-cli: " << chemin << ": " << err.what() << "\n";
        return false;
    }
    // The working window shows the study's report case.
    s.options.Choisir(s.e.TypeReportCharge);
    InitEtude(s.e, s.dialogue, s.options);
    return true;
}

int Calc(const std::string& chemin) {
    Session s;
    if (!Ouvrir(chemin, s)) return SORTIE_USAGE;
    std::cout << EcrireEtude(s.e, s.dialogue.Messages());
    return 0;
}

int Svg(const std::string& chemin, const std::optional<std::string>& sortie) {
    Session s;
    if (!Ouvrir(chemin, s)) return SORTIE_USAGE;
    InitCouleurs(s.e);
    SurfaceSvg surface(TAILLE_SVG, TAILLE_SVG);
    Plan plan(s.e, surface);
    if (s.e.ScaleWidth == 0.0f) ZoomIdeal(s.e);
    DrawRelay(plan, OptionsAffichage{});
    if (!sortie) {
        std::cout << surface.Document();
        return 0;
    }
    std::ofstream fichier(*sortie, std::ios::binary);
    fichier << surface.Document();
    if (!fichier) {
        std::cerr << "tournesol-cli: cannot write " << *sortie << "\n";
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.size() == 2 && args[0] == "calc") return Calc(args[1]);
    if (args.size() == 2 && args[0] == "svg") return Svg(args[1], std::nullopt);
    if (args.size() == 4 && args[0] == "svg" && args[2] == "-o") return Svg(args[1], args[3]);
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
        std::cout << USAGE;
        return 0;
    }
    std::cerr << USAGE;
    return SORTIE_USAGE;
}
