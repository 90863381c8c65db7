// tournesol-cli: the engine without windows, for batch work, reports and checks.
#ifdef TOURNESOL_AVEC_BASE
#include "cli/Rapport.h"
#include "database/BaseEtudesSql.h"
#include "database/Import.h"
#endif
#include "core/Couleurs.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Registre.h"
#include "diagram/Plan.h"
#include "diagram/SurfaceSvg.h"
#include "relays/Relais.h"
#include "shell/Ouverture.h"

#include <cstdlib>
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
    "       tournesol-cli save STUDY.json [--base DIR]\n"
    "       tournesol-cli open --poste A --depart B [--piquage C] --protection NAME\n"
    "                          --numero N [--base DIR]\n"
    "       tournesol-cli report STUDY.json -o FILE.pdf\n"
    "  calc   reads a study file, runs it from Open to the first drawing and prints the\n"
    "         resulting study as JSON\n"
    "  svg    the same run, then writes the diagram as the working window draws it (the\n"
    "         study's scale, or the ideal zoom when it has none)\n"
    "  save   the same run, then saves the study in the base DIR/bd1.mdb (made when\n"
    "         missing) and prints the study with its keys\n"
    "  open   opens a saved study by its names, as the opening dialog does, runs it and\n"
    "         prints it\n"
    "  report the same run as calc, then the printed report (drawing, diagnostics, line)\n"
    "         written as a PDF file\n";

// A study file run headless from Open to the first drawing.
struct Session {
    Etude e;
    OptionsReport options;
    DialogueSansFenetre dialogue;
};

bool Ouvrir(const std::string& chemin, Session& s) {
    InscrireRelais();
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

#ifdef TOURNESOL_AVEC_BASE
// The value that follows an option, if the option is there.
std::optional<std::string> Option(const std::vector<std::string>& args, const std::string& nom) {
    for (std::size_t i = 0; i + 1 < args.size(); ++i)
        if (args[i] == nom) return args[i + 1];
    return std::nullopt;
}

std::string DossierBase(const std::vector<std::string>& args) {
    std::string dossier = Option(args, "--base").value_or("");
    if (!dossier.empty() && dossier.back() != '/') dossier.push_back('/');
    return dossier;
}

int Save(const std::string& chemin, const std::vector<std::string>& args) {
    Session s;
    if (!Ouvrir(chemin, s)) return SORTIE_USAGE;
    BaseEtudesSql base(DossierBase(args));
    const bool ok = ImporterEtude(base, s.e, s.dialogue);
    std::cout << EcrireEtude(s.e, s.dialogue.Messages());
    if (!ok) std::cerr << "tournesol-cli: the study was not saved\n";
    return ok ? 0 : 1;
}

int Open(const std::vector<std::string>& args) {
    const auto poste = Option(args, "--poste"), depart = Option(args, "--depart");
    const auto protection = Option(args, "--protection"), numero = Option(args, "--numero");
    if (!poste || !depart || !protection || !numero) {
        std::cerr << USAGE;
        return SORTIE_USAGE;
    }
    Session s;
    InscrireRelais();
    InitRegistre(s.e);
    PreparerOuverture(s.e);
    s.e.NomPoste = *poste;
    s.e.NomDepart = *depart;
    s.e.NomPiquage = Option(args, "--piquage").value_or("");
    s.e.LigneTroisBouts = !s.e.NomPiquage.empty();
    s.e.NomProtection = *protection;
    s.e.id_numero = static_cast<Entier16>(std::atoi(numero->c_str()));
    for (int id = 1; id <= NOMBRE_RELAIS; ++id)
        if (LEGENDES_PROTECTION[static_cast<std::size_t>(id - 1)] == *protection)
            s.e.id_protection = s.e.ProtectionChoisie = id;
    if (s.e.id_protection == 0) {
        std::cerr << "tournesol-cli: unknown relay \"" << *protection << "\"\n";
        return SORTIE_USAGE;
    }
    BaseEtudesSql base(DossierBase(args));
    base.Ouvrir(s.e, s.dialogue);
    s.options.Choisir(s.e.TypeReportCharge);
    InitEtude(s.e, s.dialogue, s.options);
    std::cout << EcrireEtude(s.e, s.dialogue.Messages());
    return 0;
}
#endif

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
#ifdef TOURNESOL_AVEC_BASE
    if (args.size() >= 2 && args[0] == "save" && (args.size() == 2 || args.size() == 4))
        return Save(args[1], args);
    if (!args.empty() && args[0] == "open") return Open(args);
    if (!args.empty() && args[0] == "report")
        return CommandeRapport({args.begin() + 1, args.end()});
#endif
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
