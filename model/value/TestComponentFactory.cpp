#include <ZYNCommon/TestComponentFactory.h>

#include <ZYNCommon/MeasurementUnit.h>

#include "PropertyValue.h"
#include "TestValidationNumber.h"
#include "TestValidationString.h"

namespace ZYN {

namespace {

/// For hexadecimal and binary units a limit is a pattern of 32 bits, not a signed number.
qint64 IntLimit(int unitCode, int limit)
{
    const bool isPattern = unitCode == MeasurementUnit::Hexadecimal || unitCode == MeasurementUnit::Binary;
    return isPattern ? qint64(quint32(limit)) : qint64(limit);
}

} // namespace

ValidationInterface* TestComponentFactory::CreateValidationInt(int unitCode, const char* lowerOperator,
                                                               const char* upperOperator, int lower,
                                                               int upper, long binIdLower, long binIdUpper,
                                                               long binIdPass, long softBinIdLower,
                                                               long softBinIdUpper, long softBinIdPass)
{
    return new TestValidationInt(
        unitCode, lowerOperator, upperOperator, IntLimit(unitCode, lower), IntLimit(unitCode, upper),
        {binIdLower, binIdUpper, binIdPass, softBinIdLower, softBinIdUpper, softBinIdPass});
}

// NOLINTBEGIN(performance-unnecessary-value-param): callers are built with this signature
ValidationInterface*
TestComponentFactory::CreateValidationReal(int unitCode, const char* lowerOperator, const char* upperOperator,
                                           double lower, double upper, long binIdLower, long binIdUpper,
                                           long binIdPass, long softBinIdLower, long softBinIdUpper,
                                           long softBinIdPass, QVariant scaleFactor, double nominal)
{
    return new TestValidationReal(
        unitCode, lowerOperator, upperOperator, lower, upper,
        {binIdLower, binIdUpper, binIdPass, softBinIdLower, softBinIdUpper, softBinIdPass},
        PropertyValue::ToScaleFactor(scaleFactor).value_or(ValueDisplay::ScaleNone), nominal);
}
// NOLINTEND(performance-unnecessary-value-param)

ValidationInterface* TestComponentFactory::CreateValidationString(int unitCode, const char* lowerOperator,
                                                                  const QString& text, long binIdFail,
                                                                  long binIdPass, long softBinIdFail,
                                                                  long softBinIdPass)
{
    return new TestValidationString(unitCode, lowerOperator, text, binIdFail, binIdPass, softBinIdFail,
                                    softBinIdPass);
}

} // namespace ZYN
