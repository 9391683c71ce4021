#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>

namespace ZYN {
class UUTTest;
}

/// Reports written, read and written again.
namespace ZYN::Fuzz {

/// The report of a test in a format; what the builder says about it has to be good.
QByteArray Report(const QString& format, UUTTest& test);

/// What an import made of an XML document.
struct Reading {
    std::unique_ptr<UUTTest> test;
    QStringList errors;
};

/// Imports a document. The findings that come with it have to be in order.
Reading Imported(const QByteArray& document);

/// What has to hold for every XML report that this library writes: it has the structure of one, it is read
/// without an error, and from the next generation on it stays the same, byte for byte. Where measurements
/// take the limits of others there may be errors, and it takes one generation more.
/// \param knownErrors of texts that are taken over as they are and were wrong before
/// \return the next generation
QByteArray RequireStableReport(const QByteArray& report, const QStringList& knownErrors);

} // namespace ZYN::Fuzz
