#pragma once

/// \file
/// What the formats need of the model and the model's contract gives no operation for. A site with its
/// own model library changes this file and nothing else.

#include <ZYNCommon/LimitOperator.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestComponentAttr.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/ValueDisplay.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNApplication.h>
#include <ZYNCommon/ZYNTypes.h>
#include <ZYNIni/IniSection.h>

#include <optional>

namespace ZYN::ModelAdapter {

inline long Id(const ManagedObject* object)
{
    return object->id;
}

/// The number whose decimal is the component's ident text, as 12 is of "12"; nothing where a text of its own
/// was set, be it "12" too.
inline std::optional<long> NumberAsIdent(const TestComponent* component)
{
    return component->HasIdentString() ? std::nullopt : std::optional(component->id);
}

/// The component's name, for a look at it; a reference where the model lends it.
inline const QString& NameView(const TestComponent* component)
{
    return component->GetNameView();
}

/// Address code: the kind of a component or the data type of its value.
inline EN_ZYN_ADDRESS TypeCode(const TestComponent* component)
{
    return component->type;
}

/// Type code of the component that a result belongs to.
inline EN_ZYN_ADDRESS MeasuredType(const TestResult* result)
{
    const auto& component = result->GetComponent();
    return component ? component->type : ZYN_ADDRESS_NONE;
}

inline unsigned int SourceLine(const TestComponent* component)
{
    return component->sourceLine;
}

inline EN_ZYN_GROUP GroupKind(const TestGroup* group)
{
    return group->GetGroupKind();
}

/// The measurement's own result state, which is not looked up in a result set.
inline EN_ZYN_RESULT ResultState(const TestMeasurement* measurement)
{
    return measurement->resultState;
}

inline bool IsPassed(EN_ZYN_RESULT result)
{
    return result == ZYN_RESULT_PASSED;
}

inline bool IsFailed(EN_ZYN_RESULT result)
{
    return result == ZYN_RESULT_FAILED;
}

/// Stopped, or the tester itself failed: nothing is known about the unit.
inline bool EndedAbnormally(EN_ZYN_RESULT result)
{
    return result == ZYN_RESULT_ABORTED || result == ZYN_RESULT_ERROR;
}

inline bool IsWithoutVerdict(EN_ZYN_RESULT result)
{
    return result == ZYN_RESULT_DONE;
}

/// What a measurement of a type code measures.
enum class ValueKind { None, Integer, Real, Text };

inline ValueKind KindOfValue(int typeCode)
{
    switch (typeCode) {
    case ZYN_ADDRESS_INTEGER:
        return ValueKind::Integer;
    case ZYN_ADDRESS_REAL:
        return ValueKind::Real;
    case ZYN_ADDRESS_STRING:
        return ValueKind::Text;
    default:
        return ValueKind::None;
    }
}

inline bool IsNumber(int typeCode)
{
    const ValueKind kind = KindOfValue(typeCode);
    return kind == ValueKind::Integer || kind == ValueKind::Real;
}

/// The base of the digits in which values of a unit are written; 0 for decimal numbers.
inline int DigitBase(int unitCode)
{
    return MeasurementUnit::DigitBase(unitCode);
}

/// Whether a validation's operator may be written so; the empty text means no limit.
inline bool IsOperatorText(const QString& text)
{
    return text.trimmed().isEmpty() || LimitOperator::FromString(text).GetCode() != LimitOperator::None;
}

/// Version of the application that runs the test programs.
inline QString EngineVersion()
{
    return ZYNApplication::GetVersion(ZYNAppType::TestEngine);
}

inline QString SectionName(const IniSection& section)
{
    return section.getName();
}

inline MeasurementUnit Unit(const ValidationInterface* validation)
{
    return validation->GetMeasurementUnit();
}

inline int UnitCode(const MeasurementUnit& unit)
{
    return unit.GetCode();
}

/// A validation's value display, limits and their operators; null where it has none. Values are reached like
/// pointers, whether they are borrowed or held.
using HeldLimits = ValidationInterface::Limits;

inline HeldLimits Limits(const ValidationInterface* validation)
{
    return validation->GetLimits();
}

inline bool HasNominal(const ValidationInterface* validation)
{
    return validation->HasNominal();
}

inline QVariant Nominal(const ValidationInterface* validation)
{
    return validation->GetNominal();
}

inline QString NominalText(const ValidationInterface* validation)
{
    return validation->GetNominalText();
}

inline bool IsResultInverted(const ValidationInterface* validation)
{
    return validation->IsResultInverted();
}

inline void SetResultInverted(ValidationInterface* validation, bool inverted)
{
    validation->SetResultInverted(inverted);
}

inline QList<QString> PropertyNames(const ValidationInterface* validation)
{
    return validation->GetPropertyNames();
}

inline QVariant Property(const ValidationInterface* validation, const QString& name)
{
    return validation->GetProperty(name);
}

inline bool IsCategory(const TestComponentAttr* item)
{
    return item->GetType() == TestComponentAttr::Category;
}

inline QString ItemName(const TestComponentAttr* item)
{
    return item->GetName();
}

inline QString ItemTypeText(const TestComponentAttr* item)
{
    return TestComponentAttr::TypeToString(item->GetType());
}

inline QVariant ItemValue(const TestComponentAttr* item)
{
    return item->GetValue();
}

inline QList<TestComponentAttr*> ItemChildren(const TestComponentAttr* item)
{
    return item->GetChildren();
}

/// The attribute type texts that a test plan's values are converted by.
inline QString IntegerTypeText()
{
    return TestComponentAttr::TypeToString(TestComponentAttr::Integer);
}

inline QString RealTypeText()
{
    return TestComponentAttr::TypeToString(TestComponentAttr::Real);
}

/// Whether a power of ten has a prefix of its own, as 3 has "k".
inline bool HasPrefix(int power)
{
    return ValueDisplay::HasPrefix(ValueDisplay::ScaleFactor(power));
}

/// Logs the first user of a workspace in; this makes it the session's current user.
inline void LoginFirstUser(WorkSpace* workSpace, const QString& password)
{
    workSpace->Login(0, password);
}

} // namespace ZYN::ModelAdapter
