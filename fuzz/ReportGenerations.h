#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <memory>

namespace ZYN {
class UUTTest;
}

/// Reports written, read and written again.
namespace ZYN::Fuzz {

/// The report of a test in a format; what the builder says about it has to be good.
QByteArray Report(const QString& format, UUTTest& test);

/// What an import makes of an XML document. The findings that come with it have to be in order.
std::unique_ptr<UUTTest> Imported(const QByteArray& document);

/// What has to hold for every XML report that this library writes: it is read without an error, and from
/// the next generation on it stays the same, byte for byte.
void RequireStableReport(const QByteArray& report);

} // namespace ZYN::Fuzz
