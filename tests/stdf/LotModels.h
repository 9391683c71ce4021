#pragma once

#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QDateTime>
#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <optional>

namespace ZYN {
class CExportServiceReport;
class UUTTest;
} // namespace ZYN

/// Units of a lot as plain data, and the model made from them: the data is what the records of a lot file
/// are compared with.
namespace ZYN::LotModels {

struct LimitsData {
    bool real = true; ///< else integer limits
    QString lowerOperator;
    QString upperOperator;
    double lower = 0.0;
    double upper = 0.0;
    int scale = 0; ///< power of ten of the value display
    int unit = 0;
};

struct MeasurementData {
    QString ident;
    QString name;
    EN_ZYN_ADDRESS kind = ZYN_ADDRESS_REAL;
    QVariant value;
    std::optional<LimitsData> limits;
    EN_ZYN_RESULT result = ZYN_RESULT_PASSED;
    bool hasResult = true;
};

struct StepData {
    QString name;
    QList<MeasurementData> measurements;
};

struct GroupData {
    QString name;
    QList<StepData> steps;
};

struct UnitData {
    QString ident;
    QString product;
    QString lot;
    QString machine;
    QString user;
    QString program;
    QString version;
    QDateTime start;
    QDateTime stop;
    EN_ZYN_RESULT result = ZYN_RESULT_PASSED;
    double seconds = 0.0;
    bool hasResultSet = true;
    QList<GroupData> groups;
    QList<UnitData> items; ///< only ident, product, times, result, duration and groups count
};

QSharedPointer<UUTTest> MakeTest(const UnitData& unit);

/// Adds a unit's parts to a lot file, by a service of its own or by one that has written before.
/// \return whether all of it reached the file
bool Append(const UnitData& unit, const QString& fileName);
bool Append(const UnitData& unit, const QString& fileName, CExportServiceReport& service);

/// A unit of lot "LOT-1" with one group of `tests` real measurements in milli.
UnitData SimpleUnit(const QString& ident, int tests = 3);

} // namespace ZYN::LotModels
