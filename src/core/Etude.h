// The study state: every value of the study under the name the system gives it. The program
// owns one instance; routines take it by reference. At process start, numbers are 0, texts
// empty and Booleans false.
#pragma once

#include "core/Complexe.h"

#include <array>
#include <cstdint>
#include <string>

namespace tournesol {

using Booleen = bool; // stored as -1 / 0 where the system stores it
using Entier16 = std::int16_t;
using Entier32 = std::int32_t;
using Reel32 = float;
using Reel = double;
using Texte = std::string;
using Couleur = std::int32_t; // 0x00BBGGRR

using Reels3 = std::array<Reel, 3>;
using Reels4 = std::array<Reel, 4>;
using Reels9 = std::array<Reel, 9>;
using Reels5 = std::array<Reel, 5>;
using Reels22 = std::array<Reel, 22>;
using Entiers16x3 = std::array<Entier16, 3>;
using Textes3 = std::array<Texte, 3>;
using Textes12 = std::array<Texte, 12>;
using Booleens3 = std::array<Booleen, 3>;
using Booleens12x3 = std::array<Booleens3, 12>;
using Booleens100 = std::array<Booleen, 100>;
using Reels100 = std::array<Reel, 100>;
using Complexes9 = std::array<Complexe, 9>;

inline constexpr int NOMBRE_RELAIS = 12;
inline constexpr int NOMBRE_REGLES = 100;

// clang-format off
#define TOURNESOL_ETUDE_FLUX(X) \
    X(Texte, sReport) \
    X(Booleen, OuvertureOK) \
    X(Booleen, RelaisPret) \
    X(Booleen, NouvelleLigne) \
    X(Booleen, ProtectionInconnue) \
    X(Entier32, ProtectionChoisie) \
    X(Booleen, ChangerPoste) \
    X(Booleen, QuestionOuverte) \
    X(Booleen, Superposition) \
    X(Booleens12x3, ReportAdmis) \
    X(Textes12, NomsProtection) \
    X(Booleen, TransitOK1) \
    X(Booleen, TransitOK2) \
    X(Booleen, ReportsCalcules) \
    X(Entier16, PlumeRouge) \
    X(Entier16, PlumeVert) \
    X(Entier16, PlumeBleu) \
    X(Entier16, PlumeEpaisseur) \
    X(Entier16, PlumeStyle) \
    X(Booleen, PanneauRelais) \
    X(Booleen, ShowValeurs) \
    X(Booleen, QuitterAppli) \
    X(Entier16, ErrCalcul) \
    X(Texte, sTitre) \
    X(Texte, sMessage) \
    X(Entier16, IconeMessage) \
    X(Entier16, ReponseQuestion) \
    X(Textes3, BoutonsQuestion) \
    X(Booleen, OptionsValides) \
    X(Booleen, ValeursValides) \
    X(Booleen, EtudeModifiee) \
    X(Booleen, Sauvegarde) \
    X(Booleen, DiagramActuel) \
    X(Booleen, ImpressionActuelle) \
    X(Entier16, OptionDessin) \
    X(Booleen, EnZoom) \
    X(Booleen, ChargementFenetre) \
    X(Booleen, DiagnosticsOuverts) \
    X(Reel32, ScaleLeft) \
    X(Reel32, ScaleTop) \
    X(Reel32, ScaleWidth) \
    X(Reel32, ScaleHeight) \
    X(Entier16, PasGrad)

#define TOURNESOL_ETUDE_LIGNE(X) \
    X(Entier16, Ligne_Tl) \
    X(Booleen, Ligne_lc) \
    X(Booleen, Ligne_cdg) \
    X(Entier16, Ligne_alim) \
    X(Entier32, Ligne_Ip) \
    X(Reel, Ligne_Icc) \
    X(Entier32, Ligne_Up) \
    X(Reel32, Ligne_XAM) \
    X(Reel32, Ligne_XAV) \
    X(Reel32, Ligne_XAZ) \
    X(Reel32, Ligne_X1PB) \
    X(Reel32, Ligne_Pmax) \
    X(Reel32, Ligne_Smax) \
    X(Reel, Ligne_Itmono) \
    X(Reel, Ligne_Ittri) \
    X(Reel, Ligne_Itmax) \
    X(Reels3, Ligne_XL) \
    X(Reels3, Ligne_RL) \
    X(Reels3, Ligne_ZL) \
    X(Reels3, Ligne_Longueur) \
    X(Reels3, Ligne_PHI) \
    X(Reels3, Ligne_Xd) \
    X(Reels3, Ligne_Rd) \
    X(Reels3, Ligne_Xo) \
    X(Reels3, Ligne_Ro) \
    X(Reels3, Ligne_ko) \
    X(Reels3, Ligne_ako) \
    X(Reel, Ligne_kom) \
    X(Reel, Ligne_Xprim1) \
    X(Reel, Ligne_Xprim2) \
    X(Reel, Ligne_Xprim3) \
    X(Entier16, Ligne_pp) \
    X(Entier16, Ligne_cc) \
    X(Reel, Ligne_ItA) \
    X(Reel, Ligne_ItB) \
    X(Reel, Ligne_ItC) \
    X(Reel, Ligne_CRm) \
    X(Reel, Ligne_CRt) \
    X(Entier32, Ligne_UnA) \
    X(Reel, Ligne_XLA) \
    X(Reel, Ligne_XLD) \
    X(Reel, Ligne_XSmini) \
    X(Reel, Ligne_XS) \
    X(Entiers16x3, Ligne_Ex) \
    X(Reel, Ligne_itclient) \
    TOURNESOL_ETUDE_COURANTS_DEFAUT(X)

// Fault currents of a three-ended line from a short-circuit study, in A: the end where the
// current is seen, the end of the section at fault, M single phase or T three phase fault.
#define TOURNESOL_ETUDE_COURANTS_DEFAUT(X) \
    X(Reel, Ligne_ICCACM) \
    X(Reel, Ligne_ICCBCM) \
    X(Reel, Ligne_ICCABM) \
    X(Reel, Ligne_ICCCBM) \
    X(Reel, Ligne_ICCACT) \
    X(Reel, Ligne_ICCBCT) \
    X(Reel, Ligne_ICCABT) \
    X(Reel, Ligne_ICCCBT) \
    X(Reel, Ligne_IPCACM) \
    X(Reel, Ligne_IPCBCM) \
    X(Reel, Ligne_IPCBAM) \
    X(Reel, Ligne_IPCCAM) \
    X(Reel, Ligne_IPCCBM) \
    X(Reel, Ligne_IPCABM) \
    X(Reel, Ligne_IPCACT) \
    X(Reel, Ligne_IPCBCT) \
    X(Reel, Ligne_IPCBAT) \
    X(Reel, Ligne_IPCCAT) \
    X(Reel, Ligne_IPCCBT) \
    X(Reel, Ligne_IPCABT)

#define TOURNESOL_ETUDE_NOMS(X) \
    X(Texte, NomPoste) \
    X(Texte, NomDepart) \
    X(Texte, NomPiquage) \
    X(Texte, NomProtection) \
    X(Entier16, IdxProtection) \
    X(Texte, Nom1Poste) \
    X(Texte, Nom1Depart) \
    X(Texte, Nom1Piquage) \
    X(Texte, Nom1Protection) \
    X(Entier16, Idx1Protection) \
    X(Texte, Nom2Poste) \
    X(Texte, Nom2Depart) \
    X(Texte, Nom2Piquage) \
    X(Texte, Nom2Protection) \
    X(Entier16, Idx2Protection) \
    X(Booleen, EchelleChargee1) \
    X(Booleen, EchelleChargee2) \
    X(Entier32, id_ligne) \
    X(Entier32, id_reglage) \
    X(Entier32, id_poste) \
    X(Entier32, id_depart) \
    X(Entier32, id_piquage) \
    X(Entier32, id_protection) \
    X(Entier16, id_numero) \
    X(Entier16, Numero1) \
    X(Entier16, Numero2) \
    X(Booleen, SuppressionLigne) \
    X(Booleen, LigneTroisBouts)

#define TOURNESOL_ETUDE_FICHIERS(X) \
    X(Booleen, FinTR) \
    X(Booleen, ConnexionOuverte) \
    X(Texte, Rep_appli) \
    X(Texte, Rep_loc) \
    X(Entier32, PositionTR)

#define TOURNESOL_ETUDE_COULEURS(X) \
    X(Reel, Pas) \
    X(Couleur, CouleurTransit1) \
    X(Couleur, CouleurTransit2) \
    X(Couleur, CouleurTransit3) \
    X(Couleur, CouleurAntipompage) \
    X(Couleur, CouleurMonophase) \
    X(Couleur, CouleurTriphase) \
    X(Couleur, CouleurZones) \
    X(Couleur, CouleurDirectionnel) \
    X(Couleur, CouleurPoste1) \
    X(Couleur, CouleurPoste2) \
    X(Couleur, CouleurLigne) \
    X(Couleur, CouleurPosteAval) \
    X(Booleen, ArretImpression) \
    X(Entier16, ImpCopies) \
    X(Entier16, PageImpression) \
    X(Booleens3, ImpParties) \
    X(Booleen, ImpNoir) \
    X(Booleen, ImpNoDots) \
    X(Booleen, ProgressionActive) \
    X(Reel, PasProgression)

#define TOURNESOL_ETUDE_DERIVEES(X) \
    X(Reel32, Is) \
    X(Reel32, XtrProche) \
    X(Reel32, XtrDistant) \
    X(Reel, It) \
    X(Entier16, TypeReportCharge) \
    X(Reel, CRcourant) \
    X(Reels3, PHIo) \
    X(Reel, kom_eq) \
    X(Reel, XL_eq) \
    X(Reel, RL_eq) \
    X(Reel, ko_eq) \
    X(Reel, ako_eq) \
    X(Reel, ZL_eq) \
    X(Reel, Longueur_eq) \
    X(Reel, PHI_eq) \
    X(Reel, Xd_eq) \
    X(Reel, Rd_eq) \
    X(Reel, Xo_eq) \
    X(Reel, Ro_eq) \
    X(Reel, PHIo_eq) \
    X(Reel, XprimFige) \
    X(Reel, Umin) \
    X(Reel, Umax) \
    X(Reel, Vmin) \
    X(Reel, Vmax) \
    X(Reel, Kv) \
    X(Reel, Ki) \
    X(Reel, Kz) \
    X(Booleen, BoutMort) \
    X(Reel, ItP) \
    X(Reel, CRcalc) \
    X(Texte, StadeMono) \
    X(Texte, StadeTri) \
    X(Reel, Ko1) \
    X(Reel, Ko2) \
    X(Booleens100, DiagDrapeaux) \
    X(Reels100, DiagValeurs) \
    X(Booleen, Teleaction) \
    X(Reel32, teta) \
    X(Reel, X1_BT) \
    X(Reel, X1_HT) \
    X(Reel, X1reg_BT) \
    X(Reel, X1reg_HT) \
    X(Reel, X2_BT) \
    X(Reel, X2_HT) \
    X(Reel, X2reg_BT) \
    X(Reel, X2reg_HT) \
    X(Reel, X3_BT) \
    X(Reel, X3_HT) \
    X(Reel, X3reg_BT) \
    X(Reel, X3reg_HT) \
    X(Reel, X4_BT) \
    X(Reel, X4_HT) \
    X(Reel, X4reg_BT) \
    X(Reel, X4reg_HT) \
    X(Reel, X3_commun) \
    X(Reel, X4_commun) \
    X(Reel, ko_reg) \
    X(Entier16, T1) \
    X(Entier16, T2) \
    X(Entier16, T3) \
    X(Entier16, T4) \
    X(Booleen, Verrouillage) \
    X(Booleen, Acceleration) \
    X(Reel, R_BT) \
    X(Reel, R_HT) \
    X(Booleen, Pompage) \
    X(Reel32, Rreg_BT) \
    X(Reel32, Rreg_HT) \
    X(Complexes9, PointsTransit) \
    X(Reel, Ceq) \
    X(Booleen, fNoIntersect) \
    X(Booleen, fNoUp) \
    X(Booleen, fNoDown) \
    X(Booleen, fNoP)

#define TOURNESOL_ETUDE_VARIABLES(X) \
    TOURNESOL_ETUDE_FLUX(X) \
    TOURNESOL_ETUDE_LIGNE(X) \
    TOURNESOL_ETUDE_NOMS(X) \
    TOURNESOL_ETUDE_FICHIERS(X) \
    TOURNESOL_ETUDE_COULEURS(X) \
    TOURNESOL_ETUDE_DERIVEES(X)
// clang-format on

#define TOURNESOL_DECLARER(type, nom) type nom{};

// Each relay's own variables sit in a record of that relay, listed in its RELAIS_..._VARIABLES.
#define TOURNESOL_RELAIS_RECORD(Enregistrement, LISTE)                                             \
    struct Enregistrement {                                                                        \
        LISTE(TOURNESOL_DECLARER)                                                                  \
        template <class V> void Visiter(V&& v) {                                                   \
            (void)v;                                                                               \
            LISTE(TOURNESOL_VISITER_MEMBRE)                                                        \
        }                                                                                          \
    };
#define TOURNESOL_VISITER_MEMBRE(type, nom) v(CleFichier(#nom), nom);

// The name of a variable in a study file: its own, but that a relay's parameter named with a
// digit first ("50G1") is a member with an underscore before the digit (_50G1).
constexpr const char* CleFichier(const char* membre) {
    return membre[0] == '_' && membre[1] >= '0' && membre[1] <= '9' ? membre + 1 : membre;
}

// clang-format off
#define RELAIS_SA511_VARIABLES(X) \
    X(Entier16, ProgBlocage) \
    X(Booleen, Independante) \
    X(Booleen, BlocageEtendu) \
    X(Reel, deltaR) \
    X(Reel, deltaR_HT) \
    X(Reel, derivR) \
    X(Reel, derivR_HT) \
    X(Reel, Tact) \
    X(Reel, Ie) \
    X(Reel, Iph) \
    X(Reel, RA1) \
    X(Reel, RA2) \
    X(Reel, RA1E) \
    X(Reel, RA2E) \
    X(Reel, XV) \
    X(Reel, XM) \
    X(Reel, Phia) \
    X(Reel, Phiae) \
    X(Reel, X1) \
    X(Reel, X2) \
    X(Reel, R1E) \
    X(Reel, R1) \
    X(Reel, R2E) \
    X(Reel, R2) \
    X(Reel, R1BE) \
    X(Reel, R1B) \
    X(Reel, X1B) \
    X(Reel, RsurX) \
    X(Reel, Te) \
    X(Reel, Ts) \
    X(Reel, Tve) \
    X(Reel, Tvs) \
    X(Reel, PhiCharge1) \
    X(Reel, PhiCharge2) \
    X(Reels9, Tempo)
#define RELAIS_EPAC_VARIABLES(X) \
    X(Reel32, BandeX) \
    X(Reel32, BandeR) \
    X(Reel, RsurX)
#define RELAIS_PD3A_VARIABLES(X) \
    X(Booleen, Type6062) \
    X(Booleen, Type6562) \
    X(Reel32, CoefX1) \
    X(Entier16, K1) \
    X(Entier16, m1) \
    X(Entier16, K2) \
    X(Entier16, m2) \
    X(Entier16, K3) \
    X(Entier16, K4) \
    X(Entier16, Rd) \
    X(Reel, RsurX) \
    X(Reel32, BandeX) \
    X(Reel32, BandeR) \
    X(Entier16, PosTeta) \
    X(Entier16, C1) \
    X(Entier16, TA) \
    X(Entier16, TB) \
    X(Entier16, TC) \
    X(Entier16, TD)
#define RELAIS_PDS_VARIABLES(X) \
    X(Reel, BaseX1) \
    X(Entier16, PctX1) \
    X(Reel, BaseX2) \
    X(Entier16, PctX2) \
    X(Reel, BaseZav) \
    X(Entier16, PctZav) \
    X(Entier16, Decalage) \
    X(Reel, ZavCharge)
#define RELAIS_PXLC_VARIABLES(X) \
    X(Booleen, FeuilleReglages) \
    X(Reel, deltaR_BT) \
    X(Reel, deltaR_HT) \
    X(Reel, deltaF) \
    X(Entier16, ZonesBloquees) \
    X(Reel, Rmoc_BT) \
    X(Reel, Rbic_BT) \
    X(Reel, Rmoc_HT) \
    X(Reel, Rbic_HT) \
    X(Reels5, XPct) \
    X(Reels5, ZonesHT) \
    X(Reels5, ZonesBT) \
    X(Reel, RsurX) \
    X(Entier16, TypeDecl)
#define RELAIS_PXLP_VARIABLES(X) \
    X(Reel, deltaR_BT) \
    X(Reel, deltaR_HT) \
    X(Reel, deltaF) \
    X(Entier16, ZonesBloquees) \
    X(Reel, Rmoc_BT) \
    X(Reel, Rbic_BT) \
    X(Reel, Rmor_BT) \
    X(Reel, Rbir_BT) \
    X(Reel, Rmoc_HT) \
    X(Reel, Rbic_HT) \
    X(Reel, Rmor_HT) \
    X(Reel, Rbir_HT) \
    X(Reels5, XPct) \
    X(Reels5, ZonesHT) \
    X(Reels5, ZonesBT) \
    X(Reel, RsurX) \
    X(Reel, Td) \
    X(Booleen, Maitre) \
    X(Booleen, PorteeReduite) \
    X(Booleen, DeclRapide) \
    X(Entier16, Signal)
#define RELAIS_PXLN_VARIABLES(X) \
    X(Reel, deltaR_BT) \
    X(Reel, deltaR_HT) \
    X(Reel, deltaF) \
    X(Entier16, ZonesBloquees) \
    X(Booleen, OptIp) \
    X(Reel, Ip_pct) \
    X(Booleen, OptIi) \
    X(Reel, Ii_pct) \
    X(Booleen, OptIo) \
    X(Reel, Io_pct) \
    X(Reel, TempoBlocage) \
    X(Booleen, VerrEmission) \
    X(Booleen, VerrReception) \
    X(Reel, Rmoc_BT) \
    X(Reel, Rbic_BT) \
    X(Reel, Rmor_BT) \
    X(Reel, Rbir_BT) \
    X(Reel, Rmoc_HT) \
    X(Reel, Rbic_HT) \
    X(Reel, Rmor_HT) \
    X(Reel, Rbir_HT) \
    X(Reels5, XPct) \
    X(Reels5, ZonesHT) \
    X(Reels5, ZonesBT) \
    X(Reel, RsurX) \
    X(Reel, Td) \
    X(Booleen, Maitre) \
    X(Booleen, PorteeReduite) \
    X(Booleen, DeclRapide) \
    X(Entier16, Signal) \
    X(Entier16, TypeDecl) \
    X(Booleen, Capacitif) \
    X(Reels22, ParamPXLN)
#define RELAIS_RAZOA_VARIABLES(X) \
    X(Reel, R1) \
    X(Entier16, a) \
    X(Entier16, b) \
    X(Entier16, p1) \
    X(Entier16, p2) \
    X(Entier16, p3) \
    X(Reel, R1reg) \
    X(Reel, R2reg) \
    X(Reel, R3reg) \
    X(Booleen, AvecPompage) \
    X(Reel, Z2) \
    X(Entier32, m) \
    X(Reel32, d) \
    X(Entier16, q1) \
    X(Entier16, q2) \
    X(Reel, Z2reg) \
    X(Booleen, Cercle) \
    X(Booleen, Lentille) \
    X(Reel32, Dmini) \
    X(Reel, D) \
    X(Reel, Zf) \
    X(Reel, Zr) \
    X(Entier32, A) \
    X(Reel32, B) \
    X(Reel, Zfreg) \
    X(Reel, Zrreg) \
    X(Entier16, Y) \
    X(Reel, K) \
    X(Entier16, Jo) \
    X(Reel, RfProche) \
    X(Reel, RfLoin) \
    X(Reel, RsurX) \
    X(Reels3, PorteeAv) \
    X(Reels3, PorteeAr) \
    X(Reel, PorteePompage) \
    X(Entier16, RGZA) \
    X(Entier16, TReg) \
    X(Texte, str26) \
    X(Texte, str27) \
    X(Texte, str28)
#define RELAIS_REL100_VARIABLES(X) \
    X(Reel, RsurX)
#define RELAIS_REZ1_VARIABLES(X) \
    X(Reel, Zpi_BT) \
    X(Reel, Zpi_HT) \
    X(Reel, Zpireg_BT) \
    X(Reel, Zpireg_HT) \
    X(Reel, Rpi_HT) \
    X(Reel, RsurX)
#define RELAIS_RXAP_VARIABLES(X) \
    X(Reel32, N1) \
    X(Reel32, N2) \
    X(Booleen, X1Parallele) \
    X(Booleen, X2Parallele) \
    X(Reel32, TypeIn) \
    X(Booleen, Cercle) \
    X(Booleen, AvecImage) \
    X(Booleen, AvecPompage) \
    X(Reel, MR) \
    X(Reel, MRAP) \
    X(Reel, Image) \
    X(Reel, focale) \
    X(Reel, exmr) \
    X(Reel, exap) \
    X(Reel, K) \
    X(Reel32, Arg) \
    X(Reel, RfProche) \
    X(Reel, RfLoin) \
    X(Reel, RsurX) \
    X(Reels4, PorteeAv) \
    X(Reels4, PorteeAr)
#define RELAIS_S321_VARIABLES(X) \
    X(Reel32, _50G1) \
    X(Reel32, _50G2) \
    X(Reel32, _50G3) \
    X(Reel32, _50G4) \
    X(Reel32, _50PP1) \
    X(Reel32, _50PP2) \
    X(Reel32, _50PP3) \
    X(Reel32, _50PP4) \
    X(Reel32, _50L1) \
    X(Reel32, _50L2) \
    X(Reel32, _50L3) \
    X(Reel32, _50L4) \
    X(Reel32, _50QR) \
    X(Reel32, _50QF) \
    X(Reel, Z1MG) \
    X(Reel, Z2MG) \
    X(Reel, Z3MG) \
    X(Reel, Z4MG) \
    X(Reel, XG1) \
    X(Reel, XG2) \
    X(Reel, XG3) \
    X(Reel, XG4) \
    X(Reel, RG1) \
    X(Reel, RG2) \
    X(Reel, RG3) \
    X(Reel, RG4) \
    X(Reel, R1R6) \
    X(Reel, R1L6) \
    X(Reel, R1R5) \
    X(Reel, R1L5) \
    X(Reel, X1T6) \
    X(Reel, X1B6) \
    X(Reel, X1T5) \
    X(Reel, X1B5) \
    X(Reel, Z2F) \
    X(Reel, Z2R) \
    X(Reel, KO1M) \
    X(Reel, KOM) \
    X(Reel, KO1A) \
    X(Reel, KOA) \
    X(Reel, A2) \
    X(Reel, KR) \
    X(Entier16, Z2GD) \
    X(Entier16, Z3GD) \
    X(Entier16, Z4GD) \
    X(Entier16, Z2PD) \
    X(Entier16, Z3PD) \
    X(Entier16, Z4PD) \
    X(Entier16, OSBD) \
    X(Entier16, UBD) \
    X(Booleen, AvecPompage)

// id_protection, record type, member of Etude; in the order of id_protection.
#define TOURNESOL_RELAIS(X) \
    X(1, RelaisSA511, SA511, RELAIS_SA511_VARIABLES) \
    X(2, RelaisEPAC, EPAC, RELAIS_EPAC_VARIABLES) \
    X(3, RelaisPD3A, PD3A, RELAIS_PD3A_VARIABLES) \
    X(4, RelaisPDS, PDS, RELAIS_PDS_VARIABLES) \
    X(5, RelaisPXLC, PXLC, RELAIS_PXLC_VARIABLES) \
    X(6, RelaisPXLP, PXLP, RELAIS_PXLP_VARIABLES) \
    X(7, RelaisPXLN, PXLN, RELAIS_PXLN_VARIABLES) \
    X(8, RelaisRAZOA, RAZOA, RELAIS_RAZOA_VARIABLES) \
    X(9, RelaisREL100, REL100, RELAIS_REL100_VARIABLES) \
    X(10, RelaisREZ1, REZ1, RELAIS_REZ1_VARIABLES) \
    X(11, RelaisRXAP, RXAP, RELAIS_RXAP_VARIABLES) \
    X(12, RelaisS321, S321, RELAIS_S321_VARIABLES)
// clang-format on

#define TOURNESOL_RELAIS_STRUCT(id, Enregistrement, membre, LISTE)                                 \
    TOURNESOL_RELAIS_RECORD(Enregistrement, LISTE)
TOURNESOL_RELAIS(TOURNESOL_RELAIS_STRUCT)
#undef TOURNESOL_RELAIS_STRUCT

struct Etude {
    TOURNESOL_ETUDE_VARIABLES(TOURNESOL_DECLARER)

#define TOURNESOL_RELAIS_MEMBRE(id, Enregistrement, membre, LISTE) Enregistrement membre;
    TOURNESOL_RELAIS(TOURNESOL_RELAIS_MEMBRE)
#undef TOURNESOL_RELAIS_MEMBRE

    // The load report factors of the three phase and single phase cases were worked out for
    // this study (set from the factors it holds when it opens, not kept in a study file).
    Booleen CRtCalcule = false;
    Booleen CRmCalcule = false;

    // Every shared variable, as v(name, reference).
    template <class V> void Visiter(V&& v) {
        TOURNESOL_ETUDE_VARIABLES(TOURNESOL_VISITER_MEMBRE)
    }

    // The own variables of the relay `id` (1 to 12); nothing for another number.
    template <class V> void VisiterRelais(int id, V&& v) {
        switch (id) {
#define TOURNESOL_RELAIS_CAS(num, Enregistrement, membre, LISTE)                                   \
    case num:                                                                                      \
        membre.Visiter(v);                                                                         \
        break;
            TOURNESOL_RELAIS(TOURNESOL_RELAIS_CAS)
#undef TOURNESOL_RELAIS_CAS
        default:
            break;
        }
    }
};

// A Boolean as the system stores it: true -1, false 0.
constexpr Entier16 EnEntier(Booleen b) {
    return b ? -1 : 0;
}

} // namespace tournesol
