#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <QtCore/QVariant>

namespace ZYN {

class ValidationInterface;

/// The texts of an XML report as numbers, values and validations. What is no number reads as 0; `ok`, where
/// there is one, is set to whether the text was good.
namespace ReportValues {

/// A decimal integer of 32 bits.
int ToInteger(QStringView text, bool* ok = nullptr);
/// A real number that was written with a scale of 10 to the power of `factor`.
double ToReal(QStringView text, int factor, bool* ok = nullptr);

/// What decides how the text of a value or a limit is read.
struct Notation {
    int unitCode = 0; ///< hexadecimal and binary units are written in their digits
    int dataType = 0; ///< address code of the last limits; of a string: the text is the value
    int factor = 0;   ///< power of ten that the number is to be multiplied with
};

/// A measured value. Digits of a base have a sign or are a pattern of up to 64 bits: of a hexadecimal unit
/// "-1" and "ffffffffffffffff" are the same. \param measuredType address code of the measurement. Of an
/// integer, what is whole is read as one of 64
///        bits: a real number would lose digits.
QVariant ToValue(QStringView text, const Notation& notation, int measuredType, bool* ok = nullptr);

/// A limit, and what unit and factor were known where it stood.
struct LimitText {
    QString text; ///< null when there is none
    Notation notation = {};
};

/// The texts of a `Limits` element.
struct LimitTexts {
    Notation notation; ///< at its end
    bool invertResult = false;
    LimitText lower;
    QString lowerOperator;
    LimitText upper;
    QString upperOperator;
    LimitText nominal; ///< decimal whatever the unit
};

/// How well the texts of a `Limits` element became a validation.
struct LimitsOutcome {
    bool readable = true; ///< numbers are numbers, and operators are known
    bool exact = true;    ///< every limit fits the validation
};

/// The validation of a `Limits` element, owned by the caller; null for a data type that has none.
ValidationInterface* CreateValidation(const LimitTexts& limits, LimitsOutcome* outcome);

} // namespace ReportValues

} // namespace ZYN
