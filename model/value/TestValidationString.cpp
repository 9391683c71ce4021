#include "TestValidationString.h"

#include "Comparison.h"

namespace ZYN {

TestValidationString::TestValidationString(int unitCode, const char* lowerOperator, const QString& text,
                                           long binIdFail, long binIdPass, long softBinIdFail,
                                           long softBinIdPass)
    : TestValidation(unitCode, ValueDisplay::ScaleNone, Limit(lowerOperator, text),
                     Limit(nullptr, QVariant()),
                     BinIds{binIdFail, -1, binIdPass, softBinIdFail, -1, softBinIdPass})
{
}

QVariant TestValidationString::ToLimit(const QVariant& value) const
{
    return ValueDisplay::StaticToString(value);
}

std::optional<bool> TestValidationString::IsInside(const QVariant& value) const
{
    if (value.isNull())
        return std::nullopt;
    if (!m_lower.Exists())
        return true;
    return Holds(m_lower.value.toString(), GetValueDisplay()->ToString(value), m_lower.op.GetCode());
}

} // namespace ZYN
