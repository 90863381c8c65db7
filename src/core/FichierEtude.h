// The study file: one JSON object whose keys are the names of the study state. A relay's own
// variables are flat too and belong to the relay that id_protection names.
#pragma once

#include "core/Dialogue.h"

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace tournesol {

struct Etude;

// Bounds of a study file. The study state nests two levels (an array of pairs in the object),
// the run's messages four; a study file is a few tens of kilobytes.
inline constexpr int PROFONDEUR_ETUDE_MAX = 16;
inline constexpr std::size_t TAILLE_ETUDE_MAX = 1u << 20;

// A study file that cannot be taken: malformed, an unknown key, a value of the wrong type.
// The text names the key or the position.
class ErreurFichierEtude : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Puts the values of a study file over the study state. Nothing is changed when the file is
// refused.
void LireEtude(const std::string& json, Etude& e);
void LireFichierEtude(const std::filesystem::path& chemin, Etude& e);

// The study state as a study file: every shared variable, then the current relay's own, then
// the messages shown in the run, in order.
std::string EcrireEtude(const Etude& e, const std::vector<MessageAffiche>& messages = {});

// A study read from a file as a save puts it into a base: the keys the file may hold belong to no
// base and are forgotten (the save finds the line and the relay by their names), and its relay
// becomes the relay choice.
void PreparerImport(Etude& e);

} // namespace tournesol
