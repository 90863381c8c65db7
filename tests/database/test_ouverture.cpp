// Reading a study back: the lists of the opening dialog, the Ligne row of a new line, and a
// saved study reopening exactly as it was saved.
#include "BaseEssai.h"

#include <map>
#include <sstream>

namespace essai {

using Ouverture = BaseEssai;

namespace {

template <class T> struct TableauNombres : std::false_type {};
template <class T, std::size_t N>
struct TableauNombres<std::array<T, N>> : std::is_arithmetic<T> {};

// Every line variable of the study, as text.
std::map<std::string, std::string> VariablesLigne(Etude& e) {
    std::map<std::string, std::string> v;
    e.Visiter([&](const char* nom, auto& valeur) {
        using T = std::decay_t<decltype(valeur)>;
        if (std::string(nom).rfind("Ligne_", 0) != 0) return;
        std::ostringstream s;
        s.precision(17);
        if constexpr (std::is_arithmetic_v<T>) {
            s << +valeur;
        } else if constexpr (TableauNombres<T>::value) {
            for (const auto& x : valeur)
                s << +x << ' ';
        } else {
            ADD_FAILURE() << nom << ": a line variable of an unexpected type";
        }
        v[nom] = s.str();
    });
    return v;
}

// Gives every line variable a value of its own.
void Remplir(Etude& e) {
    int k = 1;
    auto valeur = [&k](auto& x) {
        using T = std::decay_t<decltype(x)>;
        if constexpr (std::is_same_v<T, bool>)
            x = (k % 2) != 0;
        else if constexpr (std::is_integral_v<T>)
            x = static_cast<T>(k);
        else
            x = static_cast<T>(k + 0.1);
        ++k;
    };
    e.Visiter([&](const char* nom, auto& v) {
        using T = std::decay_t<decltype(v)>;
        if (std::string(nom).rfind("Ligne_", 0) != 0) return;
        if constexpr (std::is_arithmetic_v<T>) {
            valeur(v);
        } else if constexpr (TableauNombres<T>::value) {
            for (auto& x : v)
                valeur(x);
        }
    });
}

} // namespace

TEST_F(Ouverture, UneEtudeSauveeSeRouvreCommeElleAEteSauvee) {
    Etude e = Etude_("Champagnier", "Grande Ile", "Vif");
    base_->Ouvrir(e, d_);
    EXPECT_TRUE(e.NouvelleLigne);
    EXPECT_EQ(e.id_ligne, 0); // a new line in memory: the save makes its row
    EXPECT_FALSE(QFile::exists(QString::fromStdString(base_->Fichier())));
    EXPECT_TRUE(d_.Messages().empty());

    Remplir(e);
    e.Ligne_lc = true;
    e.TypeReportCharge = 2;
    e.ScaleLeft = -12.5f;
    e.ScaleTop = 30.25f;
    e.ScaleWidth = 70.0f;
    e.ScaleHeight = -55.5f;
    e.X1reg_HT = 31.7;
    e.T1 = 400;
    ASSERT_TRUE(base_->Sauver(e, d_));
    EXPECT_EQ(Valeur(R"(SELECT "lc" FROM "Ligne")").toInt(), 0); // stored negated

    Etude f = Etude_("Champagnier", "Grande Ile", "Vif");
    f.TypeReportCharge = 0;
    base_->Ouvrir(f, d_);
    EXPECT_FALSE(f.NouvelleLigne);
    EXPECT_FALSE(f.ProtectionInconnue);
    EXPECT_EQ(VariablesLigne(f), VariablesLigne(e));
    EXPECT_TRUE(f.Ligne_lc);
    EXPECT_EQ(f.TypeReportCharge, 2);
    EXPECT_EQ(std::tuple(f.ScaleLeft, f.ScaleTop, f.ScaleWidth, f.ScaleHeight),
              std::tuple(-12.5f, 30.25f, 70.0f, -55.5f));
    EXPECT_EQ(std::tuple(f.X1reg_HT, f.T1), std::tuple(31.7, Entier16{400}));
    EXPECT_EQ(std::tuple(f.id_ligne, f.id_reglage, f.id_poste, f.id_depart, f.id_piquage),
              std::tuple(e.id_ligne, e.id_reglage, e.id_poste, e.id_depart, e.id_piquage));
    EXPECT_FALSE(f.EtudeModifiee);
    EXPECT_EQ(Compter("Ligne"), 1);

    // Opening, known line or not, and the lists leave the file as it was.
    const QByteArray avant = Empreinte();
    Etude g = Etude_("Champagnier", "Grande Ile", "Vif", RXAP, 3);
    base_->Ouvrir(g, d_);
    Etude h = Etude_("Champagnier", "Autre");
    base_->Ouvrir(h, d_);
    EXPECT_TRUE(h.NouvelleLigne);
    EXPECT_EQ(h.id_ligne, 0);
    base_->Postes();
    base_->Numeros("Champagnier", "Grande Ile", "Vif", "PD3A");
    EXPECT_EQ(Empreinte(), avant);
}

// A reader does not wait for a writer that holds the base: it reads what was committed.
TEST_F(Ouverture, UnLecteurNAttendPasUnEcrivain) {
    Etude e = Etude_("A", "B");
    ASSERT_TRUE(OuvrirEtSauver(e));
    EcrireCommeUnAutre();
    Executer(R"(INSERT INTO "Poste" ("id", "nom") VALUES (40, 'pas encore'))");
    Etude f = Etude_("A", "B");
    base_->Ouvrir(f, d_);
    EXPECT_FALSE(f.NouvelleLigne);
    EXPECT_EQ(f.id_reglage, e.id_reglage);
    EXPECT_EQ(base_->Postes(), std::vector<std::string>{"A"});
    EXPECT_TRUE(d_.Messages().empty());
    Executer("ROLLBACK");
}

TEST_F(Ouverture, UnRelaisQueLaBaseNaPasEstProposeALaCreation) {
    Etude e = Etude_("A", "B");
    ASSERT_TRUE(OuvrirEtSauver(e));
    Etude f = Etude_("A", "B", "", RXAP, 2);
    base_->Ouvrir(f, d_);
    EXPECT_FALSE(f.NouvelleLigne);
    EXPECT_TRUE(f.ProtectionInconnue);
    EXPECT_EQ(f.id_ligne, e.id_ligne);
    EXPECT_EQ(f.id_reglage, 0);
    ASSERT_EQ(d_.Messages().size(), 1u);
    const MessageAffiche& q = d_.Messages()[0];
    EXPECT_EQ(q.sTitre, "TOURNESOL : attention !");
    EXPECT_EQ(q.sMessage, "the relay  RXAP  numéro 2of the link A - B does not exist.\r\nCreate ?");
    EXPECT_EQ(q.BoutonsQuestion, (Boutons{"&Create", "", ""}));

    ASSERT_TRUE(base_->Sauver(f, d_));
    EXPECT_EQ(Compter("Tournesol", R"(WHERE "id_ligne" = 1)"), 2);
    EXPECT_NE(f.id_reglage, e.id_reglage);
}

TEST_F(Ouverture, LesListesDuDialogueDOuverture) {
    for (Etude e : {Etude_("A", "B", "", PD3A, 2), Etude_("A", "B", "", PD3A, 1),
                    Etude_("A", "B", "", RXAP, 1), Etude_("A", "C"), Etude_("A", "B", "T", RXAP),
                    Etude_("D", "E")})
        ASSERT_TRUE(OuvrirEtSauver(e));
    EXPECT_EQ(base_->Postes(), (std::vector<std::string>{"A", "D"}));
    EXPECT_EQ(base_->Departs("A"), (std::vector<std::string>{"B", "C"}));
    EXPECT_EQ(base_->Departs("D"), std::vector<std::string>{"E"});
    EXPECT_TRUE(base_->Departs("Z").empty());
    EXPECT_EQ(base_->Piquages("A", "B"), std::vector<std::string>{"T"});
    EXPECT_TRUE(base_->Piquages("A", "C").empty());
    // In the registry's order, the entry for a new relay last.
    EXPECT_EQ(base_->Protections("A", "B", ""),
              (std::vector<std::string>{"PD3A", "RXAP", NOUVELLE_PROTECTION}));
    EXPECT_EQ(base_->Protections("A", "B", "T"),
              (std::vector<std::string>{"RXAP", NOUVELLE_PROTECTION}));
    EXPECT_EQ(base_->Protections("A", "Z", ""), std::vector<std::string>{NOUVELLE_PROTECTION});
    EXPECT_EQ(base_->Numeros("A", "B", "", "PD3A"), (std::vector<int>{1, 2}));
    EXPECT_EQ(base_->Numeros("A", "B", "", "RXAP"), std::vector<int>{1});
    EXPECT_TRUE(base_->Numeros("A", "C", "", "RXAP").empty());
}

// The list of substations read again only when they changed: whoever changed them (another
// program's connection, this store's save or deletion), the next list shows it; names with
// accents and quotes come back as they were written.
TEST_F(Ouverture, LaListeDesPostesSuitChaqueChangement) {
    using Noms = std::vector<std::string>;
    for (Etude e : {Etude_("Sainte-Hélène", "B"), Etude_("A \"nord\"", "C")})
        ASSERT_TRUE(OuvrirEtSauver(e));
    const Noms premiers = {"A \"nord\"", "Sainte-Hélène"};
    EXPECT_EQ(base_->Postes(), premiers);
    EXPECT_EQ(base_->Postes(), premiers);

    Executer(R"(INSERT INTO "Poste" ("id", "nom") VALUES (10, 'Z'))");
    EXPECT_EQ(base_->Postes(), (Noms{"A \"nord\"", "Sainte-Hélène", "Z"}));
    Executer(R"(UPDATE "Poste" SET "nom" = 'Y' WHERE "id" = 10)");
    EXPECT_EQ(base_->Postes(), (Noms{"A \"nord\"", "Sainte-Hélène", "Y"}));
    Executer(R"(INSERT INTO "Poste" ("id", "nom") VALUES (11, 'Y'))"); // each name once
    EXPECT_EQ(base_->Postes(), (Noms{"A \"nord\"", "Sainte-Hélène", "Y"}));
    Executer(R"(DELETE FROM "Poste" WHERE "id" >= 10)");
    EXPECT_EQ(base_->Postes(), premiers);

    Etude nouvelle = Etude_("Brême", "D");
    ASSERT_TRUE(OuvrirEtSauver(nouvelle));
    EXPECT_EQ(base_->Postes(), (Noms{"A \"nord\"", "Brême", "Sainte-Hélène"}));
    ASSERT_TRUE(base_->SupprimerPoste(nouvelle, d_));
    EXPECT_EQ(base_->Postes(), premiers);
}

} // namespace essai
