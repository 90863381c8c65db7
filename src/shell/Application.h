// The spine of the program: from the opening dialog to the working window and back, until the
// user quits.
#pragma once

#include "shell/Ouverture.h"

#include <filesystem>
#include <optional>

namespace tournesol {

struct Etude;
class Dialogue;
class BaseEtudes;

class Application {
public:
    // `base` fills the lists and saves; `reglages` is the user's settings file.
    Application(Etude& e, Dialogue& d, BaseEtudes* base,
                std::optional<std::filesystem::path> reglages);

    // The relay registry from the relay choice's captions, then the loop.
    void Main();
    // The first pass opens the study already in memory, without the opening dialog.
    void OuvrirAuDemarrage() { directe_ = true; }
    // A study file named at start: read over the study state and opened by the first pass. A
    // refused file is told with its cause and the loop starts at the opening dialog; the study
    // state is then as it was.
    bool OuvrirFichier(const std::filesystem::path& chemin);

private:
    // The study of a place of the superposition, read and computed as Open and InitEtude do
    // for one relay; the second place's relay is found by its name, or chosen.
    bool OuvrirPlace(Etude& e, int place);

    Etude& e_;
    Dialogue& d_;
    BaseEtudes* base_;
    std::optional<std::filesystem::path> reglages_;
    OptionsReport options_;
    bool directe_ = false;
};

// The registry: every report case offered, names read from the relay choice created unseen,
// the single-phase case withdrawn from the relays that do not admit it.
void RemplirRegistre(Etude& e, Dialogue& d);

} // namespace tournesol
