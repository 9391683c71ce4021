#pragma once

#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QDateTime>
#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>

namespace ZYN {
class CExportServiceReport;
class UUTTest;
} // namespace ZYN

/// Units of a lot as plain data, and the model made from them.
namespace ZYN::LotModels {

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
    int tests = 0;         ///< real measurements in milli, all in one group
    QList<UnitData> items; ///< lot, machine, user, program and version do not count
};

QSharedPointer<UUTTest> MakeTest(const UnitData& unit);

/// Adds a unit's parts to a lot file, by a service of its own or by one that has written before.
/// \return whether all of it reached the file
bool Append(const UnitData& unit, const QString& fileName);
bool Append(const UnitData& unit, const QString& fileName, CExportServiceReport& service);

/// A unit of lot "LOT-1".
UnitData SimpleUnit(const QString& ident, int tests = 3);

} // namespace ZYN::LotModels
