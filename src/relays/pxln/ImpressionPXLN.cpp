#include "relays/pxln/ImpressionPXLN.h"

#include "core/Etude.h"
#include "core/Format.h"
#include "printing/Impression.h"
#include "printing/Redacteur.h"
#include "relays/ImpressionPXL.h"
#include "relays/pxln/ParametresPXLN.h"

#include <string>

namespace tournesol {

namespace {

constexpr double TAILLE_LISTING = 8.0;

// The listing of the relay's setting tool, on pages of text.
void Listing(ContexteImpression& c) {
    Etude& e = c.e;
    DebutProgression(e, c.etat, 2, "Page 3 : Settings");
    CommencerPage(c, GenrePage::Texte);
    c.page.ChoisirTaille(TAILLE_LISTING);
    c.page.ChoisirGras(false);
    Redacteur redacteur(c, &CadresPage::CadreTexte, GenrePage::Texte);
    const std::vector<LigneListing> lignes = ListingPXLN(e);
    bool suite = false;
    for (const LigneListing& ligne : lignes) {
        if (e.ArretImpression) return;
        if (ligne.empty())
            redacteur.LigneVide();
        else
            redacteur.Ligne(ligne);
        if (!suite && redacteur.PagesTournees() > 0) {
            suite = true;
            AvancerProgression(e, c.etat, 1);
            DebutProgression(e, c.etat, 1, "Page 4 : Settings");
        }
    }
    AvancerProgression(e, c.etat, 1);
}

} // namespace

void ImprimerPXLN(ContexteImpression& c) {
    ImpressionSansReglages(c);
    Etude& e = c.e;
    if (e.ArretImpression) return;
    if (DoitImprimer(e)) {
        DebutProgression(e, c.etat, 3, "Page 2 : settings");
        ImprimerReglagesPXL(c, ReglagesImprimes(e.PXLN));
    }
    if (e.ArretImpression) return;
    ++e.PageImpression;
    if (DoitImprimer(e)) Listing(c);
}

} // namespace tournesol
