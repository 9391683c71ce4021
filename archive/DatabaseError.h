#pragma once

#include <QtCore/QString>

class QSqlError;

namespace ZYN {

/// What went wrong and what to do, in one sentence.
/// \param shownUrl the archive, as it is called in messages
QString TextOfError(const QSqlError& error, const QString& shownUrl, bool isPostgreSql);

/// Whether the same transaction may well succeed when it is repeated.
bool IsWorthRepeating(const QString& errorCode);
/// Whether a value was wrong, not the database.
bool IsFaultOfData(const QString& errorCode, bool isPostgreSql);

} // namespace ZYN
