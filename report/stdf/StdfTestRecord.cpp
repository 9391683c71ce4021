#include "StdfTestRecord.h"

#include "export/ModelAdapter.h"

#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/ValueComperator.h>
#include <ZYNCommon/ValueDisplay.h>

#include <array>
#include <cmath>
#include <optional>

namespace ZYN {

namespace {

/// What a validation says about a measured value, in the terms of a PTR.
struct Judgement {
    float result = 0.0F;
    float lowLimit = 0.0F;
    float highLimit = 0.0F;
    qint8 scale = 0;
    bool valueMissing = true;
    bool lowPass = true;
    bool highPass = true;
    bool hasLow = false;
    bool hasHigh = false;
    bool scaleInvalid = true;
};

/// What a scale factor means for values and for RES_SCAL.
struct Scale {
    float multiplier = 1.0F;
    bool valid = true;
};

const Scale& ScaleOf(qint8 factor)
{
    static const auto scales = [] {
        std::array<Scale, 256> all;
        for (size_t index = 0; index < all.size(); ++index) {
            const int power = static_cast<int>(index) - 128;
            all[index] = {static_cast<float>(std::pow(0.1, power)),
                          ModelAdapter::HasPrefix(power)};
        }
        return all;
    }();
    return scales[static_cast<size_t>(factor + 128)];
}

float ToFloat(const QVariant& value)
{
    // Most values are real numbers, and the general conversion takes its time.
    return value.metaType() == QMetaType::fromType<double>()
               ? static_cast<float>(*static_cast<const double*>(value.constData()))
               : value.toFloat();
}

Judgement Judge(const TestResult* result, bool numeric)
{
    Judgement judgement;
    const auto& validation = result->GetValidation();
    if (!validation)
        return judgement;
    const auto limits = ModelAdapter::Limits(validation.data());
    if (limits.display)
        judgement.scale = static_cast<qint8>(limits.display->GetScaleFactor());
    const auto [multiplier, valid] = ScaleOf(judgement.scale);
    judgement.scaleInvalid = !valid;
    const auto scaled = [&, factor = multiplier](const QVariant& value) {
        return numeric ? ToFloat(value) * factor : 0.0F;
    };

    if (const QVariant& value = result->GetValue(); !value.isNull()) {
        judgement.valueMissing = false;
        judgement.result = scaled(value);
    }
    if (limits.lower) {
        judgement.hasLow = true;
        judgement.lowLimit = scaled(*limits.lower);
        judgement.lowPass =
            ValueComperator::Verify(judgement.lowLimit, judgement.result, limits.lowerOperator);
    }
    if (limits.upper) {
        judgement.hasHigh = true;
        judgement.highLimit = scaled(*limits.upper);
        judgement.highPass =
            ValueComperator::Verify(judgement.result, judgement.highLimit, limits.upperOperator);
    }
    return judgement;
}

constexpr unsigned Bit(unsigned number, bool set)
{
    return set ? 1U << number : 0U;
}

/// TEST_FLG: no valid result (1), not executed to its end (5), without a verdict (6), failed (7).
quint8 TestFlags(const Judgement& judgement, EN_ZYN_RESULT state)
{
    return static_cast<quint8>(Bit(1, judgement.valueMissing) | Bit(5, ModelAdapter::EndedAbnormally(state)) |
                               Bit(6, ModelAdapter::IsWithoutVerdict(state)) |
                               Bit(7, ModelAdapter::IsFailed(state)));
}

/// PARM_FLG: above the high limit (3), below the low limit (4).
quint8 ParameterFlags(const Judgement& judgement)
{
    return static_cast<quint8>(Bit(3, !judgement.highPass) | Bit(4, !judgement.lowPass));
}

/// OPT_FLAG: RES_SCAL not valid (0), LO_SPEC and HI_SPEC not valid (2, 3), no low limit (6), no
/// high limit (7).
quint8 OptionalFlags(const Judgement& judgement)
{
    return static_cast<quint8>(Bit(0, judgement.scaleInvalid) | Bit(2, true) | Bit(3, true) |
                               Bit(6, !judgement.hasLow) | Bit(7, !judgement.hasHigh));
}

/// TEST_TXT: ident, name unless it is the step's, step, group.
void AddTestText(StdfRecord& record, const TestMeasurement* measurement, const StdfStepText& stepText)
{
    record.BeginText().Text("[");
    if (const std::optional<long> number = ModelAdapter::NumberAsIdent(measurement))
        record.Text(*number);
    else
        record.Text(measurement->GetIdentString());
    record.Text("] ");
    if (const auto& name = ModelAdapter::NameView(measurement); name != stepText.stepName)
        record.Text(name).Text(" - ");
    record.Text(stepText.Ending()).EndText();
}

} // namespace

StdfStepText::StdfStepText(const TestStep* step, const TestGroup* group)
    : stepName(step->GetName())
{
    Add(stepName);
    Add(u" - ");
    Add(ModelAdapter::NameView(group));
}

void StdfStepText::Add(QStringView piece)
{
    const qsizetype count = std::min<qsizetype>(piece.size(), static_cast<qsizetype>(ending.size()) - size);
    ToLatin1(piece.first(count), ending.data() + size);
    size += count;
}

QByteArrayView StdfTestRecord(char* memory, quint32 number, const TestMeasurement* measurement,
                              const StdfStepText& stepText, const TestResult* result)
{
    const EN_ZYN_ADDRESS kind = ModelAdapter::TypeCode(measurement);
    const Judgement judgement = Judge(result, ModelAdapter::IsNumber(kind));
    const auto exponent = static_cast<qint8>(-judgement.scale);

    StdfRecord record(memory);
    record.Begin(StdfFormat::ptr)
        .U4(number)
        .U1(StdfFormat::head)
        .U1(StdfFormat::site)
        .U1(TestFlags(judgement, ModelAdapter::ResultState(measurement)))
        .U1(ParameterFlags(judgement))
        .R4(judgement.result);
    AddTestText(record, measurement, stepText);
    return record
        .Cn(QStringView()) // ALARM_ID
        .U1(OptionalFlags(judgement))
        .I1(exponent) // RES_SCAL
        .I1(exponent) // LLM_SCAL
        .I1(exponent) // HLM_SCAL
        .R4(judgement.lowLimit)
        .R4(judgement.highLimit)
        .Cn(result->GetBaseUnitString())
        .Bytes();
}

} // namespace ZYN
