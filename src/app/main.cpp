// tournesol: the engineer's desktop tool.
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierEtude.h"
#include "core/FichierIni.h"
#include "core/Format.h"
#include "core/Registre.h"
#include "core/views/DialogueQt.h"
#include "database/BaseEtudesSql.h"
#include "database/EtatBase.h"
#include "database/Import.h"
#include "diagnostics/Diagnostics.h"
#include "network/views/ImageLigne.h"
#include "relays/Relais.h"
#include "relays/views/FenetreRelais.h"
#include "shell/Application.h"
#include "shell/Ouverture.h"
#include "shell/PanneauDemarre.h"
#include "shell/PanneauTitre.h"
#include "shell/views/VueDemarre.h"
#include "shell/views/VueTitre.h"
#include "superposition/PanneauSuperposer.h"
#include "superposition/views/VueSuperposer.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLocale>
#include <QPushButton>
#include <QStandardPaths>
#include <QTimer>
#include <iostream>

using namespace tournesol;

namespace {

// `tournesol --capture IMAGE.png STUDY.json`: the working window on a study, saved as an image
// once its diagram is drawn, then the program ends. It prints how long the start took.
// `--capture-relais IMAGE.png STUDY.json`: the same with the relay's panel, opened by "set" from
// the working window. The panels that come up on the way are confirmed unchanged.
struct Capture {
    QString image;
    bool relais = false;
    bool prise = false;
    bool quitte = false; // leave was asked: a question on the way is answered "don't save"
};

void Capturer(Capture capture, const QElapsedTimer& chrono) {
    QTimer::singleShot(0, [capture, &chrono]() mutable {
        QWidget* modal = QApplication::activeModalWidget();
        // The working window itself is modal; a panel above it is the modal one.
        if (modal && modal->objectName() == "frmDémarre") modal = nullptr;
        if (capture.quitte) {
            // A capture saves nothing: the question on leaving is answered "don't save".
            if (modal && modal->objectName() == "frmQuery")
                if (auto* nePasSauver = modal->findChild<QPushButton*>("cmdBouton(1)"))
                    nePasSauver->click();
            if (modal) Capturer(capture, chrono);
            return;
        }
        if (auto* panneau = qobject_cast<FenetreRelais*>(modal); panneau && capture.relais) {
            panneau->grab().save(capture.image);
            capture.prise = true;
        }
        for (QWidget* w : QApplication::topLevelWidgets()) {
            if (modal || w->objectName() != "frmDémarre" || !w->isVisible()) continue;
            if (capture.relais && !capture.prise) {
                // The relay's panel comes up modally, in a turn of events of its own.
                auto* regler = w->findChild<QPushButton*>("cmdextra");
                QTimer::singleShot(0, regler, [regler] { regler->click(); });
                Capturer(capture, chrono);
                return;
            }
            if (!capture.relais) {
                w->grab().save(capture.image);
                std::cout << "first diagram drawn after " << chrono.elapsed() << " ms\n";
            }
            capture.quitte = true;
            Capturer(capture, chrono); // answers what leaving may ask, once it is up
            if (auto* quitter = w->findChild<QAction*>("mnuQuitter")) quitter->trigger();
            return;
        }
        // The panels of the opening are confirmed as they stand, as the command line does.
        if (auto* panneau = qobject_cast<FenetrePanneau*>(modal)) {
            panneau->Modele().Valider();
            panneau->accept();
        } else if (auto* message = qobject_cast<QDialog*>(modal)) {
            message->accept();
        }
        Capturer(capture, chrono);
    });
}

// A base without any substation starts with the bundled example study, so that the opening
// dialog's lists have a line to open.
void AmorcerBase(BaseEtudesSql& base) {
    if (!base.Postes().empty()) return;
    QFile fichier(QStringLiteral(":/examples/exemple.json"));
    if (!fichier.open(QIODevice::ReadOnly)) return;
    Etude exemple;
    InitRegistre(exemple);
    PreparerOuverture(exemple);
    try {
        LireEtude(fichier.readAll().toStdString(), exemple);
    } catch (const ErreurFichierEtude&) {
        return;
    }
    DialogueSansFenetre sansFenetre; // the example is computed and saved unseen
    OptionsReport options;
    options.Choisir(exemple.TypeReportCharge);
    InitEtude(exemple, sansFenetre, options);
    ImporterEtude(base, exemple, sansFenetre);
}

// `tournesol --capture-superposition IMAGE.png A.json B.json [N [BUTTON]]`: the superposition
// window on two study files (place 1 and place 2), in layout N or the one their names give (0),
// a button of the window clicked (cmdaffiche, cmdpostes), saved as an image once drawn; nothing
// is saved.
int CapturerSuperposition(const QStringList& args) {
    if (args.size() < 3 || args.size() > 5) {
        std::cerr
            << "tournesol: --capture-superposition IMAGE.png A.json B.json [LAYOUT [BUTTON]]\n";
        return 2;
    }
    Etude etude;
    InitRegistre(etude);
    DialogueSansFenetre sansFenetre; // the studies are read and computed unseen
    PanneauSuperposer::Services services;
    services.OuvrirPlace = [&](Etude& e, int place) {
        Etude lue;
        InitRegistre(lue);
        PreparerOuverture(lue);
        try {
            LireFichierEtude(args.at(place).toStdString(), lue);
        } catch (const ErreurFichierEtude& err) {
            std::cerr << "tournesol: " << args.at(place).toStdString() << ": " << err.what()
                      << "\n";
            return false;
        }
        OptionsReport options;
        options.Choisir(lue.TypeReportCharge);
        InitEtude(lue, sansFenetre, options);
        e = std::move(lue);
        return e.ErrCalcul == 0;
    };
    PanneauSuperposer modele(etude, sansFenetre, nullptr, services, std::nullopt);
    const int disposition = args.size() >= 4 ? args.at(3).toInt() : 0;
    if (disposition >= 1 && disposition <= NOMBRE_DISPOSITIONS)
        modele.Cliquer(std::string(BOUTONS_DISPOSITION[static_cast<std::size_t>(disposition - 1)]));
    if (args.size() == 5) modele.Cliquer(args.at(4).toStdString());
    VueSuperposer vue(modele);
    vue.show();
    QApplication::processEvents();
    const bool ok = vue.grab().save(args.at(0));
    std::cout << "window " << vue.frameGeometry().width() << "x" << vue.frameGeometry().height()
              << "\n";
    return ok ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    QElapsedTimer chrono;
    chrono.start();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tournesol"));
    const QString point = QLocale::system().decimalPoint();
    if (point.size() == 1 && point.at(0).unicode() < 128)
        DefinirSeparateurDecimal(static_cast<char>(point.at(0).unicode()));

    InscrireRelais();
    Etude etude;
    DialogueQt dialogue;
    dialogue.Inscrire("frmtitre", [](Panneau& p, DialogueQt&) -> std::unique_ptr<FenetrePanneau> {
        return std::make_unique<VueTitre>(dynamic_cast<PanneauTitre&>(p));
    });
    dialogue.Inscrire("frmAPropos", [](Panneau& p, DialogueQt&) -> std::unique_ptr<FenetrePanneau> {
        return std::make_unique<VueAPropos>(dynamic_cast<PanneauAPropos&>(p));
    });
    dialogue.Inscrire(
        "frmDémarre", [&etude](Panneau& p, DialogueQt&) -> std::unique_ptr<FenetrePanneau> {
            return std::make_unique<VueDemarre>(dynamic_cast<PanneauDemarre&>(p), etude);
        });
    InscrireFenetreRelais(dialogue);
    InscrireVueSuperposer(dialogue);
    InscrireVuesReseau();

    QStringList args = QApplication::arguments();
    args.removeFirst();
    if (!args.isEmpty() && args.first() == "--capture-superposition") {
        InscrireRelais();
        return CapturerSuperposition(args.mid(1));
    }
    Capture capture;
    if (args.size() >= 2 && (args.first() == "--capture" || args.first() == "--capture-relais")) {
        capture.relais = args.first() == "--capture-relais";
        capture.image = args.at(1);
        args = args.mid(2);
    }
    // The messages of the start are confirmed too in a capture.
    if (!capture.image.isEmpty()) Capturer(capture, chrono);

    // The path file in the user's configuration folder (~/.config/Tournesol), the master base
    // in the user's data folder (~/.local/share/Tournesol) unless the path file names others.
    PreparerConfiguration(
        etude, dialogue,
        {QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation).toStdString(),
         QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString()});

    // The study base: bd1.mdb in the folder of the master base, made on first use.
    BaseEtudesSql base(etude.Rep_appli);
    Application application(etude, dialogue, &base, FichierReglages(etude));
    if (args.isEmpty()) AmorcerBase(base);
    // A base missing, unreadable, read-only or of another program is told now, not at the save.
    SignalerBaseAuDemarrage(etude.Rep_appli, dialogue);
    // A study file: opened at once in the working window; a refused one leaves the opening
    // dialog to come up after its message.
    if (!args.isEmpty() && application.OuvrirFichier(args.first().toStdString()) &&
        capture.relais && !PanneauRelaisInscrit(etude.id_protection)) {
        // "set" would open nothing: there is no panel to capture.
        std::cerr << "tournesol: "
                  << (RelaisConnu(etude.id_protection) ? TexteReglagesNonCalcules(etude)
                                                       : std::string("No relay chosen."))
                  << " No relay panel to capture.\n";
        return 1;
    }
    application.Main();
    return 0;
}
