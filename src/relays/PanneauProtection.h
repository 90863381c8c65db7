// What every relay panel shares: the sheets and their order of computation, the modes "Return"
// and "Modify" of the working window, the question when going left in "Return", the plant link
// notice, the exit of a field, OK with the plane fitted to the relay's box, the Alt shortcuts,
// the interlock of the signalling scheme, a quiet stop of the chain and the handling of
// computation failures.
//
// A relay's panel derives from PanneauProtection. Its constructor declares its sheets
// (DeclarerOnglets), its fields as a table made once for the program (DeclarerChamps), its
// computation steps in the order of the sheets (DeclarerEtapes) and, where it has them, the
// signalling options (rows from ChampsTeleaction in its table, then DeclarerTeleaction) and the
// plant link notice (DeclarerAvisCentrale). It gives the box of the plane fitted on OK
// (CadrePlan) and, where it needs them, the hooks below. It is made through FabriquerPanneau,
// which opens it, so that its creation computes its settings:
//
//     InscrirePanneauRelais(3, &FabriquerPanneau<PanneauPD3A>);
#pragma once

#include "relays/ChampRelais.h"
#include "relays/PanneauTable.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tournesol {

struct Etude;
class Dialogue;

// The box of the plane fitted on OK, in primary ohms: the top and bottom of the X axis and the
// half width of the R axis around the origin.
struct CadrePlan {
    double Haut = 0.0;
    double Bas = 0.0;
    double DemiLargeur = 0.0;
    // The square around the origin of that half width.
    static CadrePlan Carre(double demiLargeur) { return {demiLargeur, -demiLargeur, demiLargeur}; }
    // From a top and a bottom: the half width is the mean of their magnitudes.
    static CadrePlan HautBas(double haut, double bas);
};

// The options of the signalling scheme: their names and the study variables they show. The
// blocking may have no variable of its own: it is then the negation of the acceleration.
struct Signalisation {
    std::string Teleaction = "chkTéléaction";
    std::string Acceleration = "chkaccélération";
    std::string Verrouillage = "chkVerrouillage";
    Variable VTeleaction = Lien(&Etude::Teleaction);
    Variable VAcceleration = Lien(&Etude::Acceleration);
    Variable VVerrouillage = Lien(&Etude::Verrouillage);
};
// chkTéléaction, chkaccélération, chkVerrouillage on Teleaction, Acceleration, Verrouillage.
const Signalisation& SignalisationCommune();

// One computation step of a relay: the step of a sheet, or the last one, the diagnostics.
struct EtapeCalcul {
    std::string Nom;
    std::function<void()> Calcul;
};

class PanneauProtection : public PanneauTable {
public:
    // The panel of relay id_protection (its name from the registry), titled
    // "TOURNESOL [" + NomPoste + "]".
    PanneauProtection(Etude& e, Dialogue& d, int id_protection);

    // The texts of the panel's messages, as the system writes them.
    static constexpr const char* TITRE_MESSAGES = "TOURNESOL : Attention";
    static constexpr int ICONE_MESSAGES = 3;
    static constexpr const char* QUESTION_RETOUR =
        "Attention, in mode \"return\"\r\n"
        "the selection of a nail index on the left make re-reckon all the nail indexes on the "
        "right.";
    static constexpr const char* QUESTION_RETOUR_PD3A =
        "Attention, by mode \"setting\"\r\n"
        "the selection of a thumb index on the left make re - reckon all the thumb indexes on the "
        "right.";
    static constexpr const char* AVIS_CENTRALE =
        "Attention, the case of the plant - substation links is not studied for the ";
    // The notice most relays give on a plant link: AVIS_CENTRALE, the relay's name and ".".
    static std::string AvisCentrale(const std::string& nomRelais);
    // The letters of the Alt shortcuts, for sheets 0 to 4.
    static constexpr const char* LETTRES_ONGLETS = "AMZTL";
    // The largest magnitude of each side of the plane fitted on OK, in primary ohms.
    static constexpr double DEMI_LARGEUR_MAX = 1000.0;

    // Opening: the panel's messages take its title and icon; unless a question is open,
    // ChargerPanneau runs; after a failure the panel hides itself (but while two relays are
    // superposed), and OuvrirPanneau reports.
    void Ouvrir();
    // The panel becomes active again: ChargerPanneau once more, unless a question is open; a
    // panel that finds a failure hides itself.
    void Activer();
    // The options from the study (their defaults in mode "Return"), then ChoixOnglet(0).
    void ChargerPanneau();
    // Selecting sheet i: what the sheet being left changed is computed, then sheet i is shown.
    // A failure is stored in ErrCalcul.
    void ChoixOnglet(int i);
    // The relay's computation from the step of sheet i to the last step, then the fields are
    // shown again. A failure propagates to the command that runs it; a quiet stop
    // (ArreterChaine) ends the chain there.
    void RecalculOnglet(int i);
    // The last chain was stopped by the relay (ArreterChaine), not by a failure.
    bool ChaineArretee() const { return chaineArretee_; }
    // OK (Command1): the current sheet computed, the plane fitted in mode "Return", the panel
    // hidden.
    void ValiderBouton();

