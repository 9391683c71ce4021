#pragma once

#include "support/Files.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CExportServiceReport.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QTemporaryDir>

#include <memory>

/// Reports as files, for tests that write and read them through the exported services.
namespace ZYN::ReportFiles {

/// A path for a file of the test run.
inline QString ScratchFile()
{
    static const QTemporaryDir folder;
    return folder.filePath("report.zyr");
}

/// The report of a test; empty when it could not be written completely.
inline QByteArray Write(UUTTest& test)
{
    CExportServiceReport service;
    service.SetFormat("XML");
    service.SetOutputFileName(ScratchFile());
    return service.Export(&test) && service.OutputComplete() ? Files::Content(ScratchFile()) : QByteArray();
}

/// What an import of a document gave.
struct Reading {
    std::unique_ptr<UUTTest> test = std::make_unique<UUTTest>(1, QString());
    bool imported = false;
    QList<ImportFinding> findings;

    /// The findings' texts in one line.
    QString Texts() const
    {
        QStringList texts;
        for (const ImportFinding& finding : findings)
            texts.append(finding.text);
        return texts.join("; ");
    }
};

/// Reads a document with a service, which keeps what it carries over.
inline Reading Read(const QByteArray& document, CImportServiceReport& service)
{
    Reading reading;
    service.SetInputFileName(Files::Write(ScratchFile(), document));
    reading.imported = service.Import(reading.test.get());
    reading.findings = service.GetFindings();
    return reading;
}

inline Reading Read(const QByteArray& document)
{
    CImportServiceReport service;
    return Read(document, service);
}

} // namespace ZYN::ReportFiles
