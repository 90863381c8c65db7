// The check panels of the line computation: what the computation made of the line, shown to
// the user, who may correct the zone reactances (and, on a three-ended line, the currents).
#pragma once

#include "core/Panneau.h"

namespace tournesol {

struct Etude;

// frmValeurs: lines of two ends.
class PanneauValeurs : public Panneau {
public:
    explicit PanneauValeurs(Etude& e);
    void Valider() override; // "&Continuer"
    void Cliquer(const std::string& nom) override;

private:
    Etude& e_;
};

// frmvaleurtroisbouts: three-ended lines.
class PanneauValeurTroisBouts : public Panneau {
public:
    explicit PanneauValeurTroisBouts(Etude& e);
    void Valider() override; // "OK"
    void Cliquer(const std::string& nom) override;

private:
    Etude& e_;
};

} // namespace tournesol
