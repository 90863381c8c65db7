// tournesol-cli: the engine without windows, for batch work, reports and checks.
#ifdef TOURNESOL_AVEC_BASE
#include "cli/Rapport.h"
#include "database/BaseEtudesSql.h"
#include "database/EtatBase.h"
#include "database/Import.h"
#endif
#include "core/Couleurs.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "diagram/Plan.h"
#include "diagram/SurfaceSvg.h"
#include "relays/Relais.h"
#include "relays/pxln/CalculPXLN.h"
#include "relays/pxln/ParametresPXLN.h"
#include "shell/Ouverture.h"
#include "superposition/Superposition.h"

#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace tournesol;

constexpr int SORTIE_USAGE = 2;
constexpr double TAILLE_SVG = 800.0;

const char* const USAGE =
    "usage: tournesol-cli calc STUDY.json\n"
    "       tournesol-cli svg STUDY.json [-o FILE.svg]\n"
    "       tournesol-cli save STUDY.json [--base DIR|URL] [--wait SECONDS]\n"
    "       tournesol-cli open --poste A --depart B [--piquage C] --protection NAME\n"
    "                          --numero N [--base DIR|URL] [--wait SECONDS]\n"
    "       tournesol-cli report STUDY.json -o FILE.pdf\n"
    "       tournesol-cli listing STUDY.json [-o FILE]\n"
    "       tournesol-cli superpose A.json B.json [--position N] [-o FILE.svg|FILE.pdf]\n"
    "  calc   reads a study file, runs it from Open to the first drawing and prints the\n"
    "         resulting study as JSON\n"
    "  svg    the same run, then writes the diagram as the working window draws it (the\n"
    "         study's scale, or the ideal zoom when it has none)\n"
    "  save   the same run, then saves the study in the base DIR/bd1.mdb (made when\n"
    "         missing) and prints the study with its keys\n"
    "  open   opens a saved study by its names, as the opening dialog does, runs it and\n"
    "         prints it; it reads the base and never writes it, and tells on stderr who\n"
    "         saved the relay last and when (UTC)\n"
    "         --base: the folder of bd1.mdb, or a base on a PostgreSQL server,\n"
    "         postgresql://user@host:port/base (the password from ~/.pgpass)\n"
    "         --wait: how long a base held by another user is waited for (10 s), then\n"
    "         the command ends with exit 1\n"
    "  report the same run as calc, then the printed report (drawing, diagnostics, line)\n"
    "         written as a PDF file\n"
    "  listing the same run as calc, then the parameter listing of a PXLN study as its\n"
    "         settings page prints it, one line per line, UTF-8 text\n"
    "  superpose runs two studies as calc does, then writes both relays on one diagram as\n"
    "         the superposition window draws them: layout N (1 to 7) of the two places, or\n"
    "         the one their names give, the plane fitted to both; FILE.pdf: the print of\n"
    "         the window (drawing, then the short settings page of each place)\n";

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

