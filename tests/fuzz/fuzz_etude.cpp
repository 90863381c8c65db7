// Seeded mutation driver for the study-file reader and the run that follows it: every input is
// either refused with a clear message or computed; a run that ends with ErrCalcul 0 holds no
// infinity and no not-a-number when its input held none.
//
//   tournesol_fuzz COUNT SEED DIR...   (the .json files of each DIR are the seeds)
//
// Prints the figure: inputs, refused, computed, failures told, defects. Exit 1 on a defect; a
// crash ends the process with the input left in fuzz-entree.json, a hang (10 s) likewise.
#include "core/Dialogue.h"
#include "core/Erreurs.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Registre.h"
#include "relays/Relais.h"
#include "shell/Ouverture.h"

#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;
using namespace tournesol;

namespace {

// The input in progress, for the signal handlers.
std::string entreeCourante;
const char* const FICHIER_ENTREE = "fuzz-entree.json";

void Sauver(const std::string& entree) {
    const int f = ::open(FICHIER_ENTREE, O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (f < 0) return;
    std::size_t ecrit = 0;
    while (ecrit < entree.size()) {
        const ssize_t n = ::write(f, entree.data() + ecrit, entree.size() - ecrit);
        if (n <= 0) break;
        ecrit += static_cast<std::size_t>(n);
    }
    ::close(f);
}

extern "C" void Fin(int signal) {
    Sauver(entreeCourante);
    const char* texte = signal == SIGALRM ? "hang: input left in fuzz-entree.json\n"
                                          : "crash: input left in fuzz-entree.json\n";
    [[maybe_unused]] const auto n = ::write(2, texte, std::strlen(texte));
    std::signal(signal, SIG_DFL);
    std::raise(signal == SIGALRM ? SIGKILL : signal);
}

const char* const JETONS[] = {"1e999",      "-1e400",
                              "1e308",      "-1e308",
                              "5e-324",     "1e-999",
                              "0",          "-0",
                              "null",       "true",
                              "[",          "]",
                              "{",          "}",
                              "\"",         ",",
                              ":",          "\\",
                              "-1",         "65536",
                              "2147483648", "9999999999999999999999",
                              "[[[[[[[[",   "\"\\u0000\"",
                              "\xff",       "NaN"};

const double NOMBRES[] = {0.0,   -1.0,  1.0,          1e308,  -1e308, 1e-308, 5e-324, 1e300,
                          1e154, 65535, 32768,        -32769, 0.1,    1e15,   -0.0,   3.0,
                          2.0,   1e-3,  2147483648.0, 400.0,  225.0,  1e200,  -1e200, 7.0};

class Mutateur {
public:
    explicit Mutateur(std::uint64_t graine) : alea_(graine) {}

    std::size_t Au(std::size_t n) {
        return n == 0 ? 0 : std::uniform_int_distribution<std::size_t>(0, n - 1)(alea_);
    }

    Json Valeur() {
        switch (Au(8)) {
        case 0:
            return Au(2) == 0;
        case 1:
            return "";
        case 2:
            return Json::array({Nombre(), Nombre()});
        case 3:
            return Json::array();
        default:
            return Nombre();
        }
    }
    double Nombre() { return NOMBRES[Au(std::size(NOMBRES))]; }

    // A value of the study changed where it stands: a number scaled or replaced, an element of
    // an array, a key of another type.
    void Changer(Json& j) {
        if (!j.is_object() || j.empty()) return;
        auto it = j.begin();
        std::advance(it, static_cast<std::ptrdiff_t>(Au(j.size())));
        Json& v = it.value();
        if (v.is_array() && !v.empty() && Au(4) != 0) {
            Json& x = v[Au(v.size())];
            x = x.is_number() && Au(2) == 0 ? Json(x.get<double>() * Nombre()) : Json(Nombre());
        } else if (v.is_boolean() && Au(2) == 0) {
            v = !v.get<bool>();
        } else if (v.is_number_integer() && Au(2) == 0) {
            v = v.get<long long>() + static_cast<long long>(Au(7)) - 3;
        } else if (v.is_number() && Au(2) == 0) {
            v = v.get<double>() * Nombre();
        } else {
            v = Au(12) == 0 ? Valeur() : Json(Nombre());
        }
    }

    std::string Muter(const std::string& graine) {
        Json j = Json::parse(graine, nullptr, false);
        if (!j.is_discarded() && Au(3) != 0) {
            const std::size_t n = 1 + Au(4);
            for (std::size_t i = 0; i < n; ++i)
                Changer(j);
            return j.dump(Au(2) == 0 ? -1 : 2);
        }
        std::string s = graine;
        const std::size_t n = 1 + Au(3);
        for (std::size_t i = 0; i < n; ++i) {
            const std::size_t p = Au(s.size() + 1);
            switch (Au(5)) {
            case 0:
                if (!s.empty()) s[Au(s.size())] = static_cast<char>(Au(256));
                break;
            case 1:
                s.insert(p, JETONS[Au(std::size(JETONS))]);
                break;
            case 2:
                s.erase(p, 1 + Au(16));
                break;
            case 3: {
                const std::size_t q = Au(s.size() + 1);
                s.insert(p, s.substr(q, Au(64)));
                break;
            }
            default: {
                const std::size_t profondeur = 1 + Au(40);
                s.insert(p, std::string(profondeur, '['));
                break;
            }
            }
        }
        return s;
    }

private:
    std::mt19937_64 alea_;
};

bool NonFini(const Json& j) {
    if (j.is_null()) return true;
    if (j.is_array() || j.is_object()) {
        for (const Json& x : j)
            if (NonFini(x)) return true;
    }
    return false;
}

struct Bilan {
    long entrees = 0, refusees = 0, calculees = 0, echecs = 0, defauts = 0;
};

void Defaut(Bilan& b, const std::string& quoi, const std::string& entree) {
    ++b.defauts;
    std::cerr << "defect: " << quoi << "\n";
    Sauver(entree);
}

void Essayer(const std::string& entree, Bilan& b) {
    entreeCourante = entree;
    ++b.entrees;
    Etude e;
    InitRegistre(e);
    PreparerOuverture(e);
    try {
        LireEtude(entree, e);
    } catch (const ErreurFichierEtude& err) {
        ++b.refusees;
        if (std::strlen(err.what()) == 0) Defaut(b, "a refusal without a message", entree);
        return;
    } catch (const std::exception& err) {
        Defaut(b, std::string("the reader let out ") + err.what(), entree);
        return;
    }
    ++b.calculees;
    EffacerErreurEnAttente();
    DialogueSansFenetre d;
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    try {
        InitEtude(e, d, options);
    } catch (const std::exception& err) {
        Defaut(b, std::string("the run let out ") + err.what(), entree);
        return;
    }
    if (e.ErrCalcul != 0) ++b.echecs;
    const std::string sortie = EcrireEtude(e, d.Messages());
    Json lue = Json::parse(sortie);
    lue.erase("messages");
    const Json j = Json::parse(entree);
    if (e.ErrCalcul == 0 && !NonFini(j) && NonFini(lue))
        Defaut(b, "a value not finite with ErrCalcul 0", entree);
    int dits = 0;
    for (const MessageAffiche& m : d.Messages())
        dits += m.sMessage.rfind("The reckon is impossible", 0) == 0;
    if (dits > 1) Defaut(b, "a failure told more than once", entree);
    if (e.ErrCalcul != 0 && dits == 0) Defaut(b, "a failure not told", entree);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::cerr << "usage: tournesol_fuzz COUNT SEED DIR...\n";
        return 2;
    }
    const long nombre = std::stol(argv[1]);
    Mutateur m(std::stoull(argv[2]));
    std::vector<std::string> graines;
    for (int i = 3; i < argc; ++i)
        for (const auto& f : fs::directory_iterator(argv[i]))
            if (f.path().extension() == ".json") {
                std::ifstream in(f.path(), std::ios::binary);
                std::ostringstream s;
                s << in.rdbuf();
                graines.push_back(s.str());
            }
    if (graines.empty()) {
        std::cerr << "no seed\n";
        return 2;
    }
    for (const int s : {SIGSEGV, SIGABRT, SIGFPE, SIGBUS, SIGILL, SIGALRM})
        std::signal(s, Fin);
    InscrireRelais();
    Bilan b;
    for (long i = 0; i < nombre; ++i) {
        ::alarm(10);
        Essayer(m.Muter(graines[m.Au(graines.size())]), b);
    }
    ::alarm(0);
    std::cout << "inputs " << b.entrees << ", refused " << b.refusees << ", computed "
              << b.calculees << " (failures told " << b.echecs << "), defects " << b.defauts
              << ", crashes 0, hangs 0\n";
    return b.defauts == 0 ? 0 : 1;
}
