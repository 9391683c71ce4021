#include "TestValidationNumber.h"

#include "Comparison.h"
#include "NumericVariant.h"
#include "PropertyValue.h"

#include <cmath>

namespace ZYN {

namespace {

using NumericVariant::Exact;

/// The number to compare with; nothing for not-a-number, which no comparison may turn into a pass.
std::optional<Exact> ComparableOf(const QVariant& value)
{
    const std::optional<Exact> number = NumericVariant::ExactOf(value);
    return number && !std::isnan(*number) ? number : std::nullopt;
}

} // namespace

std::optional<bool> TestValidationNumber::IsInside(const QVariant& value) const
{
    const std::optional<Exact> number = ComparableOf(value);
    const std::optional<Exact> lower = HasLowerLimit() ? ComparableOf(m_lower.value) : number;
    const std::optional<Exact> upper = HasUpperLimit() ? ComparableOf(m_upper.value) : number;
    if (!number || !lower || !upper)
        return std::nullopt;
    return (!HasLowerLimit() || Holds(*lower, *number, m_lower.op.GetCode())) &&
           (!HasUpperLimit() || Holds(*number, *upper, m_upper.op.GetCode()));
}

TestValidationInt::TestValidationInt(int unitCode, const char* lowerOperator, const char* upperOperator,
                                     qint64 lower, qint64 upper, const BinIds& binIds)
    : TestValidationNumber(unitCode, ValueDisplay::ScaleNone, Limit(lowerOperator, lower),
                           Limit(upperOperator, upper), binIds)
{
}

QVariant TestValidationInt::ToLimit(const QVariant& value) const
{
    const std::optional<qint64> limit = PropertyValue::ToInteger(value);
    return limit ? QVariant(*limit) : QVariant();
}

TestValidationReal::TestValidationReal(int unitCode, const char* lowerOperator, const char* upperOperator,
                                       double lower, double upper, const BinIds& binIds,
                                       ValueDisplay::ScaleFactor factor, double nominal)
    : TestValidationNumber(unitCode, factor, Limit(lowerOperator, lower), Limit(upperOperator, upper), binIds)
{
    if (!std::isnan(nominal))
        SetNominal(nominal);
}

QVariant TestValidationReal::ToLimit(const QVariant& value) const
{
    const std::optional<double> limit = PropertyValue::ToReal(value);
    return limit ? QVariant(*limit) : QVariant();
}

} // namespace ZYN
