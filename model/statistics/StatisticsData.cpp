#include <ZYNCommon/StatisticsData.h>

#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/ValidationInterface.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ZYN {

namespace {

constexpr double undefined = std::numeric_limits<double>::quiet_NaN();

/// The number that a value enters the statistics with; not-a-number for texts, booleans and nothing.
double Number(const QVariant& value)
{
    switch (value.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return value.toDouble();
    default:
        return undefined;
    }
}

bool SameLimits(const ValidationInterface& left, const ValidationInterface& right)
{
    return left.GetLowerLimit() == right.GetLowerLimit() && left.GetUpperLimit() == right.GetUpperLimit() &&
           left.GetLowerOperator().GetCode() == right.GetLowerOperator().GetCode() &&
           left.GetUpperOperator().GetCode() == right.GetUpperOperator().GetCode();
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
    const auto place = static_cast<std::size_t>(index);
    if (m_results.size() <= place)
        m_results.resize(m_runs.size());
    std::unique_ptr<TestResult>& result = m_results[place];
    if (!result) {
        result = std::make_unique<TestResult>(m_component);
        result->SetResult(m_runs[place].result);
        result->SetValue(m_runs[place].value);
        result->SetValidation(m_validation);
    }
    return result.get();
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
    m_runs.push_back({value, result});
    m_passed += result == ZYN_RESULT_PASSED;
    m_failed += result < 0;
    if (validation) {
        m_limitsChanged = m_limitsChanged || (m_validation && !SameLimits(*m_validation, *validation));
        m_validation = std::move(validation);
    }

    const double number = Number(value);
    if (!std::isfinite(number))
        return;
    ++m_count;
    m_minimum = m_count == 1 ? number : std::min(m_minimum, number);
    m_maximum = m_count == 1 ? number : std::max(m_maximum, number);
    const double deviation = number - m_mean;
    m_mean += deviation / static_cast<double>(m_count);
    m_squares += deviation * (number - m_mean);
}

qint64 StatisticsData::GetValueCount() const
{
    return m_count;
}

double StatisticsData::GetMean() const
{
    return m_count > 0 ? m_mean : undefined;
}

double StatisticsData::GetSigma() const
{
    return m_count > 1 ? std::sqrt(m_squares / static_cast<double>(m_count - 1)) : undefined;
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
    if (!m_validation || !(sigma > 0.0))
        return undefined;
    double cpk = undefined;
    if (m_validation->HasUpperLimit())
        cpk = (m_validation->GetUpperLimit().toDouble() - m_mean) / (3.0 * sigma);
    if (m_validation->HasLowerLimit())
        cpk = std::fmin(cpk, (m_mean - m_validation->GetLowerLimit().toDouble()) / (3.0 * sigma));
    return cpk;
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
