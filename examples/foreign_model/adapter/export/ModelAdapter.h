#pragma once

/// \file
/// The adapter of the stand-in model: takes the place of the project's own header of this name. What is a
/// function there may be anything that is called like one.

#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestComponentAttr.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNApplication.h>
#include <ZYNIni/IniSection.h>

#include <optional>

namespace ZYN::ModelAdapter {

enum class ValueKind { None, Integer, Real, Text };

inline constexpr auto Id = [](const ManagedObject* object) { return object->number; };
inline constexpr auto NumberAsIdent = [](const TestComponent*) { return std::optional<long>(); };
inline constexpr auto NameView = [](const TestComponent* component) { return component->GetName(); };
inline constexpr auto TypeCode = [](const TestComponent* component) { return component->kind; };
inline constexpr auto MeasuredType = [](const TestResult* result) { return result->component->kind; };
inline constexpr auto SourceLine = [](const TestComponent* component) { return component->line; };
inline constexpr auto GroupKind = [](const TestGroup* group) { return group->group; };
inline constexpr auto ResultState = [](const TestMeasurement* measurement) { return measurement->own; };
inline constexpr auto IsPassed = [](EN_ZYN_RESULT result) { return result == Good; };
inline constexpr auto IsFailed = [](EN_ZYN_RESULT result) { return result == Bad; };
inline constexpr auto EndedAbnormally = [](EN_ZYN_RESULT) { return false; };
inline constexpr auto IsWithoutVerdict = [](EN_ZYN_RESULT result) { return result == Untested; };
inline constexpr auto KindOfValue = [](int type) {
    return type == Whole     ? ValueKind::Integer
           : type == Decimal ? ValueKind::Real
           : type == Words   ? ValueKind::Text
                             : ValueKind::None;
};
inline constexpr auto IsNumber = [](int type) { return type == Whole || type == Decimal; };
inline constexpr auto DigitBase = [](int) { return 0; };
inline constexpr auto IsOperatorText = [](const QString& text) {
    return QStringList{"", "<=", ">="}.contains(text);
};
inline constexpr auto EngineVersion = [] { return ZYNApplication::GetVersion(ZYNAppType::Engine); };
inline constexpr auto SectionName = [](const IniSection& section) { return section.title; };
inline constexpr auto Unit = [](const ValidationInterface* limits) { return limits->measurementUnit; };
inline constexpr auto UnitCode = [](const MeasurementUnit& unit) { return unit.number; };

/// Named as the project's own: rows keep one.
struct HeldLimits {
    ValueDisplay* display;
    std::optional<QVariant> lower;
    LimitOperator::Code lowerOperator;
    std::optional<QVariant> upper;
    LimitOperator::Code upperOperator;
};
inline constexpr auto Limits = [](const ValidationInterface* limits) {
    const auto held = [](const QVariant& limit) {
        return limit.isNull() ? std::nullopt : std::optional(limit);
    };
    return HeldLimits{limits->GetValueDisplay(), held(limits->GetLowerLimit()),
                      limits->GetLowerOperator().code, held(limits->GetUpperLimit()),
                      limits->GetUpperOperator().code};
};
inline constexpr auto HasNominal = [](const ValidationInterface*) { return false; };
inline constexpr auto Nominal = [](const ValidationInterface*) { return QVariant(); };
inline constexpr auto NominalText = [](const ValidationInterface*) { return QString(); };
inline constexpr auto IsResultInverted = [](const ValidationInterface* limits) { return limits->inverted; };
inline constexpr auto SetResultInverted = [](ValidationInterface* limits, bool on) { limits->inverted = on; };
inline constexpr auto PropertyNames = [](const ValidationInterface*) {
    return QStringList{"Lower", "Upper"};
};
inline constexpr auto Property = [](const ValidationInterface* limits, const QString& name) {
    return name == "Lower" ? limits->GetLowerLimit() : limits->GetUpperLimit();
};
inline constexpr auto IsCategory = [](const TestComponentAttr*) { return false; };
inline constexpr auto ItemName = [](const TestComponentAttr* item) { return item->name; };
inline constexpr auto ItemTypeText = [](const TestComponentAttr*) { return QString("Text"); };
inline constexpr auto ItemValue = [](const TestComponentAttr* item) { return QVariant(item->text); };
inline constexpr auto ItemChildren = [](const TestComponentAttr*) { return QList<TestComponentAttr*>(); };
inline constexpr auto IntegerTypeText = [] { return QString("Whole"); };
inline constexpr auto RealTypeText = [] { return QString("Decimal"); };
inline constexpr auto HasPrefix = [](int) { return true; };
inline constexpr auto LoginFirstUser = [](WorkSpace* workSpace, const QString& password) {
    workSpace->Login(0, password);
};

} // namespace ZYN::ModelAdapter
