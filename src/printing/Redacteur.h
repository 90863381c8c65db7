// Lines of text written into a frame of the report's pages, as the long settings pages and the
// parameter listing need them: a line too long for the frame is wrapped at a blank and goes on
// at its column on the next line; a frame that is full turns the page (its frames and head, as
// the report's other pages) before the text goes on. "#W" and "#%" in a text are the program's
// marks for the ohm and per cent signs of the symbol font.
#pragma once

#include "printing/Impression.h"

#include <string>
#include <utility>
#include <vector>

namespace tournesol {

// The text with the symbol marks shown: "#W" the ohm sign, "#%" the per cent sign.
std::string TexteSymboles(const std::string& texte);

class Redacteur {
public:
    // Writes into that frame of the current page; a new page has the frames and head of `genre`
    // and the text goes on in the same frame, or in `suite` on a page of `genreSuite`.
    Redacteur(ContexteImpression& c, CadreImpression CadresPage::*cadre, GenrePage genre);
    Redacteur(ContexteImpression& c, CadreImpression CadresPage::*cadre,
              CadreImpression CadresPage::*suite, GenrePage genreSuite);
    // The pen at that height of the frame (under a title written there).
    void Depuis(double y) { y_ = y; }

    // One line: each piece at its column (n Pas from the frame's left plus one Pas), in order.
    // A piece that runs past the frame's right edge is wrapped at a blank onto further lines at
    // its own column. Nothing once Escape stopped the print.
    void Ligne(const std::vector<std::pair<int, std::string>>& morceaux);
    void Ligne(const std::string& texte, int colonne = 0) { Ligne({{colonne, texte}}); }
    void LigneVide() { Ligne(std::string()); }

    // The pages turned so far, and the pen's height in the frame.
    int PagesTournees() const { return pages_; }
    double Y() const { return y_; }

private:
    const CadreImpression& Cadre() const;
    // The height left for `lignes` more lines, else a new page.
    void Place(int lignes);
    // The piece cut into lines that fit from x to the frame's right edge.
    std::vector<std::string> Couper(const std::string& texte, double largeur) const;

    ContexteImpression& c_;
    CadreImpression CadresPage::*cadre_;
    CadreImpression CadresPage::*suite_;
    GenrePage genre_;
    double y_;
    int pages_ = 0;
};

} // namespace tournesol
