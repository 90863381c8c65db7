// What the report's tests print: a 225 kV meshed line of 75 km with its PXLN relay, on a
// recording page, with a dialogue that can press Escape while the print runs.
#pragma once

#include "core/Dialogue.h"
#include "core/Etude.h"
#include "core/Registre.h"
#include "printing/Impression.h"
#include "printing/PageEnregistree.h"
#include "relays/Relais.h"

#include <algorithm>

namespace tournesol {

inline void RemplirEtudeImprimee(Etude& e) {
    InscrireRelais();
    InitRegistre(e);
    e.NomPoste = "CHAMPAGNIER";
    e.NomDepart = "GRANDE ILE";
    e.id_protection = 7;
    e.id_numero = 2;
    e.Ligne_Up = 225;
    e.Ligne_Ip = 1000;
    e.Is = 1.0f;
    e.Ligne_Longueur[0] = 75.0;
    e.Ligne_RL[0] = 6.375;
    e.Ligne_XL[0] = 30.375;
    e.Ligne_Ro[0] = 18.0;
    e.Ligne_Xo[0] = 90.5;
    e.Ligne_Ittri = 1450.0;
    e.Ligne_Itmono = 1700.0;
    e.Ligne_Itmax = 1900.0;
    e.Ligne_CRt = 1.2;
    e.Ligne_CRm = 1.15;
    e.Ligne_XAM = 40.0f;
    e.Ligne_XAV = 35.5f;
    e.Kv = 2250.0;
    e.Ki = 1000.0;
    e.Kz = 2.25;
    e.sReport = "three phase report";
    e.ImpParties = {true, true, true};
    e.ImpCopies = 1;
}

// The dialogue of a print: counts the turns given to events and, at the turn `escape`, the
// user presses Escape.
class DialogueImpression : public DialogueSansFenetre {
public:
    explicit DialogueImpression(Etude& e, int escape_ = 0) : escape(escape_), e_(e) {}
    void LaisserPasserEvenements() override {
        ++tours;
        if (tours == escape && e_.ProgressionActive) e_.ArretImpression = true;
    }
    int tours = 0;
    int escape;

private:
    Etude& e_;
};

// The page that counts the pages it began, aborted ones too.
class PageComptee : public PageEnregistree {
public:
    void NouvellePage() override {
        ++commencees;
        PageEnregistree::NouvellePage();
    }
    int commencees = 0;
};

inline bool Contient(const std::vector<std::string>& lignes, const std::string& ligne) {
    return std::find(lignes.begin(), lignes.end(), ligne) != lignes.end();
}

} // namespace tournesol
