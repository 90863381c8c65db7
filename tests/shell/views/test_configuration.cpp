// The first start on a desktop, in a temporary home: the user's folders as Qt names them, the
// path file made there, and the base found in the data folder after a restart.
#include "Vues.h"
#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/FichierIni.h"
#include "database/BaseEtudesSql.h"
#include "database/Import.h"
#include "shell/Ouverture.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <filesystem>
#include <gtest/gtest.h>

using namespace tournesol;
namespace fs = std::filesystem;

namespace {

// The user's folders of the program, under a home of the test's own.
class MaisonTemporaire {
public:
    MaisonTemporaire() : nom_(QCoreApplication::applicationName()) {
        for (const char* v : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
            avant_.append(qgetenv(v));
        qputenv("HOME", maison_.path().toUtf8());
        qputenv("XDG_CONFIG_HOME", (maison_.path() + "/.config").toUtf8());
        qputenv("XDG_DATA_HOME", (maison_.path() + "/.local/share").toUtf8());
        QCoreApplication::setApplicationName(QStringLiteral("Tournesol"));
    }
    ~MaisonTemporaire() {
        QCoreApplication::setApplicationName(nom_);
        const char* variables[] = {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"};
        for (int i = 0; i < 3; ++i)
            if (avant_[i].isEmpty())
                qunsetenv(variables[i]);
            else
                qputenv(variables[i], avant_[i]);
    }
    DossiersUtilisateur Dossiers() const {
        return {QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation).toStdString(),
                QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString()};
    }
    std::string Chemin() const { return maison_.path().toStdString(); }

private:
    QTemporaryDir maison_;
    QString nom_;
    QList<QByteArray> avant_;
};

} // namespace

TEST(Configuration, PremierDemarragePuisBaseRetrouvee) {
    MaisonTemporaire maison;
    const DossiersUtilisateur dossiers = maison.Dossiers();
    EXPECT_EQ(dossiers.configuration, fs::path(maison.Chemin()) / ".config" / "Tournesol");
    EXPECT_EQ(dossiers.donnees, fs::path(maison.Chemin()) / ".local" / "share" / "Tournesol");

    Etude e;
    DialogueSansFenetre d;
    PreparerConfiguration(e, d, dossiers);
    EXPECT_TRUE(fs::exists(dossiers.configuration / "TOURNESO.INI"));
    ASSERT_EQ(d.Messages().size(), 1u);

    // A study saved into the base of the first start...
    OuvrirExemple(e, d, "champagnier-grande-ile-225kV.json");
    {
        BaseEtudesSql base(e.Rep_appli);
        ASSERT_TRUE(ImporterEtude(base, e, d));
    }
    EXPECT_TRUE(fs::exists(dossiers.donnees / "bd1.mdb"));

    // ...is in the lists after a restart, which says nothing.
    Etude redemarre;
    DialogueSansFenetre d2;
    PreparerConfiguration(redemarre, d2, maison.Dossiers());
    EXPECT_TRUE(d2.Messages().empty());
    BaseEtudesSql base(redemarre.Rep_appli);
    const auto postes = base.Postes();
    EXPECT_NE(std::find(postes.begin(), postes.end(), e.NomPoste), postes.end());
}
