#include "TestValidation.h"

#include "PropertyValue.h"

namespace ZYN {

TestValidation::Limit::Limit(const char* operatorText, const QVariant& limit)
    : op(LimitOperator::FromString(operatorText))
    , value(op.GetCode() == LimitOperator::None ? QVariant() : limit)
{
}

TestValidation::TestValidation(int unitCode, ValueDisplay::ScaleFactor factor, const Limit& lower,
                               const Limit& upper, const BinIds& binIds)
    : m_unit(unitCode)
    , m_display(factor, unitCode)
    , m_lower(lower)
    , m_upper(upper)
{
    if (binIds != NoBinIds)
        NeedExtras().binIds = binIds;
}

TestValidation::Extras& TestValidation::NeedExtras()
{
    if (!m_extras)
        m_extras = std::make_unique<Extras>();
    return *m_extras;
}

void TestValidation::SetNominal(const QVariant& nominal)
{
    if (m_extras || nominal.isValid())
        NeedExtras().nominal = nominal;
}

long TestValidation::BinIdOf(BinId bin) const
{
    return (m_extras ? m_extras->binIds : NoBinIds)[bin];
}

ValidationInterface::Limits TestValidation::GetLimits() const
{
    return {&m_display, m_lower.Exists() ? &m_lower.value : nullptr, m_lower.op.GetCode(),
            m_upper.Exists() ? &m_upper.value : nullptr, m_upper.op.GetCode()};
}

ValueDisplay* TestValidation::GetValueDisplay() const
{
    return &m_display;
}

bool TestValidation::HasLowerLimit() const
{
    return m_lower.Exists();
}

bool TestValidation::HasUpperLimit() const
{
    return m_upper.Exists();
}

QVariant TestValidation::GetLowerLimit() const
{
    return m_lower.Get();
}

QVariant TestValidation::GetUpperLimit() const
{
    return m_upper.Get();
}

QString TestValidation::GetLowerLimitText() const
{
    return m_lower.Exists() ? m_display.ToString(m_lower.value) : QString();
}

QString TestValidation::GetUpperLimitText() const
{
    return m_upper.Exists() ? m_display.ToString(m_upper.value) : QString();
}

LimitOperator TestValidation::GetLowerOperator() const
{
    return m_lower.op;
}

LimitOperator TestValidation::GetUpperOperator() const
{
    return m_upper.op;
}

bool TestValidation::HasNominal() const
{
    return GetNominal().isValid();
}

QVariant TestValidation::GetNominal() const
{
    return m_extras ? m_extras->nominal : QVariant();
}

QString TestValidation::GetNominalText() const
{
    // Limits of such units have digits and no scale; a nominal value is a decimal number everywhere.
    return ValueDisplay(m_display.GetScaleFactor(), 0).ToString(GetNominal());
}

MeasurementUnit TestValidation::GetMeasurementUnit() const
{
    return m_unit;
}

bool TestValidation::IsResultInverted() const
{
    return m_inverted;
}

void TestValidation::SetResultInverted(bool inverted)
{
    m_inverted = inverted;
}

bool TestValidation::Validate(const QVariant& value) const
{
    const std::optional<bool> inside = IsInside(value);
    return inside && *inside != m_inverted;
}

QList<QString> TestValidation::GetPropertyNames() const
{
    QList<QString> names;
    names.reserve(qsizetype(Properties().size()));
    for (const Property& property : Properties())
        names.append(property.name);
    return names;
}

const TestValidation::Property* TestValidation::FindProperty(const QString& name) const
{
    for (const Property& property : Properties())
        if (property.name == name)
            return &property;
    return nullptr;
}

QVariant TestValidation::GetProperty(const QString& name) const
{
    const auto operatorText = [](const Limit& limit) {
        return limit.op.GetCode() == LimitOperator::None ? QVariant() : QVariant(limit.op.ToString());
    };
    const Property* property = FindProperty(name);
    if (!property)
        return QVariant();
    switch (property->kind) {
    case PropertyKind::LowerLimit:
        return m_lower.value;
    case PropertyKind::LowerOperator:
        return operatorText(m_lower);
    case PropertyKind::UpperLimit:
        return m_upper.value;
    case PropertyKind::UpperOperator:
        return operatorText(m_upper);
    case PropertyKind::Nominal:
        return GetNominal();
    case PropertyKind::InvertResult:
        return m_inverted;
    case PropertyKind::ScaleFactor:
        return int(m_display.GetScaleFactor());
    case PropertyKind::BinId:
        return BinIdOf(property->bin) < 0 ? QVariant() : QVariant(int(BinIdOf(property->bin)));
    }
    return QVariant();
}

bool TestValidation::SetProperty(const QString& name, const QVariant& value)
{
    const Property* property = FindProperty(name);
    if (!property)
        return false;
    switch (property->kind) {
    case PropertyKind::LowerLimit:
        return SetLimitValue(m_lower.value, value);
    case PropertyKind::LowerOperator:
        return PropertyValue::ReadOperator(value, m_lower.op);
    case PropertyKind::UpperLimit:
        return SetLimitValue(m_upper.value, value);
    case PropertyKind::UpperOperator:
        return PropertyValue::ReadOperator(value, m_upper.op);
    case PropertyKind::Nominal:
        return SetLimitValue(NeedExtras().nominal, value);
    case PropertyKind::InvertResult:
        return PropertyValue::ReadBool(value, m_inverted);
    case PropertyKind::ScaleFactor:
        return SetScaleFactor(value);
    case PropertyKind::BinId:
        return PropertyValue::ReadBinId(value, NeedExtras().binIds[property->bin]);
    }
    return false;
}

bool TestValidation::SetLimitValue(QVariant& limit, const QVariant& value)
{
    const QVariant converted = value.isNull() ? QVariant() : ToLimit(value);
    if (!value.isNull() && !converted.isValid())
        return false;
    limit = converted;
    return true;
}

bool TestValidation::SetScaleFactor(const QVariant& value)
{
    const std::optional<ValueDisplay::ScaleFactor> factor = PropertyValue::ToScaleFactor(value);
    if (factor)
        m_display = ValueDisplay(*factor, m_unit.GetCode());
    return factor.has_value();
}

} // namespace ZYN