    // A letter typed on the panel, with the state of the Alt key as the last pointer event on
    // the panel recorded it: A, M, Z, T, L select sheets 0 to 4 while Alt is down.
    void Raccourci(char lettre, bool altEnfonce);

    // Handlers of the view.
    void Quitter(const std::string& champ) override; // read, limit, round, write back
    void Changer(const std::string& champ) override; // an entry of a list of choices
    void Cliquer(const std::string& nom) override;   // OK, sheets, options
    void Touche(int code) override;                  // Enter is OK; there is no cancel
    void Valider() override { ValiderBouton(); }
    void Annuler() override {}
    bool Fermer() override; // the close box confirms, as OK

    int IdProtection() const { return id_; }
    bool AltActif() const { return altActif_; }
    // Mode "Return" of the working window (PanneauRelais): the panel starts from the rules.
    bool ModeRetour() const;

protected:
    // The steps in the order of the sheets: step i is the step of sheet i; the steps after the
    // last sheet (the diagnostics) run at the end of every chain.
    void DeclarerEtapes(std::vector<EtapeCalcul> etapes);
    // The options of the signalling scheme, which the table holds (ChampsTeleaction), are
    // handled by the panel with their interlock. The description outlives the panel.
    void DeclarerTeleaction(const Signalisation& options = SignalisationCommune());
    // The relay does not treat plant to substation links: each change of sheet on such a link
    // shows that notice (AvisCentrale(name) for most relays).
    void DeclarerAvisCentrale(std::string avis);
    // Ends the chain quietly, as a relay's rule does when no setting can be made ("Setting
    // impossible"): the message is shown, no later step runs, and it is not a failure. A step
    // calls it; it does not return.
    [[noreturn]] void ArreterChaine(const std::string& message);
    // The chain from the step of that name.
    void RecalculDepuis(const std::string& etape);
    // Runs a command of the panel: a failure is stored in ErrCalcul. True when it went through.
    bool Commande(const std::function<void()>& commande);

    // What a relay gives.
    // The box of the plane fitted on OK in mode "Return", in primary ohms, from the relay's
    // widest zones; each side is capped at DEMI_LARGEUR_MAX.
    virtual CadrePlan CadreDuPlan() = 0;
    // The relay's own options from the study, first part of ChargerPanneau.
    virtual void LireOptions() {}
    // The chain from the computation of the zones, after a change of the signalling options.
    virtual void RecalculZones() { RecalculOnglet(0); }
    // After the exit of a field of the table, once the value was limited, rounded and written:
    // the steps that depend on it.
    virtual void ApresSaisie(const DescriptionChamp& /*champ*/, double /*valeur*/) {}
    // After a click on anything else than OK and the sheets, once an option of the table wrote
    // its variable: the relay's own handling.
    virtual void ApresClic(const std::string& /*nom*/) {}
    // The fields written at the end of a chain.
    virtual void Afficher() { AfficherChamps(); }
    // Teleaction in mode "Return" (true for most relays).
    virtual bool TeleactionParDefaut() const { return true; }
    void AfficherOptionsLiees() override { AfficherTeleaction(); }

    Dialogue& d_;

private:
    void MessagesDuPanneau();
    void LireTeleaction();
    void ChoixOngletGarde(int i);
    void SortieChamp(const DescriptionChamp& d, Champ& champ);
    void ClicTeleaction(const std::string& nom);
    void AfficherTeleaction();

    int id_;
    std::vector<EtapeCalcul> etapes_;
    std::string avisCentrale_;                  // the plant link notice; empty without it
    const Signalisation* teleaction_ = nullptr; // the signalling options, when the panel has them
    bool altActif_ = false;
    bool chaineArretee_ = false;
};

// The rows of the signalling options (by default chkTéléaction, chkaccélération and
// chkVerrouillage on the study's Teleaction, Acceleration and Verrouillage), in that frame.
std::vector<DescriptionChamp>
ChampsTeleaction(const std::string& groupe,
                 const std::string& legendeTeleaction = "Signalling scheme",
                 const std::string& legendeAcceleration = "acceleration",
                 const std::string& legendeVerrouillage = "Blocking overreach",
                 const Signalisation& options = SignalisationCommune());

// The sheet of the four step timers txtt1 to txtt4 (frame "Timers", T1 to T4 up to `max` ms, to
// the relay's step) and the common signalling options (frame "Signalling scheme"). A timer
// without a caption has no field (a relay whose first zone is instantaneous).
std::vector<DescriptionChamp> ChampsTemposEtTeleaction(const std::string& feuille,
                                                       const std::array<const char*, 4>& legendes,
                                                       double max, double pas);

// The drawing that OK runs in mode "Return", once the plane is fitted: whoever owns the plane
// registers it; without it the diagram is only marked as out of date.
using TraceValidation = std::function<void(Etude&)>;
void InscrireTraceValidation(TraceValidation trace);

// The making of a relay's panel for InscrirePanneauRelais: the panel is made and opened, so that
// its creation computes its settings.
template <class P> std::unique_ptr<Panneau> FabriquerPanneau(Etude& e, Dialogue& d) {
    auto panneau = std::make_unique<P>(e, d);
    panneau->Ouvrir();
    return panneau;
}

} // namespace tournesol
