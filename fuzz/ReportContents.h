#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>

/// What reports hold, read by readers that share nothing with the library.
namespace ZYN::Fuzz {

/// A program that was run: its components and itself, "element: name", in the order of the report.
struct ProgramContents {
    int item = -1; ///< index of the panel item that it was run on; -1 for the whole unit
    QStringList components;
};

QList<ProgramContents> ProgramsOfXml(const QByteArray& report);
/// Names are as XML can hold them.
QList<ProgramContents> ProgramsOfJson(const QByteArray& report);
/// The programs that the JSON report of a panel has: for each item the one that was written last.
QList<ProgramContents> LastOfEachItem(const QList<ProgramContents>& programs, qsizetype items);
/// The components of all programs.
QStringList Components(const QList<ProgramContents>& programs);

/// The texts of real values and their limits, by the place of their measurement in the XML report. Only of
/// measurements that have limits and a value: without limits one takes those of another when the report is
/// read, what was not measured becomes 0, and what is not whole has no digits of a base.
QMap<int, QStringList> NumbersOfXml(const QByteArray& report);

} // namespace ZYN::Fuzz
