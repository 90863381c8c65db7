#include "printing/views/RapportPdf.h"

#include "core/Etude.h"
#include "printing/views/PageQt.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>

namespace tournesol {

namespace {
constexpr int RESOLUTION_PDF = 1200;
}

bool EcrireRapportPdf(Etude& e, Dialogue& d, const QString& chemin,
                      const OptionsImpression& options) {
    int pages = 0;
    bool reussi = false;
    {
        QPdfWriter pdf(chemin);
        pdf.setPageSize(QPageSize(QPageSize::A4));
        pdf.setPageOrientation(QPageLayout::Portrait);
        pdf.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
        pdf.setResolution(RESOLUTION_PDF);
        pdf.setCreator(QStringLiteral("Tournesol"));
        pdf.setTitle(QString::fromStdString("TOURNESOL [" + e.NomPoste + "]"));
        PageQt page(pdf);
        EtatImpression etat;
        Imprimer(e, d, page, etat, options);
        page.Fermer();
        pages = page.PagesImprimees();
        reussi = page.Reussi();
    }
    return reussi && pages > 0;
}

} // namespace tournesol
