#pragma once

/// \file
/// The adapter of the stand-in model: takes the place of the project's own header of this name.

#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestComponentAttr.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNApplication.h>
#include <ZYNIni/IniSection.h>

#include <QtCore/QLocale>

namespace ZYN::ModelAdapter {

inline long Id(const ManagedObject* object)
{
    return object->number;
}

inline EN_ZYN_ADDRESS TypeCode(const TestComponent* component)
{
    return component->kind;
}

inline EN_ZYN_ADDRESS MeasuredType(const TestResult* result)
{
    return result->component ? result->component->kind : Nothing;
}

inline unsigned int SourceLine(const TestComponent* component)
{
    return component->line;
}

inline EN_ZYN_GROUP GroupKind(const TestGroup* group)
{
    return group->group;
}

inline EN_ZYN_RESULT ResultState(const TestMeasurement* measurement)
{
    return measurement->own;
}

inline bool IsPassed(EN_ZYN_RESULT result)
{
    return result == Good;
}

inline bool IsFailed(EN_ZYN_RESULT result)
{
    return result == Bad;
}

inline bool EndedAbnormally(EN_ZYN_RESULT)
{
    return false;
}

inline bool IsWithoutVerdict(EN_ZYN_RESULT result)
{
    return result == Untested;
}

enum class ValueKind { None, Integer, Real, Text };

inline ValueKind KindOfValue(int typeCode)
{
    switch (typeCode) {
    case Whole:
        return ValueKind::Integer;
    case Decimal:
        return ValueKind::Real;
    case Words:
        return ValueKind::Text;
    default:
        return ValueKind::None;
    }
}

inline bool IsNumber(int typeCode)
{
    return typeCode == Whole || typeCode == Decimal;
}

inline int DigitBase(int)
{
    return 0;
}

inline bool IsOperatorText(const QString& text)
{
    return text.isEmpty() || text == QLatin1String("<=") || text == QLatin1String(">=");
}

inline LimitOperator::Code Code(const LimitOperator& limitOperator)
{
    return limitOperator.code;
}

inline QString EngineVersion()
{
    return ZYNApplication::GetVersion(ZYNAppType::Engine);
}

inline QString SectionName(const IniSection& section)
{
    return section.title;
}

inline MeasurementUnit Unit(const ValidationInterface* validation)
{
    return static_cast<const Limits*>(validation)->measurementUnit;
}

inline int UnitCode(const MeasurementUnit& unit)
{
    return unit.number;
}

inline bool HasNominal(const ValidationInterface*)
{
    return false;
}

inline QVariant Nominal(const ValidationInterface*)
{
    return {};
}

inline QString NominalText(const ValidationInterface*)
{
    return {};
}

inline bool IsResultInverted(const ValidationInterface* validation)
{
    return validation->inverted;
}

inline void SetResultInverted(ValidationInterface* validation, bool inverted)
{
    validation->inverted = inverted;
}

inline QList<QString> PropertyNames(const ValidationInterface*)
{
    return {QStringLiteral("Lower"), QStringLiteral("Upper")};
}

inline QVariant Property(const ValidationInterface* validation, const QString& name)
{
    return name == QLatin1String("Lower") ? validation->GetLowerLimit() : validation->GetUpperLimit();
}

inline bool IsCategory(const TestComponentAttr*)
{
    return false;
}

inline QString ItemName(const TestComponentAttr* item)
{
    return item->name;
}

inline QString ItemTypeText(const TestComponentAttr*)
{
    return TestComponentAttr::TypeToString(TestComponentAttr::Text);
}

inline QVariant ItemValue(const TestComponentAttr* item)
{
    return item->text;
}

inline QList<TestComponentAttr*> ItemChildren(const TestComponentAttr*)
{
    return {};
}

inline QString IntegerTypeText()
{
    return QStringLiteral("Whole");
}

inline QString RealTypeText()
{
    return QStringLiteral("Decimal");
}

inline double ScaledTextToReal(QStringView text, int factor, bool* ok = nullptr)
{
    return QLocale::c().toDouble(text, ok) * std::pow(10.0, factor);
}

inline void LoginFirstUser(WorkSpace* workSpace, const QString& password)
{
    workSpace->Login(0, password);
}

} // namespace ZYN::ModelAdapter
