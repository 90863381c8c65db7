// The pages that every relay's report shares: the diagnostics section under the diagram, the
// line characteristics, the head of the settings.
#include "core/Etude.h"
#include "core/Format.h"
#include "diagnostics/Diagnostics.h"
#include "printing/Impression.h"
#include "printing/Redacteur.h"

#include <array>

namespace tournesol {

namespace {

constexpr double TAILLE_TITRE_BLOC = 10.0;
constexpr double TAILLE_CARACTERISTIQUES = 8.0;
constexpr double TAILLE_DIAGNOSTICS = 8.0;
constexpr double TAILLE_REGLAGES = 10.0;
constexpr int RETRAIT = 5;
constexpr const char* FORMAT_OHMS = "##0.0#";
constexpr const char* FORMAT_LONGUEUR = "##0.0#";
constexpr const char* FORMAT_COURANT = "###0";
constexpr const char* FORMAT_FACTEUR = "##0.0#";
constexpr const char* FORMAT_CELLULE = "##0.##";
constexpr const char* PRIMAIRE = " \xCE\xA0"; // " Π"

// Rules printed, by id_protection.

// Columns of the settings: the setting's name, then its three values.
constexpr int COLONNE_SECONDAIRE = COLONNE_SECONDAIRE_REGLAGES;
constexpr int COLONNE_PRIMAIRE = COLONNE_PRIMAIRE_REGLAGES;
constexpr int COLONNE_POURCENTAGE = COLONNE_POURCENTAGE_REGLAGES;

// A line of texts at a column; the pen then goes to the next line.
void Ligne(ContexteImpression& c, int colonne, std::initializer_list<std::string> pieces) {
    if (c.e.ArretImpression) return;
    AllerColonne(c, colonne);
    for (const std::string& piece : pieces)
        c.page.Ecrire(piece);
    c.page.ALaLigne();
}

// The title of a block, in bold.
void TitreBloc(ContexteImpression& c, const std::string& titre) {
    c.page.ChoisirGras(true);
    Ligne(c, 0, {titre});
    c.page.ChoisirGras(false);
}

// Half a line between two blocks.
void Espace(ContexteImpression& c) {
    c.page.CurrentY += 0.5 * c.page.HauteurTexte(" ");
}

// "Zd :   " R " +   j   " X " Ω" at the pen.
void Impedance(Page& page, const std::string& nom, double r, double x) {
    page.Ecrire(nom);
    page.Ecrire(FormaterNombre(r, FORMAT_OHMS));
    page.Ecrire(" +   j   ");
    page.Ecrire(FormaterNombre(x, FORMAT_OHMS));
    EcrireOhm(page);
}

// A section: its length and positive sequence impedance, its zero sequence impedance under.
void Section(ContexteImpression& c, const std::string& libelle, std::size_t i, bool kom) {
    if (c.e.ArretImpression) return;
    Page& page = c.page;
    const Etude& e = c.e;
    AllerColonne(c, 0);
    page.Ecrire(libelle + FormaterNombre(e.Ligne_Longueur[i], FORMAT_LONGUEUR) + " km     ");
    const double colonneZ = page.CurrentX;
    Impedance(page, "Zd :   ", e.Ligne_RL[i], e.Ligne_XL[i]);
    page.ALaLigne();
    AllerColonne(c, 0);
    if (e.ArretImpression) return;
    page.CurrentX = colonneZ;
    Impedance(page, "Zo :   ", e.Ligne_Ro[i], e.Ligne_Xo[i]);
    if (kom) page.Ecrire("     kom   :  " + FormaterNombre(e.Ligne_kom, FORMAT_FACTEUR));
    page.ALaLigne();
}

void Genre(ContexteImpression& c) {
    switch (c.e.Ligne_Tl) {
    case 0:
        Ligne(c, 0, {" single circuit line with two ends"});
        break;
    case 1:
        Ligne(c, 0, {"Two ended circuit of a double circuit line"});
        break;
    case 2:
        Ligne(c, 0, {"ligne à 2 extrémités et 2 tronçons dont un avec support "});
        Ligne(c, 0, {"commun avec une autre ligne"});
        break;
    case 3:
        Ligne(c, 0, {"single circuit three ended line"});
        break;
    default:
        break;
    }
}

void Alimentation(ContexteImpression& c) {
    switch (c.e.Ligne_alim) {
    case 0:
        Ligne(c, 0, {"meshed link"});
        break;
    case 1:
        Ligne(c, 0, {"power plant - substation link"});
        break;
    case 2:
        Ligne(c, 0, {"substation - power plant link"});
        break;
    case 3:
        Ligne(c, 0, {"customer supply"});
        break;
    default:
        break;
    }
}

void Sections(ContexteImpression& c) {
    const Etude& e = c.e;
    if (e.Ligne_Tl == 2 || e.Ligne_Tl == 3) {
        Section(c, "Length of section 1 : ", 0, false);
        Section(c, "Length of section 2 : ", 1, false);
        if (e.Ligne_Tl == 3) Section(c, "Length of section 3 : ", 2, false);
        if (e.Ligne_Tl == 2)
            Ligne(c, 0,
                  {"zero sequence mutual inductance global factor kom   :  " +
                   FormaterNombre(e.kom_eq, FORMAT_FACTEUR)});
    } else {
        Section(c, "Length           : ", 0, e.Ligne_Tl == 1);
    }
}

void Charge(ContexteImpression& c) {
    const Etude& e = c.e;
    auto courant = [&](const std::string& texte, double i) {
        Ligne(c, 0, {texte + FormaterNombre(i, FORMAT_COURANT) + " A"});
    };
    auto facteur = [&](double cr) {
        Ligne(c, RETRAIT,
              {"Corresponding load report factor : " + FormaterNombre(cr, FORMAT_FACTEUR)});
    };
    switch (e.Ligne_alim) {
    case 0:
        courant("Maximal current before three phase load report  : ", e.Ligne_Ittri);
        facteur(e.Ligne_CRt);
        courant("Maximal current before single phase load report  : ", e.Ligne_Itmono);
        facteur(e.Ligne_CRm);
        courant("Maximal current without allowed load report  : ", e.Ligne_Itmax);
        break;
    case 1:
    case 2:
        Ligne(c, 0,
              {"Apparent power of the generator:  " + FormaterNombre(e.Ligne_Smax, FORMAT_COURANT) +
               " MVA"});
        Ligne(c, 0,
              {"Active power of the generator:     " +
               FormaterNombre(e.Ligne_Pmax, FORMAT_COURANT) + " MW"});
        break;
    case 3:
        courant("Maximal current supplying a customer  : ", e.Ligne_itclient);
        break;
    default:
        break;
    }
    if (e.Ligne_Tl == 3) {
        courant("Maximal current on end A  : ", e.Ligne_ItA);
        courant("Maximal current on end B  : ", e.Ligne_ItB);
        courant("Maximal current on end C  : ", e.Ligne_ItC);
    }
}

void Cellule(ContexteImpression& c) {
    const Etude& e = c.e;
    TitreBloc(c, "Characteristics of the cell");
    Ligne(c, 0,
          {"CT    : " + FormaterNombre(e.Ligne_Ip, FORMAT_COURANT) + "/" +
           FormaterNombre(e.Is, FORMAT_COURANT)});
    Ligne(c, 0, {"Un    : " + FormaterNombre(e.Ligne_Up * 1000.0, "# ##0") + " V"});
    Ligne(c, 0, {"ku     : " + FormaterNombre(e.Kv, FORMAT_CELLULE)});
    Ligne(c, 0, {"ki      : " + FormaterNombre(e.Ki, FORMAT_CELLULE)});
    Ligne(c, 0, {" kz :    " + FormaterNombre(e.Kz, FORMAT_CELLULE)});
}

void Transformateurs(ContexteImpression& c) {
    const Etude& e = c.e;
    TitreBloc(c, "Constraints dues to the transformers");
    auto transformateur = [&](const std::string& texte, double x) {
        if (e.ArretImpression) return;
        AllerColonne(c, 0);
        c.page.Ecrire(texte + FormaterNombre(x, FORMAT_OHMS));
        EcrireOhm(c.page);
        c.page.ALaLigne();
    };
    transformateur("Impedance of the transformers at substation A :          ", e.Ligne_XAM);
    transformateur("Impédance des transformateurs au poste B :           ", e.Ligne_XAV);
    if (e.Ligne_Tl == 3)
        transformateur("Impedance of the transformers at substation C :          ", e.Ligne_XAZ);
}

} // namespace

void ImprimerCaracteristiquesLigne(ContexteImpression& c) {
    Etude& e = c.e;
    if (e.ArretImpression) return;
    Page& page = c.page;
    const PolicePage avant = page.Police();
    page.CurrentY = c.cadres.CadreCaracteristiques.Top + e.Pas;
    page.ChoisirTaille(TAILLE_TITRE_BLOC);
    TitreBloc(c, "Line characteristics");
    page.ChoisirTaille(TAILLE_CARACTERISTIQUES);
    Espace(c);
    void (*const blocs[])(ContexteImpression&) = {Genre,  Alimentation, Sections,
                                                  Charge, Cellule,      Transformateurs};
    for (const auto bloc : blocs) {
        if (e.ArretImpression) break;
        bloc(c);
        if (bloc != Genre) Espace(c);
        AvancerProgression(e, c.etat, 1);
    }
    page.ChoisirTaille(avant.Taille);
    page.ChoisirGras(avant.Gras);
}

std::pair<int, int> ReglesImprimees(int id_protection) {
    // The printed range of the relay's block of rules.
    const BlocRegles* bloc = BlocDuRelais(id_protection);
    if (!bloc) return {1, 0};
    return {bloc->PremiereImprimee, bloc->DerniereImprimee};
}

void ImprimerDiagnostics(ContexteImpression& c) {
    Etude& e = c.e;
    if (e.ArretImpression) return;
    Page& page = c.page;
    page.CurrentY = c.cadres.CadrePied.Top + e.Pas;
    page.ChoisirTaille(TAILLE_TITRE_BLOC);
    TitreBloc(c, "Diagnostics");
    // The sentences in 8-point type, wrapped inside the frame under the drawing; a long list goes
    // on on a text page.
    page.ChoisirTaille(TAILLE_DIAGNOSTICS);
    Redacteur redacteur(c, &CadresPage::CadrePied, &CadresPage::CadreTexte, GenrePage::Texte);
    redacteur.Depuis(page.CurrentY);
    bool imprime = false;
    const auto [premiere, derniere] = ReglesImprimees(e.id_protection);
    for (int regle = premiere; regle <= derniere; ++regle) {
        if (e.ArretImpression) return;
        const auto i = static_cast<std::size_t>(regle - 1);
        if (e.DiagDrapeaux[i]) {
            std::vector<std::string> lignes =
                c.textesRegles ? c.textesRegles(regle) : std::vector<std::string>{};
            if (lignes.empty()) lignes.emplace_back();
            // The limit of the rule, or of the rule whose limit it prints.
            const auto texte = TexteDeRegle(regle);
            const int source =
                texte && texte->ValeurImprimee >= 1 && texte->ValeurImprimee <= NOMBRE_REGLES
                    ? texte->ValeurImprimee
                    : regle;
            lignes.back() +=
                FormaterNombre(ValeurRegle(e, source), "##0.0#") + " \xCE\xA9" + PRIMAIRE;
            for (std::size_t n = 0; n < lignes.size(); ++n)
                redacteur.Ligne(lignes[n], n == 0 ? 0 : RETRAIT);
            redacteur.LigneVide();
            imprime = true;
        }
        AvancerProgression(e, c.etat, 1);
    }
    if (!imprime)
        redacteur.Ligne(ReglagesNonCalcules(e) ? TexteReglagesNonCalcules(e)
                                               : "No discordance with the setting guide.");
    page.CurrentY = redacteur.Y();
}

void ImprimerTeteReglages(ContexteImpression& c) {
    if (c.e.ArretImpression) return;
    Page& page = c.page;
    page.CurrentY = c.cadres.CadreSuite.Top + c.e.Pas;
    page.ChoisirTaille(TAILLE_REGLAGES);
    TitreBloc(c, "settings");
    AllerColonne(c, COLONNE_SECONDAIRE);
    page.Ecrire("Secondary values");
    AllerColonne(c, COLONNE_PRIMAIRE);
    page.Ecrire("Primary values");
    AllerColonne(c, COLONNE_POURCENTAGE);
    page.Ecrire("Percentage");
    page.ALaLigne();
}

void ImprimerCellules(ContexteImpression& c, const std::vector<CelluleReglage>& cellules,
                      double taille) {
    if (c.e.ArretImpression) return;
    Page& page = c.page;
    page.ChoisirTaille(taille);
    for (const CelluleReglage& cellule : cellules) {
        AllerColonne(c, cellule.Colonne);
        page.Ecrire(cellule.Texte);
        if (cellule.Ohm) EcrireOhm(page);
        if (!cellule.Suite.empty()) page.Ecrire(cellule.Suite);
    }
    page.ALaLigne();
}

void ImprimerLigneReglage(ContexteImpression& c, const std::string& libelle,
                          const std::string& secondaire, const std::string& primaire,
                          const std::string& pourcentage) {
    c.page.ChoisirGras(false);
    ImprimerCellules(c,
                     {{0, libelle},
                      {COLONNE_SECONDAIRE, secondaire},
                      {COLONNE_PRIMAIRE, primaire},
                      {COLONNE_POURCENTAGE, pourcentage}},
                     TAILLE_REGLAGES);
}

} // namespace tournesol
