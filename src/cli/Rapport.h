// tournesol-cli report STUDY.json -o FILE.pdf: the study's report written as a PDF file.
#pragma once

#include <string>
#include <vector>

namespace tournesol {

inline constexpr const char* USAGE_RAPPORT = "       tournesol-cli report STUDY.json -o FILE.pdf\n";
inline constexpr const char* AIDE_RAPPORT =
    "  report the same run, then prints the whole report (drawing and diagnostics, line\n"
    "         characteristics, relay settings), one copy, into FILE.pdf (A4)\n";

// `args` are the arguments after the verb: STUDY.json -o FILE.pdf. Exit codes as for calc: 2
// for a usage error or a study file refused (the message on stderr names the file and the key
// or the position), 1 when the PDF cannot be written, 0 otherwise, a failed computation
// included.
int CommandeRapport(const std::vector<std::string>& args);

class Superposition;
class Dialogue;
// The print of the superposition window (its head and drawing, the short settings page of each
// place) written as a PDF file. False when the file cannot be written.
bool EcrireSuperpositionPdf(Superposition& s, Dialogue& d, const std::string& chemin);

} // namespace tournesol
