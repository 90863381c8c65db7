// The report of an example written to PDF, read back by pdftotext and pdfinfo.
#include "../EtudeImprimee.h"
#include "core/FichierEtude.h"
#include "printing/views/RapportPdf.h"
#include "relays/Relais.h"
#include "shell/Ouverture.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tournesol;

namespace {

// An example opened as the command line opens it, made ready for the whole report.
void OuvrirExemple(const std::string& nom, Etude& e, Dialogue& d) {
    InscrireRelais();
    InitRegistre(e);
    PreparerOuverture(e);
    LireFichierEtude(std::string(TOURNESOL_EXEMPLES) + "/" + nom, e);
    OptionsReport options;
    options.Choisir(e.TypeReportCharge);
    InitEtude(e, d, options);
    PreparerRapport(e);
}

QString Sortie(const QString& programme, const QStringList& arguments) {
    QProcess p;
    p.start(programme, arguments);
    p.waitForFinished(30000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

// The text of the PDF, every run of blanks made one blank.
QString TexteDuPdf(const QString& pdf) {
    return Sortie("pdftotext", {"-enc", "UTF-8", pdf, "-"}).simplified();
}

// The number of pages of the PDF, when they are A4 sheets.
int PagesA4(const QString& pdf) {
    const QString info = Sortie("pdfinfo", {pdf});
    const auto m = QRegularExpression(R"(Pages:\s+(\d+))").match(info);
    return m.hasMatch() && info.contains("(A4)") ? m.captured(1).toInt() : -1;
}

void AttendreTextes(const QString& texte, const QStringList& attendus) {
    for (const QString& a : attendus)
        EXPECT_TRUE(texte.contains(a.simplified())) << a.toStdString();
}

} // namespace

TEST(RapportPdf, PageDeLaLigneEtDiagnosticsDUnExemple) {
    Etude e;
    DialogueSansFenetre d;
    OuvrirExemple("champagnier-grande-ile-225kV.json", e, d);
    e.DiagDrapeaux[16] = true; // rule 17 of PD3A
    e.DiagValeurs[16] = 12.3456;
    const auto textes = [](int regle) {
        return regle == 17 ? std::vector<std::string>{"The forward pick up", "It might not "}
                           : std::vector<std::string>{};
    };
    QTemporaryDir dossier;
    const QString pdf = dossier.filePath("champagnier.pdf");
    ASSERT_TRUE(EcrireRapportPdf(e, d, pdf, {textes, {}, "01/02/2003 - 04:05"}));
    EXPECT_EQ(PagesA4(pdf), 2);
    const QString texte = TexteDuPdf(pdf);
    AttendreTextes(texte, {"TOURNESOL", "01/02/2003 - 04:05", "Substation A :", "CHAMPAGNIER",
                           "Substation B:", "GRANDE-ILE", "PD3A n° 1", "three phase report"});
    AttendreTextes(texte, {"Diagnostics", "The forward pick up", "It might not 12.35 Ω Π"});
    AttendreTextes(texte, {"Line characteristics",
                           " single circuit line with two ends",
                           "meshed link",
                           "Length           : ",
                           " km     Zd :   ",
                           " +   j   ",
                           "Zo :   ",
                           "Maximal current before three phase load report  : ",
                           "Corresponding load report factor : ",
                           "Maximal current before single phase load report  : ",
                           "Maximal current without allowed load report  : ",
                           "Characteristics of the cell",
                           "CT    : ",
                           "Un    : ",
                           "ku     : ",
                           "ki      : ",
                           " kz :    ",
                           "Constraints dues to the transformers",
                           "Impedance of the transformers at substation A :          ",
                           "Impédance des transformateurs au poste B :           "});
    EXPECT_GE(texte.count(QStringLiteral("Ω")), 6); // Zd, Zo, transformers, rule, diagram

    e.DiagDrapeaux[16] = false;
    ASSERT_TRUE(EcrireRapportPdf(e, d, pdf));
    AttendreTextes(TexteDuPdf(pdf), {"Diagnostics No discordance with the setting guide."});
    EXPECT_FALSE(EcrireRapportPdf(e, d, "/nonexistent-folder/rapport.pdf"));
}

// Escape during the second copy: the PDF holds the first copy alone.
TEST(RapportPdf, LaCopieInterrompueNestPasImprimee) {
    Etude e;
    DialogueSansFenetre ouverture;
    OuvrirExemple("champagnier-grande-ile-225kV.json", e, ouverture);
    e.ImpCopies = 2;
    DialogueImpression compte(e);
    PageEnregistree essai;
    EtatImpression etat;
    Imprimer(e, compte, essai, etat, {});
    ASSERT_EQ(essai.Imprimes.size(), 2u);

    DialogueImpression d(e, compte.tours / 2 + 3);
    QTemporaryDir dossier;
    const QString pdf = dossier.filePath("copies.pdf");
    ASSERT_TRUE(EcrireRapportPdf(e, d, pdf));
    EXPECT_TRUE(e.ArretImpression);
    EXPECT_EQ(PagesA4(pdf), 2);
    EXPECT_EQ(TexteDuPdf(pdf).count("Line characteristics"), 1);
}
