// tournesol: the engineer's desktop tool.
#include "network/Format.h"
#include "shell/Dialogue.h"
#include "shell/Etude.h"
#include "shell/FichierEtude.h"
#include "shell/Ouverture.h"
#include "shell/Registre.h"
#include "shell/views/VueEtude.h"

#include <QApplication>
#include <QFile>
#include <QLocale>
#include <QMessageBox>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tournesol"));
    const QString point = QLocale::system().decimalPoint();
    if (point.size() == 1 && point.at(0).unicode() < 128)
        tournesol::DefinirSeparateurDecimal(static_cast<char>(point.at(0).unicode()));

    tournesol::Etude etude;
    tournesol::InitRegistre(etude);
    tournesol::PreparerOuverture(etude);

    // A study file named on the command line, else the bundled example study.
    const QStringList args = QApplication::arguments();
    QFile fichier(args.size() > 1 ? args.at(1) : QStringLiteral(":/examples/exemple.json"));
    if (!fichier.open(QIODevice::ReadOnly)) {
        QMessageBox::critical(nullptr, QStringLiteral("TOURNESOL : Attention"),
                              QStringLiteral("Cannot read %1").arg(fichier.fileName()));
        return 1;
    }
    try {
        tournesol::LireEtude(fichier.readAll().toStdString(), etude);
    } catch (const tournesol::ErreurFichierEtude& err) {
        QMessageBox::critical(nullptr, QStringLiteral("TOURNESOL : Attention"),
                              QString::fromStdString(err.what()));
        return 1;
    }
    // Until the working window drives them, the panels of the opening are confirmed unchanged.
    tournesol::OptionsReport options;
    options.Choisir(etude.TypeReportCharge);
    tournesol::DialogueSansFenetre dialogue;
    tournesol::InitEtude(etude, dialogue, options);
    tournesol::VueEtude fenetre(etude);
    fenetre.show();
    return QApplication::exec();
}
