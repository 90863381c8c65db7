// The registry of the twelve relay types, addressed by id_protection (1 to 12, 0 none).
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tournesol {

struct Etude;
class Dialogue;
class Panneau;

// Captions of the relay choice's twelve option buttons, by id_protection - 1: the one source
// of the relays' names.
inline constexpr std::array<std::string_view, 12> LEGENDES_PROTECTION = {
    "SA 511", "EPAC",  "PD3A",    "PDS",  "PXLC", "PXLP",
    "PXLN",   "RAZOA", "REL 100", "REZ1", "RXAP", "S321-5"};

// The panel of each relay, by id_protection - 1.
inline constexpr std::array<std::string_view, 12> PANNEAUX_PROTECTION = {
    "frmsa511", "frmEpac",  "frmPD3A",   "frmPDS",  "frmPXLC", "frmPXLP",
    "frmPXLN",  "frmRAZOA", "frmREL100", "frmREZ1", "frmRXAP", "frmS321"};

// Columns of ReportAdmis, which are also the values of TypeReportCharge.
inline constexpr int REPORT_TRIPHASE = 0;
inline constexpr int REPORT_MONOPHASE = 1;
inline constexpr int REPORT_SANS = 2;

// The title of a report case (0, 1, 2), as sReport holds it.
const char* TitreReport(int cas);

// True for an id_protection of the registry (1 to 12).
inline bool RelaisConnu(int id_protection) {
    return id_protection >= 1 && id_protection <= static_cast<int>(LEGENDES_PROTECTION.size());
}

// What the start of the process does to the registry: every report case offered, relay
// names read from the relay choice, then the single-phase report withdrawn from the relays
// that do not admit it (7SA511, EPAC, PXLP, PXLN, RXAP). The relays themselves fill the tables
// below when they register (InscrireRelais, at the program's start).
void InitRegistre(Etude& e);

// The making of each relay's panel, filled by the relays as they register; the panel's creation
// computes its settings. A relay that has not registered has no panel: nullptr. Registering
// gives back the making it replaces.
using FabriquePanneauRelais = std::unique_ptr<Panneau> (*)(Etude&, Dialogue&);
FabriquePanneauRelais InscrirePanneauRelais(int id_protection, FabriquePanneauRelais fabrique);
std::unique_ptr<Panneau> CreerPanneauRelais(Etude& e, Dialogue& d);
// True when relay id_protection has registered its panel, so that its settings can be computed.
bool PanneauRelaisInscrit(int id_protection);

// What a relay's panel puts into its own record before a study's values are read (a factor whose
// usual position the relay's makers fixed), filled by the relays as they register; a study's own
// values then override them. PreparerOuverture applies those of every registered relay.
using DefautsRelais = void (*)(Etude&);
void InscrireDefautsRelais(int id_protection, DefautsRelais defauts);
void AppliquerDefautsRelais(Etude& e);

// What the short settings page of a relay prints: its resistance and reaches, each in primary
// ohms under its name. A relay that keeps them in its own record registers how to read them;
// the others are read from the set values every relay shares (Rreg_HT, X1reg_HT to X4reg_HT).
struct ValeurResumee {
    std::string Libelle;
    double Ohms = 0.0;
};
using ResumeRelais = std::vector<ValeurResumee> (*)(const Etude&);
void InscrireResumeRelais(int id_protection, ResumeRelais resume);
std::vector<ValeurResumee> ResumeDuRelais(const Etude& e);

} // namespace tournesol
