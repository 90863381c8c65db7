// The user's colours, print choices and drawing pen, as the settings file holds them.
#pragma once

namespace tournesol {

struct Etude;

// The defaults: the twelve colours always; the print choices and the pen only while FinTR is
// false, otherwise only the pen's width, which becomes 1.
void InitCouleurs(Etude& e);

} // namespace tournesol
