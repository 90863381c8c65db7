#include "core/Registre.h"

#include "core/Etude.h"
#include "core/Panneau.h"

#include <utility>

namespace tournesol {

namespace {
std::array<FabriquePanneauRelais, NOMBRE_RELAIS> fabriques{};
std::array<DefautsRelais, NOMBRE_RELAIS> defauts{};
std::array<ResumeRelais, NOMBRE_RELAIS> resumes{};
} // namespace

const char* TitreReport(int cas) {
    static const char* const TITRES[] = {"three phase report", "single phase report",
                                         "maximal transit without report"};
    return cas >= 0 && cas < 3 ? TITRES[cas] : "";
}

void InitRegistre(Etude& e) {
    for (int i = 0; i < NOMBRE_RELAIS; ++i) {
        e.ReportAdmis[static_cast<std::size_t>(i)].fill(true);
        e.NomsProtection[static_cast<std::size_t>(i)] =
            std::string(LEGENDES_PROTECTION[static_cast<std::size_t>(i)]);
    }
    for (const int id : {1, 2, 6, 7, 11})
        e.ReportAdmis[static_cast<std::size_t>(id - 1)][REPORT_MONOPHASE] = false;
}

FabriquePanneauRelais InscrirePanneauRelais(int id_protection, FabriquePanneauRelais fabrique) {
    if (!RelaisConnu(id_protection)) return nullptr;
    return std::exchange(fabriques[static_cast<std::size_t>(id_protection - 1)], fabrique);
}

void InscrireDefautsRelais(int id_protection, DefautsRelais d) {
    if (RelaisConnu(id_protection)) defauts[static_cast<std::size_t>(id_protection - 1)] = d;
}

void AppliquerDefautsRelais(Etude& e) {
    for (const DefautsRelais d : defauts)
        if (d != nullptr) d(e);
}

void InscrireResumeRelais(int id_protection, ResumeRelais resume) {
    if (RelaisConnu(id_protection)) resumes[static_cast<std::size_t>(id_protection - 1)] = resume;
}

std::vector<ValeurResumee> ResumeDuRelais(const Etude& e) {
    if (RelaisConnu(e.id_protection))
        if (const ResumeRelais r = resumes[static_cast<std::size_t>(e.id_protection - 1)])
            return r(e);
    return {{"Maximal detectable resistance", e.Rreg_HT},
            {"First zone reach", e.X1reg_HT},
            {"Second zone reach", e.X2reg_HT},
            {"Third zone reach", e.X3reg_HT},
            {"Backward reach", e.X4reg_HT}};
}

bool PanneauRelaisInscrit(int id_protection) {
    return RelaisConnu(id_protection) &&
           fabriques[static_cast<std::size_t>(id_protection - 1)] != nullptr;
}

std::unique_ptr<Panneau> CreerPanneauRelais(Etude& e, Dialogue& d) {
    if (!RelaisConnu(e.id_protection)) return nullptr;
    const auto fabrique = fabriques[static_cast<std::size_t>(e.id_protection - 1)];
    return fabrique ? fabrique(e, d) : nullptr;
}

} // namespace tournesol
