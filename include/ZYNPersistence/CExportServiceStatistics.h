#pragma once

#include <ZYNPersistence/ZYNPersistenceGlobal.h>

#include <QtCore/QString>

namespace ZYN {

class CExportServiceStatistics_Private;
class StatisticsDataReport;

/// Writes a statistics report as CSV or XML. Use and threads as `CExportServiceReport`.
///
/// The CSV builder keeps the entries of all exports until the next `SetFormat`, and writes all of them
/// each time: the reports exported so far must live until the last `Export` has returned.
class ZYNPERSISTENCE_EXPORT CExportServiceStatistics {
public:
    CExportServiceStatistics();
    ~CExportServiceStatistics();
    CExportServiceStatistics(const CExportServiceStatistics&) = delete;
    CExportServiceStatistics& operator=(const CExportServiceStatistics&) = delete;

    /// "XML" (also "" and "DEFAULT") or "CSV"; case and outer blanks do not matter.
    /// \return false for an unknown name; the service then has no format
    bool SetFormat(const QString& format);
    bool FormatOk() const;
    /// As `CExportServiceReport::FormatForExtension`.
    static QString FormatForExtension(const QString& fileName);
    void SetOutputFileName(const QString& fileName);
    /// Whether limits, figures and values are scaled by their displays. Affects later exports.
    void SetUseScaledData(bool flag);

    ///     StatisticsDataReport report; // after a lot was counted into it
    ///     service.SetFormat("CSV");
    ///     service.Export(&report);
    /// \return false when the export could not start (see `GetErrorText`) or the report is null
    bool Export(StatisticsDataReport* report);
    /// Why the last export could not start; empty when it did.
    QString GetErrorText() const;
    /// Whether the last export ran to its end and every byte reached the device.
    bool OutputComplete() const;
    /// Why the output of an export that could start is not complete, as far as that is known; else empty.
    QString GetOutputError() const;
    /// Filters for a file dialog, translated.
    static QString FileNameFilter();

private:
    CExportServiceStatistics_Private* d;
};

} // namespace ZYN
