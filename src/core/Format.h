// The numeric picture formats of the fields and listings ("##0.00", "#0.0#", "# ##0", "0.000",
// ";yes;No", ...). One formatter serves every field, label and printed value.
//
// Picture language: '#' a digit when there is one, '0' a digit always, '.' the decimal point
// (shown even without decimals: "##0.##" shows 12 as "12."), a space or ',' between the digit
// places of the integer part groups the digits by three, '%' multiplies by 100, '\' takes the
// next character as it is, "..." a literal text; any other character is shown as it stands. Up
// to three sections separated by ';': positive, negative, zero.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tournesol {

// Formats a number; halves are rounded away from zero on the decimal form of the value.
std::string FormaterNombre(double valeur, std::string_view format);

// The value as FormaterNombre would show it, back as a number: rounded to the decimals of the
// section the value falls in.
double ArrondirSelonFormat(double valeur, std::string_view format);

// Number of decimal places that a format shows (of its positive section).
int DecimalesDuFormat(std::string_view format);

// The decimal separator of the machine, taken from the user's locale at start.
char SeparateurDecimal();
void DefinirSeparateurDecimal(char separateur);

// Reads a number written by a user or by FormaterNombre: the machine's separator or a point as
// decimal point, spaces ignored. Empty when the text is not a number.
std::optional<double> LireNombre(std::string_view texte);

} // namespace tournesol
