#pragma once

#include "SampleModels.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace ZYN {

/// What an export of a sample gave.
struct ReportRun {
    /// The file's bytes.
    QByteArray content;
    /// Result of the walk.
    bool exported = false;
    /// Whether the builder says that every byte reached the device.
    bool complete = false;
};

/// "report.<extension>".
QString ReportFileName(const QString& format);

/// Exports a sample through the registry's builder of a format into "report.<extension>" of a folder,
/// under the sample's settings, clock and version. A logo is copied to "media/ReportLogo.png" there.
ReportRun ExportSample(const QString& format, const SampleModels::ReportCase& sample, const QString& folder);

/// The same into a folder that is removed afterwards.
ReportRun ExportSample(const QString& format, const SampleModels::ReportCase& sample);

/// Runs a sample and compares the file with tests/golden/<case>/report.<extension>, a lot as JSON lines.
/// \return what is wrong; empty when nothing is
QString CheckReportGolden(const QString& format, const QString& caseName);

/// The rows of a format's golden test, as `CheckReportGolden` takes them.
QStringList ReportGoldenRows(const QString& format);

} // namespace ZYN