// The drawing on stdout, or into the file named.
int EcrireSvg(const SurfaceSvg& surface, const std::optional<std::string>& sortie) {
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

int Svg(const std::string& chemin, const std::optional<std::string>& sortie) {
    Session s;
    if (!Ouvrir(chemin, s)) return SORTIE_USAGE;
    InitCouleurs(s.e);
    SurfaceSvg surface(TAILLE_SVG, TAILLE_SVG);
    Plan plan(s.e, surface);
    if (s.e.ScaleWidth == 0.0f) ZoomIdeal(s.e);
    DrawRelay(plan, OptionsAffichage{});
    return EcrireSvg(surface, sortie);
}

// The parameter listing of a PXLN study, on stdout or into a file.
int Listing(const std::string& chemin, const std::optional<std::string>& sortie) {
    Session s;
    if (!Ouvrir(chemin, s)) return SORTIE_USAGE;
    if (s.e.id_protection != ID_PXLN) {
        std::cerr << "tournesol-cli: " << chemin << ": the relay of the study is not a PXLN "
                  << "(id_protection " << s.e.id_protection << "): it has no parameter listing\n";
        return SORTIE_USAGE;
    }
    std::string texte;
    for (const LigneListing& ligne : ListingPXLN(s.e))
        texte += TexteLigneListing(ligne) + "\n";
    if (!sortie) {
        std::cout << texte;
        return 0;
    }
    std::ofstream fichier(*sortie, std::ios::binary);
    fichier << texte;
    if (!fichier) {
        std::cerr << "tournesol-cli: cannot write " << *sortie << "\n";
        return 1;
    }
    return 0;
}

// Two studies on one diagram: A in place 1, B in place 2, in layout N (1 to 7) or in the one
// that their names give.
int Superpose(const std::vector<std::string>& args) {
    auto refus = [](const std::string& texte) {
        std::cerr << "tournesol-cli: superpose: " << texte << "\n";
        return SORTIE_USAGE;
    };
    std::vector<std::string> fichiers;
    std::optional<std::string> sortie;
    int disposition = 0;
    for (std::size_t i = 1; i < args.size(); ++i) {
        const std::string& mot = args[i];
        if (mot == "-o" || mot == "--position") {
            if (i + 1 >= args.size()) return refus("the option " + mot + " needs a value");
            const std::string& valeur = args[++i];
            if (mot == "-o") {
                if (sortie) return refus("the option -o is given twice");
                sortie = valeur;
                continue;
            }
            if (disposition != 0) return refus("the option --position is given twice");
            int n = 0;
            const auto [fin, erreur] =
                std::from_chars(valeur.data(), valeur.data() + valeur.size(), n);
            if (erreur != std::errc() || fin != valeur.data() + valeur.size() || n < 1 || n > 7)
                return refus("--position needs a layout from 1 to 7, not \"" + valeur + "\"");
            disposition = n;
        } else if (mot.rfind("-", 0) == 0 && mot.size() > 1) {
            return refus("unknown option " + mot);
        } else {
            fichiers.push_back(mot);
        }
    }
    if (fichiers.size() != 2)
        return refus("needs two study files, not " + std::to_string(fichiers.size()));

    Etude e;
    DialogueSansFenetre dialogue;
    Superposition s(e);
    for (const int n : {1, 2}) {
        const std::string& chemin = fichiers[static_cast<std::size_t>(n - 1)];
        // Each study from its own file over the defaults, as calc reads it.
        bool lue = true;
        s.ChargerPlace(n, [&](Etude& x) {
            Session place;
            lue = Ouvrir(chemin, place);
            if (lue) x = std::move(place.e);
            return lue && x.ErrCalcul == 0;
        });
        if (!lue) return SORTIE_USAGE;
        s.PlaceCourante = n;
        s.SauverPlace();
        if (!s.PlaceNumero(n).Calculee)
            std::cerr << "tournesol-cli: superpose: " << chemin << ": "
                      << (ReglagesNonCalcules(e) ? TexteReglagesNonCalcules(e)
                                                 : std::string("the relay's settings could not "
                                                               "be computed."))
                      << " Its place shows its line only.\n";
    }
    InitCouleurs(e);
    CouleursDesPlaces(e);
    if (disposition == 0)
        s.DispositionInitiale();
    else
        s.ChoisirDisposition(disposition);
    s.AjusterFenetre();
#ifdef TOURNESOL_AVEC_BASE
    // FILE.pdf: the print of the window instead of its drawing.
    if (sortie && sortie->size() > 4 && sortie->compare(sortie->size() - 4, 4, ".pdf") == 0) {
        if (EcrireSuperpositionPdf(s, dialogue, *sortie)) return 0;
        std::cerr << "tournesol-cli: cannot write " << *sortie << "\n";
        return 1;
    }
#endif
    SurfaceSvg surface(TAILLE_SVG, TAILLE_SVG);
    Plan plan(e, surface);
    s.RetracerTout(plan);
    s.EcrireLegende(surface);
    return EcrireSvg(surface, sortie);
}

#ifdef TOURNESOL_AVEC_BASE
// The options of a verb of the base, each given once with its value, and the other words.
struct Options {
    std::map<std::string, std::string> valeurs;
    std::vector<std::string> mots;
};

// A refusal of the command line: what is wrong, for one line on stderr, and exit 2.
struct Refus {
    std::string texte;
};

Options LireOptions(const std::vector<std::string>& args, const std::set<std::string>& connues) {
    Options o;
    for (std::size_t i = 1; i < args.size(); ++i) {
        const std::string& mot = args[i];
        if (mot.rfind("--", 0) != 0) {
            o.mots.push_back(mot);
            continue;
        }
        if (!connues.count(mot)) throw Refus{"unknown option " + mot};
        if (i + 1 >= args.size() || args[i + 1].rfind("--", 0) == 0)
            throw Refus{"the option " + mot + " needs a value"};
        if (!o.valeurs.emplace(mot, args[i + 1]).second)
            throw Refus{"the option " + mot + " is given twice"};
        ++i;
    }
    return o;
}

// The folder of the base, ready for concatenation; the current folder without --base.
std::string DossierBase(const Options& o) {
    const auto it = o.valeurs.find("--base");
    std::string dossier = it == o.valeurs.end() ? "" : it->second;
    if (!dossier.empty() && dossier.back() != '/') dossier.push_back('/');
    return dossier;
}

// --wait SECONDS: how long a base held by another user is waited for (10 s without it).
int AttenteMs(const Options& o) {
    const auto it = o.valeurs.find("--wait");
    if (it == o.valeurs.end()) return 10000;
    const std::string& texte = it->second;
    double secondes = -1.0;
    const auto [fin, erreur] = std::from_chars(texte.data(), texte.data() + texte.size(), secondes);
    if (erreur != std::errc() || fin != texte.data() + texte.size() || !(secondes >= 0.0) ||
        secondes > 86400.0)
        throw Refus{"--wait needs a number of seconds from 0 to 86400, not \"" + texte + "\""};
    return static_cast<int>(secondes * 1000.0 + 0.5);
}

// A relay number: an integer from 1 to 32767.
Entier16 Numero(const std::string& texte) {
    int n = 0;
    const auto [fin, erreur] = std::from_chars(texte.data(), texte.data() + texte.size(), n);
    if (erreur != std::errc() || fin != texte.data() + texte.size() || n < 1 || n > 32767)
        throw Refus{"--numero needs an integer from 1 to 32767, not \"" + texte + "\""};
    return static_cast<Entier16>(n);
}

// The base of the folder, as the verb needs it: a refusal (exit 2) for what the user gave
// wrong, the cause and exit 1 for the rest; nothing when the verb can go on.
std::optional<int> VerifierBase(const std::string& dossier, bool pourEcrire) {
    const EtatBase etat = ExaminerBase(dossier);
    using G = EtatBase::Genre;
    switch (etat.genre) {
    case G::Utilisable:
        return std::nullopt;
    case G::Absente:
        if (pourEcrire) return std::nullopt; // the save makes a new base
        throw Refus{etat.raison};
    case G::LectureSeule:
        if (!pourEcrire) return std::nullopt;
        break;
    case G::DossierAbsent:
    case G::Etrangere:
        throw Refus{etat.raison};
    case G::Illisible:
    case G::Verrou:
    case G::Autre:
        break;
    }
    std::cerr << "tournesol-cli: " << etat.raison << "\n";
    return 1;
}

// A command of the base that failed: its cause on stderr; exit 2 when the file turned out not
// to be a base of this system, 1 otherwise.
int EchecBase(const BaseEtudesSql& base, const char* quoi) {
    const EtatBase& echec = base.DernierEchec();
    std::string cause = echec.raison;
    if (cause.empty()) cause = "unknown cause";
    std::cerr << "tournesol-cli: " << quoi << ": " << cause << "\n";
    using G = EtatBase::Genre;
    return echec.genre == G::Etrangere || echec.genre == G::DossierAbsent ? SORTIE_USAGE : 1;
}

int Save(const std::vector<std::string>& args) {
    const Options o = LireOptions(args, {"--base", "--wait"});
    if (o.mots.size() != 1) throw Refus{"save needs one study file"};
    const std::string dossier = DossierBase(o);
    const int attente = AttenteMs(o);
    if (const auto code = VerifierBase(dossier, true)) return *code;
    Session s;
    if (!Ouvrir(o.mots[0], s)) return SORTIE_USAGE;
    if (s.e.id_numero < 1)
        throw Refus{o.mots[0] + ": id_numero " + std::to_string(s.e.id_numero) +
                    " is not a relay number from 1 to 32767"};
    BaseEtudesSql base(dossier, attente, false);
    if (!ImporterEtude(base, s.e, s.dialogue)) return EchecBase(base, "the study was not saved");
    std::cout << EcrireEtude(s.e, s.dialogue.Messages());
    return 0;
}

int Open(const std::vector<std::string>& args) {
    const Options o = LireOptions(
        args, {"--base", "--wait", "--poste", "--depart", "--piquage", "--protection", "--numero"});
    if (!o.mots.empty()) throw Refus{"open takes no study file: \"" + o.mots[0] + "\""};
    for (const char* requise : {"--poste", "--depart", "--protection", "--numero"})
        if (!o.valeurs.count(requise)) throw Refus{std::string("open needs ") + requise};
    auto valeur = [&o](const char* nom) {
        const auto it = o.valeurs.find(nom);
        return it == o.valeurs.end() ? std::string() : it->second;
    };
    const Entier16 numero = Numero(valeur("--numero"));
    const std::string protection = valeur("--protection");
    int id_protection = 0;
    for (int id = 1; id <= NOMBRE_RELAIS; ++id)
        if (LEGENDES_PROTECTION[static_cast<std::size_t>(id - 1)] == protection) id_protection = id;
    if (id_protection == 0) throw Refus{"unknown relay \"" + protection + "\""};
    const std::string dossier = DossierBase(o);
    const int attente = AttenteMs(o);
    if (const auto code = VerifierBase(dossier, false)) return *code;

    Session s;
    InscrireRelais();
    InitRegistre(s.e);
    PreparerOuverture(s.e);
    s.e.NomPoste = valeur("--poste");
    s.e.NomDepart = valeur("--depart");
    s.e.NomPiquage = valeur("--piquage");
    s.e.LigneTroisBouts = !s.e.NomPiquage.empty();
    s.e.NomProtection = protection;
    s.e.id_numero = numero;
    s.e.id_protection = s.e.ProtectionChoisie = id_protection;
    BaseEtudesSql base(dossier, attente, false);
    base.Ouvrir(s.e, s.dialogue);
    if (!base.DernierEchec().Utilisable()) return EchecBase(base, "the study was not read");
    if (s.e.id_poste < 1) throw Refus{"unknown substation \"" + s.e.NomPoste + "\""};
    if (s.e.id_depart < 1)
        throw Refus{"unknown line end \"" + s.e.NomDepart + "\" at substation \"" + s.e.NomPoste +
                    "\""};
    const std::string ligne = s.e.NomPoste + " - " + s.e.NomDepart +
                              (s.e.NomPiquage.empty() ? "" : " - " + s.e.NomPiquage);
    if (!s.e.NomPiquage.empty() && s.e.id_piquage < 1)
        throw Refus{"unknown tee \"" + s.e.NomPiquage + "\" on the line " + s.e.NomPoste + " - " +
                    s.e.NomDepart};
    if (s.e.id_reglage < 1)
        throw Refus{"no relay " + protection + " number " + std::to_string(numero) +
                    " on the line " + ligne};
    // Who saved the relay last and when: beside the study, so that the study printed stays a
    // study file.
    const SignatureSauvegarde signature = base.DerniereSauvegarde(
        s.e.NomPoste, s.e.NomDepart, s.e.NomPiquage, s.e.NomProtection, s.e.id_numero);
    s.options.Choisir(s.e.TypeReportCharge);
    InitEtude(s.e, s.dialogue, s.options);
    std::cout << EcrireEtude(s.e, s.dialogue.Messages());
    std::cerr << "tournesol-cli: open: saved by "
              << (signature.auteur.empty() ? std::string("(unknown)") : signature.auteur) << " on "
              << (signature.date.empty() ? std::string("(unknown)") : signature.date) << "\n";
    return 0;
}

// A verb of the base, its refusals turned into one line on stderr and exit 2.
int VerbeBase(int (*verbe)(const std::vector<std::string>&), const std::vector<std::string>& args) {
    try {
        return verbe(args);
    } catch (const Refus& r) {
        std::cerr << "tournesol-cli: " << args[0] << ": " << r.texte << "\n";
        return SORTIE_USAGE;
    }
}
#endif

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
#ifdef TOURNESOL_AVEC_BASE
    if (!args.empty() && args[0] == "save") return VerbeBase(Save, args);
    if (!args.empty() && args[0] == "open") return VerbeBase(Open, args);
    if (!args.empty() && args[0] == "report")
        return CommandeRapport({args.begin() + 1, args.end()});
#endif
    if (!args.empty() && args[0] == "superpose") return Superpose(args);
    if (args.size() == 2 && args[0] == "calc") return Calc(args[1]);
    if (args.size() == 2 && args[0] == "svg") return Svg(args[1], std::nullopt);
    if (args.size() == 4 && args[0] == "svg" && args[2] == "-o") return Svg(args[1], args[3]);
    if (args.size() == 2 && args[0] == "listing") return Listing(args[1], std::nullopt);
    if (args.size() == 4 && args[0] == "listing" && args[2] == "-o")
        return Listing(args[1], args[3]);
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
        std::cout << USAGE;
        return 0;
    }
    std::cerr << USAGE;
    return SORTIE_USAGE;
}
