#pragma once

#include "RunValue.h"

#include <string_view>

/// Values of a report's texts, in their base unit.
namespace ZYN::ReportValues {

enum class Kind { None, Integer, Real, Text };

/// What a type code of a report measures.
Kind KindOf(int dataType);

/// What decides how the text of a value or a limit is read.
struct Notation {
    int unitCode = 0; ///< hexadecimal and binary units are written in their digits
    int dataType = 0;
    int factor = 0; ///< power of ten that the number is to be multiplied with
};

/// A number; an empty text is none.
/// \param isWhole whether the digits of what is whole count beyond what a real number holds
/// \return false if it is no number
bool ReadNumber(std::string_view text, const Notation& notation, bool isWhole, RunValue* value);

/// A measured value.
/// \param measuredType type code of the measurement, where the notation's is that of its limits
/// \return false if it should be a number and is none
bool ReadValue(std::string_view text, const Notation& notation, int measuredType, RunValue* value);

/// The operator of a limit, without blanks around it.
/// \return false for an unknown one
bool ReadOperator(std::string_view text, std::string_view* limitOperator);

} // namespace ZYN::ReportValues
