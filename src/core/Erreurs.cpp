#include "core/Erreurs.h"

#include "core/Dialogue.h"
#include "core/Etude.h"

#include <cfenv>
#include <cmath>
#include <new>

namespace tournesol {

namespace {
int erreurEnAttente = 0;

constexpr int DRAPEAUX_FPU = FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID;

int NumeroDesDrapeaux(int drapeaux) {
    if (drapeaux & FE_DIVBYZERO) return ERR_DIVISION;
    if (drapeaux & (FE_OVERFLOW | FE_INVALID)) return ERR_DEPASSEMENT;
    return 0;
}
} // namespace

ErreurExecution::ErreurExecution(int numero)
    : std::runtime_error(TexteErreur(numero)), numero_(numero) {}

void LeverErreur(int numero) {
    throw ErreurExecution(numero);
}

std::string TexteErreur(int numero) {
    switch (numero) {
    case ERR_ARGUMENT:
        return "Invalid procedure call or argument";
    case ERR_DEPASSEMENT:
        return "Overflow";
    case ERR_MEMOIRE:
        return "Out of memory";
    case ERR_INDICE:
        return "Subscript out of range";
    case ERR_DIVISION:
        return "Division by zero";
    case 13:
        return "Type mismatch";
    default:
        return "Application-defined or object-defined error";
    }
}

double Div(double a, double b) {
    if (b == 0.0) LeverErreur(a == 0.0 || std::isnan(a) ? ERR_DEPASSEMENT : ERR_DIVISION);
    return Verifier(a / b);
}

double Verifier(double x) {
    if (!std::isfinite(x)) LeverErreur(ERR_DEPASSEMENT);
    return x;
}

double Racine(double x) {
    if (x < 0.0) LeverErreur(ERR_ARGUMENT);
    return std::sqrt(x);
}

int ExecuterEtape(const std::function<void()>& etape) {
    // The flags raised before the step belong to the caller; give them back afterwards.
    const int avant = std::fetestexcept(DRAPEAUX_FPU);
    std::feclearexcept(DRAPEAUX_FPU);
    int numero = 0;
    try {
        etape();
        numero = NumeroDesDrapeaux(std::fetestexcept(DRAPEAUX_FPU));
    } catch (const ErreurExecution& err) {
        numero = err.Numero();
    } catch (const std::bad_alloc&) {
        numero = ERR_MEMOIRE;
    }
    std::feclearexcept(DRAPEAUX_FPU);
    if (avant != 0) std::feraiseexcept(avant);
    return numero;
}

bool ExecuterCalcul(Etude& e, const std::function<void()>& calcul) {
    const int numero = ExecuterEtape(calcul);
    if (numero != 0) e.ErrCalcul = static_cast<int16_t>(numero);
    return numero == 0;
}

int ErreurEnAttente() {
    return erreurEnAttente;
}
void DefinirErreurEnAttente(int numero) {
    erreurEnAttente = numero;
}
void EffacerErreurEnAttente() {
    erreurEnAttente = 0;
}

void ContinuerSurErreur(const std::function<void()>& instruction) {
    const int numero = ExecuterEtape(instruction);
    if (numero != 0) erreurEnAttente = numero;
}

std::string MessageErreurCalcul(int numero) {
    std::string cause;
    switch (numero) {
    case ERR_DEPASSEMENT:
        cause = "overflow";
        break;
    case ERR_MEMOIRE:
        cause = "Insufficient memory";
        break;
    case ERR_DIVISION:
        cause = "Division by zero";
        break;
    default:
        cause = "Error \"" + TexteErreur(numero) + "\"";
        break;
    }
    return "The reckon is impossible with the entered data.\r\n\r\n(" + cause + ")";
}

void MontrerErreurCalcul(Etude& e, Dialogue& d) {
    e.sTitre = "TOURNESOL : Attention !";
    e.sMessage = MessageErreurCalcul(e.ErrCalcul);
    e.IconeMessage = 1;
    AfficherMessage(e, d);
}

void SignalerEchec(Etude& e, Dialogue& d) {
    if (e.ErrCalcul == 0 || e.ErrCalcul == ERR_SIGNALEE) return;
    MontrerErreurCalcul(e, d);
    e.ErrCalcul = ERR_SIGNALEE;
}

void SignalerErreurCalcul(Etude& e, Dialogue& d) {
    if (!e.ShowValeurs || e.ErrCalcul == ERR_SIGNALEE) return;
    MontrerErreurCalcul(e, d);
    e.ErrCalcul = ERR_SIGNALEE;
}

} // namespace tournesol
