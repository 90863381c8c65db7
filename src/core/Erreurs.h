// Run-time errors as the system knows them: a computation fails with a number, which the
// command that runs it stores in ErrCalcul. Nothing is thrown past a command.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

namespace tournesol {

struct Etude;
class Dialogue;

inline constexpr int ERR_ARGUMENT = 5;    // invalid argument (square root of a negative)
inline constexpr int ERR_DEPASSEMENT = 6; // overflow, and 0 / 0
inline constexpr int ERR_MEMOIRE = 7;     // out of memory
inline constexpr int ERR_INDICE = 9;      // ArcSinus / ArcCosinus out of [-1, 1]
inline constexpr int ERR_DIVISION = 11;   // a non-zero number divided by zero
inline constexpr int ERR_SIGNALEE = -1;   // an error already reported to the user

// The failure of a step, carrying its run-time number. Only guarded steps catch it.
class ErreurExecution : public std::runtime_error {
public:
    explicit ErreurExecution(int numero);
    int Numero() const { return numero_; }

private:
    int numero_;
};

[[noreturn]] void LeverErreur(int numero);

// The run-time's own text for an error number.
std::string TexteErreur(int numero);

// Checked arithmetic: a / b with the run-time's errors (11 for x / 0, 6 for 0 / 0 and for
// a result beyond the range of a double).
double Div(double a, double b);
// A result that left the range of a double is error 6.
double Verifier(double x);
// Square root; a negative argument is error 5.
double Racine(double x);

// Runs one step of computation. Any run-time error it meets (an ErreurExecution, or a
// floating-point division by zero, overflow or invalid operation left in the exception flags)
// is returned as its number; 0 when the step went through.
int ExecuterEtape(const std::function<void()>& etape);

// Runs a command's computation and stores the number of its failure, if any, in ErrCalcul.
// Returns true when the computation went through.
bool ExecuterCalcul(Etude& e, const std::function<void()>& calcul);

// The pending error of "go on with the next statement" code: a failed statement leaves its
// number here, where ChampEcrire finds it.
int ErreurEnAttente();
void DefinirErreurEnAttente(int numero);
void EffacerErreurEnAttente();
// Runs a statement; a failure becomes the pending error instead of stopping the caller.
void ContinuerSurErreur(const std::function<void()>& instruction);

// The message of a failed computation, with its cause.
std::string MessageErreurCalcul(int numero);
// Shows that message for ErrCalcul.
void MontrerErreurCalcul(Etude& e, Dialogue& d);
// Tells the user of a failure not yet reported (ErrCalcul neither 0 nor -1), whatever
// ShowValeurs says; ErrCalcul then becomes -1. The computations that the user starts without a
// panel of their own to show (the opening, the relay's panel run unseen, the transit area)
// report this way, so that no failure passes unseen and none is shown twice.
void SignalerEchec(Etude& e, Dialogue& d);
// Tells the user that the computation failed, by ErrCalcul, when ShowValeurs is set; the
// error then becomes -1, and a second report shows nothing.
void SignalerErreurCalcul(Etude& e, Dialogue& d);

} // namespace tournesol
