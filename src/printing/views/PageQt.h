// The report's page on a QPainter: a PDF file (QPdfWriter) or a printer (QPrinter), in
// millimetres. The pages of a copy are kept until the copy ends, so that an aborted copy leaves
// nothing on paper.
#pragma once

#include "printing/Page.h"

#include <QFont>
#include <QPainter>
#include <functional>
#include <vector>

class QPagedPaintDevice;

namespace tournesol {

class PageQt : public Page {
public:
    explicit PageQt(QPagedPaintDevice& support);
    ~PageQt() override;
    PageQt(const PageQt&) = delete;
    PageQt& operator=(const PageQt&) = delete;

    double Largeur() const override;
    double Hauteur() const override;
    double LargeurTexte(const std::string& texte) const override;
    double HauteurTexte(const std::string& texte) const override;
    void TexteEn(double x, double y, const std::string& texte, Couleur couleur) override;
    void Ligne(double x1, double y1, double x2, double y2, const Stylo& stylo) override;
    void Arc(double cx, double cy, double rayon, double debut, double fin,
             const Stylo& stylo) override;
    void Cercle(double cx, double cy, double rayon, const Stylo& stylo) override;
    void NouvellePage() override;
    void Terminer() override;
    void Abandonner() override;

    // Closes the output: the PDF file is complete, the print job goes.
    void Fermer();
    // False when the device refused to be painted on (a file that cannot be written).
    bool Reussi() const { return reussi_; }
    // The pages that went to the device.
    int PagesImprimees() const { return pages_; }

    // The font of the page's settings; "Arial" falls back to the system's sans serif.
    static QFont Fonte(const PolicePage& police);

private:
    using Trace = std::function<void(QPainter&)>;
    void Garder(Trace trace);
    QPen Stylet(const Stylo& stylo) const;

    QPagedPaintDevice& support_;
    QPainter peintre_;
    double pixelsParMm_;
    std::vector<std::vector<Trace>> copie_; // the pages of the copy under way
    bool commence_ = false;
    bool reussi_ = true;
    int pages_ = 0;
};

} // namespace tournesol
