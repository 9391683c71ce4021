#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QString>

namespace ZYN {

class StatisticsData;
class ValueDisplay;

/// The figures of a `StatisticsData` as texts. Borrows the data. A figure that does not exist is empty.
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
    QString Text(double value) const;
    const ValueDisplay* Display() const;

    const StatisticsData* m_data;
    bool m_scaled = false;
};

} // namespace ZYN
