#include <ZYNCommon/StatisticsData.h>

#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/ValidationInterface.h>

#include "model/value/NumericVariant.h"

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

QString StatisticsData::GetProgramName() const
{
    return m_names.value(0);
}

QString StatisticsData::GetPath() const
{
    const QString path = m_names.mid(1).join(QLatin1String(" / "));
    return m_ordinal > 1 ? path + QStringLiteral(" #%1").arg(m_ordinal) : path;
}

void StatisticsData::SetPath(const QStringList& names, int ordinal)
{
    m_names = names;
    m_ordinal = ordinal;
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
    return m_moments.count > 0;
}

void StatisticsData::AddValue(EN_ZYN_RESULT result, const QVariant& value,
                              QSharedPointer<ValidationInterface> validation)
{
    Keep(result, value);
    m_passed += result == ZYN_RESULT_PASSED;
    m_failed += result < 0;
    if (validation || m_limitSets.empty())
        TakeLimits(std::move(validation));
    if (const std::optional<double> number = Number(value))
        Enter(result, *number);
}

void StatisticsData::TakeLimits(QSharedPointer<ValidationInterface> validation)
{
    const auto same = [&](const LimitSet& set) {
        return set.limits && validation ? SameLimits(*set.limits, *validation) : set.limits == validation;
    };
    if (m_limitSets.empty() || !same(m_limitSets[m_limitSet])) { // which is most often the one
        const auto known = std::find_if(m_limitSets.begin(), m_limitSets.end(), same);
        m_limitSet = static_cast<std::size_t>(known - m_limitSets.begin());
        if (known == m_limitSets.end())
            m_limitSets.push_back({validation, {}, {}});
    }
    m_validation = std::move(validation);
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

void StatisticsData::Enter(EN_ZYN_RESULT result, double number)
{
    m_moments.Enter(number);
    m_minimum = m_moments.count == 1 ? number : std::min(m_minimum, number);
    m_maximum = m_moments.count == 1 ? number : std::max(m_maximum, number);
    LimitSet& set = m_limitSets[m_limitSet];
    set.all.Enter(number);
    if (result > 0)
        set.passed.Enter(number);
}

qint64 StatisticsData::GetValueCount() const
{
    return m_moments.count;
}

double StatisticsData::GetMean() const
{
    return m_moments.count > 0 ? static_cast<double>(m_moments.mean) : undefined;
}

double StatisticsData::GetSigma() const
{
    return m_moments.Sigma();
}

double StatisticsData::GetMinimum() const
{
    return m_moments.count > 0 ? m_minimum : undefined;
}

double StatisticsData::GetMaximum() const
{
    return m_moments.count > 0 ? m_maximum : undefined;
}

double StatisticsData::GetCpk() const
{
    return m_moments.Cpk(m_validation.get());
}

QList<StatisticsData::Capability> StatisticsData::GetCapabilities() const
{
    QList<Capability> capabilities;
    for (const LimitSet& set : m_limitSets)
        capabilities.append({set.limits, set.all.Cpk(set.limits.get()), set.passed.Cpk(set.limits.get())});
    return capabilities;
}

void StatisticsData::Moments::Enter(double number)
{
    ++count;
    const long double deviation = number - mean;
    mean += deviation / static_cast<long double>(count);
    squares += deviation * (number - mean);
}

double StatisticsData::Moments::Sigma() const
{
    return count < 2 ? undefined
                     : static_cast<double>(std::sqrt(squares / static_cast<long double>(count - 1)));
}

double StatisticsData::Moments::Cpk(const ValidationInterface* limits) const
{
    const double sigma = Sigma();
    if (!limits || limits->IsResultInverted() || !(sigma > 0.0))
        return undefined;
    const auto middle = static_cast<double>(mean);
    double distance = undefined;
    if (const auto upper = Bound(limits->GetUpperLimit(), limits->GetUpperOperator()))
        distance = *upper - middle;
    if (const auto lower = Bound(limits->GetLowerLimit(), limits->GetLowerOperator()))
        distance = std::fmin(distance, middle - *lower); // ignores a distance that is not a number
    return distance / (3.0 * sigma);
}

QSharedPointer<ValidationInterface> StatisticsData::GetValidation() const
{
    return m_validation;
}

bool StatisticsData::HaveLimitsChanged() const
{
    return std::count_if(m_limitSets.begin(), m_limitSets.end(),
                         [](const LimitSet& set) { return set.limits != nullptr; }) > 1;
}

} // namespace ZYN
