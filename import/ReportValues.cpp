#include "ReportValues.h"

#include "export/ModelAdapter.h"
#include "text/DecimalText.h"

#include <ZYNCommon/TestComponentFactory.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>

namespace ZYN::ReportValues {

using ModelAdapter::ValueKind;

namespace {

/// A whole number of 64 bits, if the text is one once its decimal point is moved.
std::optional<QVariant> WholeNumber(QStringView text, int factor)
{
    QString digits = text.trimmed().toString();
    qsizetype shift = factor;
    if (const qsizetype point = digits.indexOf(u'.'); point >= 0) {
        shift -= digits.size() - point - 1;
        digits.remove(point, 1);
    }
    if (digits.isEmpty() || !digits.back().isDigit())
        return std::nullopt;
    for (; shift < 0 && digits.endsWith(u'0'); ++shift)
        digits.chop(1);
    constexpr qsizetype longest = 20; // digits of the largest number of 64 bits
    if (shift < 0 || shift > longest)
        return std::nullopt;
    digits.append(QString(shift, u'0'));
    bool ok = false;
    if (const qlonglong number = digits.toLongLong(&ok); ok)
        return number;
    if (const qulonglong number = digits.toULongLong(&ok); ok)
        return number;
    return std::nullopt;
}

QVariant ToDigits(QStringView text, int base, bool* ok)
{
    bool isPattern = false;
    const qulonglong bits = text.toULongLong(&isPattern, base);
    if (ok)
        *ok = isPattern;
    return isPattern ? qlonglong(bits) : text.toLongLong(ok, base);
}

/// The text as a number of the notation: as digits of its base, whole, or real.
QVariant ToNumber(QStringView text, const Notation& notation, bool keepInteger, bool* ok)
{
    if (const int base = ModelAdapter::DigitBase(notation.unitCode))
        return ToDigits(text, base, ok);
    if (keepInteger) {
        if (const std::optional<QVariant> number = WholeNumber(text, notation.factor)) {
            if (ok)
                *ok = true;
            return *number;
        }
    }
    return ToReal(text, notation.factor, ok);
}

/// An integer limit has 32 bits. Digits of a base are a pattern whose low bits count; a number that does not
/// fit becomes the nearest one that does.
int ToLimit32(const QVariant& limit, const Notation& notation, bool* fits)
{
    if (ModelAdapter::DigitBase(notation.unitCode)) {
        const qint64 number = limit.toLongLong();
        *fits = *fits && number >= std::numeric_limits<qint32>::min() &&
                number <= qint64(std::numeric_limits<quint32>::max());
        return int(quint32(quint64(number)));
    }
    constexpr double smallest = std::numeric_limits<int>::min();
    constexpr double largest = std::numeric_limits<int>::max();
    const double number = limit.toDouble();
    if (std::isnan(number)) {
        *fits = false;
        return 0;
    }
    const double near = std::clamp(std::trunc(number), smallest, largest);
    *fits = *fits && near == number;
    return int(near);
}

} // namespace

int ToInteger(QStringView text, bool* ok)
{
    return text.toInt(ok, 10);
}

double ToReal(QStringView text, int factor, bool* ok)
{
    return DecimalText::ToReal(text, factor, ok);
}

QVariant ToValue(QStringView text, const Notation& notation, int measuredType, bool* ok)
{
    if (ModelAdapter::KindOfValue(notation.dataType) == ValueKind::Text &&
        !ModelAdapter::DigitBase(notation.unitCode)) {
        if (ok)
            *ok = true;
        return text.toString();
    }
    return ToNumber(text, notation, ModelAdapter::KindOfValue(measuredType) == ValueKind::Integer, ok);
}

ValidationInterface* CreateValidation(const LimitTexts& limits, LimitsOutcome* outcome)
{
    const Notation& notation = limits.notation;
    const ValueKind kind = ModelAdapter::KindOfValue(notation.dataType);
    const QByteArray lowerOperator = limits.lowerOperator.toUtf8();
    const QByteArray upperOperator = limits.upperOperator.toUtf8();
    *outcome = {};
    outcome->readable = ModelAdapter::IsOperatorText(limits.lowerOperator) &&
                        ModelAdapter::IsOperatorText(limits.upperOperator);
    const auto number = [&](const LimitText& limit) {
        bool isNumber = true;
        const bool isWhole = kind == ValueKind::Integer;
        const QVariant value =
            limit.text.isNull() ? QVariant(0.0) : ToNumber(limit.text, limit.notation, isWhole, &isNumber);
        outcome->readable = outcome->readable && isNumber;
        return value;
    };
    const auto limit32 = [&](const LimitText& limit) {
        return ToLimit32(number(limit), limit.notation, &outcome->exact);
    };

    std::unique_ptr<ValidationInterface> validation;
    switch (kind) {
    case ValueKind::Integer:
        validation.reset(TestComponentFactory::CreateValidationInt(
            notation.unitCode, lowerOperator, upperOperator, limit32(limits.lower), limit32(limits.upper), -1,
            -1, -1, -1, -1, -1));
        break;
    case ValueKind::Real: {
        bool isNumber = true;
        const double nominal = limits.nominal.text.isNull()
                                   ? std::numeric_limits<double>::quiet_NaN()
                                   : ToReal(limits.nominal.text, limits.nominal.notation.factor, &isNumber);
        outcome->readable = outcome->readable && isNumber;
        validation.reset(TestComponentFactory::CreateValidationReal(
            notation.unitCode, lowerOperator, upperOperator, number(limits.lower).toDouble(),
            number(limits.upper).toDouble(), -1, -1, -1, -1, -1, -1, notation.factor, nominal));
        break;
    }
    case ValueKind::Text:
        validation.reset(TestComponentFactory::CreateValidationString(notation.unitCode, lowerOperator,
                                                                      limits.lower.text, -1, -1, -1, -1));
        break;
    case ValueKind::None:
        break;
    }
    if (validation && limits.invertResult)
        ModelAdapter::SetResultInverted(validation.get(), true);
    return validation.release();
}

} // namespace ZYN::ReportValues
