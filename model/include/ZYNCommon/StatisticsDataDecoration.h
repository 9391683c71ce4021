#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QString>

namespace ZYN {

class StatisticsData;
class ValueDisplay;

/// The figures of a `StatisticsData` as texts. Borrows the data. A figure that does not exist is empty.
///
/// Minimum, maximum and limits are shown like the values themselves. Computed figures are rounded to what
/// they tell: sigma and CPK to six significant digits, the average to the place of sigma's last digit.
/// Average and sigma of hexadecimal and binary values are decimal numbers.
class ZYNCOMMON_EXPORT StatisticsDataDecoration {
public:
    explicit StatisticsDataDecoration(const StatisticsData* data);
    virtual ~StatisticsDataDecoration();

    virtual QString GetMin() const;
    virtual QString GetMax() const;
    virtual QString GetAverage() const;
    virtual QString GetSigma() const;
    virtual QString GetCPK() const;
    virtual QString GetLowerLimit() const;
    virtual QString GetUpperLimit() const;
    /// The unit, with the prefix when scaled data is on.
    virtual QString GetUnitString() const;
    /// Whether texts are scaled by the validation's display; off at first.
    virtual void SetUseScaledData(bool scaled);

private:
    QString MeasuredText(double value) const;
    QString ComputedText(double value, int digits) const;
    const ValueDisplay* Display() const;

    const StatisticsData* m_data;
    bool m_scaled = false;
};

} // namespace ZYN
