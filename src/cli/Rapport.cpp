#include "cli/Rapport.h"

#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/Registre.h"
#include "diagnostics/Diagnostics.h"
#include "printing/Impression.h"
#include "printing/views/PageQt.h"
#include "printing/views/RapportPdf.h"
#include "relays/Relais.h"
#include "shell/Ouverture.h"
#include "superposition/ImpressionSuperposition.h"
#include "superposition/Superposition.h"

#include <QFile>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <iostream>
#include <memory>

namespace tournesol {

namespace {

constexpr int SORTIE_USAGE = 2;
constexpr int SORTIE_ECRITURE = 1;

// Qt's own notices (the platform's start, the painter) are no concern of the command line's
// user: its messages are its own.
void Taire(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg) std::cerr << message.toStdString() << "\n";
}

// The fonts need a Qt application; the command line has no window, hence the offscreen
// platform.
std::unique_ptr<QGuiApplication> ApplicationQt() {
    if (QCoreApplication::instance()) return nullptr;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char nom[] = "tournesol-cli";
    static char* argv[] = {nom, nullptr};
    return std::make_unique<QGuiApplication>(argc, argv);
}

} // namespace

int CommandeRapport(const std::vector<std::string>& args) {
    if (args.size() != 3 || args[1] != "-o") {
        std::cerr << "usage: tournesol-cli report STUDY.json -o FILE.pdf\n";
        return SORTIE_USAGE;
    }
    const std::string& chemin = args[0];
    const std::string& sortie = args[2];
    Etude e;
    DialogueSansFenetre dialogue;
    OptionsReport options;
    InscrireRelais();
    InitRegistre(e);
    PreparerOuverture(e);
    try {
        LireFichierEtude(chemin, e);
    } catch (const ErreurFichierEtude& err) {
        std::cerr << "tournesol-cli: " << chemin << ": " << err.what() << "\n";
        return SORTIE_USAGE;
    }
    // The working window shows the study's report case.
    options.Choisir(e.TypeReportCharge);
    InitEtude(e, dialogue, options);
    PreparerRapport(e);

    const QtMessageHandler avant = qInstallMessageHandler(Taire);
    const auto application = ApplicationQt();
    QFile fichier(QString::fromStdString(sortie));
    const bool ouvert = fichier.open(QIODevice::WriteOnly);
    fichier.close();
    // The rules of the relay as the diagnostics hold their texts.
    OptionsImpression impression;
    impression.textesRegles = [](int regle) { return TextesRegleRapport(regle); };
    if (!ouvert || !EcrireRapportPdf(e, dialogue, QString::fromStdString(sortie), impression)) {
        qInstallMessageHandler(avant);
        std::cerr << "tournesol-cli: cannot write " << sortie << "\n";
        return SORTIE_ECRITURE;
    }
    qInstallMessageHandler(avant);
    return 0;
}

bool EcrireSuperpositionPdf(Superposition& s, Dialogue& d, const std::string& chemin) {
    qInstallMessageHandler(Taire);
    const auto application = ApplicationQt();
    Etude& e = s.etude();
    e.ImpParties = {true, true, true};
    e.ImpCopies = 1;
    e.ArretImpression = false;
    bool reussi = false;
    {
        QPdfWriter pdf(QString::fromStdString(chemin));
        pdf.setPageSize(QPageSize(QPageSize::A4));
        pdf.setPageOrientation(QPageLayout::Portrait);
        pdf.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
        pdf.setResolution(1200);
        pdf.setCreator(QStringLiteral("Tournesol"));
        PageQt page(pdf);
        EtatImpression etat;
        ImprimerSuperposition(s, d, page, etat);
        page.Fermer();
        reussi = page.Reussi() && page.PagesImprimees() > 0;
    }
    return reussi;
}

} // namespace tournesol
