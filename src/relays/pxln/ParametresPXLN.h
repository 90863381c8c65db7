// The PXLN's parameters beyond its panel: the sheet frmPXLN_p ("PXLN : parameters"), opened by
// "&Parameters..." of the panel, which keeps them in ParamPXLN (entry n at element n - 1), and the
// parameter listing of the relay's setting tool made from them and from the panel's settings,
// keyword by keyword.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tournesol {

struct Etude;
class PanneauFeuilles;
class TableChamps;

inline constexpr const char* NOM_PARAMETRES_PXLN = "frmPXLN_p";
inline constexpr const char* TITRE_PARAMETRES_PXLN = "PXLN : parameters";

// The entries of ParamPXLN, numbered from 1 as the relay's tool numbers them.
enum EntreePXLN : int {
    P_FREQUENCE = 1,
    P_TENSION,
    P_HF,
    P_MODE_WI,
    P_CONFU,
    P_DECL_WI,
    P_SEUIL_WI,
    P_EMISSIO_WI,
    P_TYPEDECL,
    P_VERRWI,
    P_VERR1,
    P_SEALIN,
    P_VERRENC,
    P_EMISSIO,
    P_SEUILCONFU,
    P_TEMPDEC,
    P_TEMPVER,
    P_TEMPO_FFUS,
    P_ISEUIL,
    P_SEALIN_SEUIL,
    P_ISEUIL_DIVERS,
    P_ENCMONO,
};
inline constexpr int NOMBRE_PARAMETRES_PXLN = 22;

// Entry n of ParamPXLN.
double ParametrePXLN(const Etude& e, int n);
// The text of the entry a list parameter holds ("0 : no"); empty for an index off the list.
std::string EntreeListePXLN(const Etude& e, int n);

// The parameters of a study that never had them (the rated voltage 0 is below any setting of
// the relay) take their defaults; the others are left.
void ParametresParDefautPXLN(Etude& e);

// The sheet's five sheets and its fields.
const TableChamps& ChampsParametresPXLN();
std::unique_ptr<PanneauFeuilles> CreerParametresPXLN(Etude& e);

// The texts the sheet and the listing show from the panel's settings.
std::string CodeTeleactionPXLN(const Etude& e);    // PRS, PEV or PAS
std::string CodeDeclenchementPXLN(const Etude& e); // BAN1, MONO or BAN2
int CodeVerrouillagePXLN(const Etude& e);          // VERPOMP: 0 to 4 by the blocked zones

// One line of the listing: its pieces, each at its column (0 for a section, 10, 20 or 30 for a
// keyword of level *, ** or ***, 60 for a value and its comment). "#W" and "#%" stand for the
// ohm and per cent signs of the symbol font.
using LigneListing = std::vector<std::pair<int, std::string>>;
std::vector<LigneListing> ListingPXLN(const Etude& e);
// A line as plain text: each piece at its column, filled with blanks (one blank at least between
// two pieces), the symbol marks shown in Unicode.
std::string TexteLigneListing(const LigneListing& ligne);

} // namespace tournesol
