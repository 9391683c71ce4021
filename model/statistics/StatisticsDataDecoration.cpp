#include <ZYNCommon/StatisticsDataDecoration.h>

#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/ValidationInterface.h>

#include "model/result/ValidationText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ZYN {

namespace {

constexpr int sigmaDigits = 6;
constexpr int cpkDigits = 6;

/// Significant digits down to the place of sigma's last one, at most what a number holds for certain.
int AverageDigits(double mean, double sigma)
{
    constexpr int most = std::numeric_limits<double>::digits10;
    if (mean == 0.0 || !(sigma > 0.0))
        return most;
    const double larger = std::floor(std::log10(std::abs(mean))) - std::floor(std::log10(sigma));
    return static_cast<int>(std::clamp(larger + sigmaDigits, double(sigmaDigits), double(most)));
}

double Rounded(double value, int digits)
{
    const double rounded = QString::number(value, 'g', digits).toDouble();
    return std::isfinite(rounded) ? rounded : value; // the largest numbers would be rounded up to infinity
}

} // namespace

StatisticsDataDecoration::StatisticsDataDecoration(const StatisticsData* data)
    : m_data(data)
{
}

StatisticsDataDecoration::~StatisticsDataDecoration() = default;

QString StatisticsDataDecoration::GetMin() const
{
    return m_data ? MeasuredText(m_data->GetMinimum()) : QString();
}

QString StatisticsDataDecoration::GetMax() const
{
    return m_data ? MeasuredText(m_data->GetMaximum()) : QString();
}

QString StatisticsDataDecoration::GetAverage() const
{
    if (!m_data)
        return QString();
    return ComputedText(m_data->GetMean(), AverageDigits(m_data->GetMean(), m_data->GetSigma()));
}

QString StatisticsDataDecoration::GetSigma() const
{
    return m_data ? ComputedText(m_data->GetSigma(), sigmaDigits) : QString();
}

QString StatisticsDataDecoration::GetCPK() const
{
    const double cpk = m_data ? m_data->GetCpk() : std::numeric_limits<double>::quiet_NaN();
    return std::isfinite(cpk) ? ValueDisplay::StaticToString(Rounded(cpk, cpkDigits)) : QString();
}

QString StatisticsDataDecoration::GetLowerLimit() const
{
    return m_data ? ValidationText::LowerLimit(m_data->GetValidation().data(), Display()) : QString();
}

QString StatisticsDataDecoration::GetUpperLimit() const
{
    return m_data ? ValidationText::UpperLimit(m_data->GetValidation().data(), Display()) : QString();
}

QString StatisticsDataDecoration::GetUnitString() const
{
    return m_data ? ValidationText::Unit(m_data->GetValidation().data(), Display()) : QString();
}

void StatisticsDataDecoration::SetUseScaledData(bool scaled)
{
    m_scaled = scaled;
}

QString StatisticsDataDecoration::MeasuredText(double value) const
{
    if (!std::isfinite(value))
        return QString();
    return ValidationText::Value(value, m_data->GetValidation().data(), Display());
}

QString StatisticsDataDecoration::ComputedText(double value, int digits) const
{
    if (!std::isfinite(value))
        return QString();
    const ValueDisplay* const display =
        ValidationText::HasDigitUnit(m_data->GetValidation().data()) ? nullptr : Display();
    const double rounded = Rounded(value, digits);
    return display ? display->ToString(rounded) : ValueDisplay::StaticToString(rounded);
}

const ValueDisplay* StatisticsDataDecoration::Display() const
{
    const auto validation = m_scaled ? m_data->GetValidation() : nullptr;
    return validation ? validation->GetValueDisplay() : nullptr;
}

} // namespace ZYN
