#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// Expected outputs, byte for byte: tests/golden/<case>/<file>.
///
/// With the environment variable ZYN_UPDATE_GOLDEN=1 (scripts/update-golden) the outputs are written as
/// the new expectations. Read what changed before it is committed.
namespace ZYN::Golden {

/// Compares an output with its expectation.
/// \return what differs, as a unified diff; empty when nothing does. A missing expectation differs.
QString Difference(const QString& caseName, const QString& fileName, const QByteArray& actual);

/// Rows of a test: the cases that it knows and every folder that holds an expectation of this name, so
/// that an expectation that nobody makes any more is noticed.
QStringList Rows(const QStringList& knownCases, const QString& fileName);

/// The folder of all expectations.
QString Folder();

} // namespace ZYN::Golden
