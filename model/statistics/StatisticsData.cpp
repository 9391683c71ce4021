#include <ZYNCommon/StatisticsData.h>

#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/ValidationInterface.h>

#include "../value/NumericVariant.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <optional>

namespace ZYN {

namespace {

constexpr double undefined = std::numeric_limits<double>::quiet_NaN();

/// The number that a value enters the statistics with; nothing for texts, booleans, infinities and nothing.
std::optional<double> Number(const QVariant& value)
{
    const auto number = value.typeId() == QMetaType::Bool ? std::nullopt : NumericVariant::ExactOf(value);
    return number && std::isfinite(*number) ? std::optional(double(*number)) : std::nullopt;
}

bool SameLimits(const ValidationInterface& left, const ValidationInterface& right)
{
    return &left == &right ||
           (left.GetLowerLimit() == right.GetLowerLimit() && left.GetUpperLimit() == right.GetUpperLimit() &&
            left.GetLowerOperator().GetCode() == right.GetLowerOperator().GetCode() &&
            left.GetUpperOperator().GetCode() == right.GetUpperOperator().GetCode() &&
            left.GetMeasurementUnit().GetCode() == right.GetMeasurementUnit().GetCode() &&
            left.IsResultInverted() == right.IsResultInverted());
}

/// The limit as an end of the permitted interval; nothing for text and for operators such as "==".
std::optional<double> Bound(const QVariant& limit, LimitOperator op)
{
    if (op.GetCode() != LimitOperator::Less && op.GetCode() != LimitOperator::LessEqual)
        return std::nullopt;
    return Number(limit);
}

} // namespace

StatisticsData::StatisticsData(QSharedPointer<TestComponent> component)
    : m_component(std::move(component))
{
}

StatisticsData::~StatisticsData() = default;

TestComponent* StatisticsData::GetComponent() const
{
    return m_component.get();
}

TestResult* StatisticsData::GetResult(int index) const
{
    if (index < 0 || index >= Size())
        return nullptr;
    const Run& run = m_runs[static_cast<std::size_t>(index)];
    m_result = std::make_unique<TestResult>(m_component);
    m_result->SetResult(run.result);
    m_result->SetValue(ValueOf(run));
    m_result->SetValidation(m_validation);
    return m_result.get();
}

int StatisticsData::Size() const
{
    return static_cast<int>(m_runs.size());
}

int StatisticsData::GetNrPass() const
{
    return m_passed;
}

int StatisticsData::GetNrFail() const
{
    return m_failed;
}

bool StatisticsData::HasStatisticDetails() const
{
    return m_count > 0;
}

void StatisticsData::AddValue(EN_ZYN_RESULT result, const QVariant& value,
                              QSharedPointer<ValidationInterface> validation)
{
    Keep(result, value);
    m_passed += result == ZYN_RESULT_PASSED;
    m_failed += result < 0;
    if (validation) {
        m_limitsChanged = m_limitsChanged || (m_validation && !SameLimits(*m_validation, *validation));
        m_validation = std::move(validation);
    }
    if (const std::optional<double> number = Number(value))
        Enter(*number);
}

void StatisticsData::Keep(EN_ZYN_RESULT result, const QVariant& value)
{
    using NumericVariant::Kind;
    const Kind kind = value.typeId() == QMetaType::Bool ? Kind::Other : NumericVariant::KindOf(value);
    if (!value.isValid()) {
        m_runs.push_back({0, result, Run::Nothing});
    } else if (kind == Kind::Real) {
        m_runs.push_back({std::bit_cast<quint64>(value.toDouble()), result, Run::Real});
    } else if (kind == Kind::Signed) {
        m_runs.push_back({std::bit_cast<quint64>(qint64(value.toLongLong())), result, Run::Integer});
    } else {
        m_runs.push_back({m_others.size(), result, Run::Other});
        m_others.push_back(value);
    }
}

QVariant StatisticsData::ValueOf(const Run& run) const
{
    switch (run.kind) {
    case Run::Integer:
        return QVariant::fromValue(qlonglong(std::bit_cast<qint64>(run.bits)));
    case Run::Real:
        return std::bit_cast<double>(run.bits);
    case Run::Other:
        return m_others[run.bits];
    case Run::Nothing:
        break;
    }
    return QVariant();
}

void StatisticsData::Enter(double number)
{
    ++m_count;
    m_minimum = m_count == 1 ? number : std::min(m_minimum, number);
    m_maximum = m_count == 1 ? number : std::max(m_maximum, number);
    const long double deviation = number - m_mean;
    m_mean += deviation / static_cast<long double>(m_count);
    m_squares += deviation * (number - m_mean);
}

qint64 StatisticsData::GetValueCount() const
{
    return m_count;
}

double StatisticsData::GetMean() const
{
    return m_count > 0 ? static_cast<double>(m_mean) : undefined;
}

double StatisticsData::GetSigma() const
{
    if (m_count < 2)
        return undefined;
    return static_cast<double>(std::sqrt(m_squares / static_cast<long double>(m_count - 1)));
}

double StatisticsData::GetMinimum() const
{
    return m_count > 0 ? m_minimum : undefined;
}

double StatisticsData::GetMaximum() const
{
    return m_count > 0 ? m_maximum : undefined;
}

double StatisticsData::GetCpk() const
{
    const double sigma = GetSigma();
    if (!m_validation || m_validation->IsResultInverted() || !(sigma > 0.0))
        return undefined;
    double distance = undefined;
    if (const auto upper = Bound(m_validation->GetUpperLimit(), m_validation->GetUpperOperator()))
        distance = *upper - GetMean();
    if (const auto lower = Bound(m_validation->GetLowerLimit(), m_validation->GetLowerOperator()))
        distance = std::fmin(distance, GetMean() - *lower); // ignores a distance that is not a number
    return distance / (3.0 * sigma);
}

QSharedPointer<ValidationInterface> StatisticsData::GetValidation() const
{
    return m_validation;
}

bool StatisticsData::HaveLimitsChanged() const
{
    return m_limitsChanged;
}

} // namespace ZYN
