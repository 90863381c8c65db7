#include "core/Couleurs.h"

#include "core/Etude.h"

namespace tournesol {

void InitCouleurs(Etude& e) {
    e.CouleurTransit1 = 0x0000FF;
    e.CouleurTransit2 = 0x0080C0; // ochre: the line image, read on a screen and on paper
    e.CouleurAntipompage = 0xFF0000;
    e.CouleurMonophase = 0x00FF00;
    e.CouleurTransit3 = 0x0000FF;
    e.CouleurTriphase = 0x404080;
    e.CouleurZones = 0x000001;
    e.CouleurDirectionnel = 0;
    e.CouleurPoste1 = 0;
    e.CouleurPoste2 = 0;
    e.CouleurLigne = 0;
    e.CouleurPosteAval = 0;
    if (e.FinTR) {
        e.PlumeEpaisseur = 1;
        return;
    }
    e.ImpNoir = false;
    e.ImpNoDots = false;
    e.ImpCopies = 0;
    e.ImpParties = {false, false, false};
    e.PlumeRouge = e.PlumeVert = e.PlumeBleu = 0;
    e.PlumeEpaisseur = 0;
    e.PlumeStyle = 0;
}

} // namespace tournesol
