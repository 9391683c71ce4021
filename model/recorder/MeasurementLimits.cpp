#include <ZYNCommon/MeasurementLimits.h>

#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/ValidationInterface.h>

#include <limits>

namespace ZYN {

namespace {

const char* OperatorOf(bool hasLimit, const char* text)
{
    return hasLimit ? text : "";
}

ValidationInterface* Equal(int unit, int value, const LimitBins& hard, const LimitBins& soft)
{
    return TestComponentFactory::CreateValidationInt(unit, "==", "", value, value, hard.below, hard.above,
                                                     hard.pass, soft.below, soft.above, soft.pass);
}

} // namespace

MeasurementLimits::MeasurementLimits() = default;

MeasurementLimits::MeasurementLimits(const RealLimits& limits)
    : m_validation(TestComponentFactory::CreateValidationReal(
          limits.unit, OperatorOf(limits.lower.has_value(), limits.lowerOperator),
          OperatorOf(limits.upper.has_value(), limits.upperOperator), limits.lower.value_or(0.0),
          limits.upper.value_or(0.0), limits.hardBins.below, limits.hardBins.above, limits.hardBins.pass,
          limits.softBins.below, limits.softBins.above, limits.softBins.pass, limits.prefix,
          limits.nominal.value_or(std::numeric_limits<double>::quiet_NaN())))
    , m_type(ZYN_ADDRESS_REAL)
{
}

MeasurementLimits::MeasurementLimits(const IntegerLimits& limits)
    : m_validation(TestComponentFactory::CreateValidationInt(
          limits.unit, OperatorOf(limits.lower.has_value(), limits.lowerOperator),
          OperatorOf(limits.upper.has_value(), limits.upperOperator), limits.lower.value_or(0),
          limits.upper.value_or(0), limits.hardBins.below, limits.hardBins.above, limits.hardBins.pass,
          limits.softBins.below, limits.softBins.above, limits.softBins.pass))
    , m_type(ZYN_ADDRESS_INTEGER)
{
}

MeasurementLimits::MeasurementLimits(const TextLimit& limit)
    : m_validation(TestComponentFactory::CreateValidationString(MeasurementUnit::None, "==", limit.text,
                                                                limit.hardBins.below, limit.hardBins.pass,
                                                                limit.softBins.below, limit.softBins.pass))
    , m_type(ZYN_ADDRESS_STRING)
{
}

MeasurementLimits::MeasurementLimits(const BooleanLimit& limit)
    : m_validation(Equal(MeasurementUnit::None, limit.value ? 1 : 0, limit.hardBins, limit.softBins))
    , m_type(ZYN_ADDRESS_INTEGER)
{
}

MeasurementLimits::MeasurementLimits(const HexadecimalLimit& limit)
    : m_validation(Equal(MeasurementUnit::Hexadecimal, int(limit.value), limit.hardBins, limit.softBins))
    , m_type(ZYN_ADDRESS_INTEGER)
{
}

MeasurementLimits::MeasurementLimits(QSharedPointer<ValidationInterface> validation, EN_ZYN_ADDRESS type)
    : m_validation(std::move(validation))
    , m_type(m_validation ? type : ZYN_ADDRESS_NONE)
{
}

} // namespace ZYN
