#pragma once

#include <ZYNPersistence/ZYNPersistenceGlobal.h>

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace ZYN {

class CExportServiceReport_Private;
class TestResultSet;
class UUTTest;

/// What is to be known of a report format.
struct ReportFormat {
    QString name;           ///< upper case
    QStringList otherNames; ///< lower case; `SetFormat` takes any case
    QString extension;      ///< without dot
    const char* purpose;    ///< what it is good for, in English; `QObject::tr` translates it
    bool takesManyReports;  ///< one file takes the parts of many reports; else a report is a file
};

/// Writes test results to a report file.
///
/// Choose a format, name the file, export. The service may export several times; model objects are
/// borrowed for the call. One service is used by one thread at a time; separate services may run in
/// separate threads. Nothing throws.
///
/// A PDF report needs a `QGuiApplication` for its fonts (the platform "offscreen" will do where there is no
/// display): without one no file is made, and `Export` answers true, `OutputComplete` false and
/// `GetOutputError` why.
class ZYNPERSISTENCE_EXPORT CExportServiceReport {
public:
    /// Takes "ReportLogo.jpg", else "ReportLogo.png", of the media directory as the logo.
    CExportServiceReport();
    ~CExportServiceReport();
    CExportServiceReport(const CExportServiceReport&) = delete;
    CExportServiceReport& operator=(const CExportServiceReport&) = delete;

    /// Chooses the format by name ("XML", "TXT", "CSV", "HTML", "PDF", "JSON", "STDF"; case and outer
    /// blanks do not matter, the empty name is XML). Starts with a fresh builder.
    /// \return false for an unknown name; the service then has no format
    bool SetFormat(const QString& format);
    void SetOutputFileName(const QString& fileName);
    /// Replaces the logo. A logo set after the first export reaches the report only after `SetFormat`.
    void SetReportLogoImage(const QString& path);
    /// Reports also the components that are marked as not to be reported.
    void SetIgnoreReportFlag(bool flag);
    /// Style sheet that an XML report refers to; a relative path counts from the working directory.
    /// The first path set for a format stays until the next `SetFormat`.
    void SetXMLStyle(const QString& path);

    /// Writes one result set.
    ///
    ///     if (!service.Export(&resultSet) || !service.OutputComplete())
    ///         qCritical("%ls", qUtf16Printable(service.GetErrorText() + service.GetOutputError()));
    /// \return false when the export could not start (see `GetErrorText`) or there is nothing to report
    bool Export(TestResultSet* resultSet);
    /// Writes a unit's test with its result sets and panel items.
    bool Export(UUTTest* uutTest);

    bool FormatOk() const;
    /// Why the last export could not start; empty when it did.
    QString GetErrorText() const;
    /// Whether the last export ran to its end and every byte reached the device. `Export` itself does
    /// not tell: it answers true also on a full disk.
    bool OutputComplete() const;
    /// Why the output of an export that could start is not complete, as far as that is known: what the device
    /// says, or why a report cannot be laid out. Empty when it is complete.
    QString GetOutputError() const;
    /// The file that the last export wrote to: the one that was set or, for a part that does not belong
    /// into that STDF lot file, the failure file beside it.
    QString GetWrittenFileName() const;

    /// All formats, in the order in which people should find them.
    ///
    ///     for (const ReportFormat& format : CExportServiceReport::Formats())
    ///         box->addItem(format.name, QObject::tr(format.purpose));
    static QList<ReportFormat> Formats();
    /// Filters for a file dialog, translated.
    static QString FileNameFilter();
    /// Extension without dot ("zyr" for XML); empty for an unknown format.
    static QString ExtensionForFormat(const QString& format);
    /// Format for a file name by the first known extension found anywhere in it; else empty.
    static QString FormatForExtension(const QString& fileName);
    /// Whether the name is known; the empty name is not valid although `SetFormat` takes it.
    static bool ValidFormat(const QString& format);

private:
    CExportServiceReport_Private* d;
};

} // namespace ZYN
